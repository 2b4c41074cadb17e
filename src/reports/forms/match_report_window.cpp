// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/forms/match_report_window.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "desktop/controls.h"
#include "desktop/name_line.h"
#include "desktop/shown_text.h"
#include "desktop/table_view.h"
#include "reports/forms/report_parts.h"
#include "reports/match_report.h"

namespace velorin {

namespace {

constexpr int widest_page = 1720;
constexpr int widest_single = 900;
constexpr int right_margin = 8;
constexpr int narrowest_table = 420;  // the least that a table of an innings is given

TableCell number_cell(int number, CellLook look = CellLook::normal) {
  return {.text = QString::number(number), .look = look};
}

QLabel* new_line(const QString& name, const QString& text, TextRole role = TextRole::body) {
  QLabel* line = new_named_label(name, text, role);
  line->setWordWrap(true);
  line->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  return line;
}

/// Side, total, wickets and overs in a row.
QWidget* new_innings_head(const reported_innings& innings, const QString& number) {
  auto* head = new QWidget;
  auto* row = new QHBoxLayout(head);
  row->setContentsMargins(4, 8, 4, 0);
  row->setSpacing(12);
  row->addWidget(new_named_label(QStringLiteral("side_") + number, shown(innings.side), TextRole::title));
  row->addStretch(1);
  QString overs = QStringLiteral("%1 overs").arg(shown(innings.overs));
  if (!innings.run_rate.empty()) overs += QStringLiteral("  RR %1").arg(shown(innings.run_rate));
  row->addWidget(new_named_label(QStringLiteral("overs_") + number, overs, TextRole::muted));
  row->addWidget(new_named_label(QStringLiteral("total_") + number,
                                 QStringLiteral("%1/%2").arg(innings.total).arg(innings.wickets), TextRole::score));
  return head;
}

QString extras_words(const reported_innings& innings) {
  const auto& [no_balls, wides, leg_byes, byes] = innings.extras;
  QString words = QStringLiteral("Extras %1 (no balls %2, wides %3, leg byes %4, byes %5).")
                      .arg(innings.extras_sum())
                      .arg(no_balls)
                      .arg(wides)
                      .arg(leg_byes)
                      .arg(byes);
  if (no_balls + wides > 0) words += QStringLiteral(" The total does not count no balls and wides.");
  return words;
}

/// A paragraph with names, each piece with the man to whom it leads, "" for none.
using NamedPieces = std::vector<std::pair<QString, std::string>>;

NamedPieces falls_pieces(const reported_innings& innings) {
  if (innings.falls.empty()) return {{QStringLiteral("No wicket fell."), {}}};
  NamedPieces pieces;
  for (const reported_fall& fall : innings.falls) {
    const QString before = pieces.empty() ? QStringLiteral("Fall of wickets: ") : QStringLiteral(", ");
    pieces.emplace_back(QStringLiteral("%1%2-%3 (").arg(before).arg(fall.wicket).arg(fall.score), std::string());
    pieces.emplace_back(shown_caption(fall.batsman), fall.batsman);
    pieces.emplace_back(QStringLiteral(", %1)").arg(shown(fall.overs)), std::string());
  }
  pieces.emplace_back(QStringLiteral("."), std::string());
  return pieces;
}

NamedPieces did_not_bat_pieces(const reported_innings& innings) {
  NamedPieces pieces;
  for (const std::string& name : innings.did_not_bat) {
    pieces.emplace_back(pieces.empty() ? QStringLiteral("Did not bat: ") : QStringLiteral(", "), std::string());
    pieces.emplace_back(shown_caption(name), name);
  }
  pieces.emplace_back(QStringLiteral("."), std::string());
  return pieces;
}

/// Without `profile` a plain text.
QLabel* new_named_line(const QString& name, const NamedPieces& pieces, const std::string& side,
                       const MatchReportWindow::ShowProfile& profile) {
  QString words;
  std::vector<NameLine::Piece> shown_pieces;
  std::vector<std::string> men;
  for (const auto& [text, man] : pieces) {
    words += text;
    shown_pieces.push_back({text, !man.empty()});
    men.push_back(man);
  }
  const bool any = std::any_of(men.begin(), men.end(), [](const std::string& man) { return !man.empty(); });
  if (!profile || !any) return new_line(name, words, TextRole::muted);
  return new NameLine(name, std::move(shown_pieces), [profile, side, men = std::move(men)](int piece) {
    profile(side, men[static_cast<std::size_t>(piece)]);
  });
}

QWidget* new_notes(const reported_innings& innings, const QString& number,
                   const MatchReportWindow::ShowProfile& profile) {
  auto* notes = new QWidget;
  auto* rows = new QVBoxLayout(notes);
  rows->setContentsMargins(4, 4, 4, 4);
  rows->setSpacing(4);
  rows->addWidget(new_line(QStringLiteral("extras_") + number, extras_words(innings)));
  if (!innings.did_not_bat.empty()) {
    rows->addWidget(
        new_named_line(QStringLiteral("did_not_bat_") + number, did_not_bat_pieces(innings), innings.side, profile));
  }
  rows->addWidget(new_named_line(QStringLiteral("falls_") + number, falls_pieces(innings), innings.side, profile));
  rows->addStretch(1);
  return notes;
}

TableView* new_table_view(const QString& name, const Table& table) {
  auto* view = new TableView(name);
  view->set_table(table);
  view->setMinimumWidth(narrowest_table);
  view->show_all_rows();
  view->setMaximumHeight(view->minimumHeight());
  return view;
}

}  // namespace

Table batting_table(const reported_innings& innings) {
  Table table{.name = shown(innings.side) + QStringLiteral(" batting"), .columns = {}, .rows = {}};
  table.order = RowOrder::told;
  table.columns = {{.heading = QStringLiteral("Batsman")}, {.heading = QStringLiteral("Dismissal"), .stretches = true}};
  const std::pair<const char*, const char*> figures[] = {
      {"R", "Runs"}, {"B", "Balls"}, {"4s", "Fours"}, {"6s", "Sixes"}, {"SR", "Strike rate"}};
  for (const auto& [heading, spoken] : figures) {
    table.columns.push_back({.heading = QLatin1String(heading), .numbers = true, .spoken = QLatin1String(spoken)});
  }
  for (const reported_batsman& man : innings.batsmen) {
    const QString name = shown_caption(man.name);
    table.rows.push_back(
        {{{.text = name, .look = man.not_out ? CellLook::strong : CellLook::normal, .kept = shown(man.name)},
          {.text = shown_caption(man.how_out), .look = CellLook::muted, .kept = shown(man.how_out)},
          number_cell(man.runs, CellLook::strong),
          number_cell(man.balls),
          number_cell(man.fours),
          number_cell(man.sixes),
          {.text = shown(man.strike_rate)}}});
    table.rows.back().id = static_cast<int>(table.rows.size()) - 1;
  }
  return table;
}

Table bowling_table(const reported_innings& innings) {
  Table table{.name = shown(innings.bowling_side) + QStringLiteral(" bowling"), .columns = {}, .rows = {}};
  table.columns = {{.heading = QStringLiteral("Bowler"), .stretches = true}};
  for (const char* heading : {"Overs", "Mdns", "Runs", "Wkts", "R.P.O"}) {
    table.columns.push_back({.heading = QLatin1String(heading), .numbers = true});
  }
  for (const reported_bowler& man : innings.bowlers) {
    table.rows.push_back({{{.text = shown_caption(man.name), .kept = shown(man.name)},
                           {.text = shown(man.overs)},
                           number_cell(man.maidens),
                           number_cell(man.runs),
                           number_cell(man.wickets, CellLook::strong),
                           {.text = shown(man.economy)}}});
    table.rows.back().id = static_cast<int>(table.rows.size()) - 1;
  }
  return table;
}

Table milestones_table(const match_report& report) {
  Table table{.name = QStringLiteral("Milestones"), .columns = {}, .rows = {}};
  table.columns = {{.heading = QStringLiteral("Milestone")},
                   {.heading = QStringLiteral("Player"), .stretches = true},
                   {.heading = QStringLiteral("Team")},
                   {.heading = QStringLiteral("Figures"), .numbers = true}};
  for (const reported_milestone& one : report.milestones) {
    table.rows.push_back({{{.text = shown(one.what), .look = CellLook::strong},
                           {.text = shown_caption(one.player), .kept = shown(one.player)},
                           {.text = shown(one.side), .look = CellLook::muted},
                           {.text = shown(one.figures)}}});
    table.rows.back().id = static_cast<int>(table.rows.size()) - 1;
  }
  return table;
}

Table records_table(const match_report& report) {
  Table table{.name = QStringLiteral("Records"), .columns = {}, .rows = {}};
  table.columns = {{.heading = QStringLiteral("List")},
                   {.heading = QStringLiteral("Place"), .numbers = true},
                   {.heading = QStringLiteral("Name"), .stretches = true},
                   {.heading = QStringLiteral("Figures"), .numbers = true}};
  for (const reported_record& line : report.records) {
    table.rows.push_back({{{.text = shown(line.list), .look = CellLook::strong},
                           number_cell(line.place),
                           {.text = shown_caption(line.who), .kept = shown(line.who)},
                           {.text = shown(line.figures)}}});
    table.rows.back().id = static_cast<int>(table.rows.size()) - 1;
    table.rows.back().opens = !line.player.empty();
  }
  return table;
}

LineChart worm_chart(const match_report& report) {
  LineChart chart;
  chart.name = QStringLiteral("Score Comparison");
  chart.across = QStringLiteral("Overs");
  chart.up = QStringLiteral("Runs");
  for (const reported_innings& innings : report.innings) {
    ChartLine line{.name = shown(innings.side), .points = {}};
    QStringList words;
    for (std::size_t over = 0; over < innings.runs_after.size(); ++over) {
      const double overs = std::min(static_cast<double>(over), innings.balls / 6.0);
      line.points.emplace_back(overs, innings.runs_after[over]);
      if (over > 0) words << QStringLiteral("over %1: %2").arg(over).arg(innings.runs_after[over]);
    }
    if (!chart.described.isEmpty()) chart.described += QLatin1Char(' ');
    chart.described += QStringLiteral("%1. %2.").arg(line.name, words.join(QStringLiteral("; ")));
    chart.lines.push_back(std::move(line));
  }
  return chart;
}

MatchReportWindow::MatchReportWindow(const match_report& report, ShowProfile profile, QWidget* parent)
    : Form(QStringLiteral("matchrep"), Dismissal::closes, parent), profile_(std::move(profile)) {
  set_title(QStringLiteral("Match Report"), shown(report.result).simplified());
  const QString match = QStringLiteral("%1 v %2, %3")
                            .arg(shown(report.innings[0].side), shown(report.innings[1].side), shown(report.ground));
  set_subheading(report.practice ? match + QStringLiteral(". Practice: counts for no career") : match);
  name_head(*this, QStringLiteral("result"), QStringLiteral("match"));
  show_picture();
  body()->setContentsMargins(16, 8, 8, 8);
  auto* page = new QWidget;
  page->setMaximumWidth(widest_page);
  grid_ = new QGridLayout(page);
  grid_->setContentsMargins(0, 0, 0, 0);
  grid_->setHorizontalSpacing(16);
  grid_->setVerticalSpacing(8);
  auto* sheet = new QWidget;
  auto* middle = new QHBoxLayout(sheet);
  middle->setContentsMargins(0, 0, right_margin, 0);
  middle->addStretch(0);
  middle->addWidget(page, 1);
  middle->addStretch(0);
  pages_ = new QScrollArea;
  pages_->setObjectName(QStringLiteral("page"));
  pages_->setFrameShape(QFrame::NoFrame);
  pages_->setFocusPolicy(Qt::NoFocus);
  pages_->setWidgetResizable(true);
  pages_->setWidget(sheet);
  pages_->setMinimumSize(narrowest_table + 40, 160);
  body()->addWidget(pages_, 1);
  for (const std::size_t place : {0U, 1U}) add_innings(report.innings[place], place);
  auto* chart = new LineChartView(QStringLiteral("worm"));
  chart->set_chart(worm_chart(report));
  chart->setMinimumHeight(280);
  chart_ = chart;
  brought_ = new_brought(report);
  arrange(false);
  add_ok(*this);
  prefer_size({1280, 900});
  focus_default();
}

void MatchReportWindow::offer_rematch(std::function<void()> rematch) {
  add_button(QStringLiteral("rematch"),
             {.caption = QStringLiteral("Rematch"),
              .mnemonic = u'R',
              .hint = QStringLiteral("Once this match is closed, the same sides again")},
             [this, rematch = std::move(rematch)] {
               rematch();
               accept();
             });
}

void MatchReportWindow::offer_centre(std::function<void()> open) {
  add_aside(add_button(QStringLiteral("show_match_centre"),
                       {.caption = QStringLiteral("Match Centre"),
                        .mnemonic = u'M',
                        .hint = QStringLiteral("The match ball by ball: commentary, phases, stands and more")},
                       std::move(open)));
}

void MatchReportWindow::add_innings(const reported_innings& innings, std::size_t place) {
  const QString number = QString::number(place + 1);
  TableView* batting = new_table_view(QStringLiteral("batting_") + number, batting_table(innings));
  TableView* bowling = new_table_view(QStringLiteral("bowling_") + number, bowling_table(innings));
  std::vector<std::pair<std::string, std::string>> men;
  for (const reported_batsman& man : innings.batsmen) men.emplace_back(innings.side, man.name);
  lead_to_profiles(*batting, std::move(men));
  men = {};
  for (const reported_bowler& man : innings.bowlers) men.emplace_back(innings.bowling_side, man.name);
  lead_to_profiles(*bowling, std::move(men));
  pieces_[place] = {new_innings_head(innings, number), batting, new_notes(innings, number, profile_), bowling};
}

void MatchReportWindow::lead_to_profiles(TableView& view, std::vector<std::pair<std::string, std::string>> men) {
  if (!profile_) return;
  view.on_open(
      [this, men = std::move(men)](int row) {
        const auto& [side, player] = men[static_cast<std::size_t>(row)];
        profile_(side, player);
      },
      TableView::Opens::press);
}

QWidget* MatchReportWindow::new_brought(const match_report& report) {
  auto* column = new QWidget;
  auto* rows = new QVBoxLayout(column);
  rows->setContentsMargins(0, 8, 0, 0);
  rows->setSpacing(4);
  const auto add = [&](const char* heading, const char* name, const Table& table, const QString& none) {
    rows->addWidget(new_label(QLatin1String(heading), TextRole::heading));
    TableView* view = table.rows.empty() ? nullptr : new_table_view(QLatin1String(name), table);
    if (view == nullptr) {
      rows->addWidget(new_line(QStringLiteral("no_") + QLatin1String(name), none, TextRole::muted));
    } else {
      rows->addWidget(view);
    }
    rows->addSpacing(8);
    return view;
  };
  if (TableView* view = add("Milestones", "milestones", milestones_table(report),
                            QStringLiteral("No fifty, no hundred, no five wickets."))) {
    std::vector<std::pair<std::string, std::string>> men;
    for (const reported_milestone& one : report.milestones) men.emplace_back(one.side, one.player);
    lead_to_profiles(*view, std::move(men));
  }
  if (TableView* view = add("Records", "records", records_table(report),
                            report.practice        ? QStringLiteral("The record lists take no practice match.")
                            : report.records_known ? QStringLiteral("No line of the record lists.")
                                                   : QStringLiteral("The record lists do not take this match."))) {
    std::vector<std::pair<std::string, std::string>> men;
    for (const reported_record& line : report.records) men.emplace_back(line.team, line.player);
    lead_to_profiles(*view, std::move(men));
  }
  rows->addStretch(1);
  return column;
}

void MatchReportWindow::arrange(bool side_by_side) {
  if (arranged_ && side_by_side == side_by_side_) return;
  arranged_ = true;
  side_by_side_ = side_by_side;
  const auto rows = static_cast<int>(pieces_[0].size());
  QWidget* before = nullptr;
  const auto put = [&](QWidget* piece, int row, int column) {
    grid_->removeWidget(piece);
    const bool list = qobject_cast<TableView*>(piece) != nullptr;
    grid_->addWidget(piece, row, column, list ? Qt::AlignTop : Qt::Alignment());
    for (QWidget* stop : list ? QList<QWidget*>{piece} : piece->findChildren<QWidget*>()) {
      if (stop->focusPolicy() == Qt::NoFocus) continue;
      if (before != nullptr) setTabOrder(before, stop);
      before = stop;
    }
  };
  if (side_by_side) {
    for (int row = 0; row < rows; ++row) {
      for (const int innings : {0, 1})
        put(pieces_[static_cast<std::size_t>(innings)][static_cast<std::size_t>(row)], row, innings);
    }
  } else {
    for (const int innings : {0, 1}) {
      for (int row = 0; row < rows; ++row) {
        put(pieces_[static_cast<std::size_t>(innings)][static_cast<std::size_t>(row)], innings * rows + row, 0);
      }
    }
  }
  const int below = side_by_side ? rows : 2 * rows;
  put(chart_, below, 0);
  put(brought_, side_by_side ? below : below + 1, side_by_side ? 1 : 0);
  const int last = side_by_side ? below : below + 1;
  for (int row = 0; row <= 2 * rows + 2; ++row) grid_->setRowStretch(row, row == last + 1 ? 1 : 0);
  grid_->setColumnStretch(0, 1);
  grid_->setColumnStretch(1, side_by_side ? 1 : 0);
  grid_->parentWidget()->setMaximumWidth(side_by_side ? widest_page : widest_single);
}

void MatchReportWindow::keyPressEvent(QKeyEvent* event) {
  const bool up = event->key() == Qt::Key_PageUp;
  if (!up && event->key() != Qt::Key_PageDown) return Form::keyPressEvent(event);
  pages_->verticalScrollBar()->triggerAction(up ? QAbstractSlider::SliderPageStepSub
                                                : QAbstractSlider::SliderPageStepAdd);
}

bool MatchReportWindow::has_room_for_two() const {
  int widest = 0;
  for (const auto& pieces : pieces_) {
    for (const QWidget* piece : pieces) {
      if (const auto* view = qobject_cast<const TableView*>(piece)) widest = std::max(widest, view->needed_width());
    }
  }
  const QMargins around = body()->contentsMargins();
  const int bar = pages_->verticalScrollBar()->sizeHint().width();
  const int beside = around.left() + around.right() + bar + right_margin + grid_->horizontalSpacing();
  return width() - beside >= 2 * std::max(widest, narrowest_table);
}

void MatchReportWindow::resizeEvent(QResizeEvent* event) {
  arrange(has_room_for_two());
  Form::resizeEvent(event);
}

}  // namespace velorin
