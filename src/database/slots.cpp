// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/slots.h"

#include <fmt/format.h>

#include <cstring>

namespace velorin {

namespace {

/// The tags, each the number of its type.
enum tag : std::uint16_t { tag_empty = 0, tag_integer = 2, tag_long = 3, tag_double = 5, tag_string = 8 };

}  // namespace

void slot_writer::operator()(const char*, const std::string& text) {
  little_endian(static_cast<std::uint16_t>(text.size()));
  bytes_ += text;
}

void slot_writer::operator()(const char* name, const tagged& value) {
  if (const auto* whole = std::get_if<integer>(&value.value)) {
    little_endian(std::uint16_t{tag_integer});
    (*this)(name, *whole);
  } else if (const auto* wide = std::get_if<std::int32_t>(&value.value)) {
    little_endian(std::uint16_t{tag_long});
    (*this)(name, *wide);
  } else if (const auto* real = std::get_if<double>(&value.value)) {
    little_endian(std::uint16_t{tag_double});
    little_endian(std::bit_cast<std::uint64_t>(*real));
  } else if (const auto* text = std::get_if<std::string>(&value.value)) {
    little_endian(std::uint16_t{tag_string});
    (*this)(name, *text);
  } else {
    little_endian(std::uint16_t{tag_empty});
  }
}

std::string slot_reader::field_name(const char* name) const {
  return list_ == nullptr ? std::string(name) : fmt::format("{}[{}].{}", list_, place_, name);
}

void slot_reader::set_fault(const char* name, std::string what) {
  if (!fault_) fault_ = slot_fault{field_name(name), std::move(what)};
}

void slot_reader::note_cut(const char* name) {
  if (!cut_) cut_ = slot_fault{field_name(name), "the file ends within this field"};
}

void slot_reader::note_missing(const char* name) {
  if (missing_) return;
  missing_ = cut_ ? cut_ : slot_fault{field_name(name), "the file ends before this field"};
}

std::string_view slot_reader::take(const char* name, std::size_t count) {
  if (fault_) return {};
  if (count > length_ - at_) {
    set_fault(name, fmt::format("{} bytes from byte {} on run beyond the slot of {}", count, at_, length_));
    return {};
  }
  const std::string_view got = at_ < present_.size() ? present_.substr(at_, count) : std::string_view();
  if (!got.empty() && got.size() < count) note_cut(name);
  if (got.size() < count) note_missing(name);
  at_ += count;
  return got;
}

template <std::unsigned_integral Number>
Number slot_reader::number(const char* name) {
  char bytes[sizeof(Number)] = {};
  if (!fault_ && present_.size() - at_ >= sizeof bytes && at_ <= present_.size()) {
    std::memcpy(bytes, present_.data() + at_, sizeof bytes);
    at_ += sizeof bytes;
  } else {
    take(name, sizeof bytes).copy(bytes, sizeof bytes);
  }
  Number value = 0;
  for (std::size_t i = 0; i < sizeof bytes; ++i) {
    value = static_cast<Number>(value | Number{static_cast<std::uint8_t>(bytes[i])} << (8 * i));
  }
  return value;
}

void slot_reader::operator()(const char* name, std::string& text) {
  const std::size_t length = number<std::uint16_t>(name);
  text = take(name, length);
  if (fault_ || text.size() == length) return;
  note_cut(name);
  missing_ = cut_;
}

void slot_reader::operator()(const char* name, integer& value) {
  value = static_cast<std::int16_t>(number<std::uint16_t>(name));
}

void slot_reader::operator()(const char* name, std::int32_t& value) {
  value = static_cast<std::int32_t>(number<std::uint32_t>(name));
}

void slot_reader::operator()(const char* name, float& value) {
  value = std::bit_cast<float>(number<std::uint32_t>(name));
}

void slot_reader::operator()(const char* name, tagged& value) {
  value = tagged{};
  switch (const std::uint16_t kind = number<std::uint16_t>(name)) {
    case tag_empty:
      return;
    case tag_integer:
      (*this)(name, value.value.emplace<integer>());
      return;
    case tag_long:
      (*this)(name, value.value.emplace<std::int32_t>());
      return;
    case tag_double:
      value.value = std::bit_cast<double>(number<std::uint64_t>(name));
      return;
    case tag_string:
      (*this)(name, value.value.emplace<std::string>());
      return;
    default:
      set_fault(name, fmt::format("unknown tag {}", kind));
  }
}

slot_file slot_file::read(const std::filesystem::path& file, std::size_t slot_length) {
  return {read_file(file).value_or(std::string()), slot_length, file_name_text(file)};
}

slot_file slot_file::read_existing(const std::filesystem::path& file, std::size_t slot_length) {
  std::optional<std::string> bytes = read_file(file);
  if (!bytes) throw run_time_error(failure::file, "The file is missing", {file_name_text(file), 0, {}, {}});
  return {std::move(*bytes), slot_length, file_name_text(file)};
}

std::string_view slot_file::slot(long record) const {
  const std::size_t start = static_cast<std::size_t>(record - 1) * length_;
  return start < bytes_.size() ? std::string_view(bytes_).substr(start, length_) : std::string_view();
}

void slot_file::put(long record, std::string_view fields, const std::string& whose, const std::string& field) {
  if (fields.size() > length_) {
    throw run_time_error(failure::overflow,
                         fmt::format("Overflow: a record of {} bytes in a slot of {}", fields.size(), length_),
                         {.file = name_, .record = record, .field = field, .player = whose});
  }
  const std::size_t start = static_cast<std::size_t>(record - 1) * length_;
  const std::size_t slots = std::max(static_cast<std::size_t>(record), (bytes_.size() + length_ - 1) / length_);
  bytes_.resize(slots * length_, '\0');
  bytes_.replace(start, fields.size(), fields);
}

int slot_file::count(const char* field) const {
  integer counted;
  get_field(1, field, counted);
  if (counted >= 0) return counted;
  throw run_time_error(failure::type, fmt::format("Type mismatch: a count of {}", int{counted}),
                       {.file = name_, .record = 1, .field = field, .player = {}});
}

void slot_file::raise_beyond(int limit, int all, const char* field) const {
  throw run_time_error(failure::subscript, fmt::format("Subscript out of range: a count of {}, at most {}", all, limit),
                       {.file = name_, .record = limit + 2, .field = field, .player = {}});
}

void slot_file::raise_fault(long record, const slot_reader& fields) const {
  if (!fields.fault()) return;
  throw run_time_error(failure::type, "Type mismatch: " + fields.fault()->what,
                       {.file = name_, .record = record, .field = fields.fault()->field, .player = {}});
}

}  // namespace velorin
