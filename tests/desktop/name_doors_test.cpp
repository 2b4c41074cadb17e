// SPDX-License-Identifier: GPL-3.0-or-later
// Names in labels and tables lead on: by pointer, by keys, by assistive technology.
#include "desktop/name_doors.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QTest>
#include <memory>
#include <tuple>
#include <vector>

#include "desktop/form.h"
#include "desktop/modality.h"
#include "desktop/name_places.h"
#include "desktop/table_view.h"

namespace velorin::testing {
namespace {

using Kind = NameLink::Kind;

QStringList found_in(const NameBook& book, const QString& text) {
  QStringList names;
  for (const FoundName& name : book.names_in(text)) names << text.mid(name.from, name.length);
  return names;
}

TEST(NameBooks, ANameIsFoundAsAWordOfItsOwnTheLongestFirst) {
  NameBook book;
  book.add({Kind::team, "Alba", {}});
  book.add({Kind::ground, "Alba Park, Tarn", {}});
  book.add({Kind::player, "A.Cole", "Alba"});
  EXPECT_EQ(found_in(book, "Alba beat Albany at Alba Park, Tarn; A.Cole 12, DA.Cole 3, A.Coles"),
            (QStringList{"Alba", "Alba Park, Tarn", "A.Cole"}));
  EXPECT_EQ(found_in(book, "alba"), QStringList());
}

TEST(NameBooks, AManOfTwoTeamsIsOneOfNone) {
  NameBook book;
  book.add({Kind::player, "A.Cole", "Alba"});
  EXPECT_EQ(book.names_in("A.Cole").at(0).link.team, "Alba");
  book.add({Kind::player, "A.Cole", "Brava"});
  EXPECT_EQ(book.names_in("A.Cole").at(0).link.team, "");
}

class NameDoorsTest : public ::testing::Test {
 protected:
  NameDoorsTest() {
    book_.add({Kind::team, "Alba", {}});
    book_.add({Kind::player, "A.Cole", "Alba"});
    book_.add({Kind::player, "B.Ash", "Brava"});
    open_names_by({.book = [this]() -> const NameBook& { return book_; },
                   .open = [this](const NameLink& name, Form&) { opened_ << name.name; }});
    window_ = std::make_unique<Form>("window", Form::Dismissal::closes, nullptr);
    line_ = new QLabel("A wicket: A.Cole is out, caught by B.Ash");
    window_->body()->addWidget(line_);
    view_ = new TableView("list");
    Table table;
    table.name = "Men";
    table.columns = {{.heading = "Player"}, {.heading = "Runs", .numbers = true}};
    table.rows = {{.cells = {{.text = "A.Cole"}, {.text = "12"}}, .id = 1},
                  {.cells = {{.text = "c A.Cole b B.Ash"}, {.text = "3"}}, .id = 2}};
    view_->set_table(table);
    window_->body()->addWidget(view_);
    window_->resize(700, 400);
    window_->show();
    window_->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window_.get()));
  }
  ~NameDoorsTest() override { open_names_by({}); }

  QPoint in_cell(int row, std::size_t name) const {
    return names_of(*view_, view_->model()->index(row, 0), book_).at(name).place.center();
  }
  QStringList opened() const {
    QTest::qWait(1);
    return opened_;
  }
  QMenu* menu() const { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }

  NameBook book_;
  QStringList opened_;
  std::unique_ptr<Form> window_;
  QLabel* line_;
  TableView* view_;
};

TEST_F(NameDoorsTest, APressOnANameOfALineFollowsIt) {
  const auto names = names_of(*line_, book_);
  ASSERT_EQ(names.size(), 2U);
  QTest::mouseClick(line_, Qt::LeftButton, {}, names[1].place.center());
  EXPECT_EQ(opened(), QStringList{"B.Ash"});
  QTest::mouseClick(line_, Qt::LeftButton, {}, QPoint(1, names[1].place.center().y()));
  EXPECT_EQ(opened(), QStringList{"B.Ash"});
}

TEST_F(NameDoorsTest, ALineOfSeveralLinesFindsItsNames) {
  line_->setWordWrap(true);
  line_->setFixedWidth(line_->fontMetrics().horizontalAdvance("A wicket: A.Cole is"));
  QTest::qWait(1);
  const auto names = names_of(*line_, book_);
  ASSERT_EQ(names.size(), 2U);
  EXPECT_GT(names[1].place.top(), names[0].place.bottom() - 2);
}

TEST_F(NameDoorsTest, ThePointerOverANameMarksIt) {
  const QRect place = names_of(*line_, book_)[0].place;
  QTest::mouseMove(line_, QPoint(0, 0));
  QTest::mouseMove(line_, place.center());
  QTest::qWait(1);
  const auto* mark = line_->findChild<QWidget*>("name_mark");
  ASSERT_NE(mark, nullptr);
  EXPECT_TRUE(mark->isVisible());
  EXPECT_EQ(mark->geometry().left(), place.left());
  EXPECT_EQ(line_->cursor().shape(), Qt::PointingHandCursor);
  QTest::mouseMove(line_, QPoint(place.right() + 6, place.center().y()));
  EXPECT_TRUE(mark->isHidden());
}

TEST_F(NameDoorsTest, APressOnANameInACellFollowsItInPlaceOfTheRow) {
  QList<int> rows;
  view_->on_open([&](int row) { rows << row; }, TableView::Opens::press);
  QTest::mouseClick(view_->viewport(), Qt::LeftButton, {}, in_cell(1, 1));
  EXPECT_EQ(opened(), QStringList{"B.Ash"});
  EXPECT_EQ(rows, QList<int>());
  QTest::mouseClick(view_->viewport(), Qt::LeftButton, {}, view_->visualRect(view_->model()->index(1, 1)).center());
  EXPECT_EQ(rows, QList<int>{2});
}

TEST_F(NameDoorsTest, WhereASecondPressOpensTheRowANameWaitsForIt) {
  const int usual = QApplication::doubleClickInterval();
  QApplication::setDoubleClickInterval(60);
  QList<int> rows;
  view_->on_open([&](int row) { rows << row; });
  QTest::mouseClick(view_->viewport(), Qt::LeftButton, {}, in_cell(0, 0));
  QTest::mouseDClick(view_->viewport(), Qt::LeftButton, {}, in_cell(0, 0));
  QTest::qWait(QApplication::doubleClickInterval() + 50);
  EXPECT_EQ(rows, QList<int>{1});
  EXPECT_EQ(opened(), QStringList());
  QTest::mouseClick(view_->viewport(), Qt::LeftButton, {}, in_cell(0, 0));
  QTRY_COMPARE(opened_, QStringList{"A.Cole"});
  QApplication::setDoubleClickInterval(usual);
}

TEST_F(NameDoorsTest, KeysFollowTheNamesOfTheCellAndOfTheForm) {
  view_->setFocus();
  view_->setCurrentIndex(view_->model()->index(0, 0));
  QTest::keyClick(view_, Qt::Key_Return, Qt::ControlModifier);
  EXPECT_EQ(opened(), QStringList{"A.Cole"});
  view_->setCurrentIndex(view_->model()->index(1, 0));
  QTest::keyClick(view_, Qt::Key_Return, Qt::ControlModifier);
  ASSERT_NE(menu(), nullptr);
  ASSERT_EQ(menu()->actions().size(), 2);
  menu()->close();
  QTest::keyClick(view_, Qt::Key_L, Qt::ControlModifier);
  ASSERT_NE(menu(), nullptr);
  QStringList offered;
  for (const QAction* action : menu()->actions()) offered << action->text();
  EXPECT_EQ(offered, (QStringList{"A.Cole\tAlba", "B.Ash\tBrava"}));
  QTest::keyClick(menu(), Qt::Key_Down);
  QTest::keyClick(menu(), Qt::Key_Down);
  QTest::keyClick(menu(), Qt::Key_Return);
  EXPECT_EQ(opened(), (QStringList{"A.Cole", "B.Ash"}));
}

TEST_F(NameDoorsTest, AssistantsHaveAnActionForEachName) {
  QAccessibleInterface* line = QAccessible::queryAccessibleInterface(line_);
  ASSERT_NE(line->actionInterface(), nullptr);
  EXPECT_EQ(line->text(QAccessible::Name), line_->text());
  EXPECT_TRUE(line->actionInterface()->actionNames().contains("B.Ash"));
  line->actionInterface()->doAction("B.Ash");
  EXPECT_EQ(opened(), QStringList{"B.Ash"});
  QAccessibleInterface* cell = QAccessible::queryAccessibleInterface(view_)->tableInterface()->cellAt(1, 0);
  EXPECT_EQ(cell->actionInterface()->actionNames(), (QStringList{"A.Cole", "B.Ash"}));
  cell->actionInterface()->doAction("A.Cole");
  EXPECT_EQ(opened(), (QStringList{"B.Ash", "A.Cole"}));
}

TEST_F(NameDoorsTest, ACoveredFormFollowsNothing) {
  keep_covered_windows_dead();
  const QPoint at = names_of(*line_, book_)[0].place.center();
  Form over("over", Form::Dismissal::closes, window_.get());
  over.setWindowModality(Qt::ApplicationModal);
  over.show();
  QTest::qWait(1);
  follow_name({Kind::player, "A.Cole", "Alba"}, *line_);
  QTest::mouseClick(line_, Qt::LeftButton, {}, at);
  EXPECT_EQ(opened(), QStringList());
  over.hide();
  QTest::qWait(1);
  QTest::mouseClick(line_, Qt::LeftButton, {}, at);
  EXPECT_EQ(opened(), QStringList{"A.Cole"});
}

}  // namespace
}  // namespace velorin::testing
