// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/configuration.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

#include "database/open_database.h"
#include "database/whole_file.h"
#include "model/code_page.h"
#include "model/run_time_error.h"
#include "model/texts.h"

namespace velorin {

namespace {

constexpr std::array<std::string configuration::*, 5> options_lines = {
    &configuration::photo_path, &configuration::database_name, &configuration::text_color, &configuration::back_color,
    &configuration::font_name};

std::filesystem::path options_file(const open_database& data) { return data.files.folder / "options.mc"; }

/// Takes the next line off `text`, or nothing at its end.
std::optional<std::string_view> next_line(std::string_view& text) {
  if (text.empty()) return std::nullopt;
  const std::size_t end = text.find('\n');
  std::string_view line = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

/// The value of a line, read as one field that a comma delimits.
std::string field_of(std::string_view line) {
  if (line.starts_with(' ')) line.remove_prefix(1);
  return std::string(line.substr(0, line.find(',')));
}

std::optional<configuration> parse_options(std::string_view text) {
  configuration read;
  for (const auto setting : options_lines) {
    const auto line = next_line(text);
    if (!line) return std::nullopt;
    read.*setting = field_of(*line);
  }
  return read;
}

/// Raises run_time_error (file) if that cannot be told.
bool is_plain_file(const std::filesystem::path& file) {
  std::error_code failed;
  const std::filesystem::file_status status = std::filesystem::status(file, failed);
  const bool told = std::filesystem::status_known(status);
  const bool leads_nowhere =
      failed == std::errc::too_many_symbolic_link_levels || failed == std::errc::filename_too_long;
  if (!told && !leads_nowhere) {
    raise_file_error("The file cannot be looked at", failed.value(), file);
  }
  return std::filesystem::is_regular_file(status);
}

/// On offer, or with careers or records alone, which can be read without teams and grounds.
bool is_known(const open_database& data, const std::string& base) {
  const std::vector<std::string> offered = databases_on_offer(data.files.folder);
  if (std::find(offered.begin(), offered.end(), base) != offered.end()) return true;
  if (base.empty() || base.find('/') != std::string::npos || base.find('\0') != std::string::npos) return false;
  const database_files paths = database_paths(data.files.folder, base);
  return is_plain_file(paths.career_file) || is_plain_file(paths.record_file);
}

}  // namespace

database_files database_paths(const std::filesystem::path& folder, const std::string& base) {
  const std::string name = to_utf8(base);
  database_files paths;
  paths.folder = folder;
  paths.base = base;
  paths.team_file = folder / (name + ".team");
  paths.ground_file = folder / (name + ".grd");
  paths.career_file = folder / (name + ".rec");
  paths.record_file = folder / (name + ".ptr");
  return paths;
}

void use_database(open_database& data, const std::string& base) {
  database_files paths = database_paths(data.files.folder, base);
  paths.elevens_in_memory = data.files.elevens_in_memory;
  paths.read_once = data.files.read_once;
  paths.updates = data.files.updates;
  paths.watcher = data.files.watcher;
  paths.keeper = data.files.keeper;
  data.files = std::move(paths);
}

bool read_options(open_database& data) {
  try {
    return require_readable_options(data);
  } catch (const run_time_error&) {
    return false;
  }
}

bool require_readable_options(open_database& data) {
  const std::optional<std::string> text = read_file(options_file(data));
  if (!text) return false;
  std::optional<configuration> read = parse_options(*text);
  if (!read) return false;
  data.settings = std::move(*read);
  return true;
}

first_settings take_first_settings(open_database& data, std::string* cause) {
  try {
    if (!require_readable_options(data)) return first_settings::missing;
  } catch (const run_time_error& error) {
    if (cause != nullptr) *cause = error.what();
    return first_settings::missing;
  }
  const bool found = is_known(data, data.settings.database_name);
  use_database(data, found ? data.settings.database_name : std::string());
  return found ? first_settings::in_use : first_settings::not_on_offer;
}

bool can_be_kept(const std::string& value) {
  return field_of(value) == value && value.find_first_of("\r\n") == std::string::npos;
}

void write_options(const open_database& data) {
  std::string text;
  for (const auto setting : options_lines) {
    const std::string& value = data.settings.*setting;
    text += value.substr(0, value.find('\n')) + "\r\n";  // a further line would shift those below
  }
  const folder_lock turn(options_file(data), data.files.watcher);
  replace_file(options_file(data), text);
}

std::vector<std::string> databases_on_offer(const std::filesystem::path& folder) {
  std::vector<std::string> bases;
  std::error_code failed;
  std::filesystem::directory_iterator entry(folder, failed);
  while (failed == std::errc::interrupted) entry = std::filesystem::directory_iterator(folder, failed);
  if (failed == std::errc::no_such_file_or_directory || failed == std::errc::not_a_directory) return bases;
  for (; !failed && entry != std::filesystem::directory_iterator(); entry.increment(failed)) {
    const std::filesystem::path& path = entry->path();
    if (path.extension() != ".team" || !is_plain_file(path)) continue;
    std::filesystem::path grounds = path;
    if (!is_plain_file(grounds.replace_extension(".grd"))) continue;
    if (auto base = from_utf8(path.stem().string())) bases.push_back(std::move(*base));
  }
  if (failed) raise_file_error("The folder cannot be read", failed.value(), folder);
  std::sort(bases.begin(), bases.end(), [](const std::string& a, const std::string& b) {
    return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
      return static_cast<unsigned char>(x) < static_cast<unsigned char>(y);
    });
  });
  return bases;
}

std::string change_to_hex(long color) {
  if (color < 0 || color > 0xFFFFFF) {
    throw run_time_error(failure::type, fmt::format("Type mismatch: {} is no colour", color));
  }
  const long blue = color / 65536;
  const long green = (color - blue * 65536) / 256;
  const long red = color - blue * 65536 - green * 256;
  return fmt::format("{:02X}{:02X}{:02X}", red, green, blue);
}

std::string change_to_rgb(std::string_view digits) {
  std::array<long, 3> parts{};
  bool valid = digits.size() == 6;
  for (std::size_t i = 0; valid && i < parts.size(); ++i) {
    const char* const pair = digits.data() + 2 * i;
    const auto [end, error] = std::from_chars(pair, pair + 2, parts[i], 16);
    valid = error == std::errc() && end == pair + 2 && parts[i] >= 0 && pair[0] != '-';
  }
  if (!valid) throw run_time_error(failure::type, fmt::format("Type mismatch: \"{}\" is no colour", digits));
  return number_text(parts[0] + 256 * parts[1] + 65536 * parts[2]);
}

}  // namespace velorin
