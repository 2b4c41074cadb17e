// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/export_model.h"

#include <gtest/gtest.h>

#include <vector>

#include "model/code_page.h"

namespace velorin::testing {

namespace {

using nlohmann::json;

std::string bytes_of(const json& text) { return *from_utf8(text.get<std::string>()); }
std::string overs(int balls) { return std::to_string(balls / 6) + "." + std::to_string(balls % 6); }

/// A page of lines with columns from 1 on.
class page {
 public:
  page& put(const std::string& text) {
    line_ += text;
    return *this;
  }
  page& number(int value) { return put(" " + std::to_string(value) + " "); }
  page& tab(std::size_t column) {
    if (line_.size() + 1 > column) end();
    line_.append(column - 1 - line_.size(), ' ');
    return *this;
  }
  page& end() {
    file_ += line_ + "\r\n";
    line_.clear();
    return *this;
  }
  page& line(const std::string& text) { return put(text).end(); }
  const std::string& file() const { return file_; }

 private:
  std::string line_;
  std::string file_;
};

/// The columns behind the names, of the header and of the rows.
struct columns {
  std::array<std::size_t, 3> head;
  std::array<std::size_t, 3> rows;
};
constexpr columns page_columns = {{66, 72, 78}, {66, 71, 77}};
constexpr columns text_columns = {{65, 70, 74}, {65, 69, 73}};

class writer {
 public:
  explicit writer(const json& state)
      : s(state),
        two_innings(state["first_total"] != 0),
        batting(bytes_of(state["team1_name"])),
        bowling(bytes_of(state["team2_name"])) {}

  void batting_table(const json& card, bool current, const columns& at) {
    out.tab(20).tab(40).tab(60).tab(at.head[0]).tab(at.head[1]).put("4s").tab(at.head[2]).put("6s").end();
    for (std::size_t i = 0; i < 11; ++i) {
      const json& man = card[i];
      if (man["name"] == "") continue;
      std::string part = bytes_of(man["how_out"]);
      const int position = static_cast<int>(i) + 1;
      if (current && part.empty() && (s["striker"] == position || s["non_striker"] == position)) part = "  Not Out   ";
      out.put(bytes_of(man["name"])).tab(20).put(bytes_of(man["fielder"])).tab(40).put(part).tab(60);
      out.number(man["runs"]).tab(at.rows[0]).number(man["balls"]).tab(at.rows[1]).number(man["fours"]);
      out.tab(at.rows[2]).number(man["sixes"]).end();
    }
  }

  void first_total() {
    out.tab(34).put(" (" + std::to_string(s["first_wickets"].get<int>()) + " wickets , " + overs(s["first_balls"]) +
                    "  Overs)");
    out.tab(60).number(s["first_total"]).end();
  }
  void total() {
    out.tab(34).put("(" + std::to_string(s["score_wickets"].get<int>()) + " wickets , " + overs(s["innings_balls"]) +
                    "  Overs)");
    out.tab(60).put(std::to_string(s["score_runs"].get<int>())).end();
  }

  /// The list keeps the entries of the innings before where this one has none.
  void fall_of_wickets(const json& falls) {
    for (std::size_t i = 1; i <= 10; ++i) {
      const json& fall = falls[i];
      if (fall["balls"].get<int>() <= 0) continue;
      fallen[i] = std::to_string(fall["score"].get<int>()) + " (" + overs(fall["balls"]) + "," +
                  bytes_of(fall["batsman_b"]) + ")";
    }
    out.line("Fall of Wickets :");
    for (const std::size_t i : {1, 4, 7}) out.put(fallen[i]).tab(25).put(fallen[i + 1]).tab(50).line(fallen[i + 2]);
    out.line(fallen[10]);
  }

  void bowling_row(const json& man) {
    out.put(bytes_of(man["name"])).tab(20).put(overs(man["balls"])).tab(26).number(man["maidens"]);
    out.tab(31).number(man["runs"]).tab(36).number(man["wickets"]).end();
  }
  void bowling_head() { out.tab(21).put("O").tab(27).put("M").tab(32).put("R").tab(37).put("W").end(); }
  void first_bowling_table() {
    bowling_head();
    for (std::size_t i = 11; i-- > 0;) {
      if (s["first_bowling_card"][i]["balls"] != 0) bowling_row(s["first_bowling_card"][i]);
    }
  }
  void bowling_table() {
    bowling_head();
    for (const json& shown : s["bowler_list"]) {
      int found = 0;
      for (const json& man : s["bowling_card"]) {
        if (shortened(bytes_of(man["name"])) != bytes_of(shown)) continue;
        ++found;
        bowling_row(man);
      }
      EXPECT_EQ(found, 1) << shown;
    }
  }
  static std::string shortened(const std::string& name) {
    return name.size() < 12 ? name : name.substr(0, 8) + "'" + name.substr(name.size() - 2);
  }

  void heading(const std::string& team, const char* what) { out.tab(27).line(team + what); }
  void both_tables_of_first() {
    batting_table(s["first_batting_card"], false, text_columns);
    out.end();
    first_total();
    fall_of_wickets(s["first_fall_of_wicket"]);
    out.end();
    heading(batting, " - Bowling");
    out.end();
    first_bowling_table();
    out.end();
  }
  void plain_end() {
    heading(batting, " - Batting");
    batting_table(s["batting_card"], true, text_columns);
    out.end();
    total();
    fall_of_wickets(s["fall_of_wicket"]);
    out.end();
    heading(bowling, " - Bowling");
    out.end();
    bowling_head_and_rows();
    out.end();
    out.line(std::string(56, '=')).end().line("Automatically Generated by Velorin");
  }
  void bowling_head_and_rows() { bowling_table(); }

  const json& s;
  const bool two_innings;
  const std::string batting;
  const std::string bowling;
  std::array<std::string, 11> fallen;
  page out;
};

}  // namespace

std::string wanted_page(const json& state, const std::string& text_color, const std::string& back_color) {
  writer w(state);
  page& out = w.out;
  out.line("<HEAD>").line("<TITLE>Scorecard</TITLE>").line("</HEAD>");
  out.line("<BODY TEXT =#" + text_color + " BGCOLOR=#" + back_color + " LINK=#00FF00 VLINK=#80FF80>");
  out.line("<font face=arial>").line("<center><h3>Velorin</h3></center>");
  out.line("<center><h2>" + w.batting + " vs " + w.bowling + "</center></h3>");
  out.line("<center><i><h4>Played at " + bytes_of(state["venue_name"]) + "</i></center></h3>");
  if (w.two_innings) {
    out.line("<h4>" + w.bowling + " - Batting</h4>").line("<PRE>");
    w.batting_table(state["first_batting_card"], false, page_columns);
    out.end();
    w.first_total();
    w.fall_of_wickets(state["first_fall_of_wicket"]);
    out.line("</pre>").line("<h4>" + w.batting + " - Bowling</h4>").line("<pre>");
    w.first_bowling_table();
    out.line("</pre>");
  }
  out.line("<h4>" + w.batting + " - Batting</h4>").line("<PRE>");
  w.batting_table(state["batting_card"], true, page_columns);
  out.end();
  w.total();
  w.fall_of_wickets(state["fall_of_wicket"]);
  out.line("</pre>").line("<h4>" + w.bowling + " - Bowling</h4>").line("<pre>");
  w.bowling_table();
  out.line("</pre>").line("<hr>");
  return out.file();
}

std::string wanted_text(const json& state) {
  writer w(state);
  page& out = w.out;
  const bool two = w.two_innings;
  out.end().tab(25).line("Velorin Scorecard");
  out.tab(23).line(std::string(two ? 23 : 28, '=')).end();
  out.tab(25).line(two ? w.bowling + " vs " + w.batting : w.batting + " vs " + w.bowling).end();
  out.tab(25).line((two ? "Played at: " : "Played at ") + bytes_of(state["venue_name"])).end();
  if (two) w.both_tables_of_first();
  w.plain_end();
  return out.file();
}

std::string wanted_ball_by_ball(const json& state) {
  writer w(state);
  page& out = w.out;
  const bool two = w.two_innings;
  out.end().tab(17).line(two ? "Velorin Ball By Ball Output" : "Velorin Ball-by-Ball Output");
  out.tab(16).line(std::string(35, '='));
  if (two) out.end();
  out.tab(25).line(two ? w.bowling + " vs " + w.batting : w.batting + " vs " + w.bowling).end();
  out.tab(25).line("Played at " + bytes_of(state["venue_name"]));
  if (two) {
    out.end();
    for (const json& line : state["commentary_store"]) out.line(bytes_of(line));
    out.end().line("Scorecard");
    w.both_tables_of_first();
  }
  for (const json& line : state["ball_commentary"]) out.line(bytes_of(line));
  out.end().line(two ? "Scorecard - 2nd Innings" : "Scorecard");
  w.plain_end();
  return out.file();
}

}  // namespace velorin::testing
