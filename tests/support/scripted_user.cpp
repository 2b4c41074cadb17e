// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/scripted_user.h"

#include "console/captain_forms.h"
#include "engine/driver.h"
#include "setup/teamsel.h"
#include "setup/toss.h"
#include "setup/wecond.h"

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

void scripted_user::show(wecond& form) {
  requests.push_back("wecond");
  if (!take_answer(on_wecond, form)) headless_user::show(form);
}

void scripted_user::show(teamsel& form) {
  requests.push_back("teamsel " + form.heading());
  if (!take_answer(on_teamsel, form)) headless_user::show(form);
}

void scripted_user::show(toss& form) {
  requests.push_back("toss " + form.label1);
  if (!take_answer(on_toss, form)) headless_user::show(form);
}

void scripted_user::show(batorder& form) {
  requests.push_back("batorder " + form.title);
  if (!take_answer(on_batorder, form)) headless_user::show(form);
}

void scripted_user::show(chgbowler& form) {
  requests.push_back("chgbowler " + form.title);
  if (!take_answer(on_chgbowler, form)) headless_user::show(form);
}

void scripted_user::show(aggr& form) {
  requests.push_back("aggr" + form.label1_0);
  if (!take_answer(on_aggr, form)) headless_user::show(form);
}

void scripted_user::show(batsmandetails& form) {
  requests.push_back("batsmandetails " + form.figures.headline);
  if (on_batsmandetails) on_batsmandetails(form);
  form.command1_click();
}

void scripted_user::show(main_console& form) {
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

void scripted_user::show(sri_result& form) {
  requests.push_back("sri_result");
  series_results.push_back(form);
  if (!take_answer(on_sri_result, form)) headless_user::show(form);
}

void scripted_user::show(triserresult& form) {
  requests.push_back("triserresult");
  tri_tables.push_back(form);
  if (!take_answer(on_triserresult, form)) headless_user::show(form);
}

void scripted_user::show(wc_fix& form) {
  requests.push_back("wc_fix");
  fixture_lists.push_back(form);
  if (!take_answer(on_wc_fix, form)) headless_user::show(form);
}

void scripted_user::show(wcsstab& form) {
  requests.push_back("wcsstab");
  cup_tables.push_back(form);
  if (!take_answer(on_wcsstab, form)) headless_user::show(form);
}

std::vector<std::string> scripted_user::requests_of(const std::string& kind) const {
  std::vector<std::string> found;
  for (const std::string& request : requests) {
    if (request.starts_with(kind)) found.push_back(request);
  }
  return found;
}

}  // namespace velorin::testing
