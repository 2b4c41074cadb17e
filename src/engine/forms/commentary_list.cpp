// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/forms/commentary_list.h"

#include <QAbstractListModel>
#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QStyledItemDelegate>
#include <algorithm>
#include <string>
#include <vector>

#include "desktop/shown_text.h"
#include "desktop/theme.h"
#include "model/match_state.h"

namespace velorin {

/// The lines as they were last read. An innings only appends to them.
class CommentaryModel : public QAbstractListModel {
 public:
  CommentaryModel(const match_state& match, QObject* parent) : QAbstractListModel(parent), match_(match) {}

  /// True if lines came or went.
  bool read() {
    const int size = count_lines(match_.deliveries, overs_closed(match_));
    const int before = static_cast<int>(lines_.size());
    if (size == before) return false;
    const std::vector<commentary_line> lines = tell(innings_in_play(match_));
    if (size < before) {
      beginResetModel();
      lines_ = lines;
      endResetModel();
    } else {
      beginInsertRows({}, before, size - 1);
      lines_.insert(lines_.end(), lines.begin() + before, lines.end());
      endInsertRows();
    }
    return true;
  }

  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(lines_.size());
  }

  QVariant data(const QModelIndex& index, int role) const override {
    if (!index.isValid()) return {};
    const auto& [line, kind] = lines_[static_cast<std::size_t>(index.row())];
    switch (role) {
      case Qt::DisplayRole:
        return sign(kind) + shown_caption(line);
      case Qt::AccessibleTextRole:
      case Qt::ToolTipRole:
        return shown_caption(line);
      case Qt::UserRole:  // as it is copied and exported
        return shown(line);
      case Qt::ForegroundRole:
        return color(kind);
      case Qt::FontRole:
        return type_font(kind == line_kind::ball || is_block(kind) ? TypeStep::body : TypeStep::strong);
      default:
        return {};
    }
  }

 private:
  static bool is_block(line_kind kind) { return kind == line_kind::wicket_card || kind == line_kind::over_end; }

  static QString sign(line_kind kind) {
    switch (kind) {
      case line_kind::wicket:
        return QStringLiteral("\u25A0 ");
      case line_kind::four:
        return QStringLiteral("\u25CF ");
      case line_kind::six:
        return QStringLiteral("\u25B2 ");
      default:
        return {};
    }
  }

  static QColor color(line_kind kind) {
    const Theme& t = theme();
    switch (kind) {
      case line_kind::wicket:
        return t.ball;
      case line_kind::four:
        return t.high_contrast || t.dark ? t.four : t.four.darker(115);
      case line_kind::six:
        return t.six;
      case line_kind::wicket_card:
      case line_kind::over_end:
        return t.muted;
      default:
        return t.ink;
    }
  }

  std::vector<commentary_line> lines_;
  const match_state& match_;
};

namespace {

/// Shortens a line that is too long before its outcome, which stays whole.
class LinePainter : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& given, const QModelIndex& index) const override {
    QStyleOptionViewItem option = given;
    initStyleOption(&option, index);
    const QStyle& style = *option.widget->style();
    const int margin = style.pixelMetric(QStyle::PM_FocusFrameHMargin, &option, option.widget) + 1;
    const int room = style.subElementRect(QStyle::SE_ItemViewItemText, &option, option.widget).width() - 2 * margin;
    option.text = shortened_line(option.text, option.fontMetrics, room);
    style.drawControl(QStyle::CE_ItemViewItem, &option, painter, option.widget);
  }

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    // As wide as the list, whatever the line.
    return {0, QStyledItemDelegate::sizeHint(option, index).height()};
  }
};

}  // namespace

QString shortened_line(const QString& line, const QFontMetrics& metrics, int room) {
  const qsizetype cut = line.lastIndexOf(QLatin1String(" : "));
  if (cut < 0 || metrics.horizontalAdvance(line) <= room) return metrics.elidedText(line, Qt::ElideMiddle, room);
  const QString outcome = line.mid(cut);
  const int left = room - metrics.horizontalAdvance(outcome);
  return left > 0 ? metrics.elidedText(line.left(cut), Qt::ElideMiddle, left) + outcome
                  : metrics.elidedText(outcome.mid(3), Qt::ElideRight, room);
}

CommentaryList::CommentaryList(const match_state& match, QWidget* parent)
    : QListView(parent), lines_(new CommentaryModel(match, this)), match_(match) {
  setObjectName(QStringLiteral("commentary"));
  setAccessibleName(QStringLiteral("Ball by ball"));
  setModel(lines_);
  setUniformItemSizes(true);
  setSelectionMode(QAbstractItemView::ExtendedSelection);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setItemDelegate(new LinePainter(this));
  setMinimumWidth(160);
  // The newest line is selected all the time: it must not outshine the rest.
  setProperty("quiet", true);
}

void CommentaryList::refresh() {
  if (!lines_->read()) return;
  const int rows = lines_->rowCount();
  if (rows == 0) return;
  setCurrentIndex(lines_->index(rows - 1));
  scrollToBottom();
}

void CommentaryList::keyPressEvent(QKeyEvent* event) {
  if (!event->matches(QKeySequence::Copy)) {
    QListView::keyPressEvent(event);
    return;
  }
  QModelIndexList chosen = selectionModel()->selectedIndexes();
  std::sort(chosen.begin(), chosen.end());
  QString text;
  for (const QModelIndex& index : chosen) text += index.data(Qt::UserRole).toString() + QLatin1Char('\n');
  QGuiApplication::clipboard()->setText(text);
}

}  // namespace velorin
