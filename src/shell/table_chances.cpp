// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/table_chances.h"

#include <QLabel>
#include <QLayout>
#include <QScrollBar>
#include <algorithm>
#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "competitions/game_state.h"
#include "desktop/back_work.h"
#include "desktop/form.h"
#include "desktop/preferences.h"
#include "desktop/shown_text.h"
#include "desktop/table_view.h"
#include "forecast/competition_forecast.h"
#include "forecast/forecast_words.h"
#include "forecast/series_forecast.h"

namespace velorin {

namespace {

constexpr long runs_of_competition = 600;
constexpr long runs_of_fixture = 400;

/// The columns of a table, and what stands in them by team.
struct Chances {
  std::vector<QString> headings;
  std::map<QString, std::vector<QString>> of_team;
};

forecast_options options_behind(const std::stop_token& stop) {
  const int threads = std::clamp(static_cast<int>(std::thread::hardware_concurrency()) - 1, 1, 2);
  return {.runs = runs_of_competition, .seed = 1, .threads = threads, .stop = stop};
}

void add_columns(const Form& window, const QString& name, const Chances& chances) {
  auto* view = window.findChild<TableView*>(name);
  if (view == nullptr || view->table().rows.empty() || chances.of_team.empty()) return;
  Table table = view->table();
  for (const QString& heading : chances.headings) table.columns.push_back({.heading = heading, .numbers = true});
  for (TableRow& row : table.rows) {
    const auto found = chances.of_team.find(row.cells.front().text);
    for (std::size_t i = 0; i < chances.headings.size(); ++i) {
      const bool known = found != chances.of_team.end();
      row.cells.push_back({.text = known ? found->second[i] : QString()});
    }
  }
  view->set_table(std::move(table));
  view->setMinimumWidth(std::max(view->minimumWidth(), view->needed_width()));
  // Cards that now stand below one another get their heights at once.
  for (QWidget* around = view->parentWidget(); around != nullptr; around = around->parentWidget()) {
    around->updateGeometry();
    if (around->layout() != nullptr) around->layout()->activate();
    if (around == &window) break;
  }
}

/// The columns of the fixture list, by the place of the match.
void add_fixture_columns(const Form& window, const std::map<int, std::vector<QString>>& of_place) {
  auto* view = window.findChild<TableView*>(QStringLiteral("fixtures"));
  if (view == nullptr || of_place.empty()) return;
  Table table = view->table();
  table.columns.push_back({.heading = QStringLiteral("A wins"), .numbers = true});
  table.columns.push_back({.heading = QStringLiteral("B wins"), .numbers = true});
  for (TableRow& row : table.rows) {
    const auto found = of_place.find(row.id);
    for (std::size_t side = 0; side < 2; ++side) {
      row.cells.push_back({.text = found == of_place.end() ? QString() : found->second[side]});
    }
  }
  // The next match stays the present one, and in its place.
  const int present = view->currentIndex().row();
  const int scrolled = view->verticalScrollBar()->value();
  view->set_table(std::move(table));
  view->setCurrentIndex(view->model()->index(present, 0));
  view->clearSelection();
  view->verticalScrollBar()->setValue(scrolled);
}

std::vector<QString> words_of_stages(const std::vector<double>& stages, int settled,
                                     const std::vector<std::size_t>& told) {
  std::vector<QString> words;
  words.reserve(told.size());
  for (const std::size_t stage : told) words.push_back(shown(stage_words(stages, settled, stage)));
  return words;
}

QString words_of(const two_chances& two) {
  return shown(two.a + ' ' + chance_words(two.win_a) + ", " + two.b + ' ' + chance_words(two.win_b));
}

void show_line(const Form& window, const QString& words) {
  auto* line = window.findChild<QLabel*>(QStringLiteral("chances_line"));
  if (line == nullptr) return;
  line->setText(words);
  line->setAccessibleName(words);
}

/// Works behind a window that goes with it.
void work_behind(Form& window, BackWork::Work work) {
  if (!preferences::forecast()) return;
  auto* behind = new BackWork(&window);
  behind->setObjectName(QStringLiteral("chances"));
  behind->ask(std::move(work));
}

}  // namespace

void add_tri_chances(Form& window, const game_state& game) {
  work_behind(window,
              [&window, copy = std::make_shared<game_state>(own_copy(game))](const std::stop_token& stop,
                                                                             const auto&) -> BackWork::Show {
                Chances table{.headings = {QStringLiteral("Final"), QStringLiteral("Title")}, .of_team = {}};
                const auto found = forecast_tri(*copy, options_behind(stop));
                for (const tri_chances& team : found.teams) {
                  table.of_team[shown(team.team)] = words_of_stages({team.final, team.title}, found.settled, {0, 1});
                }
                return [&window, table] { add_columns(window, QStringLiteral("table"), table); };
              });
}

void add_series_chances(Form& window, const game_state& game) {
  work_behind(window,
              [&window, copy = std::make_shared<game_state>(own_copy(game))](const std::stop_token& stop,
                                                                             const auto&) -> BackWork::Show {
                const auto found = forecast_series(*copy, options_behind(stop));
                if (!found) return {};
                const QString words = QStringLiteral("Forecast: the next match %1; the series %2")
                                          .arg(words_of(found->next), words_of(found->series));
                return [&window, words] { show_line(window, words); };
              });
}

void add_next_of_tri(Form& window, const game_state& game) {
  work_behind(window,
              [&window, copy = std::make_shared<game_state>(own_copy(game))](const std::stop_token& stop,
                                                                             const auto&) -> BackWork::Show {
                const auto found = forecast_next_of_tri(*copy, options_behind(stop));
                if (!found) return {};
                const QString words = QStringLiteral("Forecast: the next match %1").arg(words_of(*found));
                return [&window, words] { show_line(window, words); };
              });
}

void add_cup_chances(Form& window, const game_state& game) {
  work_behind(window,
              [&window, copy = std::make_shared<game_state>(own_copy(game))](const std::stop_token& stop,
                                                                             const auto&) -> BackWork::Show {
                Chances group{.headings = {QStringLiteral("Super Six"), QStringLiteral("Title")}, .of_team = {}};
                Chances super_six{
                    .headings = {QStringLiteral("Semi"), QStringLiteral("Final"), QStringLiteral("Title")},
                    .of_team = {}};
                const auto found = forecast_cup(*copy, options_behind(stop));
                for (const cup_chances& team : found.teams) {
                  const std::vector<double> stages = {team.super_six, team.semi_finals, team.grand_final, team.title};
                  group.of_team[shown(team.team)] = words_of_stages(stages, found.settled, {0, 3});
                  super_six.of_team[shown(team.team)] = words_of_stages(stages, found.settled, {1, 2, 3});
                }
                return [&window, group, super_six] {
                  add_columns(window, QStringLiteral("group_a"), group);
                  add_columns(window, QStringLiteral("group_b"), group);
                  add_columns(window, QStringLiteral("super_six"), super_six);
                };
              });
}

void add_fixture_chances(Form& window, const game_state& game) {
  work_behind(window,
              [&window, copy = std::make_shared<game_state>(own_copy(game))](const std::stop_token& stop,
                                                                             const auto&) -> BackWork::Show {
                forecast_options options = options_behind(stop);
                options.runs = runs_of_fixture;
                std::map<int, std::vector<QString>> of_place;
                for (const fixture_chances& match : forecast_fixtures(*copy, options)) {
                  of_place[match.place] = {shown(chance_words(match.win_a)), shown(chance_words(match.win_b))};
                }
                return [&window, of_place] { add_fixture_columns(window, of_place); };
              });
}

}  // namespace velorin
