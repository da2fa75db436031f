//===- support/PropertyTBase.h - Untyped base of typed property holders ---===//
//
// nySupport::PropertyTBase holds one property for a typed holder that the
// application derives from it (a holder of a size, a colour, a name). It
// only owns the reference: the typed holders convert the items.
//
// Lifetime: the holder keeps one reference to its property; reset() takes
// the new reference before it releases the old one, so resetting to the same
// property is safe.
//
// Example:
//   struct SizeHolder : nySupport::PropertyTBase {
//     double value() const { return asDouble(pty()->get())->value(); }
//   };
//   SizeHolder size;
//   size.allocateUnTxd("shape.size");
//
//===----------------------------------------------------------------------===//
#ifndef NYSUPPORT_PROPERTYTBASE_H
#define NYSUPPORT_PROPERTYTBASE_H

#include "base/Reference.h"
#include "base/string/CString.h"
#include "support/Property.h"

#include <utility>

namespace nySupport {

class PropertyTBase {
public:
  PropertyTBase() = default;
  explicit PropertyTBase(qo::Reference<Property> P) : Pty(std::move(P)) {}

  void allocateTxd(nyTXN::Manager &M, const qoString::CString &Name);
  void allocateUnTxd(const qoString::CString &Name);
  qo::Reference<Property> pty() const { return Pty; }
  void reset(qo::Reference<Property> P) { Pty = std::move(P); }

private:
  qo::Reference<Property> Pty;
};

} // namespace nySupport

#endif // NYSUPPORT_PROPERTYTBASE_H
