// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/last_choices.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVariantMap>

#include "desktop/controls.h"
#include "desktop/form.h"
#include "desktop/preferences.h"
#include "desktop/program_end.h"

namespace velorin {

namespace {

template <class Control, class Act>
void for_each(const Form& form, Act act) {
  for (Control* control : form.findChildren<Control*>()) {
    if (!control->objectName().isEmpty() && !control->objectName().startsWith(QLatin1String("qt_"))) act(*control);
  }
}

void choose(QAbstractButton& button, const QVariantMap& kept) {
  const QVariant on = kept.value(button.objectName());
  // A press, as the user's own: whoever listens for it hears it.
  if (on.isValid() && on.toBool() != button.isChecked() && (on.toBool() || !button.autoExclusive())) button.click();
}

void choose_again(const Form& form) {
  const QVariantMap kept = preferences::last_choices(form.objectName());
  // In the order in which they were made: what a list offers may follow from the one before.
  for_each<QComboBox>(form, [&](QComboBox& list) {
    const QVariant text = kept.value(list.objectName());
    const int at = text.isValid() ? list.findText(text.toString()) : -1;
    if (at >= 0) list.setCurrentIndex(at);
  });
  for_each<QLineEdit>(form, [&](QLineEdit& field) {
    const QVariant text = kept.value(field.objectName());
    if (text.isValid()) field.setText(text.toString());
  });
  for_each<QCheckBox>(form, [&](QCheckBox& box) { choose(box, kept); });
  for_each<QRadioButton>(form, [&](QRadioButton& option) { choose(option, kept); });
}

}  // namespace

void keep_choices(const Form& form) {
  QVariantMap kept;
  for_each<QComboBox>(form, [&](QComboBox& list) { kept.insert(list.objectName(), list.currentText()); });
  for_each<QLineEdit>(form, [&](QLineEdit& field) { kept.insert(field.objectName(), field.text()); });
  for_each<QCheckBox>(form, [&](QCheckBox& box) { kept.insert(box.objectName(), box.isChecked()); });
  for_each<QRadioButton>(form, [&](QRadioButton& option) { kept.insert(option.objectName(), option.isChecked()); });
  preferences::set_last_choices(form.objectName(), kept);
}

void add_as_last_time(Form& form) {
  if (preferences::last_choices(form.objectName()).isEmpty()) return;
  auto* again = new QPushButton;
  again->setObjectName(QStringLiteral("as_last_time"));
  again->setAutoDefault(false);
  name_act(*again, {.caption = QStringLiteral("As Last Time"),
                    .mnemonic = u'L',
                    .hint = QStringLiteral("Chooses what was played from this page last")});
  QObject::connect(again, &QPushButton::clicked, &form, [&form] { guarded([&form] { choose_again(form); }); });
  form.add_aside(again);
}

}  // namespace velorin
