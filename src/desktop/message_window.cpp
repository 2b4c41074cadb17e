// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/message_window.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/controls.h"
#include "desktop/message_kinds.h"
#include "desktop/program_end.h"
#include "desktop/shown_text.h"
#include "desktop/theme.h"

namespace velorin {

namespace {

/// The information icon, or the one of a failure: each has a colour, a shape and a sign of its own.
QPixmap icon_of(MessageWindow::Kind kind, qreal scale) {
  constexpr int side = 40;
  const Theme& t = theme();
  const bool failed = kind == MessageWindow::Kind::failure;
  QPixmap icon(QSize(side, side) * scale);
  icon.setDevicePixelRatio(scale);
  icon.fill(Qt::transparent);
  QPainter painter(&icon);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(failed ? t.ball : t.accent);
  const QRectF all(1, 1, side - 2, side - 2);
  if (failed) {
    painter.drawRoundedRect(all, 8, 8);
  } else {
    painter.drawEllipse(all);
  }
  painter.setPen(failed ? t.on_ball : t.on_accent);
  painter.setFont(type_font(TypeStep::title));
  painter.drawText(all, Qt::AlignCenter, failed ? QStringLiteral("!") : QStringLiteral("i"));
  return icon;
}

/// Fills the form with the icon, the title and the text.
void lay_out(Form& form, const message_box& message, MessageWindow::Kind kind) {
  form.set_title(shown(message.title), {});
  form.stand_as(Form::Place::sheet);
  form.setAccessibleDescription(shown(message.text));
  auto* row = new QHBoxLayout;
  row->setSpacing(16);
  auto* icon = new_label({});
  icon->setObjectName(QStringLiteral("icon"));
  const bool failed = kind == MessageWindow::Kind::failure;
  icon->setPixmap(icon_of(kind, form.devicePixelRatioF()));
  icon->setAccessibleName(failed ? QStringLiteral("Failure") : QStringLiteral("Information"));
  row->addWidget(icon, 0, Qt::AlignTop);
  auto* texts = new QVBoxLayout;
  texts->setSpacing(8);
  auto* title = new_named_label(QStringLiteral("title"), shown(message.title).trimmed(), TextRole::heading);
  auto* text = new_named_label(QStringLiteral("text"), shown(message.text));
  text->setWordWrap(true);
  text->setMinimumWidth(360);
  text->setTextInteractionFlags(Qt::TextSelectableByMouse);
  text->setFocusPolicy(Qt::NoFocus);  // a click on the text leaves Space with the button
  texts->addWidget(title);
  texts->addWidget(text, 1);
  row->addLayout(texts, 1);
  form.body()->addLayout(row);
}

}  // namespace

MessageWindow::MessageWindow(const message_box& message, Kind kind, QWidget* parent)
    : Form(QStringLiteral("message"), Dismissal::closes, parent) {
  lay_out(*this, message, kind);
  add_pass_by(*this, message.kind);
  auto* ok = add_default_button(QStringLiteral("accept"), {.caption = QStringLiteral("OK"), .mnemonic = u'O'},
                                [this] { accept(); });
  ok->setFocus();
}

void MessageWindow::show_moment(MomentKind kind) {
  constexpr int side = 56;  // pixels
  const QPixmap sign = sign_of(kind, side, devicePixelRatioF());
  if (sign.isNull()) return;
  auto* icon = findChild<QLabel*>(QStringLiteral("icon"));
  icon->setPixmap(sign);
  icon->setAccessibleName(QStringLiteral("A great moment"));
}

SaveFailedWindow::SaveFailedWindow(const failed_save& failed, QWidget* parent)
    : Form(QStringLiteral("save_failed"), Dismissal::refused, parent) {
  lay_out(*this, {"Not saved", failed.cause + "\n\n" + failed.without}, MessageWindow::Kind::failure);
  const auto choosing = [this](save_answer answer) {
    return [this, answer] {
      answer_ = answer;
      accept();
    };
  };
  add_button(QStringLiteral("go_on"), {.caption = QStringLiteral("Go on without saving"), .mnemonic = u'G'},
             choosing(save_answer::go_on));
  add_default_button(QStringLiteral("retry"), {.caption = QStringLiteral("Retry"), .mnemonic = u'R'},
                     choosing(save_answer::retry))
      ->setFocus();
}

void show_failure(const QString& title, const std::exception& error, QWidget* window) {
  MessageWindow box({core_text(title), core_text(shown_error(error))}, MessageWindow::Kind::failure, window);
  run_modal(box);
}

}  // namespace velorin
