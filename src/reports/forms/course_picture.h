// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include "reports/match_story.h"

class QPainter;

namespace velorin {

/// How an innings has gone over the fifty overs, as a picture on which an over can be picked by a press or by the arrow
/// keys.
class CoursePicture : public QWidget {
  Q_OBJECT

 public:
  enum class Kind {
    overs,  ///< runs of each over as bars, both sides' running scores as lines with their wickets
    rates,  ///< the run rate as a line and, in a chase, the required rate
  };

  CoursePicture(const QString& name, Kind kind, QWidget* parent = nullptr);

  /// Shows an innings by its place in the match, which outlives the picture.
  void show_innings(const match_story& match, std::size_t innings);
  /// Marks an over, 1 to 50; 0 for none.
  void mark_over(int over);
  int marked_over() const { return marked_; }
  /// The strip of an over, in pixels of the picture as it stands.
  QRectF strip_of(int over) const;
  /// Writes it to a file, SVG or PNG by the ending. False if that fails.
  bool save(const QString& path) const;

  QSize sizeHint() const override { return {720, 360}; }
  QSize minimumSizeHint() const override { return {320, 200}; }

 signals:
  /// The user has picked an over that has been bowled.
  void over_picked(int over);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  /// The axes in one room.
  struct Plot {
    QRectF area;
    double bars_top = 1;    ///< runs of an over, or a rate
    double scores_top = 1;  ///< runs of a side
    double x(double over) const;
    double bar(double value) const;
    double score(double value) const;
  };

  Plot plot_in(const QRectF& room) const;
  void draw(QPainter& painter, const QRectF& room) const;
  void draw_axes(QPainter& painter, const Plot& plot) const;
  void draw_bars(QPainter& painter, const Plot& plot) const;
  void draw_worms(QPainter& painter, const Plot& plot) const;
  void draw_rates(QPainter& painter, const Plot& plot) const;
  void draw_key(QPainter& painter, const QRectF& room) const;
  QColor color_of(const innings_story& innings) const;
  void pick(int over);
  /// Its own room, in pixels of the usual size.
  QRectF usual_room() const;

  Kind kind_;
  const match_story* match_ = nullptr;
  std::size_t innings_ = 0;
  int marked_ = 0;
};

/// The picture in words.
QString course_words(CoursePicture::Kind kind, const innings_story& innings);

}  // namespace velorin
