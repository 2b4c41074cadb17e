// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/unstopped_window.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "console/console_view.h"
#include "desktop/controls.h"
#include "desktop/crest.h"
#include "desktop/shown_text.h"
#include "desktop/table_view.h"
#include "model/match_state.h"

namespace velorin {

namespace {

constexpr int crest_side = 72;  // pixels
constexpr int low_crest_side = 48;

Table results_table(const PlayedMatches& played) {
  Table table;
  table.name = QStringLiteral("Results");
  table.order = RowOrder::told;
  table.columns = {{.heading = QStringLiteral("Match No.")},
                   {.heading = QStringLiteral("Batted first"), .teams = true},
                   {.heading = QStringLiteral("Batted second"), .teams = true},
                   {.heading = QStringLiteral("Venue"), .stretches = true},
                   {.heading = QStringLiteral("Match Result")}};
  for (const PlayedMatch& match : played.all) {
    TableRow row;
    row.cells = {{.text = QString::number(match.number), .look = CellLook::muted},
                 {.text = match.first},
                 {.text = match.second},
                 {.text = match.ground, .look = CellLook::muted},
                 {.text = match.result}};
    row.id = match.number;
    table.rows.push_back(std::move(row));
  }
  return table;
}

}  // namespace

UnstoppedWindow::UnstoppedWindow(const match_state& match, const QString& competition, std::function<void()> stop,
                                 QWidget* parent)
    : Form(QStringLiteral("unstopped"), Dismissal::refused, parent), match_(match) {
  limit_body(1000);
  set_title(QStringLiteral("Playing"), competition);
  body()->addWidget(new_match_card());
  none_yet_ = new_named_label(QStringLiteral("none_yet"), QStringLiteral("The results stand here as they come in."),
                              TextRole::muted);
  none_yet_->setAlignment(Qt::AlignCenter);
  results_ = new TableView(QStringLiteral("results"));
  body()->addWidget(none_yet_, 1);
  body()->addWidget(results_, 1);
  show_results({});
  const auto ask = [this, stop = std::move(stop)] {
    stop();
    stop_->setEnabled(false);
    left_->setText(QStringLiteral("Stops after this match"));
  };
  stop_ = add_default_button(QStringLiteral("stop"),
                             {.caption = QStringLiteral("Stop at the Next Match"), .mnemonic = u'S'}, ask);
  stop_->setFocus();
  on_dismiss([this] { stop_->click(); });
}

/// The match between the crests of its sides.
QWidget* UnstoppedWindow::new_match_card() {
  QFrame* card = new_card();
  first_crest_ = new CrestView(QStringLiteral("first_crest"), crest_side);
  second_crest_ = new CrestView(QStringLiteral("second_crest"), crest_side);
  auto* texts = new QVBoxLayout;
  texts->setSpacing(4);
  const auto add = [&](const char* name, TextRole role) {
    auto* label = new_named_label(QString::fromLatin1(name), {}, role);
    label->setAlignment(Qt::AlignCenter);
    texts->addWidget(label);
    return label;
  };
  title_ = add("match", TextRole::heading);
  score_ = add("score", TextRole::title);
  ground_ = add("ground", TextRole::muted);
  left_ = add("left", TextRole::muted);
  auto* row = new QHBoxLayout;
  row->addWidget(first_crest_, 0, Qt::AlignVCenter);
  row->addLayout(texts, 1);
  row->addWidget(second_crest_, 0, Qt::AlignVCenter);
  card_rows(card)->addLayout(row);
  return card;
}

void UnstoppedWindow::note_compact(bool compact) {
  for (CrestView* crest : {first_crest_, second_crest_}) crest->set_size(compact ? low_crest_side : crest_side);
}

void UnstoppedWindow::show_progress(int left) {
  first_crest_->show_team(shown(match_.team1_name));
  second_crest_->show_team(shown(match_.team2_name));
  title_->setText(QStringLiteral("%1 v %2").arg(shown(match_.team1_name), shown(match_.team2_name)));
  const score_view view = view_score(match_);
  const QString ground = shown(match_.venue_name());
  ground_->setText(view.needed.empty() ? ground : QStringLiteral("%1, %2").arg(ground, shown(view.needed)));
  const QString score =
      QStringLiteral("%1 %2 (%3)").arg(shown(view.batting_short_name), shown(view.score), shown(view.overs));
  score_->setText(score);
  if (stop_->isEnabled()) {
    const std::string& stage = match_.occasion.stage;
    const QString to_come = QStringLiteral("%1 %2 left after this one").arg(left).arg(left == 1 ? "match" : "matches");
    left_->setText(stage.empty() ? to_come : QStringLiteral("%1, %2").arg(shown(stage), to_come));
  }
}

void UnstoppedWindow::show_results(const PlayedMatches& played) {
  none_yet_->setVisible(played.all.empty());
  results_->setVisible(!played.all.empty());
  if (played.all.empty()) return;
  results_->set_table(results_table(played));
  results_->scrollToBottom();
}

}  // namespace velorin
