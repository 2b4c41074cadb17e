// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFrame>
#include <QList>
#include <array>
#include <initializer_list>
#include <string>

#include "engine/ball_odds.h"

class QBoxLayout;
class QLabel;
class QLayout;
class QPushButton;

namespace velorin {

struct match_state;
struct open_database;

class BallChips;
class LevelSegments;
class MeterBar;
class PhotoView;

/// What the panels of batsmen and bowlers have in common: a photo beside some rows, the aggression under both.
class PlayerPanel : public QWidget {
  Q_OBJECT

 public:
  QPushButton* aggression() const { return aggression_; }
  LevelSegments* levels() const { return levels_; }
  QPushButton* profile() const { return profile_; }

  /// With little room: a small photo, low levels, and nothing in words that figures tell.
  void set_compact(bool compact);

  /// Without what a tall window adds, so that it can become a low one again.
  QSize minimumSizeHint() const override;
  QSize sizeHint() const override { return minimumSizeHint(); }

 protected:
  /// With room to spare the answer of the level in use stands in words as well, and the photo grows.
  bool event(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

  /// `whose` and `number` make the names of the controls; `key` is that of the aggression, and with Ctrl the profile's.
  PlayerPanel(const QString& whose, int slot, Qt::Key key, QSize photo, QWidget* parent);

  void lay_out(std::initializer_list<QLayout*> rows);
  /// Photos are looked for on disk only when another man comes.
  void show_man(const open_database& database, const QString& shown_name, const std::string& player,
                const std::string& team);
  void show_aggression(const std::string& player, int level, const aggression_odds& odds, bool enabled);

  /// Leaves a part out, or shows it, whoever is shown.
  void leave_out(QWidget& part, bool left_out);
  bool is_compact() const { return compact_; }

  int slot_;
  PhotoView* photo_;
  QPushButton* profile_;
  QPushButton* aggression_;
  LevelSegments* levels_;
  QLabel* answer_;

 private:
  void fit_caption();
  void share_height();
  /// The photo's size in pixels where nothing is to spare.
  QSize least_photo() const;

  QSize usual_photo_;
  bool compact_ = false;
  bool sharing_ = false;  // the height is being shared out
  QBoxLayout* beside_ = nullptr;
  QList<QWidget*> left_out_;
};

/// One batsman at the crease: photo, name, figures, what the last over brought him, the balls that he has faced last,
/// settled bar, aggression. The name leads to his profile.
class BatsmanPanel : public PlayerPanel {
  Q_OBJECT

 public:
  /// `slot`: 0 the lower position at the crease, 1 the higher.
  explicit BatsmanPanel(const match_state& match, const open_database& database, int slot, QWidget* parent = nullptr);

  void refresh();

 protected:
  /// The bar of how settled he is stands where it is long enough to tell anything.
  void resizeEvent(QResizeEvent* event) override;

 private:
  QLabel* runs_;
  QLabel* gained_;
  QLabel* out_;
  QLabel* rest_;
  BallChips* faced_;
  MeterBar* settled_;
  QLabel* worth_;
  const match_state& match_;
  const open_database& data_;
};

/// One bowler: the man of this over (0) or of the next (1), with his last balls. The name leads to his profile.
class BowlerPanel : public PlayerPanel {
  Q_OBJECT

 public:
  explicit BowlerPanel(const match_state& match, const open_database& database, int slot, QWidget* parent = nullptr);

  void refresh();

 private:
  std::array<QLabel*, 4> figures_{};  ///< overs, maidens, runs, wickets; of the next bowler only the first, as one line
  BallChips* bowled_;
  QLabel* last_over_;
  const match_state& match_;
  const open_database& data_;
};

}  // namespace velorin
