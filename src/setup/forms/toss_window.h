// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/form.h"

class QLabel;
class QPushButton;
class QStackedWidget;

namespace velorin {

class CrestView;
struct toss_form;

/// The toss: the coin first, then the decision.
class TossWindow : public Form {
  Q_OBJECT

 public:
  /// `form` has been opened and outlives the window.
  explicit TossWindow(toss_form& form, QWidget* parent = front_window());

 private:
  QPushButton* add_choice(const char* name, const char* caption, char16_t mnemonic, std::function<void()> chosen);
  /// Shows texts and buttons as the form has them; closes the window with the form.
  void show_stage();

  toss_form& form_;
  QStackedWidget* stages_;
  CrestView* deciding_crest_;
  CrestView* other_crest_;
  QLabel* deciding_;
  QLabel* other_;
  QPushButton* heads_;
  QPushButton* tails_;
  QPushButton* bat_;
  QPushButton* bowl_;
};

}  // namespace velorin
