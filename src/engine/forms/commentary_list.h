// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QListView>

namespace velorin {

class CommentaryModel;

/// The console's commentary box: every line of the innings, the newest in view, wickets and boundaries marked by a sign
/// and a colour.
class CommentaryList : public QListView {
  Q_OBJECT

 public:
  explicit CommentaryList(QWidget* parent = nullptr);

  /// Shows the lines of the innings in play.
  void refresh();

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  CommentaryModel* lines_;
};

}  // namespace velorin
