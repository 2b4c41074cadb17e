// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace velorin {

/// Windows-1252 bytes as UTF-8. Every byte has a character; the five bytes without one in the code page become the
/// control characters of the same number, so that the way back gives the same bytes.
std::string to_utf8(std::string_view bytes);

/// UTF-8 as Windows-1252 bytes, or nothing if the text is not valid UTF-8 or has a character without a place there.
/// `bad_offset`, where given, receives the byte offset of the first such character.
std::optional<std::string> from_utf8(std::string_view text, std::size_t* bad_offset = nullptr);

/// True for a byte without a sign of its own: the control characters, and the bytes without a character.
bool is_control(char byte);
bool has_control(std::string_view text);

/// True for valid UTF-8.
bool is_utf8(std::string_view text);

/// A text with "?" for each control character, to U+009F. It is UTF-8 if it is valid as that, else Windows-1252, and
/// stays what it is.
std::string without_controls(std::string_view text);

/// Windows-1252 bytes as UTF-8 that stays on its line: with "?" for each control character.
std::string shown_line(std::string_view bytes);

}  // namespace velorin
