// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/conditions.h"

#include <vector>

#include <gtest/gtest.h>

#include "model/match_state.h"
#include "model/random.h"
#include "model/run_time_error.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"

namespace velorin::testing {
namespace {

constexpr double last = 0.9999999;

/// The screen for a ground whose first and second pitch figures are given, with the draws of weather, outfield,
/// temperature and humidity.
conditions_form opened(std::vector<double> draws, int first_figure = 2, int second_figure = 3) {
  set_up_sample_match();
  match.weather = 0;
  match.outfield = 0;
  match.ground.pitch_bounce = first_figure;
  match.ground.pitch_surface = second_figure;
  script_draws(std::move(draws));
  conditions_form form(in_play());
  form.open();
  EXPECT_EQ(chance.draws_used(), 4U);
  return form;
}

/// A draw that gives a slider this value.
double draw_of(int value) { return value / 5.0 + 0.1; }

TEST(Conditions, WeatherAndOutfieldAreOneTwiceAsOften) {
  struct row {
    double draw;
    int value;
  };
  const std::vector<row> table = {{0, 1},      {0.1999, 1}, {0.2, 1},    {0.3999, 1}, {0.4, 2},
                                  {0.5999, 2}, {0.6, 3},    {0.7999, 3}, {0.8, 4},    {last, 4}};
  for (const row& r : table) {
    const conditions_form by_weather = opened({r.draw, 0.5, 0, 0});
    EXPECT_EQ(by_weather.weather, r.value) << r.draw;
    EXPECT_EQ(by_weather.outfield, 2);
    const conditions_form by_outfield = opened({0.5, r.draw, 0, 0});
    EXPECT_EQ(by_outfield.outfield, r.value) << r.draw;
    EXPECT_EQ(by_outfield.weather, 2);
  }
}

TEST(Conditions, HeadlineNamesTheGround) { EXPECT_EQ(opened({0, 0, 0, 0}).headline(), "Conditions in The Oval:"); }

TEST(Conditions, WeatherTable) {
  const char* words[] = {"Dark and Rainy, suitable for the quick bowlers.",
                         "Cloudy and Overcast, swing bowlers should dominate.",
                         "Fine and Sunny, perfect for the batsmen.", "Hot and Humid, tiring conditions for players."};
  const char* lowest[] = {
      "The temperature is 5 C with a humidity of 30%", "The temperature is 5 C with a humidity of 30%",
      "The temperature is 20 C with a humidity of 30%", "The temperature is 29 C with a humidity of 70%"};
  const char* highest[] = {
      "The temperature is 20 C with a humidity of 50%", "The temperature is 20 C with a humidity of 50%",
      "The temperature is 32 C with a humidity of 70%", "The temperature is 40 C with a humidity of 90%"};
  for (int value = 1; value <= 4; ++value) {
    const conditions_form low = opened({draw_of(value), 0, 0, 0});
    EXPECT_EQ(low.weather_words(), words[value - 1]);
    EXPECT_EQ(low.temperature_line(), lowest[value - 1]);
    EXPECT_EQ(opened({draw_of(value), 0, last, last}).temperature_line(), highest[value - 1]);
  }
}

TEST(Conditions, TemperatureIsDrawnBeforeHumidity) {
  EXPECT_EQ(opened({draw_of(3), 0, last, 0}).temperature_line(), "The temperature is 32 C with a humidity of 30%");
  EXPECT_EQ(opened({draw_of(4), 0, 0, last}).temperature_line(), "The temperature is 29 C with a humidity of 90%");
  EXPECT_EQ(opened({draw_of(1), 0, 0.5, 0.5}).temperature_line(), "The temperature is 13 C with a humidity of 40%");
}

TEST(Conditions, PitchAndBounceTables) {
  const char* pitch[] = {"Green top, will suit the quick bowlers.", "Lots of cracks favouring spinners.",
                         "Somewhat even surface favouring batsmen and bowlers equally.",
                         "Very even surface with dead grass, will suit the batsmen."};
  const char* bounce[] = {"High bounce, fast bowlers should dominate.", "Uneven bounce, difficult for batsmen.",
                          "Fairly even bounce with the odd one keeping low, should favour batsmen and bowlers equally.",
                          "Perfect even bounce for playing strokes favouring the batsmen."};
  for (int value = 1; value <= 4; ++value) {
    EXPECT_EQ(opened({0, 0, 0, 0}, value, 5 - value).pitch_words(), pitch[value - 1]);
    EXPECT_EQ(opened({0, 0, 0, 0}, 5 - value, value).bounce_words(), bounce[value - 1]);
  }
}

TEST(Conditions, OutfieldTable) {
  const char* words[] = {"Wet, very slow outfield.", "Slow outfield.", "Somewhat fast outfield.", "Very fast outfield"};
  for (int value = 1; value <= 4; ++value) {
    EXPECT_EQ(opened({0, draw_of(value), 0, 0}).outfield_words(), words[value - 1]);
  }
}

TEST(Conditions, TheFirstPitchFigureBecomesTheSurface) {
  conditions_form form = opened({0, 0, 0, 0}, 1, 4);
  EXPECT_EQ(form.pitch_surface, 1);
  EXPECT_EQ(form.pitch_bounce, 4);
  form.accept();
  EXPECT_TRUE(form.closed);
  EXPECT_EQ(match.ground.pitch_surface, 1);
  EXPECT_EQ(match.ground.pitch_bounce, 4);
}

TEST(Conditions, NothingIsSetBeforeTheOk) {
  conditions_form form = opened({draw_of(3), draw_of(4), 0, 0}, 2, 3);
  EXPECT_FALSE(form.closed);
  EXPECT_EQ(match.weather, 0);
  EXPECT_EQ(match.outfield, 0);
  EXPECT_EQ(match.ground.pitch_bounce, 2);
  EXPECT_EQ(match.ground.pitch_surface, 3);
  form.accept();
  EXPECT_EQ(match.weather, 3);
  EXPECT_EQ(match.outfield, 4);
}

TEST(Conditions, MovedSlidersCountAndTheWordsStay) {
  conditions_form form = opened({draw_of(1), draw_of(1), 0, 0}, 1, 1);
  form.weather = 4;
  form.pitch_surface = 3;
  form.pitch_bounce = 2;
  form.outfield = 3;
  EXPECT_EQ(form.weather_words(), "Dark and Rainy, suitable for the quick bowlers.");
  EXPECT_EQ(form.pitch_words(), "Green top, will suit the quick bowlers.");
  EXPECT_EQ(form.bounce_words(), "High bounce, fast bowlers should dominate.");
  EXPECT_EQ(form.outfield_words(), "Wet, very slow outfield.");
  EXPECT_EQ(form.temperature_line(), "The temperature is 5 C with a humidity of 30%");
  form.accept();
  EXPECT_EQ(match.weather, 4);
  EXPECT_EQ(match.ground.pitch_surface, 3);
  EXPECT_EQ(match.ground.pitch_bounce, 2);
  EXPECT_EQ(match.outfield, 3);
}

TEST(Conditions, TheSkyFollowsTheWeatherSlider) {
  const sky_color top[] = {{0, 0, 0}, {35536, 35536, 35536}, {0, 33536, 65535}, {65535, 35536, 0}};
  const sky_color bottom[] = {{50536, 50536, 50536}, {65535, 65535, 65535}, {0, 65535, 65535}, {65535, 65036, 0}};
  conditions_form form = opened({draw_of(2), 0, 0, 0});
  EXPECT_EQ(form.sky_top(), top[1]);
  for (int value = 1; value <= 4; ++value) {
    form.weather = value;
    EXPECT_EQ(form.sky_top(), top[value - 1]);
    EXPECT_EQ(form.sky_bottom(), bottom[value - 1]);
  }
}

TEST(Conditions, OpenedAgainItDrawsAnewForTheSamePitch) {
  conditions_form form = opened({draw_of(1), draw_of(1), 0, 0}, 2, 4);
  script_draws({draw_of(4), draw_of(3), 0, 0});
  form.closed = true;
  form.open();
  EXPECT_FALSE(form.closed);
  EXPECT_EQ(form.weather, 4);
  EXPECT_EQ(form.pitch_surface, 2);
  EXPECT_EQ(form.pitch_bounce, 4);
  EXPECT_EQ(form.outfield, 3);
  EXPECT_EQ(form.weather_words(), "Hot and Humid, tiring conditions for players.");
}

TEST(Conditions, AFigureThatNoSliderCanShowIsAnError) {
  for (const auto& [first, second] : {std::pair(0, 3), std::pair(5, 3), std::pair(3, 0), std::pair(3, 5)}) {
    set_up_sample_match();
    match.ground.pitch_bounce = first;
    match.ground.pitch_surface = second;
    script_draws({});
    conditions_form form(in_play());
    try {
      form.open();
      ADD_FAILURE() << "no error for " << first << ", " << second;
    } catch (const run_time_error& error) {
      EXPECT_EQ(error.kind(), failure::type);
      EXPECT_EQ(error.place().field, first == 3 ? "pitch_surface" : "pitch_bounce");
    }
  }
}

}  // namespace
}  // namespace velorin::testing
