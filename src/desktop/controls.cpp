// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/controls.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "desktop/shown_text.h"
#include "desktop/terms.h"

namespace velorin {

namespace {

struct RoleLook {
  TypeStep step;
  const char* role;
};

constexpr RoleLook looks[] = {
    {TypeStep::body, ""},     {TypeStep::strong, ""},       {TypeStep::heading, ""},    {TypeStep::title, ""},
    {TypeStep::score, ""},    {TypeStep::body, "muted"},    {TypeStep::small, "muted"}, {TypeStep::body, "red"},
    {TypeStep::body, "blue"}, {TypeStep::strong, "accent"},
};

}  // namespace

QLabel* new_label(const QString& text, TextRole role, QWidget* parent) {
  const RoleLook& look = looks[static_cast<int>(role)];
  auto* label = new QLabel(text, parent);
  label->setTextFormat(Qt::PlainText);
  label->setFont(type_font(look.step));
  if (*look.role != '\0') label->setProperty("role", QLatin1String(look.role));
  explain(*label, text);
  return label;
}

QLabel* new_named_label(const QString& name, const QString& text, TextRole role, QWidget* parent) {
  QLabel* label = new_label(text, role, parent);
  label->setObjectName(name);
  return label;
}

QLabel* new_caption(const QString& text, QChar mnemonic, QWidget* control, QWidget* parent) {
  QLabel* label = new_label(button_text(text, mnemonic), TextRole::body, parent);
  label->setBuddy(control);
  control->setAccessibleName(spoken_name(text));
  if (!mnemonic.isNull() && control->toolTip().isEmpty()) {
    control->setToolTip(QStringLiteral("%1 (Alt+%2)").arg(spoken_name(text), mnemonic.toUpper()));
  }
  return label;
}

QFrame* new_card(QWidget* parent) {
  auto* card = new QFrame(parent);
  card->setProperty("card", true);
  auto* rows = new QVBoxLayout(card);
  rows->setContentsMargins(16, 12, 16, 12);
  rows->setSpacing(8);
  return card;
}

QVBoxLayout* card_rows(QFrame* card) { return static_cast<QVBoxLayout*>(card->layout()); }

QVBoxLayout* new_column(QVBoxLayout* body, int widest) {
  auto* column = new QWidget;
  column->setMaximumWidth(widest);
  auto* rows = new QVBoxLayout(column);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(body->spacing());
  auto* across = new QHBoxLayout;
  across->addStretch();
  across->addWidget(column, 1);
  across->addStretch();
  body->addLayout(across, 1);
  return rows;
}

QString spoken_name(const QString& caption) {
  QString name = caption.trimmed();
  if (name.endsWith(QLatin1Char(':'))) name.chop(1);
  return name.trimmed();
}

}  // namespace velorin
