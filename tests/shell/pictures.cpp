// SPDX-License-Identifier: GPL-3.0-or-later
// Plays on a copy of the bundled database without a screen and takes the pictures of the README.
//   velorin-pictures FOLDER-OF-PICTURES FOLDER-OF-THE-DATABASE [light|dark|contrast] [WIDTH HEIGHT [GROUP...]]
// Without a group it takes them all.
#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <initializer_list>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "browsers/record_lists.h"
#include "competitions/world_cup.h"
#include "competitions/world_cup_form.h"
#include "database/configuration.h"
#include "desktop/frame.h"
#include "desktop/ground_picture.h"
#include "desktop/preferences.h"
#include "desktop/program_end.h"
#include "desktop/theme.h"
#include "engine/forms/forecast_bar.h"
#include "model/match_state.h"
#include "model/random.h"
#include "reports/forms/match_centre_window.h"
#include "shell/clicking_user.h"
#include "shell/filled_careers.h"
#include "shell/menu_window.h"
#include "shell/pictures.h"
#include "shell/qt_front_end.h"
#include "support/game_in_play.h"

namespace velorin::testing {

namespace {

QString folder;
std::vector<std::string> groups;  // all if empty
QSize size(1280, 800);

}  // namespace

void take(QWidget& form, const char* name) {
  QWidget& window = *form.window();
  for (int round = 0; round < 6; ++round) QApplication::processEvents();
  // A forecast is shown as it will stay.
  if (const auto* bar = window.findChild<ForecastBar*>(QStringLiteral("forecast_bar"))) {
    if (!QTest::qWaitFor([bar] { return !bar->is_waiting(); }, 30'000)) {
      std::fprintf(stderr, "no forecast in time: %s\n", name);
    }
    // Its words have to be laid out, and its parts to have come to their place.
    if (bar->isVisible()) QTest::qWait(600);
  }
  const QString path = QStringLiteral("%1/%2.png").arg(folder, QString::fromLatin1(name));
  if (!window.grab().save(path)) std::fprintf(stderr, "not written: %s\n", qPrintable(path));
}

void open(MenuWindow& menu, const char* panel, const char* entry) {
  press(menu, panel);
  press(menu, entry);
  menu.reject();
}

namespace {

/// Every view of the match centre, an over picked.
void picture_match_centre(QWidget& console, ClickingUser& user) {
  user.robot.next("matchcentre", [](QWidget& window) {
    auto* views = control<QListWidget>(window, "views");
    static_cast<MatchCentreWindow&>(window).pick_over(7);
    for (int view = 0; view < views->count(); ++view) {
      views->setCurrentRow(view);
      QTest::qWait(10);
      take(window, ("match-centre-" + std::to_string(view + 1)).c_str());
    }
    press(window, "accept");
  });
  press(console, "show_match_centre");
}

/// Bowls an over at a pace that can be followed. Keeps a small picture before it, one of each ball once all is in its
/// place, and one of the end.
void film_over(QWidget& console) {
  const std::filesystem::path frames = folder.toStdString() + "/film";
  std::filesystem::create_directories(frames);
  int number = 0;
  const auto keep = [&] {
    const QPixmap picture = console.window()->grab().scaledToWidth(800, Qt::SmoothTransformation);
    const QString name = QStringLiteral("%1.png").arg(number++, 2, 10, QLatin1Char('0'));
    picture.toImage()
        .convertToFormat(QImage::Format_RGB888)
        .save(QString::fromStdString(frames.string()) + u'/' + name);
  };
  constexpr int settled = 300;  // milliseconds after a ball was shown
  QTest::qWait(2000);           // for the first forecast; later ones replace it
  keep();
  const auto* chips = control<QWidget>(console, "over_symbols");
  QString shown = chips->accessibleName();
  QElapsedTimer since;
  QTimer clock;
  QObject::connect(&clock, &QTimer::timeout, &console, [&] {
    if (chips->accessibleName() != shown) {
      shown = chips->accessibleName();
      since.start();
    } else if (since.isValid() && since.elapsed() >= settled) {
      since.invalidate();
      keep();
    }
  });
  clock.start(10);
  preferences::set_pace(Pace::ball_by_ball);
  press(console, "next_over");
  preferences::set_pace(Pace::instant);
  clock.stop();
  QTest::qWait(settled);
  keep();
}

/// A match with a human side, seen in its second innings.
void picture_match(MenuWindow& menu) {
  chance.use_seed(7);
  ClickingUser user;
  user.robot.next("teamfrm", [](QWidget& window) {
    ClickingUser::choose_match(window, 0, 2, true, false);
    take(window, "new-match");
    press(window, "accept");
  });
  user.robot.next("wecond", [](QWidget& window) {
    take(window, "conditions");
    press(window, "accept");
  });
  user.robot.next("Teamsel", [](QWidget& window) {
    press(window, "auto_select");
    take(window, "selection");
    press(window, "accept_first_team");
  });
  bool taken = false;
  bool filmed = false;
  user.robot.always("main", [&](QWidget& window) {
    if (match.first_total == 0 && match.over_no == 12 && !filmed) {
      filmed = true;
      return film_over(window);
    }
    if (match.first_total == 0 || match.over_no < 31 || taken) return press(window, "next_over");
    taken = true;
    take(window, "console");
    user.robot.next("scorecard", [](QWidget& card) {
      take(card, "scorecard");
      press(card, "show_overs_graph");
    });
    user.robot.next("graphs", [](QWidget& overs_graph) {
      take(overs_graph, "graphs");
      press(overs_graph, "accept");
    });
    user.robot.next("scorecard", [](QWidget& card) { press(card, "show_worm_graph"); });
    user.robot.next("worms", [](QWidget& worm_graph) {
      take(worm_graph, "worms");
      press(worm_graph, "accept");
    });
    press(window, "show_scorecard");
    picture_match_centre(window, user);
  });
  user.robot.next("matchrep", [](QWidget& window) {
    take(window, "match-report");
    QWidget& frame = *window.window();
    frame.resize(1024, 768);
    take(window, "match-report-narrow");
    frame.resize(size.width(), 1330);
    take(window, "match-report-whole");
    frame.resize(size);
    press(window, "accept");
  });
  open(menu, "start_game", "new_match");
}

/// What opens from the menu by a press or a key, and sheets of a match.
void picture_sheets(MenuWindow& menu) {
  chance.use_seed(7);
  ClickingUser user;
  user.robot.next("quick", [](QWidget& window) {
    take(window, "quick-match");
    QTest::keyClick(window.focusWidget(), Qt::Key_F1);
    press(window, "accept");
  });
  user.robot.next("help", [](QWidget& window) {
    take(window, "help");
    press(window, "accept");
  });
  std::set<std::string> seen;
  user.robot.at_sight([&](QWidget& window) {
    const std::string name = window.objectName().toStdString();
    const bool sheet = name == "message" || name == "batorder" || name == "chgbowler" || name == "batsmandetails";
    if (sheet && match.over_no > 3 && seen.insert(name).second) take(window, ("sheet-" + name).c_str());
  });
  press(menu, "quick_match");
  user.robot.next("jump", [](QWidget& window) {
    QTest::keyClicks(control<QLineEdit>(window, "words"), QStringLiteral("h"));
    take(window, "jump");
    press(window, "cancel");
  });
  QTest::keyClick(menu.focusWidget(), Qt::Key_K, Qt::ControlModifier);
}

/// Results that lead to their reports.
void picture_results(MenuWindow& menu) {
  chance.use_seed(11);
  ClickingUser user;
  user.robot.next("series1", [](QWidget& window) {
    control<QLineEdit>(window, "matches")->setText("3");
    press(window, "accept");
  });
  user.robot.always("sri_result", [](QWidget& window) {
    take(window, "series-results");
    press(window, "accept");
  });
  open(menu, "start_game", "new_series");
  user.robot.next("series2", pressing("accept"));
  user.robot.always("triserresult", [](QWidget& window) {
    take(window, "tri-series-table");
    press(window, "accept");
  });
  open(menu, "start_game", "tri_series");
}

/// The console of a match with a human on each side, at several of its moments.
void picture_console(MenuWindow& menu) {
  chance.use_seed(11);
  ClickingUser user;
  user.robot.next("teamfrm", [](QWidget& window) {
    ClickingUser::choose_match(window, 1, 3, true, true);
    press(window, "accept");
  });
  struct Moment {
    const char* name;
    std::function<bool()> reached;
  };
  std::vector<Moment> moments = {
      {"console-first-ball", [] { return match.deliveries.empty(); }},
      {"console-first-over", [] { return match.over_no == 2; }},
      {"console-middle", [] { return match.over_no >= 26; }},
      {"console-end", [] { return match.over_no >= 47; }},
      {"console-chase-begins", [] { return match.first_total != 0; }},
      {"console-chase", [] { return match.first_total != 0 && match.over_no >= 21; }},
      {"console-late-chase",
       [] { return match.first_total != 0 && (match.over_no >= 44 || match.score_wickets >= 8); }},
  };
  std::size_t next = 0;
  user.robot.always("main", [&](QWidget& window) {
    while (next < moments.size() && moments[next].reached()) take(window, moments[next++].name);
    if (next == 3 && match.over_no == 27 && control<QWidget>(window, "choose_batting")->isVisible()) {
      press(window, "choose_batting");
      take(window, "console-middle-batting");
      press(window, "choose_attack");
    }
    press(window, "next_over");
  });
  open(menu, "start_game", "new_match");
}

/// A practice match at rest between two balls, with the menus of its two buttons.
void picture_practice(MenuWindow& menu) {
  chance.use_seed(11);
  ClickingUser user;
  user.robot.next("teamfrm", [](QWidget& window) {
    ClickingUser::choose_match(window, 1, 3, true, true);
    press(window, "practice");
    take(window, "new-match-practice");
    press(window, "accept");
  });
  const auto take_menu = [](QWidget& window, const char* button, const char* name) {
    press(window, button);
    auto* menu_of = control<QMenu>(window, (std::string(button) + "_menu").c_str());
    take(window, name);
    const QString path = QStringLiteral("%1/%2.png").arg(folder, QString::fromLatin1(name));
    menu_of->grab().save(path);
    menu_of->close();
  };
  bool taken = false;
  user.robot.always("main", [&](QWidget& window) {
    if (!taken && match.over_no > 2) {
      taken = true;
      press(window, "play_to");
      control<QMenu>(window, "play_to_menu")->actions().constFirst()->trigger();
      control<QMenu>(window, "play_to_menu")->close();
      QTest::qWait(10);
      take(window, "console-practice");
      take_menu(window, "play_to", "menu-play-to");
      take_menu(window, "take_back", "menu-take-back");
    }
    press(window, "next_over");
  });
  user.robot.next("matchrep", [](QWidget& window) {
    take(window, "match-report-practice");
    press(window, "accept");
  });
  open(menu, "start_game", "new_match");
}

void picture_world_cup(MenuWindow& menu) {
  chance.use_seed(5);
  ClickingUser user;
  user.robot.next("wctable", [](QWidget& window) {
    take(window, "world-cup");
    press(window, "accept");
  });
  int lists = 0;
  user.robot.always("wcsstab", [&](QWidget& window) {
    if (lists == 27) take(window, "world-cup-tables");
    press(window, "accept");
  });
  user.robot.always("wc_fix", [&](QWidget& window) {
    ++lists;
    if (lists == 14) take(window, "world-cup-fixtures");
    if (lists == 28) user.robot.next("quit_question", pressing("yes"));
    press(window, lists == 28 ? "quit" : "accept");
  });
  open(menu, "start_game", "world_cup");
}

void picture_profile(MenuWindow& menu) {
  ClickingUser user;
  user.robot.next("Sqdet", [](QWidget& window) {
    for (const char* name : {"teams", "players"}) {
      auto* list = control<QComboBox>(window, name);
      list->setCurrentIndex(1);
      emit list->activated(1);
    }
    take(window, "profile");
    auto* players = control<QComboBox>(window, "players");
    players->setCurrentIndex(players->count() - 1);
    emit players->activated(players->count() - 1);
    take(window, "profile-without-career");
    press(window, "accept");
  });
  open(menu, "other_records", "player_profiles");
}

void picture_record_lists(MenuWindow& menu) {
  ClickingUser user;
  user.robot.next("reclists", [](QWidget& window) {
    for (const record_list& list : every_record_list) {
      const std::string key = std::string(list.form) + "_" + std::to_string(list.record_mode);
      control<QRadioButton>(window, ("list_" + key).c_str())->click();
      take(window, ("records-" + key).c_str());
    }
    press(window, "accept");
  });
  open(menu, "batting_stats", "highest_totals");
}

void picture_settings(MenuWindow& menu) {
  ClickingUser user;
  user.robot.next("optfrm", [](QWidget& window) {
    take(window, "settings");
    press(window, "accept");
  });
  press(menu, "configurations");
}

struct Group {
  const char* name;
  void (*picture)(MenuWindow&);
};

/// Takes the groups that are wanted, with games kept in a folder or without.
void take_groups(const std::filesystem::path& games, std::initializer_list<Group> all) {
  QtFrontEnd shown_by(tested_game, games);
  const front_end_scope in_use(shown_by);
  Frame frame;
  MenuWindow menu(shown_by, &frame);
  frame.show();
  frame.resize(size);
  menu.show();
  QTimer::singleShot(0, &menu, [&] {
    menu.start();
    // The same hour in every run.
    menu.findChild<GroundPicture*>(QStringLiteral("picture"))->set_scene({QStringLiteral("Australia"), 16 * 60, 3});
    if (games.empty()) take(menu, "menu");
    for (const auto& [name, picture] : all) {
      if (groups.empty() || std::find(groups.begin(), groups.end(), name) != groups.end()) picture(menu);
    }
    end_program(0);
  });
  QApplication::exec();
  begin_again();
}

void take_all() {
  take_groups({}, {{"match", picture_match},
                   {"sheets", picture_sheets},
                   {"console", picture_console},
                   {"practice", picture_practice},
                   {"profile", picture_profile},
                   {"lists", picture_record_lists},
                   {"settings", picture_settings},
                   {"results", picture_results},
                   {"cup", picture_world_cup},
                   {"opening", picture_opening},
                   {"guide", picture_guide},
                   {"reports", picture_reports},
                   {"archive", picture_archive},
                   {"places", picture_places},
                   {"entries", picture_entries}});
  const QTemporaryDir games;
  take_groups(games.filePath(QStringLiteral("games")).toStdString(), {{"keeping", picture_keeping}});
}

}  // namespace
}  // namespace velorin::testing

int main(int argc, char** argv) {
  using namespace velorin;
  if (argc < 3) {
    std::fprintf(
        stderr,
        "usage: velorin-pictures FOLDER-OF-PICTURES FOLDER-OF-THE-DATABASE [light|dark|contrast] [WIDTH HEIGHT "
        "[GROUP...]]\n");
    return 2;
  }
  // The usual screen of the offscreen platform is smaller than some windows.
  const QTemporaryDir own;
  const std::string screen = own.filePath(QStringLiteral("screen.json")).toStdString();
  std::ofstream(screen) << R"({"screens": [{"name": "screen", "x": 0, "y": 0, "width": 4096, "height": 2304,)"
                        << R"( "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})";
  qputenv("QT_QPA_PLATFORM", QByteArray::fromStdString("offscreen:configfile=" + screen));
  ::testing::InitGoogleTest();
  QApplication application(argc, argv);
  preferences::use_file(own.filePath(QStringLiteral("preferences.ini")));
  preferences::set_moments(false);
  preferences::set_pace(Pace::instant);
  const std::string look = argc > 3 ? argv[3] : "light";
  apply_theme(look == "dark" ? Appearance::dark : look == "contrast" ? Appearance::high_contrast : Appearance::light);
  velorin::testing::folder = QString::fromLocal8Bit(argv[1]);
  if (argc > 5) velorin::testing::size = QSize(std::atoi(argv[4]), std::atoi(argv[5]));
  for (int i = 6; i < argc; ++i) velorin::testing::groups.emplace_back(argv[i]);
  std::filesystem::create_directories(argv[1]);
  const std::filesystem::path teams = own.filePath(QStringLiteral("teams")).toStdString();
  std::filesystem::create_directory(teams);
  const std::filesystem::path given(argv[2]);
  for (const char* name : {"world.team", "world.grd", "options.mc"}) {
    std::filesystem::copy_file(given / name, teams / name);
  }
  const bool played = std::filesystem::exists(given / "world.rec");
  for (const char* name : {"world.rec", "world.ptr"}) {
    if (played) std::filesystem::copy_file(given / name, teams / name);
  }
  if (std::filesystem::exists(given / "world.matches")) {
    std::filesystem::copy_file(given / "world.matches", teams / "world.matches");
  }
  data.files = database_paths(teams, "world");
  if (!played) velorin::testing::fill_careers();
  velorin::testing::take_all();
  return ::testing::UnitTest::GetInstance()->Failed() ? 1 : 0;
}
