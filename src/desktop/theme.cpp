// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/theme.h"

#include <QApplication>
#include <QFontDatabase>
#include <QPalette>
#include <QStyleFactory>
#include <QWidget>

#include "desktop/of_application.h"
#include "desktop/system_look.h"
#include "desktop/theme_sheet.h"

/// The linker leaves out a library's pictures that nobody asks for.
static void ask_for_pictures() { Q_INIT_RESOURCE(desktop); }

namespace velorin {

namespace {

Theme light_theme() {
  Theme t;
  t.ground = QColor(0xF4F1E6);
  t.card = QColor(0xFFFDF7);
  t.card_raised = QColor(0xF1EEE1);
  t.line = QColor(0xD5D0BD);
  t.ink = QColor(0x1F2A24);
  t.muted = QColor(0x5A655D);
  t.pitch = QColor(0x1F4D3A);
  t.on_pitch = QColor(0xFBF7E9);
  t.on_pitch_muted = QColor(0xC4D6C6);
  t.accent = QColor(0x2B6A4D);
  t.on_accent = QColor(0xFFFFFF);
  t.focus = QColor(0xB4661A);
  t.willow = QColor(0xC79A4B);
  t.ball = QColor(0xA3232B);
  t.on_ball = QColor(0xFFFFFF);
  t.four = QColor(0x2A6BA8);
  t.six = QColor(0x6B3FA0);
  t.on_boundary = QColor(0xFFFFFF);
  t.blue = QColor(0x1C5BA6);
  t.dark_blue = QColor(0x14357A);
  t.next_ground = QColor(0xDCE7F5);
  return t;
}

Theme dark_theme() {
  Theme t;
  t.dark = true;
  t.ground = QColor(0x131A16);
  t.card = QColor(0x1C2620);
  t.card_raised = QColor(0x243029);
  t.line = QColor(0x3A473F);
  t.ink = QColor(0xECE9DC);
  t.muted = QColor(0xA5B0A6);
  t.pitch = QColor(0x173D2E);
  t.on_pitch = QColor(0xF7F2E0);
  t.on_pitch_muted = QColor(0xB3C7B7);
  t.accent = QColor(0x57B285);
  t.on_accent = QColor(0x0C1A12);
  t.focus = QColor(0xF0B35A);
  t.willow = QColor(0xD6AE66);
  t.ball = QColor(0xF07F80);
  t.on_ball = QColor(0x2A0709);
  t.four = QColor(0x7FB6EA);
  t.six = QColor(0xC2A2F0);
  t.on_boundary = QColor(0x0D1420);
  t.blue = QColor(0x8DBEF2);
  t.dark_blue = QColor(0xB4D2FF);
  t.next_ground = QColor(0x223650);
  return t;
}

Theme contrast_theme() {
  Theme t;
  t.dark = true;
  t.high_contrast = true;
  t.ground = t.card = t.card_raised = t.pitch = QColor(Qt::black);
  t.line = t.ink = t.muted = t.on_pitch = t.on_pitch_muted = QColor(Qt::white);
  t.accent = QColor(0xFFE94A);
  t.on_accent = QColor(Qt::black);
  t.focus = QColor(0x33E1FF);
  t.willow = QColor(0xFFE94A);
  t.ball = QColor(0xFF8A8A);
  t.on_ball = QColor(Qt::black);
  t.four = QColor(0x7FD4FF);
  t.six = QColor(0xE5B8FF);
  t.on_boundary = QColor(Qt::black);
  t.blue = t.dark_blue = QColor(0x7FD4FF);
  t.next_ground = QColor(0x003A6B);
  return t;
}

struct Look {
  Theme theme = light_theme();
  Appearance chosen = Appearance::light;
  bool styled = false;
};

Look& look() { return of_application<Look>(); }

QPalette palette_of(const Theme& t) {
  QPalette p;
  p.setColor(QPalette::Window, t.ground);
  p.setColor(QPalette::WindowText, t.ink);
  p.setColor(QPalette::Base, t.card);
  p.setColor(QPalette::AlternateBase, t.card_raised);
  p.setColor(QPalette::Text, t.ink);
  p.setColor(QPalette::PlaceholderText, t.muted);
  p.setColor(QPalette::Button, t.card);
  p.setColor(QPalette::ButtonText, t.ink);
  p.setColor(QPalette::ToolTipBase, t.card_raised);
  p.setColor(QPalette::ToolTipText, t.ink);
  p.setColor(QPalette::Highlight, t.accent);
  p.setColor(QPalette::HighlightedText, t.on_accent);
  p.setColor(QPalette::Link, t.blue);
  p.setColor(QPalette::Light, t.card);
  p.setColor(QPalette::Midlight, t.card_raised);
  p.setColor(QPalette::Mid, t.line);
  p.setColor(QPalette::Dark, t.line);
  p.setColor(QPalette::Shadow, t.line);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    p.setColor(QPalette::Disabled, role, t.high_contrast ? QColor(0xA0A0A0) : t.muted);
  }
  return p;
}

void style_application() {
  const Look& now = look();
  QApplication::setPalette(palette_of(now.theme));
  QApplication::setFont(type_font(TypeStep::body));
  qApp->setStyleSheet(theme_sheet(now.theme));
  for (QWidget* window : QApplication::topLevelWidgets()) window->update();
}

Theme theme_for(Appearance chosen) {
  switch (chosen) {
    case Appearance::light:
      return light_theme();
    case Appearance::dark:
      return dark_theme();
    case Appearance::high_contrast:
      return contrast_theme();
    case Appearance::system:
      break;
  }
  if (system_wants_contrast()) return contrast_theme();
  return system_is_dark() ? dark_theme() : light_theme();
}

}  // namespace

const Theme& theme() { return look().theme; }

void apply_theme(Appearance chosen) {
  Look& now = look();
  if (!now.styled) {
    now.styled = true;
    ask_for_pictures();
    note_system_palette();
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    on_system_look_change([] {
      if (look().chosen == Appearance::system) apply_theme(Appearance::system);
    });
  }
  now.chosen = chosen;
  now.theme = theme_for(chosen);
  style_application();
}

QFont type_font(TypeStep step) {
  static const QString family = [] {
    // Each has figures of one width; the first that is there.
    for (const char* wanted : {"Roboto", "Open Sans", "Noto Sans", "DejaVu Sans"}) {
      if (QFontDatabase::families().contains(QLatin1String(wanted))) return QString::fromLatin1(wanted);
    }
    return QFontDatabase::systemFont(QFontDatabase::GeneralFont).family();
  }();
  struct Step {
    double points;
    QFont::Weight weight;
  };
  static constexpr Step scale[] = {{9, QFont::Normal},  {10.5, QFont::Normal}, {10.5, QFont::Medium},
                                   {13, QFont::Medium}, {18, QFont::Medium},   {34, QFont::Bold}};
  const Step& at = scale[static_cast<int>(step)];
  QFont font(family);
  font.setPointSizeF(at.points);
  font.setWeight(at.weight);
  return font;
}

}  // namespace velorin
