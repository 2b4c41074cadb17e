// SPDX-License-Identifier: GPL-3.0-or-later
#include "competitions/forms/match_progress_window.h"

#include <QCoreApplication>
#include <QPainter>
#include <QPainterPath>
#include <QVBoxLayout>

#include "competitions/match_entry.h"
#include "desktop/shown_text.h"
#include "desktop/theme.h"

namespace velorin {

namespace {
constexpr double frame_length = 4935;  // display units
}  // namespace

/// The bar in its frame. What is longer than the frame is not painted.
class MatchProgressWindow::Bar : public QWidget {
 public:
  Bar() {
    setObjectName(QStringLiteral("bar"));
    setMinimumSize(360, 28);
  }
  void set_progress(const match_progress& shown_progress) {
    progress_ = shown_progress;
    setAccessibleName(shown(progress_.title()));
    update();
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    const Theme& t = theme();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath frame;
    frame.addRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 6, 6);
    painter.fillPath(frame, t.card);
    const double unit = width() / frame_length;
    painter.setClipPath(frame);
    painter.fillRect(QRectF(match_progress::bar_position * unit, 0, progress_.bar_length() * unit, height()), t.accent);
    painter.setClipping(false);
    painter.setPen(t.muted);
    painter.drawPath(frame);
  }

 private:
  match_progress progress_;
};

MatchProgressWindow::MatchProgressWindow(QWidget* parent)
    : Form(QStringLiteral("Progressbar"), Dismissal::refused, parent), bar_(new Bar) {
  stand_as(Place::sheet);
  setModal(false);
  setAttribute(Qt::WA_ShowWithoutActivating);
  setFocusPolicy(Qt::NoFocus);
  body()->addWidget(bar_);
}

void MatchProgressWindow::show_over(int over) {
  match_progress progress;
  progress.over = over;
  set_title(shown(progress.title()), shown(progress.title()));
  bar_->set_progress(progress);
  if (!isVisible()) show();
  // The match holds the thread: the window is painted in between, but no more often than the eye can follow.
  constexpr int frame = 16;
  if (since_painted_.isValid() && since_painted_.elapsed() < frame) return;
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  since_painted_.start();
}

}  // namespace velorin
