// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/of_application.h"

#include <gtest/gtest.h>

#include <QPointer>

namespace velorin {
namespace {

struct Watched {
  int value = 3;
  QObject inside;
};

struct Other {
  int value = 4;
};

QObject* newest_of_application() { return qApp->children().constLast(); }

TEST(OfApplication, IsMadeOnFirstUseFoundByItsTypeAndGoneWithItsKeeper) {
  EXPECT_EQ(find_of_application<Watched>(), nullptr);
  Watched& first = of_application<Watched>();
  QObject* const keeper = newest_of_application();
  EXPECT_EQ(first.value, 3);
  first.value = 5;
  EXPECT_EQ(of_application<Other>().value, 4);
  QObject* const other_keeper = newest_of_application();
  EXPECT_NE(other_keeper, keeper);
  EXPECT_EQ(&of_application<Watched>(), &first);
  EXPECT_EQ(find_of_application<Watched>(), &first);
  EXPECT_EQ(first.value, 5);

  const QPointer<QObject> inside(&first.inside);
  delete keeper;
  EXPECT_TRUE(inside.isNull());
  EXPECT_EQ(find_of_application<Watched>(), nullptr);
  EXPECT_NE(find_of_application<Other>(), nullptr);
  delete other_keeper;
}

}  // namespace
}  // namespace velorin
