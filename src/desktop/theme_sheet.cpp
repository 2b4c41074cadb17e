// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/theme_sheet.h"

#include "desktop/theme.h"

namespace velorin {

namespace {

/// The palette's colour of disabled text in high contrast.
const QColor contrast_disabled(0xA0A0A0);

// Colours stand as @role. Longer names are replaced first, so that one may begin with another.
constexpr const char* rules = R"(
QWidget#head { background: @pitch; }
QWidget#head QLabel { color: @on_pitch; }
QWidget#head QLabel#subheading, QWidget#head QLabel[role="subheading"] { color: @on_pitch_muted; }
QWidget#bar { background: @card_raised; border-bottom: 1px solid @line; }
QWidget#foot { background: @card_raised; border-top: 1px solid @line; }
QFrame[card="true"] { background: @card; border: 1px solid @line; border-radius: 8px; }
QFrame[band="true"] { background: @card_raised; border: none; border-radius: 6px; }
QFrame[rule="true"] { background: @line; border: none; }
QLabel[role="muted"] { color: @muted; }
QLabel[role="red"] { color: @ball; }
QLabel[role="blue"] { color: @blue; }
QLabel[role="accent"] { color: @accent; }

QPushButton, QToolButton {
  background: @card; color: @ink; border: 1px solid @line; border-radius: 6px; padding: 6px 14px; min-height: 20px;
}
QPushButton:hover, QToolButton:hover { background: @card_raised; border-color: @muted; }
QPushButton:pressed, QToolButton:pressed { background: @line; }
QPushButton:checked, QToolButton:checked { background: @accent; color: @on_accent; border-color: @accent; }
QPushButton:default { background: @accent; color: @on_accent; border-color: @accent; font-weight: 600; }
QPushButton:default:hover { border-color: @ink; }
QPushButton:disabled, QToolButton:disabled { background: transparent; color: @muted; border: 1px dashed @line; }
QPushButton:focus, QToolButton:focus { border: 2px solid @focus; padding: 5px 13px; }
QPushButton[compact="true"], QToolButton[compact="true"] { padding: 2px 8px; }
QPushButton[compact="true"]:focus, QToolButton[compact="true"]:focus { padding: 1px 7px; }
QPushButton[slim="true"] { padding: 0px 10px; }
QPushButton[slim="true"]:focus { padding: 0px 9px; min-height: 18px; }
QPushButton[link="true"] {
  background: transparent; border: 2px solid transparent; padding: 1px 8px; text-align: left; font-weight: 500;
}
QPushButton[link="true"][flush="true"], QPushButton[link="true"][flush="true"]:focus { padding: 1px 2px; }
QPushButton[link="true"]:disabled { border-color: transparent; }
QPushButton[link="true"]:hover { color: @accent; border-color: @line; }
QPushButton[link="true"]:focus { border-color: @focus; padding: 1px 8px; }

QComboBox, QLineEdit {
  background: @card; color: @ink; border: 1px solid @line; border-radius: 6px; padding: 4px 8px; min-height: 22px;
  selection-background-color: @accent; selection-color: @on_accent;
}
QComboBox:focus, QLineEdit:focus { border: 2px solid @focus; padding: 3px 7px; }
QComboBox[compact="true"], QComboBox[compact="true"]:focus { min-height: 17px; padding: 2px 6px; }
QComboBox:disabled, QLineEdit:disabled { color: @muted; background: @card_raised; }
QComboBox::drop-down { border: none; width: 24px; }
QComboBox::down-arrow { image: url(:/desktop/icons/arrow_@look.svg); width: 12px; height: 12px; }
QComboBox QAbstractItemView { background: @card; color: @ink; border: 1px solid @line; }

QRadioButton, QCheckBox { spacing: 8px; padding: 3px; border: 2px solid transparent; border-radius: 5px; }
QRadioButton:focus, QCheckBox:focus { border-color: @focus; }
QRadioButton:disabled, QCheckBox:disabled { color: @muted; }
QRadioButton::indicator, QCheckBox::indicator {
  width: 12px; height: 12px; border: 1px solid @muted; background: @card;
}
QCheckBox::indicator { border-radius: 3px; }
QCheckBox::indicator:checked {
  background: @accent; border-color: @accent; image: url(:/desktop/icons/check_@look.svg);
}
QRadioButton::indicator { border-radius: 7px; }
QRadioButton::indicator:checked { width: 6px; height: 6px; border: 4px solid @accent; background: @on_accent; }
QRadioButton::indicator:disabled, QCheckBox::indicator:disabled { border-color: @line; background: transparent; }
QRadioButton::indicator:checked:disabled { border: 4px solid @muted; background: @card; }
QRadioButton[entry="true"] { padding: 4px 8px; border-radius: 6px; spacing: 0px; }
QRadioButton[entry="true"]:hover { background: @card_raised; }
QRadioButton[entry="true"]:checked { background: @accent; color: @on_accent; font-weight: 600; }
QRadioButton[entry="true"]::indicator, QRadioButton[entry="true"]::indicator:checked {
  width: 0px; height: 0px; border: none; background: transparent;
}

QTableView, QListView {
  background: @card; alternate-background-color: @card_raised; color: @ink; border: 1px solid @line;
  border-radius: 6px; gridline-color: @line; selection-background-color: @accent; selection-color: @on_accent;
  padding: 1px;
}
QTableView:focus, QListView:focus { border: 2px solid @focus; padding: 0px; }
QTableView::item { padding: 2px 6px; border: none; }
QTableView QTableCornerButton::section { background: @card_raised; border: none; border-bottom: 1px solid @line; }
QHeaderView::section {
  background: @card_raised; color: @muted; border: none; border-bottom: 1px solid @line; padding: 5px 8px;
}
QHeaderView::section:vertical { border: none; }
QListView[quiet="true"]::item:selected { background: @card_raised; color: @ink; }
QFrame#rule { background: @line; border: none; max-height: 1px; min-height: 1px; }
QScrollBar:horizontal { height: 12px; background: transparent; margin: 0; }
QScrollBar:vertical { width: 12px; background: transparent; margin: 0; }
QScrollBar::handle { background: @muted; border-radius: 4px; margin: 2px; min-width: 24px; min-height: 24px; }
QScrollBar::handle:hover { background: @accent; }
QScrollBar:focus { border: 2px solid @focus; border-radius: 5px; }
QScrollBar::handle:disabled { background: @line; }
QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }
QScrollBar::add-page, QScrollBar::sub-page { background: @card_raised; border-radius: 4px; margin: 4px 2px; }
QFileDialog QToolButton { padding: 2px; min-height: 0; }
QFileDialog QToolButton:focus { padding: 1px; }
QAbstractSpinBox QLineEdit, QAbstractSpinBox QLineEdit:focus {
  background: transparent; border: none; border-radius: 0; padding: 0; min-height: 0;
}
QToolTip { background: @card_raised; color: @ink; border: 1px solid @line; padding: 4px; }
QScrollArea { background: transparent; border: none; }
QMenu { background: @card; color: @ink; border: 1px solid @line; }
QMenu::item:selected { background: @accent; color: @on_accent; }
)";

/// Where all text is of one colour, what cannot be chosen has to differ all the same.
QString contrast_rules(const Theme& t) {
  return QStringLiteral(R"(
QFrame[band="true"] { border: 1px solid %1; }
QPushButton:disabled, QToolButton:disabled, QRadioButton:disabled, QCheckBox:disabled { color: %2; }
QRadioButton::indicator:disabled, QCheckBox::indicator:disabled { border: 1px dotted %2; }
)")
      .arg(t.line.name(), contrast_disabled.name());
}

}  // namespace

QString theme_sheet(const Theme& t) {
  const std::pair<const char*, QColor> roles[] = {
      {"@on_pitch_muted", t.on_pitch_muted},
      {"@card_raised", t.card_raised},
      {"@on_accent", t.on_accent},
      {"@on_pitch", t.on_pitch},
      {"@accent", t.accent},
      {"@ground", t.ground},
      {"@pitch", t.pitch},
      {"@muted", t.muted},
      {"@focus", t.focus},
      {"@card", t.card},
      {"@line", t.line},
      {"@blue", t.blue},
      {"@ball", t.ball},
      {"@ink", t.ink},
  };
  QString sheet = QString::fromLatin1(rules);
  for (const auto& [name, color] : roles) sheet.replace(QLatin1String(name), color.name());
  if (t.high_contrast) sheet += contrast_rules(t);
  return sheet.replace(QLatin1String("@look"), QLatin1String(t.high_contrast ? "contrast" : t.dark ? "dark" : "light"));
}

}  // namespace velorin
