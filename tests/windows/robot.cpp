// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/robot.h"

#include <QApplication>
#include <QDialog>
#include <QTimer>
#include <algorithm>

#include "desktop/frame.h"
#include "desktop/program_end.h"

namespace velorin::testing {

void press(const QWidget& window, const char* name) {
  auto* button = control<QAbstractButton>(window, name);
  if (button == nullptr) return;
  EXPECT_TRUE(button->isVisible()) << name << " is hidden";
  EXPECT_TRUE(button->isEnabled()) << name << " is disabled";
  if (button->isVisible() && button->isEnabled()) button->click();
}

void press_and_answer(QWidget& window, const char* name, const char* question, const char* answer) {
  Robot robot;
  robot.next(question, pressing(answer));
  press(window, name);
  EXPECT_EQ(robot.left(), 0) << question << " was not asked";
}

Robot::Robot() { look_soon(); }

Robot::~Robot() = default;

void Robot::look_soon() {
  // A shot each time: one timer would not fire again within the event loop of a window that its own call opened.
  QTimer::singleShot(0, &alive_, [this] { look(); });
}

void Robot::always(const std::string& window, answer act) { always_[window] = std::move(act); }
void Robot::next(const std::string& window, answer act) { next_[window].push_back(std::move(act)); }

int Robot::met(const std::string& window) const {
  return static_cast<int>(std::count(met_.begin(), met_.end(), window));
}

int Robot::left() const {
  int count = 0;
  for (const auto& [window, answers] : next_) count += static_cast<int>(answers.size());
  return count;
}

void Robot::look() {
  look_soon();
  QWidget* window = waiting_window();
  if (window == nullptr || !window->isVisible() || !window->isModal() || !window->isEnabled() || program_is_ending())
    return;
  if (std::find(answering_.begin(), answering_.end(), window) != answering_.end()) return;
  const std::string name = window->objectName().toStdString();
  met_.push_back(name);
  if (at_sight_) {
    answering_.push_back(window);
    at_sight_(*window);
    answering_.pop_back();
  }
  answer act;
  if (auto& answers = next_[name]; !answers.empty()) {
    act = std::move(answers.front());
    answers.pop_front();
  } else if (const auto found = always_.find(name); found != always_.end()) {
    act = found->second;
  } else {
    act = otherwise_;
  }
  if (act) {
    answering_.push_back(window);
    act(*window);
    answering_.pop_back();
    return;
  }
  ADD_FAILURE() << "nobody answers " << name;
  if (auto* dialog = qobject_cast<QDialog*>(window)) dialog->done(QDialog::Rejected);
}

}  // namespace velorin::testing
