// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/forms/commentary_list.h"

#include <QAbstractListModel>
#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QStyledItemDelegate>
#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "console/commentary_rows.h"
#include "console/console_view.h"
#include "desktop/enlarged.h"
#include "desktop/shown_text.h"
#include "desktop/theme.h"
#include "engine/forms/ball_chip.h"
#include "model/match_state.h"

namespace velorin {

namespace {

constexpr int ball_height = 28;
constexpr int wicket_height = 46;
constexpr int over_height = 26;
constexpr int message_height = 26;
constexpr int chip_size = 22;
constexpr int stripe = 3;
constexpr int place_width = 38;

int times(double factor, int pixels) { return static_cast<int>(std::lround(factor * pixels)); }

}  // namespace

/// The rows as they were last read, and the messages that have passed by between them. An innings only appends to them.
class CommentaryModel : public QAbstractListModel {
 public:
  CommentaryModel(const match_state& match, QObject* parent) : QAbstractListModel(parent), match_(match) {}

  /// True if rows came or went.
  bool read() {
    const int lines = count_lines(match_.deliveries, overs_closed(match_));
    if (lines == lines_) return false;
    std::vector<commentary_row> rows = view_commentary(match_);
    const auto before = rows_.size();
    if (lines < lines_ || rows.size() < before) {
      beginResetModel();
      entries_.clear();
      rows_ = std::move(rows);
      append_from(0);
      endResetModel();
    } else if (rows.size() > before) {
      const int first = static_cast<int>(entries_.size());
      beginInsertRows({}, first, first + static_cast<int>(rows.size() - before) - 1);
      rows_ = std::move(rows);
      append_from(before);
      endInsertRows();
    }
    lines_ = lines;
    return true;
  }

  void forget() {
    beginResetModel();
    entries_.clear();
    rows_.clear();
    lines_ = -1;
    endResetModel();
  }

  void add_message(const QString& text) {
    const int place = static_cast<int>(entries_.size());
    beginInsertRows({}, place, place);
    entries_.push_back({0, text});
    endInsertRows();
  }

  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(entries_.size());
  }

  /// The message that stands there; empty where it is a row of the commentary.
  const QString& message(const QModelIndex& index) const { return entry_at(index).message; }
  /// Requires a row of the commentary.
  const commentary_row& row(const QModelIndex& index) const { return rows_[entry_at(index).row]; }

  QVariant data(const QModelIndex& index, int role) const override {
    if (!index.isValid()) return {};
    const bool words = role == Qt::DisplayRole || role == Qt::AccessibleTextRole || role == Qt::ToolTipRole;
    if (const QString& passed = message(index); !passed.isEmpty()) return words ? QVariant(passed) : QVariant();
    const commentary_row& shown_row = row(index);
    switch (role) {
      case Qt::DisplayRole:
      case Qt::AccessibleTextRole:
      case Qt::ToolTipRole:
        return lines(shown_row, shown_caption);
      case Qt::UserRole:  // as it is copied and exported
        return lines(shown_row, shown);
      default:
        return {};
    }
  }

 private:
  struct Entry {
    std::size_t row = 0;  // of the commentary
    QString message;
  };

  const Entry& entry_at(const QModelIndex& index) const { return entries_[static_cast<std::size_t>(index.row())]; }
  void append_from(std::size_t row) {
    for (; row < rows_.size(); ++row) entries_.push_back({row, {}});
  }

  static QString lines(const commentary_row& row, QString (*text)(std::string_view)) {
    QStringList all;
    for (const std::string& line : row.lines) all << text(line);
    return all.join(QLatin1Char('\n'));
  }

  std::vector<commentary_row> rows_;
  std::vector<Entry> entries_;
  int lines_ = 0;
  const match_state& match_;
};

QRect outcome_place(const QRect& row, const QString& symbol, double factor) {
  const int tall = times(factor, chip_size);
  const int wide = static_cast<int>(std::lround(chip_width(symbol, tall, factor)));
  return {row.right() - 6 - wide, row.top() + (times(factor, ball_height) - tall) / 2, wide, tall};
}

QString fitting_names(const commentary_row& row, const QFontMetrics& type, int width) {
  const auto names = [&](const std::string& bowler, const std::string& batsman) {
    return shown(bowler) + QStringLiteral(" to ") + shown(batsman);
  };
  const std::string bowler = shortened_name(row.bowler);
  const QString forms[] = {names(row.bowler, row.batsman), names(bowler, row.batsman),
                           names(bowler, shortened_name(row.batsman))};
  for (const QString& form : forms) {
    if (type.horizontalAdvance(form) <= width) return form;
  }
  return shown(row.batsman);
}

namespace {

QColor color_of(line_kind kind) {
  const Theme& t = theme();
  switch (kind) {
    case line_kind::wicket:
      return t.ball;
    case line_kind::four:
      return t.high_contrast || t.dark ? t.four : t.four.darker(115);
    case line_kind::six:
      return t.six;
    default:
      return t.ink;
  }
}

/// Draws the row of a ball or of the end of an over.
class RowPainter : public QStyledItemDelegate {
 public:
  RowPainter(const CommentaryModel& rows, QWidget* list) : QStyledItemDelegate(list), rows_(rows), list_(*list) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const Theme& t = theme();
    const QString& message = rows_.message(index);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const bool chosen = option.state.testFlag(QStyle::State_Selected);
    const bool over_end = message.isEmpty() && rows_.row(index).kind == line_kind::over_end;
    if (chosen || over_end) painter->fillRect(option.rect, t.card_raised);
    if (!message.isEmpty()) {
      paint_message(*painter, option.rect, message);
    } else if (over_end) {
      paint_over_end(*painter, option.rect, rows_.row(index));
    } else {
      paint_ball(*painter, option.rect, rows_.row(index));
    }
    if (option.state.testFlag(QStyle::State_HasFocus) && option.widget->hasFocus()) {
      painter->setPen(QPen(t.focus, 1));
      painter->setBrush(Qt::NoBrush);
      painter->drawRect(option.rect.adjusted(0, 0, -1, -1));
    }
    painter->restore();
  }

  QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex& index) const override {
    // As wide as the list, whatever the row.
    if (!rows_.message(index).isEmpty()) return {0, sized(message_height)};
    const line_kind kind = rows_.row(index).kind;
    return {0, sized(kind == line_kind::over_end ? over_height
                     : kind == line_kind::wicket ? wicket_height
                                                 : ball_height)};
  }

 private:
  int sized(int pixels) const { return enlarged(list_, pixels); }
  QFont type(TypeStep step) const { return type_font(list_, step); }

  static void paint_text(QPainter& painter, const QRect& place, const QString& text) {
    if (place.width() < 12) return;
    painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter,
                     painter.fontMetrics().elidedText(text, Qt::ElideRight, place.width()));
  }

  void paint_ball(QPainter& painter, const QRect& rect, const commentary_row& row) const {
    const Theme& t = theme();
    const bool marked = row.kind != line_kind::ball;
    const QColor color = color_of(row.kind);
    if (marked) painter.fillRect(QRect(rect.left(), rect.top() + 2, stripe, rect.height() - 4), color);
    const QString symbol = shown(row.symbol);
    const double factor = enlargement(list_);
    const QRect chip = outcome_place(rect, symbol, factor);
    paint_chip(painter, QRectF(chip).adjusted(0.5, 0.5, -0.5, -0.5), symbol, factor);
    const int tall = sized(ball_height);
    const int from = rect.left() + stripe + 5;
    const QRect line(from, rect.top(), chip.left() - 8 - from, tall);
    painter.setFont(type(TypeStep::small));
    painter.setPen(t.muted);
    paint_text(painter, QRect(line.topLeft(), QSize(std::min(sized(place_width), line.width()), tall)),
               QStringLiteral("%1.%2").arg(row.over - 1).arg(row.ball));
    painter.setFont(type(marked ? TypeStep::strong : TypeStep::body));
    painter.setPen(color);
    const QRect names = line.adjusted(sized(place_width), 0, 0, 0);
    paint_text(painter, names, fitting_names(row, painter.fontMetrics(), names.width()));
    if (row.kind != line_kind::wicket) return;
    painter.setFont(type(TypeStep::small));
    // What he made stands at the end and stays whole.
    const QRect under(names.left(), rect.top() + tall - 4, rect.right() - 6 - names.left(),
                      sized(wicket_height) - tall);
    const QString brief = shown_caption(row.brief).simplified();
    painter.drawText(under, Qt::AlignLeft | Qt::AlignVCenter,
                     painter.fontMetrics().elidedText(brief, Qt::ElideMiddle, under.width()));
  }

  /// In a frame of its own, as no ball is.
  void paint_message(QPainter& painter, const QRect& rect, const QString& message) const {
    const Theme& t = theme();
    painter.setPen(QPen(t.accent, 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(rect).adjusted(stripe + 0.5, 2.5, -4.5, -2.5), 4, 4);
    painter.setFont(type(TypeStep::small));
    painter.setPen(t.ink);
    paint_text(painter, rect.adjusted(stripe + 8, 0, -10, 0), message);
  }

  void paint_over_end(QPainter& painter, const QRect& rect, const commentary_row& row) const {
    const Theme& t = theme();
    painter.setFont(type(TypeStep::small));
    painter.setPen(t.muted);
    QRect place = rect.adjusted(stripe + 5, 0, -6, 0);
    painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("Over %1").arg(row.over));
    place.setLeft(place.left() + painter.fontMetrics().horizontalAdvance(QStringLiteral("Over 50  ")));
    painter.setPen(t.ink);
    if (place.width() > 12) {
      painter.drawText(place, Qt::AlignRight | Qt::AlignVCenter,
                       painter.fontMetrics().elidedText(shown(row.brief), Qt::ElideLeft, place.width()));
    }
    painter.setPen(t.line);
    painter.drawLine(rect.bottomLeft(), rect.bottomRight());
  }

  const CommentaryModel& rows_;
  const QWidget& list_;
};

}  // namespace

CommentaryList::CommentaryList(const match_state& match, QWidget* parent)
    : QListView(parent), rows_(new CommentaryModel(match, this)), match_(match) {
  setObjectName(QStringLiteral("commentary"));
  setAccessibleName(QStringLiteral("Ball by ball"));
  setModel(rows_);
  setSelectionMode(QAbstractItemView::ExtendedSelection);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  setItemDelegate(new RowPainter(*rows_, this));
  setMinimumWidth(160);
  // The newest row is selected all the time: it must not outshine the rest.
  setProperty("quiet", true);
}

void CommentaryList::refresh() {
  if (rows_->read()) show_newest();
}

void CommentaryList::forget() { rows_->forget(); }

void CommentaryList::add_message(const QString& text) {
  rows_->read();
  rows_->add_message(text);
  show_newest();
}

void CommentaryList::show_newest() {
  const int rows = rows_->rowCount();
  if (rows == 0) return;
  setCurrentIndex(rows_->index(rows - 1));
  scrollToBottom();
}

void CommentaryList::paintEvent(QPaintEvent* event) {
  QListView::paintEvent(event);
  if (rows_->rowCount() > 0) return;
  QPainter painter(viewport());
  painter.setPen(theme().muted);
  painter.setFont(type_font(*this, TypeStep::body));
  painter.drawText(viewport()->rect().adjusted(8, 8, -8, -8), Qt::AlignCenter | Qt::TextWordWrap,
                   QStringLiteral("No ball bowled yet in this innings"));
}

void CommentaryList::resizeEvent(QResizeEvent* event) {
  QListView::resizeEvent(event);
  if (rows_->rowCount() > 0 && currentIndex().row() == rows_->rowCount() - 1) scrollToBottom();
}

void CommentaryList::keyPressEvent(QKeyEvent* event) {
  if (!event->matches(QKeySequence::Copy)) {
    QListView::keyPressEvent(event);
    return;
  }
  QModelIndexList chosen = selectionModel()->selectedIndexes();
  std::sort(chosen.begin(), chosen.end());
  QString text;
  for (const QModelIndex& index : chosen) {
    if (rows_->message(index).isEmpty()) text += index.data(Qt::UserRole).toString() + QLatin1Char('\n');
  }
  QGuiApplication::clipboard()->setText(text);
}

}  // namespace velorin
