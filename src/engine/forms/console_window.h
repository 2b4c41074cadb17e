// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <functional>
#include <optional>

#include "desktop/form.h"
#include "desktop/preferences.h"
#include "engine/practice_history.h"
#include "engine/skip.h"
#include "model/random.h"

class QEventLoop;
class QFrame;
class QGridLayout;
class QHBoxLayout;
class QLabel;
class QScrollBar;
class QToolButton;

namespace velorin {

struct match_state;
struct open_database;

class AttackList;
class BatsmanPanel;
class BowlerPanel;
class CommentaryList;
class CourseChart;
class ForecastBar;
class LevelsAdviser;
class OverChips;
class OverStrip;
class RatesPanel;
class Scoreboard;
class TableView;
enum class WayOut;
struct console_form;

/// The match console. While an over is bowled it follows each ball at the chosen pace and answers nothing but the
/// choice of pace and Escape, which finishes the over at once. A skip goes a pace faster, and Escape stops it.
class ConsoleWindow : public Form {
  Q_OBJECT

 public:
  /// `form` belongs to an open console and outlives the window.
  explicit ConsoleWindow(const match_state& match, const open_database& database, console_form& form,
                         QWidget* parent = front_window());
  ~ConsoleWindow() override;

  /// Shows the console in its main window while the captains are asked for the opening: it is seen, and dead. In a
  /// window of its own it is not shown yet.
  void show_before_use();
  /// Hands it to its user.
  int exec() override;
  /// Shows the match as it stands.
  void refresh();
  /// Bowls the next over, as Next Over does.
  void play_over();
  /// What opens the line of the match; until then the forecast does not offer it.
  void on_match_line(std::function<void()> open);
  /// What opens the match centre; until then it is not offered.
  void on_match_centre(std::function<void()> open);
  /// A message has passed by without a stop: a row in the commentary.
  void message_passed(const QString& text);
  /// Where a moment hides nothing that one has just asked for: the charts.
  QWidget* place_of_moments() const;
  /// The match is recorded: who quits is asked whether to keep it, and `discard` runs where not.
  void let_keep(std::function<void()> discard);
  /// A ball has been bowled: shows it, and waits as long as the pace says.
  void ball_bowled();
  /// An over is being bowled.
  bool playing() const { return playing_; }
  /// The first over has been bowled, and nothing is on its way.
  bool rests() const;

  /// However large it is drawn, it can become a small one again.
  QSize minimumSizeHint() const override;
  /// Beside a report it shows as much as has room, from a single column on.
  int width_beside(int most) const override;
  void note_beside(bool beside) override;

 signals:
  /// What was bowled has been, and all is shown.
  void over_ended();

 protected:
  /// A console before which somebody looks on, with a foot of its own: nothing is bowled, and nobody is asked.
  ConsoleWindow(const QString& name, const match_state& match, const open_database& database, console_form& form,
                Dismissal dismissal, QWidget* parent);
  /// Once it has its foot.
  void arrange();
  /// The reports' buttons and the choice of pace, for the foot.
  void add_reports();
  QWidget* new_pace_choice();
  /// Once the foot is there: all of it gets its place.
  void finish_layout();
  /// The match is another one, or stands elsewhere: the commentary is to be read anew.
  void forget_commentary();
  /// Somebody looks on: keys that go through the match are not those of the forecast.
  bool is_watched() const { return objectName() != QStringLiteral("main"); }
  /// The line under the cards, for more of it at its right end.
  QHBoxLayout* last_line() const { return last_line_; }

  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QFrame* new_batting_card();
  QFrame* new_bowling_card();
  QFrame* new_over_card();
  QFrame* new_charts_card();
  QFrame* new_sides_card();
  QFrame* new_commentary_card();
  void add_foot();
  void lay_out();
  /// How the cards stand, by the room that there is.
  enum class Arrangement {
    strip,   ///< beside a report: who is in and who bowls, and the over
    half,    ///< beside a report: likewise, and the charts
    low,     ///< three columns of little height; commentary, attack and batting side take turns
    narrow,  ///< three columns; attack and batting side take turns
    wide,    ///< four columns
  };
  /// How much larger than usual all is drawn: what is made for 1920 x 1080 fills a larger window likewise.
  bool enlarges_itself() const override { return true; }
  Arrangement arrangement() const;
  void place_cards(Arrangement wanted);
  void set_density(Arrangement wanted);
  void arrange_charts(bool stacked, bool only_one);
  void order_tabs();
  void show_sides();

  void add_forecast();
  QWidget* new_forecast_choices();
  void show_forecast(bool on);
  /// Advises on the aggressions, where the adviser is on, once nothing is in play.
  void refresh_adviser();
  QWidget* new_skip_choice();
  QPushButton* new_take_back_choice();
  void go_on_with_over();
  void skip_to(skip_target target);
  void take_back(taken_back how_far, luck wanted);
  /// Runs what bowls balls, and shows where it has led.
  void play(const std::function<void()>& work);
  /// Runs a button's work unless an over is being bowled, and shows what it changed.
  void act(void (console_form::*handler)());
  void act_on_slot(void (console_form::*handler)(int), int slot);
  /// Makes a change of the user's: what he has left to the computer and now changes by hand is his again.
  void change_by_hand(const std::function<void()>& change);
  /// Likewise for what is set in place.
  void set_in_place(const std::function<void()>& change);
  void browse(int over);
  void refresh_over();
  void refresh_sides();
  void refresh_choices();
  void choose_pace(Pace pace);
  void wait(int milliseconds);
  void ask_to_quit();
  bool belongs_to_pace(const QObject* watched) const;
  /// Asks whether to keep the game, and lets it go where not. False where the user stays.
  bool may_leave(WayOut way);

  console_form& form_;
  bool in_use_ = true;  // the opening is over
  bool playing_ = false;
  bool skipping_ = false;
  bool finish_over_ = false;
  QEventLoop* waiting_ = nullptr;

  Scoreboard* scoreboard_ = nullptr;
  ForecastBar* forecast_ = nullptr;
  LevelsAdviser* adviser_ = nullptr;
  QPushButton* forecast_choice_ = nullptr;
  QPushButton* next_ball_ = nullptr;
  QPushButton* match_line_ = nullptr;
  QPushButton* match_centre_ = nullptr;
  QPushButton* captaincy_ = nullptr;
  std::function<void()> open_match_centre_;  // likewise
  std::function<void()> open_match_line_;    // none where nobody opens it
  std::array<BatsmanPanel*, 2> batsmen_{};
  std::array<BowlerPanel*, 2> bowlers_{};
  QPushButton* change_bowler_ = nullptr;
  QLabel* stand_ = nullptr;
  QLabel* legend_ = nullptr;
  QLabel* attack_title_ = nullptr;
  QLabel* batting_title_ = nullptr;
  OverChips* chips_ = nullptr;
  OverStrip* strip_ = nullptr;
  QLabel* over_title_ = nullptr;
  QLabel* over_bowler_ = nullptr;
  QScrollBar* browser_ = nullptr;
  QToolButton* over_before_ = nullptr;
  QToolButton* over_after_ = nullptr;
  RatesPanel* rates_ = nullptr;
  std::array<CourseChart*, 3> charts_{};
  QGridLayout* charts_grid_ = nullptr;
  AttackList* attack_ = nullptr;
  TableView* batting_table_ = nullptr;
  QWidget* sides_choice_ = nullptr;
  std::function<void()> discard_;  // none where the match is not recorded
  CommentaryList* commentary_ = nullptr;
  QLabel* last_wicket_ = nullptr;
  QPushButton* take_back_ = nullptr;
  taken_back taken_ = taken_back::ball;  // as it was last done
  luck luck_ = luck::fresh;
  QHBoxLayout* columns_ = nullptr;
  QHBoxLayout* last_line_ = nullptr;
  QWidget* forecast_choices_ = nullptr;
  QFrame* batting_card_ = nullptr;
  QFrame* bowling_card_ = nullptr;
  QFrame* over_card_ = nullptr;
  QFrame* charts_card_ = nullptr;
  QFrame* commentary_card_ = nullptr;
  QPushButton* choose_commentary_ = nullptr;
  QFrame* sides_card_ = nullptr;
  std::optional<Arrangement> arranged_;
  double drawn_ = 1;  // the enlargement
  bool beside_ = false;
  QWidget* pace_ = nullptr;
  QPushButton* next_over_ = nullptr;  // none where one looks on
  const match_state& match_;
  const open_database& data_;
};

}  // namespace velorin
