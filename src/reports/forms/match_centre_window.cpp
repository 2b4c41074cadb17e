// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/forms/match_centre_window.h"

#include <QApplication>
#include <QButtonGroup>
#include <QClipboard>
#include <QComboBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QSaveFile>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <utility>

#include "desktop/frame.h"
#include "desktop/message_window.h"
#include "desktop/preferences.h"
#include "desktop/program_end.h"
#include "desktop/shown_text.h"
#include "reports/forms/centre_page.h"
#include "reports/forms/course_page.h"
#include "reports/forms/report_parts.h"
#include "reports/forms/told_page.h"

namespace velorin {

namespace {

constexpr int least_width_for_list = 900;
constexpr int least_width_beside = 1800;  // of the main window
constexpr int list_width = 176;

/// A view that is one table of an innings.
TablesPage* new_page(const char* name, story_table (*make)(const innings_story&)) {
  const QString page = QLatin1String(name);
  return new TablesPage(page, {{page + QStringLiteral("_table"),
                                [make](const match_story&, const innings_story& innings) { return make(innings); }}});
}

QString title_of(const match_story& story) {
  const std::string& first = story.innings.front().card.side;
  return QStringLiteral("%1 v %2, %3")
      .arg(shown(first), shown(story.innings.front().card.bowling_side), shown(story.ground));
}

}  // namespace

MatchCentreWindow::MatchCentreWindow(match_story story, QWidget* parent)
    : Form(QStringLiteral("matchcentre"), Dismissal::closes, parent),
      story_(std::move(story)),
      list_(new QListWidget),
      choice_(new QComboBox),
      pages_(new QStackedWidget),
      sides_(new QButtonGroup(this)) {
  // Its tables need room: in a small window it is a page of its own.
  const Frame* frame = main_window();
  stand_as(frame != nullptr && frame->width() >= least_width_beside ? Place::beside : Place::page);
  set_title(QStringLiteral("Match Centre"), QStringLiteral("Match Centre"));
  const QString result = shown(story_.result).simplified();
  set_subheading(result.isEmpty() ? title_of(story_) : title_of(story_) + QStringLiteral(". ") + result);
  name_head(*this, QStringLiteral("heading"), QStringLiteral("match"));
  list_->setObjectName(QStringLiteral("views"));
  list_->setAccessibleName(QStringLiteral("Views"));
  list_->setFixedWidth(list_width);
  choice_->setObjectName(QStringLiteral("view"));
  choice_->setAccessibleName(QStringLiteral("View"));
  add_views();
  body()->addWidget(new_choices());
  auto* row = new QHBoxLayout;
  row->setSpacing(12);
  row->addWidget(list_);
  row->addWidget(pages_, 1);
  body()->addLayout(row, 1);
  connect(list_, &QListWidget::currentRowChanged, this, &MatchCentreWindow::show_view);
  connect(choice_, &QComboBox::currentIndexChanged, this, &MatchCentreWindow::show_view);
  add_aside(new_report_button(
      QStringLiteral("copy"),
      {.caption = QStringLiteral("Copy"), .mnemonic = u'C', .hint = QStringLiteral("Copy the view as text")},
      [this] { copy(); }));
  add_aside(new_report_button(QStringLiteral("save"),
                              {.caption = QStringLiteral("Save View"),
                               .mnemonic = u'S',
                               .hint = QStringLiteral("Save the view as CSV, PNG or SVG")},
                              [this] { save(); }));
  add_ok(*this);
  show_innings(story_.innings.size() - 1);
  show_view(0);
  prefer_size({1180, 820});
  list_->setFocus();
}

void MatchCentreWindow::add_view(const char* caption, CentrePage* page) {
  views_.push_back(page);
  pages_->addWidget(page);
  list_->addItem(QLatin1String(caption));
  choice_->addItem(QLatin1String(caption));
  connect(page, &CentrePage::over_picked, this, &MatchCentreWindow::pick_over);
}

void MatchCentreWindow::add_views() {
  const auto of_innings = [](story_table (*make)(const innings_story&)) {
    return [make](const match_story&, const innings_story& innings) { return make(innings); };
  };
  auto* card = new TablesPage(QStringLiteral("card"), {{QStringLiteral("card_batting"), of_innings(batting_story)},
                                                       {QStringLiteral("card_falls"), of_innings(falls_story)},
                                                       {QStringLiteral("card_bowling"), of_innings(bowling_story)}});
  card->tell(card_words);
  add_view("Scorecard", card);
  add_view("Commentary", new ToldPage(QStringLiteral("commentary")));
  add_view("Manhattan and worm", new CoursePage(QStringLiteral("overs"), CoursePicture::Kind::overs));
  add_view("Run rate", new CoursePage(QStringLiteral("rates"), CoursePicture::Kind::rates));
  add_view("Phases", new_page("phases", phases_story));
  add_view("Stands", new_page("stands", stands_story));
  add_view("Batter v bowler", new_page("meetings", meetings_story));
  add_view("Spells", new_page("spells", spells_story));
  add_view("Types of runs", new_page("kinds", kinds_story));
  add_view("Scorebook", new_page("scorebook", scorebook_story));
  add_view("Notes", new TablesPage(QStringLiteral("notes"),
                                   {{QStringLiteral("notes_table"), [](const match_story& match, const innings_story&) {
                                       return notes_story(match);
                                     }}}));
}

QWidget* MatchCentreWindow::new_choices() {
  auto* choices = new QWidget;
  auto* row = new QHBoxLayout(choices);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(8);
  row->addWidget(choice_);
  // A single innings leaves no choice.
  for (std::size_t i = 0; story_.innings.size() > 1 && i < story_.innings.size(); ++i) {
    const reported_innings& card = story_.innings[i].card;
    auto* button = new QPushButton;
    button->setObjectName(QStringLiteral("innings_%1").arg(i + 1));
    button->setAutoDefault(false);
    button->setCheckable(true);
    name_act(*button, {.caption = QStringLiteral("%1 %2/%3").arg(shown(card.side)).arg(card.total).arg(card.wickets),
                       .mnemonic = i == 0 ? u'1' : u'2',
                       .key = QKeySequence(i == 0 ? Qt::Key_1 : Qt::Key_2),
                       .hint = QStringLiteral("The innings of %1").arg(shown(card.side))});
    sides_->addButton(button, static_cast<int>(i));
    row->addWidget(button);
  }
  row->addStretch(1);
  connect(sides_, &QButtonGroup::idClicked, this, [this](int id) { show_innings(static_cast<std::size_t>(id)); });
  return choices;
}

CentrePage* MatchCentreWindow::page_on_show() const { return views_[static_cast<std::size_t>(pages_->currentIndex())]; }

void MatchCentreWindow::show_view(int view) {
  if (view < 0 || view >= pages_->count()) return;
  pages_->setCurrentIndex(view);
  list_->setCurrentRow(view);
  choice_->setCurrentIndex(view);
}

void MatchCentreWindow::show_innings(std::size_t innings) {
  innings_ = innings;
  picked_ = 0;
  if (QAbstractButton* chosen = sides_->button(static_cast<int>(innings))) chosen->setChecked(true);
  for (CentrePage* page : views_) page->show_innings(story_, innings);
}

void MatchCentreWindow::pick_over(int over) {
  picked_ = over;
  for (CentrePage* page : views_) page->mark_over(over);
}

void MatchCentreWindow::copy() const {
  QStringList texts;
  for (const Table& table : page_on_show()->tables()) texts << table.name + QLatin1Char('\n') + table_text(table);
  QApplication::clipboard()->setText(texts.join(QLatin1Char('\n')));
}

void MatchCentreWindow::save() {
  const CentrePage* page = page_on_show();
  const QString folder = preferences::last_folder();
  const QString name = file_name(page->tables().front().name) + QStringLiteral(".csv");
  const QString path = QFileDialog::getSaveFileName(this, QStringLiteral("Save the view"),
                                                    folder.isEmpty() ? name : folder + QLatin1Char('/') + name,
                                                    QStringLiteral("Tables and pictures (*.csv *.png *.svg)"));
  if (path.isEmpty()) return;
  const QString ending = QFileInfo(path).suffix().toLower();
  preferences::set_last_folder(QFileInfo(path).path());
  const bool picture = ending == QLatin1String("png") || ending == QLatin1String("svg");
  bool saved = false;
  if (picture) {
    saved = page->save_picture(path);
  } else {
    QSaveFile file(ending.isEmpty() ? path + QStringLiteral(".csv") : path);
    QStringList texts;
    for (const Table& table : page->tables()) texts << table_csv(table);
    const QByteArray bytes = texts.join(QStringLiteral("\r\n")).toUtf8();
    saved = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
  }
  if (saved) return;
  MessageWindow window({"Save the view", "The file could not be written: " + core_text(path)},
                       MessageWindow::Kind::failure);
  run_modal(window);
}

void MatchCentreWindow::resizeEvent(QResizeEvent* event) {
  const bool room = width() >= least_width_for_list;
  list_->setVisible(room);
  choice_->setVisible(!room);
  Form::resizeEvent(event);
}

}  // namespace velorin
