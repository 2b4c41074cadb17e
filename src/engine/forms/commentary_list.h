// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QListView>

class QFontMetrics;

namespace velorin {

struct commentary_row;
struct match_state;

class CommentaryModel;

/// Where the outcome's chip stands in a row of the commentary, drawn so many times as large as usual: always in view,
/// whatever is told beside it.
QRect outcome_place(const QRect& row, const QString& symbol, double factor = 1);

/// Who bowled to whom, in the longest form that has so many pixels of room: whole names, shortened ones, or the batsman
/// alone. None is cut.
QString fitting_names(const commentary_row& row, const QFontMetrics& type, int width);

/// The console's commentary: a row for each ball, the newest in view, with over and ball, who bowled to whom, and the
/// outcome as a chip; wickets and boundaries stand out by shape and colour; the end of an over is one compact row. What
/// is copied and read aloud are the lines as they are told.
class CommentaryList : public QListView {
  Q_OBJECT

 public:
  explicit CommentaryList(const match_state& match, QWidget* parent = nullptr);

  /// Shows the innings in play.
  /// The match is another one, or stands elsewhere: what was read and what has passed by goes, until refresh().
  void forget();
  void refresh();
  /// A message that nobody stopped for passes by: a row of its own behind the balls so far. It is no line of the
  /// commentary, and not copied with them.
  void add_message(const QString& text);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  /// The newest row stays in view.
  void resizeEvent(QResizeEvent* event) override;

 private:
  void show_newest();

  CommentaryModel* rows_;
  const match_state& match_;
};

}  // namespace velorin
