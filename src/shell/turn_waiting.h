// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>
#include <utility>

#include "database/configuration.h"
#include "database/folder_lock.h"
#include "desktop/form.h"

namespace velorin {

/// Says that the game waits for another program, and for which folder.
class TurnWindow : public Form {
  Q_OBJECT

 public:
  explicit TurnWindow(const std::filesystem::path& folder, QWidget* parent = front_window());
};

/// While it lives, a window tells of every wait for the turn at a folder that the user would notice; the screen is kept
/// alive meanwhile, and nothing else takes input.
class TurnWaiting : public turn_watcher {
 public:
  /// Waits for the folder of these files are told, as long as both live.
  explicit TurnWaiting(database_files& files) : files_(files), before_(std::exchange(files.watcher, this)) {}
  ~TurnWaiting() override;
  TurnWaiting(const TurnWaiting&) = delete;
  TurnWaiting& operator=(const TurnWaiting&) = delete;

  void turn_is_waited_for(const std::filesystem::path& folder, std::chrono::milliseconds so_far) override;
  void wait_is_over() override;

 private:
  database_files& files_;
  turn_watcher* before_;
  QPointer<TurnWindow> window_;
};

}  // namespace velorin
