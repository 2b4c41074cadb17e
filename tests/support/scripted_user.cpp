// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/scripted_user.h"

#include "console/captain_forms.h"
#include "engine/over_play.h"
#include "setup/conditions.h"
#include "setup/team_selection.h"
#include "setup/toss.h"

namespace velorin::testing {

namespace {

/// Takes the next answer of a list. False if there is none.
template <class Form>
bool take_answer(std::deque<std::function<void(Form&)>>& answers, Form& form) {
  if (answers.empty()) return false;
  const auto next = answers.front();
  answers.pop_front();
  next(form);
  return true;
}

}  // namespace

void scripted_user::show(const message_box& message) {
  requests.push_back("message " + message.title + " | " + message.text);
  messages.push_back(message);
  if (on_message) on_message(message);
}

save_answer scripted_user::answer(const failed_save& failed) {
  requests.push_back("failed save " + failed.cause);
  if (on_failed_save.empty()) return headless_user::answer(failed);
  const auto next = on_failed_save.front();
  on_failed_save.pop_front();
  return next(failed);
}

void scripted_user::show(conditions_form& form) {
  requests.push_back("wecond");
  if (!take_answer(on_conditions, form)) headless_user::show(form);
}

void scripted_user::show(team_selection_form& form) {
  requests.push_back("teamsel " + form.heading());
  if (!take_answer(on_team_selection, form)) headless_user::show(form);
}

void scripted_user::show(toss_form& form) {
  requests.push_back("toss " + form.headline);
  if (!take_answer(on_toss, form)) headless_user::show(form);
}

void scripted_user::show(next_batsman_form& form) {
  requests.push_back("batorder " + form.title);
  if (!take_answer(on_next_batsman, form)) headless_user::show(form);
}

void scripted_user::show(bowler_choice_form& form) {
  requests.push_back("chgbowler " + form.title);
  if (!take_answer(on_bowler_choice, form)) headless_user::show(form);
}

void scripted_user::show(aggression_form& form) {
  requests.push_back("aggr" + form.player_name);
  if (!take_answer(on_aggression, form)) headless_user::show(form);
}

void scripted_user::show(batsman_details_form& form) {
  requests.push_back("batsmandetails " + form.figures.headline);
  if (on_batsman_details) on_batsman_details(form);
  form.accept();
}

void scripted_user::show(console_form& form) {
  requests.push_back("console");
  if (on_console) {
    on_console(form);
  } else {
    headless_user::show(form);
  }
}

void scripted_user::ball_bowled() {
  ++balls_bowled;
  if (on_ball) on_ball();
}

void scripted_user::progress(int) {
  ++progress_calls;
  progress_open = true;
}

void scripted_user::progress_done() { progress_open = false; }

void scripted_user::open(report which) {
  requests.push_back("report " + std::to_string(static_cast<int>(which)));
  if (on_report) on_report(which);
}

void scripted_user::show(series_results_form& form) {
  requests.push_back("sri_result");
  series_results.push_back(form);
  if (!take_answer(on_series_results, form)) headless_user::show(form);
}

void scripted_user::show(tri_series_table_form& form) {
  requests.push_back("triserresult");
  tri_tables.push_back(form);
  if (!take_answer(on_tri_series_table, form)) headless_user::show(form);
}

void scripted_user::show(world_cup_fixtures_form& form) {
  requests.push_back("wc_fix");
  fixture_lists.push_back(form);
  if (!take_answer(on_world_cup_fixtures, form)) headless_user::show(form);
}

void scripted_user::show(world_cup_tables_form& form) {
  requests.push_back("wcsstab");
  cup_tables.push_back(form);
  if (!take_answer(on_world_cup_tables, form)) headless_user::show(form);
}

std::vector<std::string> scripted_user::requests_of(const std::string& kind) const {
  std::vector<std::string> found;
  for (const std::string& request : requests) {
    if (request.starts_with(kind)) found.push_back(request);
  }
  return found;
}

}  // namespace velorin::testing
