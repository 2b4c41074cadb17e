// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/preferences.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

namespace velorin::testing {
namespace {

TEST(PreferencesTest, WhatIsChosenIsKept) {
  const Pace before = preferences::pace();
  preferences::set_pace(Pace::ball_by_ball);
  EXPECT_EQ(preferences::pace(), Pace::ball_by_ball);
  preferences::set_pace(before);
  EXPECT_EQ(preferences::pace(), before);
}

TEST(PreferencesTest, TheLastSkipIsKept) {
  EXPECT_EQ(preferences::last_skip(), QString());
  preferences::set_last_skip(QStringLiteral("over_20"));
  EXPECT_EQ(preferences::last_skip(), QStringLiteral("over_20"));
  preferences::set_last_skip({});
}

TEST(PreferencesTest, ATestProgramLeavesNothingBehind) {
  const QTemporaryDir temporary;
  QProcess program;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(QStringLiteral("TMPDIR"), temporary.path());
  environment.remove(QStringLiteral("XDG_RUNTIME_DIR"));
  program.setProcessEnvironment(environment);
  program.start(QCoreApplication::applicationFilePath(),
                {QStringLiteral("--gtest_filter=PreferencesTest.WhatIsChosenIsKept")});
  ASSERT_TRUE(program.waitForFinished());
  EXPECT_EQ(program.exitCode(), 0);
  EXPECT_TRUE(program.readAllStandardOutput().contains("[  PASSED  ] 1 test"));
  const QDir folder(temporary.path());
  EXPECT_EQ(folder.entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList());
}

}  // namespace
}  // namespace velorin::testing
