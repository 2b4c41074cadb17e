// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/forms/toss_window.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "desktop/accessible_role.h"
#include "desktop/controls.h"
#include "desktop/crest.h"
#include "desktop/shown_text.h"
#include "desktop/theme.h"
#include "setup/forms/leaving.h"
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

  QSize sizeHint() const override { return {480, 104}; }
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent*) override {
    const Theme& t = theme();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPointF middle = QRectF(rect()).center();
    painter.setPen(QPen(t.line, 3));
    painter.setBrush(t.willow);
    painter.drawEllipse(middle, 44, 44);
    painter.setPen(QPen(t.card, 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(middle, 36, 36);
    // Three stumps and their bails.
    painter.setPen(QPen(t.card, 4, Qt::SolidLine, Qt::RoundCap));
    for (const double x : {-11.0, 0.0, 11.0}) {
      painter.drawLine(middle + QPointF(x, -14), middle + QPointF(x, 20));
    }
    painter.drawLine(middle + QPointF(-11, -20), middle + QPointF(11, -20));
  }
};

}  // namespace

TossWindow::TossWindow(toss_form& form, QWidget* parent)
    : Form(QStringLiteral("toss"), Dismissal::refused, parent), form_(form) {
  limit_body(800);
  name_heading(QStringLiteral("headline"));
  QFrame* card = new_card();
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(24);
  grid->setVerticalSpacing(8);
  grid->setColumnStretch(2, 1);
  deciding_ = new_named_label(QStringLiteral("deciding_line"), {}, TextRole::heading);
  other_ = new_named_label(QStringLiteral("other_line"), {}, TextRole::heading);
  grid->addWidget(new_label(QStringLiteral("To bat or to bowl"), TextRole::muted), 0, 0);
  deciding_crest_ = new CrestView(QStringLiteral("deciding_crest"), 40);
  other_crest_ = new CrestView(QStringLiteral("other_crest"), 40);
  grid->addWidget(deciding_crest_, 0, 1);
  grid->addWidget(other_crest_, 1, 1);
  grid->addWidget(deciding_, 0, 2);
  grid->addWidget(new_label(QStringLiteral("The other side"), TextRole::muted), 1, 0);
  grid->addWidget(other_, 1, 2);
  card_rows(card)->addLayout(grid);
  stages_ = new QStackedWidget;
  stages_->addWidget(new Coin);
  stages_->addWidget(card);
  stages_->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
  body()->addStretch(1);
  body()->addWidget(stages_);
  body()->addStretch(1);
  heads_ = add_choice("heads", "Heads", u'H', [this] { form_.call_coin(0); });
  tails_ = add_choice("tails", "Tails", u'T', [this] { form_.call_coin(1); });
  bat_ = add_choice("bat", "Bat", u'B', [this] { form_.choose_to_bat(); });
  bowl_ = add_choice("bowl", "Bowl", u'w', [this] { form_.choose_to_bowl(); });
  show_stage();
  let_leave(*this, form_);
}

QPushButton* TossWindow::add_choice(const char* name, const char* caption, char16_t mnemonic,
                                    std::function<void()> chosen) {
  const Act act{.caption = QString::fromLatin1(caption), .mnemonic = mnemonic};
  QPushButton* button = add_button(QString::fromLatin1(name), act, [this, chosen = std::move(chosen)] {
    chosen();
    show_stage();
  });
  // Return presses the one of two that has the keyboard.
  button->setAutoDefault(true);
  return button;
}

void TossWindow::show_stage() {
  if (form_.closed) {
    accept();
    return;
  }
  set_title(QStringLiteral("The toss"), shown(form_.headline));
  deciding_->setText(shown(form_.deciding_line));
  other_->setText(shown(form_.other_line));
  deciding_crest_->show_team(deciding_->text());
  other_crest_->show_team(other_->text());
  const bool coin = form_.coin_visible;
  stages_->setCurrentIndex(coin ? 0 : 1);
  bat_->setEnabled(form_.bat_enabled);
  bowl_->setEnabled(form_.bowl_enabled);
  for (QPushButton* button : {heads_, tails_}) button->setVisible(coin);
  for (QPushButton* button : {bat_, bowl_}) button->setVisible(!coin);
  QPushButton* first = coin ? heads_ : form_.bat_enabled ? bat_ : bowl_;
  first->setFocus();
  first->setDefault(true);
  // A longer headline is shown whole at once.
  QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
  if (isVisible()) resize(size().expandedTo(minimumSizeHint()));
}

}  // namespace velorin
