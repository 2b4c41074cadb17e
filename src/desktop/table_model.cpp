// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/table_model.h"

#include <QColor>
#include <QRegularExpression>
#include <algorithm>

#include "desktop/controls.h"
#include "desktop/crest.h"
#include "desktop/enlarged.h"
#include "desktop/terms.h"
#include "desktop/theme.h"

namespace velorin {

namespace {

QColor color_of(CellLook look) {
  const Theme& t = theme();
  switch (look) {
    case CellLook::muted:
      return t.muted;
    case CellLook::red:
      return t.ball;
    case CellLook::blue:
      return t.blue;
    case CellLook::dark_blue:
      return t.dark_blue;
    default:
      return t.ink;
  }
}

QVariant sort_value(const QString& text) {
  static const QRegularExpression leading(QStringLiteral("^\\s*(-?\\d+(?:\\.\\d+)?)"));
  const auto number = leading.match(text);
  if (number.hasMatch()) return number.captured(1).toDouble();
  return text;
}

const QRegularExpression& plain_figure() {
  static const QRegularExpression figure(QStringLiteral("^\\s*-?\\d+(\\.\\d+)?\\s*$"));
  return figure;
}

int decimals_of(const QString& text) {
  const qsizetype point = text.indexOf(QLatin1Char('.'));
  return point < 0 ? 0 : static_cast<int>(text.trimmed().size() - text.trimmed().indexOf(QLatin1Char('.'))) - 1;
}

/// The most decimals in a column of figures, where it holds nothing but these and signs for none.
int most_decimals(const Table& table, std::size_t column) {
  if (!table.columns[column].numbers) return 0;
  int most = 0;
  for (const TableRow& row : table.rows) {
    const QString text = row.cells[column].text.trimmed();
    if (text.isEmpty() || text == QLatin1String("-")) continue;
    if (!plain_figure().match(text).hasMatch()) return 0;
    most = std::max(most, decimals_of(text));
  }
  return most;
}

QString csv_field(const QString& text) {
  static const QRegularExpression special(QStringLiteral("[\",\r\n]"));
  if (!text.contains(special)) return text;
  return QLatin1Char('"') + QString(text).replace(QLatin1Char('"'), QStringLiteral("\"\"")) + QLatin1Char('"');
}

/// A column's meaning, by the words that are spoken for its heading or else by itself.
QString meaning_of_column(const TableColumn& column) {
  const QString meaning = meaning_of(column.spoken);
  return meaning.isEmpty() ? meaning_of(column.heading) : meaning;
}

QStringList written_row(const TableRow& row) {
  QStringList fields;
  for (const TableCell& cell : row.cells) fields << cell.text;
  return fields;
}

QStringList csv_fields(const TableRow& row) {
  QStringList fields;
  for (const TableCell& cell : row.cells) fields << csv_field(cell.kept.isEmpty() ? cell.text : cell.kept);
  return fields;
}

}  // namespace

QString table_text(const Table& table, const std::vector<int>& chosen) {
  QStringList headings;
  for (const TableColumn& column : table.columns) headings << column.heading;
  QStringList lines{headings.join(QLatin1Char('\t'))};
  if (chosen.empty()) {
    for (const TableRow& row : table.rows) lines << written_row(row).join(QLatin1Char('\t'));
  }
  for (const int row : chosen) {
    lines << written_row(table.rows[static_cast<std::size_t>(row)]).join(QLatin1Char('\t'));
  }
  return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

QString table_csv(const Table& table) {
  QStringList headings;
  for (const TableColumn& column : table.columns) headings << csv_field(column.heading);
  QString csv = headings.join(QLatin1Char(',')) + QStringLiteral("\r\n");
  for (const TableRow& row : table.rows) {
    csv += csv_fields(row).join(QLatin1Char(',')) + QStringLiteral("\r\n");
  }
  return csv;
}

void TableModel::set_table(Table table) {
  beginResetModel();
  table_ = std::move(table);
  decimals_.clear();
  for (std::size_t column = 0; column < table_.columns.size(); ++column)
    decimals_.push_back(most_decimals(table_, column));
  endResetModel();
}

void TableModel::set_text(int row, int column, const QString& text) {
  const auto at = static_cast<std::size_t>(column);
  table_.rows[static_cast<std::size_t>(row)].cells[at].text = text;
  decimals_[at] = most_decimals(table_, at);
  emit dataChanged(index(0, column), index(rowCount() - 1, column));
}

int TableModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(table_.rows.size());
}

int TableModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(table_.columns.size());
}

QVariant TableModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const TableRow& row = table_.rows[static_cast<std::size_t>(index.row())];
  const TableColumn& column = table_.columns[static_cast<std::size_t>(index.column())];
  const TableCell& cell = row.cells[static_cast<std::size_t>(index.column())];
  switch (role) {
    case Qt::DisplayRole:
      return shown_text(index.row(), index.column());
    case Qt::DecorationRole:
      return column.teams && !cell.text.isEmpty() ? QVariant(crest_icon(cell.text)) : QVariant();
    case Qt::UserRole:
      return sort_value(cell.text);
    case covered_role:
      return column.covered > 0 && row.covered;
    case Qt::TextAlignmentRole:
      return QVariant(Qt::AlignVCenter | (column.numbers ? Qt::AlignRight : Qt::AlignLeft));
    case Qt::ForegroundRole:
      return color_of(cell.look);
    case Qt::BackgroundRole:
      return row.marked ? QVariant(theme().next_ground) : QVariant();
    case Qt::FontRole:
      return cell_font(row.marked || cell.look == CellLook::strong);
    case Qt::AccessibleTextRole:
      return QStringLiteral("%1: %2%3")
          .arg(spoken_name(column.heading.trimmed().isEmpty() ? column.spoken : column.heading), cell.text,
               row.marked ? QStringLiteral(", marked") : QString());
    default:
      return {};
  }
}

QString TableModel::shown_text(int row, int column) const {
  const QString& text = table_.rows[static_cast<std::size_t>(row)].cells[static_cast<std::size_t>(column)].text;
  const int missing = decimals_[static_cast<std::size_t>(column)] - decimals_of(text);
  if (missing <= 0 || !plain_figure().match(text).hasMatch()) return text;
  return text.trimmed() + (text.contains(QLatin1Char('.')) ? QString() : QStringLiteral(".")) +
         QString(missing, QLatin1Char('0'));
}

QFont TableModel::cell_font(bool strong) const {
  const auto* view = static_cast<const QWidget*>(QObject::parent());
  const auto type = [view](TypeStep step) { return view == nullptr ? type_font(step) : type_font(*view, step); };
  QFont font = type(strong ? TypeStep::strong : TypeStep::body);
  font.setPointSizeF(type(step_).pointSizeF());
  return font;
}

QVariant TableModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation == Qt::Vertical) {
    if (section < 0 || section >= rowCount()) return {};
    const TableRow& row = table_.rows[static_cast<std::size_t>(section)];
    if (role == Qt::TextAlignmentRole) return QVariant(Qt::AlignVCenter | Qt::AlignRight);
    return role == Qt::DisplayRole ? QVariant(row.marked ? QStringLiteral("\u25B6") : row.head) : QVariant();
  }
  if (section < 0 || section >= columnCount()) return {};
  const TableColumn& column = table_.columns[static_cast<std::size_t>(section)];
  switch (role) {
    case Qt::DisplayRole:
      return column.heading;
    case Qt::FontRole:
      return type_font(*static_cast<const QWidget*>(QObject::parent()), TypeStep::body);
    case Qt::TextAlignmentRole:
      return QVariant(Qt::AlignVCenter | (column.numbers ? Qt::AlignRight : Qt::AlignLeft));
    case Qt::InitialSortOrderRole:  // of figures the highest come first
      return static_cast<int>(column.numbers ? Qt::DescendingOrder : Qt::AscendingOrder);
    case Qt::ToolTipRole:
    case Qt::AccessibleDescriptionRole: {
      const QString meaning = meaning_of_column(column);
      if (meaning.isEmpty()) return {};
      if (role == Qt::AccessibleDescriptionRole || table_.order == RowOrder::fixed) return meaning;
      return QStringLiteral("%1\n%2").arg(meaning, QString::fromLatin1(header_hint));
    }
    case Qt::AccessibleTextRole:
      return spoken_name(column.heading.trimmed().isEmpty() ? column.spoken : column.heading);
    default:
      return {};
  }
}

}  // namespace velorin
