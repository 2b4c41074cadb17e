// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLayout>
#include <vector>

namespace velorin {

/// Cards side by side where all of them fit, else one below another. No line of them is wider than its place.
class CardFlow : public QLayout {
  Q_OBJECT

 public:
  /// `space`: pixels between two cards.
  explicit CardFlow(int space = 16, QWidget* parent = nullptr);
  ~CardFlow() override;

  /// Of what a row leaves, a card gets its share by `stretch`; one with none is as wide as it wants to be.
  void add_card(QWidget* card, int stretch = 1);
  /// Whether they stand side by side in so much width, in pixels.
  bool fit_in_a_row(int width) const;

  void addItem(QLayoutItem* item) override;
  int count() const override { return static_cast<int>(cards_.size()); }
  QLayoutItem* itemAt(int index) const override;
  QLayoutItem* takeAt(int index) override;
  Qt::Orientations expandingDirections() const override;
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;
  int minimumHeightForWidth(int width) const override;
  QSize minimumSize() const override;
  QSize sizeHint() const override;
  void setGeometry(const QRect& room) override;

 private:
  struct Card {
    QLayoutItem* item;
    int stretch;
  };

  int gaps() const;
  /// Of each card in a row of so much width.
  std::vector<int> widths(int width) const;
  int height(int width, bool least) const;
  void set_column(const QRect& room);

  std::vector<Card> cards_;
};

}  // namespace velorin
