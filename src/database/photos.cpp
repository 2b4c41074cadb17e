// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/photos.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <system_error>

#include "database/configuration.h"
#include "database/open_database.h"
#include "model/code_page.h"

namespace velorin {

namespace {

constexpr std::size_t extension_length = 4;
constexpr std::array<std::string_view, 3> extensions = {".bmp", ".png", ".jpg"};

/// The small letter of a capital of Windows-1252; other characters as they are.
char small_letter(char c) {
  const auto byte = static_cast<std::uint8_t>(c);
  const bool capital = (byte >= 'A' && byte <= 'Z') || (byte >= 0xC0 && byte <= 0xDE && byte != 0xD7);
  if (capital) return static_cast<char>(byte + 0x20);
  if (byte == 0x8A || byte == 0x8C || byte == 0x8E) return static_cast<char>(byte + 0x10);
  return byte == 0x9F ? '\xFF' : c;
}

std::string small_letters(std::string_view text) {
  std::string small(text);
  std::transform(small.begin(), small.end(), small.begin(), small_letter);
  return small;
}

/// The text behind the last full stop.
std::string_view surname_of(std::string_view name) { return name.substr(name.rfind('.') + 1); }

/// The text before the first full stop, "" if there is none.
std::string_view first_initial(std::string_view name) {
  const auto stop = name.find('.');
  return stop == std::string_view::npos ? std::string_view() : name.substr(0, stop);
}

/// A file's name in small letters of Windows-1252; "" for one that has no place there.
std::string small_name(const std::filesystem::path& file) {
  return small_letters(from_utf8(file.filename().string()).value_or(""));
}

bool is_photo_of(const std::string& file, const std::string& surname) {
  if (file.size() < surname.size() + extension_length || !file.starts_with(surname)) return false;
  const std::string_view extension = std::string_view(file).substr(file.size() - extension_length);
  return std::find(extensions.begin(), extensions.end(), extension) != extensions.end();
}

/// The last three letters of a file's name before its extension.
std::string_view initials_in(std::string_view file) {
  const std::string_view stem = file.substr(0, file.size() - extension_length);
  return stem.substr(stem.size() - std::min<std::size_t>(3, stem.size()));
}

}  // namespace

std::vector<std::filesystem::path> photos_of(const open_database& data, std::string_view surname) {
  std::vector<std::filesystem::path> photos;
  const std::string wanted = small_letters(surname);
  std::error_code failed;
  std::filesystem::directory_iterator entry(to_utf8(data.settings.photo_path), failed);
  for (; !failed && entry != std::filesystem::directory_iterator(); entry.increment(failed)) {
    std::error_code unknown;
    if (!is_photo_of(small_name(entry->path()), wanted) || !entry->is_regular_file(unknown)) continue;
    photos.push_back(entry->path());
  }
  std::sort(photos.begin(), photos.end(),
            [](const auto& a, const auto& b) { return a.filename().native() < b.filename().native(); });
  return photos;
}

std::optional<std::filesystem::path> console_photo(const open_database& data, std::string_view name) {
  const std::vector<std::filesystem::path> photos = photos_of(data, surname_of(name));
  if (photos.empty()) return std::nullopt;
  return photos.front();
}

std::optional<std::filesystem::path> profile_photo(const open_database& data, std::string_view name) {
  const std::string initial = small_letters(first_initial(name));
  for (const std::filesystem::path& photo : photos_of(data, surname_of(name))) {
    const std::string file = small_name(photo);
    if (initials_in(file).find(initial) != std::string_view::npos) return photo;
  }
  return std::nullopt;
}

}  // namespace velorin
