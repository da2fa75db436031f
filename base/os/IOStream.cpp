#include "base/os/IOStream.h"

namespace qoOS {

// Out of line so that the vtable has one home.
IOStream::~IOStream() = default;

} // namespace qoOS
