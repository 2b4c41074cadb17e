// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace velorin {

/// What chance has come from, for whoever wants to draw it once more.
struct chance_log {
  std::vector<std::uint64_t> readings;  ///< nanosecond readings of the clock, in the order in which they were taken
  std::vector<double> draws;            ///< scripted draws, likewise
};

/// The draws that follow on a place once taken up again: those that came there before, or others.
enum class luck : std::uint8_t { same, fresh };

/// Where chance comes from. All draws of a match go through one source.
class random_source {
 public:
  /// A place in the row of draws, to come back to.
  struct place {
    std::uint64_t state = 0;
    std::uint64_t draws_used = 0;
    std::size_t readings_used = 0;
  };

  /// Draws from a generator that reseed() sets from a nanosecond reading of the clock. The source at start.
  void use_clock();
  /// Draws from one generator started with `seed`; reseed() does nothing.
  void use_seed(std::uint64_t seed);
  /// Draws the given numbers, each in [0,1), in turn; reseed() does nothing. `name` is the file's name for errors.
  void use_script(std::vector<double> draws, std::string name);

  /// Draws from the generator in this state; reseed() takes the given nanosecond readings in turn.
  void use_readings(std::uint64_t state, std::vector<std::uint64_t> readings);
  /// Draws from the generator in this state; reseed() does nothing. The readings are those that fresh luck takes.
  void use_state(std::uint64_t state, std::vector<std::uint64_t> readings = {});
  /// From here on each reading is one of the clock; the generator goes on where it stands, a seeded one as such.
  void go_on_by_clock();
  /// Behind the given readings come those of the clock. What it has read by the next log_to() is added to that log.
  void let_clock_follow() { clock_follows_ = true; }
  /// A reading was asked for that was not given.
  bool ran_out() const { return ran_out_; }

  /// What the source draws from.
  enum class kind : std::uint8_t { seed, script, clock, readings };
  kind drawn_from() const { return kind_; }
  /// The generator's state.
  std::uint64_t state() const { return state_; }
  /// Given readings that reseed() has not taken yet, or scripted draws not used yet.
  std::size_t left() const;

  /// Readings of the clock and scripted draws are added to `log`, which outlives its use; nullptr for none. A copy of
  /// the source adds to the same.
  void log_to(chance_log* log);

  /// Before most groups of draws. With the clock: restarts the generator from a pure function of a nanosecond reading.
  void reseed() {
    if (kind_ >= kind::clock) state_ = seed_from_reading(next_reading());
  }

  /// A number in [0,1). Raises run_time_error (subscript) when a script has run out.
  [[gnu::always_inline]] double rnd() {
    ++draws_used_;
    if (kind_ == kind::script) return next_of_script();
    state_ += golden;
    return static_cast<double>(mix(state_) >> 32) * 0x1p-32;
  }

  /// Numbers drawn since the program started or the source was chosen.
  std::uint64_t draws_used() const { return draws_used_; }

  /// From now on the readings of the clock are kept, so that return_to() can bring them again. None are kept at first.
  void keep_readings();
  /// What is kept goes, and no more is kept. The next reading is that of the clock.
  void forget_readings();
  bool keeps_readings() const { return keeps_readings_; }

  place here() const { return {state_, draws_used_, readings_used_}; }
  /// Goes back to a place. With the same luck the draws come again that followed on it; with the clock that takes
  /// readings kept since before it, and once they are used up the clock is read again. With fresh luck nothing comes
  /// that has been drawn since: the generator starts from a reading of the clock, also one of a seed; a script goes on
  /// with the draws that nobody has had.
  void return_to(const place& earlier, luck wanted);

  /// A bijection of 64-bit numbers with full avalanche: each bit of the value turns over half the bits of the result.
  static constexpr std::uint64_t mix(std::uint64_t value) {
    value = (value ^ (value >> 30)) * 0xBF58476D1CE4E5B9U;
    value = (value ^ (value >> 27)) * 0x94D049BB133111EBU;
    return value ^ (value >> 31);
  }

  /// The generator's state after reseeding at the given nanosecond.
  static constexpr std::uint64_t seed_from_reading(std::uint64_t nanoseconds) { return mix(nanoseconds + golden); }

 private:
  static constexpr std::uint64_t golden = 0x9E3779B97F4A7C15U;

  std::uint64_t clock_reading();
  std::uint64_t next_reading();
  double next_of_script();

  kind kind_ = kind::clock;
  std::uint64_t state_ = 0;
  std::uint64_t draws_used_ = 0;
  std::vector<double> script_;
  std::vector<std::uint64_t> given_;  // readings
  std::size_t given_taken_ = 0;
  bool given_alone_ = false;  // no reading but the given ones
  bool clock_follows_ = false;
  bool ran_out_ = false;
  std::vector<std::uint64_t> read_behind_;  // by the clock that followed, with nobody to log it
  chance_log* log_ = nullptr;
  std::string script_name_;
  std::uint64_t furthest_draw_ = 0;  // of a script, before it went back
  bool keeps_readings_ = false;
  std::size_t readings_used_ = 0;
  std::vector<std::uint64_t> readings_;  // in nanoseconds; those behind the used ones come again
};

/// A whole number from 1 to n with equal chance: Int(n x r + 1). One draw. n from 1 to 32767.
inline int die(random_source& chance, int n) {
  const int face = static_cast<int>(n * chance.rnd() + 1.0);
  return face > n ? n : face;
}

/// 1 or 2 with equal chance. One draw.
inline int coin(random_source& chance) { return die(chance, 2); }

}  // namespace velorin
