// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QFont>
#include <QString>

#include "desktop/preferences.h"

class QApplication;

// One look for all windows: colours by role and one type scale, in a light, a dark and a high-contrast variant.

namespace velorin {

/// Colours by what they stand for. Text colours meet 4.5 : 1 on the grounds they are meant for.
struct Theme {
  bool dark = false;
  bool high_contrast = false;

  QColor ground;       ///< behind everything
  QColor card;         ///< panels and tables
  QColor card_raised;  ///< every second row, fields that are read
  QColor line;         ///< borders and grid lines
  QColor ink;          ///< text
  QColor muted;        ///< less important text, on ground and card
  QColor pitch;        ///< the scoreboard and the heads of windows
  QColor on_pitch;     ///< text on pitch
  QColor on_pitch_muted;
  QColor accent;  ///< default buttons, chosen things
  QColor on_accent;
  QColor focus;   ///< the ring around what has the keyboard
  QColor willow;  ///< bars and quiet emphasis
  QColor ball;    ///< wickets, and text that is told to be red
  QColor on_ball;
  QColor four;  ///< boundaries along the ground
  QColor six;   ///< boundaries in the air
  QColor on_boundary;
  QColor blue;         ///< text that is told to be blue
  QColor dark_blue;    ///< text that is told to be dark blue
  QColor next_ground;  ///< behind the row of the next match
};

/// The look in use; light before apply_theme. Requires the application object, as all here.
const Theme& theme();

/// Chooses the look and restyles all windows; Appearance::system follows the desktop, also when that changes later.
void apply_theme(Appearance chosen);

/// The steps of the type scale. Figures stand in columns: they all have one width.
enum class TypeStep { small, body, strong, heading, title, score };
QFont type_font(TypeStep step);

}  // namespace velorin
