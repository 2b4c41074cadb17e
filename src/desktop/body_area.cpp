// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/body_area.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLayout>
#include <QResizeEvent>
#include <QScrollBar>
#include <algorithm>

namespace velorin {

/// Places the content itself: a layout would let the area ask for the height that the content would like to have, and
/// scroll where the least height fits.
class BodyArea::Sheet : public QWidget {
 public:
  Sheet(BodyArea& area, QWidget* content) : area_(area), content_(content) { content->setParent(this); }

 protected:
  bool event(QEvent* event) override {
    if (event->type() == QEvent::LayoutRequest) area_.fit();
    return QWidget::event(event);
  }
  void resizeEvent(QResizeEvent* event) override {
    // A bar that has come takes width, and with less of it the content may need more height.
    if (event->size().width() != event->oldSize().width()) area_.fit();
    const int wide = std::min(width(), content_->maximumWidth());
    content_->setGeometry((width() - wide) / 2, 0, wide, height());
  }

 private:
  BodyArea& area_;
  QWidget* content_;
};

BodyArea::BodyArea(QWidget* content, QWidget* parent) : QScrollArea(parent), content_(content) {
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::NoFocus);
  setWidgetResizable(true);
  setWidget(new Sheet(*this, content));
  // The tab key alone scrolls by itself.
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
    if (now != nullptr && now != widget() && widget()->isAncestorOf(now)) ensureWidgetVisible(now, 8, 8);
  });
}

void BodyArea::set_room(QSize room) {
  room_ = room;
  fit();
}

void BodyArea::fit() {
  widget()->setMinimumSize(content_->minimumSizeHint().width(), needed_height(viewport()->width()));
  updateGeometry();
}

int BodyArea::bar_width() const { return verticalScrollBar()->sizeHint().width(); }

int BodyArea::needed_height(int width) const {
  const QLayout& layout = *content_->layout();
  const int wide = std::min(std::max(width, layout.totalMinimumSize().width()), content_->maximumWidth());
  return layout.hasHeightForWidth() ? layout.totalMinimumHeightForWidth(wide) : layout.totalMinimumSize().height();
}

int BodyArea::wanted_height(int width) const {
  const QLayout& layout = *content_->layout();
  const int wide = std::min(std::max(width, layout.totalMinimumSize().width()), content_->maximumWidth());
  return layout.hasHeightForWidth() ? layout.totalHeightForWidth(wide) : layout.totalSizeHint().height();
}

QSize BodyArea::sizeHint() const { return content_->sizeHint().expandedTo(minimumSizeHint()); }

QSize BodyArea::minimumSizeHint() const {
  QSize least = content_->minimumSizeHint().expandedTo(content_->minimumSize());
  const bool scrolls =
      least.height() > room_.height() || (isVisible() && needed_height(viewport()->width()) > height());
  if (scrolls) least.rwidth() += bar_width();
  return least.boundedTo(room_);
}

bool BodyArea::hasHeightForWidth() const { return content_->layout()->hasHeightForWidth(); }

int BodyArea::heightForWidth(int width) const { return std::min(needed_height(width), room_.height()); }

bool BodyArea::wants_room() const { return height() < room_.height() && needed_height(viewport()->width()) > height(); }

bool BodyArea::turn_page(bool down) {
  if (verticalScrollBar()->maximum() == 0) return false;
  verticalScrollBar()->triggerAction(down ? QAbstractSlider::SliderPageStepAdd : QAbstractSlider::SliderPageStepSub);
  return true;
}

void BodyArea::keyPressEvent(QKeyEvent* event) { event->ignore(); }  // the form turns pages; the arrows are its own

void BodyArea::resizeEvent(QResizeEvent* event) {
  fit();
  QScrollArea::resizeEvent(event);
}

}  // namespace velorin
