// SPDX-License-Identifier: GPL-3.0-or-later
// A newcomer is led through his first match by six hints, once.
#include "shell/guide.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

#include "desktop/form.h"
#include "desktop/frame.h"
#include "desktop/hint.h"
#include "model/match_state.h"
#include "shell/game_fixture.h"
#include "support/game_in_play.h"
#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

class GuidedMatch : public GameTest {
 protected:
  GuidedMatch() {
    preferences::set_guide_offered(false);
    preferences::set_quick_answers({});
    preferences::set_captains({true, false});
  }

  ClickingUser user;
};

/// The place of a widget in its window.
QRect place_of(const QWidget& widget) { return {widget.mapTo(widget.window(), QPoint()), widget.size()}; }

/// Which hint of the guide these words are, by number from 1, and about which control; 0 for none.
std::pair<int, const char*> hint_of(const QWidget& form, const QString& words) {
  for (std::size_t i = 0; i < guide_hints().size(); ++i) {
    const GuideHint& hint = guide_hints()[i];
    if (form.objectName() != QLatin1String(hint.form)) continue;
    for (const GuideHint::Words& one : hint.about) {
      if (words == QLatin1String(one.words)) return {static_cast<int>(i) + 1, one.control};
    }
  }
  return {0, nullptr};
}

TEST_F(GuidedMatch, SixHintsComeEachAtItsPlace) {
  std::vector<int> told;
  user.robot.at_sight([&](QWidget& window) {
    window.window()->resize(1280, 800);
    for (int round = 0; round < 4; ++round) QApplication::processEvents();
    while (auto* hint = window.window()->findChild<Hint*>()) {
      const QString words = hint->findChild<QLabel*>(QStringLiteral("hint_text"))->text();
      const auto [number, control_name] = hint_of(window, words);
      told.push_back(number);
      ASSERT_NE(control_name, nullptr) << words.toStdString();
      auto* about = control_of(window, control_name);
      ASSERT_NE(about, nullptr) << control_name;
      const auto* choice = about->findChild<QAbstractButton*>();
      EXPECT_TRUE(choice == nullptr || choice->isEnabled());
      EXPECT_TRUE(window.window()->rect().contains(place_of(*hint)));
      EXPECT_FALSE(place_of(*hint).intersects(place_of(*about))) << control_name;
      const QWidget& kept = window.objectName() == QStringLiteral("main") ? *control<QWidget>(window, "head") : window;
      const bool page = &kept == &window && static_cast<Form&>(window).place() == Form::Place::page;
      EXPECT_TRUE(page || !place_of(*hint).intersects(place_of(kept))) << control_name;
      check_controls(window);
      if (control_name == std::string_view("next_over")) {
        EXPECT_GE(match.innings_balls, 6) << "the first over plays by itself";
        EXPECT_FALSE(place_of(*hint).intersects(place_of(*control<QWidget>(window, "pace"))));
      }
      if (control_name == std::string_view("man")) {
        EXPECT_NEAR(place_of(*hint).center().y(), place_of(*about).center().y(), place_of(*hint).height());
      }
      press(*hint, "got_it");
      QCoreApplication::sendPostedEvents(hint, QEvent::DeferredDelete);
    }
  });
  user.robot.next("guide_question", [](QWidget& window) {
    EXPECT_TRUE(control<QPushButton>(window, "yes")->isDefault()) << "it invites";
    press(window, "yes");
  });
  user.robot.always("quick", pressing("accept"));
  play([&](MenuWindow& menu) { menu.offer_guide(); });
  std::sort(told.begin(), told.end());
  EXPECT_EQ(told, (std::vector<int>{1, 2, 3, 4, 5, 6}));
  EXPECT_FALSE(match.result_margin.empty());
}

TEST_F(GuidedMatch, ItIsOfferedOnceAndMayBeDeclined) {
  user.robot.next("guide_question", pressing("no"));
  play([&](MenuWindow& menu) {
    menu.offer_guide();
    menu.offer_guide();
  });
  EXPECT_EQ(user.robot.met(), std::vector<std::string>{"guide_question"});
}

TEST_F(GuidedMatch, HintsThatAreNotReadStopNothing) {
  user.robot.next("guide_question", pressing("yes"));
  user.robot.always("quick", pressing("accept"));
  play([&](MenuWindow& menu) { menu.offer_guide(); });
  EXPECT_FALSE(match.result_margin.empty());
}

}  // namespace
}  // namespace velorin::testing
