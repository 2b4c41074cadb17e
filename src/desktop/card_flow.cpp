// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/card_flow.h"

#include <QWidget>
#include <algorithm>
#include <numeric>
#include <utility>

namespace velorin {

namespace {

int height_of(const QLayoutItem& item, int width, bool least) {
  if (item.hasHeightForWidth()) return least ? item.minimumHeightForWidth(width) : item.heightForWidth(width);
  return least ? item.minimumSize().height() : item.sizeHint().height();
}

}  // namespace

CardFlow::CardFlow(int space, QWidget* parent) : QLayout(parent) {
  setSpacing(space);
  setContentsMargins(0, 0, 0, 0);
}

CardFlow::~CardFlow() {
  for (const Card& card : cards_) delete card.item;
}

void CardFlow::add_card(QWidget* card, int stretch) {
  addWidget(card);
  cards_.back().stretch = stretch;
}

void CardFlow::addItem(QLayoutItem* item) {
  cards_.push_back({item, 1});
  invalidate();
}

QLayoutItem* CardFlow::itemAt(int index) const {
  return index < 0 || index >= count() ? nullptr : cards_[static_cast<std::size_t>(index)].item;
}

QLayoutItem* CardFlow::takeAt(int index) {
  QLayoutItem* item = itemAt(index);
  if (item != nullptr) cards_.erase(cards_.begin() + index);
  invalidate();
  return item;
}

Qt::Orientations CardFlow::expandingDirections() const { return Qt::Horizontal | Qt::Vertical; }

int CardFlow::gaps() const { return spacing() * std::max(0, count() - 1); }

bool CardFlow::fit_in_a_row(int width) const {
  const int least = std::accumulate(cards_.begin(), cards_.end(), gaps(),
                                    [](int sum, const Card& card) { return sum + card.item->minimumSize().width(); });
  return least <= width;
}

std::vector<int> CardFlow::widths(int width) const {
  std::vector<int> given;
  int left = width - gaps();
  int shares = 0;
  for (const Card& card : cards_) {
    const int least = card.item->minimumSize().width();
    given.push_back(card.stretch > 0 ? least : std::max(least, card.item->sizeHint().width()));
    left -= given.back();
    shares += card.stretch;
  }
  if (left < 0) {  // those that would be wider have to be content
    for (std::size_t i = 0; i < cards_.size(); ++i) given[i] = cards_[i].item->minimumSize().width();
    left = width - std::accumulate(given.begin(), given.end(), gaps());
  }
  // Whoever is behind his share gets of what is left, until all are level.
  for (int pixel = std::max(0, left); pixel > 0 && shares > 0;) {
    std::size_t poorest = cards_.size();
    for (std::size_t i = 0; i < cards_.size(); ++i) {
      if (cards_[i].stretch == 0) continue;
      if (poorest == cards_.size() || given[i] * cards_[poorest].stretch < given[poorest] * cards_[i].stretch) {
        poorest = i;
      }
    }
    ++given[poorest];
    --pixel;
  }
  return given;
}

int CardFlow::height(int width, bool least) const {
  const bool row = fit_in_a_row(width);
  const std::vector<int> across = row ? widths(width) : std::vector<int>(cards_.size(), width);
  int high = 0;
  for (std::size_t i = 0; i < cards_.size(); ++i) {
    const int of = height_of(*cards_[i].item, across[i], least);
    high = row ? std::max(high, of) : high + of;
  }
  return row ? high : high + gaps();
}

int CardFlow::heightForWidth(int width) const { return height(width, false); }

int CardFlow::minimumHeightForWidth(int width) const { return height(width, true); }

QSize CardFlow::minimumSize() const {
  QSize least;
  for (const Card& card : cards_) least = least.expandedTo(card.item->minimumSize());
  return least;
}

QSize CardFlow::sizeHint() const {
  QSize size(gaps(), 0);
  for (const Card& card : cards_) {
    const QSize of = card.item->sizeHint();
    size = {size.width() + of.width(), std::max(size.height(), of.height())};
  }
  return size;
}

void CardFlow::setGeometry(const QRect& room) {
  QLayout::setGeometry(room);
  if (!fit_in_a_row(room.width())) return set_column(room);
  const std::vector<int> across = widths(room.width());
  int x = room.left();
  for (std::size_t i = 0; i < cards_.size(); ++i) {
    cards_[i].item->setGeometry({x, room.top(), across[i], room.height()});
    x += across[i] + spacing();
  }
}

void CardFlow::set_column(const QRect& room) {
  const bool least = height(room.width(), false) > room.height();
  int left = std::max(0, room.height() - height(room.width(), least));
  int y = room.top();
  for (const Card& card : cards_) {
    int high = height_of(*card.item, room.width(), least);
    if ((card.item->expandingDirections() & Qt::Vertical) != 0) high += std::exchange(left, 0);
    // Heights are asked for before all type is known; the last card is content with what is there.
    high = std::max(0, std::min(high, room.bottom() + 1 - y));
    card.item->setGeometry({room.left(), y, room.width(), high});
    y += high + spacing();
  }
}

}  // namespace velorin
