// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFrame>
#include <array>

class QLabel;
class QPushButton;

namespace velorin {

struct match_state;
struct open_database;

class MeterBar;
class PhotoView;

/// One batsman at the crease: photo, name, figures, settled bar, aggression.
class BatsmanPanel : public QWidget {
  Q_OBJECT

 public:
  /// `slot`: 0 the lower position at the crease, 1 the higher.
  explicit BatsmanPanel(const match_state& match, const open_database& database, int slot, QWidget* parent = nullptr);

  void refresh();
  /// The photo's width and height in pixels.
  void set_photo_size(QSize size);
  QPushButton* aggression() const { return aggression_; }
  QPushButton* profile() const { return profile_; }

 private:
  int slot_;
  PhotoView* photo_;
  QLabel* name_;
  QLabel* runs_;
  QLabel* rest_;
  MeterBar* settled_;
  QPushButton* aggression_;
  QPushButton* profile_;
  const match_state& match_;
  const open_database& data_;
};

/// One bowler: the man of this over (0) or of the next (1).
class BowlerPanel : public QWidget {
  Q_OBJECT

 public:
  explicit BowlerPanel(const match_state& match, const open_database& database, int slot, QWidget* parent = nullptr);

  void refresh();
  /// The photo's width and height in pixels.
  void set_photo_size(QSize size);
  QPushButton* aggression() const { return aggression_; }
  QPushButton* profile() const { return profile_; }

 private:
  int slot_;
  PhotoView* photo_;
  QLabel* name_;
  std::array<QLabel*, 4> figures_{};  ///< overs, maidens, runs, wickets; of the next bowler only the first, as one line
  QPushButton* aggression_;
  QPushButton* profile_;
  const match_state& match_;
  const open_database& data_;
};

}  // namespace velorin
