// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <vector>

class QFrame;
class QLabel;
class QPushButton;
class QTimer;

namespace velorin {

class Form;

/// The main window. Forms stand in it as layers, each over the one that opened it: pages fill it, reports stand beside
/// the page they belong to where there is room, sheets lie over it. The layer on top alone takes input. A bar tells
/// where one is, leads back, and shows the score while a match is on. A page can be torn off into a window of its own
/// and put back; what opens from it then is a window, too.
class Frame : public QWidget {
  Q_OBJECT

 public:
  Frame();
  ~Frame() override;

  /// The score of the match that is on, seen over every page; empty while there is none.
  void show_score(const QString& score);
  /// Shows in the bar, for some seconds, what is told without stopping; screen readers are told it. An
  /// empty text takes it away.
  void show_passing(const QString& text);
  /// What stands in the trail between the first page and what has opened over it: the competition that a match is of.
  /// Asked each time that the trail is written; nothing where it gives an empty text.
  void on_trail(std::function<QString()> occasion);
  /// What Ctrl+K does while a page waits for its user.
  void on_jump(std::function<void()> jump);
  void jump();
  /// The form that waits for its user, torn off or not; nullptr before there is any.
  Form* top() const;
  /// Whether the form on top stands in a window of its own.
  bool is_torn_off(const Form& form) const;

  /// Takes the page on top out of the frame into a window of its own.
  void tear_off();
  /// A game is in play that can be saved under a name: "Save As" in the bar runs this; an empty function takes it away.
  void offer_save(std::function<void()> save);
  /// Takes it back.
  void put_back(Form& form);

  /// For forms: one of this frame is about to be shown; has been shown; has been hidden for good; is going; needs
  /// another size.
  void enter(Form& form);
  void entered();
  void leave(Form& form);
  void forget(Form& form);
  void arrange();

  /// How many times as large as usual pages are drawn in its room.
  double enlargement_of_pages() const;

  /// From this width on, reports stand beside their page.
  static constexpr int least_width_for_two = 1280;
  /// In less height, a report needs a bar, and more width for it than a console can spare; in pixels.
  static constexpr int least_height_for_two = 690;

 signals:
  /// Another form waits for its user, or none.
  void top_changed(Form* top);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  class Slot;
  struct Layer {
    Form* form;
    Slot* slot;
    bool torn;
    QPointer<QWidget> focus;  // what had the keyboard before another layer came
  };

  void add_bar();
  void enlarge_bar();
  void add_away();
  /// Tells of the form that waits in a window of its own; nullptr for none.
  void show_away(const Form* torn);
  void show_bar();
  std::vector<Layer>::iterator layer_of(const Form& form);
  void remove(std::vector<Layer>::iterator layer);
  /// The layer that waits for the user; the end if there is none.
  std::vector<Layer>::const_iterator top_layer() const;
  /// The topmost layer that hides all below it.
  std::size_t base() const;
  bool stands_beside(const Layer& layer) const;
  void place(std::size_t base);
  void place_sheet(Layer& layer, const Form* below);
  void give_focus();

  std::vector<Layer> layers_;
  std::function<QString()> occasion_;
  std::function<void()> jump_;
  QPointer<Form> focused_;  // the layer that got the keyboard last
  QWidget* bar_ = nullptr;
  QPushButton* back_ = nullptr;
  QPushButton* forward_ = nullptr;
  QLabel* trail_ = nullptr;
  QLabel* passing_ = nullptr;
  QTimer* passed_ = nullptr;  // what passes by goes when it fires
  QLabel* score_ = nullptr;
  QPushButton* tear_off_ = nullptr;
  QPushButton* save_ = nullptr;
  std::function<void()> save_game_;
  QWidget* area_;
  QWidget* shade_;
  QFrame* away_ = nullptr;  // on the shade
  QLabel* away_title_ = nullptr;
  QWidget* resting_;  // hidden forms that may be shown again
  bool placed_ = false;
};

/// Ctrl+K.
bool is_jump(const QKeyEvent& key);

/// The frame in which a widget stands, nullptr outside of one.
Frame* frame_of(const QWidget* widget);

/// The form or window that waits for its user now; nullptr if none does.
QWidget* waiting_window();

}  // namespace velorin
