// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/form.h"

#include <QAbstractButton>
#include <QApplication>
#include <QHBoxLayout>
#include <QHideEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>

#include "desktop/controls.h"
#include "desktop/ground_picture.h"
#include "desktop/preferences.h"
#include "desktop/program_end.h"
#include "desktop/shown_text.h"

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
  if (QWidget* modal = QApplication::activeModalWidget()) return modal;
  if (QWidget* active = QApplication::activeWindow()) return active;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && window->isWindow()) return window;
  }
  return nullptr;
}

Form::Form(const QString& name, Dismissal dismissal, QWidget* parent)
    : QDialog(parent, Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowMinMaxButtonsHint |
                          Qt::WindowCloseButtonHint),
      dismissal_(dismissal) {
  setObjectName(name);
  setModal(true);
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(0);

  head_ = new QWidget(this);
  head_->setObjectName(QStringLiteral("head"));
  head_->setAttribute(Qt::WA_StyledBackground);
  auto* head_row = new QHBoxLayout(head_);
  head_row->setContentsMargins(0, 0, 0, 0);
  auto* head_rows = new QVBoxLayout;
  head_rows->setContentsMargins(24, 16, 24, 16);
  head_rows->setSpacing(4);
  head_row->addLayout(head_rows, 1);
  heading_ = new_label({}, TextRole::title, head_);
  heading_->setObjectName(QStringLiteral("heading"));
  subheading_ = new_label({}, TextRole::body, head_);
  subheading_->setObjectName(QStringLiteral("subheading"));
  head_rows->addWidget(heading_);
  head_rows->addWidget(subheading_);
  heading_->hide();
  subheading_->hide();
  head_->hide();
  rows->addWidget(head_);

  middle_ = new QWidget(this);
  middle_->setObjectName(QStringLiteral("middle"));
  body_ = new QVBoxLayout(middle_);
  body_->setContentsMargins(24, 16, 24, 16);
  body_->setSpacing(8);
  auto* across = new QHBoxLayout;
  across->addStretch();
  across->addWidget(middle_, 1);
  across->addStretch();
  rows->addLayout(across, 1);

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

Form::~Form() = default;

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
  foot_->show();
  return button;
}

QPushButton* Form::add_button(const QString& name, const Act& act, std::function<void()> pressed) {
  QPushButton* button = new_button(name, act, std::move(pressed));
  buttons_->addWidget(button);
  return button;
}

QPushButton* Form::add_default_button(const QString& name, const Act& act, std::function<void()> pressed) {
  QPushButton* button = add_button(name, act, std::move(pressed));
  button->setDefault(true);
  return button;
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
  if (busy) {
    QApplication::setOverrideCursor(Qt::BusyCursor);
  } else {
    QApplication::restoreOverrideCursor();
  }
  setEnabled(!busy);
}

void Form::reject() {
  if (program_is_ending()) {
    QDialog::reject();
  } else if (dismissed_) {
    guarded(dismissed_);
  } else if (dismissal_ == Dismissal::closes) {
    QDialog::reject();
  }
}

void Form::keyPressEvent(QKeyEvent* event) {
  auto* button = qobject_cast<QPushButton*>(focusWidget());
  const bool enters = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (!enters || event->modifiers() != Qt::NoModifier || button == nullptr) return QDialog::keyPressEvent(event);
  button->click();
}

void Form::showEvent(QShowEvent* event) {
  if (!placed_ && !event->spontaneous()) {
    placed_ = true;
    const QByteArray geometry = preferences::geometry(objectName());
    if (geometry.isEmpty() || !restoreGeometry(geometry)) {
      adjustSize();
      resize(size().expandedTo(preferred_));
      // The window's frame takes its share of the screen.
      constexpr QSize frame(8, 36);
      if (const QScreen* at = screen()) resize(size().boundedTo(at->availableSize() - frame));
    }
    // Wrapped lines may need more height than at the last time.
    if (const int needed = layout()->hasHeightForWidth() ? layout()->totalMinimumHeightForWidth(width()) : 0;
        needed > height()) {
      resize(width(), needed);
    }
  }
  QDialog::showEvent(event);
}

void Form::hideEvent(QHideEvent* event) {
  if (!event->spontaneous()) preferences::set_geometry(objectName(), saveGeometry());
  QDialog::hideEvent(event);
}

}  // namespace velorin
