// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/conditions.h"

#include <cmath>

#include "database/configuration.h"
#include "database/open_database.h"
#include "database/whole_file.h"
#include "model/match_state.h"
#include "model/random.h"
#include "model/run_time_error.h"
#include "model/texts.h"

namespace velorin {

namespace {

constexpr std::array<const char*, 4> weather_texts = {
    "Dark and Rainy, suitable for the quick bowlers.", "Cloudy and Overcast, swing bowlers should dominate.",
    "Fine and Sunny, perfect for the batsmen.", "Hot and Humid, tiring conditions for players."};
constexpr std::array<const char*, 4> pitch_texts = {"Green top, will suit the quick bowlers.",
                                                    "Lots of cracks favouring spinners.",
                                                    "Somewhat even surface favouring batsmen and bowlers equally.",
                                                    "Very even surface with dead grass, will suit the batsmen."};
constexpr std::array<const char*, 4> bounce_texts = {
    "High bounce, fast bowlers should dominate.", "Uneven bounce, difficult for batsmen.",
    "Fairly even bounce with the odd one keeping low, should favour batsmen and bowlers equally.",
    "Perfect even bounce for playing strokes favouring the batsmen."};
constexpr std::array<const char*, 4> outfield_texts = {"Wet, very slow outfield.", "Slow outfield.",
                                                       "Somewhat fast outfield.", "Very fast outfield"};

/// Values a draw can give: Int(count x r + lowest).
struct span_of_values {
  int count;
  int lowest;
};
constexpr std::array<span_of_values, 4> temperatures = {{{16, 5}, {16, 5}, {13, 20}, {12, 29}}};
constexpr std::array<span_of_values, 4> humidities = {{{21, 30}, {21, 30}, {41, 30}, {21, 70}}};

constexpr std::array<sky_color, 4> sky_tops = {
    {{0, 0, 0}, {35536, 35536, 35536}, {0, 33536, 65535}, {65535, 35536, 0}}};
constexpr std::array<sky_color, 4> sky_bottoms = {
    {{50536, 50536, 50536}, {65535, 65535, 65535}, {0, 65535, 65535}, {65535, 65036, 0}}};

int draw_from(random_source& chance, const span_of_values& values) {
  return static_cast<int>(std::floor(values.count * chance.rnd() + values.lowest));
}

}  // namespace

int draw_condition(random_source& chance) {
  chance.reseed();
  const int value = static_cast<int>(5 * chance.rnd());
  return value == 0 ? 1 : value;
}

int pitch_figure(const open_database& data, const std::string& ground, int figure, const char* field) {
  if (figure < 1 || figure > 4) {
    throw run_time_error(
        failure::type, "Invalid value: " + number_text(figure) + " is no pitch condition of 1 to 4",
        {.file = file_name_text(data.files.ground_file), .record = 0, .field = field, .player = ground});
  }
  return figure;
}

void conditions_form::open() {
  const ground_rec& ground = play_.match.ground;
  const int surface = pitch_figure(play_.data, ground.ground_name, ground.pitch_bounce, "pitch_bounce");
  const int bounce = pitch_figure(play_.data, ground.ground_name, ground.pitch_surface, "pitch_surface");
  const int weather_drawn = draw_condition(play_.chance);
  const int outfield_drawn = draw_condition(play_.chance);
  const int temperature = draw_from(play_.chance, temperatures[weather_drawn - 1]);
  const int humidity = draw_from(play_.chance, humidities[weather_drawn - 1]);
  play_.match.conditions_drawn = {{weather_drawn, surface, bounce, outfield_drawn}, temperature, humidity};
  show_drawn();
}

void conditions_form::show_drawn() {
  drawn_ = play_.match.conditions_drawn;
  weather = drawn_.levels[0];
  pitch_surface = drawn_.levels[1];
  pitch_bounce = drawn_.levels[2];
  outfield = drawn_.levels[3];
  closed = left = false;
}

std::string conditions_form::headline() const { return "Conditions in " + play_.match.venue_name() + ":"; }
std::string conditions_form::weather_words() const { return weather_texts[drawn_.levels[0] - 1]; }
std::string conditions_form::pitch_words() const { return pitch_texts[drawn_.levels[1] - 1]; }
std::string conditions_form::bounce_words() const { return bounce_texts[drawn_.levels[2] - 1]; }
std::string conditions_form::outfield_words() const { return outfield_texts[drawn_.levels[3] - 1]; }

std::string conditions_form::temperature_line() const {
  return "The temperature is " + number_text(drawn_.temperature) + " C with a humidity of " +
         number_text(drawn_.humidity) + "%";
}

sky_color conditions_form::sky_top() const { return sky_tops[weather - 1]; }
sky_color conditions_form::sky_bottom() const { return sky_bottoms[weather - 1]; }

void conditions_form::accept() {
  play_.match.ground.pitch_surface = pitch_surface;
  play_.match.ground.pitch_bounce = pitch_bounce;
  play_.match.outfield = outfield;
  play_.match.weather = weather;
  closed = true;
}

}  // namespace velorin
