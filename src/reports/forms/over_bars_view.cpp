// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/forms/over_bars_view.h"

#include <QHelpEvent>
#include <QLabel>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <string_view>

#include "desktop/controls.h"
#include "desktop/enlarged.h"
#include "desktop/line_chart.h"
#include "desktop/shown_text.h"
#include "desktop/theme.h"
#include "model/rules.h"
#include "model/texts.h"
#include "reports/overs_graph.h"

namespace velorin {

namespace {

// Pixels around the plots: caption and marks above, the overs below, the runs at the left, the rate at the right; and
// what is between the plots, for the caption of the lower one.
constexpr int above = 56;
constexpr int below = 48;
constexpr int left = 64;
constexpr int right = 88;
constexpr int between = 32;

std::size_t at(int index) { return static_cast<std::size_t>(index); }

QString over_words(const overs_graph_form& form, int half, int over) {
  const OverFigures figures = over_figures(form, half, over);
  return QStringLiteral("Over %1: %2%3")
      .arg(over)
      .arg(figures.runs == 1 ? QStringLiteral("1 run") : QStringLiteral("%1 runs").arg(figures.runs),
           figures.wicket ? QStringLiteral(", wicket") : QString());
}

/// A title that is told in spaced capitals, as a word.
QString axis_title(std::string_view told) {
  QString word = shown(told).remove(u' ').toLower();
  word[0] = word[0].toUpper();
  return word;
}

QString described(const overs_graph_form& form) {
  QStringList halves;
  for (const int half : {0, 1}) {
    QStringList overs;
    for (int over = 1; over <= form.overs[at(half)]; ++over) overs << over_words(form, half, over);
    if (overs.isEmpty()) overs << QStringLiteral("no over");
    halves << QStringLiteral("%1, %2 an over. %3.")
                  .arg(shown(form.captions[at(half)]), shown(number_text(form.rate[at(half)])),
                       overs.join(QStringLiteral("; ")));
  }
  return halves.join(QLatin1Char(' '));
}

}  // namespace

ChartSides sides_of(const overs_graph_form& form) { return {shown(form.teams[0]), shown(form.teams[1])}; }

OverFigures over_figures(const overs_graph_form& form, int half, int over) {
  const std::size_t place = at(overs_graph_form::place(half, over));
  return {form.bars[place].height / overs_graph_form::units_a_run, form.wicket_marks[place]};
}

OverBarsView::OverBarsView(const overs_graph_form& form, QWidget* parent) : QWidget(parent), form_(form) {
  setObjectName(QStringLiteral("bars"));
  setFocusPolicy(Qt::TabFocus);
  setAccessibleName(QStringLiteral("Runs of each over"));
  setAccessibleDescription(described(form_));
  for (const over_bar& bar : form_.bars) {
    if (bar.visible) top_units_ = std::min<double>(top_units_, bar.top);
  }
  for (const int half : {0, 1}) {
    top_units_ = std::min(top_units_, form_.rate_line_heights[at(half)]);
    captions_[at(half)] = new_named_label(QStringLiteral("caption_%1").arg(half), shown(form_.captions[at(half)]),
                                          TextRole::heading, this);
  }
}

double OverBarsView::pitch() const { return (width() - left - right) / double{overs_of_innings}; }

double OverBarsView::y_of(int half, double units) const {
  const double scale = (height() - above - between - below) / (overs_graph_form::base_line[1] - top_units_);
  return above + half * between + (units - top_units_) * scale;
}

double OverBarsView::x_of(int over) const { return left + (over - 0.5) * pitch(); }

QRectF OverBarsView::bar_of(int half, int over) const {
  const over_bar& bar = form_.bars[at(overs_graph_form::place(half, over))];
  const double wide = std::max(2.0, pitch() * 0.72);
  const double top = y_of(half, overs_graph_form::base_line[at(half)] - bar.height);
  return {x_of(over) - wide / 2, top, wide, y_of(half, overs_graph_form::base_line[at(half)]) - top};
}

QRectF OverBarsView::mark_of(int half, int over) const {
  const double wide = std::clamp(pitch() * 0.9, 12.0, 20.0);
  return {x_of(over) - wide / 2, bar_of(half, over).top() - wide - 3, wide, wide};
}

/// Above the plot, at its left; that of the lower one below the overs of the upper.
void OverBarsView::place_label(int half) {
  QLabel* label = captions_[at(half)];
  constexpr int overs_row = 24;
  const int top = half == 0 ? 10 : static_cast<int>(y_of(0, overs_graph_form::base_line[0])) + overs_row;
  label->setGeometry(16, top, width() - 32, label->fontMetrics().height());
}

void OverBarsView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  for (const int half : {0, 1}) place_label(half);
}

void OverBarsView::paint_axes(QPainter& painter, int half) const {
  const Theme& t = theme();
  const double base = overs_graph_form::base_line[at(half)];
  const double end = width() - right;
  painter.setFont(type_font(*this, TypeStep::small));
  for (const int runs : overs_graph_form::runs_marks) {
    const double y = y_of(half, base - runs * overs_graph_form::units_a_run);
    painter.setPen(QPen(t.line, 1, t.high_contrast ? Qt::DotLine : Qt::SolidLine));
    painter.drawLine(QPointF(left, y), QPointF(end, y));
    painter.setPen(t.muted);
    painter.drawText(QRectF(0, y - 12, left - 8, 24), Qt::AlignRight | Qt::AlignVCenter, QString::number(runs));
  }
  const double y = y_of(half, base);
  painter.setPen(QPen(t.muted, 1.5));
  painter.drawLine(QPointF(left, y), QPointF(end, y));
  for (const int over : overs_graph_form::overs_marks) {
    painter.drawLine(QPointF(x_of(over), y), QPointF(x_of(over), y + 4));
    painter.drawText(QRectF(x_of(over) - 20, y + 3, 40, 18), Qt::AlignCenter, QString::number(over));
  }
  painter.save();
  painter.translate(16, y_of(half, base - 10.0 * overs_graph_form::units_a_run));
  painter.rotate(-90);
  painter.drawText(QRectF(-80, -12, 160, 24), Qt::AlignCenter, axis_title(overs_graph_form::runs_axis));
  painter.restore();
  if (half == 1) {
    painter.drawText(QRectF(left, y + 22, end - left, 20), Qt::AlignCenter, axis_title(overs_graph_form::overs_axis));
  }
}

void OverBarsView::paint_bars(QPainter& painter, int half) const {
  const QColor color = chart_color(sides_of(form_), form_.side[at(half)]);
  painter.setPen(QPen(theme().dark ? color.lighter(125) : color.darker(135), 1));
  painter.setBrush(color);
  for (int over = 1; over <= overs_of_innings; ++over) {
    if (form_.bars[at(overs_graph_form::place(half, over))].visible) painter.drawRect(bar_of(half, over));
  }
}

void OverBarsView::paint_marks(QPainter& painter, int half) const {
  const Theme& t = theme();
  QFont letter = type_font(*this, TypeStep::small);
  letter.setWeight(QFont::Bold);
  for (int over = 1; over <= overs_of_innings; ++over) {
    if (!form_.wicket_marks[at(overs_graph_form::place(half, over))]) continue;
    const QRectF mark = mark_of(half, over);
    painter.setPen(QPen(t.card, 1));
    painter.setBrush(t.ball);
    painter.drawEllipse(mark);
    letter.setPixelSize(static_cast<int>(mark.height() * 0.72));
    painter.setFont(letter);
    painter.setPen(t.on_ball);
    painter.drawText(mark, Qt::AlignCenter, QStringLiteral("W"));
  }
}

void OverBarsView::paint_rate(QPainter& painter, int half) const {
  const Theme& t = theme();
  const double y = y_of(half, form_.rate_line_heights[at(half)]);
  const double end = width() - right;
  painter.setPen(QPen(t.card, 3));
  painter.drawLine(QPointF(left, y), QPointF(end, y));
  painter.setPen(QPen(t.ink, 1.5, Qt::DashLine));
  painter.drawLine(QPointF(left, y), QPointF(end + 16, y));
  painter.setFont(type_font(*this, TypeStep::strong));
  painter.drawText(QRectF(end + 24, y - 12, right - 24, 24), Qt::AlignLeft | Qt::AlignVCenter,
                   shown(number_text(form_.rate[at(half)])));
}

void OverBarsView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const Theme& t = theme();
  painter.setPen(hasFocus() ? QPen(t.focus, 2) : QPen(t.line, 1));
  painter.setBrush(t.card);
  painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 8, 8);
  for (const int half : {0, 1}) paint_axes(painter, half);
  for (const int half : {0, 1}) paint_bars(painter, half);
  for (const int half : {0, 1}) paint_rate(painter, half);
  for (const int half : {0, 1}) paint_marks(painter, half);
}

bool OverBarsView::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QWidget::event(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  const int over = static_cast<int>((help->pos().x() - left) / pitch()) + 1;
  const int half = help->pos().y() < y_of(0, overs_graph_form::base_line[0]) ? 0 : 1;
  if (help->pos().x() >= left && over <= form_.overs[at(half)]) {
    QToolTip::showText(help->globalPos(), over_words(form_, half, over), this);
  } else {
    QToolTip::hideText();
  }
  return true;
}

}  // namespace velorin
