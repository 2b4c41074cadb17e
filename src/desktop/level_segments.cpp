// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/level_segments.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QPainter>
#include <QShortcut>
#include <algorithm>
#include <cmath>

#include "desktop/enlarged.h"
#include "desktop/program_end.h"
#include "desktop/shown_text.h"
#include "desktop/theme.h"

namespace velorin {

namespace {

constexpr int beside_answer = 4;  // pixels kept free on each side of the answer

}  // namespace

LevelSegment::LevelSegment(int level, QWidget* parent) : QRadioButton(QString::number(level), parent), level_(level) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize LevelSegment::sizeHint() const {
  const QFontMetrics type(type_font(*this, TypeStep::small));
  return {type.horizontalAdvance(QStringLiteral("0.0\u00B7000")) + 2 * beside_answer, tall()};
}

QSize LevelSegment::minimumSizeHint() const {
  const QFontMetrics type(type_font(*this, TypeStep::small));
  return {type.horizontalAdvance(QStringLiteral("00.0")) + 2 * beside_answer, tall()};
}

int LevelSegment::tall() const {
  constexpr int usual = 36;
  constexpr int low = 28;
  return enlarged(*this, low_ ? low : usual);
}

void LevelSegment::show_answer(const QString& whose, const std::optional<ball_odds>& odds) {
  const QString sentence = QStringLiteral("%1: %2").arg(level_).arg(shown(odds_sentence(odds)));
  const QString spoken = QStringLiteral("Aggression of %1, %2").arg(whose, sentence);
  if (spoken == spoken_) return;
  spoken_ = spoken;
  sentence_ = sentence;
  tell();
  answer_.clear();
  runs_.clear();
  if (odds) {
    const QString balls =
        odds->balls_a_wicket == 0 ? QStringLiteral("\u2013") : QString::number(std::lround(odds->balls_a_wicket));
    runs_ = QString::number(odds->runs_an_over, 'f', 1);
    answer_ = QStringLiteral("%1\u00B7%2").arg(runs_, balls);
  }
  update();
}

void LevelSegment::show_advice(const QString& words) {
  if (words == advice_) return;
  advice_ = words;
  tell();
}

void LevelSegment::tell() {
  setAccessibleName(advice_.isEmpty() ? spoken_ : QStringLiteral("%1; to win %2").arg(spoken_, advice_));
  setToolTip(advice_.isEmpty() ? sentence_ : QStringLiteral("%1\nTo win: %2").arg(sentence_, advice_));
}

QString LevelSegment::shown_answer() const {
  const QFontMetrics type(type_font(*this, TypeStep::small));
  return type.horizontalAdvance(answer_) + 2 * beside_answer <= width() ? answer_ : runs_;
}

void LevelSegment::paintEvent(QPaintEvent*) {
  const Theme& t = theme();
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const bool on = isChecked();
  const bool live = isEnabled();
  const QRectF frame = QRectF(rect()).adjusted(0.75, 0.75, -0.75, -0.75);
  const QColor fill = !on ? t.card : live ? t.accent : t.card_raised;
  const QColor ink = on && live ? t.on_accent : live ? t.ink : t.muted;
  painter.setBrush(underMouse() && live && !on ? t.card_raised : fill);
  if (hasFocus()) {
    painter.setPen(QPen(t.focus, 2));
  } else if (on) {
    painter.setPen(QPen(live ? t.accent : t.muted, 1.5));
  } else {
    painter.setPen(QPen(t.line, 1, live ? Qt::SolidLine : Qt::DashLine));
  }
  painter.drawRoundedRect(frame, 5, 5);
  painter.setPen(ink);
  painter.setFont(type_font(*this, TypeStep::strong));
  // Without an answer below it the level has the whole height.
  const QRect upper = rect().adjusted(0, low_ ? 0 : 2, 0, -height() / 2 + (low_ ? 2 : 1));
  painter.drawText(shown_answer().isEmpty() ? rect() : upper, Qt::AlignCenter, text());
  painter.setFont(type_font(*this, TypeStep::small));
  painter.setPen(on && live ? t.on_accent : t.muted);
  painter.drawText(rect().adjusted(0, height() / 2 - 1, 0, -2), Qt::AlignCenter, shown_answer());
}

LevelSegments::LevelSegments(const QString& name, QWidget* parent) : QWidget(parent) {
  setObjectName(name);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(3);
  auto* group = new QButtonGroup(this);
  for (int level = least_aggression; level <= most_aggression; ++level) {
    auto* segment = new LevelSegment(level);
    segment->setObjectName(QStringLiteral("%1_%2").arg(name).arg(level));
    segments_[static_cast<std::size_t>(level - 1)] = segment;
    group->addButton(segment, level);
    row->addWidget(segment, 1);
    // Assistive technology toggles without a click.
    connect(segment, &QRadioButton::toggled, this, [this, level](bool on) {
      if (on && !showing_ && chosen_) guarded([&] { chosen_(level); });
    });
  }
}

int LevelSegments::level() const {
  const auto on = std::find_if(segments_.begin(), segments_.end(), [](const auto* each) { return each->isChecked(); });
  return on == segments_.end() ? 0 : least_aggression + static_cast<int>(on - segments_.begin());
}

void LevelSegments::answer_figures(QWidget& window) {
  for (int level = least_aggression; level <= most_aggression; ++level) {
    auto* key = new QShortcut(QKeySequence(Qt::Key_0 + level), &window);
    key->setContext(Qt::WidgetWithChildrenShortcut);
    connect(key, &QShortcut::activated, this, [this, level] {
      if (segment(level)->isEnabled()) segment(level)->click();
    });
  }
}

void LevelSegments::set_low(bool low) {
  for (LevelSegment* segment : segments_) {
    segment->set_low(low);
    segment->updateGeometry();
  }
}

void LevelSegments::show_levels(const QString& whose, int level, const aggression_odds& odds, bool enabled) {
  showing_ = true;
  for (int at = least_aggression; at <= most_aggression; ++at) {
    LevelSegment& one = *segment(at);
    one.show_answer(whose, odds[static_cast<std::size_t>(at - 1)]);
    one.setEnabled(enabled);
    if (at == level) one.setChecked(true);
  }
  showing_ = false;
}

}  // namespace velorin
