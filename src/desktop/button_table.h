// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <map>
#include <vector>

#include "desktop/table.h"

class QAbstractButton;

namespace velorin {

class TableView;

/// A table whose rows begin with a button each: a tick, an option, a name to press. However the rows are sorted, a
/// button stays with the row of its id. A press on the row beside it presses the button; a row without one does
/// nothing.
class ButtonTable : public QWidget {
  Q_OBJECT

 public:
  /// `name`: of the table's view.
  explicit ButtonTable(const QString& name, QWidget* parent = nullptr);

  /// Shows the table, whole; its first column is told by the buttons, which become children and are hidden where no row
  /// has their id. A button that is disabled leads nowhere.
  void set_table(Table table, std::map<int, QAbstractButton*> buttons);
  /// The rows are from `lowest` to `highest` pixels high, as the room allows; it asks for room for rows of `usual`
  /// pixels, as low ones if 0.
  void set_row_heights(int lowest, int highest, int usual = 0);
  TableView& view() const { return *view_; }
  QAbstractButton* button(int id) const;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void place_buttons();
  /// The tab key goes through the rows as they stand.
  void chain_buttons();
  /// How much wider than its text a button is, and what is left beside it.
  int around_texts() const;

  TableView* view_;
  std::map<int, QAbstractButton*> buttons_;
};

}  // namespace velorin
