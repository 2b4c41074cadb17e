// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/terms.h"

#include <QHash>
#include <QWidget>

#include "desktop/controls.h"

namespace velorin {

namespace {

constexpr const char* term_property = "term";

constexpr const char* runs = "Runs: made by a batsman or a side, or given away by a bowler.";
constexpr const char* balls = "Balls: those that a batsman has faced or a bowler has bowled.";
constexpr const char* overs = "Overs of six balls; the figure behind the point counts the balls of one begun.";
constexpr const char* maidens = "Maidens: overs in which the bowler gave no run.";
constexpr const char* wickets = "Wickets: batsmen who are out; for a bowler those he has taken.";
constexpr const char* fours = "Fours: strokes to the boundary along the ground, four runs each.";
constexpr const char* sixes = "Sixes: strokes over the boundary in the air, six runs each.";
constexpr const char* strike_rate =
    "Strike rate: a batsman's runs for a hundred balls; for a bowler, his balls for each wicket.";
constexpr const char* economy = "Economy: the runs that a bowler gives away in an over.";
constexpr const char* matches = "Matches that he has played.";
constexpr const char* innings = "Innings in which he has batted.";
constexpr const char* not_outs = "Not outs: innings at whose end he was still in.";
constexpr const char* average = "Average: runs for each time out; for a bowler, runs given away for each wicket.";
constexpr const char* highest =
    "Highest score: the most runs that he has made in an innings; * tells that he was not out.";
constexpr const char* hundreds = "Hundreds: innings of a hundred runs or more.";
constexpr const char* fifties = "Fifties: innings of fifty runs or more that came to no hundred.";
constexpr const char* ducks = "Ducks: innings in which he was out without a run.";
constexpr const char* share_of_fifties = "Of a hundred innings, how many brought fifty runs or more.";
constexpr const char* five_wickets = "Matches in which he took five wickets or more.";
constexpr const char* best =
    "Best bowling: the most wickets that he has taken in a match, and the runs that they cost.";
constexpr const char* points = "Points: two for a match won, one for a tie; they settle the order of the table.";
constexpr const char* net_rate =
    "Net run rate: runs an over made less runs an over given, match by match; it parts sides level on points.";
constexpr const char* run_rate = "Run rate: the runs of an over, taken over the innings so far.";
constexpr const char* required_rate = "Required run rate: the runs an over that the chase still asks for.";
constexpr const char* aggression =
    "How boldly a man plays, 1 to 5: more means more runs and more wickets, at the bat and with the ball.";
constexpr const char* settled =
    "How far he is at home at the crease: runs and balls faced fill it, and he lasts longer and scores faster.";
constexpr const char* batting_type = "Right or left hand (RH, LH), and the part of the order in which he bats.";
constexpr const char* bowling_type = "How he bowls: fast, at medium pace, or spin.";
constexpr const char* stand = "What two batsmen add together between two wickets.";
constexpr const char* projected =
    "What the innings comes to after 50 overs if the rest of it brings so many runs an over.";
constexpr const char* dismissal = "How he was out: the fielder who had a part in it, and the bowler.";
constexpr const char* played = "Matches that the team has played.";
constexpr const char* host = "A side that plays at home; the grounds are in its country.";
constexpr const char* toss_choice = "Who wins the toss says which side bats first.";

constexpr Term terms[] = {
    {"Runs", runs},
    {"R", runs},
    {"Runs Given", runs},
    {"Balls", balls},
    {"B", balls},
    {"Balls Faced", "Balls that he has faced."},
    {"Balls faced", "Balls that he has faced."},
    {"Balls Bowled", "Balls that he has bowled."},
    {"Overs", overs},
    {"Ovr", overs},
    {"O", overs},
    {"O-M-R-W", "Overs bowled, maidens among them, runs given away, wickets taken."},
    {"Overs left", "Overs that he may still bowl of his ten."},
    {"Left", "Overs that he may still bowl of his ten."},
    {"Overs rem.", "Overs that the chase has left; b: the same in balls."},
    {"Maidens", maidens},
    {"Mdn", maidens},
    {"Mdns", maidens},
    {"Wickets", wickets},
    {"Wkts", wickets},
    {"W", wickets},
    {"Wkt.", "The wicket that ended the stand, counted from the first."},
    {"Wkts in hand", "Wickets that the side can still lose."},
    {"Fours", fours},
    {"4s", fours},
    {"Sixes", sixes},
    {"6s", sixes},
    {"Dots", "Dot balls: balls that brought him no run."},
    {"Byes", "Byes: runs made where neither bat nor body touched the ball."},
    {"Leg byes", "Leg byes: runs made off the batsman's body."},
    {"Wides", "Wides: balls out of the batsman's reach; the total does not count them."},
    {"No balls", "No balls: balls against the rules; the total does not count them."},
    {"Singles", "Balls of which he ran one."},
    {"Twos", "Balls of which he ran two."},
    {"Threes", "Balls of which he ran three."},
    {"Strike rate", strike_rate},
    {"Strike Rate", strike_rate},
    {"SR", strike_rate},
    {"Bowl SR", "Bowling strike rate: the balls that he bowls for each wicket; the fewer, the better."},
    {"Bowling strike rate", "The balls that he bowls for each wicket; the fewer, the better."},
    {"Economy", economy},
    {"Econ.", economy},
    {"Econ", economy},
    {"Runs an over", "The runs of each over, and the wickets that fell in it."},
    {"R.P.O", "Runs per over: what the bowler gives away in an over."},
    {"M", matches},
    {"Matches", matches},
    {"I", innings},
    {"Innings", innings},
    {"NO", not_outs},
    {"Not Outs", not_outs},
    {"Average", average},
    {"Avge", average},
    {"Avg", average},
    {"HS", highest},
    {"Highest Score", highest},
    {"Hundreds", hundreds},
    {"100s", hundreds},
    {"Fifties", fifties},
    {"50s", fifties},
    {"Ducks", ducks},
    {"% Inns", share_of_fifties},
    {"% 50 +", share_of_fifties},
    {"5 wkt", five_wickets},
    {"5 wkts", five_wickets},
    {"Best", best},
    {"Best Bowling", best},
    {"Analysis", best},
    {"Catches", "Balls caught off the bat before they touched the ground: the batsman is out."},
    {"Stumpings", "Wickets broken by the keeper while the batsman was out of his ground."},
    {"Keeps wicket", "Whether he can stand behind the stumps."},
    {"Role", "What he is picked for."},
    {"Played", played},
    {"Tied", "Matches that ended with the totals level."},
    {"Points", points},
    {"Pts", points},
    {"NRR", net_rate},
    {"Net RR", net_rate},
    {"Success %", "Of a hundred matches played, how many the team has won."},
    {"Run rate", run_rate},
    {"Run rate and required", "The runs of an over so far, and those that the chase still asks for, over by over."},
    {"Current RR", "The run rate so far; under a projected score, what the innings comes to at that rate."},
    {"Initial RR", "The run rate that the target asked for at the start of the chase."},
    {"RR Reqd.", required_rate},
    {"Runs Reqd.", "Runs that the side batting second still needs to win."},
    {"Target", "Runs that the side batting second needs to win: one more than the other side has."},
    {"Projected score", "What the innings comes to after 50 overs, at the rate so far and at four others."},
    {"The chase", "What the side batting second still has to do to win."},
    {"4 per over", projected},
    {"6 per over", projected},
    {"8 per over", projected},
    {"10 per over", projected},
    {"Next ball", "What the next ball may bring: the strokes, the extras and the wicket."},
    {"Chance", "Of a hundred such balls, how many bring it; exact, as the game draws it."},
    {"Swing", "What the ball has added to the chance of winning, for the side that gained by it."},
    {"With the bat", "What his balls faced have added to his side's chance of winning, in hundredths."},
    {"With the ball", "What his balls bowled have added to his side's chance of winning, in hundredths."},
    {"Impact", "What a man has moved in all: with the bat and with the ball."},
    {"Final", "The game's forecast of the team's chance to reach the final: what is left is played many times."},
    {"Super Six",
     "The game's forecast of the team's chance to reach the Super Six: what is left is played many times."},
    {"Semi", "The game's forecast of the team's chance to reach a semi final: what is left is played many times."},
    {"Title", "The game's forecast of the team's chance to win the competition: what is left is played many times."},
    {"A wins", "The game's forecast of the chance that Team A wins: the match is played many times."},
    {"B wins", "The game's forecast of the chance that Team B wins: the match is played many times."},
    {"To win",
     "What the choice adds to the chance of winning, beside leaving it to the computer; \xB1 one standard error."},
    {"Last 5", "Runs of an over in the last five overs."},
    {"After", "The overs after which the scores of both sides are compared."},
    {"Stand", stand},
    {"Partnership", stand},
    {"Aggression", aggression},
    {"Agg.", aggression},
    {"Induvidual Agg.", aggression},
    {"Def.", "The end of the scale for a man who takes no risk."},
    {"Defensive", "The end of the scale for a man who takes no risk."},
    {"Aggressive", "The end of the scale for a man who goes for runs, or for wickets, at any risk."},
    {"Settled", settled},
    {"Skill", "His rating: the balls that a batsman lasts for each dismissal, or that a bowler needs for each wicket."},
    {"Bat Skill", "Batting skill: the balls that he lasts for each dismissal; the more, the better."},
    {"Batting skill", "The balls that he lasts for each dismissal; the more, the better."},
    {"Bat Type", batting_type},
    {"Bats", batting_type},
    {"Bowler type", bowling_type},
    {"Bowls", bowling_type},
    {"Dismissal", dismissal},
    {"How out", dismissal},
    {"Extras", "Runs that no batsman has made: no balls, wides, byes and leg byes."},
    {"Milestone", "A mark that a man has reached: fifty, a hundred, five wickets."},
    {"Milestones", "Marks that men have reached: fifty, a hundred, five wickets."},
    {"Figures", "What the entry is about: runs (balls), or overs-maidens-runs-wickets."},
    {"Pitch", "The ground between the wickets: what it is like, and whom that helps."},
    {"Bounce", "How the ball comes up from the pitch, and whom that helps."},
    {"Weather", "The sky above the match, and whom it helps."},
    {"Outfield", "The grass around the pitch: how fast the ball runs over it."},
    {"Pace", "How fast an over is shown."},
    {"To bat or to bowl", toss_choice},
    {"No. of Round Robin stages", "How many times each team meets each of the others."},
    {"Super Six Table", "The stage after the groups, from which four teams reach the semi finals."},
    {"Host nation 1", host},
    {"Host nation 2", host},
    {"Host nation 3", host},
    {"Select Host nation(s)", host},
    {"First Team (host)", host},
};

/// A caption as it stands in the table.
QString plain_caption(const QString& shown) {
  QString plain = shown;
  plain.remove(QLatin1Char('&'));
  return spoken_name(plain);
}

}  // namespace

std::span<const Term> all_terms() { return terms; }

QString meaning_of(const QString& shown) {
  static const QHash<QString, QString> meanings = [] {
    QHash<QString, QString> made;
    for (const Term& term : terms) made.insert(QString::fromLatin1(term.shown), QString::fromLatin1(term.meaning));
    return made;
  }();
  return meanings.value(plain_caption(shown));
}

void explain(QWidget& widget, const QString& shown) {
  const QString before = widget.property(term_property).toString();
  if (widget.toolTip() != before) return;
  const QString meaning = meaning_of(shown);
  if (meaning == before) return;
  widget.setToolTip(meaning);
  widget.setProperty(term_property, meaning);
}

}  // namespace velorin
