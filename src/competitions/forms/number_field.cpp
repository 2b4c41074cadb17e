// SPDX-License-Identifier: GPL-3.0-or-later
#include "competitions/forms/number_field.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QSignalBlocker>

#include "desktop/program_end.h"
#include "desktop/shown_text.h"
#include "desktop/theme.h"

namespace velorin {

Stepper::Stepper(const QString& name, int lowest, int highest, QWidget* parent) : QAbstractSlider(parent) {
  setObjectName(name);
  setOrientation(Qt::Vertical);
  setRange(lowest, highest);
  setSingleStep(1);
  setPageStep(1);
  setFocusPolicy(Qt::NoFocus);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  setToolTip(QStringLiteral("Up, Down"));
}

void Stepper::paintEvent(QPaintEvent*) {
  const Theme& t = theme();
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(t.line);
  painter.setBrush(t.card);
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 6, 6);
  const double middle = width() / 2.0;
  const auto arrow = [&](double y, double rise, bool able) {
    if (!able && t.high_contrast) return;
    painter.setPen(QPen(able ? t.ink : t.line, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(QPolygonF({{middle - 4, y}, {middle, y - rise}, {middle + 4, y}}));
  };
  arrow(height() * 0.36, 4, value() < maximum());
  arrow(height() * 0.64, -4, value() > minimum());
}

void Stepper::mousePressEvent(QMouseEvent* event) {
  const bool up = event->position().y() < height() / 2.0;
  triggerAction(up ? SliderSingleStepAdd : SliderSingleStepSub);
}

NumberField::NumberField(const QString& name, const std::string& text, int highest,
                         std::function<void(std::string)> typed, std::function<std::string(int)> stepped,
                         QWidget* parent)
    : QWidget(parent),
      text_(new QLineEdit(shown(text))),
      stepper_(new Stepper(name + QStringLiteral("_stepper"), 1, highest)) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(4);
  text_->setObjectName(name);
  text_->setFixedWidth(72);
  text_->setAlignment(Qt::AlignRight);
  text_->installEventFilter(this);
  row->addWidget(text_);
  row->addWidget(stepper_);
  connect(text_, &QLineEdit::textChanged, this, [this, typed = std::move(typed)](const QString& now) {
    guarded([&] { typed(core_text(now)); });
    const QSignalBlocker quiet(stepper_);
    stepper_->setValue(now.trimmed().toInt());
    stepper_->update();
  });
  connect(stepper_, &QAbstractSlider::valueChanged, this, [this, stepped = std::move(stepped)](int value) {
    guarded([&] { text_->setText(shown(stepped(value))); });
    stepper_->update();
  });
  setFocusProxy(text_);
}

bool NumberField::eventFilter(QObject* watched, QEvent* event) {
  if (watched == text_ && event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Up || key == Qt::Key_Down) {
      stepper_->triggerAction(key == Qt::Key_Up ? QAbstractSlider::SliderSingleStepAdd
                                                : QAbstractSlider::SliderSingleStepSub);
      return true;
    }
  }
  return QWidget::eventFilter(watched, event);
}

}  // namespace velorin
