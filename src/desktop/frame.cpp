// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/frame.h"

#include <QAccessible>
#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "desktop/controls.h"
#include "desktop/elided_label.h"
#include "desktop/enlarged.h"
#include "desktop/form.h"
#include "desktop/modality.h"
#include "desktop/preferences.h"
#include "desktop/program_end.h"
#include "desktop/theme.h"

namespace velorin {

namespace {

constexpr QSize usual_size(1280, 800);
constexpr int around_sheet = 24;  // pixels kept free on each side of a sheet

/// Dims what is below a sheet.
class Shade : public QWidget {
 public:
  using QWidget::QWidget;

 protected:
  void paintEvent(QPaintEvent*) override {
    QColor dim = theme().high_contrast ? QColor(Qt::black) : theme().dark ? QColor(0, 0, 0) : QColor(20, 30, 24);
    dim.setAlphaF(theme().high_contrast ? 0.7F : 0.45F);
    QPainter(this).fillRect(rect(), dim);
  }
  void mousePressEvent(QMouseEvent* event) override { event->accept(); }
};

QString title_of(const Form& form) {
  const QString title = form.windowTitle().trimmed();
  return spoken_name(title.isEmpty() ? form.accessibleName() : title);
}

}  // namespace

/// Holds a form in the frame; around a sheet it draws the edge of a card.
class Frame::Slot : public QWidget {
 public:
  Slot(QWidget* parent, bool sheet) : QWidget(parent), sheet_(sheet) {
    setObjectName(sheet ? QStringLiteral("sheet") : QStringLiteral("page"));
    hide();
  }

  void hold(Form& form) { form.setGeometry(inside()); }
  int edge() const { return sheet_ ? 1 : 0; }

 protected:
  void resizeEvent(QResizeEvent*) override {
    for (QObject* child : children()) {
      if (auto* form = qobject_cast<Form*>(child); form != nullptr && !form->isWindow()) form->setGeometry(inside());
    }
  }
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    if (sheet_) painter.fillRect(rect(), theme().muted);
    // Where a form paints nothing, as beside the handle of a scroll bar, the ground shows.
    painter.fillRect(inside(), theme().ground);
  }

 private:
  QRect inside() const { return rect().adjusted(edge(), edge(), -edge(), -edge()); }

  bool sheet_;
};

Frame::Frame() : area_(new QWidget(this)), shade_(new Shade(area_)), resting_(new QWidget(this)) {
  keep_covered_windows_dead();
  setObjectName(QStringLiteral("frame"));
  setWindowTitle(QStringLiteral("Velorin"));
  setAccessibleName(QStringLiteral("Velorin"));
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(0);
  add_bar();
  rows->addWidget(bar_);
  area_->setObjectName(QStringLiteral("area"));
  area_->installEventFilter(this);
  rows->addWidget(area_, 1);
  shade_->setObjectName(QStringLiteral("shade"));
  shade_->hide();
  add_away();
  resting_->setObjectName(QStringLiteral("resting"));
  resting_->hide();
}

Frame::~Frame() {
  area_->removeEventFilter(this);
  // Forms that live longer find no frame any more.
  layers_.clear();
}

/// What stands over the page below one that has a window of its own.
void Frame::add_away() {
  away_ = new QFrame(shade_);
  away_->setObjectName(QStringLiteral("away"));
  away_->setProperty("card", true);
  auto* rows = new QVBoxLayout(away_);
  rows->setContentsMargins(32, 24, 32, 24);
  rows->setSpacing(8);
  away_title_ = new_named_label(QStringLiteral("away_title"), {}, TextRole::heading, away_);
  rows->addWidget(away_title_, 0, Qt::AlignHCenter);
  rows->addWidget(
      new_label(QStringLiteral("It stands in a window of its own. The button \"Put back\" there brings it back."),
                TextRole::muted, away_),
      0, Qt::AlignHCenter);
  away_->hide();
}

void Frame::show_away(const Form* torn) {
  away_->setVisible(torn != nullptr);
  if (torn == nullptr) return;
  away_title_->setText(title_of(*torn));
  away_->setMaximumWidth(std::max(0, area_->width() - 2 * around_sheet));
  away_->adjustSize();
  away_->move(area_->rect().center() - away_->rect().center());
}

void Frame::add_bar() {
  bar_ = new QWidget(this);
  bar_->setObjectName(QStringLiteral("bar"));
  bar_->setAttribute(Qt::WA_StyledBackground);
  auto* row = new QHBoxLayout(bar_);
  row->setContentsMargins(12, 6, 12, 6);
  row->setSpacing(12);
  back_ = new QPushButton(bar_);
  back_->setObjectName(QStringLiteral("back"));
  back_->setAutoDefault(false);
  name_act(*back_, {.caption = QStringLiteral("\u2039 Back"),
                    .key = QKeySequence(Qt::ALT | Qt::Key_Left),
                    .hint = QStringLiteral("Leaves this page"),
                    .spoken = QStringLiteral("Back")});
  connect(back_, &QPushButton::clicked, this, [this] {
    if (Form* form = top()) form->go_back();
  });
  forward_ = new QPushButton(bar_);
  forward_->setObjectName(QStringLiteral("forward"));
  forward_->setAutoDefault(false);
  name_act(*forward_, {.caption = QStringLiteral("Forward \u203a"),
                       .key = QKeySequence(Qt::ALT | Qt::Key_Right),
                       .hint = QStringLiteral("To the page from which you went back"),
                       .spoken = QStringLiteral("Forward")});
  connect(forward_, &QPushButton::clicked, this, [this] {
    const Form* form = top();
    if (form != nullptr && form->forward()) guarded(form->forward());
  });
  trail_ = new ElidedLabel(QStringLiteral("trail"), Qt::ElideLeft, bar_);
  trail_->setProperty("role", QStringLiteral("muted"));
  passing_ = new ElidedLabel(QStringLiteral("passing"), Qt::ElideRight, bar_);
  passing_->setFont(type_font(TypeStep::strong));
  passing_->hide();
  passed_ = new QTimer(this);
  passed_->setSingleShot(true);
  connect(passed_, &QTimer::timeout, this, [this] {
    passing_->hide();
    trail_->show();
  });
  score_ = new_named_label(QStringLiteral("frame_score"), {}, TextRole::strong, bar_);
  tear_off_ = new QPushButton(bar_);
  tear_off_->setObjectName(QStringLiteral("tear_off"));
  tear_off_->setAutoDefault(false);
  name_act(*tear_off_, {.caption = QStringLiteral("Own window"),
                        .key = QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_W),
                        .hint = QStringLiteral("Shows this page in a window of its own")});
  connect(tear_off_, &QPushButton::clicked, this, [this] { tear_off(); });
  save_ = new QPushButton(bar_);
  save_->setObjectName(QStringLiteral("save_game"));
  save_->setAutoDefault(false);
  name_act(*save_, {.caption = QStringLiteral("Save As"),
                    .key = QKeySequence(Qt::CTRL | Qt::Key_S),
                    .hint = QStringLiteral("Keeps a copy of the game as it stands under a name")});
  connect(save_, &QPushButton::clicked, this, [this] {
    if (save_game_) guarded(save_game_);
  });
  save_->hide();
  row->addWidget(back_);
  row->addWidget(forward_);
  row->addWidget(trail_, 1);
  row->addWidget(passing_, 1);
  row->addWidget(score_);
  row->addWidget(save_);
  row->addWidget(tear_off_);
  bar_->hide();
}

/// On a large screen the bar is as much larger as the console.
double Frame::enlargement_of_pages() const { return fitting_enlargement(area_->size()); }

void Frame::enlarge_bar() {
  const double factor = enlargement_of_pages();
  if (factor == enlargement(*bar_)) return;
  enlarge(*bar_, factor);
  // Drawn larger it wants more room, and the window can become small again all the same.
  layout()->setSizeConstraint(factor > 1 ? QLayout::SetNoConstraint : QLayout::SetDefaultConstraint);
  bar_->layout()->invalidate();
  bar_->updateGeometry();
  show_bar();
}

void Frame::show_score(const QString& score) {
  score_->setText(score);
  show_bar();
}

void Frame::offer_save(std::function<void()> save) {
  save_game_ = std::move(save);
  save_->setVisible(static_cast<bool>(save_game_));
}

void Frame::on_trail(std::function<QString()> occasion) { occasion_ = std::move(occasion); }

void Frame::on_jump(std::function<void()> jump) { jump_ = std::move(jump); }

void Frame::jump() {
  const Form* form = top();
  if (jump_ && form != nullptr && form->place() != Form::Place::sheet && form->isEnabled()) guarded(jump_);
}

void Frame::show_passing(const QString& text) {
  constexpr int long_enough_to_read = 6000;  // milliseconds
  if (text.isEmpty()) {
    passed_->stop();
    passing_->hide();
    trail_->show();
    return;
  }
  passing_->setText(text);
  passing_->setToolTip(text);
  passing_->show();
  trail_->hide();
  passed_->start(long_enough_to_read);
  if (!QAccessible::isActive()) return;
  passing_->setAccessibleName(text);
  QAccessibleEvent event(passing_, QAccessible::Alert);
  QAccessible::updateAccessibility(&event);
}

std::vector<Frame::Layer>::const_iterator Frame::top_layer() const {
  // What tells of progress waits for nobody.
  const auto found =
      std::find_if(layers_.rbegin(), layers_.rend(), [](const Layer& layer) { return layer.form->isModal(); });
  if (found != layers_.rend()) return std::prev(found.base());
  return layers_.empty() ? layers_.end() : layers_.begin();
}

Form* Frame::top() const {
  const auto layer = top_layer();
  return layer == layers_.end() ? nullptr : layer->form;
}

std::vector<Frame::Layer>::iterator Frame::layer_of(const Form& form) {
  return std::find_if(layers_.begin(), layers_.end(), [&](const Layer& layer) { return layer.form == &form; });
}

bool Frame::is_torn_off(const Form& form) const {
  return std::any_of(layers_.begin(), layers_.end(),
                     [&](const Layer& layer) { return layer.form == &form && layer.torn; });
}

bool Frame::stands_beside(const Layer& layer) const {
  return layer.form->place() == Form::Place::beside && &layer != &layers_.front() &&
         area_->width() >= least_width_for_two && area_->height() >= least_height_for_two;
}

std::size_t Frame::base() const {
  std::size_t found = 0;
  for (std::size_t i = 0; i < layers_.size(); ++i) {
    const Layer& layer = layers_[i];
    if (!layer.torn && layer.form->place() != Form::Place::sheet && !stands_beside(layer)) found = i;
  }
  return found;
}

void Frame::enter(Form& form) {
  if (form.place() != Form::Place::sheet) show_passing({});
  const QPointer<QWidget> wanted = form.focusWidget();
  auto* slot = new Slot(area_, form.place() == Form::Place::sheet);
  form.setParent(slot, Qt::Widget);
  if (const auto before = std::as_const(*this).top_layer(); before != layers_.cend()) {
    layers_[static_cast<std::size_t>(before - layers_.cbegin())].focus = before->form->focusWidget();
  }
  layers_.push_back({&form, slot, false, wanted});
  connect(&form, &QWidget::windowTitleChanged, this, [this] { show_bar(); });
  arrange();
}

void Frame::entered() { give_focus(); }

void Frame::remove(std::vector<Layer>::iterator layer) {
  disconnect(layer->form, nullptr, this, nullptr);
  uncover(*layer->form);
  Slot* slot = layer->slot;
  layers_.erase(layer);
  slot->hide();
  slot->deleteLater();
}

void Frame::leave(Form& form) {
  const auto layer = layer_of(form);
  if (layer == layers_.end()) return;
  form.rest(resting_);
  remove(layer);
  arrange();
  give_focus();
}

void Frame::forget(Form& form) {
  const auto layer = layer_of(form);
  if (layer == layers_.end()) return;
  remove(layer);
  arrange();
  give_focus();
}

void Frame::tear_off() {
  Form* form = top();
  if (form == nullptr || form->place() == Form::Place::sheet) return;
  const auto layer = layer_of(*form);
  if (layer->torn || layer == layers_.begin()) return;
  layer->torn = true;
  layer->focus = form->focusWidget();
  form->stand_alone([this, form] { put_back(*form); });
  arrange();
  if (layer->focus) layer->focus->setFocus();
}

void Frame::put_back(Form& form) {
  const auto layer = layer_of(form);
  if (layer == layers_.end() || !layer->torn) return;
  layer->torn = false;
  layer->focus = form.focusWidget();
  form.come_back(layer->slot);
  arrange();
  focused_ = nullptr;
  give_focus();
  activateWindow();
}

void Frame::arrange() {
  if (layers_.empty()) return show_bar();
  const std::size_t lowest = base();
  const Form* top_form = top();
  std::size_t beside = layers_.size();
  for (std::size_t i = lowest + 1; i < layers_.size(); ++i) {
    if (!layers_[i].torn && stands_beside(layers_[i])) beside = i;
  }
  show_bar();
  place(lowest);
  bool dimmed = false;
  for (std::size_t i = 0; i < layers_.size(); ++i) {
    const Layer& layer = layers_[i];
    const bool hidden = layer.torn || i < lowest || (i > lowest && stands_beside(layer) && i != beside);
    if (layer.form != top_form && layer.form->isModal()) cover(*layer.form);
    if (i == 0 && layer.form != top_form) cover(*layer.form);
    if (!hidden && i > lowest) {
      if (layer.form == top_form) {
        shade_->setGeometry(area_->rect());
        shade_->raise();
        dimmed = true;
      }
      layer.slot->raise();
    }
    layer.slot->setVisible(!hidden);
  }
  const auto waiting = std::as_const(*this).top_layer();
  const bool away = waiting != layers_.cend() && waiting->torn;
  if (away) {
    shade_->setGeometry(area_->rect());
    shade_->raise();
  }
  show_away(away ? waiting->form : nullptr);
  shade_->setVisible(dimmed || away);
  if (top_form != nullptr) uncover(const_cast<Form&>(*top_form));
  for (const Layer& layer : layers_) layer.form->note_covered(is_covered(*layer.form));
}

void Frame::place(std::size_t lowest) {
  const QRect room = area_->rect();
  for (std::size_t i = lowest; i < layers_.size(); ++i) {
    if (!layers_[i].torn) layers_[i].form->fit_enlargement();
  }
  QRect left = room;
  bool beside = false;
  for (std::size_t i = lowest + 1; i < layers_.size(); ++i) {
    Layer& layer = layers_[i];
    if (layer.torn || !stands_beside(layer)) continue;
    beside = true;
    const int most = room.width() * 2 / 3;
    const int needed = std::min(layer.form->least_width_in(QSize(most, room.height())), most);
    const int least = layers_[lowest].form->width_beside(room.width() - needed);
    const bool fits = least <= room.width() - needed;
    const int wanted = std::clamp(layer.form->wanted_size().width(), std::max(needed, room.width() / 2), most);
    const int wide = fits ? std::min(wanted, room.width() - least) : wanted;
    const QRect right(room.right() + 1 - wide, 0, wide, room.height());
    layer.slot->setGeometry(right);
    layer.slot->hold(*layer.form);
    if (fits) left.setRight(right.left() - 1);
  }
  for (std::size_t i = 0; i < layers_.size(); ++i) layers_[i].form->note_beside(beside && i == lowest);
  for (std::size_t i = 0; i < layers_.size(); ++i) {
    Layer& layer = layers_[i];
    if (layer.torn || stands_beside(layer)) continue;
    if (layer.form->place() == Form::Place::sheet) {
      place_sheet(layer, i == 0 ? nullptr : layers_[i - 1].form);
    } else {
      layer.slot->setGeometry(i == lowest ? left : room);
      layer.slot->hold(*layer.form);
    }
  }
}

void Frame::place_sheet(Layer& layer, const Form* below) {
  const QRect room = area_->rect().adjusted(around_sheet, around_sheet, -around_sheet, -around_sheet);
  const int edges = 2 * layer.slot->edge();
  const QSize size = (layer.form->size_within(room.size() - QSize(edges, edges)) + QSize(edges, edges));
  QPoint at(room.center().x() - size.width() / 2, room.top() + (room.height() - size.height()) / 3);
  const QString about = layer.form->about();
  const QWidget* subject = below == nullptr || about.isEmpty() ? nullptr : below->findChild<QWidget*>(about);
  if (subject != nullptr && subject->isVisible() && subject->window() == this) {
    // Beside what it is about where there is room, else below or above it.
    const QRect what(subject->mapTo(this, QPoint()) - area_->pos(), subject->size());
    if (room.right() - what.right() > size.width() + 8) {
      at = {what.right() + 8, what.top()};
    } else if (what.left() - room.left() > size.width() + 8) {
      at = {what.left() - 8 - size.width(), what.top()};
    } else {
      at = {what.left(), what.bottom() + 8};
    }
  }
  at.setX(std::clamp(at.x(), room.left(), std::max(room.left(), room.right() + 1 - size.width())));
  at.setY(std::clamp(at.y(), room.top(), std::max(room.top(), room.bottom() + 1 - size.height())));
  layer.slot->setGeometry(QRect(at, size));
  layer.slot->hold(*layer.form);
}

void Frame::show_bar() {
  const auto waiting = top_layer();
  // A sheet over the first page leaves it where it is.
  bar_->setVisible(std::any_of(layers_.begin(), layers_.end(), [this](const Layer& layer) {
    return &layer != &layers_.front() && layer.form->place() != Form::Place::sheet;
  }));
  if (waiting == layers_.end()) return;
  const Form& form = *waiting->form;
  QStringList trail;
  for (const Layer& layer : layers_) {
    if (layer.form->place() == Form::Place::sheet) continue;
    trail << (trail.isEmpty() ? QStringLiteral("Menu") : title_of(*layer.form));
  }
  const QString occasion = occasion_ && trail.size() > 1 ? occasion_() : QString();
  if (!occasion.isEmpty()) trail.insert(1, occasion);
  const QString words = trail.join(QStringLiteral("  \u203A  "));
  trail_->setText(words);
  trail_->setToolTip(words);
  const bool page = form.place() != Form::Place::sheet && waiting != layers_.begin();
  score_->setVisible(!score_->text().isEmpty() && !form.shows_score());
  back_->setEnabled(page && !waiting->torn && form.has_way_back());
  back_->setText(QStringLiteral("\u2039 ") + form.way_back());
  back_->setAccessibleName(form.way_back());
  forward_->setVisible(static_cast<bool>(form.forward()));
  forward_->setEnabled(page && !waiting->torn);
  tear_off_->setEnabled(page && !waiting->torn);
  save_->setEnabled(page);
  const QString title = title_of(form);
  setWindowTitle(title == QStringLiteral("Velorin") ? title : title + QStringLiteral(" - Velorin"));
}

void Frame::give_focus() {
  const auto waiting = std::as_const(*this).top_layer();
  if (waiting == layers_.cend() || waiting->torn || focused_ == waiting->form) return;
  focused_ = waiting->form;
  QWidget* wanted =
      waiting->focus && waiting->focus->isEnabled() ? waiting->focus.data() : waiting->form->focusWidget();
  if (wanted == nullptr || !waiting->form->isAncestorOf(wanted)) {
    wanted = waiting->form;
    for (QWidget* at = wanted->nextInFocusChain(); at != wanted; at = at->nextInFocusChain()) {
      if (waiting->form->isAncestorOf(at) && at->isEnabled() && at->isVisible() && (at->focusPolicy() & Qt::TabFocus)) {
        wanted = at;
        break;
      }
    }
  }
  wanted->setFocus(Qt::ActiveWindowFocusReason);
  emit top_changed(waiting->form);
}

bool Frame::eventFilter(QObject* watched, QEvent* event) {
  if (watched == area_ && event->type() == QEvent::Resize) {
    enlarge_bar();
    arrange();
  }
  return QWidget::eventFilter(watched, event);
}

void Frame::showEvent(QShowEvent* event) {
  if (!placed_ && !event->spontaneous()) {
    placed_ = true;
    const QByteArray geometry = preferences::geometry(objectName());
    const QScreen* at = screen();
    const QSize room = at == nullptr ? usual_size : at->availableSize() - QSize(8, 36);
    if (geometry.isEmpty() || !restoreGeometry(geometry)) resize(usual_size.boundedTo(room));
    resize(size().boundedTo(room));
  }
  QWidget::showEvent(event);
}

void Frame::hideEvent(QHideEvent* event) {
  if (!event->spontaneous()) preferences::set_geometry(objectName(), saveGeometry());
  QWidget::hideEvent(event);
}

void Frame::closeEvent(QCloseEvent* event) {
  Form* form = top();
  if (form == nullptr || program_is_ending()) return QWidget::closeEvent(event);
  event->ignore();
  form->close();
}

void Frame::keyPressEvent(QKeyEvent* event) {
  // A key in the bar means the page below it, unless it presses one of its buttons.
  const bool enters = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (auto* button = qobject_cast<QPushButton*>(focusWidget());
      enters && button != nullptr && bar_->isAncestorOf(button)) {
    return button->click();
  }
  if (is_jump(*event)) return jump();
  if (Form* form = top(); event->key() == Qt::Key_Escape && form != nullptr) return form->reject();
  QWidget::keyPressEvent(event);
}

bool is_jump(const QKeyEvent& key) { return key.key() == Qt::Key_K && key.modifiers() == Qt::ControlModifier; }

Frame* frame_of(const QWidget* widget) { return widget == nullptr ? nullptr : qobject_cast<Frame*>(widget->window()); }

QWidget* waiting_window() {
  if (QWidget* modal = QApplication::activeModalWidget()) return modal;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    auto* frame = qobject_cast<Frame*>(window);
    if (frame != nullptr && frame->isVisible() && frame->top() != nullptr) return frame->top();
  }
  return nullptr;
}

}  // namespace velorin
