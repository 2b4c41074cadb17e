// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

#include "forecast/forecast_worker.h"

class QLabel;

namespace velorin {

struct match_state;

class ForecastShares;

/// Both sides' chances of winning in a slim bar, from the rest of the match played many times behind play. What is
/// asked last is answered; an answer that comes late is dropped. Nothing of the match is changed, and while the bar is
/// hidden nothing is asked. Screen readers are told the chances at the end of an over and at a wicket.
class ForecastBar : public QWidget {
  Q_OBJECT

 public:
  /// Where a match stands: what makes another forecast.
  struct Standing {
    std::size_t balls = 0;
    int innings = 0;
    int step = 0;
    int wickets = 0;
    int over = 0;
    int men = 0;

    bool operator==(const Standing&) const = default;
  };
  Standing standing() const;

  explicit ForecastBar(const match_state& match, QWidget* parent = nullptr);
  ~ForecastBar() override;

  /// Asks for the forecast of the match as it stands, unless that was done. Returns at once.
  void refresh();
  /// Shows or hides the bar.
  void show_forecast(bool on);
  /// The forecast shown; nothing before the first answer and while hidden.
  const std::optional<forecast_answer>& answer() const { return answer_; }
  /// The match has been asked for, and the answer is on its way: what is shown meanwhile is of the moment before,
  /// muted.
  bool is_waiting() const { return waiting_; }

  /// Called with each new answer, and with nullptr where there is none any more.
  void on_answer(std::function<void(const forecast_answer*)> act) { answered_ = std::move(act); }
  /// Called when the forecast shown is out of date, and is being reckoned anew.
  void on_asked(std::function<void()> act) { was_asked_ = std::move(act); }
  /// Called with what screen readers are told, each time.
  void on_announced(std::function<void(const QString&)> act) { announced_ = std::move(act); }

 private:
  void set_waiting(bool waiting);
  void take(std::uint64_t question, const forecast_answer& answer);
  void forget();
  void announce();

  const match_state& match_;
  std::unique_ptr<forecast_worker> worker_;
  std::optional<Standing> asked_;
  std::uint64_t question_ = 0;  // the last one
  bool waiting_ = false;
  std::optional<forecast_answer> answer_;
  std::pair<int, int> told_{-1, -1};  // over and wickets of the innings at which screen readers were told
  QLabel* first_;
  QLabel* second_;
  ForecastShares* shares_;
  std::function<void(const forecast_answer*)> answered_;
  std::function<void()> was_asked_;
  std::function<void(const QString&)> announced_;
};

}  // namespace velorin
