// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/back_work.h"

#include <exception>
#include <utility>

#include "desktop/program_end.h"

namespace velorin {

BackWork::BackWork(QObject* parent) : QObject(parent) {}

BackWork::~BackWork() = default;

void BackWork::ask(Work work) {
  drop();
  working_ = true;
  const std::uint64_t number = ++number_;
  thread_ = std::jthread(
      [this, number, work = std::move(work), before = std::move(thread_)](const std::stop_token& stop) mutable {
        if (before.joinable()) before.join();
        const auto hand_over = [&](Show show, bool last) {
          QMetaObject::invokeMethod(
              this, [this, number, show = std::move(show), last] { take(number, show, last); }, Qt::QueuedConnection);
        };
        Show found;
        try {
          if (!stop.stop_requested()) found = work(stop, [&](Show show) { hand_over(std::move(show), false); });
        } catch (const std::exception&) {
          found = {};
        }
        if (!stop.stop_requested()) hand_over(std::move(found), true);
      });
}

void BackWork::drop() {
  ++number_;
  working_ = false;
  thread_.request_stop();
}

void BackWork::take(std::uint64_t number, const Show& show, bool last) {
  if (number != number_) return;
  if (last) working_ = false;
  if (show) guarded(show);
}

}  // namespace velorin
