//===- support/Priority.h - Delivery order of broadcast listeners ---------===//
//
// nySupport::Priority orders the listeners of one message type: a pair of
// signed numbers, unit first, then module, compared as signed integers, lower
// first. The default, (19, 3), is where ordinary listeners go; listeners that
// must run before every other one use (0, 0). A Priority is a plain value.
//
// Example:
//   nySupport::Priority early(0, 0);
//   nySupport::Priority usual;                 // (19, 3)
//   assert(early < usual);
//   assert(nySupport::compare(nySupport::Priority(-1, 0), early) == -1);
//
//===----------------------------------------------------------------------===//
#ifndef NYSUPPORT_PRIORITY_H
#define NYSUPPORT_PRIORITY_H

#include <cstdint>

namespace nySupport {

using UnitID = std::int32_t;
using ModuleID = std::int32_t;

class Priority {
public:
  Priority() = default;
  Priority(UnitID Unit, ModuleID Module) : Unit(Unit), Module(Module) {}

  UnitID unit() const { return Unit; }
  ModuleID module() const { return Module; }

private:
  UnitID Unit = 19;
  ModuleID Module = 3;
};

// -1, 0 or +1: by unit, and by module when the units are equal.
int compare(const Priority &A, const Priority &B);

inline bool operator<(const Priority &A, const Priority &B) {
  return compare(A, B) < 0;
}
inline bool operator>(const Priority &A, const Priority &B) {
  return compare(A, B) > 0;
}
inline bool operator==(const Priority &A, const Priority &B) {
  return compare(A, B) == 0;
}
inline bool operator!=(const Priority &A, const Priority &B) {
  return compare(A, B) != 0;
}

} // namespace nySupport

#endif // NYSUPPORT_PRIORITY_H
