//===- transaction/ObjectSize.h - Memory charged for a kept object --------===//
//
// nyTXN::ObjectSize collects what an object reports in onTxnGetSize(): its
// own size (raised with atLeast, grown with addOwn) and the blocks it refers
// to (add, one call per block; a block shared with the living data is added
// with 0 bytes so that it is counted as a reference without being charged).
// The history charges total() for every object it keeps alive.
//
// Example:
//   void Mesh::onTxnGetSize(nyTXN::ObjectSize &S) const {
//     S.atLeast(sizeof(Mesh));
//     RefCountedObject::onTxnGetSize(S);
//     S.add(nyTXN::getSize(Vertices));    // the mesh owns its vertices
//   }
//
//===----------------------------------------------------------------------===//
#ifndef NYTXN_OBJECTSIZE_H
#define NYTXN_OBJECTSIZE_H

#include <algorithm>
#include <cstddef>

namespace nyTXN {

class ObjectSize {
public:
  // Raises the object's own size to at least Bytes.
  void atLeast(std::size_t Bytes) { Own = std::max(Own, Bytes); }
  // Grows the object's own size by Bytes.
  void addOwn(std::size_t Bytes) { Own += Bytes; }
  // Counts one referenced block of Bytes.
  void add(unsigned long Bytes) {
    Referenced += Bytes;
    ++References;
  }

  std::size_t objectBytes() const { return Own; }
  std::size_t referencedBytes() const { return Referenced; }
  std::size_t references() const { return References; }
  std::size_t total() const { return Own + Referenced; }

private:
  std::size_t Own = 0;
  std::size_t Referenced = 0;
  std::size_t References = 0;
};

} // namespace nyTXN

#endif // NYTXN_OBJECTSIZE_H
