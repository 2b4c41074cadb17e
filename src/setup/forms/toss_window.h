// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/form.h"

class QBoxLayout;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QStackedWidget;

namespace velorin {

class CrestView;
struct match_state;
struct toss_form;

/// The toss: the coin first, then the decision.
class TossWindow : public Form {
  Q_OBJECT

 public:
  /// `form` has been opened on the match and outlives the window.
  TossWindow(const match_state& match, toss_form& form, QWidget* parent = front_window());

 private:
  /// A side with its crest.
  struct Side {
    CrestView* crest = nullptr;
    QLabel* name = nullptr;
    void show(const QString& team) const;
  };

  QWidget* new_coin_stage(const match_state& match);
  QWidget* new_decision_stage();
  /// Adds a side to a row, with what it is about below.
  static Side add_side(QHBoxLayout& row, const char* whose, const QString& caption);
  QPushButton* add_choice(const char* name, const char* caption, char16_t mnemonic, std::function<void()> chosen);
  /// Shows texts and buttons as the form has them; closes the window with the form.
  void show_stage();
  /// What he who may decide is offered besides.
  void add_adviser();
  /// Lets this choice be pressed by Return.
  static void prefer(QPushButton& choice);

  const match_state& match_;
  toss_form& form_;
  QStackedWidget* stages_;
  QHBoxLayout* choices_;
  Side deciding_;
  Side other_;
  QPushButton* heads_;
  QPushButton* tails_;
  QPushButton* bat_;
  QPushButton* bowl_;
  QBoxLayout* rows_;
  bool advised_ = false;
};

}  // namespace velorin
