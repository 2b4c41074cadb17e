// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/forms/export_choice.h"

#include <QFileDialog>
#include <QFileInfo>

#include "database/open_database.h"
#include "desktop/preferences.h"
#include "desktop/program_end.h"
#include "desktop/shown_text.h"
#include "model/match_state.h"

namespace velorin {

namespace {

/// The two sides, the one that batted first in front, as a file may be called.
QString match_name(const match_state& match, const scorecard_form& card) {
  const bool second_innings = card.first_innings_enabled;
  const QString first = shown(second_innings ? match.team2_name : match.team1_name).trimmed();
  const QString second = shown(second_innings ? match.team1_name : match.team2_name).trimmed();
  return file_name(QStringLiteral("%1 v %2").arg(first, second));
}

std::string_view caption_of(export_kind kind) {
  switch (kind) {
    case export_kind::html:
      return scorecard_form::html_caption;
    case export_kind::text:
      return scorecard_form::text_caption;
    case export_kind::ball_by_ball:
      return scorecard_form::ball_by_ball_caption;
  }
  return {};
}

}  // namespace

QString ask_for_file(const FileWish& wish, QWidget* window) {
  QFileDialog dialog(window, wish.title, wish.folder, wish.filter);
  dialog.setObjectName(QStringLiteral("save_file"));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  dialog.setDefaultSuffix(wish.ending);
  dialog.selectFile(wish.name);
  run_modal(dialog);
  if (dialog.result() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
  return dialog.selectedFiles().constFirst();
}

FileWish export_wish(const match_state& match, const scorecard_form& card, export_kind kind) {
  FileWish wish;
  wish.title = shown(caption_of(kind));
  wish.folder = preferences::last_folder();
  wish.name = match_name(match, card);
  wish.ending = kind == export_kind::html ? QStringLiteral("html") : QStringLiteral("txt");
  if (kind == export_kind::ball_by_ball) wish.name += QStringLiteral(", ball by ball");
  wish.name += QLatin1Char('.') + wish.ending;
  wish.filter = kind == export_kind::html ? QStringLiteral("HTML pages (*.html *.htm);;All files (*)")
                                          : QStringLiteral("Text files (*.txt);;All files (*)");
  return wish;
}

QString export_match(const match_state& match, const open_database& database, const scorecard_form& card,
                     export_kind kind, const FileChooser& ask, QWidget* window) {
  const FileWish wish = export_wish(match, card, kind);
  const QString path = ask(wish, window);
  if (path.isEmpty()) return {};
  const QFileInfo file(path);
  preferences::set_last_folder(file.absolutePath());
  try {
    write_export(match, database, card, kind, file.filesystemFilePath());
  } catch (const std::exception& error) {
    return shown_error(error);
  }
  return {};
}

}  // namespace velorin
