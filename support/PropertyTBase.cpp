#include "support/PropertyTBase.h"

namespace nySupport {

void PropertyTBase::allocateTxd(nyTXN::Manager &M,
                                const qoString::CString &Name) {
  reset(Property::createTxd(M, Name));
}

void PropertyTBase::allocateUnTxd(const qoString::CString &Name) {
  reset(Property::createUnTxd(Name));
}

} // namespace nySupport
