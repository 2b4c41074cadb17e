// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/replay.h"

#include <fmt/format.h>

#include <utility>

#include "competitions/series.h"
#include "competitions/tri_series.h"
#include "competitions/world_cup_fixtures.h"
#include "competitions/world_cup_form.h"
#include "competitions/world_cup_tables.h"
#include "console/captain_forms.h"
#include "database/elevens.h"
#include "database/teams_file.h"
#include "engine/over_play.h"
#include "model/run_time_error.h"
#include "reports/match_report.h"
#include "reports/partnerships.h"
#include "reports/worm_graph.h"
#include "setup/conditions.h"
#include "setup/new_match.h"
#include "setup/team_selection.h"
#include "setup/toss.h"
#include "ui/front_end.h"
#include "ui/match_play.h"

namespace velorin {

namespace {

/// Leaves the game where it stands. No error: play can be gone on with from there.
struct play_left {
  replay_end where;
};

/// Answers the game as the recording has it.
class recorded_user : public front_end {
 public:
  recorded_user(const recording& recorded, const std::string& name, game_state& game, const replay_options& options)
      : recorded_(recorded), name_(name), game_(game), options_(options) {}

  void show(const message_box& message) override {
    // Before the first entry a form may refuse what was entered; nothing of it was recorded.
    need(answer_kind::read);
    if (options_.watcher != nullptr) options_.watcher->show(message);
    ++next_;
  }
  save_answer answer(const failed_save&) override { return save_answer::give_up; }

  void show(conditions_form& form) override {
    const captain_answer answer = take(answer_kind::conditions, answer_kind::left);
    if (answer.kind == answer_kind::left) return form.leave();
    const auto level = [&](int i) { return static_cast<int>(answer.first >> 4 * i & 0xF); };
    form.weather = in_range(level(0), 1, 4);
    form.pitch_surface = in_range(level(1), 1, 4);
    form.pitch_bounce = in_range(level(2), 1, 4);
    form.outfield = in_range(level(3), 1, 4);
    form.accept();
  }

  void show(team_selection_form& form) override {
    const captain_answer answer = take(answer_kind::selection, answer_kind::left);
    if (answer.kind == answer_kind::left) return form.leave();
    for (std::size_t place = 1; place < form.ticks.size(); ++place) {
      form.ticks[place] = (answer.first >> place & 1) != 0 && form.row_visible(static_cast<int>(place));
    }
    form.accept();
    if (!form.closed) raise_unfit();
  }

  void show(toss_form& form) override {
    while (!form.closed) {
      const captain_answer answer = take();
      switch (answer.kind) {
        case answer_kind::toss_call:
          form.call_coin(static_cast<int>(answer.first));
          break;
        case answer_kind::toss_bat:
          form.choose_to_bat();
          break;
        case answer_kind::toss_bowl:
          form.choose_to_bowl();
          break;
        case answer_kind::left:
          form.leave();
          break;
        default:
          raise_unfit();
      }
    }
  }

  void show(next_batsman_form& form) override {
    const captain_answer answer = take(answer_kind::next_batsman);
    if (answer.first != 0) form.choose(in_range(static_cast<int>(answer.first), 1, men_in_eleven));
    form.aggression = in_range(static_cast<int>(answer.second), least_aggression, most_aggression);
    form.accept();
  }

  void show(bowler_choice_form& form) override {
    const captain_answer answer = take(answer_kind::bowler);
    if (answer.first != 0) form.choose(in_range(static_cast<int>(answer.first), 1, men_in_eleven));
    if (answer.second != 0) form.accept();
  }

  void show(aggression_form& form) override {
    const captain_answer answer = take(answer_kind::aggression);
    if (answer.first == 0) return;
    form.aggression = in_range(static_cast<int>(answer.first), least_aggression, most_aggression);
    form.accept();
  }

  void show(batsman_details_form&) override { take(answer_kind::read); }

  void show(console_form& form) override {
    if (options_.waits) options_.waits(game_);
    try {
      while (!form.closed()) act(form, take());
    } catch (...) {
      if (options_.console_left) options_.console_left(form);
      throw;
    }
  }
  void over_bowled() override {
    if (options_.waits) options_.waits(game_);
  }

  void ball_bowled() override {
    if (options_.watcher != nullptr) options_.watcher->ball_bowled();
    if (options_.stops_at && options_.stops_at(game_)) throw play_left{replay_end::stopped};
    if (game_.match.human_involved()) stop_at_end();
  }

  void progress(int over) override {
    stop_at_end();
    take_check(!is_always_checked(over));
    if (options_.watcher != nullptr) options_.watcher->progress(over);
    if (options_.stops_at && options_.stops_at(game_)) throw play_left{replay_end::stopped};
    stop_at_end();
  }
  void progress_done() override {
    if (options_.watcher != nullptr) options_.watcher->progress_done();
  }

  void open(report which) override {
    // The worm and the graph of overs are opened by nobody here, and a card only where play stops.
    captain_answer answer = take();
    if (options_.watcher != nullptr) options_.watcher->open(which);
    for (; answer.kind == answer_kind::looked; answer = take()) look(answer.first);
    if (answer.kind != answer_kind::read) raise_unfit();
  }

  void show(match_report_form&) override { take(answer_kind::read); }
  void show(player_profile_form&) override {}
  void show(player_rankings_form&) override {}

  void show(series_results_form& form) override {
    take(answer_kind::read);
    if (options_.watcher != nullptr) return options_.watcher->show(form);
    form.accept();
  }
  void show(tri_series_table_form& form) override {
    take(answer_kind::read);
    if (options_.watcher != nullptr) return options_.watcher->show(form);
    form.accept();
  }
  void show(world_cup_fixtures_form& form) override {
    const captain_answer answer = take(answer_kind::read, answer_kind::quit_cup);
    if (answer.kind == answer_kind::quit_cup) return form.quit();
    if (options_.watcher != nullptr) return options_.watcher->show(form);
    form.accept();
  }
  void show(world_cup_tables_form& form) override {
    take(answer_kind::read);
    if (options_.watcher != nullptr) return options_.watcher->show(form);
    form.accept();
  }

  std::string saves_match() override {
    take_check();
    if (options_.match_ends) options_.match_ends(game_);
    if (next_ >= recorded_.events.size()) throw play_left{replay_end::open};
    if (!std::holds_alternative<recorded_saving>(recorded_.events[next_])) raise_unfit();
    ++next_;
    return {};
  }

  /// Nothing follows in the recording.
  bool at_end() const { return next_ >= recorded_.events.size(); }

 private:
  bool goes_on(std::size_t event) const {
    return event < recorded_.events.size() &&
           recorded_.events[event] == recorded_event(captain_answer{answer_kind::go_on});
  }

  /// Where nothing follows in the recording, play stops: here it broke off. An over that was gone on with, and broke
  /// off again before its next ball, is nothing either.
  void stop_at_end() const {
    std::size_t next = next_;
    while (in_call_ && goes_on(next)) ++next;
    if (next >= recorded_.events.size() && game_.chance.left() == 0) throw play_left{replay_end::open};
  }

  [[noreturn]] void raise_unfit() const {
    throw run_time_error(failure::file,
                         fmt::format("The recording does not fit to the game at its event {}: it was made by another "
                                     "version of the program, or is damaged",
                                     next_ + 1),
                         {.file = name_, .record = 0, .field = {}, .player = {}});
  }

  int in_range(int value, int least, int most) const {
    if (value < least || value > most) raise_unfit();
    return value;
  }

  /// Holds play against a check that stands here. `or_later`: it may be one of a later over; that over finds out.
  void take_check(bool or_later = false) {
    if (at_end()) return;
    const auto* check = std::get_if<recorded_check>(&recorded_.events[next_]);
    if (check == nullptr) return;
    if (*check != check_of(game_.match)) {
      if (or_later) return;
      raise_unfit();
    }
    ++next_;
  }

  /// The next answer. Leaves play where there is none.
  const captain_answer& peek() {
    // What the recording went on with after it had been left here is still on the way in this call.
    for (; in_call_ && goes_on(next_); ++next_) rest_of_over_ = true;
    take_check();
    if (at_end()) {
      // Chance that nobody has used tells that play went another way.
      if (game_.chance.left() != 0) raise_unfit();
      throw play_left{replay_end::open};
    }
    // What is kept of a competition up to one of its matches ends before the next question.
    if (std::holds_alternative<recorded_end>(recorded_.events[next_]) && next_ > 0 &&
        recorded_.events[next_ - 1] == recorded_event(recorded_saving{})) {
      throw play_left{replay_end::over};
    }
    const auto* answer = std::get_if<captain_answer>(&recorded_.events[next_]);
    if (answer == nullptr) raise_unfit();
    return *answer;
  }
  captain_answer take() {
    const captain_answer answer = peek();
    ++next_;
    return answer;
  }
  captain_answer take(answer_kind one, answer_kind other) {
    const captain_answer answer = take();
    if (answer.kind != one && answer.kind != other) raise_unfit();
    return answer;
  }
  captain_answer take(answer_kind kind) { return take(kind, kind); }
  void need(answer_kind kind) {
    if (peek().kind != kind) raise_unfit();
  }

  void look(std::uint32_t which) {
    if (which == static_cast<std::uint32_t>(report::partnerships)) {
      partnerships_form(game_.match).open();
    } else if (which == static_cast<std::uint32_t>(report::first_partnerships)) {
      first_partnerships_form(game_.match).open();
    } else if (which == static_cast<std::uint32_t>(report::worm_graph)) {
      worm_graph_form(game_.match).open();
    } else {
      raise_unfit();
    }
  }

  /// A dialog that the user had opened is answered. One that was open as the game broke off is gone, and the console
  /// waits for him again.
  bool is_answered(answer_kind kind) const {
    const auto* answer = at_end() ? nullptr : std::get_if<captain_answer>(&recorded_.events[next_]);
    return answer != nullptr && answer->kind == kind;
  }

  void act(console_form& form, const captain_answer& answer) {
    const int first = in_range(static_cast<int>(answer.first), 0, 0xFFFF);
    const int second = in_range(static_cast<int>(answer.second), 0, 0xFFFF);
    switch (answer.kind) {
      case answer_kind::next_over:
      case answer_kind::go_on:
        in_call_ = true;
        form.bowl_next_over();
        in_call_ = false;
        while (goes_on(next_)) ++next_;
        return;
      case answer_kind::next_ball:
        in_call_ = true;
        rest_of_over_ = false;
        form.bowl_ball();
        in_call_ = false;
        if (rest_of_over_ && form.has_over_in_play()) act(form, {answer_kind::go_on});
        return;
      case answer_kind::take_back:
        return form.take_back(static_cast<taken_back>(in_range(first, 0, 1)),
                              static_cast<luck>(in_range(second, 0, 1)));
      case answer_kind::change_bowler:
        return is_answered(answer_kind::bowler) ? form.change_bowler() : void();
      case answer_kind::change_batsman_aggression:
        return is_answered(answer_kind::aggression) ? form.change_batsman_aggression(in_range(first, 0, 1)) : void();
      case answer_kind::change_bowler_aggression:
        return is_answered(answer_kind::aggression) ? form.change_bowler_aggression(in_range(first, 0, 1)) : void();
      case answer_kind::set_batsman_aggression:
        return form.set_batsman_aggression(in_range(first, 0, 1), second);
      case answer_kind::set_bowler_aggression:
        return form.set_bowler_aggression(in_range(first, 0, 1), second);
      case answer_kind::choose_bowler:
        return form.choose_bowler(first);
      case answer_kind::browse_over:
        return form.browse_over(first);
      case answer_kind::looked:
        return look(answer.first);
      default:
        raise_unfit();
    }
  }

  const recording& recorded_;
  const std::string& name_;
  game_state& game_;
  const replay_options& options_;
  std::size_t next_ = 0;
  bool in_call_ = false;       // an over or a ball is being bowled
  bool rest_of_over_ = false;  // and, of a ball, the over is to be gone on with
};

[[noreturn]] void raise_unknown_team(const std::string& name, const entered_team& team) {
  throw run_time_error(failure::file, "The recording has no squad of a team that it names",
                       {.file = name, .record = team.record, .field = {}, .player = team.name});
}

void require_teams(const recording& recorded, const std::string& name, std::size_t count) {
  const entered_game& game = recorded.beginning.game;
  if (game.teams.size() != count) {
    throw run_time_error(failure::file, fmt::format("The recording names {} teams, not {}", game.teams.size(), count),
                         {.file = name, .record = 1, .field = {}, .player = {}});
  }
}

/// Its place in a list of teams, by its number in the file; -1 for none.
int place_of(const recording& recorded, const std::string& name, const entered_team& team) {
  if (team.name.empty()) return -1;
  for (const auto& [number, rec] : recorded.beginning.teams) {
    if (number == team.record && rec.team_name == team.name) return number - 2;
  }
  raise_unknown_team(name, team);
}

void play_match(const recording& recorded, const std::string& name, const match_play& play) {
  require_teams(recorded, name, 2);
  const entered_game& entered = recorded.beginning.game;
  new_match_form form(play);
  form.open();
  form.first_team_index = place_of(recorded, name, entered.teams[0]);
  form.second_team_index = place_of(recorded, name, entered.teams[1]);
  form.grounds = {entered.ground};
  form.ground_index = 0;
  form.practice = entered.number == 1;
  form.computer_captains_first = !entered.teams[0].human;
  form.computer_captains_second = !entered.teams[1].human;
  form.accept();
}

void play_series(const recording& recorded, const std::string& name, const match_play& play, series_record& series) {
  require_teams(recorded, name, 2);
  const entered_game& entered = recorded.beginning.game;
  series_form form(play, series);
  form.open();
  form.choose_home(place_of(recorded, name, entered.teams[0]));
  form.choose_away(place_of(recorded, name, entered.teams[1]));
  form.set_matches(entered.number);
  form.computer_captains_home = !entered.teams[0].human;
  form.computer_captains_away = !entered.teams[1].human;
  form.accept();
}

void play_tri(const recording& recorded, const std::string& name, const match_play& play, tri_record& tri) {
  require_teams(recorded, name, tri_teams);
  const entered_game& entered = recorded.beginning.game;
  tri_series_form form(play, tri);
  form.open();
  for (std::size_t i = 0; i < tri_teams; ++i) {
    form.choose_team(static_cast<int>(i), place_of(recorded, name, entered.teams[i]));
    form.computer_captains[i] = !entered.teams[i].human;
  }
  form.set_rounds(entered.number);
  form.accept();
}

void play_cup(const recording& recorded, const std::string& name, const match_play& play, world_cup_record& cup) {
  require_teams(recorded, name, 2 * cup_group_teams);
  const entered_game& entered = recorded.beginning.game;
  if (entered.hosts.size() != cup_hosts) {
    throw run_time_error(failure::file,
                         fmt::format("The recording names {} hosts, not {}", entered.hosts.size(), cup_hosts),
                         {.file = name, .record = 1, .field = {}, .player = {}});
  }
  world_cup_form form(play, cup);
  form.teams = list_teams(play.data);
  for (std::size_t i = 0; i < cup_group_teams; ++i) {
    form.group_a_index[i] = place_of(recorded, name, entered.teams[i]);
    form.group_b_index[i] = place_of(recorded, name, entered.teams[i + cup_group_teams]);
    form.human_a[i] = entered.teams[i].human;
    form.human_b[i] = entered.teams[i + cup_group_teams].human;
  }
  // A host need not play: his name is all that counts.
  for (std::size_t i = 0; i < cup_hosts; ++i) {
    form.host_index[i] = -1;
    if (entered.hosts[i].empty()) continue;
    form.host_index[i] = static_cast<int>(form.teams.size());
    form.teams.push_back({entered.hosts[i], 0});
  }
  form.accept();
}

}  // namespace

game_state game_at_beginning(const recording& recorded) {
  const recorded_beginning& begun = recorded.beginning;
  game_state game;
  std::vector<team_rec> teams;
  for (const auto& [number, team] : begun.teams) {
    const auto place = static_cast<std::size_t>(std::max(2, std::min(number, team_limit + 1)) - 2);
    if (teams.size() <= place) teams.resize(place + 1);
    teams[place] = team;
  }
  hold_teams_and_grounds(game.data, std::move(teams), begun.grounds);
  game.data.settings.text_color = begun.text_color;
  game.data.settings.back_color = begun.back_color;
  game.data.files.updates = false;
  game.data.files.elevens_in_memory = true;
  switch (begun.chance) {
    case random_source::kind::seed:
      game.chance.use_state(begun.chance_state, recorded.readings);
      break;
    case random_source::kind::script:
      game.chance.use_script(recorded.draws, "recording");
      break;
    case random_source::kind::clock:
    case random_source::kind::readings:
      game.chance.use_readings(begun.chance_state, recorded.readings);
      break;
  }
  static_cast<match_worms&>(game.match) = begun.standing.worms;
  if (begun.standing.world_cup) game.world_cup = *begun.standing.world_cup;
  return game;
}

replay_end replay(const recording& recorded, const std::string& name, game_state& game, const replay_options& options) {
  recorded_user user(recorded, name, game, options);
  const match_play play{game.match, game.chance, user, game.data};
  try {
    switch (recorded.beginning.game.kind) {
      case game_kind::match:
        play_match(recorded, name, play);
        break;
      case game_kind::series:
        play_series(recorded, name, play, game.series);
        break;
      case game_kind::tri_series:
        play_tri(recorded, name, play, game.tri);
        break;
      case game_kind::world_cup:
        play_cup(recorded, name, play, game.world_cup);
        break;
    }
  } catch (const play_left& left) {
    return left.where;
  } catch (const run_time_error&) {
    // It broke off between what seeded chance and the next that was shown.
    if (user.at_end() && game.chance.ran_out()) return replay_end::open;
    throw;
  }
  return replay_end::over;
}

std::optional<game_state> game_to_continue(const recording& recorded, const std::string& name,
                                           const open_database& data, practice_history* remembered) {
  if (recorded.ended()) return std::nullopt;
  game_state game = game_at_beginning(recorded);
  // Where it broke off before what play drew was shown, play draws anew, up to the next that is. Of a seeded match of
  // practice that is the reading for fresh luck.
  game.chance.let_clock_follow();
  std::optional<random_source> chance;  // with what it keeps for a match of practice, and forgets as that is left
  replay_options options;
  options.console_left = [&](const console_form& form) {
    if (remembered == nullptr || !game.match.practice) return;
    *remembered = form.remembered();
    chance = game.chance;
  };
  if (replay(recorded, name, game, options) == replay_end::over) return std::nullopt;
  if (chance) game.chance = *std::move(chance);
  const elevens_held held = game.data.held;
  game.data = data;
  game.chance.go_on_by_clock();
  const match_step step = game.match.step;
  const bool first = step == match_step::second_selection || step == match_step::toss_call || step == match_step::toss;
  const bool both = step == match_step::toss_call || step == match_step::toss;
  if (first) write_eleven(game.data, side::first, held.of(side::first));
  if (both) write_eleven(game.data, side::second, held.of(side::second));
  return game;
}

bool stands_at(const match_state& match, innings_place place) {
  return match.innings_number == place.innings && match.innings_balls == place.balls;
}

}  // namespace velorin
