// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

// The views of an innings as tables of texts, and in words: what a window shows, copies and saves, and what a screen
// reader reads. Texts are single bytes of Windows-1252.

namespace velorin {

struct innings_story;
struct match_story;

struct story_column {
  std::string heading;
  std::string spoken = {};  ///< the heading in full
  bool numbers = false;     ///< stands at the right
  bool wide = false;        ///< takes what room is left
};

struct story_row {
  std::vector<std::string> cells;  ///< one for each column
  int first_over = 0;              ///< that the row tells of, 1 to 50; 0 for none in particular
  int last_over = 0;               ///< likewise
  bool total = false;              ///< sums up the rows above
};

struct story_table {
  std::string name;
  std::vector<story_column> columns = {};
  std::vector<story_row> rows = {};
};

/// Each man who came in: how he was out, runs, balls, dots, fours, sixes, strike rate.
story_table batting_story(const innings_story& innings);
/// Each man who bowled: overs, maidens, runs, wickets, economy, dots.
story_table bowling_story(const innings_story& innings);
/// The falls of wickets.
story_table falls_story(const innings_story& innings);
/// Total, extras and who did not bat, in sentences.
std::string card_words(const innings_story& innings);

/// Overs 1-10, 11-40, 41-50, and the innings.
story_table phases_story(const innings_story& innings);
/// The stands with both men's shares.
story_table stands_story(const innings_story& innings);
/// Batsman against bowler.
story_table meetings_story(const innings_story& innings);
story_table spells_story(const innings_story& innings);
/// How the runs of each batsman came, and those of the innings.
story_table kinds_story(const innings_story& innings);
/// Ball by ball.
story_table scorebook_story(const innings_story& innings);
/// Over by over: runs, wickets, score, run rate, required rate.
story_table overs_story(const innings_story& innings);
/// Milestones of the match.
story_table notes_story(const match_story& match);

/// A table in sentences: the name, then each row with its headings in full. Without rows it says so.
std::string words_of(const story_table& table);

/// The row that tells of an over; nothing where none does.
std::optional<int> row_of_over(const story_table& table, int over);

}  // namespace velorin
