// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/saved_games_window.h"

#include <QDateTime>
#include <QItemSelectionModel>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "desktop/controls.h"
#include "desktop/message_window.h"
#include "desktop/preferences.h"
#include "desktop/program_end.h"
#include "desktop/shown_text.h"
#include "desktop/table_view.h"
#include "model/run_time_error.h"
#include "recording/recording_file.h"
#include "shell/game_keeper.h"
#include "shell/match_line.h"

namespace velorin {

namespace {

/// So many games are read before the list shows; those played longer ago come after it.
constexpr std::size_t read_at_once = 40;

QString date_of(std::int64_t seconds) {
  return QDateTime::fromSecsSinceEpoch(seconds).toString(QStringLiteral("yyyy-MM-dd HH:mm"));
}

QString state_of(const kept_game& game) {
  if (game.empty) return QStringLiteral("empty");
  if (!game.fault.empty()) return QStringLiteral("cannot be read");
  if (game.in_use) return QStringLiteral("is being played");
  return game.over ? QStringLiteral("over") : QStringLiteral("waits");
}

}  // namespace

SavedGamesWindow::SavedGamesWindow(const GameKeeper& keeper, const std::filesystem::path& current, QWidget* parent)
    : Form(QStringLiteral("savedgames"), Dismissal::closes, parent),
      keeper_(keeper),
      table_(new TableView(QStringLiteral("games"))),
      reading_(new_named_label(QStringLiteral("games_to_read"), {}, TextRole::muted)) {
  set_title(QStringLiteral("Saved Games"), QStringLiteral("Saved Games"));
  body()->addWidget(table_, 1);
  body()->addWidget(reading_);
  table_->on_open([this](int) { game() != nullptr&& game()->over ? watch() : go_on(); });
  connect(table_->selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this] { show_acts(); });
  add_acts();
  prefer_size({1120, 640});
  list(current);
  table_->setFocus();
}

void SavedGamesWindow::add_acts() {
  of_game_ = {
      add_act("copy_game", "Save As", u'S', "Keeps a copy of this game under another name", [this] { copy(); }),
      add_act("rename_game", "Rename", u'R', "Gives this game another name", [this] { rename(); }),
      add_act("delete_game", "Delete", u'D', "Deletes this game", [this] { remove(); }),
      add_act("match_line", "Win Line", u'N', "How the chance of winning moved in this game's last match",
              [this] { open_match_line(game()->file); }),
      add_act("export_game", "Export", u'E', "Writes this game to a file of your choice", [this] { export_game(); })};
  delete_finished_ = add_act("delete_finished", "Delete Finished", u'F',
                             "Deletes all games that are over, after a question", [this] { remove_finished(); });
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
}

QPushButton* SavedGamesWindow::add_act(const char* name, const char* caption, QChar mnemonic, const char* hint,
                                       std::function<void()> work) {
  auto* button = new QPushButton;
  button->setObjectName(QLatin1String(name));
  button->setAutoDefault(false);
  name_act(*button, {.caption = QLatin1String(caption), .mnemonic = mnemonic, .hint = QLatin1String(hint)});
  connect(button, &QPushButton::clicked, this, [this, work = std::move(work)] { act(work); });
  add_aside(button);
  return button;
}

void SavedGamesWindow::act(const std::function<void()>& work) {
  guarded([&] {
    try {
      work();
    } catch (const run_time_error& fault) {
      MessageWindow told({"Error", fault.what()}, MessageWindow::Kind::failure);
      run_modal(told);
    }
  });
}

SavedGamesWindow::Read SavedGamesWindow::read(const std::filesystem::path& file) {
  // What the file is like is asked first: what is written to it meanwhile has it read again.
  std::error_code ignored;
  const auto written = std::filesystem::last_write_time(file, ignored);
  const auto bytes = std::filesystem::file_size(file, ignored);
  return {.written = written, .bytes = bytes, .game = look_at_game(file)};
}

bool SavedGamesWindow::holds(const Read& before, const std::filesystem::path& file) {
  std::error_code missing;
  return std::filesystem::last_write_time(file, missing) == before.written && !missing &&
         std::filesystem::file_size(file, missing) == before.bytes && !missing;
}

void SavedGamesWindow::list(const std::filesystem::path& current) {
  games_.clear();
  std::vector<std::filesystem::path> unread;
  std::size_t read_now = 0;
  for (const std::filesystem::path& file : game_files(keeper_.folder())) {
    const auto before = read_.find(file);
    if (before != read_.end() && holds(before->second, file)) {
      before->second.game.in_use = is_in_use(file);
    } else if (read_now < read_at_once) {
      ++read_now;
      read_[file] = read(file);
    } else {
      unread.push_back(file);
      continue;
    }
    games_.push_back(read_[file].game);
  }
  reading_->setText(unread.empty() ? QString() : QStringLiteral("%1 older games are being read").arg(unread.size()));
  reading_->setVisible(!unread.empty());
  fill_table(current);
  read_behind(unread);
}

void SavedGamesWindow::read_behind(const std::vector<std::filesystem::path>& files) {
  behind_.drop();
  if (files.empty()) return;
  behind_.ask([this, files](const std::stop_token& stop, const auto&) -> BackWork::Show {
    std::map<std::filesystem::path, Read> found;
    for (const std::filesystem::path& file : files) {
      if (stop.stop_requested()) return {};
      found[file] = read(file);
    }
    return [this, found = std::move(found)]() mutable {
      found.merge(read_);
      read_ = std::move(found);
      const kept_game* now = game();
      list(now != nullptr ? now->file : std::filesystem::path());
    };
  });
}

void SavedGamesWindow::fill_table(const std::filesystem::path& current) {
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
                                    {shown(each.fault.empty() ? each.words.score : each.fault).simplified()},
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
  const auto finished = [](const kept_game& each) { return each.over && !each.in_use; };
  if (delete_finished_ != nullptr) {
    delete_finished_->setEnabled(reading_->text().isEmpty() && std::any_of(games_.begin(), games_.end(), finished));
  }
  if (watch_ != nullptr) watch_->setEnabled(now != nullptr && now->fault.empty() && now->bowled);
  if (go_on_ != nullptr) go_on_->setEnabled(now != nullptr && now->fault.empty() && !now->over && !now->in_use);
}

void SavedGamesWindow::go_on() {
  if (const kept_game* now = game(); now != nullptr && go_on_->isEnabled()) {
    chosen_ = now->file;
    accept();
  }
}

void SavedGamesWindow::watch() {
  const kept_game* now = game();
  if (now == nullptr || !watch_->isEnabled()) return;
  act([&] {
    // One that has been harmed since is told over the list.
    read_recording(now->file);
    watched_ = now->file;
    accept();
  });
}

}  // namespace velorin
