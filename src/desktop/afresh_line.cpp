// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/afresh_line.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/controls.h"
#include "desktop/form.h"
#include "desktop/program_end.h"
#include "desktop/shown_text.h"

namespace velorin {

void add_afresh_line(QVBoxLayout& rows, const std::string& text, std::function<void()> forget) {
  if (text.empty()) return;
  auto* line = new QWidget;
  line->setObjectName(QStringLiteral("afresh_line"));
  auto* row = new QHBoxLayout(line);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(16);
  auto* words = new_named_label(QStringLiteral("standing"), shown(text), TextRole::muted);
  words->setWordWrap(true);
  row->addWidget(words, 1);
  auto* button = new QPushButton;
  button->setObjectName(QStringLiteral("afresh"));
  button->setAutoDefault(false);
  name_act(*button, {.caption = QStringLiteral("Start afresh"),
                     .mnemonic = u'r',
                     .key = {},
                     .hint = QStringLiteral("Clears what this line tells of, as a new start of the program would")});
  QObject::connect(button, &QPushButton::clicked, line, [line, forget = std::move(forget)] {
    guarded([&] {
      forget();
      line->hide();
    });
  });
  row->addWidget(button);
  rows.addWidget(line);
}

}  // namespace velorin
