//===- transaction/Config.h - Tunables of the transaction folder ----------===//
//
// Every number the transaction framework chooses rather than derives, one
// line of reason each.
//
//===----------------------------------------------------------------------===//
#ifndef NYTXN_CONFIG_H
#define NYTXN_CONFIG_H

#include <cstddef>

namespace nyTXN::config {

// What an object that does not report its own size is charged while the
// history keeps it: a typical small recorded object with its bookkeeping.
inline constexpr std::size_t DefaultObjectBytes = 64;
// The charge of a value holder (ImmutableReference): its own footprint
// rounded up to the allocator's size class; the value it holds is shared
// with the living data and is not charged.
inline constexpr std::size_t ValueHolderBytes = 72;
// Retired undo steps kept for reuse, so that a steady stream of transactions
// under a step limit allocates nothing for its bookkeeping.
inline constexpr std::size_t SpareSteps = 8;
// A retired step whose buffers grew beyond this many bytes gives its memory
// back instead of being reused: one huge step must not pin its peak forever.
inline constexpr std::size_t SpareStepBytes = 64 * 1024;
// First allocation of a step's byte arena: one recorded store with a short
// member list fits without growing.
inline constexpr std::size_t InitialArenaBytes = 256;

} // namespace nyTXN::config

#endif // NYTXN_CONFIG_H
