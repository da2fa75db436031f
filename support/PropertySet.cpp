#include "support/PropertySet.h"

#include <utility>

namespace nySupport {

void PropertySet::insert(qo::Reference<Property> P) {
  if (!P)
    return;
  const qoString::CString &Name = P->name();
  Properties.insert_or_assign(Name, std::move(P));
}

qo::Reference<Property> PropertySet::find(const qoString::CString &Name) const {
  auto It = Properties.find(Name);
  return It == Properties.end() ? nullptr : It->second;
}

void PropertySet::merge(qo::Reference<const PropertySet> Other) {
  // Merging a set into itself would find every key present: nothing to do.
  if (!Other || Other.get() == this)
    return;
  for (const auto &[Name, P] : Other->Properties)
    Properties.try_emplace(Name, P);
}

} // namespace nySupport
