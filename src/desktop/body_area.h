// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QScrollArea>

namespace velorin {

/// Holds the body of a form: as large as the body wants where the screen has the room, else with scroll bars. What gets
/// the keyboard is scrolled into view.
class BodyArea : public QScrollArea {
  Q_OBJECT

 public:
  /// `content` has a layout; it stands in the middle, no wider than its maximum.
  explicit BodyArea(QWidget* content, QWidget* parent = nullptr);

  /// The most that the screen leaves for the body, in pixels.
  void set_room(QSize room);
  /// Takes in what the body needs at the present width.
  void fit();
  /// As high as the body wants to be at a width of the area, in pixels.
  int wanted_height(int width) const;
  /// Whether the body has scroll bars although the screen has room for more of it.
  bool wants_room() const;
  /// Scrolls by a page; false where there is nothing to scroll.
  bool turn_page(bool down);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;
  bool hasHeightForWidth() const override;
  int heightForWidth(int width) const override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  class Sheet;

  int bar_width() const;
  /// The least height of the body at a width of the area.
  int needed_height(int width) const;

  QWidget* content_;
  QSize room_{QWIDGETSIZE_MAX, QWIDGETSIZE_MAX};
};

}  // namespace velorin
