// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/recording.h"

#include <fmt/format.h>

#include <random>

#include "database/whole_file.h"
#include "model/run_time_error.h"
#include "recording/recording_layout.h"

namespace velorin {

namespace {

[[noreturn]] void refuse(const std::string& what, const std::string& name, long entry = 0) {
  throw run_time_error(failure::file, what, {.file = name, .record = entry, .field = {}, .player = {}});
}

[[noreturn]] void raise_damaged(const std::string& name, long entry, std::size_t place) {
  refuse(fmt::format("The recording is damaged at byte {}", place), name, entry);
}

void take_head(std::string_view bytes, const std::string& name) {
  if (bytes.substr(0, recording_magic.size()) != recording_magic || bytes.size() < recording_head) {
    refuse("The file is no recording of a game", name);
  }
  unpacker head(bytes.substr(recording_magic.size(), recording_head - recording_magic.size()));
  const auto format = static_cast<int>(head.fixed(2));
  const auto rules = static_cast<int>(head.fixed(2));
  if (format != recording_version) {
    refuse(fmt::format("The recording is of format {}; this version of the program reads format {}", format,
                       recording_version),
           name);
  }
  if (rules != rules_version) {
    refuse(fmt::format("The recording was made by the rules of version {}; this program plays by those of version {}, "
                       "and would play it otherwise",
                       rules, rules_version),
           name);
  }
}

/// Takes the entries of a file one after the other.
class entry_reader {
 public:
  entry_reader(std::string_view bytes, const std::string& name, recording& into)
      : bytes_(bytes), name_(name), into_(into) {}

  void read() {
    into_.whole_bytes = recording_head;
    into_.check = crc_32(bytes_.substr(0, recording_head));
    while (into_.whole_bytes < bytes_.size()) {
      if (!take_entry()) {
        require_torn();
        break;
      }
    }
    if (number_ == 0) refuse("The recording has no beginning", name_);
  }

 private:
  /// False if the entry is not whole.
  bool take_entry() {
    unpacker in(bytes_.substr(into_.whole_bytes));
    const auto tag = static_cast<int>(in.fixed(1));
    const std::uint64_t length = in.number();
    broken_end_ = bytes_.size();
    if (!in.whole() || length > longest_entry || in.left() < length + check_bytes) return false;
    const std::size_t start = bytes_.size() - in.left();
    const std::string_view content = bytes_.substr(start, static_cast<std::size_t>(length));
    const std::size_t end = start + content.size();
    broken_end_ = end + check_bytes;
    const std::uint32_t check = crc_32(bytes_.substr(into_.whole_bytes, end - into_.whole_bytes), into_.check);
    unpacker behind(bytes_.substr(end, check_bytes));
    if (behind.fixed(check_bytes) != (check & 0xFFFF)) return false;
    ++number_;
    if (!take(tag, content)) raise_damaged(name_, number_, into_.whole_bytes);
    into_.check = check;
    into_.whole_bytes = end + check_bytes;
    return true;
  }

  bool take(int tag, std::string_view content) {
    unpacker in(content);
    if ((number_ == 1) != (tag == beginning_entry) || into_.ended()) return false;
    switch (tag) {
      case beginning_entry:
        pass_entered(in, into_.beginning);
        pass_squads(in, into_.beginning);
        pass_standing(in, into_.beginning);
        break;
      case readings_entry:
        while (in.whole() && in.left() > 0) {
          last_reading_ += static_cast<std::uint64_t>(in.signed_number());
          into_.readings.push_back(last_reading_);
        }
        break;
      case draws_entry:
        while (in.whole() && in.left() > 0) into_.draws.push_back(in.real());
        break;
      case answer_entry: {
        captain_answer answer;
        answer.kind = static_cast<answer_kind>(in.number_to(static_cast<int>(answer_kind::take_back)));
        if (in.left() > 0) answer.first = static_cast<std::uint32_t>(in.number());
        if (in.left() > 0) answer.second = static_cast<std::uint32_t>(in.number());
        into_.events.emplace_back(answer);
        break;
      }
      case check_entry:
        into_.events.emplace_back(recorded_check{static_cast<std::uint32_t>(in.fixed(4))});
        break;
      case saving_entry:
        into_.events.emplace_back(recorded_saving{});
        break;
      case end_entry:
        into_.events.emplace_back(recorded_end{});
        break;
      default:
        return false;
    }
    return in.done();
  }

  /// What follows the whole entries must be the torn end of the last write: one entry, with nothing but the zeros of a
  /// block that was never written behind it.
  void require_torn() const {
    constexpr std::size_t longest_tail = 4096;  // no entry but the first is as long
    const bool cut_short = broken_end_ == bytes_.size() && bytes_.size() - into_.whole_bytes <= longest_tail;
    const bool last = bytes_.find_first_not_of('\0', broken_end_) == std::string_view::npos;
    if (number_ == 0 || !(broken_end_ == bytes_.size() ? cut_short : last)) {
      raise_damaged(name_, number_ + 1, into_.whole_bytes);
    }
  }

  std::string_view bytes_;
  const std::string& name_;
  recording& into_;
  long number_ = 0;
  std::size_t broken_end_ = 0;  // of the entry looked at last, as far as the file has it
  std::uint64_t last_reading_ = 0;
};

}  // namespace

std::string text_of(const recording_id& id) {
  constexpr std::string_view digits = "0123456789abcdef";
  std::string text;
  text.reserve(2 * id.size());
  for (const std::uint8_t byte : id) {
    text += digits[byte >> 4];
    text += digits[byte & 0xF];
  }
  return text;
}

recording_id new_recording_id() {
  thread_local std::random_device chance;
  recording_id id;
  for (std::size_t i = 0; i < id.size(); i += 4) {
    const std::uint32_t word = chance();
    for (std::size_t byte = 0; byte < 4; ++byte) id[i + byte] = static_cast<std::uint8_t>(word >> 8 * byte);
  }
  return id;
}

recording read_recording(std::string_view bytes, const std::string& name) {
  take_head(bytes, name);
  recording whole;
  entry_reader(bytes, name, whole).read();
  return whole;
}

recording read_recording(const std::filesystem::path& file) {
  const std::optional<std::string> bytes = read_file(file);
  if (!bytes) refuse("The file is missing", file_name_text(file));
  return read_recording(*bytes, file_name_text(file));
}

std::string recording_head_bytes() {
  packer head;
  head.raw(recording_magic);
  head.fixed(recording_version, 2);
  head.fixed(rules_version, 2);
  return std::string(head.bytes());
}

bool holds_nothing_yet(std::string_view bytes) {
  if (bytes.find_first_not_of('\0') == std::string_view::npos) return true;
  const std::string head = recording_head_bytes();
  if (bytes.size() <= head.size()) return head.starts_with(bytes);
  if (!bytes.starts_with(head)) return false;
  std::string_view entry = bytes.substr(head.size());
  if (entry.find_first_not_of('\0') == std::string_view::npos) return true;
  if (entry.front() != beginning_entry) return false;
  entry.remove_prefix(1);
  std::size_t length = 0;
  for (int shift = 0; shift < 28; shift += 7) {
    if (entry.empty()) return true;
    const auto byte = static_cast<unsigned char>(entry.front());
    entry.remove_prefix(1);
    length |= static_cast<std::size_t>(byte & 0x7FU) << shift;
    if ((byte & 0x80U) == 0) return length <= longest_entry && entry.size() < length + check_bytes;
  }
  return false;
}

}  // namespace velorin
