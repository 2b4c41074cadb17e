// SPDX-License-Identifier: GPL-3.0-or-later
#include <exception>
#include <fstream>

#include "database/whole_file.h"
#include "reports/export.h"

namespace velorin {

namespace {

std::string export_text(const scorecard& card, export_kind kind) {
  switch (kind) {
    case export_kind::html:
      return html_scorecard(card);
    case export_kind::text:
      return text_scorecard(card);
    case export_kind::ball_by_ball:
      return ball_by_ball(card);
  }
  return {};
}

/// For what cannot be replaced, such as a pipe or a terminal.
bool write_straight(const std::filesystem::path& path, const std::string& content) {
  std::ofstream out(path, std::ios::binary);
  out << content << std::flush;
  return out.good();
}

bool write(const std::filesystem::path& path, const std::string& content) {
  const bool exists = std::filesystem::exists(path);
  if (exists && !std::filesystem::is_regular_file(path)) return write_straight(path, content);
  const folder_lock turn(path);
  replace_file(path, content);
  return true;
}

}  // namespace

bool save_export(const scorecard& card, export_kind kind, const std::filesystem::path& path) {
  try {
    return write(path, export_text(card, kind));
  } catch (const std::exception&) {
    return false;
  }
}

bool save_export(export_kind kind, const std::filesystem::path& path) {
  scorecard card;
  card.open();
  return save_export(card, kind, path);
}

}  // namespace velorin
