// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/table_view.h"

#include <unistd.h>

#include <QClipboard>
#include <QContextMenuEvent>
#include <QFileDialog>
#include <QGuiApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QSaveFile>
#include <QShortcut>
#include <QSortFilterProxyModel>
#include <QStyledItemDelegate>
#include <QToolTip>
#include <algorithm>
#include <cerrno>
#include <system_error>

#include "desktop/message_window.h"
#include "desktop/preferences.h"
#include "desktop/program_end.h"
#include "desktop/shown_text.h"
#include "desktop/table_model.h"
#include "model/code_page.h"
#include "model/game_names.h"
#include "model/run_time_error.h"

namespace velorin {

namespace {

constexpr int lowest_row = 28;  // pixels

/// Paints the ground of a marked row, which the style sheet leaves out, and tells a text that is cut off.
class CellPainter : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const QVariant ground = index.data(Qt::BackgroundRole);
    if (ground.isValid()) painter->fillRect(option.rect, ground.value<QColor>());
    QStyledItemDelegate::paint(painter, option, index);
  }

  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override {
    if (event->type() != QEvent::ToolTip || sizeHint(option, index).width() <= option.rect.width()) {
      return QStyledItemDelegate::helpEvent(event, view, option, index);
    }
    QToolTip::showText(event->globalPos(), index.data().toString(), view);
    return true;
  }
};

/// Writes and synchronises an open file and tells the cause if that failed, else 0: QSaveFile tells none where a part
/// of the bytes has found room, and none of a failed synchronisation.
int error_of_writing(int number, QByteArrayView bytes) {
  while (!bytes.isEmpty()) {
    const ssize_t written = ::write(number, bytes.data(), static_cast<std::size_t>(bytes.size()));
    if (written < 0 && errno != EINTR) return errno;
    if (written > 0) bytes = bytes.sliced(written);
  }
  while (::fsync(number) != 0) {
    if (errno == EINVAL || errno == ENOTSUP) break;  // the file system knows no such thing
    if (errno != EINTR) return errno;
  }
  return 0;
}

}  // namespace

TableView::TableView(const QString& name, QWidget* parent)
    : QTableView(parent), model_(new TableModel(this)), order_(new QSortFilterProxyModel(this)) {
  setObjectName(name);
  order_->setSortRole(Qt::UserRole);
  order_->setSourceModel(model_);
  setModel(order_);
  setItemDelegate(new CellPainter(this));
  setSelectionBehavior(QAbstractItemView::SelectRows);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setAlternatingRowColors(true);
  setShowGrid(false);
  setWordWrap(false);
  setTabKeyNavigation(false);
  setCornerButtonEnabled(false);
  verticalHeader()->setVisible(false);
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(lowest_row);
  verticalHeader()->setMinimumWidth(24);
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setMinimumSectionSize(32);
  connect(this, &QTableView::doubleClicked, this, &TableView::open_row);
}

void TableView::set_table(Table table) {
  setAccessibleName(table.name);
  horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);  // the order given, until a heading is pressed
  setSortingEnabled(table.sortable);
  const bool any_head = std::any_of(table.rows.begin(), table.rows.end(),
                                    [](const TableRow& r) { return r.marked || !r.head.isEmpty(); });
  const auto stretching = [&](auto wanted) {
    const auto found = std::find_if(table.columns.begin(), table.columns.end(), wanted);
    return found == table.columns.end() ? -1 : static_cast<int>(found - table.columns.begin());
  };
  int wide = stretching([](const TableColumn& c) { return c.stretches; });
  if (wide < 0) wide = stretching([](const TableColumn& c) { return !c.numbers; });
  model_->set_table(std::move(table));
  if (model_->table().sortable) order_->sort(-1);
  verticalHeader()->setVisible(any_head);
  for (int column = 0; column < model_->columnCount(); ++column) {
    const bool stretches = column == wide || model_->table().columns[static_cast<std::size_t>(column)].stretches;
    horizontalHeader()->setSectionResizeMode(column, stretches ? QHeaderView::Stretch : QHeaderView::ResizeToContents);
  }
  if (model_->rowCount() > 0) setCurrentIndex(order_->index(0, 0));
  clearSelection();
  updateGeometry();
}

const Table& TableView::table() const { return model_->table(); }

int TableView::table_row(int view_row) const { return order_->mapToSource(order_->index(view_row, 0)).row(); }

int TableView::rows_height() const {
  const int rows = std::max(1, model_->rowCount());
  return horizontalHeader()->sizeHint().height() + rows * verticalHeader()->defaultSectionSize() + 2 * frameWidth() + 2;
}

void TableView::show_all_rows() {
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setMinimumHeight(rows_height());
}

void TableView::grow_rows(int highest, int rows) {
  highest_row_ = highest;
  growing_rows_ = std::max(1, rows);
  const int least = horizontalHeader()->sizeHint().height() + 2 * frameWidth() + 2;
  setMaximumHeight(std::max(least + growing_rows_ * highest, minimumHeight()));
}

void TableView::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  if (highest_row_ == 0) return;
  const int height = std::clamp(viewport()->height() / growing_rows_, lowest_row, highest_row_);
  if (height != verticalHeader()->defaultSectionSize()) verticalHeader()->setDefaultSectionSize(height);
}

QSize TableView::sizeHint() const {
  int width =
      2 * frameWidth() + (verticalHeader()->isHidden() ? 0 : std::max(24, verticalHeader()->sizeHint().width())) + 24;
  for (int column = 0; column < model_->columnCount(); ++column) {
    width += std::max(sizeHintForColumn(column), horizontalHeader()->sectionSizeHint(column)) + 8;
  }
  return {width, rows_height()};
}

void TableView::copy() const {
  std::vector<int> rows;
  for (const QModelIndex& index : selectionModel()->selectedRows()) rows.push_back(table_row(index.row()));
  std::sort(rows.begin(), rows.end());
  QGuiApplication::clipboard()->setText(table_text(model_->table(), rows));
}

void TableView::save_csv() { save_table(model_->table(), window()); }

void TableView::open_row(const QModelIndex& index) {
  if (!opened_ || !index.isValid()) return;
  const int id = model_->table().rows[static_cast<std::size_t>(table_row(index.row()))].id;
  guarded([&] { opened_(id); });
}

void TableView::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy)) {
    copy();
  } else if (event->key() == Qt::Key_E && event->modifiers() == Qt::ControlModifier) {
    guarded([this] { save_csv(); });
  } else if (opened_ && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)) {
    open_row(currentIndex());
  } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    event->ignore();  // for the window's default button
  } else {
    QTableView::keyPressEvent(event);
  }
}

void TableView::contextMenuEvent(QContextMenuEvent* event) {
  QMenu menu(this);
  QAction* open = nullptr;
  if (opened_ && currentIndex().isValid()) open = menu.addAction(QStringLiteral("&Open\tReturn"));
  QAction* copied = menu.addAction(QStringLiteral("&Copy\tCtrl+C"));
  QAction* saved = menu.addAction(QStringLiteral("Save as CS&V ...\tCtrl+E"));
  const QAction* chosen = menu.exec(event->globalPos());
  if (chosen == nullptr) return;
  if (chosen == copied) copy();
  if (chosen == saved) guarded([this] { save_csv(); });
  if (chosen == open) open_row(currentIndex());
}

void offer_table(QWidget& widget, const std::function<Table()>& table) {
  const auto copied = [table] {
    if (const Table now = table(); !now.rows.empty()) QGuiApplication::clipboard()->setText(table_text(now));
  };
  const auto saved = [&widget, table] {
    const Table now = table();
    if (!now.rows.empty()) guarded([&] { save_table(now, widget.window()); });
  };
  QObject::connect(new QShortcut(QKeySequence::Copy, &widget), &QShortcut::activated, &widget, copied);
  QObject::connect(new QShortcut(Qt::CTRL | Qt::Key_E, &widget), &QShortcut::activated, &widget, saved);
  widget.setContextMenuPolicy(Qt::CustomContextMenu);
  QObject::connect(&widget, &QWidget::customContextMenuRequested, &widget, [&widget, table, copied, saved](QPoint at) {
    if (table().rows.empty()) return;
    QMenu menu(&widget);
    menu.addAction(QStringLiteral("&Copy\tCtrl+C"), copied);
    menu.addAction(QStringLiteral("Save as CS&V ...\tCtrl+E"), saved);
    menu.exec(widget.mapToGlobal(at));
  });
}

void save_table(const Table& table, QWidget* window) {
  const QString folder = preferences::last_folder();
  const QString proposed = (folder.isEmpty() ? QString() : folder + QLatin1Char('/')) +
                           file_name(table.name.trimmed()) + QStringLiteral(".csv");
  const QString path = QFileDialog::getSaveFileName(window, QStringLiteral("Save as CSV"), proposed,
                                                    QStringLiteral("CSV files (*.csv);;All files (*)"));
  if (path.isEmpty() || program_is_ending()) return;
  preferences::set_last_folder(QFileInfo(path).absolutePath());
  try {
    write_csv(path, table);
  } catch (const run_time_error& error) {
    show_failure(QStringLiteral("Save as CSV"), error, window);
  }
}

void write_csv(const QString& path, const Table& table) {
  QSaveFile file(path);
  const auto fail = [&path](const std::string& words) {
    const std::string name = path.toStdString();
    throw run_time_error(failure::file, words, {from_utf8(name).value_or(name), 0, {}, {}});
  };
  const auto refuse = [&fail](const std::string& cause) { fail("The file cannot be written: " + cause); };
  constexpr int most_links = 40;
  QFileInfo named(path);
  for (int followed = 0; followed <= most_links; ++followed) {
    const std::string_view use = game_use_of_name(named.fileName().toStdString());
    if (!use.empty()) fail("The name is that of a file of the game, for " + std::string(use));
    if (!named.isSymLink()) break;
    named = QFileInfo(named.symLinkTarget());
  }
  if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) refuse(file.errorString().toStdString());
  if (const int cause = error_of_writing(file.handle(), table_csv(table).toUtf8())) {
    refuse(std::generic_category().message(cause));
  }
  if (!file.commit()) refuse(file.errorString().toStdString());
}

}  // namespace velorin
