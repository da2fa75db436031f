//===- plst/Config.h - Tunables of the property-list folder -----*- C++ -*-===//
//
// Every number the property-list code chooses rather than derives, one line
// of reason each, so that a change is made in one place and seen in review.
//
//===----------------------------------------------------------------------===//
#ifndef NYPLST_CONFIG_H
#define NYPLST_CONFIG_H

#include <cstddef>

namespace nyPLST::config {

// Spaces per nesting level of the pretty-printer; logs and files written by
// earlier versions use four, and people diff them.
inline constexpr int PrettyIndentWidth = 4;
// Significant digits of pretty-printed numbers ("%g"): text for people, not
// for reading back.
inline constexpr int PrettyDoublePrecision = 6;
// Block size of the memory stream asJSON prints into; one block holds a
// typical settings record.
inline constexpr std::size_t PrettyMemoryBlockSize = 4096;
// Significant digits of the strict writer ("%.20g"): the generator's own
// double output, kept byte for byte so that written files do not change.
inline constexpr int ExactDoublePrecision = 20;
// Reader frames reserved up front: documents nest a few levels, and deeper
// ones simply grow the vector (there is no depth limit to enforce).
inline constexpr std::size_t ReaderReservedFrames = 32;
// Dictionary nodes taken from the heap at once when the final size is not
// known (readers and copies size the first block exactly): small records
// built entry by entry (colours, transforms) cost one allocation.
inline constexpr std::size_t DictionaryNodeBlock = 10;

} // namespace nyPLST::config

#endif // NYPLST_CONFIG_H
