// SPDX-License-Identifier: GPL-3.0-or-later
// What the list of saved games does with their files.
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <cerrno>
#include <optional>

#include "database/fresh_file.h"
#include "database/whole_file.h"
#include "desktop/controls.h"
#include "desktop/preferences.h"
#include "desktop/program_end.h"
#include "desktop/question.h"
#include "shell/game_keeper.h"
#include "shell/saved_games_window.h"

namespace velorin {

namespace {

QString utf8(const std::filesystem::path& path) { return QString::fromStdString(path.string()); }

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

void SavedGamesWindow::remove_finished() {
  std::vector<std::filesystem::path> files;
  for (const kept_game& each : games_) {
    if (each.over && !each.in_use) files.push_back(each.file);
  }
  const QString what = files.size() == 1
                           ? QStringLiteral("One game that is over is deleted for good.")
                           : QStringLiteral("%1 games that are over are deleted for good.").arg(files.size());
  if (!ask(*this, QStringLiteral("delete_question"), QStringLiteral("Delete all finished games?"), what)) return;
  std::error_code failed;
  for (const std::filesystem::path& file : files) {
    std::filesystem::remove(file, failed);
    if (!failed) continue;
    const int cause = failed.value();
    list({});
    raise_file_error("The game cannot be deleted", cause, file);
  }
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
