// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/message_window.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QStyle>
#include <QVBoxLayout>

#include "desktop/controls.h"
#include "desktop/shown_text.h"

namespace velorin {

MessageWindow::MessageWindow(const message_box& message, Kind kind, QWidget* parent)
    : Form(QStringLiteral("message"), Dismissal::closes, parent) {
  set_title(shown(message.title), {});
  setAccessibleDescription(shown(message.text));
  auto* row = new QHBoxLayout;
  row->setSpacing(16);
  auto* icon = new_label({});
  icon->setObjectName(QStringLiteral("icon"));
  const bool failed = kind == Kind::failure;
  const auto standard = failed ? QStyle::SP_MessageBoxCritical : QStyle::SP_MessageBoxInformation;
  icon->setPixmap(style()->standardIcon(standard).pixmap(40, 40));
  icon->setAccessibleName(failed ? QStringLiteral("Failure") : QStringLiteral("Information"));
  row->addWidget(icon, 0, Qt::AlignTop);
  auto* texts = new QVBoxLayout;
  texts->setSpacing(8);
  auto* title = new_named_label(QStringLiteral("title"), shown(message.title).trimmed(), TextRole::heading);
  auto* text = new_named_label(QStringLiteral("text"), shown(message.text));
  text->setWordWrap(true);
  text->setMinimumWidth(360);
  text->setTextInteractionFlags(Qt::TextSelectableByMouse);
  text->setFocusPolicy(Qt::NoFocus);  // a click on the text leaves Space with the button
  texts->addWidget(title);
  texts->addWidget(text, 1);
  row->addLayout(texts, 1);
  body()->addLayout(row);
  auto* ok = add_default_button(QStringLiteral("OK"), {.caption = QStringLiteral("OK"), .mnemonic = u'O'},
                                [this] { accept(); });
  ok->setFocus();
}

}  // namespace velorin
