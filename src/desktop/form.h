// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QKeySequence>
#include <QMargins>
#include <QPointer>
#include <functional>
#include <utility>
#include <vector>

class QAbstractButton;
class QBoxLayout;
class QEventLoop;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QVBoxLayout;

namespace velorin {

class BodyArea;
class Frame;
struct FlowStep;

/// What a control does, as its user reads it.
struct Act {
  QString caption;                    ///< as shown
  QChar mnemonic = QChar(u'\0');      ///< a letter of the caption; Alt and this letter press the control
  QKeySequence key = QKeySequence();  ///< a further key
  QString hint = QString();           ///< what it does, for the tooltip; the caption if empty
  QString spoken = QString();         ///< name for screen readers; the caption without outer blanks if empty
};

/// Gives a button its caption, mnemonic, key, tooltip with its keys, and its name for screen readers.
void name_act(QAbstractButton& button, const Act& act);

/// The window that modal windows open over: the one on top now, nullptr before there is any.
QWidget* front_window();

/// The base of all windows: a heading, a body, a row of buttons. A form that opens over one in the main window stands
/// in it, too: as a page, beside the page below it, or as a sheet. Elsewhere it is a window of its own, which remembers
/// its place and size under its name, and opens on the screen, frame and all. A body too large for its room scrolls;
/// the buttons stay. While another form stands over it, its controls do nothing, whoever presses them.
class Form : public QDialog {
  Q_OBJECT

 public:
  /// What Escape and the close box do: close the form as it stands, or nothing, since the game needs an answer.
  enum class Dismissal { closes, refused };
  /// Where a form stands in the main window: it fills it; it stands beside the page below where there is room; it lies
  /// over the page below.
  enum class Place { page, beside, sheet };

  /// `name`: objectName of the window, and the key under which its geometry is remembered.
  Form(const QString& name, Dismissal dismissal, QWidget* parent = front_window());
  ~Form() override;

  /// A page unless told. `about`: the name of the control below near which a sheet lies; in the middle without it.
  void stand_as(Place place, const QString& about = {});
  Place place() const { return place_; }
  const QString& about() const { return about_; }

  /// The main window in which it stands or is to stand; nullptr for a window of its own.
  Frame* main_window() const;
  /// The form tells the score of the match: the main window need not while the form is on top.
  void show_score_itself() { shows_score_ = true; }
  bool shows_score() const { return shows_score_; }

  /// The window's title, and the line in large type at the head of the form; an empty heading shows none.
  void set_title(const QString& title, const QString& heading);
  /// The heading stands for the control of this name.
  void name_heading(const QString& name);
  /// Puts the picture of the opening form beside the heading, for decoration.
  void show_picture();
  /// Shows under the heading which step of a flow the form is, from 0, and what was chosen in the others.
  void show_steps(const std::vector<FlowStep>& steps, int current);
  /// A quieter line under the heading; an empty text shows none.
  void set_subheading(const QString& text);

  /// Where the form's own controls go, from top to bottom, with an 8-pixel grid.
  QVBoxLayout* body() const { return body_; }
  /// In a wider window the body stands in the middle, this many pixels wide.
  void limit_body(int width) { middle_->setMaximumWidth(width); }
  /// The row at the foot. Its left end holds what is added by add_aside, its right end the buttons.
  QPushButton* add_button(const QString& name, const Act& act, std::function<void()> pressed);
  /// Likewise; Return presses it. A form has one.
  QPushButton* add_default_button(const QString& name, const Act& act, std::function<void()> pressed);
  /// A button for a place of its own in the body.
  QPushButton* new_button(const QString& name, const Act& act, std::function<void()> pressed);
  /// Gives the keyboard to that button, if there is one.
  void focus_default();
  void add_aside(QWidget* widget);
  /// Puts a widget into the row of buttons, before those added later.
  void add_beside_buttons(QWidget* widget);

  /// The size at which the form opens where none is remembered; without it, its contents say. The screen limits it.
  void prefer_size(QSize size) { preferred_ = size; }

  /// While busy the form takes no input and the pointer says so, unless another window waits over it.
  void set_busy(bool busy);

  /// What the main window calls the way back from here: "Back" unless told.
  void name_way_back(const QString& name) { way_back_ = name; }
  const QString& way_back() const { return way_back_; }

  /// It does this instead of closing the form.
  void on_way_back(std::function<void()> act) { back_ = std::move(act); }
  /// Goes that way, if there is one.
  void go_back();
  bool has_way_back() const { return back_ != nullptr || can_be_left(); }

  /// Escape or the close box do this instead of closing; the form must close itself.
  void on_dismiss(std::function<void()> act) { dismissed_ = std::move(act); }

  /// Escape or the close box can do something.
  bool can_be_left() const { return dismissed_ != nullptr || dismissal_ == Dismissal::closes; }

  void setVisible(bool visible) override;
  int exec() override;
  void reject() override;

  /// Where "Forward" leads in the main window, after one has gone back; nothing for nowhere.
  void offer_forward(std::function<void()> act) { forward_ = std::move(act); }
  const std::function<void()>& forward() const { return forward_; }

  /// For the main window. The size at which the form opens, and that of a sheet with so much room around it.
  QSize wanted_size() const;
  QSize size_within(QSize most);
  /// The least width that it takes in a room, of a page beside another.
  int least_width_in(QSize room);
  /// The form leaves the main window for a window of its own, with a button that calls `back`; returns to its slot;
  /// has closed, and waits there, hidden, to be shown again or to go.
  void stand_alone(std::function<void()> back);
  void come_back(QWidget* slot);
  void rest(QWidget* hidden);
  /// Draws it as many times as large as usual as the main window has room for, or its own if it is a window.
  void fit_enlargement();
  /// The width that it takes beside a report, of at most so many pixels.
  virtual int width_beside(int most) const;
  /// A report stands beside it, or none any more.
  virtual void note_beside(bool /*beside*/) {}
  /// It has little height, or enough again: what it shows may stand closer.
  virtual void note_compact(bool /*compact*/) {}
  /// Another form stands over it, or none any more.
  void note_covered(bool covered) { show_busy(busy_ && !covered); }

 protected:
  /// How many times as large as usual it is to be drawn.
  double wanted_enlargement() const;
  /// A form that draws itself larger by other ways than all others do.
  virtual bool enlarges_itself() const { return false; }
  bool event(QEvent* event) override;
  /// The page keys scroll a body that is too large. Return presses the button that has the keyboard, elsewhere the
  /// default button. While that is disabled, Return takes the choice that has the keyboard.
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  void add_return_bar();
  /// Shows the button that leads back in the head of the form, in a bar of its own where it has none; or hides it.
  void offer_return(bool offered);
  void tell_help();
  void show_busy(bool on);
  /// What the desktop puts around the window; the usual before that is known.
  QMargins frame() const;
  /// The least width of a foot in one row.
  int one_row_foot() const;
  /// A foot too long for a window so wide, or for what the screen has room for, has its buttons in a second row.
  void lay_out_foot(int wide);
  /// Tells the body how much room the screen has for it.
  void measure_room();
  void stay_on_screen();
  bool is_sheet() const;
  int height_at(int wide) const;
  /// As high as the contents need at this width.
  void grow();
  /// Likewise on the screen, as far as it has room.
  void make_room();
  /// The same for a form in the main window, whose room is given; it is to be so wide.
  void fit_into(QSize room, int wide);
  void show_compact(QSize room);

  QPointer<Frame> frame_;  // the main window it belongs to, if any
  bool in_frame_ = false;  // it has a layer there, torn off or not
  bool moving_ = false;    // between the main window and a window of its own
  QEventLoop* loop_ = nullptr;
  Place place_ = Place::page;
  QString about_;
  bool shows_score_ = false;
  QString way_back_ = QStringLiteral("Back");
  std::function<void()> back_;
  std::function<void()> forward_;
  QWidget* return_bar_ = nullptr;
  QPushButton* put_back_button_ = nullptr;  // in the bar, or in a head that is shown
  std::function<void()> put_back_;

  Dismissal dismissal_;
  std::function<void()> dismissed_;
  QWidget* head_;
  QBoxLayout* head_rows_;
  QLabel* heading_;
  QLabel* subheading_;
  QWidget* middle_;
  QVBoxLayout* body_;
  QMargins around_body_;  // where it is not compact
  bool compact_ = false;
  double drawn_larger_ = 1;
  BodyArea* area_;
  QWidget* foot_;
  QHBoxLayout* asides_;
  QHBoxLayout* buttons_;
  QPushButton* default_ = nullptr;
  QSize preferred_;
  QSize most_;  // that a sheet has room for
  bool placed_ = false;
  bool placing_ = false;          // is being shown
  int widest_ = QWIDGETSIZE_MAX;  // that the screen has room for
  QMargins expected_;             // what is around the window, as it was when it was placed
  bool busy_ = false;
  bool busy_shown_ = false;  // by the pointer
};

}  // namespace velorin
