#include "base/TypeInfo.h"

#include <cstdlib>
#include <cxxabi.h>
#include <memory>

namespace qo {

std::string TypeInfo::name() const {
  int Status = 0;
  std::unique_ptr<char, void (*)(void *)> Demangled(
      abi::__cxa_demangle(Index.name(), nullptr, nullptr, &Status), std::free);
  if (Status != 0 || !Demangled)
    return Index.name();
  return Demangled.get();
}

} // namespace qo
