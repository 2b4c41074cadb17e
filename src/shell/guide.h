// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QPointer>
#include <vector>

class QWidget;

namespace velorin {

class Form;
class Frame;
class Hint;

/// A hint of the guided match: its form, and the controls of which it is about the first that is live, each with
/// its words.
struct GuideHint {
  struct Words {
    const char* control;
    const char* words;
  };
  const char* form;
  std::vector<Words> about;
};

/// The control of a form that a hint is about; nullptr if it is not there. "man" is the first that can be chosen.
QWidget* control_of(const QWidget& form, const char* control);

/// The six hints, in the order in which a match meets them.
const std::vector<GuideHint>& guide_hints();

/// Leads a newcomer through his first match: shows each hint once, when its control is first on show in the main
/// window, one at a time; those of the console once an over has been bowled. Goes when the last has been read.
class Guide : public QObject {
  Q_OBJECT

 public:
  explicit Guide(Frame& frame);

  /// Hints that have not been read.
  int left() const { return static_cast<int>(waiting_.size()); }

 private:
  void look_again();
  void look(Form* top);

  Frame& frame_;
  std::vector<GuideHint> waiting_;
  QPointer<Hint> shown_;
};

}  // namespace velorin
