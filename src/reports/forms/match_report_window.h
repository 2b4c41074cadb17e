// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "desktop/form.h"
#include "desktop/line_chart.h"
#include "desktop/table.h"

class QGridLayout;
class QScrollArea;

namespace velorin {

class TableView;

struct match_report;
struct reported_innings;

/// A match that has been decided, on one page: result, both cards, the running scores, milestones and records. The two
/// innings stand side by side where there is room, else one below the other.
class MatchReportWindow : public Form {
  Q_OBJECT

 public:
  /// What pressing a man's name does; it gets his side and his name.
  using ShowProfile = std::function<void(const std::string& side, const std::string& player)>;

  /// `report` is read here and not kept. Without `profile` the names of the men lead nowhere.
  explicit MatchReportWindow(const match_report& report, ShowProfile profile = {}, QWidget* parent = front_window());

  /// Offers the same sides again: `rematch` runs as the page closes by that press.
  void offer_rematch(std::function<void()> rematch);
  /// Offers the match centre: `open` runs at each press.
  void offer_centre(std::function<void()> open);

 protected:
  /// The page keys turn the page.
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void add_innings(const reported_innings& innings, std::size_t place);
  QWidget* new_brought(const match_report& report);
  /// A press on a row, or Return, opens the profile of its man. `men` are those of the rows.
  void lead_to_profiles(TableView& view, std::vector<std::pair<std::string, std::string>> men);
  /// Both innings fit side by side with every text whole.
  bool has_room_for_two() const;
  void arrange(bool side_by_side);

  ShowProfile profile_;
  std::array<std::vector<QWidget*>, 2> pieces_;  // of each innings, from top to bottom
  QWidget* chart_ = nullptr;
  QWidget* brought_ = nullptr;
  QGridLayout* grid_ = nullptr;
  QScrollArea* pages_ = nullptr;
  bool arranged_ = false;
  bool side_by_side_ = false;
};

/// The parts of a report as tables and as a chart.
Table batting_table(const reported_innings& innings);
Table bowling_table(const reported_innings& innings);
Table milestones_table(const match_report& report);
Table records_table(const match_report& report);
LineChart worm_chart(const match_report& report);

}  // namespace velorin
