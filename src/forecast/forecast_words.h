// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "forecast/adviser.h"
#include "forecast/result_tally.h"

// A forecast in words. Texts are single bytes of Windows-1252.

namespace velorin {

/// "62 %"; "<1 %" and ">99 %" where so many runs cannot tell it from never and always, but "0 %" and "100 %" where
/// nothing is left to chance.
std::string chance_words(double chance, bool certain = false);

/// The chance of a stage, told likewise, of a team's chances of all stages, the first `settled` of which are known: who
/// has missed one reaches none behind it.
std::string stage_words(const std::vector<double>& stages, int settled, std::size_t stage);

/// "India 62 %, England 37 %, tie 1 %"; the tie is left out where it is below one in two hundred.
std::string chances_sentence(const forecast_answer& answer);

/// "268 (221-310)": the total to be expected, and the range of four in five, with a dash between.
std::string total_words(const total_forecast& total);
/// "268, four times in five from 221 to 310"
std::string total_sentence(const total_forecast& total);

/// "54.2 % \xB1 0.8": the chance of winning under a choice so often played, with its standard error, in hundredths.
std::string win_words(const advice& told, long runs);

/// "+1.2 % \xB1 0.4": the difference to leaving the choice to the computer, with its standard error, in hundredths.
std::string difference_words(const advice& told);

}  // namespace velorin
