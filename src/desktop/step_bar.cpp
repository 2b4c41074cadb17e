// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/step_bar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/controls.h"
#include "desktop/crest.h"
#include "desktop/elided_label.h"
#include "desktop/enlarged.h"
#include "desktop/theme.h"

namespace velorin {

namespace {

/// The number of a step in a disc, ticked once it is done.
class StepDisc : public QWidget {
 public:
  enum class State { done, current, ahead };

  StepDisc(int number, State state) : number_(number), state_(state) { setFixedSize(28, 28); }

 protected:
  void paintEvent(QPaintEvent*) override {
    const Theme& t = theme();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double factor = enlargement(*this);
    painter.scale(factor, factor);
    const QRectF disc = QRectF(QPointF(), QSizeF(size()) / factor).adjusted(1.5, 1.5, -1.5, -1.5);
    painter.setPen(QPen(state_ == State::ahead ? t.muted : t.accent, 2));
    painter.setBrush(state_ == State::current ? QBrush(t.accent) : QBrush(Qt::NoBrush));
    painter.drawEllipse(disc);
    if (state_ == State::done) {
      painter.setPen(QPen(t.accent, 2.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
      const QPointF tick[] = {{9, 14.5}, {12.5, 18}, {19, 10.5}};
      painter.drawPolyline(tick, 3);
      return;
    }
    painter.setPen(state_ == State::current ? t.on_accent : t.muted);
    painter.setFont(type_font(TypeStep::strong));
    painter.drawText(disc, Qt::AlignCenter, QString::number(number_));
  }

 private:
  int number_;
  State state_;
};

}  // namespace

StepBar::StepBar(const std::vector<FlowStep>& steps, int current, QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("steps"));
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(24, 10, 24, 10);
  row->setSpacing(24);
  fit_by_its_owner(*row);
  QStringList spoken;
  for (std::size_t i = 0; i < steps.size(); ++i) {
    const int number = static_cast<int>(i) + 1;
    const auto state = static_cast<int>(i) < current    ? StepDisc::State::done
                       : static_cast<int>(i) == current ? StepDisc::State::current
                                                        : StepDisc::State::ahead;
    auto* step = new QHBoxLayout;
    step->setSpacing(8);
    step->addWidget(new StepDisc(number, state), 0, Qt::AlignVCenter);
    auto* texts = new QVBoxLayout;
    texts->setSpacing(0);
    texts->addWidget(new_named_label(QStringLiteral("step_%1").arg(number), steps[i].name,
                                     state == StepDisc::State::ahead ? TextRole::muted : TextRole::strong));
    const QStringList lines = steps[i].chosen.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (qsizetype line = 0; line < lines.size(); ++line) {
      auto* chosen = new ElidedLabel(QStringLiteral("chosen_%1_%2").arg(number).arg(line + 1));
      chosen->setProperty("role", QStringLiteral("muted"));
      chosen->setFont(type_font(TypeStep::small));
      chosen->setToolTip(lines[line]);
      chosen->setText(lines[line]);
      texts->addWidget(chosen);
    }
    step->addLayout(texts, 1);
    for (const QString& team : steps[i].teams) {
      auto* crest = new CrestView(QStringLiteral("step_crest_%1").arg(step->count() - 1), 28);
      crest->show_team(team);
      step->addWidget(crest, 0, Qt::AlignVCenter);
    }
    // Where something was chosen there is more to be read.
    row->addLayout(step, steps[i].chosen.isEmpty() ? 2 : 3);
    if (!steps[i].chosen.isEmpty())
      spoken << QStringLiteral("%1: %2").arg(steps[i].name,
                                             QString(steps[i].chosen).replace(QLatin1Char('\n'), QLatin1String(", ")));
  }
  setAccessibleName(QStringLiteral("Step %1 of %2, %3. %4")
                        .arg(current + 1)
                        .arg(steps.size())
                        .arg(steps[static_cast<std::size_t>(current)].name, spoken.join(QStringLiteral(". ")))
                        .trimmed());
}

void StepBar::show_compact(bool compact) {
  compact_ = compact;
  set_margins();
}

void StepBar::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  set_margins();
}

void StepBar::set_margins() {
  const auto* body = parentWidget()->findChild<QWidget*>(QStringLiteral("middle"));
  const int beside = body == nullptr ? 0 : std::max(0, (width() - body->maximumWidth()) / 2);
  const int above = enlarged(*this, compact_ ? 4 : 10);
  const int around = beside + enlarged(*this, 24);
  layout()->setContentsMargins(around, above, around, above);
}

}  // namespace velorin
