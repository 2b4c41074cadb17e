// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/jump_window.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRegularExpression>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "desktop/controls.h"

namespace velorin {

namespace {

constexpr int most_listed = 50;

/// 0 for a name that begins with the words, 1 for one with a word that does, 2 for one that has them, 3 for none.
int distance(const QString& name, const QString& typed) {
  if (name.startsWith(typed, Qt::CaseInsensitive)) return 0;
  static const QRegularExpression between(QStringLiteral("[ .,'-]"));
  for (const QString& part : name.split(between)) {
    if (part.startsWith(typed, Qt::CaseInsensitive)) return 1;
  }
  const QStringList words = typed.split(u' ', Qt::SkipEmptyParts);
  const bool has_all = std::all_of(words.begin(), words.end(),
                                   [&](const QString& word) { return name.contains(word, Qt::CaseInsensitive); });
  return has_all ? 2 : 3;
}

}  // namespace

std::vector<int> places_with(const QStringList& names, const QString& typed) {
  std::vector<std::pair<int, int>> ranked;
  for (int i = 0; i < names.size(); ++i) {
    const int far = distance(names[i], typed.trimmed());
    if (far < 3) ranked.emplace_back(far, i);
  }
  std::stable_sort(ranked.begin(), ranked.end());
  std::vector<int> places;
  for (const auto& [far, place] : ranked) places.push_back(place);
  return places;
}

JumpWindow::JumpWindow(std::vector<JumpTarget> targets, QWidget* parent)
    : Form(QStringLiteral("jump"), Dismissal::closes, parent),
      targets_(std::move(targets)),
      words_(new QLineEdit),
      found_(new QListWidget) {
  stand_as(Place::sheet);
  set_title(QStringLiteral("Go to"), {});
  words_->setObjectName(QStringLiteral("words"));
  words_->setPlaceholderText(QStringLiteral("A page, a team or a player"));
  words_->setMinimumWidth(480);
  words_->installEventFilter(this);
  body()->addWidget(new_caption(QStringLiteral("Go to"), u'G', words_));
  body()->addWidget(words_);
  found_->setObjectName(QStringLiteral("found"));
  found_->setAccessibleName(QStringLiteral("Found"));
  found_->setMinimumHeight(280);
  body()->addWidget(found_, 1);
  connect(words_, &QLineEdit::textChanged, this, [this] { list(); });
  connect(found_, &QListWidget::itemActivated, this, [this] { choose(); });
  add_default_button(QStringLiteral("accept"), {.caption = QStringLiteral("Go"), .mnemonic = u'o'},
                     [this] { choose(); });
  add_button(QStringLiteral("cancel"), {.caption = QStringLiteral("Cancel"), .mnemonic = u'C'}, [this] { reject(); });
  list();
  words_->setFocus();
}

void JumpWindow::list() {
  QStringList names;
  for (const JumpTarget& target : targets_) names << target.name;
  found_->clear();
  for (const int place : places_with(names, words_->text())) {
    if (found_->count() == most_listed) break;
    const JumpTarget& target = targets_[static_cast<std::size_t>(place)];
    auto* item = new QListWidgetItem(QStringLiteral("%1   %2").arg(target.name, target.kind), found_);
    item->setData(Qt::UserRole, place);
  }
  if (found_->count() > 0) found_->setCurrentRow(0);
}

void JumpWindow::choose() {
  const QListWidgetItem* item = found_->currentItem();
  if (item == nullptr) return;
  chosen_ = item->data(Qt::UserRole).toInt();
  accept();
}

bool JumpWindow::eventFilter(QObject* watched, QEvent* event) {
  // The arrows move in the list while one types.
  if (watched == words_ && event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Down || key == Qt::Key_Up || key == Qt::Key_PageDown || key == Qt::Key_PageUp) {
      QApplication::sendEvent(found_, event);
      return true;
    }
  }
  return Form::eventFilter(watched, event);
}

}  // namespace velorin
