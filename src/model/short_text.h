// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>

namespace velorin {

/// A text that is short nearly always, such as the symbol of a ball or a name: up to 23 characters lie in the record
/// itself, so that writing, copying and clearing one costs next to nothing; a longer one takes memory of its own.
class short_text {
 public:
  short_text() = default;
  short_text(std::string_view text) { assign(text); }    // NOLINT(google-explicit-constructor)
  short_text(const std::string& text) { assign(text); }  // NOLINT(google-explicit-constructor)
  short_text(const char* text) { assign(text); }         // NOLINT(google-explicit-constructor)
  short_text(const short_text& other) { copy(other); }
  short_text(short_text&&) noexcept = default;
  short_text& operator=(const short_text& other) {
    if (this != &other) copy(other);
    return *this;
  }
  short_text& operator=(short_text&&) noexcept = default;
  ~short_text() = default;

  operator std::string_view() const {  // NOLINT(google-explicit-constructor)
    return outside_ ? std::string_view(*outside_) : std::string_view(inside_.data(), size());
  }
  bool empty() const { return size() == 0 && !outside_; }
  void clear() {
    outside_.reset();
    set_size(0);
  }
  /// Makes it a text of one character.
  void set(char one) {
    outside_.reset();
    inside_[0] = one;
    set_size(1);
  }

  short_text& operator+=(std::string_view more) {
    assign(std::string(std::string_view(*this)).append(more));
    return *this;
  }

  friend void swap(short_text& a, short_text& b) noexcept {
    std::swap(a.outside_, b.outside_);
    std::swap(a.inside_, b.inside_);
  }

  friend bool operator==(const short_text& a, std::string_view b) { return std::string_view(a) == b; }
  friend bool operator==(const short_text& a, const char* b) { return std::string_view(a) == b; }
  friend bool operator==(const short_text& a, const std::string& b) { return std::string_view(a) == b; }
  friend bool operator==(const short_text& a, const short_text& b) { return a == std::string_view(b); }
  friend std::ostream& operator<<(std::ostream& out, const short_text& text) { return out << std::string_view(text); }

 private:
  void assign(std::string_view text) {
    if (text.size() < inside_.size()) [[likely]] {
      outside_.reset();
      set_size(text.size());
      text.copy(inside_.data(), text.size());
    } else {
      outside_ = std::make_unique<std::string>(text);
      set_size(0);
    }
  }
  void copy(const short_text& other) {
    if (outside_ || other.outside_) [[unlikely]] {
      outside_ = other.outside_ ? std::make_unique<std::string>(*other.outside_) : nullptr;
    }
    inside_ = other.inside_;
  }
  std::size_t size() const { return static_cast<std::uint8_t>(inside_.back()); }
  void set_size(std::size_t size) { inside_.back() = static_cast<char>(size); }

  std::unique_ptr<std::string> outside_;  // holds the text if it is set
  std::array<char, 24> inside_{};         // else it is here, its length in the last place
};

}  // namespace velorin
