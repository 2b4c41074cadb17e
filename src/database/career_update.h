// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <utility>

// The lasting figures. Both run once at the end of a match, in this order, on the match as it stands then: the second
// innings current, the last stand recorded, the result block filled. While files.updates is false, nothing is done.

namespace velorin {

struct match_state;
struct open_database;

/// Adds the match to the careers of both elevens. Requires: the second-innings state. Rewrites <base>.rec as a
/// whole under the folder's lock. Raises run_time_error: a 21st career team or player (subscript), a record beyond its
/// slot or a figure beyond its width (overflow), file problems, a file cut short among them (file); the old file is
/// whole then or, if only the folder could not be synchronised, the new one.
void update_career(const match_state& match, const open_database& data);

/// Adds the match to the record lists and the team table. Requires, reads and raises likewise (a 26th table team:
/// subscript); rewrites <base>.ptr.
void update_records(const match_state& match, const open_database& data);

/// Both, as the end of a match does it; what has failed may be tried again.
class match_update {
 public:
  /// `added` is set once the files have the match; it outlives the update. `name`: one under which the match is added
  /// once, whoever asks again, also after a crash; a line of printable characters; "" for none. `recording`: the bytes
  /// of one, which is kept with the match; "" for none.
  match_update(const match_state& match, const open_database& data, bool& added, std::string name = {},
               std::string recording = {})
      : added_(added), name_(std::move(name)), recording_(std::move(recording)), match_(match), data_(data) {}

  /// Adds the match to both. Requires, reads and raises as they do, and refuses files that do not belong together
  /// (file). Neither file is replaced before the new content of both is written: a failure leaves both as they were or,
  /// if it is the renaming of the second, to the next update to finish, which adds to the files as they are then; if
  /// only the folder could not be synchronised, both are new.
  /// Called again after a failure, it does what is left to be done: no match is added twice. A match with a name is
  /// noted in the third file that is put in place with the two, and one that is noted there is not added again. Where
  /// the files have a keeper, the match is put in place for it as well.
  void run();

 private:
  bool& added_;  ///< by an earlier run, which then failed
  std::string name_;
  std::string recording_;
  const match_state& match_;
  const open_database& data_;
};

/// One run of a match_update.
void update_career_and_records(const match_state& match, const open_database& data);

}  // namespace velorin
