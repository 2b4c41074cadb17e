// SPDX-License-Identifier: GPL-3.0-or-later
#include "archive/archive_pages.h"

#include <utility>

#include "archive/archive_file.h"

namespace velorin {

namespace {

using kind = archive_subject::kind;
using conditions = std::vector<condition>;

constexpr long most_recent = 10;
constexpr long most_listed = 15;

conditions with(conditions all, condition more) {
  all.push_back(std::move(more));
  return all;
}

/// Of a team or a ground: those with fewer wickets are many, and take their time to sort.
const condition figures_worth_telling = {"wickets", ">=", "3"};

question summed(rows_of from, const char* by, conditions where, const char* sort = "") {
  return {.from = from, .by = {by}, .where = std::move(where), .sort = sort, .descending = *sort != '\0'};
}

question best(rows_of from, conditions where, const char* sort, bool most = true) {
  return {.from = from, .where = std::move(where), .sort = sort, .descending = most, .top = most_listed};
}

question latest(rows_of from, conditions where, const char* match = "match_id") {
  return {.from = from, .where = std::move(where), .sort = match, .descending = true, .top = most_recent};
}

conditions of_man(const std::string& name, const std::string& team) {
  conditions where = {{"player", "=", name}};
  if (!team.empty()) where.push_back({"team", "=", team});
  return where;
}

question career(rows_of from, const std::string& name, const std::string& team) {
  // Sums by man and team are kept along in the archive.
  question asked{.from = from, .by = {"player"}, .where = of_man(name, team)};
  if (!team.empty()) asked.by.emplace_back("team");
  return asked;
}

/// A section for each of the ways in which sums are parted.
struct parted {
  const char* title;
  const char* by;
};

void add_parted(std::vector<page_section>& sections, rows_of from, const conditions& where,
                std::initializer_list<parted> ways, const char* chart) {
  for (const parted& way : ways) {
    const bool in_time = std::string_view(way.by) == "year";
    sections.push_back({.title = way.title, .asked = summed(from, way.by, where), .chart = in_time ? chart : ""});
  }
}

archive_page player_page(const archive_subject& about) {
  const conditions his = of_man(about.name, about.team);
  archive_page page{.heading = about.name, .below = about.team, .note = {}, .sections = {}};
  auto& sections = page.sections;
  sections.push_back({.title = "Batting career",
                      .asked = career(rows_of::batting, about.name, about.team),
                      .how = page_section::kind::figures});
  sections.push_back({.title = "Bowling career",
                      .asked = career(rows_of::bowling, about.name, about.team),
                      .how = page_section::kind::figures});
  sections.push_back(
      {.title = "Last ten innings", .asked = latest(rows_of::batting, his), .chart = "runs", .last_first = true});
  sections.push_back({.title = "Last ten with the ball",
                      .asked = latest(rows_of::bowling, his),
                      .chart = "wickets",
                      .last_first = true});
  sections.push_back({.title = "Milestones", .asked = {}, .how = page_section::kind::milestones});
  sections.push_back({.title = "Highest scores", .asked = best(rows_of::batting, his, "runs")});
  sections.push_back(
      {.title = "Best figures", .asked = best(rows_of::bowling, with(his, {"wickets", ">=", "1"}), "figures")});
  add_parted(sections, rows_of::batting, his,
             {{"Batting by opponent", "opponent"},
              {"Batting by ground", "ground"},
              {"Batting by country", "country"},
              {"Batting by year", "year"},
              {"Batting by position", "position"},
              {"Batting by innings", "innings"}},
             "average");
  sections.push_back({.title = "How he was out", .asked = summed(rows_of::batting, "how_out", his, "innings")});
  sections.push_back({.title = "Against each bowler",
                      .asked = {.from = rows_of::meetings,
                                .by = {"bowler", "opponent"},
                                .where = his,
                                .sort = "balls",
                                .descending = true}});
  sections.push_back({.title = "Who got him out",
                      .asked = {.from = rows_of::batting,
                                .by = {"bowler", "opponent"},
                                .where = with(his, {"bowler", "!=", ""}),
                                .sort = "innings",
                                .descending = true}});
  add_parted(sections, rows_of::bowling, his,
             {{"Bowling by opponent", "opponent"},
              {"Bowling by ground", "ground"},
              {"Bowling by country", "country"},
              {"Bowling by year", "year"},
              {"Bowling by innings", "innings"}},
             "wickets");
  return page;
}

archive_page team_page(const archive_subject& about) {
  const conditions its = {{"team", "=", about.name}};
  archive_page page{.heading = about.name, .below = "Team", .note = {}, .sections = {}};
  auto& sections = page.sections;
  sections.push_back(
      {.title = "Record", .asked = summed(rows_of::innings, "team", its), .how = page_section::kind::figures});
  sections.push_back(
      {.title = "Last ten matches", .asked = latest(rows_of::innings, its), .chart = "runs", .last_first = true});
  add_parted(sections, rows_of::innings, its,
             {{"By opponent", "opponent"},
              {"By ground", "ground"},
              {"By country", "country"},
              {"By year", "year"},
              {"By competition", "competition"},
              {"Batting first and second", "innings"}},
             "won");
  sections.push_back({.title = "Highest totals", .asked = best(rows_of::innings, its, "runs")});
  sections.push_back({.title = "Lowest totals all out",
                      .asked = best(rows_of::innings, with(its, {"wickets", "=", "10"}), "runs", false)});
  sections.push_back({.title = "Most runs",
                      .asked = {.from = rows_of::batting,
                                .by = {"player", "team"},
                                .where = its,
                                .sort = "runs",
                                .descending = true,
                                .top = most_listed}});
  sections.push_back({.title = "Most wickets",
                      .asked = {.from = rows_of::bowling,
                                .by = {"player", "team"},
                                .where = its,
                                .sort = "wickets",
                                .descending = true,
                                .top = most_listed}});
  sections.push_back({.title = "Highest scores", .asked = best(rows_of::batting, its, "runs")});
  sections.push_back(
      {.title = "Best figures", .asked = best(rows_of::bowling, with(its, figures_worth_telling), "figures")});
  sections.push_back({.title = "Highest stands", .asked = best(rows_of::stands, its, "runs")});
  return page;
}

archive_page ground_page(const archive_subject& about) {
  const conditions here = {{"ground", "=", about.name}};
  archive_page page{.heading = about.name, .below = "Ground", .note = {}, .sections = {}};
  auto& sections = page.sections;
  sections.push_back(
      {.title = "Matches", .asked = summed(rows_of::matches, "ground", here), .how = page_section::kind::figures});
  sections.push_back({.title = "Last ten matches",
                      .asked = latest(rows_of::matches, here, "id"),
                      .chart = "first_runs",
                      .last_first = true});
  sections.push_back({.title = "By year", .asked = summed(rows_of::matches, "year", here), .chart = "run_rate"});
  sections.push_back({.title = "Teams here", .asked = summed(rows_of::innings, "team", here, "won")});
  sections.push_back({.title = "Batting first and second", .asked = summed(rows_of::innings, "innings", here)});
  sections.push_back({.title = "Highest totals", .asked = best(rows_of::innings, here, "runs")});
  sections.push_back({.title = "Lowest totals all out",
                      .asked = best(rows_of::innings, with(here, {"wickets", "=", "10"}), "runs", false)});
  sections.push_back({.title = "Highest scores", .asked = best(rows_of::batting, here, "runs")});
  sections.push_back(
      {.title = "Best figures", .asked = best(rows_of::bowling, with(here, figures_worth_telling), "figures")});
  sections.push_back({.title = "Highest stands", .asked = best(rows_of::stands, here, "runs")});
  return page;
}

archive_page match_page(const archive_subject& about) {
  const std::string id = std::to_string(about.match);
  archive_page page{.heading = "Match " + id, .below = {}, .note = {}, .sections = {}};
  page.sections.push_back({.title = "Match", .asked = {.from = rows_of::matches, .where = {{"id", "=", id}}}});
  page.sections.push_back(
      {.title = "Both innings", .asked = {.from = rows_of::innings, .where = {{"match_id", "=", id}}}});
  for (const char* innings : {"1", "2"}) {
    const std::string which = *innings == '1' ? "First innings: " : "Second innings: ";
    const conditions where = {{"match_id", "=", id}, {"innings", "=", innings}};
    page.sections.push_back({.title = which + "batting", .asked = {.from = rows_of::batting, .where = where}});
    page.sections.push_back(
        {.title = which + "bowling", .asked = {.from = rows_of::bowling, .where = where, .sort = "came_on"}});
    page.sections.push_back({.title = which + "stands", .asked = {.from = rows_of::stands, .where = where}});
  }
  return page;
}

archive_page two_players_page(const archive_subject& about) {
  archive_page page{.heading = about.name + " and " + about.other, .below = "Side by side", .note = {}, .sections = {}};
  const auto both = [&](const char* title, rows_of from) {
    page.sections.push_back({.title = title,
                             .asked = career(from, about.name, about.team),
                             .how = page_section::kind::beside,
                             .other = career(from, about.other, about.other_team)});
  };
  both("Batting", rows_of::batting);
  both("Bowling", rows_of::bowling);
  const auto against = [&](const std::string& batsman, const std::string& team, const std::string& bowler,
                           const std::string& bowlers_team) {
    conditions met = with(of_man(batsman, team), {"bowler", "=", bowler});
    if (!bowlers_team.empty()) met.push_back({"opponent", "=", bowlers_team});
    page.sections.push_back({.title = batsman + " against " + bowler,
                             .asked = summed(rows_of::meetings, "bowler", met),
                             .how = page_section::kind::figures});
    page.sections.push_back(
        {.title = batsman + " out to " + bowler, .asked = {.from = rows_of::batting, .where = met}});
  };
  against(about.name, about.team, about.other, about.other_team);
  against(about.other, about.other_team, about.name, about.team);
  return page;
}

archive_page two_teams_page(const archive_subject& about) {
  archive_page page{.heading = about.name + " and " + about.other, .below = "Side by side", .note = {}, .sections = {}};
  const conditions met = {{"team", "=", about.name}, {"opponent", "=", about.other}};
  const conditions others = {{"team", "=", about.other}, {"opponent", "=", about.name}};
  const auto both = [&](const char* title, conditions one, conditions other) {
    page.sections.push_back({.title = title,
                             .asked = summed(rows_of::innings, "team", std::move(one)),
                             .how = page_section::kind::beside,
                             .other = summed(rows_of::innings, "team", std::move(other))});
  };
  both("Against each other", met, others);
  both("Against all teams", {met.front()}, {others.front()});
  page.sections.push_back({.title = "Last ten matches", .asked = latest(rows_of::innings, met)});
  page.sections.push_back({.title = about.name + ": highest scores", .asked = best(rows_of::batting, met, "runs")});
  page.sections.push_back({.title = about.other + ": highest scores", .asked = best(rows_of::batting, others, "runs")});
  page.sections.push_back({.title = about.name + ": best figures", .asked = best(rows_of::bowling, met, "figures")});
  page.sections.push_back(
      {.title = about.other + ": best figures", .asked = best(rows_of::bowling, others, "figures")});
  return page;
}

}  // namespace

archive_page page_of(const archive_subject& about) {
  switch (about.what) {
    case kind::player:
      return player_page(about);
    case kind::team:
      return team_page(about);
    case kind::ground:
      return ground_page(about);
    case kind::match:
      return match_page(about);
    case kind::two_players:
      return two_players_page(about);
    case kind::two_teams:
      return two_teams_page(about);
    case kind::record_book:
      break;
  }
  return {};
}

std::optional<archive_subject> side_by_side(const archive_subject& one, const archive_subject& other) {
  if (one == other || one.what != other.what) return std::nullopt;
  if (one.what != kind::player && one.what != kind::team) return std::nullopt;
  return archive_subject{.what = one.what == kind::player ? kind::two_players : kind::two_teams,
                         .name = one.name,
                         .team = one.team,
                         .other = other.name,
                         .other_team = other.team};
}

}  // namespace velorin
