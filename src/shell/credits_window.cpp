// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/credits_window.h"

#include <QDesktopServices>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QUrl>
#include <QVBoxLayout>

#include "desktop/controls.h"
#include "desktop/shown_text.h"
#include "reports/export.h"
#include "shell/link_button.h"
#include "shell/version.h"

namespace velorin {

namespace {

struct Credit {
  const char* heading_name;
  const char* heading;
  const char* link_name;
  const char* text;
  char16_t mnemonic;
  bool mail;
};

constexpr const char* developers = "The Velorin developers";
constexpr const char* mail_address = "mailto:developers@velorin.example";

constexpr Credit credits[] = {
    {"programming_heading", "Main Programming and Concept:", "programming_link", developers, u'T', true},
    {"interface_heading", "Additional Programming, Graphical Interface and Website Development:", "interface_link",
     developers, u'H', true},
    {"research_heading", "Research and Data:", "research_link", developers, u'E', true},
    {"testing_heading", "Beta Testing and Additional Support:", "testing_link", developers, u'D', true},
    {"origin_heading", "Based on:", "origin_link", "Velorin", u'V', false},
    {"website_heading", "Official Website:", "website_link", nullptr, u'P', false},
};

}  // namespace

CreditsWindow::CreditsWindow(std::function<void(const QUrl&)> open_link, QWidget* parent)
    : Form(QStringLiteral("frmAbout"), Dismissal::closes, parent), open_link_(std::move(open_link)) {
  if (!open_link_) open_link_ = [](const QUrl& address) { QDesktopServices::openUrl(address); };
  set_title(QStringLiteral("Credits"), QStringLiteral("Credits"));
  set_subheading(QStringLiteral("Velorin %1").arg(QLatin1String(shell_version)));
  const QString home = shown(home_page);
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(24);
  grid->setVerticalSpacing(12);
  int row = 0;
  for (const Credit& credit : credits) {
    QLabel* heading =
        new_named_label(QString::fromLatin1(credit.heading_name), QString::fromLatin1(credit.heading), TextRole::muted);
    heading->setWordWrap(true);
    heading->setMinimumWidth(280);
    const QString text = credit.text == nullptr ? home : QString::fromLatin1(credit.text);
    auto* link = new LinkButton(QString::fromLatin1(credit.link_name), text, credit.mnemonic);
    link->setAccessibleName(QStringLiteral("%1 %2").arg(QString::fromLatin1(credit.heading), text));
    const QUrl address(credit.mail ? QString::fromLatin1(mail_address) : home);
    connect(link, &LinkButton::clicked, this, [this, address] { open_link_(address); });
    grid->addWidget(heading, row, 0);
    grid->addWidget(link, row, 1, Qt::AlignLeft | Qt::AlignVCenter);
    ++row;
  }
  body()->addLayout(grid);
  body()->addStretch(1);
  add_default_button(QStringLiteral("accept"), {.caption = QStringLiteral("OK"), .mnemonic = u'O'}, [this] {
    accept();
  })->setFocus();
}

}  // namespace velorin
