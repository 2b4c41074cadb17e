// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

namespace velorin {

struct open_database;

/// While it lives, each name that a form shows leads to the page of its man, team or ground in the archive. The names
/// are those of the squads, the careers and the grounds of the database, as its files have them now.
class NamePages {
 public:
  /// `data` outlives it.
  explicit NamePages(const open_database& data);
  ~NamePages();
  NamePages(const NamePages&) = delete;
  NamePages& operator=(const NamePages&) = delete;

 private:
  class Names;

  std::unique_ptr<Names> names_;
};

}  // namespace velorin
