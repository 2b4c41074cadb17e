// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/qt_front_end.h"

#include <QCoreApplication>
#include <QTimer>
#include <utility>

#include "browsers/forms/player_profile_window.h"
#include "browsers/forms/player_rankings_window.h"
#include "browsers/player_profile.h"
#include "browsers/player_rankings.h"
#include "competitions/forms/match_progress_window.h"
#include "competitions/forms/series_results_window.h"
#include "competitions/forms/tri_series_table_window.h"
#include "competitions/forms/world_cup_fixtures_window.h"
#include "competitions/forms/world_cup_tables_window.h"
#include "competitions/next_match.h"
#include "competitions/series.h"
#include "competitions/tri_series.h"
#include "competitions/world_cup_fixtures.h"
#include "competitions/world_cup_tables.h"
#include "console/captain_forms.h"
#include "console/console_view.h"
#include "console/forms/aggression_window.h"
#include "console/forms/batsman_details_window.h"
#include "console/forms/bowler_choice_window.h"
#include "console/forms/next_batsman_window.h"
#include "desktop/frame.h"
#include "desktop/message_window.h"
#include "desktop/moment.h"
#include "desktop/preferences.h"
#include "desktop/program_end.h"
#include "desktop/shown_text.h"
#include "engine/ball_odds.h"
#include "engine/forms/console_window.h"
#include "engine/over_play.h"
#include "model/rules.h"
#include "model/run_time_error.h"
#include "reports/bowling_figures.h"
#include "reports/forms/bowling_card_window.h"
#include "reports/forms/first_bowling_card_window.h"
#include "reports/forms/first_partnerships_window.h"
#include "reports/forms/first_scorecard_window.h"
#include "reports/forms/match_centre_window.h"
#include "reports/forms/match_report_window.h"
#include "reports/forms/overs_graph_window.h"
#include "reports/forms/partnerships_window.h"
#include "reports/forms/scorecard_window.h"
#include "reports/forms/worm_graph_window.h"
#include "reports/match_report.h"
#include "reports/match_story.h"
#include "reports/overs_graph.h"
#include "reports/partnerships.h"
#include "reports/scorecard.h"
#include "reports/worm_graph.h"
#include "setup/conditions.h"
#include "setup/forms/conditions_window.h"
#include "setup/forms/set_up_steps.h"
#include "setup/forms/team_selection_window.h"
#include "setup/forms/toss_window.h"
#include "setup/team_selection.h"
#include "setup/toss.h"
#include "shell/browse.h"
#include "shell/delegation.h"
#include "shell/match_line.h"
#include "shell/quick_answers.h"
#include "shell/saved_games_window.h"
#include "shell/table_chances.h"

namespace velorin {

namespace {

/// Shows an open form in its window. `given`: what the window takes before the form.
template <class Window, class CoreForm, class... Given>
void show_modally(CoreForm& form, Given&&... given) {
  Window window(given..., form);
  run_modal(window);
}

/// The same for the standings of a competition, which lead on to the matches played. `prepare` gets the window.
template <class Window, class CoreForm, class Prepare, class... Given>
void show_standings(CoreForm& form, const PlayedReports& reports, const Prepare& prepare, Given&&... given) {
  Window window(given..., form);
  window.lead_to(reports.matches());
  prepare(window);
  run_modal(window);
}

/// The same for a report of the match.
template <class Window, class CoreForm, class... Given>
void open_modally(match_state& match, Given&&... given) {
  CoreForm form(match);
  form.open();
  show_modally<Window>(form, given...);
}

/// The part of the console that a message is about, beside which it lies; none for the match as a whole.
QString subject_of(message_kind kind) {
  switch (kind) {
    case message_kind::batting_milestone:
    case message_kind::hundred:
    case message_kind::stand_milestone:
      return QStringLiteral("batting_card");
    case message_kind::bowler_change:
    case message_kind::full_quota:
    case message_kind::bowling_milestone:
      return QStringLiteral("bowling_card");
    default:
      return {};
  }
}

}  // namespace

QtFrontEnd::QtFrontEnd(game_state& game, const std::filesystem::path& kept_games)
    : game_(game),
      names_(game.data),
      keeper_(kept_games.empty() ? std::nullopt : std::optional<GameKeeper>(std::in_place, *this, game, kept_games)),
      unstopped_(game, [this] { return reports_.matches(); }),
      turns_(game.data.files),
      cup_form_(play(), game.world_cup) {
  reports_.on_profile(profile_of());
}
QtFrontEnd::~QtFrontEnd() { progress_done(); }

void QtFrontEnd::activity_goes_on() {
  play_begins();
  if (game_.match.step != match_step::none) unstopped_.match_begins();
}

void QtFrontEnd::activity_over() {
  if (keeper_ && program_is_ending()) keeper_->stop();
  if (keeper_ && !program_is_ending()) keeper_->game_over();
  quick_.reset();
  unstopped_.end();
  play_over();
}

void QtFrontEnd::save_game() {
  if (console_ == nullptr || keeper_->file_in_play().empty()) return;
  const QString name = ask_for_game_name(*console_, QStringLiteral("Save as"),
                                         QString::fromStdString(keeper_->file_in_play().stem().string()));
  if (name.isEmpty()) return;
  std::string told = "Saved Games has it now: ";
  try {
    told += core_text(QString::fromStdString(keeper_->save_as(name.toStdString()).stem().string()));
  } catch (const run_time_error& fault) {
    told = fault.what();
  }
  MessageWindow window({"Save as", told});
  run_modal(window);
}

void QtFrontEnd::refresh_console() {
  if (console_ == nullptr) return;
  console_->refresh();
  show_score();
}

void QtFrontEnd::show_score() {
  if (!frame_) return;
  if (console_ == nullptr) return frame_->show_score({});
  const score_view view = view_score(game_.match);
  const std::string chase = view.needed.empty() ? view.target : view.target + ", " + view.needed;
  const std::string score = view.batting_short_name + "  " + view.score + "  " + view.overs;
  frame_->show_score(shown(chase.empty() ? score : score + "   " + chase));
}

bool QtFrontEnd::passes_by(message_kind kind, const std::string& text) const {
  if (kind == message_kind::other || (!quick_ && preferences::stops_for(kind))) return false;
  tell_in_passing(shown(text).simplified());
  return true;
}

void QtFrontEnd::tell_in_passing(const QString& words) const {
  if (auto* frame = frame_of(front_window())) frame->show_passing(words);
  if (console_ != nullptr) console_->message_passed(words);
}

std::optional<MomentKind> QtFrontEnd::moment_of(const message_box& message) const {
  if (console_ == nullptr) return std::nullopt;
  const match_state& match = game_.match;
  if (message.kind == message_kind::bowling_milestone) return MomentKind::five_wickets;
  if (message.kind == message_kind::hundred) return MomentKind::hundred;
  if (message.kind != message_kind::end_of_match) return std::nullopt;
  // Won with the last ball that could win it, or held by less than a stroke.
  const bool made = match.decided == match_decision::wickets && match.innings_balls == balls_of_innings - 1;
  const bool held = match.decided == match_decision::runs && match.innings_balls == balls_of_innings &&
                    match.first_total - match.score_runs < six_runs;
  return made || held ? std::optional(MomentKind::last_ball_win) : std::nullopt;
}

void QtFrontEnd::show(const message_box& message) {
  if (unstopped_.answers_match()) return;
  refresh_console();
  const std::optional<MomentKind> moment = moment_of(message);
  if (passes_by(message.kind, message.text)) {
    if (moment) celebrate(*console_, *moment, shown(message.text).simplified(), console_->place_of_moments());
    return;
  }
  MessageWindow window(message);
  window.stand_as(Form::Place::sheet, subject_of(message.kind));
  if (moment) window.show_moment(*moment);
  run_modal(window);
}

save_answer QtFrontEnd::answer(const failed_save& failed) {
  refresh_console();
  SaveFailedWindow window(failed);
  run_modal(window);
  return window.answer();
}

void QtFrontEnd::show(conditions_form& form) {
  play_begins();
  unstopped_.match_begins();
  if (unstopped_.answers_match()) return unstopped_.user().show(form);
  if (quick_ && quick_->answered.conditions) return answer_quickly(form, *quick_);
  ConditionsWindow window(form);
  show_set_up_steps(window, game_.match, SetUpStep::conditions);
  run_modal(window);
}

void QtFrontEnd::show(team_selection_form& form) {
  if (unstopped_.answers_match() || (quick_ && quick_->answered.elevens) || preferences::delegated().line_up) {
    return unstopped_.user().show(form);
  }
  TeamSelectionWindow window(game_.match, form);
  show_set_up_steps(window, game_.match, SetUpStep::elevens);
  run_modal(window);
}

void QtFrontEnd::show(toss_form& form) {
  if (quick_ && quick_->answered.toss) return answer_quickly(form, *quick_);
  if (preferences::delegated().toss) return answer_toss(form);
  TossWindow window(game_.match, form);
  show_set_up_steps(window, game_.match, SetUpStep::toss);
  run_modal(window);
}

void QtFrontEnd::show(next_batsman_form& form) {
  if (quick_ && quick_->answered.openers) return answer_quickly(form, *quick_, game_.match.team1_name);
  refresh_console();
  if (preferences::delegated().line_up) {
    if (const std::string why = answer_batsman(game_.match, form); !why.empty()) return tell_in_passing(shown(why));
  }
  const auto answers = [this](int row) { return newcomer_odds(game_.match, row); };
  show_modally<NextBatsmanWindow>(form, play(), answers);
}

void QtFrontEnd::show(bowler_choice_form& form) {
  if (unstopped_.answers_match()) return unstopped_.user().show(form);
  if (quick_ && quick_->answered.openers) return answer_quickly(form, *quick_, game_.match.team2_name);
  refresh_console();
  // Asked for by the user himself, it is his.
  if (preferences::delegated().bowling && form.shown_for != bowler_choice_form::use::change) {
    if (const std::string why = answer_bowler(game_.match, form); !why.empty()) return tell_in_passing(shown(why));
  }
  show_modally<BowlerChoiceWindow>(form, play());
}

void QtFrontEnd::show(aggression_form& form) {
  refresh_console();
  const match_state& match = game_.match;
  show_modally<AggressionWindow>(
      form, form.for_batsman ? batting_odds(match, form.player_slot) : bowling_odds(match, form.player_slot));
}

void QtFrontEnd::show(batsman_details_form& form) {
  refresh_console();
  if (passes_by(form.kind, form.figures.headline)) return form.accept();
  BatsmanDetailsWindow window(form);
  window.stand_as(Form::Place::sheet, QStringLiteral("batsman_%1").arg(game_.match.striker_slot()));
  run_modal(window);
}

void QtFrontEnd::console_opens(console_form& form) {
  console_ = std::make_unique<ConsoleWindow>(game_.match, game_.data, form);
  frame_ = console_->main_window();
  console_->show_score_itself();
  // What opens over the console, by whoever, leaves the score in the bar.
  if (frame_) QObject::connect(frame_, &Frame::top_changed, console_.get(), [this] { show_score(); });
  if (keeper_) console_->let_keep([this] { keeper_->discard(); });
  if (keeper_) {
    console_->on_match_line([this] {
      if (const auto file = keeper_->file_in_play(); !file.empty()) open_match_line(file);
    });
  }
  console_->on_match_centre([this] { open_match_centre(); });
  console_->show_before_use();
}

void QtFrontEnd::console_closes() {
  console_.reset();
  show_score();
  if (!frame_) return;
  frame_->show_passing({});
  frame_->offer_save({});
}

void QtFrontEnd::about_to_bowl(console_form& form) {
  const Delegated left = preferences::delegated();
  captain_before_ball(game_.match, form, left.bowling, left.aggressions);
}

void QtFrontEnd::show(console_form& form) {
  if (console_ == nullptr) console_opens(form);
  if (keeper_ && frame_) frame_->offer_save([this] { save_game(); });
  if (std::exchange(quick_, std::nullopt)) {
    QTimer::singleShot(0, console_.get(), [this] {
      if (game_.match.deliveries.empty()) guarded([this] { console_->play_over(); });
    });
  }
  run_modal(*console_);
}

void QtFrontEnd::ball_bowled() {
  if (console_ != nullptr) {
    console_->ball_bowled();
  } else {
    unstopped_.ball_bowled();
  }
}

void QtFrontEnd::progress(int over) {
  if (unstopped_.answers_match()) return;
  if (!progress_) {
    busy_ = qobject_cast<Form*>(front_window());
    progress_ = new MatchProgressWindow;
    if (busy_) busy_->set_busy(true);
  }
  progress_->show_over(over);
  if (program_is_ending()) throw ProgramEnds{};
}

void QtFrontEnd::progress_done() {
  delete progress_.data();
  if (busy_) busy_->set_busy(false);
  busy_ = nullptr;
}

void QtFrontEnd::open(report which) {
  if (unstopped_.answers_match()) return;
  refresh_console();
  switch (which) {
    case report::scorecard:
      return open_modally<ScorecardWindow, scorecard_form>(game_.match, play());
    case report::first_scorecard:
      return open_modally<FirstScorecardWindow, first_scorecard_form>(game_.match, user());
    case report::bowling_card:
      return open_modally<BowlingCardWindow, bowling_card_form>(game_.match);
    case report::first_bowling_card:
      return open_modally<FirstBowlingCardWindow, first_bowling_card_form>(game_.match);
    case report::partnerships:
      return open_modally<PartnershipsWindow, partnerships_form>(game_.match);
    case report::first_partnerships:
      return open_modally<FirstPartnershipsWindow, first_partnerships_form>(game_.match);
    case report::overs_graph:
      return open_modally<OversGraphWindow, overs_graph_form>(game_.match);
    case report::worm_graph:
      // The lines themselves live in the match record and outlast every showing.
      return open_modally<WormGraphWindow, worm_graph_form>(game_.match);
  }
}

void QtFrontEnd::open_match_centre() {
  refresh_console();
  MatchCentreWindow window(story_of(game_.match));
  run_modal(window);
}

MatchReportWindow::ShowProfile QtFrontEnd::profile_of() {
  return [this](const std::string& side, const std::string& player) { show_profile(*this, game_.data, side, player); };
}

void QtFrontEnd::show(match_report_form& form) {
  if (!form.attended() && !reports_.keeps()) return;
  form.open();
  reports_.keep(game_, form.report);
  if (!form.attended()) return;
  refresh_console();
  MatchReportWindow window(form.report, profile_of());
  window.offer_centre([this] { open_match_centre(); });
  if (!reports_.keeps()) window.offer_rematch([this] { rematch_ = true; });
  run_modal(window);
}

void QtFrontEnd::show(player_profile_form& form) {
  PlayerProfileWindow window(form);
  window.offer_page([this](const std::string& team, const std::string& man) { browse_man(game_.data, team, man); });
  run_modal(window);
}

void QtFrontEnd::show(player_rankings_form& form) { show_modally<PlayerRankingsWindow>(form, *this, game_.data); }

void QtFrontEnd::show(series_results_form& form) {
  if (unstopped_.passes_standings()) return unstopped_.user().show(form);
  const QWidget* before = front_window();
  if (before != nullptr && game_.series.series_over && form.won_a != form.won_b) {
    celebrate(*before->window(), MomentKind::champions, shown(form.standing_line).simplified());
  }
  show_standings<SeriesResultsWindow>(form, reports_, [this](Form& window) { add_series_chances(window, game_); });
}

void QtFrontEnd::show(tri_series_table_form& form) {
  if (unstopped_.passes_standings()) return unstopped_.user().show(form);
  const QWidget* before = front_window();
  if (before != nullptr && !form.final_result.empty()) {
    celebrate(*before->window(), MomentKind::champions, shown(form.final_result).simplified());
  }
  show_standings<TriSeriesTableWindow>(form, reports_, [this](Form& window) {
    add_tri_chances(window, game_);
    add_next_of_tri(window, game_);
  });
}

void QtFrontEnd::show(world_cup_fixtures_form& form) {
  if (unstopped_.passes_standings()) return unstopped_.user().show(form);
  show_standings<WorldCupFixturesWindow>(
      form, reports_, [this](Form& window) { add_fixture_chances(window, game_); }, game_.world_cup);
}

void QtFrontEnd::show(world_cup_tables_form& form) {
  if (unstopped_.passes_standings()) return unstopped_.user().show(form);
  const QWidget* before = front_window();
  if (before != nullptr && !next_match(game_.world_cup) && !form.winners_line.empty()) {
    celebrate(*before->window(), MomentKind::champions, shown(form.winners_line).simplified());
  }
  show_standings<WorldCupTablesWindow>(
      form, reports_, [this](Form& window) { add_cup_chances(window, game_); }, game_.world_cup);
}

}  // namespace velorin
