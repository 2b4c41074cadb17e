// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <vector>

#include "desktop/form.h"
#include "model/message_kind.h"

class QCheckBox;

namespace velorin {

/// The kinds of messages that may pass by, in the order of a match.
const std::vector<message_kind>& passing_kinds();
/// What messages of a kind tell of, as a list names it: "Bowler changes".
QString name_of(message_kind kind);

/// "Do not stop for these", at the foot of a form that shows a message of this kind; chosen, messages of its kind pass
/// by from the next on. Nothing for message_kind::other.
void add_pass_by(Form& form, message_kind kind);

/// The kinds of messages, each with a box: the game stops for those that are ticked. What is chosen holds at once.
class MessageKindsWindow : public Form {
  Q_OBJECT

 public:
  explicit MessageKindsWindow(QWidget* parent = front_window());
};

}  // namespace velorin
