// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/file_buffer.h"

#include <cerrno>
#include <cstddef>

namespace velorin {

namespace {

constexpr std::size_t held_bytes = 65536;

}  // namespace

file_buffer::file_buffer(const descriptor& file) : file_(file), held_(held_bytes) {
  setp(held_.data(), held_.data() + held_.size());
}

file_buffer::int_type file_buffer::overflow(int_type next) {
  if (sync() != 0) return traits_type::eof();
  if (!traits_type::eq_int_type(next, traits_type::eof())) sputc(traits_type::to_char_type(next));
  return traits_type::not_eof(next);
}

int file_buffer::sync() {
  if (cause_ == 0 && !write_all(file_.number(), {pbase(), static_cast<std::size_t>(pptr() - pbase())})) cause_ = errno;
  setp(held_.data(), held_.data() + held_.size());
  return cause_ == 0 ? 0 : -1;
}

}  // namespace velorin
