// SPDX-License-Identifier: GPL-3.0-or-later
#include "forecast/forms/match_line_window.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <optional>
#include <thread>
#include <utility>

#include "desktop/controls.h"
#include "desktop/message_window.h"
#include "desktop/preferences.h"
#include "desktop/program_end.h"
#include "desktop/shown_text.h"
#include "desktop/table_view.h"
#include "forecast/forms/win_line_chart.h"
#include "model/match_state.h"

namespace velorin {

namespace {

constexpr int balls_between_looks = 24;  ///< after so many the window shows what is known

QString signed_percent(double share) {
  const double percent = std::round(1000 * share) / 10;
  return (percent < 0 ? QStringLiteral("\u2212%1 %") : QStringLiteral("+%1 %")).arg(std::abs(percent), 0, 'f', 1);
}

QString what_it_brought(const delivery& ball) {
  if (ball.is_wicket()) return ball.how == dismissal::run_out ? QStringLiteral("Run out") : QStringLiteral("Out");
  switch (ball.outcome) {
    case four_runs:
      return QStringLiteral("Four");
    case six_runs:
      return QStringLiteral("Six");
    case no_ball:
      return QStringLiteral("No ball");
    case wide_ball:
      return QStringLiteral("Wide");
    case leg_byes:
      return QStringLiteral("Leg byes, %1").arg(ball.extras);
    case byes:
      return QStringLiteral("Byes, %1").arg(ball.extras);
    default:
      return ball.runs == 0   ? QStringLiteral("No run")
             : ball.runs == 1 ? QStringLiteral("One run")
                              : QStringLiteral("%1 runs").arg(ball.runs);
  }
}

QString over_of(const delivery& ball) { return QStringLiteral("%1.%2").arg(ball.over - 1).arg(ball.ball); }

/// A swing for the side that gained by it.
QString swing_words(const line_point& point, const ChartSides& sides) {
  const bool to_first = point.swing >= 0;
  return QStringLiteral("%1 %2").arg(sides[to_first ? 0 : 1], signed_percent(std::abs(point.swing)));
}

Table turns_table(const std::vector<line_point>& turns, const ChartSides& sides) {
  Table table;
  table.name = QStringLiteral("Turning points");
  table.order = RowOrder::fixed;
  table.columns = {{.heading = QStringLiteral("No."), .numbers = true},       {.heading = QStringLiteral("Batting")},
                   {.heading = QStringLiteral("Over"), .numbers = true},      {.heading = QStringLiteral("Bowler")},
                   {.heading = QStringLiteral("Batsman"), .stretches = true}, {.heading = QStringLiteral("Result")},
                   {.heading = QStringLiteral("Swing"), .numbers = true}};
  int number = 0;
  for (const line_point& turn : turns) {
    TableRow row;
    row.cells = {{QString::number(++number)},
                 {sides[turn.first_bats ? 0 : 1]},
                 {over_of(turn.ball)},
                 {shown(turn.bowler)},
                 {shown(turn.striker)},
                 {what_it_brought(turn.ball), turn.ball.is_wicket() ? CellLook::red : CellLook::normal},
                 {swing_words(turn, sides), CellLook::strong}};
    table.rows.push_back(std::move(row));
  }
  return table;
}

Table impacts_table(const std::vector<man_impact>& impacts, const ChartSides& sides) {
  Table table;
  table.name = QStringLiteral("Impact");
  table.columns = {{.heading = QStringLiteral("Player"), .stretches = true},
                   {.heading = QStringLiteral("Team")},
                   {.heading = QStringLiteral("With the bat"), .numbers = true},
                   {.heading = QStringLiteral("With the ball"), .numbers = true},
                   {.heading = QStringLiteral("Impact"), .numbers = true}};
  for (const man_impact& man : impacts) {
    TableRow row;
    row.cells = {{shown(man.man)},
                 {sides[man.of_first ? 0 : 1]},
                 {signed_percent(man.with_bat)},
                 {signed_percent(man.with_ball)},
                 {signed_percent(man.total()), CellLook::strong}};
    table.rows.push_back(std::move(row));
  }
  return table;
}

/// The chart for those who cannot see it.
QString described(const std::vector<line_point>& points, const std::vector<line_point>& turns, const ChartSides& sides,
                  double before) {
  const double now = points.empty() ? before : points.back().win_first;
  QStringList words = {QStringLiteral("%1 began with a chance of %2 % and have %3 %.")
                           .arg(sides[0])
                           .arg(std::lround(100 * before))
                           .arg(std::lround(100 * now))};
  for (const line_point& turn : turns) {
    words << QStringLiteral("%1, over %2, %3 to %4, %5: %6.")
                 .arg(sides[turn.first_bats ? 0 : 1], over_of(turn.ball), shown(turn.bowler), shown(turn.striker),
                      what_it_brought(turn.ball), swing_words(turn, sides));
  }
  return words.join(QLatin1Char(' '));
}

int threads_behind() { return std::clamp(static_cast<int>(std::thread::hardware_concurrency()) - 1, 1, 2); }

}  // namespace

MatchLineWindow::MatchLineWindow(MatchStates states, long runs, QWidget* parent)
    : Form(QStringLiteral("matchline"), Dismissal::closes, parent),
      work_(new BackWork(this)),
      chart_(new WinLineChart(QStringLiteral("win_line"))),
      progress_(new_named_label(QStringLiteral("line_progress"), {}, TextRole::muted)),
      turns_(new TableView(QStringLiteral("turning_points"))),
      impacts_(new TableView(QStringLiteral("impacts"))) {
  stand_as(Place::beside);
  set_title(QStringLiteral("Line of the match"), QStringLiteral("Line of the match"));
  prefer_size(QSize(960, 760));
  body()->addWidget(chart_, 3);
  auto* row = new QHBoxLayout;
  row->addWidget(new_named_label(QStringLiteral("chart_key"),
                                 QStringLiteral("\u00D7 wicket   \u25CF four   \u25A0 six   \u2460 turning point"),
                                 TextRole::muted),
                 1);
  row->addWidget(progress_);
  body()->addLayout(row);
  turns_->show_all_rows();
  body()->addWidget(turns_);
  body()->addWidget(impacts_, 2);
  impacts_->setMinimumHeight(96);
  save_ = add_button(QStringLiteral("save_picture"),
                     {.caption = QStringLiteral("Save Picture"),
                      .mnemonic = u'S',
                      .hint = QStringLiteral("Save the chart as SVG or PNG")},
                     [this] { save(); });
  add_default_button(QStringLiteral("accept"), {.caption = QStringLiteral("OK"), .mnemonic = u'O'},
                     [this] { accept(); });
  show_found({});
  work_->ask(work_on(std::move(states), runs));
}

MatchLineWindow::Found MatchLineWindow::found_so_far(const match_line& line, int done, int count) {
  return {.first = line.first(),
          .second = line.second(),
          .before = line.before(),
          .points = line.points(),
          .turns = line.turning_points(),
          .impacts = line.impacts(),
          .done = done,
          .count = count};
}

BackWork::Work MatchLineWindow::work_on(MatchStates states, long runs) {
  return [this, states = std::move(states), runs](const std::stop_token& stop,
                                                  const std::function<void(BackWork::Show)>& so_far) -> BackWork::Show {
    std::optional<match_line> line;
    int done = 0;
    int count = 0;
    try {
      states([&](const match_state& state, int place, int all) {
        done = place + 1;
        count = all;
        if (!line) {
          line.emplace(state, forecast_options{.runs = runs, .seed = 1, .threads = threads_behind(), .stop = stop});
        } else {
          line->add(state);
        }
        if (stop.stop_requested()) return false;
        if (place % balls_between_looks == 0) {
          so_far([this, found = found_so_far(*line, done, count)] { show_found(found); });
        }
        return true;
      });
    } catch (const std::exception& failed) {
      const QString cause = shown_error(failed);
      return [this, cause] { progress_->setText(cause); };
    }
    if (stop.stop_requested()) return {};
    if (!line) return [this] { progress_->setText(QStringLiteral("No ball has been bowled yet.")); };
    return [this, found = found_so_far(*line, count, count)] { show_found(found); };
  };
}

void MatchLineWindow::show_found(const Found& found) {
  const ChartSides sides = {shown(found.first), shown(found.second)};
  chart_->show_line({.sides = sides, .before = found.before, .points = found.points, .turns = found.turns});
  chart_->setAccessibleDescription(described(found.points, found.turns, sides, found.before));
  turns_->set_table(turns_table(found.turns, sides));
  impacts_->set_table(impacts_table(found.impacts, sides));
  progress_->setText(found.count == 0            ? QStringLiteral("Working\u2026")
                     : found.done == found.count ? QString()
                                                 : QStringLiteral("%1 of %2 balls").arg(found.done).arg(found.count));
  save_->setEnabled(!found.points.empty());
}

void MatchLineWindow::save() {
  const QString folder = preferences::last_folder();
  const QString name = QStringLiteral("line of the match.svg");
  const QString path = QFileDialog::getSaveFileName(this, QStringLiteral("Save the chart"),
                                                    folder.isEmpty() ? name : folder + QLatin1Char('/') + name,
                                                    QStringLiteral("Pictures (*.svg *.png)"));
  if (path.isEmpty()) return;
  const QString whole = QFileInfo(path).suffix().isEmpty() ? path + QStringLiteral(".svg") : path;
  preferences::set_last_folder(QFileInfo(whole).path());
  if (chart_->save(whole)) return;
  MessageWindow window({"Save the chart", "The file could not be written: " + core_text(whole)},
                       MessageWindow::Kind::failure);
  run_modal(window);
}

}  // namespace velorin
