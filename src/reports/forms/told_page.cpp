// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/forms/told_page.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/controls.h"
#include "desktop/shown_text.h"
#include "desktop/table_view.h"

namespace velorin {

namespace {

constexpr int of_bowlers = 100;  // data of a bowler in the list of men, above his position

QString one_line(std::string text) {
  std::replace(text.begin(), text.end(), '\n', ' ');
  return shown_caption(text).simplified();
}

}  // namespace

ToldPage::ToldPage(const QString& name, QWidget* parent)
    : CentrePage(name, parent),
      words_(new QLineEdit),
      kind_(new QComboBox),
      man_(new QComboBox),
      count_(new_named_label(QStringLiteral("found_lines"), {}, TextRole::muted)),
      lines_(new TableView(QStringLiteral("told_lines"))) {
  words_->setObjectName(QStringLiteral("search"));
  words_->setClearButtonEnabled(true);
  kind_->setObjectName(QStringLiteral("which_balls"));
  kind_->addItems({QStringLiteral("All balls"), QStringLiteral("Wickets"), QStringLiteral("Boundaries")});
  kind_->setAccessibleName(QStringLiteral("Balls"));
  man_->setObjectName(QStringLiteral("whose_balls"));
  man_->setAccessibleName(QStringLiteral("Of"));
  man_->setMinimumContentsLength(12);
  man_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(8);
  auto* choices = new QHBoxLayout;
  choices->setSpacing(8);
  choices->addWidget(new_caption(QStringLiteral("Search"), u'e', words_));
  choices->addWidget(words_, 1);
  choices->addWidget(kind_);
  choices->addWidget(man_, 1);
  rows->addLayout(choices);
  rows->addWidget(lines_, 1);
  rows->addWidget(count_);
  connect(words_, &QLineEdit::textChanged, this, [this] { list(); });
  connect(kind_, &QComboBox::currentIndexChanged, this, [this] { list(); });
  connect(man_, &QComboBox::currentIndexChanged, this, [this] { list(); });
  lines_->on_open([this](int row) { emit over_picked(shown_.rows[static_cast<std::size_t>(row)].first_over); },
                  TableView::Opens::press);
}

void ToldPage::show_innings(const match_story& match, std::size_t innings) {
  innings_ = &match.innings[innings];
  {
    const QSignalBlocker blocked(man_);
    man_->clear();
    man_->addItem(QStringLiteral("Everybody"), 0);
    for (const reported_batsman& man : innings_->card.batsmen) {
      man_->addItem(QStringLiteral("%1, batting").arg(shown_caption(man.name)), man.position);
    }
    for (const reported_bowler& man : innings_->card.bowlers) {
      man_->addItem(QStringLiteral("%1, bowling").arg(shown_caption(man.name)), of_bowlers + man.position);
    }
  }
  list();
}

void ToldPage::list() {
  if (innings_ == nullptr) return;
  const int man = man_->currentData().toInt();
  const story_filter filter{.which = static_cast<story_filter::kind>(kind_->currentIndex()),
                            .batsman = man < of_bowlers ? man : 0,
                            .bowler = man > of_bowlers ? man - of_bowlers : 0,
                            .words = core_text(words_->text())};
  shown_ = {.name = innings_->card.side + ", commentary"};
  shown_.columns = {{"Over", "Over", true, false}, {"Commentary", "Commentary", false, true}};
  Table table = shown_story(shown_);
  for (const int place : lines_with(*innings_, filter)) {
    const story_line& line = innings_->commentary[static_cast<std::size_t>(place)];
    const QString over = line.ball == 0 ? QString() : QStringLiteral("%1.%2").arg(line.over - 1).arg(line.ball);
    const CellLook look = line.wicket ? CellLook::red : line.ball == 0 ? CellLook::muted : CellLook::normal;
    TableRow row{{{.text = over}, {.text = one_line(line.text), .look = line.boundary ? CellLook::strong : look}}};
    row.id = static_cast<int>(table.rows.size());
    table.rows.push_back(std::move(row));
    shown_.rows.push_back({{}, line.over, line.over});
  }
  const auto found = table.rows.size();
  count_->setText(found == 1 ? QStringLiteral("1 line") : QStringLiteral("%1 lines").arg(found));
  lines_->set_table(std::move(table));
  lines_->setAccessibleDescription(count_->text());
}

void ToldPage::mark_over(int over) { choose_over(*lines_, shown_, over); }

std::vector<Table> ToldPage::tables() const { return {lines_->shown_table()}; }

}  // namespace velorin
