// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/match_run.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <utility>

#include "cli/standard_output.h"
#include "model/code_page.h"
#include "model/match_state.h"
#include "model/run_time_error.h"
#include "reports/export.h"

namespace velorin::cli {

namespace {

constexpr std::size_t usual_line = 112 * 1024;  ///< bytes of a match's object, with some to spare

}  // namespace

void match_recorder::begin_match(bool last) {
  last_ = last;
  innings_ = 0;
  if (options_.json.empty()) return;
  line_.reserve(usual_line);
  line_ = R"({"format":"velorin-match","version":1,"scorecards":[)";
  messages_ = json::array();
}

void match_recorder::show(const message_box& message) {
  if (!options_.json.empty()) messages_.push_back({{"title", to_utf8(message.title)}, {"text", to_utf8(message.text)}});
}

void match_recorder::open(report which) {
  if (which != report::scorecard) return;
  ++innings_;
  if (options_.prints_summary()) summary_.add_innings(match_);
  if (!options_.json.empty()) line_.append(innings_ == 1 ? "" : ",").append(state_text(match_));
  if (!last_) return;
  if (options_.prints_scorecard()) {
    scorecard_form card(match_);
    card.open();
    shown_ = text_scorecard(match_, card);
  }
  if (innings_ == options_.export_innings) save_exports();
  exported_ = exported_ || innings_ == options_.export_innings;
}

void match_recorder::require_exports() const {
  const bool wanted = !options_.html.empty() || !options_.text.empty() || !options_.ball_by_ball.empty();
  if (!wanted || exported_) return;
  throw run_time_error(failure::file,
                       fmt::format("Nothing to export: there was no end of innings {}", options_.export_innings));
}

std::string match_recorder::match_line(std::uint64_t draws) {
  line_.append(R"(],"messages":)").append(messages_.dump());
  line_.append(R"(,"result":)").append(result_json(match_).dump());
  line_.append(R"(,"draws_used":)").append(std::to_string(draws)).append("}\n");
  return std::move(line_);
}

std::string match_recorder::shown_scorecard() const {
  std::string text;
  // A line ends with CR LF; either of them alone is of a name.
  for (std::size_t at = 0; at < shown_.size();) {
    const std::size_t end = std::min(shown_.find("\r\n", at), shown_.size());
    text += shown_line(std::string_view(shown_).substr(at, end - at));
    if (end != shown_.size()) text += '\n';
    at = end + 2;
  }
  return text;
}

void match_recorder::save_exports() const {
  const std::array<std::pair<export_kind, const std::string*>, 3> wanted = {
      {{export_kind::html, &options_.html},
       {export_kind::text, &options_.text},
       {export_kind::ball_by_ball, &options_.ball_by_ball}}};
  for (const auto& [kind, path] : wanted) {
    if (!path->empty()) write_export(match_, data_, kind, *path);
  }
}

json_output::json_output(const std::string& path, std::ostream& out) : out_(&out) {
  if (path.empty() || path == "-") return;
  file_ = std::make_unique<fresh_file>(path);
  out_ = &file_->stream();
}

void json_output::write(std::string_view line) {
  *out_ << line;
  if (file_) file_->require_good();
  if (!*out_) require_written(*out_);
}

void json_output::close() {
  if (file_) {
    file_->put_in_place();
  } else {
    require_written(*out_);
  }
}

}  // namespace velorin::cli
