// SPDX-License-Identifier: GPL-3.0-or-later
#include "forecast/competition_forecast.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "competitions/game_state.h"
#include "competitions/next_match.h"
#include "competitions/world_cup_form.h"
#include "forecast/entered_matches.h"
#include "forecast/shared_runs.h"

namespace velorin {

namespace {

/// How often each team has reached each stage, [stage][team].
template <std::size_t Stages>
class stage_counts {
 public:
  explicit stage_counts(const std::vector<std::string>& teams) : teams_(&teams) {
    for (auto& stage : counts_) stage.resize(teams.size());
  }
  void reached(std::size_t stage, const std::string& team) {
    if (team.empty()) return;
    for (std::size_t i = 0; i < teams_->size(); ++i) counts_[stage][i] += (*teams_)[i] == team ? 1 : 0;
  }
  void add(const stage_counts& other) {
    for (std::size_t stage = 0; stage < Stages; ++stage) {
      for (std::size_t i = 0; i < teams_->size(); ++i) counts_[stage][i] += other.counts_[stage][i];
    }
    runs += other.runs;
  }
  double share(std::size_t stage, std::size_t team) const {
    return runs == 0 ? 0 : static_cast<double>(counts_[stage][team]) / static_cast<double>(runs);
  }

  long runs = 0;

 private:
  const std::vector<std::string>* teams_;
  std::array<std::vector<long>, Stages> counts_;
};

/// A thread's share of the runs: `Competition` plays one of them.
template <class Competition>
class share_of_runs {
 public:
  share_of_runs(const Competition& competition, const competition_world& world, std::uint64_t seed)
      : competition_(&competition), matches_(world), seed_(seed), counts_(competition.teams) {}

  void play(long run) {
    random_source chance;
    seed_run(chance, seed_, run);
    matches_.begin_run();
    matches_.play_in_progress(chance);
    competition_->finish(matches_, chance, counts_);
    ++counts_.runs;
  }
  const auto& counts() const { return counts_; }

 private:
  const Competition* competition_;
  entered_matches matches_;
  std::uint64_t seed_;
  stage_counts<Competition::stages> counts_;
};

template <class Competition>
stage_counts<Competition::stages> play_many(const Competition& competition, const competition_world& world,
                                            const forecast_options& options) {
  const auto shares = play_shared(options.runs, options.threads, options.stop,
                                  [&] { return share_of_runs<Competition>(competition, world, options.seed); });
  stage_counts<Competition::stages> sum(competition.teams);
  for (const auto& share : shares) sum.add(share.counts());
  return sum;
}

match_maker maker(entered_matches& matches, random_source& chance) {
  return [&](const entered_side& first, const entered_side& second, const std::string& ground) {
    matches.play(first, second, ground, chance);
  };
}

struct cup_to_finish {
  static constexpr std::size_t stages = 4;
  world_cup_record record;
  std::vector<std::string> teams;

  void finish(entered_matches& matches, random_source& chance, stage_counts<stages>& counts) const {
    world_cup_record cup = record;
    finish_world_cup(matches.match(), chance, cup, maker(matches, chance));
    for (std::size_t place = 1; place <= cup_super_six_places; ++place) counts.reached(0, cup.super_six[place].team);
    for (std::size_t semi = 1; semi <= cup_semi_finals; ++semi) {
      counts.reached(1, cup.semi_finals[semi].team_a);
      counts.reached(1, cup.semi_finals[semi].team_b);
    }
    counts.reached(2, cup.grand_final.team_a);
    counts.reached(2, cup.grand_final.team_b);
    counts.reached(3, cup.grand_final.winner);
  }
};

struct tri_to_finish {
  static constexpr std::size_t stages = 2;
  tri_record record;
  std::vector<std::string> teams;

  void finish(entered_matches& matches, random_source& chance, stage_counts<stages>& counts) const {
    tri_record tri = record;
    // Between two matches of a series whose final is over the result stands in the table alone.
    finish_tri_series(matches.match(), chance, tri, maker(matches, chance));
    counts.reached(0, tri.tri_table[1].note);
    counts.reached(0, tri.tri_table[2].note);
    counts.reached(1, winner_of_final(tri));
  }

  static std::string winner_of_final(const tri_record& tri) {
    // The note of the result begins with the winner's name and a blank; a tie has none.
    std::string winner;
    for (std::size_t i = 1; i <= tri_teams; ++i) {
      const std::string& team = tri.sides[i].team;
      if (tri.tri_table[3].note.starts_with(team + " ") && team.size() > winner.size()) winner = team;
    }
    return winner;
  }
};

/// A match of the list, played by itself.
class share_of_fixture {
 public:
  share_of_fixture(const competition_world& world, const entered_sides& sides, const std::string& ground,
                   std::uint64_t seed)
      : matches_(world), sides_(&sides), ground_(&ground), seed_(seed) {}

  void play(long run) {
    random_source chance;
    seed_run(chance, seed_, run);
    matches_.begin_run();
    matches_.play((*sides_)[0], (*sides_)[1], *ground_, chance);
    const match_result& result = matches_.match();
    for (std::size_t side = 0; side < 2; ++side) wins[side] += result.result_winner == (*sides_)[side].team ? 1 : 0;
    ++runs;
  }

  std::array<long, 2> wins{};
  long runs = 0;

 private:
  entered_matches matches_;
  const entered_sides* sides_;
  const std::string* ground_;
  std::uint64_t seed_;
};

/// A match whose result waits to be booked is none that is on.
bool is_match_on(bool entered, const match_state& match) { return entered && match.step != match_step::none; }

/// Stages that are known between two matches; none while one is on.
int settled_stages(const world_cup_record& cup) {
  if (cup.step == cup_step::match) return 0;
  const auto coming = next_match(cup);
  if (!coming) return cup_to_finish::stages;
  switch (coming->stage) {
    case match_stage::super_six:
      return 1;
    case match_stage::semi_finals:
      return 2;
    case match_stage::grand_final:
      return 3;
    default:
      return 0;
  }
}

int settled_stages(const tri_record& tri) {
  if (tri.step == tri_step::match) return 0;
  const auto coming = next_match(tri);
  if (!coming) return tri_to_finish::stages;
  return coming->stage == match_stage::tri_final ? 1 : 0;
}

}  // namespace

competition_forecast<cup_chances> forecast_cup(game_state& game, const forecast_options& options) {
  competition_forecast<cup_chances> forecast;
  cup_to_finish cup{game.world_cup, {}};
  if (cup.record.step == cup_step::none) return forecast;
  for (const auto* group : {&cup.record.chosen_a, &cup.record.chosen_b}) {
    cup.teams.insert(cup.teams.end(), group->begin(), group->end());
  }
  const bool entered = cup.record.step == cup_step::match;
  const competition_world world =
      world_of_competition(game.match, game.data, cup.teams, is_match_on(entered, game.match));
  const auto counts = play_many(cup, world, options);
  forecast.runs = counts.runs;
  forecast.settled = settled_stages(cup.record);
  for (std::size_t i = 0; i < cup.teams.size(); ++i) {
    forecast.teams.push_back(
        {cup.teams[i], counts.share(0, i), counts.share(1, i), counts.share(2, i), counts.share(3, i)});
  }
  return forecast;
}

competition_forecast<tri_chances> forecast_tri(game_state& game, const forecast_options& options) {
  competition_forecast<tri_chances> forecast;
  tri_to_finish tri{game.tri, {}};
  if (tri.record.step == tri_step::over) return forecast;
  for (std::size_t i = 1; i <= tri_teams; ++i) tri.teams.push_back(tri.record.sides[i].team);
  const bool entered = tri.record.step == tri_step::match;
  const competition_world world =
      world_of_competition(game.match, game.data, tri.teams, is_match_on(entered, game.match));
  const auto counts = play_many(tri, world, options);
  forecast.runs = counts.runs;
  forecast.settled = settled_stages(tri.record);
  for (std::size_t i = 0; i < tri.teams.size(); ++i) {
    forecast.teams.push_back({tri.teams[i], counts.share(0, i), counts.share(1, i)});
  }
  return forecast;
}

std::vector<fixture_chances> forecast_fixtures(game_state& game, const forecast_options& options) {
  std::vector<fixture_chances> found;
  const world_cup_record& cup = game.world_cup;
  if (cup.step == cup_step::none) return found;
  std::vector<std::string> teams(cup.chosen_a.begin(), cup.chosen_a.end());
  teams.insert(teams.end(), cup.chosen_b.begin(), cup.chosen_b.end());
  const competition_world world = world_of_competition(game.match, game.data, teams, false);
  for (int place = 1; place <= cup_last_fixture; ++place) {
    const cup_fixture& fixture = cup.fixtures[static_cast<std::size_t>(place)];
    const bool undrawn = place >= cup_first_super_six && !has_super_six(cup);
    if (undrawn || !fixture.result.empty()) continue;
    const auto sides = fixture_sides(cup, fixture);
    if (!sides || (*sides)[0].team.empty() || (*sides)[1].team.empty()) continue;
    const auto shares = play_shared(options.runs, options.threads, options.stop,
                                    [&] { return share_of_fixture(world, *sides, fixture.venue, options.seed); });
    std::array<long, 2> wins{};
    long runs = 0;
    for (const share_of_fixture& share : shares) {
      for (std::size_t side = 0; side < 2; ++side) wins[side] += share.wins[side];
      runs += share.runs;
    }
    if (runs < options.runs) break;
    const auto all = static_cast<double>(runs);
    found.push_back({place, static_cast<double>(wins[0]) / all, static_cast<double>(wins[1]) / all});
  }
  return found;
}

}  // namespace velorin
