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
    char* at = room_for(10);
    for (; value >= 0x80; value >>= 7) *at++ = static_cast<char>(value | 0x80);
    *at++ = static_cast<char>(value);
    size_ = static_cast<std::size_t>(at - bytes_.data());
  }
  void signed_number(std::int64_t value) {
    number(static_cast<std::uint64_t>(value) << 1 ^ static_cast<std::uint64_t>(value >> 63));
  }
  void fixed(std::uint64_t value, int bytes) {
    char* at = room_for(8);
    for (int i = 0; i < bytes; ++i) at[i] = static_cast<char>(value >> 8 * i & 0xFF);
    size_ += static_cast<std::size_t>(bytes);
  }
  void real(double value) { fixed(std::bit_cast<std::uint64_t>(value), 8); }
  void flag(bool value) { number(value ? 1 : 0); }
  void text(std::string_view value) {
    number(value.size());
    raw(value);
  }
  /// The bytes alone.
  void raw(std::string_view value) {
    char* at = room_for(value.size());
    for (const char each : value) *at++ = each;
    size_ += value.size();
  }

  // Fields of a record, as visit_fields() tells them.
  void operator()(const char*, const std::string& value) { text(value); }
  void operator()(const char*, const integer& value) { signed_number(int{value}); }
  void operator()(const char*, std::int32_t value) { signed_number(value); }
  void operator()(const char*, float value) { fixed(std::bit_cast<std::uint32_t>(value), 4); }

  /// All that has been appended, until the next change.
  std::string_view bytes() const { return {bytes_.data(), size_}; }
  bool empty() const { return size_ == 0; }
  void clear() { size_ = 0; }

 private:
  char* room_for(std::size_t more) {
    if (bytes_.size() - size_ < more) bytes_.resize(2 * bytes_.size() + more);
    return bytes_.data() + size_;
  }

  std::string bytes_;  // with room behind what counts
  std::size_t size_ = 0;
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
/// The same of eight bytes, the lowest first.
std::uint32_t crc_32_of_eight(std::uint64_t bytes, std::uint32_t before);

/// Bytes that stand behind others again and again: they are summed once.
class summed_bytes {
 public:
  summed_bytes() = default;
  explicit summed_bytes(std::string_view bytes);

  const std::string& bytes() const { return bytes_; }
  bool empty() const { return bytes_.empty(); }
  /// crc_32() of them behind those that gave `before`.
  std::uint32_t crc_32_behind(std::uint32_t before) const;

 private:
  std::string bytes_;
  std::uint32_t sum_ = 0;
  std::uint32_t shift_ = 0;  // what a sum is multiplied by as they come behind it
};

}  // namespace velorin
