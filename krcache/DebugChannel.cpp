//===- krcache/DebugChannel.cpp - The resource cache's debug channel ------===//
#include "krcache/DebugChannel.h"

namespace qoKRCache {

qoOS::DebugChannel &debugChannel() {
  static qoOS::DebugChannel Channel("qoKRCache");
  return Channel;
}

} // namespace qoKRCache
