// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/settings_form.h"

#include <algorithm>
#include <filesystem>

#include "database/begin_anew.h"
#include "database/configuration.h"
#include "database/open_database.h"
#include "model/code_page.h"
#include "model/run_time_error.h"

namespace velorin {

namespace {

/// A path as a setting can hold it; "" for one with a character that has no place in Windows-1252.
std::string text_of(const std::filesystem::path& path) { return from_utf8(path.string()).value_or(std::string()); }

/// The folder above that of the data files.
std::filesystem::path program_folder(const open_database& data) {
  std::error_code failed;
  std::filesystem::path folder = std::filesystem::absolute(data.files.folder, failed).lexically_normal();
  if (!folder.has_filename()) folder = folder.parent_path();  // a slash behind the name
  return folder.parent_path();
}

bool is_folder(const std::string& path) {
  std::error_code failed;
  return std::filesystem::is_directory(to_utf8(path), failed);
}

/// The databases on offer; none in a folder that cannot be read.
std::vector<std::string> list_of_databases(const open_database& data) {
  try {
    return databases_on_offer(data.files.folder);
  } catch (const run_time_error&) {
    return {};
  }
}

/// The files of the database chosen, if it were in use.
database_files files_of(const open_database& data, const std::string& base) {
  database_files files = database_paths(data.files.folder, base);
  files.watcher = data.files.watcher;
  files.keeper = data.files.keeper;
  return files;
}

/// Sets a colour from its setting, unless that is empty or no colour.
void show_color(long& color, const std::string& digits) {
  try {
    if (!digits.empty()) color = std::stol(change_to_rgb(digits));
  } catch (const run_time_error&) {
  }
}

}  // namespace

void settings_form::open() {
  static_cast<settings_fields&>(*this) = {};
  databases = list_of_databases(data_);
  if (std::find(databases.begin(), databases.end(), data_.settings.database_name) != databases.end()) {
    database = data_.settings.database_name;
  }
  show_color(sample_text_color, data_.settings.text_color);
  show_color(sample_back_color, data_.settings.back_color);
  font_dialog_color = sample_text_color;
  back_dialog_color = sample_back_color;
  photo_folder = is_folder(data_.settings.photo_path) ? data_.settings.photo_path : text_of(program_folder(data_));
  current_drive = text_of(std::filesystem::path(to_utf8(photo_folder)).root_path());
}

std::string settings_form::database_note() const {
  if (can_be_kept(database)) return {};
  return "The name of this database cannot be kept: the next start asks for a database again.";
}

std::string settings_form::folder_note() const {
  if (can_be_kept(photo_folder)) return {};
  return "A path with a comma cannot be kept: the next start reads it up to the comma.";
}

void settings_form::change_drive(const std::string& drive) {
  if (!is_folder(drive)) return;
  current_drive = drive;
  photo_folder = drive;
}

void settings_form::change_back_color(std::optional<long> chosen) {
  if (chosen) back_dialog_color = *chosen;
  sample_back_color = back_dialog_color;
}

void settings_form::change_font_color(std::optional<long> chosen) {
  if (chosen) font_dialog_color = *chosen;
  sample_text_color = font_dialog_color;
}

bool settings_form::has_careers() const {
  return !database.empty() && has_careers_or_records(files_of(data_, database));
}

std::optional<settings_form::shown_message> settings_form::begin_anew() {
  try {
    begin_careers_anew(files_of(data_, database));
  } catch (const run_time_error& error) {
    return shown_message{"Error", error.what()};
  }
  return std::nullopt;
}

std::optional<settings_form::shown_message> settings_form::accept() {
  if (database.empty()) return shown_message{"Error", "Please select a database before continuing"};
  data_.settings.database_name = database;
  use_database(data_, data_.settings.database_name);
  data_.settings.photo_path = photo_folder;
  data_.settings.text_color = change_to_hex(font_dialog_color);
  data_.settings.back_color = change_to_hex(back_dialog_color);
  data_.settings.font_name = sample_font;
  closed = true;
  try {
    write_options(data_);
  } catch (const run_time_error& error) {
    return shown_message{"Error", std::string("The settings hold until the program ends. ") + error.what()};
  }
  return std::nullopt;
}

}  // namespace velorin
