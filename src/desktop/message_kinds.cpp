// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/message_kinds.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/controls.h"
#include "desktop/preferences.h"

namespace velorin {

const std::vector<message_kind>& passing_kinds() {
  static const std::vector<message_kind> kinds = {
      message_kind::toss_call,         message_kind::opening_bowlers, message_kind::batting_milestone,
      message_kind::hundred,           message_kind::stand_milestone, message_kind::fall_of_wicket,
      message_kind::bowling_milestone, message_kind::bowler_change,   message_kind::full_quota,
      message_kind::end_of_innings,    message_kind::end_of_match,
  };
  return kinds;
}

QString name_of(message_kind kind) {
  switch (kind) {
    case message_kind::toss_call:
      return QStringLiteral("What a computer side calls at the toss");
    case message_kind::opening_bowlers:
      return QStringLiteral("Opening bowlers");
    case message_kind::bowler_change:
      return QStringLiteral("Bowler changes");
    case message_kind::full_quota:
      return QStringLiteral("Bowlers who have bowled all their overs");
    case message_kind::fall_of_wicket:
      return QStringLiteral("Falls of wicket");
    case message_kind::batting_milestone:
      return QStringLiteral("Fifties of a batsman");
    case message_kind::hundred:
      return QStringLiteral("Hundreds of a batsman");
    case message_kind::bowling_milestone:
      return QStringLiteral("Five wickets");
    case message_kind::stand_milestone:
      return QStringLiteral("Partnerships");
    case message_kind::end_of_innings:
      return QStringLiteral("End of an innings");
    case message_kind::end_of_match:
      return QStringLiteral("End of a match");
    case message_kind::other:
      break;
  }
  return {};
}

namespace {

QString key_of(message_kind kind) { return QString::number(static_cast<int>(kind)); }

}  // namespace

void add_pass_by(Form& form, message_kind kind) {
  if (kind == message_kind::other) return;
  auto* box = new QCheckBox(QStringLiteral("&Do not stop for these"));
  box->setObjectName(QStringLiteral("pass_by"));
  box->setAccessibleName(QStringLiteral("Do not stop for these"));
  box->setToolTip(QStringLiteral("%1 pass by from now on; the settings bring them back (Alt+D)").arg(name_of(kind)));
  box->setChecked(!preferences::stops_for(kind));
  QObject::connect(box, &QCheckBox::toggled, &form, [kind](bool on) { preferences::set_stops_for(kind, !on); });
  form.add_aside(box);
}

MessageKindsWindow::MessageKindsWindow(QWidget* parent) : Form(QStringLiteral("messages"), Dismissal::closes, parent) {
  stand_as(Place::sheet);
  set_title(QStringLiteral("Messages"), QStringLiteral("Messages"));
  body()->addWidget(new_label(QStringLiteral("The game stops for"), TextRole::muted));
  for (const message_kind kind : passing_kinds()) {
    auto* box = new QCheckBox(name_of(kind));
    box->setObjectName(QStringLiteral("stops_for_") + key_of(kind));
    box->setAccessibleName(QStringLiteral("Stop for: ") + name_of(kind));
    box->setChecked(preferences::stops_for(kind));
    connect(box, &QCheckBox::toggled, this, [kind](bool on) { preferences::set_stops_for(kind, on); });
    body()->addWidget(box);
  }
  body()->addStretch(1);
  add_default_button(QStringLiteral("accept"), {.caption = QStringLiteral("OK"), .mnemonic = u'O'}, [this] {
    accept();
  })->setFocus();
}

}  // namespace velorin
