// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/name_line.h"

#include <QAccessibleWidget>
#include <QEvent>
#include <QTimer>
#include <utility>

#include "desktop/modality.h"
#include "desktop/program_end.h"
#include "desktop/theme.h"

namespace velorin {

namespace {

/// Has an action for each name, called by it.
class NameLineAccess : public QAccessibleWidget {
 public:
  explicit NameLineAccess(NameLine* line) : QAccessibleWidget(line, QAccessible::StaticText), line_(line) {}

  QStringList actionNames() const override {
    QStringList names;
    for (const NameLine::Piece& piece : line_->pieces()) {
      if (piece.leads_on) names << piece.text;
    }
    return names + QAccessibleWidget::actionNames();
  }
  QString localizedActionName(const QString& action) const override {
    return place_of(action) < 0 ? QAccessibleWidget::localizedActionName(action) : action;
  }
  QString localizedActionDescription(const QString& action) const override {
    return place_of(action) < 0 ? QAccessibleWidget::localizedActionDescription(action)
                                : QStringLiteral("Opens the profile of %1").arg(action);
  }
  void doAction(const QString& action) override {
    const int piece = place_of(action);
    if (piece < 0) return QAccessibleWidget::doAction(action);
    if (is_covered(*line_) || !line_->isEnabled()) return;
    // Later, since what opens may stay for long, and whoever asked waits for an answer.
    QTimer::singleShot(0, line_, [line = line_, piece] { line->open(piece); });
  }

 private:
  int place_of(const QString& action) const {
    for (std::size_t i = 0; i < line_->pieces().size(); ++i) {
      if (line_->pieces()[i].leads_on && line_->pieces()[i].text == action) return static_cast<int>(i);
    }
    return -1;
  }

  NameLine* line_;
};

QAccessibleInterface* name_line_interface(const QString&, QObject* object) {
  auto* line = qobject_cast<NameLine*>(object);
  return line == nullptr ? nullptr : new NameLineAccess(line);
}

void give_name_line_access() {
  static const bool installed = [] {
    QAccessible::installFactory(name_line_interface);
    return true;
  }();
  static_cast<void>(installed);
}

}  // namespace

NameLine::NameLine(const QString& name, std::vector<Piece> pieces, std::function<void(int)> opened, QWidget* parent)
    : QLabel(parent), pieces_(std::move(pieces)), opened_(std::move(opened)) {
  give_name_line_access();
  setObjectName(name);
  setProperty("role", QStringLiteral("muted"));
  setTextFormat(Qt::RichText);
  setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
  setFocusPolicy(Qt::StrongFocus);
  setWordWrap(true);
  setAlignment(Qt::AlignLeft | Qt::AlignTop);
  QString spoken;
  for (const Piece& piece : pieces_) spoken += piece.text;
  setAccessibleName(spoken);
  setToolTip(QStringLiteral("A name leads to its man"));
  connect(this, &QLabel::linkActivated, this, [this](const QString& piece) { open(piece.toInt()); });
  write();
}

void NameLine::open(int piece) {
  if (is_covered(*this) || !isEnabled() || !isVisible()) return;
  guarded([&] { opened_(piece); });
}

void NameLine::changeEvent(QEvent* event) {
  QLabel::changeEvent(event);
  if (event->type() == QEvent::StyleChange || event->type() == QEvent::PaletteChange) write();
}

void NameLine::write() {
  QString markup;
  for (std::size_t i = 0; i < pieces_.size(); ++i) {
    const QString words = pieces_[i].text.toHtmlEscaped();
    markup += pieces_[i].leads_on ? QStringLiteral("<a href=\"%1\" style=\"color:%2\">%3</a>")
                                        .arg(QString::number(i), theme().ink.name(), words)
                                  : words;
  }
  if (markup != text()) setText(markup);
}

}  // namespace velorin
