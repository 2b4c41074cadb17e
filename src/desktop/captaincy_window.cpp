// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/captaincy_window.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/controls.h"
#include "desktop/preferences.h"

namespace velorin {

namespace {

struct Charge {
  const char* name;
  const char* caption;
  const char* hint;
  bool Delegated::*what;
};

constexpr Charge charges[] = {
    {"leave_toss", "The toss", "The coin is called, and a coin of the computer's own decides whether to bat or to bowl",
     &Delegated::toss},
    {"leave_line_up", "The line-up", "The eleven, and who comes in next", &Delegated::line_up},
    {"leave_bowling", "The bowling", "Who opens, and every change of bowler", &Delegated::bowling},
    {"leave_aggressions", "Aggressions", "Of your batsmen and bowlers, before each over or ball",
     &Delegated::aggressions},
};

QCheckBox* new_box(const char* name, const QString& caption, const QString& hint, bool on) {
  auto* box = new QCheckBox(caption);
  box->setObjectName(QString::fromLatin1(name));
  box->setAccessibleName(caption);
  box->setAccessibleDescription(hint);
  box->setToolTip(hint);
  box->setChecked(on);
  return box;
}

}  // namespace

CaptaincyWindow::CaptaincyWindow(QWidget* parent) : Form(QStringLiteral("captaincy"), Dismissal::closes, parent) {
  stand_as(Place::sheet);
  limit_body(480);
  set_title(QStringLiteral("Captaincy"), QStringLiteral("Captaincy"));
  body()->addWidget(new_label(QStringLiteral("Left to the computer on your side"), TextRole::muted));
  for (const Charge& charge : charges) {
    QCheckBox* box = new_box(charge.name, QString::fromLatin1(charge.caption), QString::fromLatin1(charge.hint),
                             preferences::delegated().*charge.what);
    connect(box, &QCheckBox::toggled, this, [what = charge.what](bool on) {
      Delegated now = preferences::delegated();
      now.*what = on;
      preferences::set_delegated(now);
    });
    body()->addWidget(box);
  }
  QLabel* taken = new_named_label(QStringLiteral("taken_back"),
                                  QStringLiteral("Whatever you change by hand is yours again."), TextRole::muted);
  taken->setWordWrap(true);
  body()->addWidget(taken);
  body()->addWidget(new_label(QStringLiteral("Told to you"), TextRole::muted));
  QCheckBox* adviser = new_box("adviser", QStringLiteral("Adviser"),
                               QStringLiteral("What each choice does to the chance of winning, from the rest of the "
                                              "match played many times behind play"),
                               preferences::adviser());
  connect(adviser, &QCheckBox::toggled, this, [](bool on) { preferences::set_adviser(on); });
  body()->addWidget(adviser);
  body()->addStretch(1);
  add_default_button(QStringLiteral("accept"), {.caption = QStringLiteral("OK"), .mnemonic = u'O'}, [this] {
    accept();
  })->setFocus();
}

}  // namespace velorin
