// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "desktop/table.h"
#include "reports/match_story.h"
#include "reports/story_tables.h"

class QLabel;

namespace velorin {

class TableView;

/// A view of the match centre: an innings of the match, on which an over can be picked.
class CentrePage : public QWidget {
  Q_OBJECT

 public:
  explicit CentrePage(const QString& name, QWidget* parent = nullptr);

  /// Shows an innings of the match, by its place in it. Both outlive what is shown.
  virtual void show_innings(const match_story& match, std::size_t innings) = 0;
  /// Marks an over, 1 to 50; 0 takes the mark away.
  virtual void mark_over(int over) = 0;
  /// What is copied and saved as CSV.
  virtual std::vector<Table> tables() const = 0;
  /// Writes the view to a picture, SVG or PNG by the ending of its path. False if that fails.
  virtual bool save_picture(const QString& path) const;

 signals:
  /// The user has picked an over.
  void over_picked(int over);
};

/// A view that is one table or several, one below the other.
class TablesPage : public CentrePage {
  Q_OBJECT

 public:
  using Maker = std::function<story_table(const match_story& match, const innings_story& innings)>;

  /// `tables`: names of the controls, and what fills them.
  TablesPage(const QString& name, const std::vector<std::pair<QString, Maker>>& tables, QWidget* parent = nullptr);

  /// Tells sentences above the tables.
  void tell(std::function<std::string(const innings_story& innings)> words);

  void show_innings(const match_story& match, std::size_t innings) override;
  void mark_over(int over) override;
  std::vector<Table> tables() const override;

 private:
  /// Several tables stand whole on a page that scrolls.
  QWidget* new_scrolled_page();

  struct Part {
    TableView* view;
    Maker make;
    story_table shown;
  };

  std::vector<Part> parts_;
  std::function<std::string(const innings_story& innings)> words_;
  QLabel* told_;
};

/// A table of the core as the desktop shows it; the rows' ids are their places.
Table shown_story(const story_table& table);

/// Chooses the row of `view` that tells of an over of `table`, and scrolls to it; without one, or over 0, none.
void choose_over(TableView& view, const story_table& table, int over);

}  // namespace velorin
