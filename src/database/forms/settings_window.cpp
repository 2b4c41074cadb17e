// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/forms/settings_window.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "database/configuration.h"
#include "database/open_database.h"
#include "database/settings_form.h"
#include "desktop/captaincy_window.h"
#include "desktop/controls.h"
#include "desktop/message_kinds.h"
#include "desktop/message_window.h"
#include "desktop/preferences.h"
#include "desktop/program_end.h"
#include "desktop/question.h"
#include "desktop/shown_text.h"
#include "desktop/theme.h"

namespace velorin {

namespace {

QColor shown_color(long color) {
  return {static_cast<int>(color & 0xFF), static_cast<int>(color >> 8 & 0xFF), static_cast<int>(color >> 16 & 0xFF)};
}

/// A button in the middle of the form.
QPushButton* new_act(const QString& name, const Act& act, std::function<void()> pressed) {
  auto* button = new QPushButton;
  button->setObjectName(name);
  button->setAutoDefault(false);
  name_act(*button, act);
  QObject::connect(button, &QPushButton::clicked, button, [pressed = std::move(pressed)] { guarded(pressed); });
  return button;
}

/// Words under a control, shown while there are any.
QLabel* new_note(const char* name, const QString& text) {
  QLabel* note = new_named_label(QString::fromLatin1(name), text, TextRole::muted);
  note->setWordWrap(true);
  return note;
}

}  // namespace

SettingsWindow::Choosers SettingsWindow::dialogs() {
  return {[](QWidget* parent, const QColor& present) -> std::optional<QColor> {
            const QColor chosen = QColorDialog::getColor(present, parent);
            return chosen.isValid() ? std::optional(chosen) : std::nullopt;
          },
          [](QWidget* parent, const QString& present) {
            return QFileDialog::getExistingDirectory(parent, QStringLiteral("Give Path for Photos"), present);
          }};
}

SettingsWindow::SettingsWindow(const open_database& database, settings_form& form, QWidget* parent, Choosers choosers)
    : Form(QStringLiteral("optfrm"), Dismissal::closes, parent),
      form_(form),
      choosers_(std::move(choosers)),
      data_(database) {
  limit_body(880);
  set_title(QStringLiteral("Configurations"), QStringLiteral("Configurations"));
  add_database();
  add_folder();
  add_sample();
  add_moments();
  body()->addStretch(1);
  add_default_button(QStringLiteral("accept"), {.caption = QStringLiteral("OK"), .mnemonic = u'O'},
                     [this] { confirm(); });
}

void SettingsWindow::add_database() {
  QFrame* card = new_card();
  databases_ = new QComboBox;
  databases_->setObjectName(QStringLiteral("databases"));
  for (const std::string& name : form_.databases) databases_->addItem(shown(name));
  databases_->setCurrentIndex(databases_->findText(shown(form_.database), Qt::MatchExactly | Qt::MatchCaseSensitive));
  connect(databases_, &QComboBox::currentIndexChanged, this, [this](int index) {
    form_.database = index < 0 ? std::string() : form_.databases[static_cast<std::size_t>(index)];
    show_database_note();
    show_careers();
  });
  card_rows(card)->addWidget(new_caption(QStringLiteral("Select Database:"), u'D', databases_));
  card_rows(card)->addWidget(databases_);
  database_note_ = new_note("database_note", {});
  card_rows(card)->addWidget(database_note_);
  show_database_note();
  if (form_.databases.empty()) {
    card_rows(card)->addWidget(new_note(
        "no_database", QStringLiteral("There is no database here yet. Put the .team file and the .grd file of a "
                                      "database, both under one name, into the folder %1, then open this "
                                      "window again.")
                           .arg(QString::fromStdString(data_.files.folder.string()))));
  }
  add_careers(card_rows(card));
  body()->addWidget(card);
}

void SettingsWindow::add_careers(QVBoxLayout* rows) {
  auto* row = new QHBoxLayout;
  row->setSpacing(16);
  careers_note_ = new_note("careers_note", {});
  row->addWidget(careers_note_, 1);
  begin_anew_ = new_act(QStringLiteral("begin_anew"),
                        {.caption = QStringLiteral("Begin careers and records anew"),
                         .mnemonic = u'r',
                         .key = {},
                         .hint = QStringLiteral("Empties the careers and records of this database, after a question")},
                        [this] { begin_anew(); });
  row->addWidget(begin_anew_, 0, Qt::AlignTop);
  rows->addLayout(row);
  show_careers();
}

void SettingsWindow::show_careers() {
  const bool any = form_.has_careers();
  begin_anew_->setEnabled(any);
  careers_note_->setText(
      any ? QStringLiteral(
                "Matches add to the careers and records of this database. Those that come with the game are of two "
                "seasons that it played by itself.")
          : QStringLiteral("This database has no careers and records yet. The first match begins them."));
  careers_note_->setVisible(!form_.database.empty());
  begin_anew_->setVisible(!form_.database.empty());
}

void SettingsWindow::begin_anew() {
  if (!ask(*this, QStringLiteral("anew_question"), QStringLiteral("Begin careers and records anew?"),
           QStringLiteral("Every career, record list and team record of the database \"%1\" is emptied. This cannot be "
                          "undone.")
               .arg(shown(form_.database)))) {
    return;
  }
  if (const auto failed = form_.begin_anew()) {
    MessageWindow window({failed->title, failed->text}, MessageWindow::Kind::failure);
    run_modal(window);
  }
  show_careers();
  focus_default();
}

void SettingsWindow::show_database_note() {
  database_note_->setText(shown(form_.database_note()));
  database_note_->setVisible(!database_note_->text().isEmpty());
}

void SettingsWindow::add_folder() {
  QFrame* card = new_card();
  folder_ = new QLineEdit(shown(form_.photo_folder));
  folder_->setObjectName(QStringLiteral("photo_folder"));
  folder_->setReadOnly(true);
  folder_->setMinimumWidth(360);
  folder_note_ = new_note("folder_note", {});
  card_rows(card)->addWidget(new_caption(QStringLiteral("Give Path for Photos :"), u'P', folder_));
  auto* row = new QHBoxLayout;
  row->setSpacing(8);
  row->addWidget(folder_, 1);
  row->addWidget(
      new_act(QStringLiteral("browse"), {.caption = QStringLiteral("Browse"), .mnemonic = u'B'}, [this] { browse(); }));
  card_rows(card)->addLayout(row);
  card_rows(card)->addWidget(folder_note_);
  folder_note_->hide();
  body()->addWidget(card);
}

void SettingsWindow::browse() {
  const QString chosen = choosers_.folder(this, folder_->text());
  if (chosen.isEmpty()) return;
  const std::string path = core_text(chosen);
  QString note;
  if (shown(path) != chosen) {
    note = QStringLiteral("The name of that folder has a character that cannot be kept; the former folder stays.");
  } else {
    form_.photo_folder = path;
    folder_->setText(chosen);
    note = shown(form_.folder_note());
  }
  folder_note_->setText(note);
  folder_note_->setVisible(!note.isEmpty());
}

void SettingsWindow::add_sample() {
  QFrame* card = new_card();
  sample_ = new_named_label(QStringLiteral("sample"), QStringLiteral("This is a sample line of text."));
  sample_->setAlignment(Qt::AlignCenter);
  sample_->setMinimumHeight(56);
  form_.sample_font = core_text(sample_->font().family());
  card_rows(card)->addWidget(new_label(QStringLiteral("Sample HTML Output :")));
  card_rows(card)->addWidget(sample_);
  auto* acts = new QHBoxLayout;
  acts->setSpacing(8);
  acts->addWidget(new_act(QStringLiteral("change_back_color"),
                          {.caption = QStringLiteral("Change Background Color"), .mnemonic = u'G'}, [this] {
                            form_.change_back_color(ask_color(form_.back_dialog_color));
                            show_sample();
                          }));
  acts->addWidget(new_act(QStringLiteral("change_font_color"),
                          {.caption = QStringLiteral("Change Font Color"), .mnemonic = u'F'}, [this] {
                            form_.change_font_color(ask_color(form_.font_dialog_color));
                            show_sample();
                          }));
  acts->addStretch(1);
  card_rows(card)->addLayout(acts);
  body()->addWidget(card);
  show_sample();
}

void SettingsWindow::add_moments() {
  moments_ = new QCheckBox(button_text(QStringLiteral("Celebrate great moments"), u'M'));
  moments_->setObjectName(QStringLiteral("moments"));
  moments_->setAccessibleName(QStringLiteral("Celebrate great moments"));
  moments_->setToolTip(
      QStringLiteral("A short banner for champions, hundreds, five wickets and wins with the last ball (Alt+M)"));
  moments_->setChecked(preferences::moments());
  QFrame* card = new_card();
  auto* row = new QHBoxLayout;
  row->addWidget(moments_, 1);
  row->addWidget(new_act(QStringLiteral("messages"),
                         {.caption = QStringLiteral("Messages"),
                          .mnemonic = u's',
                          .hint = QStringLiteral("Which messages of a match the game stops for")},
                         [this] {
                           MessageKindsWindow kinds(this);
                           run_modal(kinds);
                         }));
  row->addWidget(new_act(QStringLiteral("captaincy"),
                         {.caption = QStringLiteral("Captaincy"),
                          .mnemonic = u'C',
                          .hint = QStringLiteral("What you leave to the computer when you captain a side")},
                         [this] {
                           CaptaincyWindow captaincy(this);
                           run_modal(captaincy);
                         }));
  card_rows(card)->addLayout(row);
  body()->addWidget(card);
}

std::optional<long> SettingsWindow::ask_color(long present) {
  const std::optional<QColor> chosen = choosers_.color(this, shown_color(present));
  if (!chosen) return std::nullopt;
  return chosen->red() + 256L * chosen->green() + 65536L * chosen->blue();
}

void SettingsWindow::show_sample() {
  sample_->setStyleSheet(
      QStringLiteral("QLabel { color: %1; background: %2; border: 1px solid %3; border-radius: 4px; }")
          .arg(shown_color(form_.sample_text_color).name(), shown_color(form_.sample_back_color).name(),
               theme().line.name()));
}

void SettingsWindow::confirm() {
  if (const auto message = form_.accept()) {
    MessageWindow window({message->title, message->text});
    run_modal(window);
  }
  if (!form_.closed) return;
  preferences::set_moments(moments_->isChecked());
  accept();
}

}  // namespace velorin
