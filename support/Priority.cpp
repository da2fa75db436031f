#include "support/Priority.h"

namespace nySupport {

namespace {
int sign(std::int32_t A, std::int32_t B) {
  return A < B ? -1 : (A > B ? 1 : 0);
}
} // namespace

int compare(const Priority &A, const Priority &B) {
  if (const int ByUnit = sign(A.unit(), B.unit()))
    return ByUnit;
  return sign(A.module(), B.module());
}

} // namespace nySupport
