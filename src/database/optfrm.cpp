// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/optfrm.h"

#include <algorithm>
#include <filesystem>

#include "database/configuration.h"
#include "model/code_page.h"
#include "model/run_time_error.h"

namespace velorin {

namespace {

/// A path as a setting can hold it; "" for one with a character that has no place in Windows-1252.
std::string text_of(const std::filesystem::path& path) { return from_utf8(path.string()).value_or(std::string()); }

/// The folder above that of the data files.
std::filesystem::path program_folder() {
  std::error_code failed;
  std::filesystem::path data = std::filesystem::absolute(files.folder, failed).lexically_normal();
  if (!data.has_filename()) data = data.parent_path();  // a slash behind the name
  return data.parent_path();
}

bool is_folder(const std::string& path) {
  std::error_code failed;
  return std::filesystem::is_directory(to_utf8(path), failed);
}

/// The databases on offer; none in a folder that cannot be read.
std::vector<std::string> list_of_databases() {
  try {
    return databases_on_offer(files.folder);
  } catch (const run_time_error&) {
    return {};
  }
}

/// Sets a colour from its setting, unless that is empty or no colour.
void show_color(long& color, const std::string& digits) {
  try {
    if (!digits.empty()) color = std::stol(change_to_rgb(digits));
  } catch (const run_time_error&) {
  }
}

}  // namespace

void optfrm::open() {
  *this = optfrm();
  combo1_list = list_of_databases();
  if (std::find(combo1_list.begin(), combo1_list.end(), settings.database_name) != combo1_list.end()) {
    combo1_text = settings.database_name;
  }
  show_color(sample_text_color, settings.text_color);
  show_color(sample_back_color, settings.back_color);
  font_dialog_color = sample_text_color;
  back_dialog_color = sample_back_color;
  dir1 = is_folder(settings.photo_path) ? settings.photo_path : text_of(program_folder());
  drive1 = text_of(std::filesystem::path(to_utf8(dir1)).root_path());
}

std::string optfrm::database_note() const {
  if (can_be_kept(combo1_text)) return {};
  return "The name of this database cannot be kept: the next start asks for a database again.";
}

std::string optfrm::folder_note() const {
  if (can_be_kept(dir1)) return {};
  return "A path with a comma cannot be kept: the next start reads it up to the comma.";
}

void optfrm::drive1_change(const std::string& drive) {
  if (!is_folder(drive)) return;
  drive1 = drive;
  dir1 = drive;
}

void optfrm::command2_click(std::optional<long> chosen) {
  if (chosen) back_dialog_color = *chosen;
  sample_back_color = back_dialog_color;
}

void optfrm::command4_click(std::optional<long> chosen) {
  if (chosen) font_dialog_color = *chosen;
  sample_text_color = font_dialog_color;
}

std::optional<optfrm::shown_message> optfrm::command1_click() {
  if (combo1_text.empty()) return shown_message{"Error", "Please select a database before continuing"};
  settings.database_name = combo1_text;
  use_database(settings.database_name);
  settings.photo_path = dir1;
  settings.text_color = change_to_hex(font_dialog_color);
  settings.back_color = change_to_hex(back_dialog_color);
  settings.font_name = sample_font;
  closed = true;
  try {
    write_options();
  } catch (const run_time_error& error) {
    return shown_message{"Error", std::string("The settings hold until the program ends. ") + error.what()};
  }
  return std::nullopt;
}

}  // namespace velorin
