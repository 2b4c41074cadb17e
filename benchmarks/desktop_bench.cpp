// SPDX-License-Identifier: GPL-3.0-or-later
// Measures the desktop game on a copy of the bundled database, without a screen: opening each window up to its first
// paint, an over at the instant pace with every refresh, a match of two computer sides. All of it happens once, as a
// user would come by it, and what was taken is told afterwards. VELORIN_TEAMS names the folder of the data files.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "competitions/series.h"
#include "competitions/world_cup.h"
#include "competitions/world_cup_form.h"
#include "database/configuration.h"
#include "desktop/frame.h"
#include "desktop/preferences.h"
#include "desktop/program_end.h"
#include "desktop/theme.h"
#include "model/match_state.h"
#include "model/random.h"
#include "setup/new_match.h"
#include "shell/clicking_user.h"
#include "shell/filled_careers.h"
#include "shell/menu_actions.h"
#include "shell/menu_window.h"
#include "shell/qt_front_end.h"
#include "support/game_in_play.h"

namespace velorin::testing {
namespace {

/// How long windows take from the press that asks for them to their first paint, in milliseconds, by name.
class OpeningTimes {
 public:
  /// Something has been pressed that opens a window.
  void asked() { clock_.start(); }
  /// The window is open: lets it paint and notes the time.
  void opened(const QWidget& window) {
    QApplication::processEvents();
    taken[window.objectName().toStdString()].push_back(static_cast<double>(clock_.nsecsElapsed()) / 1e6);
  }
  std::map<std::string, std::vector<double>> taken;

 private:
  QElapsedTimer clock_;
};

/// An answer that notes the opening of its window first, and starts the clock for what it opens.
template <class Request>
Robot::answer then_ask(OpeningTimes& times, Request request) {
  return [&times, request](QWidget& window) {
    times.opened(window);
    times.asked();
    request(window);
  };
}

void open_everything(OpeningTimes& times, QtFrontEnd& shown_by, ClickingUser& user) {
  for (const char* name : {"reclists", "teamdet", "Sqdet", "optfrm", "frmAbout"}) {
    user.robot.always(name, then_ask(times, [](QWidget& window) { press(window, "accept"); }));
  }
  for (const char* name : {"series1", "series2", "wctable"}) {
    user.robot.always(name, then_ask(times, [](QWidget& window) { press(window, "cancel"); }));
  }
  const std::vector<std::function<void()>> entries = {[&] { menu::all_batting(shown_by); },
                                                      [&] { menu::all_bowling(shown_by); },
                                                      [&] { menu::team_records(shown_by); },
                                                      [&] { menu::world_rankings(shown_by); },
                                                      [&] { menu::player_profiles(shown_by); },
                                                      [&] { menu::configurations(shown_by); },
                                                      [] { menu::credits(); },
                                                      [&] { menu::new_series(shown_by); },
                                                      [&] { menu::tri_series(shown_by); },
                                                      [&] { menu::world_cup(shown_by); }};
  for (const auto& entry : entries) {
    times.asked();
    entry();
  }
}

/// What is reckoned behind play while an over is bowled.
enum class Behind { nothing, forecast, adviser };

/// Turns forecast and adviser on or off, as their user would.
void set_behind(Behind behind, QWidget& console) {
  if (preferences::forecast() != (behind != Behind::nothing)) press(console, "forecast");
  preferences::set_adviser(behind == Behind::adviser);
}

/// Returns the milliseconds of the overs; what is reckoned behind them changes from over to over.
std::map<Behind, std::vector<double>> play_match(OpeningTimes& times, QtFrontEnd& shown_by, ClickingUser& user) {
  std::map<Behind, std::vector<double>> overs;
  int over = 0;
  QElapsedTimer clock;
  user.robot.next("teamfrm", then_ask(times, [](QWidget& window) {
                    ClickingUser::choose_match(window, 0, 2, true, false);
                    press(window, "accept");
                  }));
  user.robot.always("Teamsel", then_ask(times, [&times](QWidget& window) {
                      press(window, "auto_select");
                      times.asked();
                      press(window, match.first_team_done ? "accept_second_team" : "accept_first_team");
                    }));
  user.robot.always("toss", then_ask(times, [](QWidget& window) {
                      if (control<QAbstractButton>(window, "heads")->isVisible()) press(window, "heads");
                      press(window, control<QAbstractButton>(window, "bat")->isEnabled() ? "bat" : "bowl");
                    }));
  user.robot.always("batorder", then_ask(times, [](QWidget& window) {
                      choose_first_batsman(window);
                      press(window, "accept");
                    }));
  for (const char* name : {"wecond", "batsmandetails", "scorecard2", "Bowlcard", "bowlcard2nd", "partners", "partners2",
                           "graphs", "worms"}) {
    user.robot.always(name, then_ask(times, [](QWidget& window) { press(window, "accept"); }));
  }
  bool reports_read = false;
  bool console_seen = false;
  user.robot.always("main", [&](QWidget& window) {
    if (!console_seen) {
      console_seen = true;
      times.opened(window);
    }
    if (match.first_total != 0 && match.over_no == 20 && !reports_read) {
      reports_read = true;
      for (const char* report :
           {"show_bowling", "show_partnerships", "show_overs_graph", "show_worm_graph", "show_first_innings"}) {
        user.robot.next("scorecard", then_ask(times, [report](QWidget& card) { press(card, report); }));
      }
      user.robot.next("scorecard2", then_ask(times, [](QWidget& card) { press(card, "show_bowling"); }));
      user.robot.next("scorecard2", then_ask(times, [](QWidget& card) { press(card, "show_partnerships"); }));
      times.asked();
      press(window, "show_scorecard");
      return;
    }
    const std::size_t requests = user.robot.met().size();
    // What the over before has asked for is still under way.
    const auto behind = static_cast<Behind>(over++ / 2 % 3);
    if (over % 2 == 1) set_behind(behind, window);
    clock.start();
    times.asked();
    press(window, "next_over");
    // An over without a wicket, a milestone or the end of an innings: what counts is the over alone.
    if (window.isVisible() && user.robot.met().size() == requests) {
      window.repaint();
      if (over % 2 == 0) overs[behind].push_back(static_cast<double>(clock.nsecsElapsed()) / 1e6);
    }
  });
  times.asked();
  menu::new_match(shown_by);
  return overs;
}

/// A series of one match between two computer sides, in milliseconds.
double unattended_series(OpeningTimes& times, QtFrontEnd& shown_by, bool without_stopping, ClickingUser& user) {
  preferences::set_plays_without_stopping(QStringLiteral("series1"), without_stopping);
  user.robot.next("series1", then_ask(times, [](QWidget& window) { press(window, "accept"); }));
  QElapsedTimer clock;
  clock.start();
  times.asked();
  menu::new_series(shown_by);
  return static_cast<double>(clock.nsecsElapsed()) / 1e6;
}

/// Tells times that have been taken as a benchmark of one iteration for each; "slowest" in milliseconds.
void tell(const std::string& name, const std::vector<double>& taken) {
  benchmark::RegisterBenchmark(name.c_str(),
                               [taken](benchmark::State& state) {
                                 auto next = taken.begin();
                                 for (auto _ : state) state.SetIterationTime(*next++ / 1e3);
                                 state.counters["slowest"] = *std::max_element(taken.begin(), taken.end());
                               })
      ->UseManualTime()
      ->Unit(benchmark::kMillisecond)
      ->Iterations(static_cast<benchmark::IterationCount>(taken.size()));
}

void measure() {
  OpeningTimes times;
  QtFrontEnd shown_by(tested_game);
  const front_end_scope in_use(shown_by);
  times.asked();
  Frame frame;
  MenuWindow menu(shown_by, &frame);
  frame.show();
  menu.show();
  times.opened(menu);
  menu.start();
  chance.use_seed(7);
  ClickingUser user;
  open_everything(times, shown_by, user);
  const auto overs = play_match(times, shown_by, user);
  tell("over_with_every_refresh/without_forecast", overs.at(Behind::nothing));
  tell("over_with_every_refresh/with_forecast", overs.at(Behind::forecast));
  tell("over_with_every_refresh/with_adviser", overs.at(Behind::adviser));
  tell("unattended_series_with_stops", {unattended_series(times, shown_by, false, user)});
  tell("unattended_series_without_stops", {unattended_series(times, shown_by, true, user)});
  for (const auto& [name, taken] : times.taken) tell("open_window/" + name, taken);
  end_program(0);
}

}  // namespace
}  // namespace velorin::testing

int main(int argc, char** argv) {
  using namespace velorin;
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  const char* bundled = std::getenv("VELORIN_TEAMS");
  if (bundled == nullptr) {
    std::fprintf(stderr, "velorin-desktop-bench: VELORIN_TEAMS names no folder of data files\n");
    return 2;
  }
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  ::testing::InitGoogleTest();
  const QTemporaryDir own;
  QApplication application(argc, argv);  // writes the preferences when it goes: before the folder does
  preferences::use_file(own.filePath(QStringLiteral("preferences.ini")));
  preferences::set_pace(Pace::instant);
  apply_theme(Appearance::light);
  const std::filesystem::path teams = own.filePath(QStringLiteral("teams")).toStdString();
  std::filesystem::create_directory(teams);
  for (const char* name : {"world.team", "world.grd", "options.mc"}) {
    std::filesystem::copy_file(std::filesystem::path(bundled) / name, teams / name);
  }
  data.files = database_paths(teams, "world");
  velorin::testing::fill_careers();
  velorin::testing::measure();
  benchmark::RunSpecifiedBenchmarks();
  return ::testing::UnitTest::GetInstance()->Failed() ? 1 : 0;
}
