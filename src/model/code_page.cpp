// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/code_page.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace velorin {

namespace {

/// Code points of the bytes 0x80 to 0x9F; all other bytes are their own code point.
constexpr std::array<char32_t, 32> upper_controls = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                     0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                     0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                     0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

void append_utf8(std::string& text, char32_t code) {
  if (code < 0x80) {
    text += static_cast<char>(code);
  } else if (code < 0x800) {
    text += static_cast<char>(0xC0 | (code >> 6));
    text += static_cast<char>(0x80 | (code & 0x3F));
  } else {
    text += static_cast<char>(0xE0 | (code >> 12));
    text += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
    text += static_cast<char>(0x80 | (code & 0x3F));
  }
}

/// How many bytes follow the first byte of a character in UTF-8; -1 for a byte that begins none.
int bytes_behind(std::uint8_t lead) {
  if (lead < 0x80) return 0;
  if (lead >= 0xC2 && lead < 0xE0) return 1;
  if (lead >= 0xE0 && lead < 0xF0) return 2;
  return lead >= 0xF0 && lead < 0xF5 ? 3 : -1;
}

/// Whether `next` may follow the first byte of a character: neither a longer form than needed, nor half of a pair, nor
/// beyond the last character.
bool may_follow(std::uint8_t lead, std::uint8_t next) {
  if (lead == 0xE0) return next >= 0xA0;
  if (lead == 0xED) return next < 0xA0;
  if (lead == 0xF0) return next >= 0x90;
  return lead != 0xF4 || next < 0x90;
}

/// Decodes one character of up to three bytes at `at` and moves past it. Nothing if the bytes are not valid; characters
/// of four bytes have no place in the code page and count as not valid here.
std::optional<char32_t> next_character(std::string_view text, std::size_t& at) {
  const auto byte = [&](std::size_t i) { return static_cast<std::uint8_t>(text[i]); };
  const auto follows = [&](std::size_t i) { return i < text.size() && (byte(i) & 0xC0) == 0x80; };
  const std::uint8_t lead = byte(at);
  if (lead < 0x80) {
    ++at;
    return lead;
  }
  if ((lead & 0xE0) == 0xC0 && follows(at + 1)) {
    const char32_t code = static_cast<char32_t>((lead & 0x1F) << 6 | (byte(at + 1) & 0x3F));
    if (code < 0x80) return std::nullopt;
    at += 2;
    return code;
  }
  if ((lead & 0xF0) == 0xE0 && follows(at + 1) && follows(at + 2)) {
    const char32_t code =
        static_cast<char32_t>((lead & 0x0F) << 12 | (byte(at + 1) & 0x3F) << 6 | (byte(at + 2) & 0x3F));
    if (code < 0x800 || (code >= 0xD800 && code <= 0xDFFF)) return std::nullopt;
    at += 3;
    return code;
  }
  return std::nullopt;
}

}  // namespace

std::string to_utf8(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size());
  for (const char c : bytes) {
    const auto byte = static_cast<std::uint8_t>(c);
    append_utf8(text, byte >= 0x80 && byte < 0xA0 ? upper_controls[byte - 0x80] : byte);
  }
  return text;
}

std::optional<std::string> from_utf8(std::string_view text, std::size_t* bad_offset) {
  std::string bytes;
  bytes.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t start = at;
    const auto code = next_character(text, at);
    if (code && (*code < 0x80 || (*code >= 0xA0 && *code <= 0xFF))) {
      bytes += static_cast<char>(*code);
      continue;
    }
    const auto found = code ? std::find(upper_controls.begin(), upper_controls.end(), *code) : upper_controls.end();
    if (found == upper_controls.end()) {
      if (bad_offset != nullptr) *bad_offset = start;
      return std::nullopt;
    }
    bytes += static_cast<char>(0x80 + (found - upper_controls.begin()));
  }
  return bytes;
}

bool is_control(char byte) {
  const auto code = static_cast<std::uint8_t>(byte);
  return code < 0x20 || code == 0x7F || (code >= 0x80 && code < 0xA0 && upper_controls[code - 0x80] == code);
}

bool has_control(std::string_view text) { return std::any_of(text.begin(), text.end(), is_control); }

bool is_utf8(std::string_view text) {
  int behind = 0;
  std::uint8_t lead = 0;
  for (const char c : text) {
    const auto byte = static_cast<std::uint8_t>(c);
    if (behind == 0) {
      lead = byte;
      behind = bytes_behind(byte);
      if (behind < 0) return false;
    } else {
      if ((byte & 0xC0) != 0x80 || !may_follow(lead, byte)) return false;
      lead = 0;
      --behind;
    }
  }
  return behind == 0;
}

std::string without_controls(std::string_view text) {
  std::string shown(text);
  if (!is_utf8(text)) {
    std::replace_if(shown.begin(), shown.end(), is_control, '?');
    return shown;
  }
  // Above 0x7F it is C2 80 to C2 9F, and C2 begins nothing but characters of two bytes.
  for (std::size_t at = shown.find('\xC2'); at != std::string::npos; at = shown.find('\xC2', at + 1)) {
    if (static_cast<std::uint8_t>(shown[at + 1]) < 0xA0) shown.replace(at, 2, "?");
  }
  std::replace_if(
      shown.begin(), shown.end(), [](char c) { return static_cast<std::uint8_t>(c) < 0x20 || c == 0x7F; }, '?');
  return shown;
}

std::string shown_line(std::string_view bytes) {
  std::string line(bytes);
  std::replace_if(line.begin(), line.end(), is_control, '?');
  return to_utf8(line);
}

}  // namespace velorin
