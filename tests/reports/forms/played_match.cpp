// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/forms/played_match.h"

#include "console/captain_forms.h"
#include "engine/over_play.h"
#include "model/random.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"
#include "support/test_user.h"
#include "windows/window_checks.h"

namespace velorin::testing {

namespace {

const char* const home[] = {"",         "A.Tamuera", "B.Okell", "C.Vanterpool", "D.Sealing", "E.Marrack",
                            "F.Uluila", "G.Penhall", "H.Dray",  "I.Quennell",   "J.Abara",   "K.Stote"};
const char* const away[] = {"",
                            "A.Harrow",
                            "B.Lindqvist-Ramsden",
                            "C.Featherstonehaugh",
                            "D.Moss",
                            "E.Sandoval",
                            "F.Aldous",
                            "G.Bright",
                            "H.Ekwueme",
                            "I.Nettle",
                            "J.Orme",
                            "K.Foss"};

/// Copies the match as it passes by.
class Copying : public test_user {
 public:
  PlayedMatch copies;
  int ends = 0;

  using headless_user::show;
  void progress(int) override {
    if (match.first_total == 0 && match.innings_balls == 0) copies.no_ball = match;
    if (match.first_total == 0 && match.over_no == 31) copies.first_innings = match;
    if (match.first_total != 0 && match.over_no == 27) copies.second_innings = match;
  }
  void open(report which) override {
    if (which != report::scorecard) return;
    ++ends;
    (ends == 1 ? copies.first_all_out : copies.second_all_out) = match;
  }
};

/// A match of the seed, if both sides were bowled out late enough.
bool play(std::uint64_t seed, PlayedMatch& copies) {
  set_up_sample_match();
  match.team1_name = "South Isles";
  match.team2_name = "Northland";
  match.ground.ground_name = "Lake End";
  for (int i = 1; i <= 11; ++i) {
    match.batting_xi[i].name = home[i];
    match.bowling_xi[i].name = away[i];
  }
  chance.use_seed(seed);
  Copying user;
  const front_end_scope scope(user);
  open_console(in_play());
  copies = user.copies;
  return user.ends == 2 && copies.first_all_out.score_wickets == 10 && copies.second_all_out.score_wickets == 10 &&
         copies.first_innings.over_no == 31 && copies.second_innings.over_no == 27;
}

}  // namespace

const PlayedMatch& played_match() {
  static const PlayedMatch kept = [] {
    PlayedMatch copies;
    for (std::uint64_t seed = 1; seed <= 2000; ++seed) {
      if (play(seed, copies)) return copies;
    }
    ADD_FAILURE() << "no match in which both sides were bowled out";
    return copies;
  }();
  return kept;
}

void NotingUser::show(batsman_details_form& form) {
  titles.push_back(form.title);
  headlines.push_back(form.figures.headline);
}

void ReportWindowTest::SetUp() { match = played_match().second_innings; }

void take_pictures(QWidget& window, const std::string& name) {
  take_picture(window, name.c_str());
  const QSize before = window.size();
  for (const QSize size : {QSize(1280, 800), QSize(1920, 1080)}) {
    window.resize(size);
    take_picture(window, (name + "-" + std::to_string(size.width())).c_str());
  }
  window.resize(before);
}

}  // namespace velorin::testing
