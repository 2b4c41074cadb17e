// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/forms/conditions_window.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "desktop/accessible_role.h"
#include "desktop/controls.h"
#include "desktop/ground_picture.h"
#include "desktop/level_slider.h"
#include "desktop/shown_text.h"
#include "setup/conditions.h"
#include "setup/forms/leaving.h"

namespace velorin {

namespace {

QColor sky(const sky_color& channels) {
  return QColor::fromRgba64(QRgba64::fromRgba64(channels[0], channels[1], channels[2], 0xFFFF));
}

/// The ground under the sky of the weather slider as it stands.
GroundScene scene_of(const conditions_form& form) {
  return {.country = shown(form.country()),
          .minutes = 12 * 60,
          .weather = form.weather,
          .sky = {{sky(form.sky_top()), sky(form.sky_bottom())}}};
}

struct Condition {
  const char* caption;
  char16_t mnemonic;
  const char* slider;
  const char* label;
  int conditions_form::*value;
  std::string (conditions_form::*words)() const;
};

constexpr Condition conditions[] = {
    {"Weather", u'W', "weather", "weather_words", &conditions_form::weather, &conditions_form::weather_words},
    {"Pitch", u'P', "pitch_surface", "pitch_words", &conditions_form::pitch_surface, &conditions_form::pitch_words},
    {"Bounce", u'B', "pitch_bounce", "bounce_words", &conditions_form::pitch_bounce, &conditions_form::bounce_words},
    {"Outfield", u'F', "outfield", "outfield_words", &conditions_form::outfield, &conditions_form::outfield_words},
};

}  // namespace

ConditionsWindow::ConditionsWindow(conditions_form& form, QWidget* parent)
    : Form(QStringLiteral("wecond"), Dismissal::refused, parent), form_(form) {
  set_title(shown(form.headline()), shown(form.headline()));
  name_heading(QStringLiteral("headline"));
  auto* ground = new GroundPicture(QStringLiteral("sky"));
  ground->setMinimumSize(240, 320);
  give_role(*ground, QAccessible::Graphic);
  ground->setAccessibleName(QStringLiteral("The sky"));
  ground->set_scene(scene_of(form_));
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(24);
  grid->setVerticalSpacing(24);
  grid->setColumnStretch(2, 1);
  int row = 0;
  for (const Condition& condition : conditions) {
    auto* slider = new LevelSlider(QString::fromLatin1(condition.slider), 1, 4);
    slider->setValue(form_.*condition.value);
    connect(slider, &QSlider::valueChanged, this, [this, value = condition.value](int level) { form_.*value = level; });
    grid->addWidget(new_caption(QString::fromLatin1(condition.caption), condition.mnemonic, slider), row, 0);
    grid->addWidget(slider, row, 1);
    auto* words = new_named_label(QString::fromLatin1(condition.label), shown((form_.*condition.words)()));
    words->setWordWrap(true);
    words->setMinimumWidth(240);
    grid->addWidget(words, row, 2);
    ++row;
  }
  auto* levels = new QVBoxLayout;
  levels->addStretch(1);
  levels->addLayout(grid);
  levels->addSpacing(16);
  levels->addWidget(
      new_named_label(QStringLiteral("temperature_line"), shown(form_.temperature_line()), TextRole::muted));
  levels->addStretch(1);
  auto* sides = new QHBoxLayout;
  sides->setSpacing(32);
  sides->addWidget(ground, 1);
  sides->addLayout(levels, 1);
  body()->addLayout(sides, 1);
  connect(findChild<LevelSlider*>(QStringLiteral("weather")), &QSlider::valueChanged, ground,
          [this, ground] { ground->set_scene(scene_of(form_)); });
  add_default_button(QStringLiteral("accept"), {.caption = QStringLiteral("OK"), .mnemonic = u'O'}, [this] {
    form_.accept();
    if (form_.closed) accept();
  });
  let_leave(*this, form_);
}

}  // namespace velorin
