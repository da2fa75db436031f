//===- transaction/Serializer.cpp - An object's fields, described ---------===//

#include "transaction/Serializer.h"

#include "transaction/internal/ByteBuffer.h"

namespace nyTXN {

void Restorer::restore() {
  assert(!Done && "restore() called twice for one object");
  if (Done)
    return;
  Done = true;
  Serializer S(*Source);
  Target->onTransact(S);
}

std::vector<unsigned char> recordedBytes(Object &O) {
  internal::ByteBuffer Buffer;
  Writer W(Buffer, 0);
  Serializer S(W);
  O.onTransact(S);
  return {Buffer.data(), Buffer.data() + Buffer.size()};
}

} // namespace nyTXN
