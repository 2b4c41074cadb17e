// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QListView>

namespace velorin {

struct match_state;

class CommentaryModel;

/// A line of the commentary in so many pixels: what is too long loses letters before its outcome, " : 4 runs.".
QString shortened_line(const QString& line, const QFontMetrics& metrics, int room);

/// The console's commentary box: every line of the innings, the newest in view, wickets and boundaries marked by a sign
/// and a colour, each line with its outcome in view.
class CommentaryList : public QListView {
  Q_OBJECT

 public:
  explicit CommentaryList(const match_state& match, QWidget* parent = nullptr);

  /// Shows the lines of the innings in play.
  void refresh();

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  CommentaryModel* lines_;
  const match_state& match_;
};

}  // namespace velorin
