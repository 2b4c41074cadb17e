// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include "desktop/theme.h"

class QButtonGroup;
class QFrame;
class QLabel;
class QRadioButton;
class QVBoxLayout;
class QWidget;

// Small parts that forms are made of.

namespace velorin {

enum class TextRole { body, strong, heading, title, score, muted, small_muted, red, blue, accent };

/// A label that shows its text as it stands: no markup, no mnemonics. A term gets its meaning as the tooltip.
QLabel* new_label(const QString& text, TextRole role = TextRole::body, QWidget* parent = nullptr);
/// The same under a control's name.
QLabel* new_named_label(const QString& name, const QString& text, TextRole role = TextRole::body,
                        QWidget* parent = nullptr);

/// A caption that leads to a control by its mnemonic: Alt and that letter move the keyboard there. It also becomes the
/// control's name for screen readers, outer blanks and a last colon left out.
QLabel* new_caption(const QString& text, QChar mnemonic, QWidget* control, QWidget* parent = nullptr);

/// A bordered panel with a layout of its own, 16 pixels inside, 8 between rows.
QFrame* new_card(QWidget* parent = nullptr);
/// The layout of such a panel.
QVBoxLayout* card_rows(QFrame* card);

/// A column for a form's whole body: no wider than `widest` pixels, in the middle of a wider form.
QVBoxLayout* new_column(QVBoxLayout* body, int widest);

/// The name for screen readers that a caption gives.
QString spoken_name(const QString& caption);

}  // namespace velorin
