// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <bit>
#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>

#include "model/integer.h"

// How values stand in a recording. Whole numbers take seven bits a byte, the lowest first, the eighth bit set in all
// but the last; those that can be negative are folded first: 0, -1, 1, -2 become 0, 1, 2, 3. A text is its length and
// its bytes. Numbers with a fraction are their IEEE 754 bytes, the lowest first.

namespace velorin {

/// Appends values.
class packer {
 public:
  void number(std::uint64_t value) {
    for (; value >= 0x80; value >>= 7) bytes_.push_back(static_cast<char>(value | 0x80));
    bytes_.push_back(static_cast<char>(value));
  }
  void signed_number(std::int64_t value) {
    number(static_cast<std::uint64_t>(value) << 1 ^ static_cast<std::uint64_t>(value >> 63));
  }
  void fixed(std::uint64_t value, int bytes) {
    for (int i = 0; i < bytes; ++i) bytes_.push_back(static_cast<char>(value >> 8 * i & 0xFF));
  }
  void real(double value) { fixed(std::bit_cast<std::uint64_t>(value), 8); }
  void flag(bool value) { number(value ? 1 : 0); }
  void text(std::string_view value) {
    number(value.size());
    bytes_.append(value);
  }

  // Fields of a record, as visit_fields() tells them.
  void operator()(const char*, const std::string& value) { text(value); }
  void operator()(const char*, const integer& value) { signed_number(int{value}); }
  void operator()(const char*, std::int32_t value) { signed_number(value); }
  void operator()(const char*, float value) { fixed(std::bit_cast<std::uint32_t>(value), 4); }

  const std::string& bytes() const { return bytes_; }
  std::string& bytes() { return bytes_; }

 private:
  std::string bytes_;
};

/// Takes values. Past the end, and after a number of more than ten bytes, it gives empty ones and is no longer whole().
class unpacker {
 public:
  explicit unpacker(std::string_view bytes) : left_(bytes) {}

  std::uint64_t number();
  std::int64_t signed_number() {
    const std::uint64_t folded = number();
    return static_cast<std::int64_t>(folded >> 1) ^ -static_cast<std::int64_t>(folded & 1);
  }
  /// A number from 0 to `most`; a greater one is a fault.
  int number_to(int most);
  std::uint64_t fixed(int bytes);
  double real() { return std::bit_cast<double>(fixed(8)); }
  bool flag() { return number_to(1) == 1; }
  std::string text();

  void operator()(const char*, std::string& value) { value = text(); }
  void operator()(const char*, integer& value);
  void operator()(const char*, std::int32_t& value) { value = static_cast<std::int32_t>(signed_number()); }
  void operator()(const char*, float& value) { value = std::bit_cast<float>(static_cast<std::uint32_t>(fixed(4))); }

  /// Nothing was missing or out of range so far.
  bool whole() const { return whole_; }
  /// Whole, and nothing is left.
  bool done() const { return whole_ && left_.empty(); }
  std::size_t left() const { return left_.size(); }
  void fail() { whole_ = false; }

 private:
  std::string_view left_;
  bool whole_ = true;
};

/// The CRC-32 of IEEE 802.3 (reflected, polynomial 0xEDB88320) of these bytes behind those that gave `before`; of
/// nothing it is 0.
std::uint32_t crc_32(std::string_view bytes, std::uint32_t before = 0);

}  // namespace velorin
