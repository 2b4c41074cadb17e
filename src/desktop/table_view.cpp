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
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QSaveFile>
#include <QShortcut>
#include <QStyle>
#include <QStyledItemDelegate>
#include <QToolTip>
#include <algorithm>
#include <cerrno>
#include <cmath>
#include <system_error>

#include "desktop/controls.h"
#include "desktop/enlarged.h"
#include "desktop/message_window.h"
#include "desktop/preferences.h"
#include "desktop/program_end.h"
#include "desktop/row_order.h"
#include "desktop/shown_text.h"
#include "desktop/table_access.h"
#include "desktop/table_columns.h"
#include "desktop/table_model.h"
#include "desktop/terms.h"
#include "desktop/theme.h"
#include "model/code_page.h"
#include "model/game_names.h"
#include "model/run_time_error.h"

namespace velorin {

namespace {

constexpr int usual_row = 28;  // pixels
constexpr int roomy_row = 34;  // from here on larger type may stand

/// Paints the ground of a marked row, which the style sheet leaves out, and tells a text that is cut off.
class CellPainter : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const QVariant ground = index.data(Qt::BackgroundRole);
    if (ground.isValid()) painter->fillRect(option.rect, ground.value<QColor>());
    if (!index.data(covered_role).toBool()) return QStyledItemDelegate::paint(painter, option, index);
    QStyleOptionViewItem bare = option;
    initStyleOption(&bare, index);
    bare.text.clear();
    const QWidget* view = option.widget;
    view->style()->drawControl(QStyle::CE_ItemViewItem, &bare, painter, view);
  }

  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    const auto* view = qobject_cast<const TableView*>(option->widget);
    if (view != nullptr && view->row_to_press() == index.row()) option->font.setUnderline(true);
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
    : QTableView(parent), model_(new TableModel(this)), order_(new RowSorter(this)), lowest_row_(usual_row) {
  give_table_access();
  setObjectName(name);
  order_->setSourceModel(model_);
  setModel(order_);
  setItemDelegate(new CellPainter(this));
  setSelectionBehavior(QAbstractItemView::SelectRows);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setAlternatingRowColors(true);
  setShowGrid(false);
  setIconSize({18, 18});
  setWordWrap(false);
  setTabKeyNavigation(false);
  setCornerButtonEnabled(false);
  verticalHeader()->setVisible(false);
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(lowest_row_);
  verticalHeader()->setMinimumWidth(24);
  heads_ = new_label({}, TextRole::muted, this);
  heads_->hide();
  columns_ = new TableColumns(*this);
  // At once, or a scroll bar that is not needed any more would be seen for a moment.
  connect(columns_, &TableColumns::fitted, this, [this] { updateGeometries(); });
  connect(this, &QTableView::doubleClicked, this, [this](const QModelIndex& index) {
    if (!opens_by_press_) open_row(index);
  });
  connect(this, &QTableView::clicked, this, [this](const QModelIndex& index) {
    if (opens_by_press_) open_row(index);
  });
}

void TableView::set_table(Table table) {
  setAccessibleName(table.name);
  const bool any_head = std::any_of(table.rows.begin(), table.rows.end(),
                                    [](const TableRow& r) { return r.marked || !r.head.isEmpty(); });
  model_->set_table(std::move(table));
  measured_.clear();
  verticalHeader()->setVisible(any_head);
  heads_->setText(model_->table().heads);
  explain(*heads_, heads_->text());
  heads_->setVisible(any_head && !heads_->text().isEmpty());
  verticalHeader()->setMinimumWidth(heads_->isHidden() ? 24 : heads_->sizeHint().width() + 16);
  fit_type();
  columns_->show(model_->table());
  if (model_->rowCount() > 0) setCurrentIndex(order_->index(0, first_shown_column()));
  clearSelection();
  updateGeometry();
}

void TableView::set_text(int id, int column, const QString& text) {
  const std::vector<TableRow>& rows = model_->table().rows;
  const auto row = std::find_if(rows.begin(), rows.end(), [id](const TableRow& each) { return each.id == id; });
  if (row == rows.end()) return;
  model_->set_text(static_cast<int>(row - rows.begin()), column, text);
  measured_.clear();
  fit_type();
  columns_->fit();
}

int TableView::first_shown_column() const {
  for (int column = 0; column < model_->columnCount(); ++column) {
    if (columns_->is_shown(column)) return column;
  }
  return 0;
}

void TableView::on_open(std::function<void(int id)> act, Opens by) {
  opened_ = std::move(act);
  opens_by_press_ = by == Opens::press;
  viewport()->setMouseTracking(opens_by_press_);
}

Table TableView::shown_table() const {
  Table shown = model_->table();
  for (int row = 0; row < order_->rowCount(); ++row) {
    shown.rows[static_cast<std::size_t>(row)] = model_->table().rows[static_cast<std::size_t>(table_row(row))];
  }
  return shown;
}

const Table& TableView::table() const { return model_->table(); }

int TableView::table_row(int view_row) const { return order_->mapToSource(order_->index(view_row, 0)).row(); }

int TableView::rows_height(int row) const {
  const int rows = std::max(1, model_->rowCount());
  return horizontalHeader()->sizeHint().height() + rows * row + 2 * frameWidth() + 2;
}

void TableView::show_all_rows() {
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setMinimumHeight(rows_height(lowest_row_));
}

void TableView::set_lowest_row(int height, int usual) {
  lowest_row_ = height;
  usual_row_ = usual;
  verticalHeader()->setMinimumSectionSize(height);
  verticalHeader()->setDefaultSectionSize(height);
}

int TableView::heads_width() const {
  if (verticalHeader()->isHidden()) return 0;
  return std::max(verticalHeader()->minimumWidth(), verticalHeader()->sizeHint().width());
}

void TableView::place_heads() {
  heads_->setGeometry(frameWidth() + 8, frameWidth(), heads_->sizeHint().width(), horizontalHeader()->height());
  heads_->raise();
}

void TableView::point_at(int row) {
  if (row == row_to_press_) return;
  row_to_press_ = row;
  viewport()->setCursor(row < 0 ? Qt::ArrowCursor : Qt::PointingHandCursor);
  viewport()->update();
}

void TableView::mouseMoveEvent(QMouseEvent* event) {
  QTableView::mouseMoveEvent(event);
  const QModelIndex at = indexAt(event->position().toPoint());
  point_at(opens_by_press_ && can_open(at) ? at.row() : -1);
}

void TableView::leaveEvent(QEvent* event) {
  QTableView::leaveEvent(event);
  point_at(-1);
}

void TableView::grow_rows(int highest, int rows) {
  highest_row_ = highest;
  growing_rows_ = std::max(1, rows);
  const int least = horizontalHeader()->sizeHint().height() + 2 * frameWidth() + 2;
  setMaximumHeight(std::max(least + growing_rows_ * highest, minimumHeight()));
}

void TableView::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  place_heads();
  if (highest_row_ > 0) {
    const int height = std::clamp(viewport()->height() / growing_rows_, lowest_row_, highest_row_);
    if (height != verticalHeader()->defaultSectionSize()) verticalHeader()->setDefaultSectionSize(height);
  }
  fit_type();
  columns_->fit();
}

void TableView::fit_type() {
  if (!isVisible() || model_->rowCount() == 0) return;
  TypeStep step = TypeStep::body;
  if (width_in(TypeStep::body) > width()) {
    step = TypeStep::small;
  } else if (grows_type_ && verticalHeader()->defaultSectionSize() >= roomy_row) {
    if (width_in(TypeStep::heading) <= width()) step = TypeStep::heading;
  }
  if (step == model_->written_in()) return;
  write_in(step);
  viewport()->update();
}

void TableView::write_in(TypeStep step) {
  model_->write_in(step);
  horizontalHeader()->setFont(type_font(*this, step == TypeStep::small ? TypeStep::small : TypeStep::body));
}

int TableView::needed_width() const { return const_cast<TableView*>(this)->width_in(TypeStep::body); }

int TableView::width_in(TypeStep step) {
  QList<bool> shown;
  for (int column = 0; column < model_->columnCount(); ++column) shown << columns_->is_shown(column);
  if (shown != measured_for_) measured_.clear();
  measured_for_ = shown;
  if (const auto known = measured_.find(step); known != measured_.end()) return known->second;
  const TypeStep before = model_->written_in();
  write_in(step);
  int width = 2 * frameWidth() + heads_width();
  for (int column = 0; column < model_->columnCount(); ++column) {
    if (columns_->is_shown(column)) width += columns_->natural_width(column);
  }
  write_in(before);
  measured_[step] = width;
  return width;
}

QSize TableView::sizeHint() const {
  constexpr int air = 8;  // pixels, beside each column
  return {needed_width() + air * model_->columnCount() + 3 * air, rows_height(std::max(lowest_row_, usual_row_))};
}

void TableView::copy() const {
  std::vector<int> rows;
  for (const QModelIndex& index : selectionModel()->selectedRows(first_shown_column())) rows.push_back(index.row());
  std::sort(rows.begin(), rows.end());
  if (rows.empty() && kept_) return QGuiApplication::clipboard()->setText(table_text(kept_()));
  QGuiApplication::clipboard()->setText(table_text(shown_table(), rows));
}

void TableView::save_csv() { save_table(kept_ ? kept_() : shown_table(), window()); }

void TableView::open_row(const QModelIndex& index) {
  if (!index.isValid()) return;
  const TableRow& row = model_->table().rows[static_cast<std::size_t>(table_row(index.row()))];
  if (!row.opens) return;
  const int id = row.id;
  opened_column_ = index.column();
  guarded([&] {
    emit row_activated(id);
    if (opened_) opened_(id);
  });
}

bool TableView::sort_by_key(const QKeyEvent& event) {
  if (event.modifiers() != Qt::AltModifier) return false;
  if (event.key() != Qt::Key_Up && event.key() != Qt::Key_Down) return false;
  columns_->sort(currentIndex().column(), event.key() == Qt::Key_Up ? Qt::AscendingOrder : Qt::DescendingOrder);
  return true;
}

void TableView::keyPressEvent(QKeyEvent* event) {
  const bool is_return = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (event->matches(QKeySequence::Copy)) {
    copy();
  } else if (event->key() == Qt::Key_E && event->modifiers() == Qt::ControlModifier) {
    guarded([this] { save_csv(); });
  } else if (event->key() == Qt::Key_H && event->modifiers() == Qt::ControlModifier) {
    columns_->open_menu(horizontalHeader()->mapToGlobal(horizontalHeader()->rect().bottomLeft()));
  } else if (sort_by_key(*event)) {
    return;
  } else if (is_return && can_open(currentIndex())) {
    open_row(currentIndex());
  } else if (is_return) {
    event->ignore();  // for the window's default button
  } else {
    QTableView::keyPressEvent(event);
  }
}

bool TableView::can_open(const QModelIndex& index) const {
  return opened_ && index.isValid() && model_->table().rows[static_cast<std::size_t>(table_row(index.row()))].opens;
}

void TableView::contextMenuEvent(QContextMenuEvent* event) {
  QMenu menu(this);
  menu.setObjectName(QStringLiteral("table_menu"));
  const int column = currentIndex().column();
  if (can_open(currentIndex())) {
    menu.addAction(QStringLiteral("&Open\tReturn"), this, [this] { open_row(currentIndex()); });
  }
  menu.addAction(QStringLiteral("&Copy\tCtrl+C"), this, &TableView::copy);
  menu.addAction(QStringLiteral("Save as CS&V ...\tCtrl+E"), this, [this] { guarded([this] { save_csv(); }); });
  menu.addSeparator();
  if (model_->table().order != RowOrder::fixed && column >= 0) {
    menu.addAction(QStringLiteral("Sort &Upwards\tAlt+Up"), this,
                   [this, column] { columns_->sort(column, Qt::AscendingOrder); });
    menu.addAction(QStringLiteral("Sort &Downwards\tAlt+Down"), this,
                   [this, column] { columns_->sort(column, Qt::DescendingOrder); });
    menu.addAction(QStringLiteral("&As Told"), this, [this] { columns_->sort_as_told(); });
  }
  const QPoint at = event->globalPos();
  menu.addAction(QStringLiteral("Co&lumns ...\tCtrl+H"), this, [this, at] { columns_->open_menu(at); });
  menu.exec(at);
}

void TableView::showEvent(QShowEvent* event) {
  QTableView::showEvent(event);
  fit_type();
  columns_->fit();
}

void TableView::changeEvent(QEvent* event) {
  QTableView::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
    fit_enlargement();
    measured_.clear();
    columns_->fit();
  }
}

void TableView::fit_enlargement() {
  const double factor = enlargement(*this);
  if (factor == drawn_) return;
  const auto grown = [&](int pixels) { return static_cast<int>(std::lround(pixels * factor / drawn_)); };
  setIconSize(QSize(18, 18) * factor);
  set_lowest_row(grown(lowest_row_), grown(usual_row_));
  verticalHeader()->setMinimumWidth(grown(verticalHeader()->minimumWidth()));
  write_in(model_->written_in());
  const int most = maximumHeight();
  setMinimumHeight(grown(minimumHeight()));
  if (most < QWIDGETSIZE_MAX) setMaximumHeight(grown(most));
  if (highest_row_ > 0) grow_rows(grown(highest_row_), growing_rows_);
  drawn_ = factor;
  measured_.clear();
  fit_type();
  updateGeometry();
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

void write_csv(const QString& path, const Table& table) { write_whole(path, table_csv(table).toUtf8()); }

void write_whole(const QString& path, const QByteArray& contents) {
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
  if (const int cause = error_of_writing(file.handle(), contents)) {
    refuse(std::generic_category().message(cause));
  }
  if (!file.commit()) refuse(file.errorString().toStdString());
}

}  // namespace velorin
