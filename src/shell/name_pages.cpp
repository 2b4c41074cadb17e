// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/name_pages.h"

#include <array>
#include <optional>
#include <utility>

#include "archive/archive_place.h"
#include "archive/forms/archive_form.h"
#include "database/kept_file.h"
#include "database/lasting_records.h"
#include "database/open_database.h"
#include "database/teams_file.h"
#include "desktop/name_doors.h"
#include "desktop/shown_text.h"
#include "model/run_time_error.h"
#include "shell/browse.h"

namespace velorin {

namespace {

archive_subject subject_of(const NameLink& name) {
  using kind = archive_subject::kind;
  const std::string words = name.name.toStdString();
  switch (name.kind) {
    case NameLink::Kind::player:
      return {.what = kind::player, .name = words, .team = name.team.toStdString()};
    case NameLink::Kind::team:
      return {.what = kind::team, .name = words};
    case NameLink::Kind::ground:
      break;
  }
  return {.what = kind::ground, .name = words};
}

}  // namespace

/// Reads the names anew when one of their files is another one than before.
class NamePages::Names {
 public:
  explicit Names(const open_database& data) : data_(data) {}

  const NameBook& book() {
    const std::array<std::optional<file_state>, 3> now = {
        state_now(data_.files.team_file), state_now(data_.files.ground_file), state_now(data_.files.career_file)};
    const std::filesystem::path& file = data_.files.team_file;
    if (read_ && now == states_ && file == file_) return book_;
    read_ = true;
    states_ = now;
    file_ = file;
    book_ = {};
    try {
      read();
    } catch (const run_time_error&) {
      // What can be read of the names leads on; whoever needs the file tells what is wrong with it.
    }
    return book_;
  }

 private:
  static std::optional<file_state> state_now(const std::filesystem::path& file) {
    try {
      return state_of(file);
    } catch (const run_time_error&) {
      return std::nullopt;
    }
  }

  void read() {
    // A database of its own, since what another reads of the same stays valid that way.
    open_database own;
    own.files = data_.files;
    for (const team_rec& team : read_team_list(own)) {
      book_.add({NameLink::Kind::team, shown(team.team_name), {}});
      for (const player_rec& man : team.squad) add_man(man.name, team.team_name);
    }
    scan_grounds(own, [this](const ground_rec& ground) {
      book_.add({NameLink::Kind::ground, shown(ground.ground_name), {}});
    });
    const career_table careers = read_career_table(own);
    for (int t = 1; t <= careers.career_team_count; ++t) {
      const career_team_rec& team = careers.teams[static_cast<std::size_t>(t)];
      book_.add({NameLink::Kind::team, shown(team.team_name), {}});
      for (int p = 1; p <= team.player_count; ++p) {
        add_man(team.players[static_cast<std::size_t>(p)].name, team.team_name);
      }
    }
  }

  void add_man(const std::string& man, const std::string& team) {
    book_.add({NameLink::Kind::player, shown(man), shown(team)});
  }

  const open_database& data_;
  bool read_ = false;
  std::filesystem::path file_;
  std::array<std::optional<file_state>, 3> states_;
  NameBook book_;
};

NamePages::NamePages(const open_database& data) : names_(std::make_unique<Names>(data)) {
  open_names_by({.book = [this]() -> const NameBook& { return names_->book(); },
                 .open =
                     [&data](const NameLink& name, Form& from) {
                       archive_subject about = subject_of(name);
                       if (auto* page = qobject_cast<ArchiveForm*>(&from)) return page->follow(about);
                       browse(data, {.about = std::move(about)});
                     }});
}

NamePages::~NamePages() { open_names_by({}); }

}  // namespace velorin
