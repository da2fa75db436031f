//===- support/PropertySet.h - Shared, name-keyed properties --------------===//
//
// nySupport::PropertySet is a collection of properties keyed by name, in
// byte-wise name order. Inserting under a name that is taken replaces (and
// releases) the property stored there; merging keeps this set's property
// wherever both sets hold a name.
//
// Lifetime: a set is shared through qo::Reference<PropertySet> and holds one
// reference to each property in it.
//
// Example:
//   qo::Reference<PropertySet> set = qo::make<PropertySet>();
//   set->insert(Property::createUnTxd("shape.size"));
//   if (qo::Reference<Property> p = set->find("shape.size"))
//     p->set(qo::make<nyPLST::Double>(3));
//   set->merge(defaults);   // adds only the names set does not hold
//
//===----------------------------------------------------------------------===//
#ifndef NYSUPPORT_PROPERTYSET_H
#define NYSUPPORT_PROPERTYSET_H

#include "base/Containers.h"
#include "base/Reference.h"
#include "base/ReferenceCount.h"
#include "base/string/CString.h"
#include "support/Property.h"

namespace nySupport {

class PropertySet : public qo::ReferenceCount {
public:
  using Map = qo::rbtree<qoString::CString, qo::Reference<Property>,
                         qo::less<qoString::CString>>;

  PropertySet() = default;
  PropertySet(const PropertySet &) = delete;
  PropertySet &operator=(const PropertySet &) = delete;

  // Stores P under P->name(), replacing what was stored there.
  void insert(qo::Reference<Property> P);
  // Null when no property is stored under Name.
  qo::Reference<Property> find(const qoString::CString &Name) const;
  const Map &getMap() const { return Properties; }
  // Inserts each property of Other whose name this set does not hold.
  void merge(qo::Reference<const PropertySet> Other);

private:
  Map Properties;
};

} // namespace nySupport

#endif // NYSUPPORT_PROPERTYSET_H
