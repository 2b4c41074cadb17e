// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/menu_actions.h"

#include <algorithm>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "browsers/forms/record_lists_window.h"
#include "browsers/forms/team_records_window.h"
#include "browsers/player_profile.h"
#include "browsers/record_lists.h"
#include "browsers/team_records.h"
#include "competitions/forms/series_window.h"
#include "competitions/forms/tri_series_window.h"
#include "competitions/forms/world_cup_window.h"
#include "competitions/resume_game.h"
#include "competitions/series.h"
#include "competitions/tri_series.h"
#include "competitions/world_cup_form.h"
#include "database/file_calls.h"
#include "database/forms/settings_window.h"
#include "database/lasting_records.h"
#include "database/settings_form.h"
#include "database/whole_file.h"
#include "desktop/message_window.h"
#include "desktop/program_end.h"
#include "desktop/shown_text.h"
#include "setup/forms/new_match_window.h"
#include "setup/forms/quick_match_window.h"
#include "setup/new_match.h"
#include "shell/browse.h"
#include "shell/credits_window.h"
#include "shell/jump_window.h"
#include "shell/qt_front_end.h"
#include "shell/saved_games_window.h"
#include "shell/watch_window.h"

namespace velorin::menu {

namespace {

/// Shows an open form in its window, unless it has closed itself as it opened. `given`: what the window takes before
/// the form.
template <class Window, class CoreForm, class... Given>
void show_form(CoreForm& form, Given&&... given) {
  if constexpr (requires { form.closed; }) {
    if (form.closed) return;
  }
  Window window(given..., form);
  // A form whose competition was left before its first match was over stands open again.
  do {
    run_modal(window);
  } while (window.isVisible());
}

/// The record lists, on the one of a form and mode.
void show_list(QtFrontEnd& shown_by, std::string_view form_id, int record_mode = 0) {
  record_lists_form form(shown_by.game().data);
  form.open(record_list_place(form_id, record_mode));
  show_form<RecordListsWindow>(form, shown_by, shown_by.game().data);
}

/// The lists of a group, one after the other.
void show_group(QtFrontEnd& shown_by, std::string_view group) {
  record_lists_form form(shown_by.game().data);
  form.open_group(group);
  show_form<RecordListsWindow>(form, shown_by, shown_by.game().data);
}

void show_team_records(QtFrontEnd& shown_by, team_records_form& form) {
  if (form.closed) return;
  const open_database& data = shown_by.game().data;
  TeamRecordsWindow window(shown_by, data, form);
  window.offer_page([&data](const std::string& team) { browse_man(data, team, {}); });
  run_modal(window);
}

/// Tells the front end that an activity is under way.
class UnderWay {
 public:
  UnderWay(QtFrontEnd& shown_by, Activity activity) : shown_by_(shown_by) { shown_by_.activity_begins(activity); }
  ~UnderWay() { shown_by_.activity_over(); }
  UnderWay(const UnderWay&) = delete;
  UnderWay& operator=(const UnderWay&) = delete;

 private:
  QtFrontEnd& shown_by_;
};

Activity activity_of(game_kind kind) {
  switch (kind) {
    case game_kind::match:
      return Activity::single_match;
    case game_kind::series:
      return Activity::series_of_two;
    case game_kind::tri_series:
      return Activity::series_of_three;
    case game_kind::world_cup:
      return Activity::cup;
  }
  return Activity::single_match;
}

}  // namespace

std::filesystem::path take_in(QtFrontEnd& shown_by, const std::filesystem::path& file) {
  try {
    const std::filesystem::path& folder = shown_by.keeper()->folder();
    std::error_code unlike;
    if (std::filesystem::equivalent(folder_of(file), folder, unlike)) return file;
    return copy_game_to(folder, file, file.stem().string());
  } catch (const run_time_error& fault) {
    MessageWindow told({"Error", fault.what()}, MessageWindow::Kind::failure);
    run_modal(told);
  }
  return {};
}

void go_on(QtFrontEnd& shown_by, const std::filesystem::path& game) {
  const kept_game kept = look_at_game(game);
  if (kept.over || kept.in_use || !kept.fault.empty()) {
    const std::string why = kept.over     ? "The game is over"
                            : kept.in_use ? "Another program plays this game"
                                          : kept.fault;
    MessageWindow told({"Error", why + (kept.fault.empty() ? " (" + file_name_text(game) + ")" : "")},
                       MessageWindow::Kind::failure);
    return run_modal(told);
  }
  const UnderWay under_way(shown_by, activity_of(kept.kind));
  if (!shown_by.keeper()->take_up(game)) return;
  shown_by.activity_goes_on();
  resume_game(shown_by.game(), shown_by.user());
}

void open(QtFrontEnd& shown_by, const std::filesystem::path& file) {
  // One that is over is watched where it is.
  if (const kept_game kept = look_at_game(file); kept.over && kept.fault.empty()) return watch(shown_by, file);
  const std::filesystem::path taken = take_in(shown_by, file);
  if (!taken.empty()) go_on(shown_by, taken);
}

void saved_games(QtFrontEnd& shown_by) {
  std::filesystem::path watched;
  do {
    std::filesystem::path chosen;
    {
      SavedGamesWindow window(*shown_by.keeper(), watched);
      run_modal(window);
      chosen = window.chosen();
      watched = window.watched();
    }
    if (!chosen.empty()) return go_on(shown_by, chosen);
    // Whoever has watched a game is back at the list.
    if (!watched.empty()) watch(shown_by, watched);
  } while (!watched.empty());
}

void new_match(QtFrontEnd& shown_by) {
  {
    const UnderWay under_way(shown_by, Activity::single_match);
    new_match_form form(shown_by.play());
    form.open();
    show_form<NewMatchWindow>(form, shown_by.game().match);
  }
  if (shown_by.take_rematch()) quick_match(shown_by);
}

void quick_match(QtFrontEnd& shown_by) {
  do {
    const UnderWay under_way(shown_by, Activity::single_match);
    new_match_form form(shown_by.play());
    form.open();
    QuickMatchWindow window(shown_by.game().match, form,
                            [&shown_by](QuickChoices choices) { shown_by.answer_set_up(std::move(choices)); });
    run_modal(window);
  } while (shown_by.take_rematch());
}

void new_series(QtFrontEnd& shown_by) {
  const UnderWay under_way(shown_by, Activity::series_of_two);
  game_state& game = shown_by.game();
  series_form form(shown_by.play(), game.series);
  form.open();
  show_form<SeriesWindow>(form, game.match, game.data);
}

void tri_series(QtFrontEnd& shown_by) {
  const UnderWay under_way(shown_by, Activity::series_of_three);
  game_state& game = shown_by.game();
  tri_series_form form(shown_by.play(), game.tri);
  form.open();
  show_form<TriSeriesWindow>(form, game.match, game.data);
}

void world_cup(QtFrontEnd& shown_by) {
  const UnderWay under_way(shown_by, Activity::cup);
  world_cup_form& form = shown_by.cup_form();
  form.show_again();
  if (form.closed) return;  // it has closed itself as it opened
  game_state& game = shown_by.game();
  WorldCupWindow window(game.match, game.data, game.world_cup, form);
  run_modal(window);
}

void player_profiles(QtFrontEnd& shown_by) {
  player_profile_form form(shown_by.game().data);
  form.open();
  form.offer_squads();
  front_end& user = shown_by;
  user.show(form);
}

void team_records(QtFrontEnd& shown_by) {
  team_records_form form(shown_by.game().data);
  form.open();
  show_team_records(shown_by, form);
}

void record_book(QtFrontEnd& shown_by) { browse(shown_by.game().data, {}); }
void world_rankings(QtFrontEnd& shown_by) { show_list(shown_by, "wldrank"); }
void totals(QtFrontEnd& shown_by, int record_mode) { show_list(shown_by, "totrecords", record_mode); }
void individual(QtFrontEnd& shown_by, int record_mode) { show_list(shown_by, "highinduv", record_mode); }
void players(QtFrontEnd& shown_by, int record_mode) { show_list(shown_by, "allrecs", record_mode); }
void century_makers(QtFrontEnd& shown_by) { show_list(shown_by, "centurytop"); }
void partnerships(QtFrontEnd& shown_by) { show_list(shown_by, "partnrec"); }
void all_batting(QtFrontEnd& shown_by) { show_group(shown_by, "Batting"); }
void all_bowling(QtFrontEnd& shown_by) { show_group(shown_by, "Bowling"); }

namespace {

/// The records of a team; the page with none chosen where its table does not have it.
void show_team(QtFrontEnd& shown_by, const std::string& team) {
  team_records_form form(shown_by.game().data);
  form.open();
  const auto found = std::find(form.teams.begin(), form.teams.end(), team);
  if (found != form.teams.end()) form.choose_team(static_cast<int>(found - form.teams.begin()));
  show_team_records(shown_by, form);
}

}  // namespace

void jump(QtFrontEnd& shown_by, bool at_menu) {
  const open_database& data = shown_by.game().data;
  std::vector<JumpTarget> targets;
  const auto add = [&](const char* name, std::function<void()> go) {
    targets.push_back({QString::fromLatin1(name), QStringLiteral("Page"), std::move(go)});
  };
  const auto page = [&](const char* name, void (*open)(QtFrontEnd&)) {
    add(name, [&shown_by, open] { open(shown_by); });
  };
  const auto list = [&](const char* name, void (*open)(QtFrontEnd&, int), int mode) {
    add(name, [&shown_by, open, mode] { open(shown_by, mode); });
  };
  if (at_menu) {
    page("Quick Match", quick_match);
    page("New Match", new_match);
    page("New Series", new_series);
    page("Tri Series", tri_series);
    page("World Cup", world_cup);
    page("Configurations", configurations);
    if (shown_by.keeper() != nullptr) {
      page("Saved Games", saved_games);
      for (const std::filesystem::path& file : game_files(shown_by.keeper()->folder())) {
        targets.push_back({QStringLiteral("Watch %1").arg(QString::fromStdString(file.stem().string())),
                           QStringLiteral("Saved game"), [&shown_by, file] { watch(shown_by, file); }});
      }
    }
  }
  page("Player Profiles", player_profiles);
  page("Team Records", team_records);
  page("World Rankings", world_rankings);
  page("Record Book", record_book);
  list("Highest Totals", totals, 1);
  list("Lowest Totals", totals, 0);
  list("Highest Individual Scores", individual, 1);
  list("Best Bowling Analysis", individual, 0);
  list("Most Runs Scored", players, 2);
  list("Highest Averages", players, 1);
  list("Highest Strike Rates", players, 3);
  list("% Innings 50 or More", players, 4);
  list("Most Wickets", players, 5);
  list("Best Economy Rates", players, 6);
  list("Best Bowling Averages", players, 7);
  page("Top Century Makers", century_makers);
  page("Record Partnerships", partnerships);
  add("Credits", [] { credits(); });
  const career_table careers = read_career_table(data);
  for (int t = 1; t <= careers.career_team_count; ++t) {
    const career_team_rec& team = careers.teams[static_cast<std::size_t>(t)];
    const std::string& name = team.team_name;
    targets.push_back({shown(name), QStringLiteral("Team"), [&shown_by, name] { show_team(shown_by, name); }});
    for (int p = 1; p <= team.player_count; ++p) {
      const std::string& man = team.players[static_cast<std::size_t>(p)].name;
      targets.push_back({shown(man), QStringLiteral("Player, %1").arg(shown(name)),
                         [&shown_by, name, man] { show_profile(shown_by, shown_by.game().data, name, man); }});
    }
  }
  JumpWindow window(std::move(targets));
  run_modal(window);
  if (const JumpTarget* target = window.chosen()) target->go();
}

void configurations(QtFrontEnd& shown_by) {
  settings_form form(shown_by.game().data);
  form.open();
  show_form<SettingsWindow>(form, shown_by.game().data);
}

void credits() {
  CreditsWindow window;
  run_modal(window);
}

}  // namespace velorin::menu
