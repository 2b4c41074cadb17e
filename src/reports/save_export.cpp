// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/fresh_file.h"
#include "database/game_files.h"
#include "database/open_database.h"
#include "database/whole_file.h"
#include "model/match_state.h"
#include "model/run_time_error.h"
#include "reports/export.h"
#include "ui/match_play.h"

namespace velorin {

namespace {

std::string export_text(const match_state& match, const open_database& data, const scorecard_form& card,
                        export_kind kind) {
  switch (kind) {
    case export_kind::html:
      return html_scorecard(match, data, card);
    case export_kind::text:
      return text_scorecard(match, card);
    case export_kind::ball_by_ball:
      return ball_by_ball(match, card);
  }
  return {};
}

}  // namespace

void write_export(const match_state& match, const open_database& data, const scorecard_form& card, export_kind kind,
                  const std::filesystem::path& path) {
  if (const std::string use = game_use_of(data, path); !use.empty()) {
    throw run_time_error(failure::file, "The name is that of a file of the game, for " + use,
                         {file_name_text(path), 0, {}, {}});
  }
  const std::string content = export_text(match, data, card, kind);
  fresh_file file(path);
  file.stream() << content;
  file.put_in_place();
}

void write_export(const match_state& match, const open_database& data, export_kind kind,
                  const std::filesystem::path& path) {
  scorecard_form card(match);
  card.open();
  write_export(match, data, card, kind, path);
}

}  // namespace velorin
