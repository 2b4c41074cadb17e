// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/forms/forecast_bar.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QVariantAnimation>
#include <algorithm>
#include <thread>

#include "desktop/accessible_role.h"
#include "desktop/controls.h"
#include "desktop/line_chart.h"
#include "desktop/moment.h"
#include "desktop/shown_text.h"
#include "forecast/forecast_words.h"
#include "model/match_state.h"

namespace velorin {

namespace {

constexpr int move_time = 350;  ///< milliseconds

/// Two threads at most; one core is left to play.
int threads_behind_play() { return std::clamp(static_cast<int>(std::thread::hardware_concurrency()) - 1, 1, 2); }

QLabel* new_chance(const char* name) {
  QLabel* label = new_named_label(QString::fromLatin1(name), {}, TextRole::strong);
  label->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
  return label;
}

}  // namespace

/// The bar itself: the first side from the left, the second from the right, a tie between them.
class ForecastShares : public QWidget {
 public:
  ForecastShares() {
    setObjectName(QStringLiteral("forecast_shares"));
    setMinimumWidth(120);
    setFixedHeight(14);
    give_role(*this, QAccessible::Graphic);
    setAccessibleName(QStringLiteral("Forecast"));
    motion_.setDuration(move_time);
    motion_.setEasingCurve(QEasingCurve::OutCubic);
    connect(&motion_, &QVariantAnimation::valueChanged, this, [this](const QVariant& value) {
      const double part = value.toDouble();
      first_ = from_first_ + (to_first_ - from_first_) * part;
      second_ = from_second_ + (to_second_ - from_second_) * part;
      update();
    });
  }

  void show_chances(const forecast_answer& answer) {
    const bool fresh = !shown_;
    shown_ = true;
    sides_ = {shown(answer.first), shown(answer.second)};
    from_first_ = first_;
    from_second_ = second_;
    to_first_ = answer.win_first;
    to_second_ = answer.win_second;
    motion_.stop();
    if (!fresh && isVisible() && may_move(*this)) {
      motion_.setStartValue(0.0);
      motion_.setEndValue(1.0);
      motion_.start();
      return;
    }
    first_ = to_first_;
    second_ = to_second_;
    update();
  }
  /// Out of date: what is shown is muted, and said to be of the moment before.
  void set_stale(bool stale) {
    if (stale && !stale_ && shown_) setAccessibleName(QStringLiteral("Being reckoned. Before: ") + accessibleName());
    stale_ = stale;
    update();
  }
  void clear() {
    shown_ = false;
    motion_.stop();
    update();
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    const Theme& t = theme();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF frame = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(t.line);
    painter.setBrush(t.card_raised);
    painter.drawRoundedRect(frame, 5, 5);
    if (!shown_) return;
    const QRectF inner = frame.adjusted(1, 1, -1, -1);
    painter.setPen(Qt::NoPen);
    constexpr double muted = 0.35;
    if (stale_) painter.setOpacity(muted);
    const double left = inner.width() * std::clamp(first_, 0.0, 1.0);
    const double right = inner.width() * std::clamp(second_, 0.0, 1.0);
    painter.setBrush(chart_color(sides_, 0));
    painter.drawRoundedRect(QRectF(inner.left(), inner.top(), left, inner.height()), 4, 4);
    const QRectF other(inner.right() - right, inner.top(), right, inner.height());
    painter.setBrush(chart_color(sides_, 1));
    painter.drawRoundedRect(other, 4, 4);
    // The second side is hatched, so that no colour is needed to see where it begins.
    painter.setBrush(QBrush(t.card, Qt::BDiagPattern));
    painter.drawRoundedRect(other, 4, 4);
    painter.setPen(QPen(t.ink, 1));
    const double half = inner.left() + inner.width() / 2;
    painter.drawLine(QPointF(half, frame.top()), QPointF(half, frame.bottom()));
  }

 private:
  bool shown_ = false;
  bool stale_ = false;
  ChartSides sides_;
  double first_ = 0;
  double second_ = 0;
  double from_first_ = 0;
  double from_second_ = 0;
  double to_first_ = 0;
  double to_second_ = 0;
  QVariantAnimation motion_;
};

ForecastBar::ForecastBar(const match_state& match, QWidget* parent)
    : QWidget(parent),
      match_(match),
      first_(new_chance("forecast_first")),
      second_(new_chance("forecast_second")),
      shares_(new ForecastShares) {
  setObjectName(QStringLiteral("forecast_bar"));
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(24, 2, 24, 0);
  row->setSpacing(12);
  row->addWidget(first_);
  row->addWidget(shares_, 1);
  row->addWidget(second_);
  hide();
  forget();
}

ForecastBar::~ForecastBar() = default;

void ForecastBar::show_forecast(bool on) {
  setVisible(on);
  if (on) return refresh();
  worker_.reset();
  asked_.reset();
  forget();
}

ForecastBar::Standing ForecastBar::standing() const {
  int men = 0;
  for (const int man : {int(match_.striker), int(match_.non_striker), int(match_.bowler), int(match_.next_bowler)}) {
    men = 16 * men + man;
  }
  return {match_.deliveries.size(), match_.innings_number, static_cast<int>(match_.next_step),
          match_.score_wickets,     match_.over_no,        men};
}

void ForecastBar::refresh() {
  if (isHidden()) return;
  const Standing now = standing();
  if (asked_ == now) return;
  asked_ = now;
  if (!worker_) {
    worker_ = std::make_unique<forecast_worker>(forecast_worker::plan{.threads = threads_behind_play()},
                                                [this](std::uint64_t question, const forecast_answer& answer) {
                                                  QMetaObject::invokeMethod(
                                                      this, [this, question, answer] { take(question, answer); },
                                                      Qt::QueuedConnection);
                                                });
  }
  question_ = worker_->ask(match_);
  set_waiting(question_ != 0);
  if (!waiting_) {
    worker_->withdraw();
    forget();
  } else if (was_asked_) {
    was_asked_();
  }
}

void ForecastBar::set_waiting(bool waiting) {
  waiting_ = waiting;
  shares_->set_stale(waiting);
  first_->setEnabled(!waiting);
  second_->setEnabled(!waiting);
}

void ForecastBar::forget() {
  set_waiting(false);
  question_ = 0;
  answer_.reset();
  first_->setText(QStringLiteral("Forecast"));
  second_->clear();
  shares_->clear();
  shares_->setAccessibleName(QStringLiteral("No forecast"));
  if (answered_) answered_(nullptr);
}

void ForecastBar::take(std::uint64_t question, const forecast_answer& answer) {
  if (question != question_ || isHidden()) return;
  set_waiting(false);
  if (answer.runs == answer.undecided) return forget();
  answer_ = answer;
  first_->setText(shown(answer.first + ' ' + chance_words(answer.win_first)));
  second_->setText(shown(answer.second + ' ' + chance_words(answer.win_second)));
  shares_->show_chances(answer);
  const QString words = QStringLiteral("Chance of winning: %1").arg(shown(chances_sentence(answer)));
  shares_->setAccessibleName(words);
  setToolTip(QStringLiteral("%1\nFrom the rest of the match, played %2 times by the game's own rules")
                 .arg(words)
                 .arg(answer.runs));
  announce();
  if (answered_) answered_(&*answer_);
}

void ForecastBar::announce() {
  const std::pair<int, int> here{100 * match_.innings_number + match_.over_no, match_.score_wickets};
  if (here == told_) return;
  told_ = here;
  if (announced_) announced_(shares_->accessibleName());
  if (!QAccessible::isActive()) return;
  QAccessibleEvent event(shares_, QAccessible::Alert);
  QAccessible::updateAccessibility(&event);
}

}  // namespace velorin
