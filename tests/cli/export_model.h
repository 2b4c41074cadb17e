// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <nlohmann/json.hpp>
#include <string>

namespace velorin::testing {

/// The three exports written anew from the object of a scorecard, to compare the companion's files with. Windows-1252
/// bytes, CR LF ends.
std::string wanted_page(const nlohmann::json& state, const std::string& text_color, const std::string& back_color);
std::string wanted_text(const nlohmann::json& state);
std::string wanted_ball_by_ball(const nlohmann::json& state);

}  // namespace velorin::testing
