// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/stop_switch.h"

#include <QCheckBox>

#include "desktop/form.h"
#include "desktop/preferences.h"

namespace velorin {

QCheckBox* new_stop_switch(const QString& form, QWidget* parent) {
  auto* box = new QCheckBox(parent);
  box->setObjectName(QStringLiteral("play_without_stopping"));
  name_act(*box, {.caption = QStringLiteral("Play computer matches without stopping"), .mnemonic = u'w'});
  box->setChecked(preferences::plays_without_stopping(form));
  QObject::connect(box, &QCheckBox::toggled, box,
                   [form](bool on) { preferences::set_plays_without_stopping(form, on); });
  return box;
}

}  // namespace velorin
