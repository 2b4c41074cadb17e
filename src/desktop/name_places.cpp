// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/name_places.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QLabel>
#include <QStyle>
#include <QStyleOptionViewItem>
#include <QTextLayout>
#include <algorithm>
#include <utility>

#include "desktop/form.h"
#include "desktop/table_model.h"
#include "desktop/table_view.h"

namespace velorin {

namespace {

bool is_in_button(const QWidget& widget) {
  for (const QWidget* at = &widget; at != nullptr && !at->isWindow(); at = at->parentWidget()) {
    if (qobject_cast<const QAbstractButton*>(at) != nullptr) return true;
  }
  return false;
}

/// Where the label writes: what its margins and its indent leave.
QRect written_part(const QLabel& label) {
  QRect room = label.contentsRect().adjusted(label.margin(), label.margin(), -label.margin(), -label.margin());
  int indent = label.indent();
  if (indent < 0 && label.frameWidth() > 0) indent = label.fontMetrics().horizontalAdvance(QLatin1Char('x')) / 2;
  if (indent > 0 && (label.alignment() & Qt::AlignLeft) != 0) room.setLeft(room.left() + indent);
  if (indent > 0 && (label.alignment() & Qt::AlignRight) != 0) room.setRight(room.right() - indent);
  return room;
}

/// The text in lines, as wide as the room.
qreal lay_out(QTextLayout& layout, const QLabel& label, int width) {
  QTextOption option(label.alignment() & Qt::AlignHorizontal_Mask);
  option.setWrapMode(label.wordWrap() ? QTextOption::WordWrap : QTextOption::NoWrap);
  layout.setTextOption(option);
  qreal height = 0;
  layout.beginLayout();
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(width);
    line.setPosition(QPointF(0, height));
    height += line.height();
  }
  layout.endLayout();
  return height;
}

/// The part of a name in the line in which it begins.
QRect place_in(const QTextLayout& layout, const FoundName& name) {
  const QTextLine line = layout.lineForTextPosition(static_cast<int>(name.from));
  if (!line.isValid()) return {};
  const int line_end = line.textStart() + line.textLength();
  const qreal left = line.cursorToX(static_cast<int>(name.from));
  const qreal right = line.cursorToX(std::min(static_cast<int>(name.from + name.length), line_end));
  return QRectF(left, line.y(), right - left, line.height()).toAlignedRect();
}

void add_new(std::vector<NameLink>& all, const NameBook& book, const QString& text) {
  for (const FoundName& name : book.names_in(text)) {
    if (std::find(all.begin(), all.end(), name.link) == all.end()) all.push_back(name.link);
  }
}

void add_cells(std::vector<NameLink>& all, const NameBook& book, const QAbstractItemView& view) {
  const QAbstractItemModel* model = view.model();
  if (model == nullptr) return;
  const QModelIndex root = view.rootIndex();
  for (int row = 0; row < model->rowCount(root); ++row) {
    for (int column = 0; column < model->columnCount(root); ++column) {
      const QModelIndex cell = model->index(row, column, root);
      add_new(all, book, cell.data().toString());
      add_new(all, book, cell.data(Qt::AccessibleTextRole).toString());
    }
  }
}

void add_widget(std::vector<NameLink>& all, const NameBook& book, const QWidget& widget) {
  if (const auto* label = qobject_cast<const QLabel*>(&widget)) add_new(all, book, label->text());
  if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) add_new(all, book, button->text());
  if (const auto* choice = qobject_cast<const QComboBox*>(&widget)) add_new(all, book, choice->currentText());
  if (const auto* view = qobject_cast<const QAbstractItemView*>(&widget)) add_cells(all, book, *view);
  add_new(all, book, widget.accessibleName());
  add_new(all, book, widget.accessibleDescription());
}

}  // namespace

std::vector<PlacedName> names_of(const QLabel& label, const NameBook& book) {
  const bool plain =
      label.textFormat() == Qt::PlainText || (label.textFormat() == Qt::AutoText && !Qt::mightBeRichText(label.text()));
  if (!plain || label.buddy() != nullptr || label.text().isEmpty() || is_in_button(label)) return {};
  const std::vector<FoundName> found = book.names_in(label.text());
  if (found.empty()) return {};
  const QRect room = written_part(label);
  QString lines = label.text();
  QTextLayout layout(lines.replace(QLatin1Char('\n'), QChar::LineSeparator), label.font());
  const qreal height = lay_out(layout, label, room.width());
  qreal top = 0;
  if ((label.alignment() & Qt::AlignVCenter) != 0) top = (room.height() - height) / 2;
  if ((label.alignment() & Qt::AlignBottom) != 0) top = room.height() - height;
  std::vector<PlacedName> names;
  for (const FoundName& name : found) {
    const QRect at = place_in(layout, name).translated(room.topLeft() + QPoint(0, qRound(top))) & label.rect();
    if (at.width() > 0) names.push_back({name.link, at});
  }
  return names;
}

std::vector<PlacedName> names_of(const TableView& view, const QModelIndex& index, const NameBook& book) {
  if (!index.isValid() || index.data(covered_role).toBool()) return {};
  const QString text = index.data().toString();
  const std::vector<FoundName> found = book.names_in(text);
  if (found.empty()) return {};
  QStyleOptionViewItem option;
  option.initFrom(&view);
  option.rect = view.visualRect(index);
  option.font = index.data(Qt::FontRole).value<QFont>();
  option.fontMetrics = QFontMetrics(option.font);
  option.text = text;
  option.features = QStyleOptionViewItem::HasDisplay;
  option.displayAlignment = Qt::Alignment(index.data(Qt::TextAlignmentRole).toInt());
  option.decorationPosition = QStyleOptionViewItem::Left;
  if (const QVariant icon = index.data(Qt::DecorationRole); icon.isValid()) {
    option.features |= QStyleOptionViewItem::HasDecoration;
    option.icon = icon.value<QIcon>();
    option.decorationSize = view.iconSize();
  }
  const QStyle& style = *view.style();
  const int margin = style.pixelMetric(QStyle::PM_FocusFrameHMargin, &option, &view) + 1;
  const QRect room = style.subElementRect(QStyle::SE_ItemViewItemText, &option, &view).adjusted(margin, 0, -margin, 0);
  const bool at_right = (option.displayAlignment & Qt::AlignRight) != 0;
  const int left =
      at_right ? std::max(room.left(), room.right() - option.fontMetrics.horizontalAdvance(text)) : room.left();
  const int height = option.fontMetrics.height();
  std::vector<PlacedName> names;
  for (const FoundName& name : found) {
    const int before = option.fontMetrics.horizontalAdvance(text.left(name.from));
    const int width = option.fontMetrics.horizontalAdvance(text.mid(name.from, name.length));
    const QRect at = QRect(left + before, room.center().y() - height / 2, width, height) & room;
    if (at.width() > 0) names.push_back({name.link, at});
  }
  return names;
}

std::vector<NameLink> names_on(const Form& form, const NameBook& book) {
  std::vector<const QWidget*> shown;
  for (const QWidget* widget : form.findChildren<QWidget*>()) {
    if (widget->isVisibleTo(&form)) shown.push_back(widget);
  }
  const auto top_of = [&form](const QWidget* widget) { return widget->mapTo(&form, QPoint(0, 0)); };
  std::stable_sort(shown.begin(), shown.end(), [&](const QWidget* a, const QWidget* b) {
    const QPoint first = top_of(a);
    const QPoint second = top_of(b);
    return std::pair(first.y(), first.x()) < std::pair(second.y(), second.x());
  });
  std::vector<NameLink> all;
  for (const QWidget* widget : shown) add_widget(all, book, *widget);
  return all;
}

}  // namespace velorin
