// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <QWidget>
#include <vector>

namespace velorin {

/// A step of a flow: its name, and in a few words what was chosen in it so far.
struct FlowStep {
  QString name;
  QString chosen;          ///< in one line or two
  QStringList teams = {};  ///< whose crests stand beside it
};

/// Shows the steps of a flow side by side, what was chosen in each, and where one is, as wide as the body of its form.
/// Takes no input.
class StepBar : public QWidget {
  Q_OBJECT

 public:
  /// `current`: the step one is at, from 0.
  StepBar(const std::vector<FlowStep>& steps, int current, QWidget* parent = nullptr);

  /// Less air, where there is little height.
  void show_compact(bool compact);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void set_margins();

  bool compact_ = false;
};

}  // namespace velorin
