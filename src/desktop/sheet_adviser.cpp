// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/sheet_adviser.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "desktop/controls.h"
#include "desktop/form.h"
#include "desktop/preferences.h"
#include "desktop/program_end.h"

namespace velorin {

SheetAdviser::SheetAdviser(Form& form, Acts acts, QBoxLayout* rows)
    : QObject(&form), acts_(std::move(acts)), line_(new_named_label(QStringLiteral("reason"), {}, TextRole::muted)) {
  line_->setWordWrap(true);
  line_->hide();  // until there is something to tell
  QHBoxLayout* row = nullptr;
  if (rows != nullptr) {
    row = new QHBoxLayout;
    row->setSpacing(16);
    row->addStretch(1);
    rows->addLayout(row);
  }
  const auto add = [&](QPushButton* button) {
    if (row == nullptr) return form.add_aside(button);
    row->addWidget(button);
    if (button->parentWidget() != nullptr) button->show();  // the form may be on show
  };
  if (acts_.advise) {
    toggle_ = new QPushButton;
    toggle_->setObjectName(QStringLiteral("adviser"));
    toggle_->setAutoDefault(false);
    toggle_->setCheckable(true);
    name_act(*toggle_, {.caption = QStringLiteral("Adviser"),
                        .mnemonic = u'v',
                        .hint = QStringLiteral("Tell what each choice does to the chance of winning")});
    toggle_->setChecked(preferences::adviser());
    connect(toggle_, &QPushButton::toggled, this, [this](bool on) {
      guarded([&] {
        preferences::set_adviser(on);
        advise();
      });
    });
    add(toggle_);
  }
  add(form.new_button(QStringLiteral("leave_to_computer"),
                      {.caption = QStringLiteral("Leave to Computer"),
                       .mnemonic = u'u',
                       .hint = QStringLiteral("Choose what the computer would, and tell why")},
                      [this] {
                        const QString reason = acts_.leave();
                        line_->setText(reason);
                        line_->setAccessibleName(reason);
                        line_->setVisible(!reason.isEmpty());
                      }));
  if (row != nullptr) row->addStretch(1);
  (rows != nullptr ? rows : form.body())->addWidget(line_);
  if (acts_.advise) advise();
}

void SheetAdviser::advise() {
  if (!toggle_->isChecked()) {
    work_.drop();
    return acts_.clear();
  }
  if (BackWork::Work work = acts_.advise()) work_.ask(std::move(work));
}

}  // namespace velorin
