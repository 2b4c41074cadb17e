// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/packing.h"

#include <algorithm>

namespace velorin {

namespace {

constexpr std::uint32_t polynomial = 0xEDB88320U;

using crc_tables = std::array<std::array<std::uint32_t, 256>, 8>;

/// [k][b]: the remainder of byte b with k zero bytes behind it, so that eight bytes are taken at once.
constexpr crc_tables make_crc_tables() {
  crc_tables tables{};
  for (std::uint32_t byte = 0; byte < 256; ++byte) {
    std::uint32_t rest = byte;
    for (int bit = 0; bit < 8; ++bit) rest = (rest & 1) != 0 ? rest >> 1 ^ polynomial : rest >> 1;
    tables[0][byte] = rest;
  }
  for (std::size_t zeros = 1; zeros < 8; ++zeros) {
    for (std::size_t byte = 0; byte < 256; ++byte) {
      const std::uint32_t rest = tables[zeros - 1][byte];
      tables[zeros][byte] = rest >> 8 ^ tables[0][rest & 0xFF];
    }
  }
  return tables;
}

constexpr crc_tables remainders = make_crc_tables();

std::uint32_t remainder_of_eight(std::uint64_t bytes, std::uint32_t rest) {
  const std::uint64_t all = bytes ^ rest;
  return remainders[7][all & 0xFF] ^ remainders[6][all >> 8 & 0xFF] ^ remainders[5][all >> 16 & 0xFF] ^
         remainders[4][all >> 24 & 0xFF] ^ remainders[3][all >> 32 & 0xFF] ^ remainders[2][all >> 40 & 0xFF] ^
         remainders[1][all >> 48 & 0xFF] ^ remainders[0][all >> 56];
}

// A remainder is a polynomial over two elements, the highest bit the constant; a zero byte behind it multiplies it by
// the eighth power of x.
constexpr std::uint32_t one = 1U << 31;
constexpr std::uint32_t a_byte = one >> 8;

std::uint32_t product(std::uint32_t first, std::uint32_t second) {
  std::uint32_t sum = 0;
  for (; first != 0; first <<= 1) {
    if ((first & one) != 0) sum ^= second;
    second = (second & 1) != 0 ? second >> 1 ^ polynomial : second >> 1;
  }
  return sum;
}

}  // namespace

summed_bytes::summed_bytes(std::string_view bytes) : bytes_(bytes), sum_(crc_32(bytes)), shift_(one) {
  std::uint32_t power = a_byte;
  for (std::size_t left = bytes.size(); left != 0; left >>= 1) {
    if ((left & 1) != 0) shift_ = product(shift_, power);
    power = product(power, power);
  }
}

std::uint32_t summed_bytes::crc_32_behind(std::uint32_t before) const { return product(before, shift_) ^ sum_; }

std::uint32_t crc_32(std::string_view bytes, std::uint32_t before) {
  std::uint32_t rest = ~before;
  const auto at = [&](std::size_t i) { return static_cast<std::uint64_t>(static_cast<unsigned char>(bytes[i])); };
  while (bytes.size() >= 8) {
    rest = remainder_of_eight(
        at(0) | at(1) << 8 | at(2) << 16 | at(3) << 24 | at(4) << 32 | at(5) << 40 | at(6) << 48 | at(7) << 56, rest);
    bytes.remove_prefix(8);
  }
  for (std::size_t i = 0; i < bytes.size(); ++i) rest = rest >> 8 ^ remainders[0][(rest ^ at(i)) & 0xFF];
  return ~rest;
}

std::uint32_t crc_32_of_eight(std::uint64_t bytes, std::uint32_t before) { return ~remainder_of_eight(bytes, ~before); }

std::uint64_t unpacker::number() {
  std::uint64_t value = 0;
  for (int shift = 0; shift < 70 && !left_.empty(); shift += 7) {
    const auto byte = static_cast<unsigned char>(left_.front());
    left_.remove_prefix(1);
    if (shift == 63 && byte > 1) break;
    value |= std::uint64_t{byte & 0x7FU} << shift;
    if (byte < 0x80) return value;
  }
  whole_ = false;
  return 0;
}

int unpacker::number_to(int most) {
  const std::uint64_t value = number();
  if (value <= static_cast<std::uint64_t>(most)) return static_cast<int>(value);
  whole_ = false;
  return 0;
}

std::uint64_t unpacker::fixed(int bytes) {
  const auto length = static_cast<std::size_t>(bytes);
  std::uint64_t value = 0;
  if (left_.size() < length) {
    whole_ = false;
    left_ = {};
    return 0;
  }
  for (std::size_t i = 0; i < length; ++i) value |= std::uint64_t{static_cast<unsigned char>(left_[i])} << 8 * i;
  left_.remove_prefix(length);
  return value;
}

std::string unpacker::text() {
  const std::uint64_t length = number();
  if (length > left_.size()) {
    whole_ = false;
    left_ = {};
    return {};
  }
  std::string value(left_.substr(0, static_cast<std::size_t>(length)));
  left_.remove_prefix(static_cast<std::size_t>(length));
  return value;
}

void unpacker::operator()(const char*, integer& value) {
  const std::int64_t number = signed_number();
  if (integer::holds(number)) {
    value = number;
  } else {
    whole_ = false;
  }
}

}  // namespace velorin
