// SPDX-License-Identifier: GPL-3.0-or-later
// The record book and the pages to which it leads.
#include <QApplication>
#include <QListWidget>
#include <QTest>

#include "archive/forms/answer_view.h"
#include "desktop/table_view.h"
#include "shell/clicking_user.h"
#include "shell/menu_window.h"
#include "shell/pictures.h"
#include "windows/robot.h"

namespace velorin::testing {

namespace {

void wait_for_answer(QWidget& window) {
  const auto* answer = window.findChild<AnswerView*>();
  (void)QTest::qWaitFor([&] { return !answer->is_waiting(); });
}

/// Follows the cell of the first row under a heading, a moment later, when its press is over.
void follow(QWidget& window, const char* heading) {
  auto& table = window.findChild<AnswerView*>()->table();
  for (int column = 0; column < table.model()->columnCount(); ++column) {
    if (table.table().columns[static_cast<std::size_t>(column)].heading == QLatin1String(heading)) {
      return table.open_row(table.model()->index(0, column));
    }
  }
}

}  // namespace

void picture_archive(MenuWindow& menu) {
  ClickingUser user;
  int books = 0;
  user.robot.always("recbook", [&](QWidget& window) {
    wait_for_answer(window);
    if (books++ > 0) return press(window, "accept");
    take(window, "record-book");
    auto* questions = control<QListWidget>(window, "questions");
    for (int row = 0; row < questions->count(); ++row) {
      if (questions->item(row)->text() == QLatin1String("Most runs")) questions->setCurrentRow(row);
    }
    wait_for_answer(window);
    take(window, "record-book-sums");
    follow(window, "Player");
  });
  int pages = 0;
  user.robot.always("archpage", [&](QWidget& window) {
    wait_for_answer(window);
    auto* sections = control<QListWidget>(window, "sections");
    switch (pages++) {
      case 0:
        take(window, "page-player");
        sections->setCurrentRow(2);
        wait_for_answer(window);
        take(window, "page-player-form");
        sections->setCurrentRow(4);
        wait_for_answer(window);
        take(window, "page-player-milestones");
        sections->setCurrentRow(7);
        wait_for_answer(window);
        return follow(window, "Opponent");
      case 1:
        take(window, "page-team");
        press(window, "compare");
        sections->setCurrentRow(2);
        wait_for_answer(window);
        return follow(window, "Opponent");
      case 2:
        return press(window, "compare");
      case 3:
        take(window, "page-two-teams");
        sections->setCurrentRow(2);
        wait_for_answer(window);
        return follow(window, "Match");
      case 4:
        sections->setCurrentRow(2);
        wait_for_answer(window);
        take(window, "page-match");
        return press(window, "accept");
      default:
        return press(window, "accept");
    }
  });
  open(menu, "other_records", "record_book");
}

}  // namespace velorin::testing
