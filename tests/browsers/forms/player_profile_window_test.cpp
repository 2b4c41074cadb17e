// SPDX-License-Identifier: GPL-3.0-or-later
#include "browsers/forms/player_profile_window.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QTest>

#include "browsers/forms/browser_fixture.h"
#include "browsers/player_profile.h"
#include "database/configuration.h"
#include "desktop/meter_bar.h"
#include "desktop/photo_view.h"
#include "desktop/shown_text.h"
#include "support/game_in_play.h"
#include "windows/robot.h"
#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

class PlayerProfileWindowTest : public BrowserTest {
 protected:
  PlayerProfileWindowTest() { data.settings.photo_path.clear(); }
  void TearDown() override { data.settings = configuration(); }

  /// A choice as the user makes it.
  static void choose(const QWidget& window, const char* name, int index) {
    auto* list = control<QComboBox>(window, name);
    list->setCurrentIndex(index);
    emit list->activated(index);
  }

  /// Every figure of the form stands in the window beside its caption.
  static void check_block(const QWidget& window, const QString& prefix, const std::vector<shown_field>& fields) {
    ASSERT_FALSE(fields.empty());
    for (std::size_t i = 0; i < fields.size(); ++i) {
      const std::string name = QStringLiteral("%1_%2").arg(prefix).arg(i + 1).toStdString();
      const auto* value = control<QLabel>(window, name.c_str());
      ASSERT_NE(value, nullptr);
      EXPECT_EQ(value->text(), shown(fields[i].text));
      bool captioned = false;
      for (const QLabel* label : window.findChildren<QLabel*>()) {
        captioned =
            captioned || (label->text() == shown(fields[i].caption) && label->parentWidget() == value->parentWidget());
      }
      EXPECT_TRUE(captioned) << fields[i].caption;
    }
  }
  void check_figures(const QWidget& window) const {
    check_block(window, "person", form.person);
    check_block(window, "batting", form.batting);
    check_block(window, "bowling", form.bowling);
    check_block(window, "fielding", form.fielding);
  }

  player_profile_form form{data};
};

TEST_F(PlayerProfileWindowTest, ShowsNothingOfAnEmptyDatabase) {
  form.open();
  PlayerProfileWindow window(form);
  window.show();
  take_picture(window, "sqdet_empty");
  check_window_at_sizes(window);
  EXPECT_EQ(window.windowTitle(), "Player Profiles");
  EXPECT_EQ(control<QComboBox>(window, "teams")->count(), 0);
  EXPECT_EQ(control<QComboBox>(window, "players")->count(), 0);
  EXPECT_EQ(control<QLabel>(window, "nobody")->text(), "No records yet");
  EXPECT_TRUE(control<QLabel>(window, "nobody")->isVisible());
  EXPECT_FALSE(control<PhotoView>(window, "photo")->isVisible());
}

TEST_F(PlayerProfileWindowTest, ShowsTheChosenPlayer) {
  play_matches(20);
  form.open();
  PlayerProfileWindow window(form);
  window.show();
  EXPECT_EQ(control<QComboBox>(window, "teams")->currentIndex(), -1);
  EXPECT_TRUE(control<QLabel>(window, "nobody")->isVisible());
  check_window_at_sizes(window);
  choose(window, "teams", 1);
  EXPECT_EQ(form.chosen_team, 1);
  ASSERT_EQ(control<QComboBox>(window, "players")->count(), static_cast<int>(form.players.size()));
  EXPECT_EQ(control<QComboBox>(window, "players")->currentIndex(), -1);
  EXPECT_TRUE(control<QLabel>(window, "nobody")->isVisible());
  choose(window, "players", 8);
  EXPECT_FALSE(control<QLabel>(window, "nobody")->isVisible());
  take_picture(window, "sqdet_season");
  check_window_at_sizes(window);
  check_figures(window);
  const QString bowler = control<QLabel>(window, "person_1")->text();
  EXPECT_EQ(bowler, shown(form.players[8]));
  choose(window, "teams", 2);
  EXPECT_EQ(control<QComboBox>(window, "players")->currentIndex(), -1);
  EXPECT_EQ(control<QLabel>(window, "person_1")->text(), bowler) << "stays until another is chosen";
  choose(window, "players", 0);
  check_figures(window);
  EXPECT_NE(control<QLabel>(window, "person_1")->text(), bowler);
  press(window, "accept");
  EXPECT_TRUE(form.closed);
  EXPECT_FALSE(window.isVisible());
}

TEST_F(PlayerProfileWindowTest, IsCopiedAsATable) {
  career_rec man = batsman("A.One", 2, 0, 50, 40);
  man.high_against = "Bora";
  add("Alba", man);
  write();
  form.open();
  PlayerProfileWindow window(form);
  window.show();
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  QApplication::clipboard()->setText("as before");
  QTest::keyClick(&window, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), "as before") << "nobody is chosen";
  choose(window, "teams", 0);
  choose(window, "players", 0);
  QTest::keyClick(&window, Qt::Key_C, Qt::ControlModifier);
  const QStringList lines = QApplication::clipboard()->text().split(QLatin1Char('\n'));
  EXPECT_EQ(lines.size(), static_cast<qsizetype>(2 + form.person.size() + form.batting.size() + form.bowling.size() +
                                                 form.fielding.size()));
  EXPECT_EQ(lines.value(0), "Group\tFigure\tValue");
  EXPECT_EQ(lines.value(1), "\tName\tA.One");
  EXPECT_TRUE(lines.contains("Batting\tAverage\t25"));
  EXPECT_TRUE(lines.contains("Bowling\tAverage\t -  "));
}

TEST_F(PlayerProfileWindowTest, ChoosesByTheKeyboard) {
  play_matches(1);
  form.open();
  PlayerProfileWindow window(form);
  window.show();
  QTest::keyClick(control<QComboBox>(window, "teams"), Qt::Key_Down);
  QTest::keyClick(control<QComboBox>(window, "players"), Qt::Key_Down);
  QTest::keyClick(control<QComboBox>(window, "players"), Qt::Key_Down);
  EXPECT_EQ(form.chosen_team, 0);
  EXPECT_EQ(form.chosen_player, 1);
  check_figures(window);
}

TEST_F(PlayerProfileWindowTest, IsLockedOnOnePlayer) {
  play_matches(1);
  player_profile_form list(data);
  list.open();
  list.choose_team(0);
  form.open_locked(list.teams[0], list.players[3]);
  PlayerProfileWindow window(form);
  window.show();
  take_picture(window, "sqdet_locked");
  check_window_at_sizes(window);
  check_figures(window);
  EXPECT_FALSE(control<QComboBox>(window, "teams")->isEnabled());
  EXPECT_FALSE(control<QComboBox>(window, "players")->isEnabled());
  EXPECT_EQ(control<QComboBox>(window, "teams")->currentText(), shown(list.teams[0]));
  EXPECT_EQ(control<QComboBox>(window, "players")->currentText(), shown(list.players[3]));
  window.reject();
  EXPECT_TRUE(form.closed);
  EXPECT_FALSE(window.isVisible());
}

TEST_F(PlayerProfileWindowTest, ShowsThePhotoOrTheWordsInItsPlace) {
  career_rec man = batsman("A.B.Longsurname-Wetherby", 110, 24, 10600, 11111);
  man.high_score = 183;
  man.high_not_out = -1;
  man.high_against = "West Carrington Islands";
  man.best_against = "West Carrington Islands";
  man.balls_bowled = 100;
  add("Alba", man);
  add("Alba", batsman("C.Nobody", 1, 1, 0, 0));
  write();
  QImage picture(60, 80, QImage::Format_RGB32);
  picture.fill(Qt::red);
  data.settings.photo_path = database.folder().string();
  ASSERT_TRUE(picture.save(QString::fromStdString((database.folder() / "Longsurname-Wetherby ab.png").string())));
  form.open();
  PlayerProfileWindow window(form);
  window.show();
  choose(window, "teams", 0);
  choose(window, "players", 0);
  take_picture(window, "sqdet_photo");
  check_window_at_sizes(window);
  check_figures(window);
  EXPECT_TRUE(control<PhotoView>(window, "photo")->has_photo());
  EXPECT_EQ(control<PhotoView>(window, "photo")->accessibleName(), "Photo of A.B.Longsurname-Wetherby");
  choose(window, "players", 1);
  EXPECT_TRUE(form.no_photo_visible);
  EXPECT_FALSE(control<PhotoView>(window, "photo")->has_photo());
  EXPECT_EQ(control<PhotoView>(window, "photo")->accessibleName(), "No Pic Available");
}

TEST_F(PlayerProfileWindowTest, ShowsHowAManWithoutACareerCompares) {
  play_matches(20);
  form.open();
  form.offer_squads();
  form.choose_team(1);
  const int newcomer = static_cast<int>(form.players.size()) - 1;
  PlayerProfileWindow window(form);
  window.show();
  choose(window, "players", newcomer);
  ASSERT_TRUE(form.standing.has_value()) << "two men of each squad never play";
  take_picture(window, "sqdet_newcomer");
  check_window_at_sizes(window);
  EXPECT_TRUE(control<QLabel>(window, "no_career")->isVisible());
  EXPECT_EQ(control<QLabel>(window, "newcomer_1")->text(), shown(form.players[static_cast<std::size_t>(newcomer)]));
  EXPECT_EQ(control<QLabel>(window, "newcomer_3")->text(), shown(form.standing->role));
  // In his team's cap, as large as the others.
  auto* portrait = control<PhotoView>(window, "newcomer_photo");
  PhotoView capped(QStringLiteral("capped"), control<PhotoView>(window, "photo")->sizeHint());
  capped.show_photo(shown(form.players[static_cast<std::size_t>(newcomer)]), std::nullopt,
                    control<QComboBox>(window, "teams")->currentText());
  EXPECT_EQ(portrait->size(), capped.size());
  const QRect within(16, 16, 128, 168);  // without the rounded corners
  const auto drawn = [&](PhotoView& view) { return view.grab(within).toImage().convertToFormat(QImage::Format_RGB32); };
  EXPECT_EQ(drawn(*portrait), drawn(capped));
  EXPECT_EQ(form.person.front().text, form.players[static_cast<std::size_t>(newcomer)]);
  for (int i = 1; i <= 3; ++i) {
    const rated_skill& skill = form.standing->skills[static_cast<std::size_t>(i - 1)];
    EXPECT_EQ(control<QLabel>(window, ("skill_place_" + std::to_string(i)).c_str())->text(), shown(skill.place_text));
    EXPECT_EQ(control<MeterBar>(window, ("skill_bar_" + std::to_string(i)).c_str())->value(), skill.share());
    EXPECT_EQ(control<QLabel>(window, ("skill_" + std::to_string(i)).c_str())->text(),
              shown(skill.caption) + ": " + shown(skill.text));
    EXPECT_EQ(control<QLabel>(window, ("skill_meaning_" + std::to_string(i)).c_str())->text(), shown(skill.meaning));
  }
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  QTest::keyClick(&window, Qt::Key_C, Qt::ControlModifier);
  EXPECT_TRUE(QApplication::clipboard()->text().contains(shown(form.standing->skills[0].place_text)));
  choose(window, "players", 0);
  EXPECT_FALSE(control<QLabel>(window, "no_career")->isVisible());
  check_figures(window);
}

}  // namespace
}  // namespace velorin::testing
