// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "database/agreement.h"
#include "database/slots.h"

namespace velorin {

/// One file with the list to which its faults go.
class checked_file {
 public:
  checked_file(slot_file file, std::vector<database_fault>& faults) : file_(std::move(file)), faults_(faults) {}

  void add(std::optional<database_fault> fault) {
    if (fault) faults_.push_back(std::move(*fault));
  }
  void add(long record, std::string field, std::string what) {
    faults_.push_back({file_.name(), record, std::move(field), std::move(what)});
  }

  /// Reads a record; false if its bytes cannot be read, or if the file has not all of them.
  template <typename Record>
  bool get(long record, Record& rec) {
    slot_reader fields = file_.reader(record);
    visit_fields(rec, fields);
    return accept(record, fields);
  }
  /// The same for a record of one field.
  template <typename Field>
  bool get_field(long record, const char* name, Field& field) {
    slot_reader fields = file_.reader(record);
    fields(name, field);
    return accept(record, fields);
  }

  /// A count as far as records can be read for it: 0 to `limit`.
  int accept_count(long record, const char* field, double count, int limit);

  /// Reads a tagged count.
  int tagged_count(long record, const char* field, int limit);

  /// The value as a number, or nothing and a fault.
  std::optional<double> number_of(long record, const char* field, const tagged& value);

  const slot_file& file() const { return file_; }

 private:
  bool accept(long record, const slot_reader& fields) {
    if (fields.fault()) add(record, fields.fault()->field, fields.fault()->what);
    return !fields.fault() && !fields.missing();
  }

  slot_file file_;
  std::vector<database_fault>& faults_;
};

/// The checks of a career file and of a file of record lists, each by itself.
void check_careers(checked_file& file);
void check_records(checked_file& file);

}  // namespace velorin
