// SPDX-License-Identifier: GPL-3.0-or-later
// A newcomer is led through his first match by six hints, once.
#include "shell/guide.h"

#include <QLabel>

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

TEST_F(GuidedMatch, SixHintsComeEachAtItsPlace) {
  QStringList told;
  user.robot.at_sight([&](QWidget& window) {
    while (auto* hint = window.findChild<Hint*>()) {
      const QString words = hint->findChild<QLabel*>(QStringLiteral("hint_text"))->text();
      told << window.objectName() + u'|' + words;
      EXPECT_TRUE(window.rect().contains(hint->geometry()));
      check_controls(window);
      press(*hint, "got_it");
      QCoreApplication::sendPostedEvents(hint, QEvent::DeferredDelete);
    }
  });
  user.robot.next("guide_question", pressing("yes"));
  user.robot.always("quick", pressing("accept"));
  play([&](MenuWindow& menu) { menu.offer_guide(); });
  QStringList wanted;
  for (const GuideHint& hint : guide_hints()) {
    wanted << QString::fromLatin1(hint.form) + u'|' + QString::fromLatin1(hint.words);
  }
  EXPECT_EQ(wanted.size(), 6);
  told.sort();
  wanted.sort();
  EXPECT_EQ(told.join(u'\n').toStdString(), wanted.join(u'\n').toStdString());
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
