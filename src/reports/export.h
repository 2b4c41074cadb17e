// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "reports/scorecard.h"

// The match as it stands, written to a file from the open batting card. A file has two innings once the first is over.
// Texts are single bytes of Windows-1252 with CR LF line ends.

namespace velorin {

struct match_state;
struct open_database;
struct match_play;

/// Where the exported page says it comes from.
inline constexpr std::string_view home_page = "https://velorin.example/";

enum class export_kind { html, text, ball_by_ball };

/// The three files' bytes. `card` is the open card; the rest is read from match, the colours of the page from settings.
std::string html_scorecard(const match_state& match, const open_database& data, const scorecard_form& card);
std::string text_scorecard(const match_state& match, const scorecard_form& card);
std::string ball_by_ball(const match_state& match, const scorecard_form& card);

/// Writes the file `path` whole, in place of what was there, as fresh_file does. Raises run_time_error as it does: an
/// old file stays as it was then, unless it had to be written to straight. Refuses the names of the game's own files.
void write_export(const match_state& match, const open_database& data, const scorecard_form& card, export_kind kind,
                  const std::filesystem::path& path);
/// The same from a card opened just now.
void write_export(const match_state& match, const open_database& data, export_kind kind,
                  const std::filesystem::path& path);

}  // namespace velorin
