// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/name_book.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace velorin {

namespace {

/// Whether a word goes on between the two characters around this place.
bool is_within_word(const QString& text, qsizetype place) {
  if (place <= 0 || place >= text.size()) return false;
  return text[place - 1].isLetterOrNumber() && text[place].isLetterOrNumber();
}

}  // namespace

void NameBook::add(NameLink link) {
  link.name = link.name.trimmed();
  if (link.name.isEmpty()) return;
  if (const auto known = names_.find(link.name); known != names_.end()) {
    if (known->kind == NameLink::Kind::player && known->team != link.team) known->team.clear();
    return;
  }
  std::vector<qsizetype>& lengths = lengths_[link.name[0]];
  const auto place = std::lower_bound(lengths.begin(), lengths.end(), link.name.size(), std::greater<>());
  if (place == lengths.end() || *place != link.name.size()) lengths.insert(place, link.name.size());
  names_.insert(link.name, link);
}

std::vector<FoundName> NameBook::names_in(const QString& text) const {
  std::vector<FoundName> found;
  for (qsizetype at = 0; at < text.size(); ++at) {
    const auto lengths = lengths_.constFind(text[at]);
    if (lengths == lengths_.constEnd() || is_within_word(text, at)) continue;
    for (const qsizetype length : *lengths) {
      if (at + length > text.size() || is_within_word(text, at + length)) continue;
      const auto name = names_.constFind(text.mid(at, length));
      if (name == names_.constEnd()) continue;
      found.push_back({at, length, *name});
      at += length - 1;
      break;
    }
  }
  return found;
}

}  // namespace velorin
