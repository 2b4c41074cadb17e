// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/name_draw.h"

#include <QByteArray>

namespace velorin {

QString plain_name(const QString& name) { return name.simplified().toCaseFolded(); }

NameDraw::NameDraw(const QString& name) : state_(0xCBF29CE484222325U) {
  for (const char byte : plain_name(name).toUtf8()) {
    state_ = (state_ ^ static_cast<unsigned char>(byte)) * 0x100000001B3U;
  }
}

int NameDraw::below(int count) {
  state_ += 0x9E3779B97F4A7C15U;
  std::uint64_t mixed = state_;
  mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9U;
  mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBU;
  mixed ^= mixed >> 31;
  return static_cast<int>((mixed >> 32) % static_cast<std::uint64_t>(count));
}

}  // namespace velorin
