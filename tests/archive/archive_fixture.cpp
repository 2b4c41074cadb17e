// SPDX-License-Identifier: GPL-3.0-or-later
#include "archive/archive_fixture.h"

#include <SQLiteCpp/Database.h>

#include <memory>

#include "competitions/game_state.h"
#include "headless/headless_user.h"
#include "setup/new_match.h"

namespace velorin::testing {

std::vector<archived_match> ArchiveTest::archived_matches() const {
  const archive_file open = archive();
  std::vector<archived_match> all;
  for (const listed_match& listed : open.list()) all.push_back(*open.match(listed.id));
  return all;
}

void ArchiveTest::play_everything() const {
  text({"--seed", "1", "match", "--update", "--matches", "10", "--quiet"});
  text({"--seed", "2", "series", "--home", "Vestria", "--away", "Orland", "--matches", "3", "--update"});
  text({"--seed", "3", "tri", "--team1", "Vestria", "--team2", "Orland", "--team3", "Marenne", "--update"});
  text({"--seed", "4", "worldcup", "--update"});
}

match_state ArchiveTest::ended_match(std::uint64_t seed) const {
  /// Keeps the match as the last card of it was shown.
  class watching_user : public headless_user {
   public:
    explicit watching_user(const match_state& play) : headless_user(play), match_(play) {}
    using headless_user::show;
    void open(report which) override {
      if (which == report::scorecard) last = match_;
    }
    match_state last;

   private:
    const match_state& match_;
  };
  const auto game = std::make_unique<game_state>();
  game->data.files = files();
  game->data.files.elevens_in_memory = true;
  game->data.files.updates = false;
  watching_user user(game->match);
  new_match_form form({game->match, game->chance, user, game->data});
  form.open();
  form.computer_captains_first = form.computer_captains_second = true;
  game->chance.use_seed(seed);
  form.accept();
  user.last.last_stand_closed = true;
  return user.last;
}

void ArchiveTest::change(const std::string& sql) const {
  SQLite::Database(archive_path(files()).string(), SQLite::OPEN_READWRITE).exec(sql);
}

}  // namespace velorin::testing
