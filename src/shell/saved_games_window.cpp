// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/saved_games_window.h"

#include <QDateTime>
#include <QFileDialog>
#include <QFileInfo>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <cerrno>
#include <optional>
#include <utility>

#include "database/fresh_file.h"
#include "database/whole_file.h"
#include "desktop/controls.h"
#include "desktop/message_window.h"
#include "desktop/preferences.h"
#include "desktop/program_end.h"
#include "desktop/question.h"
#include "desktop/shown_text.h"
#include "desktop/table_view.h"
#include "model/run_time_error.h"
#include "shell/game_keeper.h"
#include "shell/match_line.h"

namespace velorin {

namespace {

QString utf8(const std::filesystem::path& path) { return QString::fromStdString(path.string()); }

QString date_of(std::int64_t seconds) {
  return QDateTime::fromSecsSinceEpoch(seconds).toString(QStringLiteral("yyyy-MM-dd HH:mm"));
}

QString state_of(const kept_game& game) {
  if (game.empty) return QStringLiteral("empty");
  if (!game.fault.empty()) return QStringLiteral("cannot be read");
  if (game.in_use) return QStringLiteral("is being played");
  return game.over ? QStringLiteral("over") : QStringLiteral("waits");
}

/// Asks for the name of a game.
class NameWindow : public Form {
 public:
  NameWindow(const QString& title, const QString& text, QWidget* parent)
      : Form(QStringLiteral("game_name"), Dismissal::closes, parent), name_(new QLineEdit(text)) {
    stand_as(Place::sheet);
    set_title(title, {});
    name_->setObjectName(QStringLiteral("name"));
    name_->setMaxLength(80);
    name_->setMinimumWidth(420);
    body()->addWidget(new_caption(title, u'N', name_));
    body()->addWidget(name_);
    auto* ok = add_default_button(QStringLiteral("accept"), {.caption = QStringLiteral("OK"), .mnemonic = u'O'},
                                  [this] { accept(); });
    add_button(QStringLiteral("cancel"), {.caption = QStringLiteral("Cancel"), .mnemonic = u'C'}, [this] { reject(); });
    connect(name_, &QLineEdit::textChanged, ok, [ok](const QString& now) { ok->setEnabled(!now.trimmed().isEmpty()); });
    ok->setEnabled(!text.trimmed().isEmpty());
    name_->selectAll();
    name_->setFocus();
  }

  QString name() const { return name_->text().trimmed(); }

 private:
  QLineEdit* name_;
};

}  // namespace

QString ask_for_game_name(QWidget& window, const QString& title, const QString& text) {
  NameWindow asked(title, text, &window);
  run_modal(asked);
  return asked.result() == QDialog::Accepted ? asked.name() : QString();
}

SavedGamesWindow::SavedGamesWindow(const GameKeeper& keeper, const std::filesystem::path& current, QWidget* parent)
    : Form(QStringLiteral("savedgames"), Dismissal::closes, parent),
      keeper_(keeper),
      table_(new TableView(QStringLiteral("games"))) {
  set_title(QStringLiteral("Saved Games"), QStringLiteral("Saved Games"));
  body()->addWidget(table_, 1);
  table_->on_open([this](int) { game() != nullptr&& game()->over ? watch() : go_on(); });
  connect(table_->selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this] { show_acts(); });
  of_game_ = {add_act("copy_game", "Save As", u'S', "Keeps a copy of this game under another name", [this] { copy(); }),
              add_act("rename_game", "Rename", u'R', "Gives this game another name", [this] { rename(); }),
              add_act("delete_game", "Delete", u'D', "Deletes this game", [this] { remove(); })};
  match_line_ = add_act("match_line", "Win Line", u'N', "How the chance of winning moved in this game's last match",
                        [this] { open_match_line(game()->file); });
  of_game_.push_back(
      add_act("export_game", "Export", u'E', "Writes this game to a file of your choice", [this] { export_game(); }));
  add_act("import_game", "Import", u'I', "Takes a game from a file", [this] { import_game(); });
  watch_ =
      add_button(QStringLiteral("watch"),
                 {.caption = QStringLiteral("Watch"),
                  .mnemonic = u'W',
                  .hint = QStringLiteral("Shows this game ball by ball, from its beginning; nothing of it changes"),
                  .spoken = QStringLiteral("Watch again")},
                 [this] { watch(); });
  go_on_ = add_default_button(QStringLiteral("accept"),
                              {.caption = QStringLiteral("Continue"),
                               .mnemonic = u'C',
                               .hint = QStringLiteral("Goes on with this game where it was left")},
                              [this] { go_on(); });
  add_button(QStringLiteral("close"), {.caption = QStringLiteral("Close"), .mnemonic = u'L'}, [this] { reject(); });
  prefer_size({1120, 640});
  list(current);
  table_->setFocus();
}

QPushButton* SavedGamesWindow::add_act(const char* name, const char* caption, QChar mnemonic, const char* hint,
                                       std::function<void()> act) {
  auto* button = new QPushButton;
  button->setObjectName(QLatin1String(name));
  button->setAutoDefault(false);
  name_act(*button, {.caption = QLatin1String(caption), .mnemonic = mnemonic, .hint = QLatin1String(hint)});
  connect(button, &QPushButton::clicked, this, [act = std::move(act)] {
    guarded([&] {
      try {
        act();
      } catch (const run_time_error& fault) {
        // A file that cannot be written or read leaves the list as it is.
        MessageWindow told({"Error", fault.what()});
        run_modal(told);
      }
    });
  });
  add_aside(button);
  return button;
}

void SavedGamesWindow::list(const std::filesystem::path& current) {
  games_ = games_in(keeper_.folder());
  Table table{QStringLiteral("Saved games"),
              {{QStringLiteral("Game")},
               {QStringLiteral("Stage")},
               {QStringLiteral("Score")},
               {QStringLiteral("Last played")},
               {QStringLiteral("State")},
               {.heading = QStringLiteral("Name"), .stretches = true}},
              {},
              RowOrder::free};
  int row = 0;
  for (std::size_t i = 0; i < games_.size(); ++i) {
    const kept_game& each = games_[i];
    if (each.file == current) row = static_cast<int>(i);
    table.rows.push_back({.cells = {{shown(each.words.competition)},
                                    {shown(each.words.stage)},
                                    {shown(each.fault.empty() ? each.words.score : each.fault)},
                                    {date_of(each.changed_at)},
                                    {state_of(each)},
                                    {QString::fromStdString(each.name)}},
                          .id = static_cast<int>(i),
                          .opens = each.fault.empty() && (each.over || !each.in_use)});
  }
  table_->set_table(std::move(table));
  if (!games_.empty()) table_->setCurrentIndex(table_->model()->index(row, 0));
  show_acts();
}

const kept_game* SavedGamesWindow::game() const {
  const int row = table_->currentIndex().isValid() ? table_->table_row(table_->currentIndex().row()) : -1;
  return row < 0 || row >= static_cast<int>(games_.size()) ? nullptr : &games_[static_cast<std::size_t>(row)];
}

void SavedGamesWindow::show_acts() {
  const kept_game* now = game();
  for (QPushButton* button : of_game_) button->setEnabled(now != nullptr && !now->in_use);
  const bool played = now != nullptr && now->fault.empty() && now->played;
  if (match_line_ != nullptr) match_line_->setEnabled(played && !now->in_use);
  if (watch_ != nullptr) watch_->setEnabled(played);
  if (go_on_ != nullptr) go_on_->setEnabled(now != nullptr && now->fault.empty() && !now->over && !now->in_use);
}

void SavedGamesWindow::go_on() {
  if (const kept_game* now = game(); now != nullptr && go_on_->isEnabled()) {
    chosen_ = now->file;
    accept();
  }
}

void SavedGamesWindow::watch() {
  if (const kept_game* now = game(); now != nullptr && watch_->isEnabled()) {
    watched_ = now->file;
    accept();
  }
}

void SavedGamesWindow::copy() {
  const QString name = ask_for_game_name(*this, QStringLiteral("Save as"), QString::fromStdString(game()->name));
  if (name.isEmpty()) return;
  list(copy_game_to(keeper_.folder(), game()->file, name.toStdString()));
}

void SavedGamesWindow::rename() {
  const QString name = ask_for_game_name(*this, QStringLiteral("Rename"), QString::fromStdString(game()->name));
  if (name.isEmpty() || name.toStdString() == game()->name) return;
  const std::filesystem::path to = free_game_file(keeper_.folder(), name.toStdString());
  std::error_code failed;
  std::filesystem::rename(game()->file, to, failed);
  if (failed) raise_file_error("The game cannot be renamed", failed.value(), game()->file);
  list(to);
}

void SavedGamesWindow::remove() {
  const QString what = QStringLiteral("%1 is deleted for good.").arg(QString::fromStdString(game()->name));
  if (!ask(*this, QStringLiteral("delete_question"), QStringLiteral("Delete this game?"), what)) return;
  std::error_code failed;
  std::filesystem::remove(game()->file, failed);
  if (failed) raise_file_error("The game cannot be deleted", failed.value(), game()->file);
  list({});
}

void SavedGamesWindow::export_game() {
  QFileDialog dialog(this, QStringLiteral("Export Game"), preferences::last_folder(),
                     QStringLiteral("Velorin games (*.velorin);;All files (*)"));
  dialog.setObjectName(QStringLiteral("export_file"));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setDefaultSuffix(QStringLiteral("velorin"));
  dialog.selectFile(utf8(game()->file.filename()));
  run_modal(dialog);
  if (dialog.result() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return;
  const QFileInfo to(dialog.selectedFiles().constFirst());
  preferences::set_last_folder(to.absolutePath());
  const std::optional<std::string> bytes = read_file(game()->file);
  if (!bytes) raise_file_error("The game cannot be exported", ENOENT, game()->file);
  fresh_file copied(to.filesystemFilePath());
  copied.stream() << *bytes;
  copied.put_in_place();
}

void SavedGamesWindow::import_game() {
  QFileDialog dialog(this, QStringLiteral("Import Game"), preferences::last_folder(),
                     QStringLiteral("Velorin games (*.velorin);;All files (*)"));
  dialog.setObjectName(QStringLiteral("import_file"));
  dialog.setFileMode(QFileDialog::ExistingFile);
  run_modal(dialog);
  if (dialog.result() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return;
  const QFileInfo from(dialog.selectedFiles().constFirst());
  preferences::set_last_folder(from.absolutePath());
  list(copy_game_to(keeper_.folder(), from.filesystemFilePath(), from.completeBaseName().toStdString()));
}

}  // namespace velorin
