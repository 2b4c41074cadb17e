// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <QPixmap>
#include <QWidget>

class QComboBox;

// The crests of the teams in windows. They stand beside a team's name and decorate it; the name alone is the text.

namespace velorin {

/// An SVG text as a picture of `size` pixels, `ratio` of the device's to each; what is drawn keeps its shape and stands
/// in the middle. Empty for a text that is no SVG.
QPixmap svg_picture(const QString& svg, QSize size, double ratio);

/// The crest of a team, sharp at every size. Without a name, no picture.
QIcon crest_icon(const QString& team);

/// Puts its crest before every team of a list; for lists whose items are names of teams.
void show_crests(QComboBox& teams);

class Form;

/// A team's crest of a fixed size; empty without a name.
class CrestView : public QWidget {
  Q_OBJECT

 public:
  /// `size`: width and height in pixels.
  CrestView(const QString& name, int size, QWidget* parent = nullptr);

  void show_team(const QString& team);
  const QString& team() const { return team_; }
  /// Another size in pixels.
  void set_size(int size);
  QSize sizeHint() const override { return {size_, size_}; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int size_;
  QString team_;
};

/// Puts a crest before the heading of a form, for it to show a team.
inline constexpr int head_crest = 44;  // pixels
CrestView* add_head_crest(Form& form, const QString& name);

}  // namespace velorin
