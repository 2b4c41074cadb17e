// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/forms/toss_window.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <utility>

#include "desktop/accessible_role.h"
#include "desktop/controls.h"
#include "desktop/crest.h"
#include "desktop/ground_picture.h"
#include "desktop/sheet_adviser.h"
#include "desktop/shown_text.h"
#include "desktop/theme.h"
#include "forecast/computers_choice.h"
#include "model/match_state.h"
#include "setup/forms/leaving.h"
#include "setup/forms/toss_adviser.h"
#include "setup/toss.h"

namespace velorin {

namespace {

/// The coin in the air.
class Coin : public QWidget {
 public:
  Coin() {
    give_role(*this, QAccessible::Graphic);
    setAccessibleName(QStringLiteral("The coin"));
  }

  QSize sizeHint() const override { return {160, 144}; }
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent*) override {
    const Theme& t = theme();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPointF middle = QRectF(rect()).center();
    painter.setPen(QPen(t.line, 3));
    painter.setBrush(t.willow);
    painter.translate(middle);
    painter.scale(1.5, 1.5);
    painter.drawEllipse(QPointF(), 44, 44);
    painter.setPen(QPen(t.card, 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(QPointF(), 36, 36);
    // Three stumps and their bails.
    painter.setPen(QPen(t.card, 4, Qt::SolidLine, Qt::RoundCap));
    for (const double x : {-11.0, 0.0, 11.0}) {
      painter.drawLine(QPointF(x, -14), QPointF(x, 20));
    }
    painter.drawLine(QPointF(-11, -20), QPointF(11, -20));
  }
};

}  // namespace

TossWindow::TossWindow(const match_state& match, toss_form& form, QWidget* parent)
    : Form(QStringLiteral("toss"), Dismissal::refused, parent), match_(match), form_(form) {
  name_heading(QStringLiteral("headline"));
  body()->setContentsMargins(0, 0, 0, 0);
  auto* ground = new GroundPicture(QStringLiteral("toss_ground"));
  ground->set_scene({.country = shown(match.ground.country), .minutes = 12 * 60, .weather = match.weather});
  QFrame* card = new_card();
  card->setMaximumWidth(640);
  card_rows(card)->setContentsMargins(32, 24, 32, 24);
  card_rows(card)->setSpacing(24);
  stages_ = new QStackedWidget;
  stages_->addWidget(new_coin_stage(match));
  stages_->addWidget(new_decision_stage());
  card_rows(card)->addWidget(stages_);
  choices_ = new QHBoxLayout;
  choices_->setSpacing(16);
  choices_->addStretch(1);
  heads_ = add_choice("heads", "Heads", u'H', [this] { form_.call_coin(0); });
  tails_ = add_choice("tails", "Tails", u'T', [this] { form_.call_coin(1); });
  bat_ = add_choice("bat", "Bat", u'B', [this] { form_.choose_to_bat(); });
  bowl_ = add_choice("bowl", "Bowl", u'w', [this] { form_.choose_to_bowl(); });
  choices_->addStretch(1);
  card_rows(card)->addLayout(choices_);
  rows_ = card_rows(card);
  auto* middle = new QHBoxLayout;
  middle->addStretch(1);
  middle->addWidget(card, 8);
  middle->addStretch(1);
  auto* rows = new QVBoxLayout(ground);
  rows->addStretch(1);
  rows->addLayout(middle);
  rows->addStretch(1);
  body()->addWidget(ground, 1);
  show_stage();
  let_leave(*this, form_);
}

/// The two sides, with the coin between them.
QWidget* TossWindow::new_coin_stage(const match_state& match) {
  auto* stage = new QWidget;
  auto* row = new QHBoxLayout(stage);
  row->setContentsMargins(0, 0, 0, 0);
  const Side first = add_side(*row, "first", {});
  row->addWidget(new Coin, 2);
  const Side second = add_side(*row, "second", {});
  first.show(shown(match.team1_name));
  second.show(shown(match.team2_name));
  return stage;
}

/// The side that decides, and the other one.
QWidget* TossWindow::new_decision_stage() {
  auto* stage = new QWidget;
  auto* row = new QHBoxLayout(stage);
  row->setContentsMargins(0, 0, 0, 0);
  deciding_ = add_side(*row, "deciding", QStringLiteral("To bat or to bowl"));
  other_ = add_side(*row, "other", QStringLiteral("The other side"));
  return stage;
}

TossWindow::Side TossWindow::add_side(QHBoxLayout& row, const char* whose, const QString& caption) {
  const QString name = QString::fromLatin1(whose);
  auto* rows = new QVBoxLayout;
  rows->setSpacing(8);
  Side side{new CrestView(name + QStringLiteral("_crest"), 96),
            new_named_label(name + QStringLiteral("_line"), {}, TextRole::heading)};
  rows->addStretch(1);
  rows->addWidget(side.crest, 0, Qt::AlignHCenter);
  rows->addWidget(side.name, 0, Qt::AlignHCenter);
  if (!caption.isEmpty()) rows->addWidget(new_label(caption, TextRole::muted), 0, Qt::AlignHCenter);
  rows->addStretch(1);
  row.addLayout(rows, 3);
  return side;
}

void TossWindow::Side::show(const QString& team) const {
  crest->show_team(team);
  name->setText(team);
}

QPushButton* TossWindow::add_choice(const char* name, const char* caption, char16_t mnemonic,
                                    std::function<void()> chosen) {
  const Act act{.caption = QString::fromLatin1(caption), .mnemonic = mnemonic};
  QPushButton* button = new_button(QString::fromLatin1(name), act, [this, chosen = std::move(chosen)] {
    chosen();
    show_stage();
  });
  button->setMinimumSize(128, 44);
  choices_->addWidget(button);
  // Return presses the one of two that has the keyboard.
  button->setAutoDefault(true);
  return button;
}

void TossWindow::prefer(QPushButton& choice) {
  choice.setFocus();
  choice.setDefault(true);
}

void TossWindow::add_adviser() {
  if (std::exchange(advised_, true)) return;
  auto* advice = new_named_label(QStringLiteral("advice"), {}, TextRole::muted);
  advice->setToolTip(
      QStringLiteral("The deciding side's chance of winning under each choice, from the match played many times, "
                     "with its error"));
  advice->setAlignment(Qt::AlignHCenter);
  advice->hide();
  rows_->addWidget(advice);
  SheetAdviser::Acts acts = advised_toss(match_, form_.deciding_line, *advice);
  acts.leave = [this] {
    const bool bats = computers_toss_bats();
    prefer(bats ? *bat_ : *bowl_);
    return QStringLiteral("%1 It says %2.")
        .arg(QString::fromLatin1(computers_toss), bats ? QStringLiteral("bat") : QStringLiteral("bowl"));
  };
  new SheetAdviser(*this, std::move(acts), rows_);
}

void TossWindow::show_stage() {
  if (form_.closed) {
    accept();
    return;
  }
  set_title(QStringLiteral("The toss"), shown(form_.headline));
  deciding_.show(shown(form_.deciding_line));
  other_.show(shown(form_.other_line));
  const bool coin = form_.coin_visible;
  stages_->setCurrentIndex(coin ? 0 : 1);
  bat_->setEnabled(form_.bat_enabled);
  bowl_->setEnabled(form_.bowl_enabled);
  for (QPushButton* button : {heads_, tails_}) button->setVisible(coin);
  for (QPushButton* button : {bat_, bowl_}) button->setVisible(!coin);
  QPushButton* first = coin ? heads_ : form_.bat_enabled ? bat_ : bowl_;
  prefer(*first);
  if (!coin && form_.bat_enabled && form_.bowl_enabled) add_adviser();
  // A longer headline is shown whole at once.
  QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
  if (isVisible()) resize(size().expandedTo(minimumSizeHint()));
}

}  // namespace velorin
