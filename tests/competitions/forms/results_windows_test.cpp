// SPDX-License-Identifier: GPL-3.0-or-later
#include <QLabel>

#include "competitions/competition_fixture.h"
#include "competitions/forms/series_results_window.h"
#include "competitions/forms/tri_series_table_window.h"
#include "competitions/series.h"
#include "competitions/tri_series.h"
#include "desktop/shown_text.h"
#include "desktop/table_view.h"
#include "support/game_in_play.h"
#include "windows/robot.h"
#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

class ResultsWindows : public CompetitionTest {
 protected:
  void SetUp() override {
    CompetitionTest::SetUp();
    add_teams({"Ardell", "Brava", "Corrin", "Dessa"});
  }

  /// Plays a series in which every showing passes through its window.
  void play_series(const std::string& matches) {
    user_.on_series_results.assign(10, [this](series_results_form& form) { show_series(form); });
    series_form form(in_play(), series);
    form.open();
    form.typed_matches = matches;
    form.accept();
  }
  void play_tri_series() {
    user_.on_tri_series_table.assign(16, [this](tri_series_table_form& form) { show_tri(form); });
    tri_series_form form(in_play(), tri);
    form.open();
    form.accept();
  }

  void show_series(series_results_form& form) {
    SeriesResultsWindow window(form);
    window.show();
    ++shown_;
    take_picture(window, ("sri_result_" + std::to_string(shown_)).c_str());
    check_window_at_sizes(window);
    EXPECT_EQ(window.windowTitle(), shown(form.heading));
    EXPECT_EQ(control<QLabel>(window, "heading")->text(), shown(form.heading));
    EXPECT_EQ(control<QLabel>(window, "standing_line")->text(), shown(form.standing_line));
    const Table& table = control<TableView>(window, "results")->table();
    ASSERT_EQ(table.rows.size(), form.rows.size());
    for (std::size_t i = 0; i < form.rows.size(); ++i) {
      EXPECT_EQ(table.rows[i].cells[0].text, shown(form.rows[i].match_and_ground));
      EXPECT_EQ(table.rows[i].cells[1].text, shown(form.rows[i].result));
    }
    last_line_ = control<QLabel>(window, "standing_line")->text();
    last_rows_ = static_cast<int>(table.rows.size());
    if (escape_) {
      window.reject();
    } else {
      press(window, "accept");
    }
    EXPECT_TRUE(form.closed);
    EXPECT_FALSE(window.isVisible());
  }

  void show_tri(tri_series_table_form& form) {
    TriSeriesTableWindow window(form);
    window.show();
    ++shown_;
    take_picture(window, ("triserresult_" + std::to_string(shown_)).c_str());
    check_window_at_sizes(window);
    EXPECT_EQ(window.windowTitle(), shown(form.title));
    EXPECT_EQ(control<QLabel>(window, "heading")->text(), shown(form.heading));
    EXPECT_EQ(control<QLabel>(window, "final_line")->text(), shown(form.final_line));
    EXPECT_EQ(control<QLabel>(window, "final_result")->text(), shown(form.final_result));
    const Table& table = control<TableView>(window, "table")->table();
    const QStringList headings = {"Team", "Played", "Won", "Lost", "Tied", "Pts", "Net RR"};
    ASSERT_EQ(table.columns.size(), 7U);
    ASSERT_EQ(table.rows.size(), 3U);
    for (std::size_t c = 0; c < 7; ++c) {
      EXPECT_EQ(table.columns[c].heading, headings[static_cast<int>(c)]);
      EXPECT_EQ(table.columns[c].numbers, c > 0);
      for (std::size_t r = 0; r < 3; ++r) EXPECT_EQ(table.rows[r].cells[c].text, shown(form.rows[r][c]));
    }
    last_line_ = control<QLabel>(window, "final_result")->text();
    press(window, "accept");
    EXPECT_TRUE(form.closed);
    EXPECT_FALSE(window.isVisible());
  }

  int shown_ = 0;
  int last_rows_ = -1;
  bool escape_ = false;
  QString last_line_;
};

TEST_F(ResultsWindows, ASeriesIsToldMatchByMatch) {
  play_series("10");
  EXPECT_EQ(shown_, 10);
}

TEST_F(ResultsWindows, ASeriesEndsWithItsWinner) {
  force({1, 2, 1});
  escape_ = true;
  play_series("3");
  EXPECT_EQ(last_rows_, 3);
  EXPECT_EQ(last_line_, "Brava wins the series 2 - 1");
  EXPECT_FALSE(series.series_over) << "Escape presses OK, which clears the record";
}

TEST_F(ResultsWindows, ATieLeavesTheListEmpty) {
  force({0});
  play_series("1");
  EXPECT_EQ(last_rows_, 0);
  EXPECT_EQ(last_line_, "The series is tied 0 - 0");
}

TEST_F(ResultsWindows, ATriSeriesIsToldToItsFinal) {
  force({1, 1, 2, 1}, 0.125);
  play_tri_series();
  EXPECT_EQ(shown_, 4);
  EXPECT_EQ(last_line_, "Brava   won by  7  runs");
}

TEST_F(ResultsWindows, ATiedFinalHasNoWinner) {
  force({1, 1, 2, 0});
  play_tri_series();
  EXPECT_EQ(last_line_, " Match tied.");
}

}  // namespace
}  // namespace velorin::testing
