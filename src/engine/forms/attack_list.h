// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRadioButton>
#include <array>
#include <functional>
#include <utility>
#include <vector>

#include "console/side_views.h"
#include "model/rules.h"

class QButtonGroup;
class QLabel;

namespace velorin {

struct match_state;

/// A man of the attack: his figures in columns. Pressed, he has the over.
class AttackRow : public QRadioButton {
  Q_OBJECT

 public:
  explicit AttackRow(QWidget* parent = nullptr);

  void show_man(const attack_row& row);
  int position() const { return row_.position; }
  const attack_row& man() const { return row_; }

  /// The name as it is painted: whole, or shortened where there is little room.
  QString shown_name() const;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool hitButton(const QPoint& at) const override { return rect().contains(at); }

 private:
  /// With the font in which it has so many pixels of room.
  std::pair<QString, QFont> fitting_name(int width) const;

  attack_row row_;
};

/// The whole attack, ranked: who bowls now and next, figures, overs left. One press changes the bowler of this over; P
/// or a right click leads to the man's profile, Ctrl+C copies the figures.
class AttackList : public QWidget {
  Q_OBJECT

 public:
  explicit AttackList(const match_state& match, QWidget* parent = nullptr);

  void refresh();
  /// As large as the window around it has its parts.
  void fit_enlargement();
  void on_chosen(std::function<void(int position)> act) { chosen_ = std::move(act); }
  void on_profile(std::function<void(int position)> act) { profile_ = std::move(act); }
  /// The rows as they stand.
  std::vector<attack_row> men() const;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  void place_headings();

  QLabel* title_;
  std::vector<QLabel*> headings_;  // one for each column of figures
  std::array<AttackRow*, men_in_eleven> rows_{};
  QButtonGroup* group_;
  std::function<void(int)> chosen_;
  std::function<void(int)> profile_;
  bool showing_ = false;
  const match_state& match_;
};

}  // namespace velorin
