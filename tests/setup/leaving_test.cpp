// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>

#include "database/elevens.h"
#include "engine/over_play.h"
#include "model/match_state.h"
#include "model/random.h"
#include "setup/conditions.h"
#include "setup/new_match.h"
#include "setup/team_selection.h"
#include "setup/toss.h"
#include "support/game_in_play.h"
#include "support/scripted_user.h"
#include "support/small_database.h"

// A user who leaves a match at a step of its set-up: nothing of it is kept.

namespace velorin::testing {
namespace {

using ::testing::IsEmpty;

enum class step { conditions, first_selection, second_selection, coin, decision };

class Leaving : public ::testing::TestWithParam<std::tuple<step, bool>> {
 protected:
  void SetUp() override {
    match = match_state();
    chance.use_seed(1);
    data.files.elevens_in_memory = std::get<1>(GetParam());
    for (const char* name : {"Alpha", "Beta", "Gamma"}) database_.add_team(name);
    database_.add_ground("Beta", "Green Lane", 2, 4);
    database_.add_ground("Gamma", "Hill Road", 1, 3);
    database_.add_ground("Neutral", "Halfway Field");
    database_.write();
    user_.on_ball = [this] { played_ = match; };
  }

  void leave_at(step where) {
    switch (where) {
      case step::conditions:
        user_.on_conditions.push_back([](conditions_form& form) { form.leave(); });
        break;
      case step::second_selection:
        user_.on_team_selection.push_back([this](team_selection_form& form) { user_.headless_user::show(form); });
        [[fallthrough]];
      case step::first_selection:
        user_.on_team_selection.push_back([](team_selection_form& form) { form.leave(); });
        break;
      case step::decision:
        user_.on_toss.push_back([](toss_form& form) {
          form.call_coin(0);
          form.leave();
        });
        break;
      case step::coin:
        user_.on_toss.push_back([](toss_form& form) { form.leave(); });
    }
  }

  static new_match_form new_match() {
    new_match_form form(in_play());
    form.open();
    form.computer_captains_first = form.computer_captains_second = false;
    return form;
  }

  std::string play(std::uint64_t seed) {
    chance.use_seed(seed);
    new_match_form form = new_match();
    form.accept();
    EXPECT_FALSE(form.left);
    std::string told = match.result_winner + match.result_margin + match.result_ground;
    for (const message_box& message : user_.messages) told += message.title + message.text;
    user_.messages.clear();
    return told;
  }

  std::map<std::string, std::string> scratch_files() const {
    std::map<std::string, std::string> bytes;
    for (const char* name : {"team1r.txt", "team2r.txt", "dummy.txt"}) {
      std::ifstream in(database_.folder() / name, std::ios::binary);
      if (in) bytes[name] = {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    }
    return bytes;
  }

  static void expect_blank_match() {
    EXPECT_EQ(match.team1_name + match.team2_name, "");
    EXPECT_EQ(match.ground.ground_name + match.ground.country, "");
    EXPECT_EQ(match.weather + match.outfield + match.ground.pitch_bounce, 0);
    EXPECT_EQ(match.selected[0][1].name + match.selected[1][1].name, "");
    EXPECT_EQ(match.squads[0][1].name + match.squads[1][1].name, "");
    EXPECT_EQ(match.batting_xi[1].name + match.bowling_xi[1].name, "");
    EXPECT_EQ(match.team_count, 0);
    EXPECT_FALSE(match.first_team_done);
    EXPECT_FALSE(match.elevens_exchanged);
    EXPECT_FALSE(match.console_open);
    EXPECT_TRUE(match.computer_bats && match.computer_bowls);
  }

  small_database database_;
  scripted_user user_;
  front_end_scope shown_{user_};
  match_state played_;
};

TEST_P(Leaving, NothingIsKeptOfTheFirstMatch) {
  leave_at(std::get<0>(GetParam()));
  new_match_form form = new_match();
  form.accept();
  EXPECT_TRUE(form.left);
  EXPECT_FALSE(form.visible);
  EXPECT_TRUE(user_.requests_of("console").empty());
  EXPECT_EQ(user_.balls_bowled, 0);
  expect_blank_match();
  EXPECT_EQ(match.result_margin + match.result_winner, "");
  EXPECT_THAT(scratch_files(), IsEmpty());
}

TEST_P(Leaving, TheFilesOfTheMatchBeforeComeBack) {
  play(3);
  const auto before = scratch_files();
  const std::string margin = match.result_margin;
  EXPECT_EQ(before.size(), data.files.elevens_in_memory ? 0U : 2U);
  leave_at(std::get<0>(GetParam()));
  new_match_form form = new_match();
  form.choose_first_team(0);
  form.choose_second_team(1);
  form.accept();
  EXPECT_TRUE(form.left);
  expect_blank_match();
  EXPECT_TRUE(scratch_files() == before);
  EXPECT_EQ(match.result_margin, margin) << "the result before stands as long as no match ends";
}

TEST_P(Leaving, TheNextMatchIsThatOfAFreshStart) {
  const std::string fresh = play(5);
  const std::string last_card = played_.batting_card[1].name + played_.bowling_card[11].name + played_.overs_text();
  match = match_state();
  leave_at(std::get<0>(GetParam()));
  new_match_form form = new_match();
  form.choose_first_team(0);
  form.accept();
  user_.messages.clear();
  EXPECT_EQ(play(5), fresh);
  EXPECT_EQ(played_.batting_card[1].name + played_.bowling_card[11].name + played_.overs_text(), last_card);
}

constexpr std::array<const char*, 5> step_names = {"Conditions", "FirstSelection", "SecondSelection", "Coin",
                                                   "Decision"};

INSTANTIATE_TEST_SUITE_P(, Leaving,
                         ::testing::Combine(::testing::Values(step::conditions, step::first_selection,
                                                              step::second_selection, step::coin, step::decision),
                                            ::testing::Bool()),
                         [](const auto& kind) {
                           const auto place = static_cast<std::size_t>(std::get<0>(kind.param));
                           return std::string(step_names[place]) + (std::get<1>(kind.param) ? "InMemory" : "InFiles");
                         });

class ElevensBefore : public ::testing::Test {
 protected:
  ElevensBefore() {
    database_.add_team("Alpha");
    database_.write();
  }
  static eleven men_called(const std::string& name) {
    eleven men;
    for (int i = 1; i <= 11; ++i) men[i].name = name + std::to_string(i);
    return men;
  }
  static std::string first_name() {
    read_elevens(match, data);
    return match.batting_xi[1].name;
  }

  small_database database_;
};

TEST_F(ElevensBefore, WhatAnotherProgramHasWrittenStays) {
  write_eleven(data, side::first, men_called("Old"));
  const eleven_files_before kept = read_elevens_before(data);
  write_eleven(data, side::first, men_called("Mine"));
  put_back_elevens(data, kept, {men_called("Mine"), eleven()});
  EXPECT_EQ(first_name(), "Old1");
  write_eleven(data, side::first, men_called("Theirs"));
  put_back_elevens(data, kept, {men_called("Mine"), eleven()});
  EXPECT_EQ(first_name(), "Theirs1");
}

}  // namespace
}  // namespace velorin::testing
