// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <bit>
#include <concepts>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "database/layout.h"
#include "database/whole_file.h"
#include "model/run_time_error.h"

// Random-access files: arrays of slots of one length, which the file does not store. Record n, counted from 1, starts
// at byte (n - 1) x length. A record beyond the end of the file reads as empty, and what the end cuts off reads as
// empty, too. The bytes behind the last field have no meaning: they stay in an existing slot and are zero in a new one.

namespace velorin {

/// Appends fields in their on-disk form.
class slot_writer {
 public:
  /// A text of more than 65535 bytes leaves a record that no slot takes.
  void operator()(const char* name, const std::string& text);
  void operator()(const char*, const integer& number) { little_endian(static_cast<std::uint16_t>(int{number})); }
  void operator()(const char*, std::int32_t number) { little_endian(static_cast<std::uint32_t>(number)); }
  void operator()(const char*, float number) { little_endian(std::bit_cast<std::uint32_t>(number)); }
  void operator()(const char* name, const tagged& value);
  template <std::size_t n>
  void operator()(const char*, const std::array<std::uint8_t, n>& raw) {
    bytes_.append(raw.begin(), raw.end());
  }
  template <typename Record, std::size_t n>
  void operator()(const char*, const std::array<Record, n>& records) {
    for (std::size_t i = 1; i < n; ++i) visit_fields(records[i], *this);
  }

  const std::string& bytes() const& { return bytes_; }
  std::string bytes() && { return std::move(bytes_); }

 private:
  template <std::unsigned_integral Number>
  void little_endian(Number number) {
    char bytes[sizeof number];
    for (std::size_t i = 0; i < sizeof number; ++i) bytes[i] = static_cast<char>(number >> (8 * i) & 0xFF);
    bytes_.append(bytes, sizeof number);
  }

  std::string bytes_;
};

/// What is wrong with a slot.
struct slot_fault {
  std::string field;  ///< such as "bat_skill", or "squad[3].bat_skill"
  std::string what;
};

/// Takes fields out of a slot. After the first fault every further field reads as empty.
class slot_reader {
 public:
  /// `present` are the bytes of the slot that the file has, at most `slot_length`.
  slot_reader(std::string_view present, std::size_t slot_length) : present_(present), length_(slot_length) {}

  void operator()(const char* name, std::string& text);
  void operator()(const char* name, integer& number);
  void operator()(const char* name, std::int32_t& number);
  void operator()(const char* name, float& number);
  void operator()(const char* name, tagged& value);
  template <std::size_t n>
  void operator()(const char* name, std::array<std::uint8_t, n>& raw) {
    const std::string_view got = take(name, n);
    raw.fill(0);
    got.copy(reinterpret_cast<char*>(raw.data()), got.size());
  }
  template <typename Record, std::size_t n>
  void operator()(const char* name, std::array<Record, n>& records) {
    list_ = name;
    for (place_ = 1; place_ < n; ++place_) visit_fields(records[place_], *this);
    list_ = nullptr;
  }

  /// The first thing that cannot be read: a text or number that runs beyond the slot, an unknown tag.
  const std::optional<slot_fault>& fault() const { return fault_; }
  /// The first field that the end of the file cuts in two. A text reads as what there is of it.
  const std::optional<slot_fault>& cut() const { return cut_; }
  /// The first field of which the file has not all bytes, or none at all.
  const std::optional<slot_fault>& missing() const { return missing_; }

 private:
  /// The next `count` bytes of the slot, fewer at the end of the file, none after a fault.
  std::string_view take(const char* name, std::size_t count);
  template <std::unsigned_integral Number>
  Number number(const char* name);
  std::string field_name(const char* name) const;
  void set_fault(const char* name, std::string what);
  void note_cut(const char* name);
  void note_missing(const char* name);

  std::string_view present_;
  std::size_t length_;
  std::size_t at_ = 0;
  const char* list_ = nullptr;
  std::size_t place_ = 0;
  std::optional<slot_fault> fault_;
  std::optional<slot_fault> cut_;
  std::optional<slot_fault> missing_;
};

/// The bytes that a record takes in its slot.
template <typename Record>
std::string encoded(const Record& rec) {
  slot_writer writer;
  visit_fields(rec, writer);
  return std::move(writer).bytes();
}

/// The bytes of a record of one field.
template <typename Field>
std::string encoded_field(const Field& field) {
  slot_writer writer;
  writer("", field);
  return std::move(writer).bytes();
}

/// A random-access file in memory.
class slot_file {
 public:
  /// `name` is the file's name for errors.
  slot_file(std::string bytes, std::size_t slot_length, std::string name)
      : bytes_(std::move(bytes)), length_(slot_length), name_(std::move(name)) {}
  /// Reads a file; a missing one is empty.
  static slot_file read(const std::filesystem::path& file, std::size_t slot_length);
  /// Reads a file. Raises run_time_error (file) if it is missing.
  static slot_file read_existing(const std::filesystem::path& file, std::size_t slot_length);

  /// The bytes that the file has of a slot.
  std::string_view slot(long record) const;
  slot_reader reader(long record) const { return {slot(record), length_}; }

  /// Fills an empty record. Raises run_time_error (type) that names file, record and field.
  template <typename Record>
  void get(long record, Record& rec) const {
    slot_reader fields = reader(record);
    visit_fields(rec, fields);
    raise_fault(record, fields);
  }
  /// The same for a record of one field.
  template <typename Field>
  void get_field(long record, const char* field_name, Field& field) const {
    slot_reader fields = reader(record);
    fields(field_name, field);
    raise_fault(record, fields);
  }

  /// Lays the bytes of a record over its slot. The file grows by full slots of zeros. Raises run_time_error (overflow)
  /// if the slot is too short; `whose` is the player or team named then.
  void put(long record, std::string_view fields, const std::string& whose, const std::string& field = {});

  /// The count of records in record 1, an Integer without a tag. Raises run_time_error (type) if it is below 0.
  int count(const char* field) const;
  /// The records 2 to count + 1. Raises run_time_error: a count beyond `limit` (subscript), what cannot be read (type).
  template <typename Record>
  std::vector<Record> counted_records(const char* field, int limit) const {
    const int all = count(field);
    std::vector<Record> records(static_cast<std::size_t>(std::min(all, limit)));
    for (std::size_t i = 0; i < records.size(); ++i) get(static_cast<long>(i) + 2, records[i]);
    if (all > limit) raise_beyond(limit, all, field);
    return records;
  }

  const std::string& bytes() const& { return bytes_; }
  std::string bytes() && { return std::move(bytes_); }
  const std::string& name() const { return name_; }
  std::size_t slot_length() const { return length_; }

 private:
  void raise_fault(long record, const slot_reader& fields) const;
  [[noreturn]] void raise_beyond(int limit, int all, const char* field) const;

  std::string bytes_;
  std::size_t length_;
  std::string name_;
};

}  // namespace velorin
