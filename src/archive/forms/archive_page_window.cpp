// SPDX-License-Identifier: GPL-3.0-or-later
#include "archive/forms/archive_page_window.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>
#include <variant>

#include "archive/archive_file.h"
#include "archive/forms/answer_table.h"
#include "archive/forms/answer_view.h"
#include "desktop/controls.h"
#include "desktop/crest.h"
#include "desktop/line_chart.h"

namespace velorin {

namespace {

using kind = archive_subject::kind;

constexpr int sections_width = 224;
constexpr int least_width_for_sections = 960;  // pixels, of the window

/// The numbers of a column from the first row on, or from the last.
std::vector<QPointF> points_of(const answer& told, const std::string& column, bool last_first) {
  std::vector<QPointF> points;
  const auto at = static_cast<std::size_t>(
      std::find_if(told.columns.begin(), told.columns.end(), [&](const auto& each) { return each.name == column; }) -
      told.columns.begin());
  if (at == told.columns.size()) return points;
  for (std::size_t i = 0; i < told.rows.size(); ++i) {
    const answer_value& value = told.rows[last_first ? told.rows.size() - 1 - i : i][at];
    const auto place = static_cast<double>(i + 1);
    if (const auto* whole = std::get_if<std::int64_t>(&value)) points.emplace_back(place, static_cast<double>(*whole));
    if (const auto* rate = std::get_if<double>(&value)) points.emplace_back(place, *rate);
  }
  return points;
}

/// A chart in words.
QString told_points(const QString& what, const std::vector<QPointF>& points) {
  QStringList numbers;
  for (const QPointF& point : points) numbers << QString::number(point.y());
  return QStringLiteral("%1, from the first to the last: %2").arg(what, numbers.join(QStringLiteral(", ")));
}

}  // namespace

ArchivePageWindow::ArchivePageWindow(const database_files& files, archive_history& history, QWidget* parent)
    : ArchiveForm(QStringLiteral("archpage"), history, parent), page_(page_of(history.here().about)) {
  set_title(utf8_text(page_.heading), utf8_text(page_.heading));
  set_subheading(utf8_text(page_.below));
  show_crest();
  auto* across = new QHBoxLayout;
  across->setSpacing(16);
  new_column(body(), 1500)->addLayout(across, 1);
  across->addWidget(new_sections());
  auto* rows = new QVBoxLayout;
  rows->setSpacing(8);
  above_ = new_drop_down();
  rows->addWidget(above_);
  title_ = new_named_label(QStringLiteral("section_title"), {}, TextRole::heading);
  rows->addWidget(title_);
  answer_ = new AnswerView(files);
  rows->addWidget(answer_, 3);
  chart_ = new LineChartView(QStringLiteral("chart"));
  chart_->hide();
  rows->addWidget(chart_, 2);
  auto* note = new_named_label(QStringLiteral("note"), utf8_text(page_.note), TextRole::small_muted);
  note->setWordWrap(true);
  note->setVisible(!page_.note.empty());
  rows->addWidget(note);
  across->addLayout(rows, 1);
  answer_->on_link([this](const archive_subject& about) { go_to(about); });
  connect(answer_, &AnswerView::answered, this, [this] { show_chart(); });
  add_buttons();
  prefer_size(QSize(1248, 720));
  answer_->stand_at(history.here());
  choose(std::clamp(history.here().section, 0, std::max(0, static_cast<int>(page_.sections.size()) - 1)));
}

void ArchivePageWindow::show_crest() {
  const archive_subject& about = history().here().about;
  const std::string team = about.what == kind::team ? about.name : about.what == kind::player ? about.team : "";
  if (!team.empty()) add_head_crest(*this, QStringLiteral("crest"))->show_team(utf8_text(team));
}

QWidget* ArchivePageWindow::new_sections() {
  list_ = new QListWidget;
  list_->setObjectName(QStringLiteral("sections"));
  list_->setAccessibleName(QStringLiteral("Sections"));
  list_->setFixedWidth(sections_width);
  for (const page_section& section : page_.sections) list_->addItem(utf8_text(section.title));
  connect(list_, &QListWidget::currentRowChanged, this, [this](int row) {
    if (row >= 0 && row != section_) choose(row);
  });
  return list_;
}

QWidget* ArchivePageWindow::new_drop_down() {
  auto* line = new QWidget;
  auto* row = new QHBoxLayout(line);
  row->setContentsMargins(0, 0, 0, 0);
  drop_down_ = new QComboBox;
  drop_down_->setObjectName(QStringLiteral("section"));
  for (const page_section& section : page_.sections) drop_down_->addItem(utf8_text(section.title));
  drop_down_->setMaxVisibleItems(20);
  row->addWidget(new_caption(QStringLiteral("Section"), u'S', drop_down_));
  row->addWidget(drop_down_);
  row->addStretch(1);
  line->hide();
  connect(drop_down_, &QComboBox::activated, this, [this](int place) {
    if (place != section_) choose(place);
  });
  return line;
}

bool ArchivePageWindow::can_stand_beside() const {
  const archive_history& past = history();
  return past.set_aside && side_by_side(*past.set_aside, past.here().about);
}

void ArchivePageWindow::add_buttons() {
  const archive_subject& about = history().here().about;
  if (about.what == kind::player || about.what == kind::team) {
    const QString other = can_stand_beside() ? utf8_text(history().set_aside->name) : QString();
    const Act act =
        other.isEmpty()
            ? Act{.caption = QStringLiteral("Compare"),
                  .mnemonic = u'm',
                  .hint = QStringLiteral("Sets this page aside: the next one of its kind can stand beside it")}
            : Act{.caption = QStringLiteral("Beside %1").arg(other), .mnemonic = u'B', .hint = {}};
    beside_ = add_button(QStringLiteral("compare"), act, [this] {
      archive_history& past = history();
      if (can_stand_beside()) return go_to(*side_by_side(*std::exchange(past.set_aside, {}), past.here().about));
      past.set_aside = past.here().about;
      set_subheading(QStringLiteral("Set aside: on the page of another, press Beside"));
    });
  }
  add_button(QStringLiteral("ask"),
             {.caption = QStringLiteral("Record Book"),
              .mnemonic = u'R',
              .hint = QStringLiteral("Takes this section into the record book, as a question")},
             [this] {
               archive_place book{.about = {}};
               if (shown_section().how != page_section::kind::milestones) book.asked = shown_section().asked;
               go_to(std::move(book));
             });
  add_default_button(QStringLiteral("accept"), {.caption = QStringLiteral("Close"), .mnemonic = u'C'},
                     [this] { accept(); });
}

const page_section& ArchivePageWindow::shown_section() const {
  return page_.sections.at(static_cast<std::size_t>(section_));
}

void ArchivePageWindow::choose(int section) {
  if (page_.sections.empty()) return;
  section_ = section;
  list_->setCurrentRow(section);
  drop_down_->setCurrentIndex(section);
  chart_->hide();
  title_->setText(utf8_text(shown_section().title));
  answer_->look_up(QStringLiteral("%1, %2").arg(utf8_text(page_.heading), title_->text()), shown_section().asked,
                   [about = history().here().about, chosen = shown_section()](const archive_file& archive) {
                     return section_answer(archive, about, chosen);
                   });
}

void ArchivePageWindow::show_chart() {
  const page_section& section = shown_section();
  const std::vector<QPointF> points = points_of(answer_->told(), section.chart, section.last_first);
  constexpr std::size_t least = 2;
  chart_->setVisible(!section.chart.empty() && points.size() >= least);
  if (chart_->isHidden()) return;
  LineChart chart;
  chart.name = QStringLiteral("%1 as a chart").arg(utf8_text(section.title));
  chart.across =
      section.last_first ? QStringLiteral("From the earliest to the latest") : QStringLiteral("Year by year");
  chart.up = field_heading(section.chart);
  chart.across_to = static_cast<double>(points.size());
  chart.across_step = std::max(1, static_cast<int>(points.size()) / 10);
  chart.described = told_points(chart.up, points);
  chart.legend = false;
  chart.lines = {{utf8_text(page_.heading), points}};
  chart_->set_chart(chart);
}

void ArchivePageWindow::keep(archive_place& here) const {
  here.section = section_;
  answer_->keep_in(here);
}

void ArchivePageWindow::resizeEvent(QResizeEvent* event) {
  const bool narrow = width() < least_width_for_sections;
  if (above_->isHidden() == narrow) {
    list_->setVisible(!narrow);
    above_->setVisible(narrow);
  }
  ArchiveForm::resizeEvent(event);
}

}  // namespace velorin
