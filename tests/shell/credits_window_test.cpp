// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/credits_window.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QEnterEvent>
#include <QLabel>
#include <QTest>
#include <QUrl>

#include "desktop/theme.h"
#include "reports/export.h"
#include "shell/link_button.h"
#include "windows/robot.h"
#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

TEST(CreditsWindowTest, PassesTheChecks) {
  CreditsWindow window([](const QUrl&) {});
  window.show();
  check_window_at_sizes(window);
  take_picture(window, "about");
  EXPECT_EQ(window.windowTitle(), "Credits");
  const std::pair<const char*, const char*> headings[] = {
      {"programming_heading", "Main Programming and Concept:"},
      {"interface_heading", "Additional Programming, Graphical Interface and Website Development:"},
      {"research_heading", "Research and Data:"},
      {"testing_heading", "Beta Testing and Additional Support:"},
      {"origin_heading", "Based on:"},
      {"website_heading", "Official Website:"}};
  for (const auto& [name, text] : headings) EXPECT_EQ(control<QLabel>(window, name)->text(), QLatin1String(text));
  press(window, "accept");
  EXPECT_FALSE(window.isVisible());
}

TEST(CreditsWindowTest, LinksOpenMailAndTheWeb) {
  std::vector<QUrl> opened;
  CreditsWindow window([&](const QUrl& address) { opened.push_back(address); });
  window.show();
  for (const char* mail : {"programming_link", "interface_link", "research_link", "testing_link"}) press(window, mail);
  for (const char* page : {"origin_link", "website_link"}) press(window, page);
  ASSERT_EQ(opened.size(), 6U);
  for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(opened[i].scheme(), "mailto");
  for (std::size_t i = 4; i < 6; ++i) EXPECT_EQ(opened[i].toString().toStdString(), home_page);
}

TEST(CreditsWindowTest, ReturnFollowsALink) {
  std::vector<QUrl> opened;
  CreditsWindow window([&](const QUrl& address) { opened.push_back(address); });
  window.show();
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  for (const char* name : {"programming_link", "website_link"}) {
    auto* link = control<LinkButton>(window, name);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(link)->role(), QAccessible::Button);
    link->setFocus();
    QTest::keyClick(link, Qt::Key_Return);
  }
  EXPECT_EQ(opened.size(), 2U);
  EXPECT_TRUE(window.isVisible()) << "Return pressed the form's button";
}

TEST(CreditsWindowTest, ALinkUnderThePointerTurnsBlue) {
  const Appearance before = theme().high_contrast ? Appearance::high_contrast
                            : theme().dark        ? Appearance::dark
                                                  : Appearance::light;
  apply_theme(Appearance::light);
  CreditsWindow window([](const QUrl&) {});
  window.show();
  auto* link = control<LinkButton>(window, "programming_link");
  auto* other = control<LinkButton>(window, "interface_link");
  EXPECT_EQ(link->color(), QColor(192, 0, 0));
  QEnterEvent enter(QPointF(2, 2), QPointF(2, 2), link->mapToGlobal(QPointF(2, 2)));
  QApplication::sendEvent(link, &enter);
  EXPECT_EQ(link->color(), QColor(0, 0, 255));
  EXPECT_EQ(other->color(), QColor(192, 0, 0));
  QEvent leave(QEvent::Leave);
  QApplication::sendEvent(link, &leave);
  EXPECT_EQ(link->color(), QColor(192, 0, 0));
  apply_theme(before);
}

}  // namespace
}  // namespace velorin::testing
