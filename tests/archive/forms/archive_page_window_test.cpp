// SPDX-License-Identifier: GPL-3.0-or-later
#include "archive/forms/archive_page_window.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include "archive/archive_fixture.h"
#include "archive/forms/answer_view.h"
#include "desktop/line_chart.h"
#include "desktop/table_view.h"
#include "model/code_page.h"
#include "windows/robot.h"
#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

using kind = archive_subject::kind;

class ArchivePageWindowTest : public ArchiveTest {
 protected:
  void SetUp() override {
    ArchiveTest::SetUp();
    text({"--seed", "5", "match", "--update", "--matches", "8", "--quiet"});
    const archived_match last = *archive().match(archive().last_id());
    team_ = to_utf8(last.innings[0].team);
    other_ = to_utf8(last.innings[1].team);
    man_ = to_utf8(last.innings[0].batting.front().player);
    ground_ = to_utf8(last.ground);
    id_ = last.id;
  }

  static const AnswerView& answer_of(const QWidget& window) {
    const auto* view = window.findChild<AnswerView*>();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !view->is_waiting(); }, 20000));
    return *view;
  }
  static void choose(const QWidget& window, const char* title) {
    auto* list = control<QListWidget>(window, "sections");
    const auto found = list->findItems(QLatin1String(title), Qt::MatchExactly);
    ASSERT_EQ(found.size(), 1) << title;
    list->setCurrentItem(found.front());
  }
  archive_history at(archive_subject about) const { return archive_history({.about = std::move(about)}); }
  archive_subject man() const { return {.what = kind::player, .name = man_, .team = team_}; }

  std::string team_;
  std::string other_;
  std::string man_;
  std::string ground_;
  std::int64_t id_ = 0;
};

TEST_F(ArchivePageWindowTest, EachSectionOfEachPageIsAnswered) {
  for (const archive_subject& about :
       {man(), archive_subject{.what = kind::team, .name = team_},
        archive_subject{.what = kind::ground, .name = ground_}, archive_subject{.what = kind::match, .match = id_},
        archive_subject{.what = kind::two_teams, .name = team_, .other = other_}}) {
    archive_history history = at(about);
    ArchivePageWindow window(files(), history);
    window.show();
    const archive_page page = page_of(about);
    EXPECT_EQ(window.windowTitle(), QString::fromStdString(page.heading));
    auto* list = control<QListWidget>(window, "sections");
    ASSERT_EQ(list->count(), static_cast<int>(page.sections.size()));
    for (int i = 0; i < list->count(); ++i) {
      list->setCurrentRow(i);
      const page_section& section = page.sections[static_cast<std::size_t>(i)];
      EXPECT_EQ(answer_of(window).told().rows, section_answer(archive(), about, section).rows) << section.title;
      EXPECT_FALSE(answer_of(window).told().columns.empty()) << section.title;
    }
    if (about.what != kind::player) continue;
    list->setCurrentRow(0);
    answer_of(window);
    check_window_at_sizes(window);
  }
}

TEST_F(ArchivePageWindowTest, DrawsTheFormOfTheLastTenFromTheEarliestOn) {
  archive_history history = at({.what = kind::team, .name = team_});
  ArchivePageWindow window(files(), history);
  window.show();
  choose(window, "Last ten matches");
  const answer told = answer_of(window).told();
  const auto* chart = control<LineChartView>(window, "chart");
  ASSERT_GE(told.rows.size(), 2U);
  ASSERT_TRUE(chart->isVisible());
  const auto& points = chart->chart().lines.at(0).points;
  ASSERT_EQ(points.size(), told.rows.size());
  const auto runs = static_cast<std::size_t>(
      std::find_if(told.columns.begin(), told.columns.end(), [](const auto& each) { return each.name == "runs"; }) -
      told.columns.begin());
  EXPECT_EQ(points.back().y(), static_cast<double>(std::get<std::int64_t>(told.rows.front()[runs])));
  choose(window, "By opponent");
  answer_of(window);
  EXPECT_FALSE(chart->isVisible());
}

TEST_F(ArchivePageWindowTest, GoesBackAndForwardByKeysAndMouse) {
  archive_history history = at({.what = kind::ground, .name = ground_});
  history.go_to({.about = man()});
  history.go_to({.about = {.what = kind::team, .name = team_}});
  history.go_back();
  const auto leave = [&](const std::function<void(QWidget&)>& act) {
    ArchivePageWindow window(files(), history);
    window.show();
    answer_of(window);
    act(window);
    EXPECT_FALSE(window.isVisible());
    return window.leads_on();
  };
  EXPECT_TRUE(leave([](QWidget& window) { QTest::keyClick(&window, Qt::Key_Right, Qt::AltModifier); }));
  EXPECT_EQ(history.here().about.what, kind::team);
  EXPECT_TRUE(leave([](QWidget& window) { QTest::mouseClick(window.findChild<AnswerView*>(), Qt::BackButton); }));
  EXPECT_EQ(history.here().about.what, kind::player);
  EXPECT_TRUE(leave([](QWidget& window) { QTest::keyClick(&window, Qt::Key_Left, Qt::AltModifier); }));
  EXPECT_EQ(history.here().about.what, kind::ground);
  EXPECT_TRUE(leave(
      [](QWidget& window) { QTest::mouseClick(window.findChild<QListWidget*>()->viewport(), Qt::ForwardButton); }));
  EXPECT_EQ(history.here().about.what, kind::player);
  EXPECT_TRUE(leave([](QWidget& window) { QTest::keyClick(&window, Qt::Key_Escape); })) << "Escape goes back, too";
  EXPECT_FALSE(leave([](QWidget& window) { QTest::keyClick(&window, Qt::Key_Escape); })) << "from the first it leaves";
}

TEST_F(ArchivePageWindowTest, KeepsItsSectionForThoseWhoComeBack) {
  archive_history history = at(man());
  {
    ArchivePageWindow window(files(), history);
    window.show();
    choose(window, "Batting by opponent");
    TableView& table = answer_of(window).table();
    table.open_row(table.model()->index(0, 0));
  }
  EXPECT_EQ(history.here().about.what, kind::team);
  history.go_back();
  ArchivePageWindow window(files(), history);
  window.show();
  EXPECT_EQ(control<QLabel>(window, "section_title")->text(), "Batting by opponent");
  answer_of(window);
}

TEST_F(ArchivePageWindowTest, StandsOneTeamBesideAnother) {
  archive_history history = at({.what = kind::team, .name = team_});
  {
    ArchivePageWindow window(files(), history);
    window.show();
    press(window, "compare");
    EXPECT_TRUE(window.isVisible());
  }
  history.go_to({.about = {.what = kind::team, .name = other_}});
  ArchivePageWindow window(files(), history);
  window.show();
  EXPECT_EQ(control<QPushButton>(window, "compare")->text().remove(u'&'),
            QStringLiteral("Beside %1").arg(QString::fromStdString(team_)));
  press(window, "compare");
  EXPECT_TRUE(window.leads_on());
  EXPECT_EQ(history.here().about, (archive_subject{.what = kind::two_teams, .name = team_, .other = other_}));
}

}  // namespace
}  // namespace velorin::testing
