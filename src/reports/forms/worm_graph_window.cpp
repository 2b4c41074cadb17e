// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/forms/worm_graph_window.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "desktop/controls.h"
#include "desktop/shown_text.h"
#include "desktop/table_view.h"
#include "reports/worm_graph.h"

namespace velorin {

namespace {

constexpr const char* old_rows = "The lines still hold an earlier match; the table shows this one alone.";

QString line_words(const QString& side, const std::string& score, const std::vector<worm_point>& points) {
  QStringList scores;
  for (const worm_point& point : points) {
    scores << QStringLiteral("over %1: %2").arg(point.row - 1).arg(point.value);
  }
  // Without a row of this match the score, too, is that of an earlier one.
  if (scores.isEmpty()) return QStringLiteral("%1. no score.").arg(side);
  return QStringLiteral("%1 %2. %3.").arg(side, shown(score), scores.join(QStringLiteral("; ")));
}

Table worm_table(const worm_graph_form& form) {
  Table table{.name = QStringLiteral("Score Comparison"), .columns = {}, .rows = {}};
  table.columns = {{.heading = QStringLiteral("Overs"), .numbers = true},
                   {.heading = shown(form.first_side), .numbers = true, .stretches = true},
                   {.heading = shown(form.second_side), .numbers = true, .stretches = true}};
  for (int row = 1; row <= 51; ++row) {
    TableRow line{{{QString::number(row - 1)}, {}, {}}};
    bool any = false;
    for (const std::size_t side : {0U, 1U}) {
      for (const worm_point& point : form.of_match[side]) {
        if (point.row != row) continue;
        line.cells[side + 1].text = QString::number(point.value);
        any = true;
      }
    }
    if (any) table.rows.push_back(line);
  }
  return table;
}

/// A side's name and score beside a piece of its line.
QWidget* new_side(const ChartSides& teams, int place, const QString& name_control, const std::string& name,
                  const QString& score_control, const std::string& score) {
  auto* card = new_card();
  auto* row = new QHBoxLayout;
  row->setSpacing(12);
  row->addWidget(new_line_swatch(teams, place));
  row->addWidget(new_named_label(name_control, shown(name), TextRole::heading));
  row->addStretch(1);
  row->addWidget(new_named_label(score_control, shown(score), TextRole::title));
  card_rows(card)->addLayout(row);
  return card;
}

}  // namespace

LineChart worm_chart(const worm_graph_form& form) {
  LineChart chart;
  chart.name = QStringLiteral("Score Comparison");
  chart.across = QStringLiteral("Overs");
  chart.up = QStringLiteral("Runs");
  chart.legend = false;
  for (const auto& [name, side] : {std::pair(&form.first_side, 0U), std::pair(&form.second_side, 1U)}) {
    ChartLine line{.name = shown(*name), .points = {}};
    for (const worm_point& point : form.series[side]) line.points.emplace_back(point.row - 1, point.value);
    chart.lines.push_back(line);
  }
  chart.described = line_words(shown(form.first_side), form.first_score, form.of_match[0]) + QLatin1Char(' ') +
                    line_words(shown(form.second_side), form.second_score, form.of_match[1]);
  if (form.has_old_rows()) chart.described += QLatin1Char(' ') + QString::fromLatin1(old_rows);
  return chart;
}

WormGraphWindow::WormGraphWindow(const worm_graph_form& form, QWidget* parent)
    : ChartForm(QStringLiteral("worms"), parent) {
  const QString title = QStringLiteral("Score Comparison Graph");
  set_title(title, title);
  show_picture();
  auto* sides = new QHBoxLayout;
  sides->setSpacing(16);
  const ChartSides teams = {shown(form.first_side), shown(form.second_side)};
  sides->addWidget(new_side(teams, 0, QStringLiteral("first_side"), form.first_side, QStringLiteral("first_score"),
                            form.first_score),
                   1);
  sides->addWidget(new_side(teams, 1, QStringLiteral("second_side"), form.second_side, QStringLiteral("second_score"),
                            form.second_score),
                   1);
  body()->addLayout(sides);
  auto* note = new_named_label(QStringLiteral("old_rows"), QString::fromLatin1(old_rows), TextRole::muted);
  note->setVisible(form.has_old_rows());
  body()->addWidget(note);
  auto* chart = new LineChartView(QStringLiteral("worm"));
  chart->set_chart(worm_chart(form));
  auto* table = new TableView(QStringLiteral("scores"));
  table->set_table(worm_table(form));
  set_pages(chart, table);
}

}  // namespace velorin
