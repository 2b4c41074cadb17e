// SPDX-License-Identifier: GPL-3.0-or-later
#include "archive/forms/archive_form.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <utility>

#include "desktop/program_end.h"

namespace velorin {

ArchiveForm::ArchiveForm(const QString& name, archive_history& history, QWidget* parent)
    : Form(name, Dismissal::closes, parent), history_(history) {
  on_dismiss([this] {
    if (history_.has_back()) {
      go_back();
    } else {
      accept();
    }
  });
  if (history_.has_forward()) offer_forward([this] { go_forward(); });
  qApp->installEventFilter(this);
}

ArchiveForm::~ArchiveForm() = default;

void ArchiveForm::leave() {
  leads_on_ = true;
  accept();
}

void ArchiveForm::go_to(const archive_subject& about) {
  if (about == history_.here().about) return;
  go_to(archive_place{.about = about});
}

void ArchiveForm::go_to(archive_place place) {
  keep(history_.here());
  history_.go_to(std::move(place));
  leave();
}

void ArchiveForm::go_back() {
  if (!history_.has_back()) return;
  keep(history_.here());
  history_.go_back();
  leave();
}

void ArchiveForm::go_forward() {
  if (!history_.has_forward()) return;
  keep(history_.here());
  history_.go_forward();
  leave();
}

bool ArchiveForm::eventFilter(QObject* watched, QEvent* event) {
  const QEvent::Type type = event->type();
  if (type == QEvent::MouseButtonPress && isVisible() && isEnabled()) {
    const auto* over = qobject_cast<QWidget*>(watched);
    const Qt::MouseButton button = static_cast<QMouseEvent*>(event)->button();
    const bool leads = button == Qt::BackButton || button == Qt::ForwardButton;
    if (leads && over != nullptr && (over == this || isAncestorOf(over))) {
      guarded([&] { button == Qt::BackButton ? go_back() : go_forward(); });
      return true;
    }
  }
  return Form::eventFilter(watched, event);
}

void ArchiveForm::keyPressEvent(QKeyEvent* event) {
  // In a window of its own there is no bar to take them.
  const bool with_alt = event->modifiers().testFlag(Qt::AltModifier);
  const int key = event->key();
  if (key == Qt::Key_Back || (with_alt && key == Qt::Key_Left)) return guarded([this] { go_back(); });
  if (key == Qt::Key_Forward || (with_alt && key == Qt::Key_Right)) return guarded([this] { go_forward(); });
  Form::keyPressEvent(event);
}

}  // namespace velorin
