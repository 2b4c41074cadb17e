// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/forms/attack_list.h"

#include <QButtonGroup>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <iterator>

#include "console/console_view.h"
#include "desktop/controls.h"
#include "desktop/enlarged.h"
#include "desktop/program_end.h"
#include "desktop/shown_text.h"
#include "desktop/terms.h"
#include "desktop/theme.h"
#include "engine/forms/console_tables.h"
#include "model/match_state.h"

namespace velorin {

namespace {

constexpr int heading_height = 20;
constexpr int mark_width = 18;
constexpr int highest_row = 36;

/// A column of figures: how wide, its heading, and from which width of the list on it is shown.
struct FigureColumn {
  int width;
  const char* heading;
  const char* spoken;
  int from;
  QString (*text)(const attack_row&);
};

constexpr FigureColumn columns[] = {
    {32, "O", "Overs", 0, [](const attack_row& row) { return shown(row.overs); }},
    {22, "M", "Maidens", 290, [](const attack_row& row) { return shown(row.maidens); }},
    {30, "R", "Runs", 0, [](const attack_row& row) { return shown(row.runs); }},
    {22, "W", "Wickets", 0, [](const attack_row& row) { return shown(row.wickets); }},
    {34, "Econ", "Economy", 275, [](const attack_row& row) { return shown(row.economy); }},
    {30, "Left", "Overs left", 0, [](const attack_row& row) { return QString::number(row.overs_left); }},
};

/// Calls `visit` with the place of each column of figures, so many times as wide as usual, from the right; returns
/// where they begin.
template <class Visit>
int place_columns(const QRect& row, double factor, Visit visit) {
  int right = row.right() - static_cast<int>(6 * factor);
  for (auto column = std::rbegin(columns); column != std::rend(columns); ++column) {
    if (row.width() < column->from * factor) continue;
    const int wide = static_cast<int>(column->width * factor);
    visit(QRect(right - wide, row.top(), wide, row.height()), *column);
    right -= wide;
  }
  return right;
}

}  // namespace

AttackRow::AttackRow(QWidget* parent) : QRadioButton(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
}

QSize AttackRow::sizeHint() const { return {enlarged(*this, 240), enlarged(*this, 26)}; }
QSize AttackRow::minimumSizeHint() const { return {enlarged(*this, 200), enlarged(*this, 18)}; }

void AttackRow::show_man(const attack_row& row) {
  row_ = row;
  QString spoken = QStringLiteral("%1: %2 overs, %3 maidens, %4 runs, %5 wickets, %6 an over, %7 overs left")
                       .arg(shown(row.name), shown(row.overs), shown(row.maidens), shown(row.runs), shown(row.wickets),
                            shown(row.economy))
                       .arg(row.overs_left);
  if (row.bowls_now) spoken += QStringLiteral(", bowls this over");
  if (row.bowls_next) spoken += QStringLiteral(", bowls at the other end");
  if (spoken != accessibleName()) {
    setAccessibleName(spoken);
    setToolTip(spoken + QStringLiteral(".\nA press gives him this over where it is yours to give; "
                                       "P or a right click opens his profile."));
  }
  setEnabled(row.can_be_chosen);
  update();
}

void AttackRow::paintEvent(QPaintEvent*) {
  const Theme& t = theme();
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF frame = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
  painter.setPen(hasFocus() ? QPen(t.focus, 2) : QPen(Qt::NoPen));
  painter.setBrush(row_.bowls_now || (underMouse() && isEnabled()) ? QBrush(t.card_raised) : QBrush(Qt::NoBrush));
  painter.drawRoundedRect(frame, 4, 4);
  // Who bowls now has a ball, who bowls next a ring.
  const double factor = enlargement(*this);
  const double ring = 4 * factor;
  const QPointF mark(mark_width * factor / 2 + 1, height() / 2.0);
  if (row_.bowls_now || row_.bowls_next) {
    painter.setPen(QPen(t.ball, 2));
    painter.setBrush(row_.bowls_now ? QBrush(t.ball) : QBrush(Qt::NoBrush));
    painter.drawEllipse(mark, ring, ring);
  } else if (isEnabled()) {
    painter.setPen(QPen(t.line, 1.5));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(mark, ring, ring);
  }
  const bool spent = row_.overs_left == 0;
  const QColor ink = spent ? t.muted : t.ink;
  painter.setFont(type_font(TypeStep::body, factor));
  painter.setPen(ink);
  const int right = place_columns(rect(), factor, [&](const QRect& place, const FigureColumn& column) {
    painter.drawText(place, Qt::AlignRight | Qt::AlignVCenter, column.text(row_));
  });
  const int left = enlarged(*this, mark_width + 2);
  const QRect room(left, 0, right - left - 2, height());
  const auto [name, type] = fitting_name(room.width());
  painter.setFont(type);
  painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter, name);
}

std::pair<QString, QFont> AttackRow::fitting_name(int width) const {
  const QFont usual = type_font(*this, TypeStep::body);
  const QFont type = row_.bowls_now ? type_font(*this, TypeStep::strong) : usual;
  const QString brief = shown(shortened_name(row_.name));
  for (const auto& [name, font] :
       {std::pair(shown(row_.name), type), std::pair(brief, type), std::pair(brief, usual)}) {
    if (QFontMetrics(font).horizontalAdvance(name) <= width) return {name, font};
  }
  return {QFontMetrics(usual).elidedText(brief, Qt::ElideRight, width), usual};
}

QString AttackRow::shown_name() const {
  const double factor = enlargement(*this);
  const int right = place_columns(rect(), factor, [](const QRect&, const FigureColumn&) {});
  return fitting_name(right - enlarged(*this, mark_width + 2) - 2).first;
}

AttackList::AttackList(const match_state& match, QWidget* parent)
    : QWidget(parent), group_(new QButtonGroup(this)), match_(match) {
  setObjectName(QStringLiteral("attack"));
  auto* list = new QVBoxLayout(this);
  list->setContentsMargins(0, heading_height, 0, 0);
  list->setSpacing(0);
  title_ = new_label(QStringLiteral("Bowlers"), TextRole::small_muted, this);
  for (const FigureColumn& column : columns) {
    QLabel* heading = new_label(QString::fromLatin1(column.heading), TextRole::small_muted, this);
    heading->setToolTip(meaning_of(QString::fromLatin1(column.spoken)));
    heading->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    headings_.push_back(heading);
  }
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    auto* row = new AttackRow;
    row->setObjectName(QStringLiteral("attack_%1").arg(i + 1));
    rows_[i] = row;
    group_->addButton(row);
    list->addWidget(row);
    // Assistive technology toggles without a click.
    connect(row, &QRadioButton::toggled, this, [this, row](bool on) {
      if (on && !showing_ && chosen_) guarded([&] { chosen_(row->position()); });
    });
  }
  fit_enlargement();
}

void AttackList::fit_enlargement() {
  const int head = enlarged(*this, heading_height);
  const int highest = enlarged(*this, highest_row);
  layout()->setContentsMargins(0, head, 0, 0);
  setMaximumHeight(head + (men_in_eleven - 1) * highest);
  for (AttackRow* row : rows_) row->setMaximumHeight(highest);
  place_headings();
}

void AttackList::refresh() {
  showing_ = true;
  const std::vector<attack_row> attack = view_attack(match_);
  group_->setExclusive(false);
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    rows_[i]->setVisible(i < attack.size());
    if (i >= attack.size()) continue;
    rows_[i]->show_man(attack[i]);
    rows_[i]->setChecked(attack[i].bowls_now);
  }
  group_->setExclusive(true);
  showing_ = false;
}

std::vector<attack_row> AttackList::men() const {
  std::vector<attack_row> men;
  for (const AttackRow* row : rows_) {
    if (row->position() != 0) men.push_back(row->man());
  }
  return men;
}

void AttackList::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  place_headings();
}

void AttackList::place_headings() {
  const double factor = enlargement(*this);
  const int tall = enlarged(*this, heading_height);
  const int left = enlarged(*this, mark_width + 2);
  const QRect head(0, 0, width(), tall);
  std::array<bool, std::size(columns)> placed{};
  const int right = place_columns(head, factor, [&](const QRect& place, const FigureColumn& column) {
    const auto at = static_cast<std::size_t>(&column - columns);
    headings_[at]->setGeometry(place);
    placed[at] = true;
  });
  // The figure at its right stands clear of the left half of its own place.
  title_->setGeometry(left, 0, std::max(right - left, title_->sizeHint().width()), tall);
  // Last, since a label that comes or goes may change the width, and all are placed anew meanwhile.
  for (std::size_t at = 0; at < headings_.size(); ++at) {
    if (headings_[at]->isHidden() == placed[at]) headings_[at]->setVisible(placed[at]);
  }
}

void AttackList::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy)) {
    QGuiApplication::clipboard()->setText(table_text(attack_table(match_)));
    return;
  }
  for (const AttackRow* row : rows_) {
    if (event->key() == Qt::Key_P && row->hasFocus() && profile_) {
      guarded([&] { profile_(row->position()); });
      return;
    }
  }
  QWidget::keyPressEvent(event);
}

void AttackList::contextMenuEvent(QContextMenuEvent* event) {
  for (const AttackRow* row : rows_) {
    if (!row->isVisible() || !row->geometry().contains(event->pos()) || !profile_) continue;
    guarded([&] { profile_(row->position()); });
    return;
  }
}

}  // namespace velorin
