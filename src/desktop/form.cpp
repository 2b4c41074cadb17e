// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/form.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEventLoop>
#include <QHBoxLayout>
#include <QHideEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QShortcut>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/body_area.h"
#include "desktop/compact_look.h"
#include "desktop/controls.h"
#include "desktop/enlarged.h"
#include "desktop/frame.h"
#include "desktop/ground_picture.h"
#include "desktop/help_window.h"
#include "desktop/modality.h"
#include "desktop/preferences.h"
#include "desktop/program_end.h"
#include "desktop/shown_text.h"
#include "desktop/step_bar.h"

namespace velorin {

void name_act(QAbstractButton& button, const Act& act) {
  const bool marked = !act.mnemonic.isNull() && act.caption.contains(act.mnemonic, Qt::CaseInsensitive);
  button.setText(button_text(act.caption, act.mnemonic));
  QStringList keys;
  if (marked) keys << QStringLiteral("Alt+") + act.mnemonic.toUpper();
  if (!act.key.isEmpty()) {
    keys << act.key.toString(QKeySequence::NativeText);
    // A button's own shortcut would take the place of its mnemonic.
    auto* shortcut = new QShortcut(act.key, &button);
    QObject::connect(shortcut, &QShortcut::activated, &button, [&button] {
      if (button.isVisible()) button.click();
    });
  }
  const QString name = act.spoken.isEmpty() ? act.caption.trimmed() : act.spoken;
  button.setAccessibleName(name);
  const QString hint = act.hint.isEmpty() ? act.caption.trimmed() : act.hint;
  button.setToolTip(keys.isEmpty() ? hint : QStringLiteral("%1 (%2)").arg(hint, keys.join(QStringLiteral(", "))));
}

QWidget* front_window() {
  if (QWidget* waiting = waiting_window()) return waiting;
  if (QWidget* active = QApplication::activeWindow()) return active;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && window->isWindow()) return window;
  }
  return nullptr;
}

namespace {

constexpr Qt::WindowFlags window_flags = Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                                         Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint;

}  // namespace

Form::Form(const QString& name, Dismissal dismissal, QWidget* parent)
    : QDialog(parent, window_flags), frame_(frame_of(parent)), dismissal_(dismissal) {
  keep_covered_windows_dead();
  setObjectName(name);
  setModal(true);
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(0);

  add_return_bar();

  head_ = new QWidget(this);
  head_->setObjectName(QStringLiteral("head"));
  head_->setAttribute(Qt::WA_StyledBackground);
  auto* head_row = new QHBoxLayout(head_);
  head_row->setContentsMargins(0, 0, 0, 0);
  head_rows_ = new QVBoxLayout;
  head_rows_->setContentsMargins(24, 16, 24, 16);
  head_rows_->setSpacing(4);
  head_row->addLayout(head_rows_, 1);
  heading_ = new_label({}, TextRole::title, head_);
  heading_->setObjectName(QStringLiteral("heading"));
  subheading_ = new_label({}, TextRole::body, head_);
  subheading_->setObjectName(QStringLiteral("subheading"));
  head_rows_->addWidget(heading_);
  head_rows_->addWidget(subheading_);
  heading_->hide();
  subheading_->hide();
  head_->hide();
  rows->addWidget(head_);

  middle_ = new QWidget;
  middle_->setObjectName(QStringLiteral("middle"));
  body_ = new QVBoxLayout(middle_);
  body_->setContentsMargins(24, 16, 24, 16);
  body_->setSpacing(8);
  area_ = new BodyArea(middle_, this);
  rows->addWidget(area_, 1);

  foot_ = new QWidget(this);
  foot_->setObjectName(QStringLiteral("foot"));
  foot_->setAttribute(Qt::WA_StyledBackground);
  auto* foot_row = new QHBoxLayout(foot_);
  foot_row->setContentsMargins(24, 12, 24, 12);
  asides_ = new QHBoxLayout;
  buttons_ = new QHBoxLayout;
  foot_row->addLayout(asides_);
  foot_row->addStretch(1);
  foot_row->addLayout(buttons_);
  foot_->hide();
  rows->addWidget(foot_);
}

Form::~Form() {
  if (in_frame_ && frame_) frame_->forget(*this);
  if (loop_ != nullptr) loop_->quit();
}

/// The row at the head of a form that stands in a window of its own.
void Form::add_return_bar() {
  return_bar_ = new QWidget(this);
  return_bar_->setObjectName(QStringLiteral("return_bar"));
  auto* row = new QHBoxLayout(return_bar_);
  row->setContentsMargins(12, 6, 12, 6);
  put_back_button_ = new QPushButton(return_bar_);
  QPushButton* button = put_back_button_;
  button->setObjectName(QStringLiteral("put_back"));
  button->setAutoDefault(false);
  name_act(*button, {.caption = QStringLiteral("Put back"),
                     .key = QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_W),
                     .hint = QStringLiteral("Shows this page in the main window again")});
  connect(button, &QPushButton::clicked, this, [this] {
    // What is called may be replaced by it.
    if (const auto back = put_back_) back();
  });
  row->addStretch(1);
  row->addWidget(button);
  return_bar_->hide();
  layout()->addWidget(return_bar_);
}

void Form::offer_return(bool offered) {
  QBoxLayout* row = nullptr;
  for (const QWidget* head : findChildren<QWidget*>(QStringLiteral("head"))) {
    if (!head->isHidden()) row = qobject_cast<QBoxLayout*>(head->layout());
  }
  const bool in_head = offered && row != nullptr;
  head_->layout()->setContentsMargins(0, 0, in_head ? 16 : 0, 0);
  if (!in_head) row = static_cast<QBoxLayout*>(return_bar_->layout());
  row->addWidget(put_back_button_, 0, Qt::AlignVCenter);
  put_back_button_->setVisible(offered);
  return_bar_->setVisible(offered && !in_head);
}

Frame* Form::main_window() const { return frame_; }

void Form::stand_as(Place place, const QString& about) {
  place_ = place;
  about_ = about;
}

bool Form::is_sheet() const { return in_frame_ && !isWindow() && place_ == Place::sheet; }

void Form::setVisible(bool visible) {
  if (moving_ || !frame_) return QDialog::setVisible(visible);
  const bool enters = visible && !in_frame_;
  if (enters) {
    in_frame_ = true;
    frame_->enter(*this);
  }
  QDialog::setVisible(visible);
  if (enters) frame_->entered();
  if (visible || !in_frame_) return;
  in_frame_ = false;
  frame_->leave(*this);
  if (loop_ != nullptr) loop_->quit();
}

int Form::exec() {
  if (!frame_) return QDialog::exec();
  setResult(Rejected);
  show();
  if (!in_frame_) return result();
  const QPointer<Form> alive(this);
  QEventLoop loop;
  loop_ = &loop;
  loop.exec(QEventLoop::DialogExec);
  if (!alive) return Rejected;
  loop_ = nullptr;
  return result();
}

QSize Form::wanted_size() const { return sizeHint().expandedTo(preferred_ * drawn_larger_); }

double Form::wanted_enlargement() const {
  return frame_ && !isWindow() ? frame_->enlargement_of_pages() : fitting_enlargement(size());
}

void Form::fit_enlargement() {
  const double factor = wanted_enlargement();
  if (enlarges_itself() || (factor == 1 && drawn_larger_ == 1)) return;
  drawn_larger_ = factor;
  if (!enlarge_page(*this, factor)) return;
  // What it needs now, before anything is placed by what it needed.
  for (QLayout* each : findChildren<QLayout*>()) each->invalidate();
}

int Form::width_beside(int most) const { return std::max(most, minimumSizeHint().width()); }

int Form::least_width_in(QSize room) {
  // The body asks for no more than it was told there is.
  fit_into(room, room.width());
  return minimumSizeHint().width();
}

QSize Form::size_within(QSize most) {
  most_ = most;
  fit_into(most, width());
  const int wide = std::min(wanted_size().width(), most.width());
  // In its new width the foot may need other rows than in the one that it has.
  fit_into(most, wide);
  const int wider = std::clamp(wanted_size().width(), wide, most.width());
  return {wider, height_at(wider)};
}

/// As high as all that a sheet shows wants to be at this width, and no higher: it ends with its last row.
int Form::height_at(int wide) const {
  int high = area_->wanted_height(wide);
  for (int i = 0; i < layout()->count(); ++i) {
    const QLayoutItem* item = layout()->itemAt(i);
    if (item->widget() == area_ || item->isEmpty()) continue;
    high += item->hasHeightForWidth() ? item->heightForWidth(wide) : item->sizeHint().height();
  }
  return std::min(std::max(high, static_cast<int>(preferred_.height() * drawn_larger_)), most_.height());
}

void Form::stand_alone(std::function<void()> back) {
  moving_ = true;
  put_back_ = std::move(back);
  offer_return(true);
  placed_ = false;
  setParent(frame_, window_flags);
  QDialog::setVisible(true);
  moving_ = false;
}

void Form::come_back(QWidget* slot) {
  moving_ = true;
  preferences::set_geometry(objectName(), saveGeometry());
  offer_return(false);
  setParent(slot, Qt::Widget);
  QDialog::setVisible(true);
  moving_ = false;
}

void Form::rest(QWidget* hidden) {
  moving_ = true;
  offer_return(false);
  setParent(hidden, Qt::Widget);
  moving_ = false;
}

void Form::fit_into(QSize room, int wide) {
  widest_ = room.width();
  show_compact(room);
  lay_out_foot(wide);
  int others = 0;
  for (int i = 0; i < layout()->count(); ++i) {
    const QLayoutItem* item = layout()->itemAt(i);
    if (item->widget() != area_ && !item->isEmpty()) others += item->minimumSize().height();
  }
  area_->set_room({room.width(), std::max(0, room.height() - others)});
  layout()->activate();
}

/// A head of one line and less air, where the room is low.
void Form::show_compact(QSize room) {
  const bool compact = room.height() < least_roomy_height;
  if (!compact && !compact_) return;
  if (!compact_) around_body_ = body_->contentsMargins();
  if (std::exchange(compact_, compact) != compact) note_compact(compact);
  velorin::show_compact({head_, head_rows_, heading_, subheading_, body_, foot_, around_body_}, compact, room.width());
  // What they need now counts at once, not with the next round of layouts.
  for (QWidget* part : {head_, foot_}) {
    part->layout()->activate();
    part->updateGeometry();
  }
}

void Form::set_title(const QString& title, const QString& heading) {
  setWindowTitle(title);
  heading_->setText(heading);
  heading_->setVisible(!heading.isEmpty());
  head_->setVisible(!heading.isEmpty());
  setAccessibleName(title.trimmed().isEmpty() ? heading : title.trimmed());
}

void Form::name_heading(const QString& name) { heading_->setObjectName(name); }

void Form::show_picture() {
  auto* picture = new GroundPicture(QStringLiteral("picture"), head_);
  picture->setFixedWidth(180);
  head_->layout()->addWidget(picture);
}

void Form::show_steps(const std::vector<FlowStep>& steps, int current) {
  auto& rows = static_cast<QVBoxLayout&>(*layout());
  rows.insertWidget(rows.indexOf(head_) + 1, new StepBar(steps, current, this));
}

void Form::set_subheading(const QString& text) {
  subheading_->setText(text);
  subheading_->setVisible(!text.isEmpty());
}

QPushButton* Form::new_button(const QString& name, const Act& act, std::function<void()> pressed) {
  auto* button = new QPushButton(foot_);
  button->setObjectName(name);
  button->setAutoDefault(false);
  name_act(*button, act);
  connect(button, &QPushButton::clicked, this, [pressed = std::move(pressed)] { guarded(pressed); });
  return button;
}

QPushButton* Form::add_button(const QString& name, const Act& act, std::function<void()> pressed) {
  QPushButton* button = new_button(name, act, std::move(pressed));
  buttons_->addWidget(button);
  foot_->show();
  return button;
}

QPushButton* Form::add_default_button(const QString& name, const Act& act, std::function<void()> pressed) {
  QPushButton* button = add_button(name, act, std::move(pressed));
  button->setDefault(true);
  default_ = button;
  return button;
}

void Form::focus_default() {
  if (default_ != nullptr) default_->setFocus();
}

void Form::add_aside(QWidget* widget) {
  asides_->addWidget(widget);
  foot_->show();
}

void Form::add_beside_buttons(QWidget* widget) {
  buttons_->addWidget(widget);
  foot_->show();
}

void Form::set_busy(bool busy) {
  busy_ = busy;
  setEnabled(!busy);
  show_busy(busy && !is_covered(*this));
}

void Form::show_busy(bool on) {
  if (on == busy_shown_) return;
  busy_shown_ = on;
  if (on) {
    QApplication::setOverrideCursor(Qt::BusyCursor);
  } else {
    QApplication::restoreOverrideCursor();
  }
}

bool Form::event(QEvent* event) {
  // A window over a busy form waits for its user.
  if (event->type() == QEvent::WindowBlocked) show_busy(false);
  if (event->type() == QEvent::WindowUnblocked) show_busy(busy_);
  // A line may come into a body that is on show, or go; a part that is still of the usual size, too.
  if (event->type() == QEvent::LayoutRequest && isVisible()) {
    fit_enlargement();
    const bool resized = is_sheet() ? height_at(width()) != height() : area_->wants_room();
    if (resized) QTimer::singleShot(0, this, [this] { make_room(); });
  }
  // The desktop may have put something else around the window than was expected.
  if (event->type() == QEvent::WindowActivate && isWindow() && expected_ != frame()) {
    QTimer::singleShot(0, this, [this] { stay_on_screen(); });
  }
  return QDialog::event(event);
}

void Form::go_back() {
  if (back_ && !program_is_ending()) return guarded(back_);
  close();
}

void Form::reject() {
  const bool ending = program_is_ending();
  if (dismissed_ && !ending) {
    guarded(dismissed_);
  } else if (ending || dismissal_ == Dismissal::closes) {
    QDialog::reject();
  }
}

void Form::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_F1 && event->modifiers() == Qt::NoModifier) return tell_help();
  if (is_jump(*event) && frame_ && !isWindow()) return frame_->jump();
  const bool down = event->key() == Qt::Key_PageDown;
  if ((down || event->key() == Qt::Key_PageUp) && area_->turn_page(down)) return;
  const bool enters = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  QAbstractButton* button = qobject_cast<QPushButton*>(focusWidget());
  // A form that waits for a choice takes it, before Return can confirm it.
  if (button == nullptr && default_ != nullptr && !default_->isEnabled()) {
    button = qobject_cast<QRadioButton*>(focusWidget());
  }
  if (!enters || event->modifiers() != Qt::NoModifier || button == nullptr) return QDialog::keyPressEvent(event);
  button->click();
}

void Form::tell_help() {
  if (busy_ || objectName() == QStringLiteral("help")) return;
  guarded([this] {
    HelpWindow help(*this, this);
    run_modal(help);
  });
}

QMargins Form::frame() const {
  const QRect outer = frameGeometry();
  const QRect inner = geometry();
  const QMargins around(inner.left() - outer.left(), inner.top() - outer.top(), outer.right() - inner.right(),
                        outer.bottom() - inner.bottom());
  constexpr QMargins usual(4, 32, 4, 4);
  return around.isNull() ? usual : around;
}

int Form::one_row_foot() const {
  const QLayout& row = *foot_->layout();
  const QMargins around = row.contentsMargins();
  return around.left() + asides_->minimumSize().width() + row.spacing() + buttons_->minimumSize().width() +
         around.right();
}

void Form::lay_out_foot(int wide) {
  auto& foot = static_cast<QBoxLayout&>(*foot_->layout());
  const int room = placing_ ? std::min(wide, widest_) : wide;
  const auto wanted = one_row_foot() > room ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight;
  if (foot.direction() == wanted) return;
  foot.setDirection(wanted);
  foot.setAlignment(buttons_, wanted == QBoxLayout::TopToBottom ? Qt::AlignRight : Qt::Alignment());
  foot.activate();
  foot_->updateGeometry();
}

void Form::resizeEvent(QResizeEvent* event) {
  fit_enlargement();
  // The main window has told a sheet what room there is around it.
  if (isWindow() || is_sheet()) {
    lay_out_foot(width());
  } else {
    fit_into(size(), width());
  }
  QDialog::resizeEvent(event);
}

void Form::measure_room() {
  const QScreen* at = screen();
  if (at == nullptr) return;
  fit_into(at->availableSize().shrunkBy(frame()), width());
}

void Form::stay_on_screen() {
  const QScreen* at = screen();
  if (at == nullptr || !isWindow() || isMaximized() || isFullScreen() || !isVisible()) return;
  const QRect room = at->availableGeometry();
  const QMargins around = frame();
  expected_ = around;
  resize(size().boundedTo(room.size().shrunkBy(around)));
  const QSize outer = size().grownBy(around);
  const QPoint furthest(room.right() + 1 - outer.width(), room.bottom() + 1 - outer.height());
  const QPoint best(std::max(room.left(), std::min(x(), furthest.x())),
                    std::max(room.top(), std::min(y(), furthest.y())));
  if (best != pos()) move(best);
}

void Form::grow() {
  const int needed = layout()->hasHeightForWidth() ? layout()->totalMinimumHeightForWidth(width())
                                                   : layout()->totalMinimumSize().height();
  if (needed > height()) resize(width(), needed);
}

void Form::make_room() {
  if (!isVisible() || isMaximized() || isFullScreen()) return;
  if (!isWindow() && frame_) return frame_->arrange();
  if (!area_->wants_room()) return;
  measure_room();
  grow();
  stay_on_screen();
}

void Form::showEvent(QShowEvent* event) {
  // A page has no place of its own on the screen, which a dialog would look for.
  // NOLINTNEXTLINE(bugprone-parent-virtual-call)
  if (!isWindow()) return QWidget::showEvent(event);
  placing_ = !event->spontaneous();
  if (placing_) measure_room();
  if (!placed_ && !event->spontaneous()) {
    placed_ = true;
    const QByteArray geometry = preferences::geometry(objectName());
    if (geometry.isEmpty() || !restoreGeometry(geometry)) {
      adjustSize();
      resize(size().expandedTo(preferred_));
    }
    // Wrapped lines may need more height than at the last time.
    grow();
  }
  QDialog::showEvent(event);
  if (placing_) stay_on_screen();
  placing_ = false;
}

void Form::hideEvent(QHideEvent* event) {
  if (isWindow() && !event->spontaneous()) preferences::set_geometry(objectName(), saveGeometry());
  QDialog::hideEvent(event);
}

}  // namespace velorin
