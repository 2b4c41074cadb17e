// SPDX-License-Identifier: GPL-3.0-or-later
#include "archive/forms/record_book_window.h"

#include <QComboBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "archive/answer_text.h"
#include "archive/archive_file.h"
#include "archive/forms/answer_view.h"
#include "archive/forms/question_panel.h"
#include "archive/written_question.h"
#include "desktop/controls.h"
#include "desktop/message_window.h"
#include "desktop/preferences.h"
#include "desktop/program_end.h"
#include "desktop/shown_text.h"
#include "desktop/table_view.h"
#include "model/run_time_error.h"

namespace velorin {

namespace {

constexpr int list_width = 256;
constexpr int least_width_for_questions = 1240;  // pixels, of the window
constexpr int until_asked = 180;                 // milliseconds after the last change

QString heading_of(rows_of from) {
  switch (from) {
    case rows_of::batting:
      return QStringLiteral("Batting");
    case rows_of::bowling:
      return QStringLiteral("Bowling");
    case rows_of::innings:
      return QStringLiteral("Teams");
    case rows_of::stands:
      return QStringLiteral("Stands");
    case rows_of::meetings:
      return QStringLiteral("Batsman against bowler");
    case rows_of::matches:
      return QStringLiteral("Matches");
  }
  return {};
}

}  // namespace

RecordBookWindow::RecordBookWindow(const database_files& files, archive_history& history, QWidget* parent)
    : ArchiveForm(QStringLiteral("recbook"), history, parent),
      panel_(new QuestionPanel),
      sentence_(new_named_label(QStringLiteral("sentence"), {}, TextRole::strong)),
      answer_(new AnswerView(files)),
      name_(new QLineEdit),
      soon_(new QTimer(this)) {
  set_title(QStringLiteral("Record Book"), QStringLiteral("Record Book"));
  auto* across = new QHBoxLayout;
  across->setSpacing(16);
  new_column(body(), 1600)->addLayout(across, 1);
  across->addWidget(new_list());
  auto* rows = new QVBoxLayout;
  rows->setSpacing(8);
  above_ = new_drop_down();
  rows->addWidget(above_);
  rows->addWidget(panel_);
  sentence_->setWordWrap(true);
  rows->addWidget(sentence_);
  rows->addWidget(answer_, 1);
  across->addLayout(rows, 1);
  soon_->setSingleShot(true);
  soon_->setInterval(until_asked);
  connect(soon_, &QTimer::timeout, this, [this] { ask(); });
  connect(panel_, &QuestionPanel::changed, this, [this] {
    title_.clear();
    show_chosen();
    soon_->start();
  });
  connect(answer_, &AnswerView::answered, this, [this] {
    for (QPushButton* saver : savers_) saver->setEnabled(!answer_->told().columns.empty());
  });
  answer_->on_link([this](const archive_subject& about) { go_to(about); });
  add_buttons();
  prefer_size(QSize(1280, 760));
  offer_questions();
  const archive_place& here = history.here();
  const bool is_new = here.asked == question{} && here.title.empty();
  answer_->stand_at(here);
  title_ = is_new ? offered_.front().title : QString::fromStdString(here.title);
  panel_->set_question(is_new ? offered_.front().asked : here.asked);
  show_chosen();
  ask();
}

QWidget* RecordBookWindow::new_list() {
  list_ = new QListWidget;
  list_->setObjectName(QStringLiteral("questions"));
  list_->setAccessibleName(QStringLiteral("Questions"));
  list_->setFixedWidth(list_width);
  list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  connect(list_, &QListWidget::currentRowChanged, this, [this](int row) {
    if (row >= 0 && !showing_) choose(list_->item(row)->data(Qt::UserRole).toInt());
  });
  return list_;
}

QWidget* RecordBookWindow::new_drop_down() {
  auto* line = new QWidget;
  auto* row = new QHBoxLayout(line);
  row->setContentsMargins(0, 0, 0, 0);
  drop_down_ = new QComboBox;
  drop_down_->setObjectName(QStringLiteral("ready_questions"));
  drop_down_->setMaxVisibleItems(20);
  row->addWidget(new_caption(QStringLiteral("Ready question"), u'q', drop_down_));
  row->addWidget(drop_down_);
  row->addStretch(1);
  line->hide();
  connect(drop_down_, &QComboBox::activated, this, [this](int place) {
    if (place > 0) choose(place - 1);
  });
  return line;
}

void RecordBookWindow::add_buttons() {
  name_->setObjectName(QStringLiteral("question_name"));
  name_->setPlaceholderText(QStringLiteral("Name for this question"));
  name_->setAccessibleName(QStringLiteral("Name for this question"));
  name_->setMinimumWidth(180);
  connect(name_, &QLineEdit::textChanged, this, [this] { keep_->setEnabled(!name_->text().trimmed().isEmpty()); });
  add_beside_buttons(name_);
  keep_ =
      add_button(QStringLiteral("keep"),
                 {.caption = QStringLiteral("Keep"), .mnemonic = u'K', .hint = QStringLiteral("Keeps the question")},
                 [this] { keep_question(); });
  forget_ = add_button(
      QStringLiteral("forget"),
      {.caption = QStringLiteral("Forget"), .mnemonic = u'F', .hint = QStringLiteral("Forgets the kept question")},
      [this] { forget_question(); });
  savers_ = {
      add_button(QStringLiteral("save_csv"), {.caption = QStringLiteral("Save CSV"), .mnemonic = u'V', .hint = {}},
                 [this] { save(QStringLiteral("csv")); }),
      add_button(QStringLiteral("save_json"), {.caption = QStringLiteral("Save JSON"), .mnemonic = u'J', .hint = {}},
                 [this] { save(QStringLiteral("json")); })};
  keep_->setEnabled(false);
  add_default_button(QStringLiteral("accept"), {.caption = QStringLiteral("Close"), .mnemonic = u'C'},
                     [this] { accept(); });
}

void RecordBookWindow::offer_questions() {
  showing_ = true;
  offered_.clear();
  list_->clear();
  drop_down_->clear();
  drop_down_->addItem(QStringLiteral("Of your own"));
  QString group;
  const auto add = [&](const QString& of, Offered one) {
    if (of != group) {
      group = of;
      auto* heading = new QListWidgetItem(of, list_);
      heading->setFlags(Qt::NoItemFlags);
      heading->setFont(type_font(TypeStep::small));
    }
    auto* item = new QListWidgetItem(one.title, list_);
    item->setToolTip(one.title);
    item->setData(Qt::UserRole, static_cast<int>(offered_.size()));
    drop_down_->addItem(QStringLiteral("%1: %2").arg(of, one.title));
    offered_.push_back(std::move(one));
  };
  const QMap<QString, QString> kept = preferences::kept_questions();
  for (auto each = kept.begin(); each != kept.end(); ++each) {
    try {
      add(QStringLiteral("Kept"), {each.key(), question_written(each.value().toStdString()), true});
    } catch (const question_error&) {
      // One that a later version has written, or nobody, is left where it is.
    }
  }
  for (const classic_question& one : classic_questions()) {
    add(heading_of(one.asked.from), {QString::fromUtf8(one.title.data(), one.title.size()), one.asked});
  }
  showing_ = false;
}

void RecordBookWindow::choose(int offered) {
  const Offered& one = offered_.at(static_cast<std::size_t>(offered));
  title_ = one.title;
  panel_->set_question(one.asked);
  show_chosen();
  ask();
}

/// The sentence, and in the lists the question that is shown.
void RecordBookWindow::show_chosen() {
  showing_ = true;
  const auto found =
      std::find_if(offered_.begin(), offered_.end(), [this](const Offered& one) { return one.title == title_; });
  const int place = found == offered_.end() ? -1 : static_cast<int>(found - offered_.begin());
  list_->setCurrentItem(nullptr);
  for (int i = 0; i < list_->count() && place >= 0; ++i) {
    const QVariant offered = list_->item(i)->data(Qt::UserRole);
    if (offered.isValid() && offered.toInt() == place) list_->setCurrentRow(i);
  }
  drop_down_->setCurrentIndex(place + 1);
  forget_->setEnabled(found != offered_.end() && found->kept);
  try {
    sentence_->setText(QString::fromStdString(sentence_of(panel_->asked())));
  } catch (const question_error& error) {
    sentence_->setText(QString::fromUtf8(error.what()));
  }
  showing_ = false;
}

void RecordBookWindow::ask() {
  soon_->stop();
  for (QPushButton* saver : savers_) saver->setEnabled(false);
  const question asked = panel_->asked();
  answer_->look_up(title_.isEmpty() ? QStringLiteral("Answer") : title_, asked,
                   [asked](const archive_file& archive) { return velorin::ask(archive, asked); });
}

void RecordBookWindow::keep_question() {
  const QString name = name_->text().trimmed();
  if (name.isEmpty()) return;
  QMap<QString, QString> kept = preferences::kept_questions();
  kept.insert(name, QString::fromStdString(written_question(panel_->asked())));
  preferences::set_kept_questions(kept);
  title_ = name;
  name_->clear();
  offer_questions();
  show_chosen();
}

void RecordBookWindow::forget_question() {
  QMap<QString, QString> kept = preferences::kept_questions();
  kept.remove(title_);
  preferences::set_kept_questions(kept);
  title_.clear();
  offer_questions();
  show_chosen();
}

void RecordBookWindow::save(const QString& ending) {
  const QString folder = preferences::last_folder();
  const QString name = file_name(title_.isEmpty() ? QStringLiteral("Answer") : title_);
  const QString proposed = (folder.isEmpty() ? QString() : folder + u'/') + name + u'.' + ending;
  const QString path =
      QFileDialog::getSaveFileName(this, QStringLiteral("Save the answer"), proposed,
                                   QStringLiteral("%1 files (*.%2);;All files (*)").arg(ending.toUpper(), ending));
  if (path.isEmpty() || program_is_ending()) return;
  preferences::set_last_folder(QFileInfo(path).absolutePath());
  const bool csv = ending == QLatin1String("csv");
  const std::string text = csv ? answer_csv(answer_->told()) : answer_json(answer_->told(), answer_->asked());
  try {
    write_whole(path, QByteArray::fromStdString(text));
  } catch (const run_time_error& error) {
    show_failure(QStringLiteral("Save the answer"), error, this);
  }
}

void RecordBookWindow::keep(archive_place& here) const {
  here.asked = panel_->asked();
  here.title = title_.toStdString();
  answer_->keep_in(here);
}

void RecordBookWindow::resizeEvent(QResizeEvent* event) {
  const bool narrow = width() < least_width_for_questions;
  if (above_->isHidden() == narrow) {
    list_->setVisible(!narrow);
    above_->setVisible(narrow);
  }
  ArchiveForm::resizeEvent(event);
}

}  // namespace velorin
