// SPDX-License-Identifier: GPL-3.0-or-later
// A recording that is watched shows each match at each ball as it was played.
#include "recording/recording_player.h"

#include <fmt/format.h>

#include <map>
#include <optional>
#include <tuple>
#include <utility>

#include "cli/match_json.h"
#include "engine/over_play.h"
#include "model/match_state.h"
#include "recording/recorded_games.h"
#include "setup/new_match.h"
#include "support/game_in_play.h"

namespace velorin::testing {
namespace {

// The woven-in checks of a sanitizer take their time: not every match of a World Cup is looked at ball by ball.
#ifdef VELORIN_SANITIZED
constexpr int matches_apart = 8;
#else
constexpr int matches_apart = 1;
#endif

/// A moment of a game: match, innings, deliveries.
using moment = std::tuple<int, int, int>;

/// What can be seen of a match, short.
std::string seen_of(const match_state& match) {
  std::string text =
      fmt::format("{}/{} {} {} {} {} {} {} {} {}", match.score_runs, match.score_wickets, match.overs_text(),
                  int(match.over_no), int(match.bowler), int(match.next_bowler), int(match.striker),
                  int(match.non_striker), int(match.clock_minutes), match.maiden_flag);
  text += fmt::format(" {} {} {} {}", int(match.over_on_show.over), match.browsed_over, match.settled_meter[0],
                      match.settled_meter[1]);
  for (const std::string& ball : over_symbols(match)) text += " " + ball;
  for (const auto* cards : {&match.batting_card, &match.first_batting_card}) {
    for (int man = 1; man <= men_in_eleven; ++man) {
      const batting_card_rec& card = (*cards)[man];
      text += fmt::format(" {} {}({})", card.name, int(card.runs), int(card.balls));
    }
  }
  for (const auto* cards : {&match.bowling_card, &match.first_bowling_card}) {
    for (int man = 1; man <= men_in_eleven; ++man) {
      const bowling_card_rec& card = (*cards)[man];
      text += fmt::format(" {}-{}-{}-{}", int(card.balls), int(card.maidens), int(card.runs), int(card.wickets));
    }
  }
  return text;
}

/// All that the exports tell of a match but who captains it, where play rests; nothing of other balls, at which the
/// captains have not looked yet as they are told of.
std::string whole_of(const match_state& match) {
  if (match.next_step == play_step::ball_told || match.next_step == play_step::ball_bowled) return {};
  const std::string text = cli::state_text(match);
  return text.substr(text.find("\"over_no\""));
}

using teller = std::string (*)(const match_state&);

/// What was seen of a game as it was played.
struct game_seen {
  teller tells = nullptr;
  std::string bytes;                    ///< of its recording
  std::map<moment, std::string> texts;  ///< as play rested there first
};

class RecordingPlayer : public RecordedGames {
 protected:
  /// Plays a game and looks at it at each ball.
  game_seen see(const game_to_play& wanted, teller tells = seen_of) const {
    game_seen seen;
    seen.tells = tells;
    game_state game;
    game.data = data;
    game.data.files.updates = false;
    game.data.files.elevens_in_memory = true;
    game.chance.use_seed(wanted.seed);
    random_captain captain(game, wanted.seed);
    captain.leaves_one_in = wanted.leaves_one_in;
    recording_in_memory kept;
    recorder recorded(captain, game, kept, "test");
    captain.asks_through = &recorded;
    int matches = 0;
    moment last;
    captain.at_request = [&] {
      const match_state& now = game.match;
      const int balls = static_cast<int>(now.deliveries.size());
      const bool rests = captain.open_request() == "console" || captain.open_request() == "progress" ||
                         captain.open_request() == "open";
      const bool ball = captain.open_request() == "ball";
      if (!ball && !rests) return;
      if (ball && now.innings_number == 1 && balls == 1) ++matches;
      const moment here{balls == 0 && now.innings_number == 1 ? matches + 1 : matches, now.innings_number, balls};
      // A captain who comes back to the console may have changed something.
      if (rests && here == last) return;
      if (rests) last = here;
      seen.texts[here] = tells(now);
    };
    wanted.start(game, recorded);
    recorded.game_over();
    seen.bytes = kept.bytes();
    return seen;
  }

  static recording_player player_of(const std::string& bytes) {
    return recording_player(read_recording(bytes, "watched"), "watched");
  }

  /// Every moment of every match, or of one in `apart`, was seen, in whatever order one goes there.
  static void expect_all_seen(const game_seen& seen, recording_player& player, int apart = 1) {
    std::size_t moments = 0;
    for (int match = static_cast<int>(player.matches().size()) - 1; match >= 0; match -= apart) {
      player.choose_match(match);
      const ball_index& index = player.index();
      moments += index.size();
      for (int place = static_cast<int>(index.size()) - 1; place >= 0; --place) {
        const watched_ball& ball = index[static_cast<std::size_t>(place)];
        const auto found = seen.texts.find({match + 1, ball.innings, ball.balls});
        ASSERT_NE(found, seen.texts.end()) << "match " << match << ", innings " << ball.innings << ", " << ball.balls;
        ASSERT_EQ(seen.tells(player.at(place)), found->second)
            << "match " << match << ", innings " << ball.innings << ", " << ball.balls;
      }
    }
    if (apart == 1) {
      EXPECT_EQ(moments, seen.texts.size()) << "some ball is missing";
    }
  }
};

TEST_F(RecordingPlayer, EachBallOfAMatchIsAsItWasPlayed) {
  for (std::uint64_t seed = 1; seed <= 8; ++seed) {
    SCOPED_TRACE(seed);
    const game_seen seen = see(match_of(static_cast<int>(seed), 0, static_cast<int>(seed % 4), seed));
    recording_player player = player_of(seen.bytes);
    ASSERT_EQ(player.matches().size(), 1U);
    expect_all_seen(seen, player);
    if (HasFailure()) return;
    EXPECT_NE(player.matches()[0].result, "");
    EXPECT_TRUE(player.index().back().ends_innings);
  }
}

TEST_F(RecordingPlayer, BetweenTheOversOfAMatchAllIsAsItWasPlayed) {
  const game_seen seen = see(match_of(3, 4, 2, 21), whole_of);
  recording_player player = player_of(seen.bytes);
  expect_all_seen(seen, player);
}

TEST_F(RecordingPlayer, EachMatchOfACompetitionIsThere) {
  const game_seen tri = see(tri_series_of(1, 1, 5));
  recording_player of_tri = player_of(tri.bytes);
  EXPECT_EQ(of_tri.matches().size(), 4U);
  expect_all_seen(tri, of_tri);
  const game_seen cup = see(world_cup_of(3, 9));
  recording_player of_cup = player_of(cup.bytes);
  EXPECT_GT(of_cup.matches().size(), 25U);
  EXPECT_EQ(of_cup.match(), static_cast<int>(of_cup.matches().size()) - 1) << "the last one is at hand";
  EXPECT_EQ(of_cup.matches().back().stage, "final");
  for (const watched_match& match : of_cup.matches()) EXPECT_NE(match.result, "") << match.line();
  expect_all_seen(cup, of_cup, matches_apart);
}

TEST_F(RecordingPlayer, ATornRecordingIsWatchedAsFarAsItGoes) {
  const game_seen seen = see(match_of(2, 5, 1, 7));
  recording_player whole = player_of(seen.bytes);
  std::size_t shown = 0;
  for (const std::size_t share : {5U, 6U, 7U}) {
    recording_player player = player_of(seen.bytes.substr(0, seen.bytes.size() * share / 8));
    if (player.matches().empty()) continue;
    ASSERT_LE(player.index().size(), whole.index().size());
    EXPECT_GT(player.index().size(), shown);
    shown = player.index().size();
    for (std::size_t place = 0; place < shown; ++place) {
      ASSERT_EQ(seen_of(player.at(static_cast<int>(place))), seen_of(whole.at(static_cast<int>(place))));
    }
  }
  EXPECT_GT(shown, 200U);
}

TEST_F(RecordingPlayer, AGameOfWhichNoBallIsBowledHasNoMatch) {
  const game_seen seen = see(match_of(2, 5, 1, 7));
  // The beginning alone.
  const std::size_t head = read_recording(seen.bytes, "whole").whole_bytes;
  for (std::size_t bytes = recording_head; bytes < head; ++bytes) {
    try {
      recording first = read_recording(seen.bytes.substr(0, bytes), "first");
      EXPECT_TRUE(first.events.empty());
      EXPECT_TRUE(recording_player(first, "first").matches().empty());
      return;
    } catch (const std::exception&) {
      // Not even that.
    }
  }
  FAIL() << "no beginning was read";
}

/// Plays a practice match, takes balls back, and tells the deliveries that were left in the end.
class TakingBackCaptain : public random_captain {
 public:
  using random_captain::random_captain;
  using random_captain::show;
  void show(console_form& form) override {
    for (int over = 0; over < 6; ++over) form.bowl_next_over();
    for (int over = 0; over < 4; ++over) form.take_back(taken_back::over, luck::fresh);
    form.bowl_next_over();
    form.bowl_ball();
    form.bowl_ball();
    form.take_back(taken_back::ball, luck::fresh);
    form.bowl_ball();
    while (!form.closed()) form.bowl_next_over();
  }
};

TEST_F(RecordingPlayer, BallsThatWereTakenBackAreNotSeen) {
  game_state game;
  game.data = data;
  game.data.files.elevens_in_memory = true;
  game.chance.use_seed(4);
  TakingBackCaptain captain(game, 4);
  recording_in_memory kept;
  recorder recorded(captain, game, kept, "test");
  delivery_list first;
  captain.at_request = [&] {
    if (game.match.innings_number == 1) first = game.match.deliveries;
  };
  new_match_form form({game.match, game.chance, recorded, game.data});
  form.open();
  form.choose_first_team(1);
  form.choose_second_team(2);
  form.practice = true;
  form.computer_captains_first = false;
  form.accept();
  recorded.game_over();
  const recording_player player = player_of(kept.bytes());
  delivery_list seen;
  int innings = 1;
  for (const watched_ball& ball : player.index()) {
    EXPECT_GE(ball.innings, innings);
    innings = ball.innings;
    if (innings == 1 && !ball.opens_innings()) {
      EXPECT_EQ(ball.balls, static_cast<int>(seen.size()) + 1);
      seen.push_back(ball.bowled);
    }
  }
  EXPECT_EQ(seen, first);
  EXPECT_NE(player.matches()[0].result, "") << "though it is saved nowhere";
}

TEST_F(RecordingPlayer, JumpsLeadToTheNextOfAKindAndBack) {
  recording_player player = player_of(see(match_of(2, 5, 1, 7)).bytes);
  const ball_index& index = player.index();
  const auto count = [&](ball_mark mark) {
    int found = 0;
    for (std::optional<int> at = next_mark(index, 0, mark); at; at = next_mark(index, *at, mark)) ++found;
    int back = 0;
    for (std::optional<int> at = mark_before(index, static_cast<int>(index.size()), mark); at && *at > 0;
         at = mark_before(index, *at, mark)) {
      ++back;
    }
    EXPECT_EQ(found, back);
    return found;
  };
  const match_state& end = player.at(static_cast<int>(index.size()) - 1);
  EXPECT_EQ(count(ball_mark::ball), static_cast<int>(index.size()) - 1);
  EXPECT_EQ(count(ball_mark::wicket), end.score_wickets + end.first_wickets);
  EXPECT_EQ(count(ball_mark::innings_end), 2);
  int boundaries = 0;
  for (int man = 1; man <= 11; ++man) {
    boundaries += end.batting_card[man].fours + end.batting_card[man].sixes;
    boundaries += end.first_batting_card[man].fours + end.first_batting_card[man].sixes;
  }
  EXPECT_EQ(count(ball_mark::boundary), boundaries);
  EXPECT_GT(count(ball_mark::milestone), 0);
  for (const watched_ball& ball : index) {
    EXPECT_TRUE(!ball.milestone || !ball.told.empty());
  }
  // Over after over: six balls that count, or the end of the innings.
  int from = 0;
  for (std::optional<int> at = next_mark(index, 0, ball_mark::over); at; at = next_mark(index, from, ball_mark::over)) {
    int counted = 0;
    for (int place = from + 1; place <= *at; ++place) counted += index[place].bowled.counted && index[place].balls != 0;
    if (index[*at].opens_innings()) {
      EXPECT_EQ(*at, from + 1);
    } else if (!index[*at].ends_innings) {
      EXPECT_EQ(counted, 6);
    }
    EXPECT_EQ(mark_before(index, *at, ball_mark::over), from);
    from = *at;
  }
  const innings_span first = innings_around(index, 5);
  const innings_span second = innings_around(index, from);
  EXPECT_EQ(first.first, 0);
  EXPECT_EQ(second.first, first.last + 1);
  EXPECT_EQ(second.last, static_cast<int>(index.size()) - 1);
}

}  // namespace
}  // namespace velorin::testing
