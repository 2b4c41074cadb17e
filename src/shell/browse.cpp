// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/browse.h"

#include <utility>

#include "archive/forms/archive_page_window.h"
#include "archive/forms/record_book_window.h"
#include "database/open_database.h"
#include "desktop/program_end.h"
#include "model/code_page.h"

namespace velorin {

namespace {

/// Whether the user goes on to another place.
template <class Window>
bool leads_on(const open_database& data, archive_history& history) {
  Window window(data.files, history);
  run_modal(window);
  return window.leads_on();
}

}  // namespace

void browse(const open_database& data, archive_place first) {
  archive_history history(std::move(first));
  bool on = true;
  while (on) {
    const bool book = history.here().about.what == archive_subject::kind::record_book;
    on = book ? leads_on<RecordBookWindow>(data, history) : leads_on<ArchivePageWindow>(data, history);
  }
}

void browse_man(const open_database& data, const std::string& team, const std::string& man) {
  archive_subject about{.what = archive_subject::kind::team, .name = to_utf8(team)};
  if (!man.empty()) about = {.what = archive_subject::kind::player, .name = to_utf8(man), .team = to_utf8(team)};
  browse(data, {.about = std::move(about)});
}

}  // namespace velorin
