// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// Slot files are long and hold hardly anything but zeros, which a fuzzer turns over in vain. The inputs of their
// targets are therefore folded: nothing is lost of a file but the zeros behind what each slot holds.
//
//   folded file   steps, to the end of the input
//   step          1 byte   slots to pass over, which are zero
//                 2 bytes  little-endian: how many bytes of the slot follow, at most its length; the top bit tells that
//                          the slot is whole in the file even if no other comes behind it
//                 the bytes
//
// What a last step without that bit leaves out is not in the file: it ends early. Every file up to a size has a form.

namespace velorin::fuzz {

/// The file that a folded one stands for; no slot beyond `most_slots` is taken.
std::string unfolded(std::string_view folded, std::size_t slot_length, std::size_t most_slots);

/// A folded form of a file.
std::string folded(std::string_view file, std::size_t slot_length);

}  // namespace velorin::fuzz
