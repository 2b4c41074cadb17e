// SPDX-License-Identifier: GPL-3.0-or-later
#include "archive/forms/record_book_window.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include "archive/answer_text.h"
#include "archive/archive_fixture.h"
#include "archive/classic_questions.h"
#include "archive/forms/answer_view.h"
#include "archive/forms/question_panel.h"
#include "desktop/preferences.h"
#include "desktop/table_view.h"
#include "windows/robot.h"
#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

class RecordBookTest : public ArchiveTest {
 protected:
  void SetUp() override {
    ArchiveTest::SetUp();
    preferences::use_file(own_.filePath(QStringLiteral("preferences.ini")));
  }

  void play_some() const { text({"--seed", "5", "match", "--update", "--matches", "8", "--quiet"}); }

  static const AnswerView& answer_of(const QWidget& window) {
    const auto* view = window.findChild<AnswerView*>();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !view->is_waiting(); }, 20000));
    return *view;
  }
  static void choose(const QWidget& window, const char* title) {
    auto* list = control<QListWidget>(window, "questions");
    const auto found = list->findItems(QLatin1String(title), Qt::MatchExactly);
    ASSERT_EQ(found.size(), 1);
    list->setCurrentItem(found.front());
  }
  static void choose_in(const QWidget& window, const char* name, const char* key) {
    auto* choice = control<QComboBox>(window, name);
    const int place = choice->findData(QLatin1String(key));
    ASSERT_GE(place, 0) << key;
    choice->setCurrentIndex(place);
  }
  static QString sentence(const QWidget& window) { return control<QLabel>(window, "sentence")->text(); }
  /// What the user has asked for by his last change, which is asked a moment later.
  static const AnswerView& answer_to_change(const QWidget& window) {
    QTest::qWait(220);
    return answer_of(window);
  }

  archive_history history{archive_place{}};

 private:
  QTemporaryDir own_;
};

TEST_F(RecordBookTest, AnswersAsTheCompanionDoes) {
  play_some();
  RecordBookWindow window(files(), history);
  window.show();
  EXPECT_EQ(answer_csv(answer_of(window).told()),
            text({"query", "batting", "--sort", "runs", "--descending", "--top", "15", "--csv"}));
  choose(window, "Most runs");
  const AnswerView& sums = answer_of(window);
  const std::vector<std::string> asked = {"query", "batting",      "--by",  "player,team", "--sort",
                                          "runs",  "--descending", "--top", "15"};
  std::vector<std::string> with = asked;
  with.emplace_back("--csv");
  EXPECT_EQ(answer_csv(sums.told()), text(with));
  EXPECT_EQ(table_csv(sums.table().table()).isEmpty(), false);
  with.back() = "--json";
  EXPECT_EQ(answer_json(sums.told(), sums.asked()), text(with));
  sums.table().copy();
  EXPECT_TRUE(QApplication::clipboard()->text().startsWith(QLatin1String("player\tteam\tmatches\tinnings\tnot_outs")));
  check_window_at_sizes(window);
}

TEST(QuestionPanels, KeepEachPartOfAQuestion) {
  QuestionPanel panel;
  for (const classic_question& classic : classic_questions()) {
    SCOPED_TRACE(classic.title);
    panel.set_question(classic.asked);
    EXPECT_EQ(panel.asked(), classic.asked);
  }
}

TEST_F(RecordBookTest, AnswersWhatIsPutTogetherAndTellsItAsASentence) {
  play_some();
  RecordBookWindow window(files(), history);
  window.show();
  choose_in(window, "from", "bowling");
  choose_in(window, "by_1", "team");
  choose_in(window, "sort", "wickets");
  choose_in(window, "field_1", "wickets");
  choose_in(window, "op_1", ">=");
  control<QLineEdit>(window, "value_1")->setText(QStringLiteral("2"));
  EXPECT_TRUE(sentence(window).startsWith(QLatin1String("Figures of bowlers with 2 or more wickets, summed by team")))
      << sentence(window).toStdString();
  const AnswerView& answered = answer_to_change(window);
  EXPECT_EQ(answer_csv(answered.told()), text({"query", "bowling", "--by", "team", "--where", "wickets>=2", "--sort",
                                               "wickets", "--descending", "--top", "15", "--csv"}));
  control<QLineEdit>(window, "value_1")->setText(QStringLiteral("two"));
  answer_to_change(window);
  EXPECT_EQ(control<QLabel>(window, "state")->text(), "No number for wickets \"two\"");
  EXPECT_FALSE(control<QPushButton>(window, "save_csv")->isEnabled());
}

TEST_F(RecordBookTest, KeepsAQuestionUnderAName) {
  play_some();
  {
    RecordBookWindow window(files(), history);
    window.show();
    choose_in(window, "from", "stands");
    EXPECT_FALSE(control<QPushButton>(window, "keep")->isEnabled());
    control<QLineEdit>(window, "question_name")->setText(QStringLiteral(" My stands "));
    press(window, "keep");
  }
  RecordBookWindow window(files(), history);
  window.show();
  choose(window, "My stands");
  EXPECT_TRUE(sentence(window).startsWith(QLatin1String("Stands"))) << sentence(window).toStdString();
  press(window, "forget");
  EXPECT_TRUE(
      control<QListWidget>(window, "questions")->findItems(QStringLiteral("My stands"), Qt::MatchExactly).isEmpty());
  EXPECT_FALSE(control<QPushButton>(window, "forget")->isEnabled());
  answer_of(window);
}

TEST_F(RecordBookTest, TellsOfAnArchiveWithoutMatches) {
  RecordBookWindow window(files(), history);
  window.show();
  answer_of(window);
  EXPECT_TRUE(control<QLabel>(window, "state")->text().startsWith(QLatin1String("No match stands in the archive yet")))
      << control<QLabel>(window, "state")->text().toStdString();
  check_window_at_sizes(window);
}

TEST_F(RecordBookTest, ShowsTheAnswerToTheLastQuestionAlone) {
  play_some();
  RecordBookWindow window(files(), history);
  window.show();
  for (const char* title : {"Highest totals", "Best figures", "Highest stands", "Grounds by matches"}) {
    choose(window, title);
  }
  const AnswerView& answered = answer_of(window);
  EXPECT_EQ(answered.told().columns.at(0).name, "ground");
  QTest::qWait(50);
  EXPECT_EQ(answered.told().columns.at(0).name, "ground");
}

TEST_F(RecordBookTest, LeadsOnAndStandsAsItWasLeft) {
  play_some();
  {
    RecordBookWindow window(files(), history);
    window.show();
    choose(window, "Most runs");
    TableView& table = answer_of(window).table();
    const QModelIndex cell = table.model()->index(3, 0);
    table.setCurrentIndex(cell);
    table.open_row(cell);
    EXPECT_TRUE(window.leads_on());
    EXPECT_FALSE(window.isVisible());
  }
  EXPECT_EQ(history.here().about.what, archive_subject::kind::player);
  EXPECT_FALSE(history.here().about.team.empty());
  history.go_back();
  RecordBookWindow window(files(), history);
  window.show();
  EXPECT_TRUE(sentence(window).contains(QLatin1String("summed by player and team")));
  EXPECT_EQ(answer_of(window).table().currentIndex().row(), 3);
  EXPECT_NE(window.forward(), nullptr);
}

}  // namespace
}  // namespace velorin::testing
