// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QKeySequence>
#include <functional>

class QAbstractButton;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QVBoxLayout;

namespace velorin {

class BodyArea;

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

/// The base of all windows: a heading, a body, a row of buttons; remembers its place and size under its name, and opens
/// on the screen, frame and all. A body too large for the screen scrolls; the buttons stay. While another window stands
/// over it, its controls do nothing, whoever presses them.
class Form : public QDialog {
  Q_OBJECT

 public:
  /// What Escape and the close box do: close the form as it stands, or nothing, since the game needs an answer.
  enum class Dismissal { closes, refused };

  /// `name`: objectName of the window, and the key under which its geometry is remembered.
  Form(const QString& name, Dismissal dismissal, QWidget* parent = front_window());
  ~Form() override;

  /// The window's title, and the line in large type at the head of the form; an empty heading shows none.
  void set_title(const QString& title, const QString& heading);
  /// The heading stands for the control of this name.
  void name_heading(const QString& name);
  /// Puts the picture of the opening form beside the heading, for decoration.
  void show_picture();
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
  /// Gives the keyboard to that button, if there is one.
  void focus_default();
  void add_aside(QWidget* widget);
  /// Puts a widget into the row of buttons, before those added later.
  void add_beside_buttons(QWidget* widget);

  /// The size at which the form opens where none is remembered; without it, its contents say. The screen limits it.
  void prefer_size(QSize size) { preferred_ = size; }

  /// While busy the form takes no input and the pointer says so, unless another window waits over it.
  void set_busy(bool busy);

  /// Escape or the close box do this instead of closing; the form must close itself.
  void on_dismiss(std::function<void()> act) { dismissed_ = std::move(act); }

  void reject() override;

 protected:
  bool event(QEvent* event) override;
  /// The page keys scroll a body that is too large. Return presses the button that has the keyboard, elsewhere the
  /// default button. While that is disabled, Return takes the choice that has the keyboard.
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  QPushButton* new_button(const QString& name, const Act& act, std::function<void()> pressed);

  void show_busy(bool on);
  /// What the desktop puts around the window; the usual before that is known.
  QMargins frame() const;
  /// The least width of a foot in one row.
  int one_row_foot() const;
  /// A foot too long for the window, as it is or as the screen has room for it, has its buttons in a second row.
  void lay_out_foot();
  /// Tells the body how much room the screen has for it.
  void measure_room();
  void stay_on_screen();
  /// As high as the contents need at this width.
  void grow();
  /// Likewise on the screen, as far as it has room.
  void make_room();

  Dismissal dismissal_;
  std::function<void()> dismissed_;
  QWidget* head_;
  QLabel* heading_;
  QLabel* subheading_;
  QWidget* middle_;
  QVBoxLayout* body_;
  BodyArea* area_;
  QWidget* foot_;
  QHBoxLayout* asides_;
  QHBoxLayout* buttons_;
  QPushButton* default_ = nullptr;
  QSize preferred_;
  bool placed_ = false;
  bool placing_ = false;          // is being shown
  int widest_ = QWIDGETSIZE_MAX;  // that the screen has room for
  QMargins expected_;             // what is around the window, as it was when it was placed
  bool busy_ = false;
  bool busy_shown_ = false;  // by the pointer
};

}  // namespace velorin
