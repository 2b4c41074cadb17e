// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/selection_rules.h"

#include <cmath>
#include <string>
#include <utility>

namespace velorin::testing::rules {

namespace {

std::string role_of(const std::string& bat_type) { return bat_type.size() < 4 ? "" : bat_type.substr(3); }

int whole(double value) {
  const double below = std::floor(value);
  const double part = value - below;
  if (part > 0.5 || (part == 0.5 && std::fmod(below, 2) != 0)) return static_cast<int>(below) + 1;
  return static_cast<int>(below);
}

struct line {
  int key = 0;
  double rate = 0;
  int place = 0;
};

int count(const auto_selection& result) {
  int ticks = 0;
  for (int i = 1; i <= 20; ++i) ticks += result.ticks[i] ? 1 : 0;
  return ticks;
}

/// Two men of the top order. Gives up after more walks than any squad needs.
void top_order(const team_selection_form& form, auto_selection& result) {
  int found = 0;
  std::string role = "Opener";
  for (int walk = 1; found < 2; ++walk) {
    if (walk > 50) {
      result.endless = true;
      return;
    }
    for (int i = 1; i <= 20; ++i) {
      if (role_of(form.batting_type(i)) != role) continue;
      result.ticks[i] = true;
      ++found;
      if (found == 2) break;
    }
    if (role == "Middle Order") role = "Lower Order";
    if (role == "Opener") role = "Middle Order";
  }
}

bool ends_in_wk(const std::string& text) { return text.size() >= 2 && text.substr(text.size() - 2) == "Wk"; }

/// Compares by the values of the characters, 0 to 255.
bool before(const std::string& a, const std::string& b) {
  for (std::size_t i = 0; i < a.size() && i < b.size(); ++i) {
    const auto left = static_cast<unsigned char>(a[i]);
    const auto right = static_cast<unsigned char>(b[i]);
    if (left != right) return left < right;
  }
  return a.size() < b.size();
}

}  // namespace

auto_selection auto_select(const team_selection_form& form) {
  auto_selection result;
  top_order(form, result);
  if (result.endless) return result;

  line bat_rank[21];
  line bowl_rank[21];
  for (int i = 1; i <= 20; ++i) {
    const bool hidden = form.man(i).name.empty();
    bat_rank[i].key = std::stoi(form.batting_skill(i));
    bat_rank[i].place = i;
    bowl_rank[i].key = hidden ? 1000 : whole(std::stod(form.balls_per_wicket(i)));
    bowl_rank[i].rate = hidden ? 1000 : std::stod(form.economy(i));
    bowl_rank[i].place = i;
  }
  for (int a = 19; a >= 1; --a) {
    for (int b = 1; b <= a; ++b) {
      if (bat_rank[b].key < bat_rank[b + 1].key) std::swap(bat_rank[b], bat_rank[b + 1]);
      const double score = bowl_rank[b].key + 15 * bowl_rank[b].rate;
      const double next = bowl_rank[b + 1].key + 15 * bowl_rank[b + 1].rate;
      if (next < score) std::swap(bowl_rank[b], bowl_rank[b + 1]);
    }
  }

  for (int k = 1; k <= 4; ++k) {
    if (!form.man(bat_rank[k].place).name.empty()) result.ticks[bat_rank[k].place] = true;
    if (!form.man(bowl_rank[k].place).name.empty()) result.ticks[bowl_rank[k].place] = true;
  }
  for (int k = 1; k <= 20; ++k) {
    if (!ends_in_wk(form.bowling_type(bat_rank[k].place))) continue;
    result.ticks[bat_rank[k].place] = true;
    break;
  }
  for (int k = 1; k <= 20; ++k) {
    if (std::stoi(form.batting_skill(bowl_rank[k].place)) <= 20) continue;
    result.ticks[bowl_rank[k].place] = true;
    break;
  }
  while (count(result) <= 10) {
    int k = 1;
    while (result.ticks[bat_rank[k].place]) ++k;
    result.ticks[bat_rank[k].place] = true;
  }
  return result;
}

void order_squad(squad& men) {
  for (int a = 19; a >= 1; --a) {
    for (int b = 1; b <= a; ++b) {
      if (before(role_of(men[b].bat_type), role_of(men[b + 1].bat_type))) std::swap(men[b], men[b + 1]);
      if (role_of(men[b].bat_type) == role_of(men[b + 1].bat_type) && men[b].bat_skill < men[b + 1].bat_skill) {
        std::swap(men[b], men[b + 1]);
      }
    }
  }
}

}  // namespace velorin::testing::rules
