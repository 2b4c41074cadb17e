// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/compact_look.h"

#include <QBoxLayout>
#include <QLabel>
#include <algorithm>

#include "desktop/crest.h"
#include "desktop/ground_picture.h"
#include "desktop/step_bar.h"
#include "desktop/theme.h"

namespace velorin {

namespace {

void show_head(const FormParts& parts, bool compact, int width) {
  constexpr int beside_lines = 120;  // pixels, of the margins and a crest
  parts.heading->setFont(type_font(compact ? TypeStep::heading : TypeStep::title));
  const int wanted = parts.heading->sizeHint().width() + parts.subheading->sizeHint().width() + beside_lines;
  const bool one_line = compact && wanted <= width;
  parts.lines->setDirection(one_line ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
  parts.lines->setStretch(1, one_line ? 1 : 0);
  parts.lines->setSpacing(one_line ? 16 : compact ? 0 : 4);
  parts.lines->setContentsMargins(24, compact ? 7 : 16, 24, compact ? 7 : 16);
  for (CrestView* crest : parts.head->findChildren<CrestView*>()) crest->set_size(compact ? 28 : head_crest);
  for (GroundPicture* picture : parts.head->findChildren<GroundPicture*>()) picture->setVisible(!compact);
}

}  // namespace

void show_compact(const FormParts& parts, bool compact, int width) {
  show_head(parts, compact, width);
  const QMargins& usual = parts.around_body;
  parts.body->setContentsMargins(usual.left(), compact ? std::min(8, usual.top()) : usual.top(), usual.right(),
                                 compact ? std::min(8, usual.bottom()) : usual.bottom());
  parts.foot->layout()->setContentsMargins(24, compact ? 6 : 12, 24, compact ? 6 : 12);
  for (StepBar* steps : parts.head->parentWidget()->findChildren<StepBar*>()) steps->show_compact(compact);
}

}  // namespace velorin
