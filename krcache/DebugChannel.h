//===- krcache/DebugChannel.h - The resource cache's debug channel --------===//
//
// qoKRCache::debugChannel() is the channel on which the resource cache
// reports limits, peaks and usage. It is made on first use (guarded static
// initialisation), starts off, and lives until exit. nySupport::Debug keeps
// it in step with the Debug_Resources code, so switching that code switches
// the cache's reports too.
//
// Example:
//   qoOS::DebugChannel &Out = qoKRCache::debugChannel();
//   Out.print("Memory limit set to %.02fMB\n", Limit / 1048576.0);
//
//===----------------------------------------------------------------------===//
#ifndef QOKRCACHE_DEBUGCHANNEL_H
#define QOKRCACHE_DEBUGCHANNEL_H

#include "base/os/DebugChannel.h"

namespace qoKRCache {

qoOS::DebugChannel &debugChannel();

} // namespace qoKRCache

#endif // QOKRCACHE_DEBUGCHANNEL_H
