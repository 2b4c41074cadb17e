// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QString>
#include <vector>

namespace velorin {

/// What a name leads to.
struct NameLink {
  enum class Kind { player, team, ground };

  Kind kind = Kind::player;
  QString name = {};
  QString team = {};  ///< of a player; "" where men of several teams are called so

  bool operator==(const NameLink&) const = default;
};

/// A name within a text.
struct FoundName {
  qsizetype from = 0;  ///< its first character
  qsizetype length = 0;
  NameLink link = {};
};

/// The names that lead on, and where in a text they stand.
class NameBook {
 public:
  /// A blank name is left out. A man of a second team is one of no team.
  void add(NameLink link);
  bool is_empty() const { return names_.isEmpty(); }

  /// From left to right; of names that overlap the longest. A name is a word of its own.
  std::vector<FoundName> names_in(const QString& text) const;

 private:
  QHash<QString, NameLink> names_;
  QHash<QChar, std::vector<qsizetype>> lengths_;  // of the names that begin so, the longest first
};

}  // namespace velorin
