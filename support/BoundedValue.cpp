#include "support/BoundedValue.h"

namespace nySupport {

double BoundedDouble::fractionalValue(double V) const {
  return (V - Min) / (Max - Min);
}

} // namespace nySupport
