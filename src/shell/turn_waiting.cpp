// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/turn_waiting.h"

#include <QCoreApplication>
#include <QLabel>
#include <QVBoxLayout>

#include "desktop/controls.h"
#include "desktop/program_end.h"

namespace velorin {

namespace {

/// Most waits are shorter than this, and need not be told.
constexpr std::chrono::milliseconds told_after{300};

}  // namespace

TurnWindow::TurnWindow(const std::filesystem::path& folder, QWidget* parent)
    : Form(QStringLiteral("waiting"), Dismissal::refused, parent) {
  stand_as(Place::sheet);
  set_title(QStringLiteral("Waiting"), {});
  body()->addWidget(
      new_named_label(QStringLiteral("title"), QStringLiteral("Waiting for another program"), TextRole::heading));
  auto* text = new_named_label(QStringLiteral("text"),
                               QStringLiteral("It works on the files in %1. The game waits for up to %2 seconds.")
                                   .arg(QString::fromStdString(folder.string()))
                                   .arg(longest_wait_for_turn.count()));
  text->setWordWrap(true);
  text->setMinimumWidth(420);
  setAccessibleDescription(text->text());
  body()->addWidget(text);
  body()->addStretch(1);
}

TurnWaiting::~TurnWaiting() {
  delete window_.data();
  files_.watcher = before_;
}

void TurnWaiting::turn_is_waited_for(const std::filesystem::path& folder, std::chrono::milliseconds so_far) {
  if (so_far < told_after) return;
  if (!window_) {
    window_ = new TurnWindow(folder);
    window_->show();
  }
  QCoreApplication::processEvents();
  if (program_is_ending()) throw ProgramEnds{};
}

void TurnWaiting::wait_is_over() { delete window_.data(); }

}  // namespace velorin
