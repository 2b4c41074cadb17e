// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <cstdint>
#include <functional>
#include <stop_token>
#include <thread>

namespace velorin {

/// Work behind a window: it runs in a thread of its own, and what it has found out is shown in the window's. What is
/// asked for last counts: a late answer to anything else is dropped, as are all once the object goes.
class BackWork : public QObject {
  Q_OBJECT

 public:
  /// Shows what was found out; runs in the thread of the object.
  using Show = std::function<void()>;
  /// Finds out; ends soon once it is asked to stop. Touches nothing that others change. What it raises is taken as no
  /// answer. May hand over what it has so far, any number of times.
  using Work = std::function<Show(const std::stop_token& stop, const std::function<void(Show)>& so_far)>;

  explicit BackWork(QObject* parent = nullptr);
  /// Waits for what is still at work, which has been asked to stop.
  ~BackWork() override;

  void ask(Work work);
  void drop();
  /// Something has been asked for and is not answered yet.
  bool is_working() const { return working_; }

 private:
  void take(std::uint64_t number, const Show& show, bool last);

  std::uint64_t number_ = 0;  // of what was asked for last
  bool working_ = false;
  std::jthread thread_;
};

}  // namespace velorin
