// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractButton>
#include <QObject>
#include <QWidget>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace velorin::testing {

/// The control of that name in a window, which must exist; a test failure and nullptr otherwise.
template <class Control>
Control* control(const QWidget& window, const char* name);

/// Presses a button, which must be visible and enabled.
void press(const QWidget& window, const char* name);

/// A user of modal windows: whenever one waits for input, does what was laid down for its name. While it lives, every
/// window that opens is answered: a name for which nothing is laid down is a test failure, and the window is closed.
class Robot {
 public:
  using answer = std::function<void(QWidget& window)>;

  Robot();
  ~Robot();

  /// Done each time that a window of this name waits, unless a single answer is left.
  void always(const std::string& window, answer act);
  /// Done once, in the order given, before what is done always.
  void next(const std::string& window, answer act);
  /// Answers every window that has nothing of its own laid down.
  void otherwise(answer act) { otherwise_ = std::move(act); }

  /// Done each time that a window waits, before what is laid down for it.
  void at_sight(answer act) { at_sight_ = std::move(act); }

  /// The windows met, by name, in their order; a window that was answered twice stands twice.
  const std::vector<std::string>& met() const { return met_; }
  int met(const std::string& window) const;
  /// Single answers never given.
  int left() const;

 private:
  void look();
  void look_soon();

  QObject alive_;                    // looks end with it
  std::vector<QWidget*> answering_;  // windows in the middle of an answer, which may process events itself
  std::map<std::string, answer> always_;
  std::map<std::string, std::deque<answer>> next_;
  answer otherwise_;
  answer at_sight_;
  std::vector<std::string> met_;
};

/// Presses a button whose work asks a question of this name, and answers it with the button `yes` or `no`.
void press_and_answer(QWidget& window, const char* name, const char* question, const char* answer);

/// An answer that presses a button.
inline Robot::answer pressing(const char* name) {
  return [name](QWidget& window) { press(window, name); };
}

}  // namespace velorin::testing

#include <gtest/gtest.h>

template <class Control>
Control* velorin::testing::control(const QWidget& window, const char* name) {
  auto* found = window.findChild<Control*>(QString::fromLatin1(name));
  EXPECT_NE(found, nullptr) << "no control " << name << " in " << window.objectName().toStdString();
  return found;
}
