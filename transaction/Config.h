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
// Block size of the manager's cache for small immutable objects (value
// holders, 64 bytes on 64-bit targets): one cache line; such an object must
// fit.
inline constexpr std::size_t ValueObjectBytes = 64;
// Empty 4 KiB slabs of value objects a manager keeps for reuse rather than
// freeing: the holders of a few large steps trimmed in a row, 64 KiB.
inline constexpr std::size_t EmptyValueSlabs = 16;
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
