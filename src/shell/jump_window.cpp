// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/jump_window.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QRegularExpression>
#include <QStyledItemDelegate>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "desktop/controls.h"
#include "desktop/crest.h"
#include "desktop/theme.h"

namespace velorin {

namespace {

constexpr int most_listed = 50;
constexpr int kind_role = Qt::UserRole + 1;
constexpr int row_height = 30;  // pixels
constexpr int kind_width = 200;
constexpr QLatin1String of_team("Player, ");

/// The name at the left, after the crest of its team; at the right, muted, what it is.
class TargetPainter : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    return {QStyledItemDelegate::sizeHint(option, index).width() + kind_width, row_height};
  }

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    QStyledItemDelegate::paint(painter, option, index);
    const bool chosen = option.state.testFlag(QStyle::State_Selected);
    painter->setPen(chosen ? theme().on_accent : theme().muted);
    painter->drawText(option.rect.adjusted(0, 0, -10, 0), Qt::AlignRight | Qt::AlignVCenter,
                      index.data(kind_role).toString());
  }
};

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
  places.reserve(ranked.size());
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
  words_->setMinimumWidth(560);
  words_->installEventFilter(this);
  body()->addWidget(new_caption(QStringLiteral("Go to"), u'G', words_));
  body()->addWidget(words_);
  found_->setObjectName(QStringLiteral("found"));
  found_->setAccessibleName(QStringLiteral("Found"));
  found_->setItemDelegate(new TargetPainter(found_));
  found_->setIconSize({20, 20});
  found_->setFixedHeight(10 * row_height + 2 * found_->frameWidth() + 4);
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
    auto* item = new QListWidgetItem(target.name, found_);
    item->setData(Qt::UserRole, place);
    item->setData(kind_role, target.kind);
    item->setData(Qt::AccessibleTextRole, QStringLiteral("%1, %2").arg(target.name, target.kind));
    if (target.kind == QLatin1String("Team")) item->setIcon(crest_icon(target.name));
    if (target.kind.startsWith(of_team)) item->setIcon(crest_icon(target.kind.mid(of_team.size())));
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
