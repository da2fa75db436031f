//===- transaction/IOMethods.cpp - How recorded fields reach the history --===//

#include "transaction/IOMethods.h"

namespace nyTXN {

// A read method that takes more than its write method gave: hand out zeros
// rather than bytes of the next object, and say so.
void Reader::overrun(void *Data, std::size_t Size) {
  assert(false && "field read past the bytes recorded for its object");
  std::memset(Data, 0, Size);
  Pos = End;
  Failed = true;
}

} // namespace nyTXN
