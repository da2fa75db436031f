//===- base/linear/TransformOperation.h - Kinds of interactive transform --===//
//
// qoLinear::TransformOperation names what an interactive transformation is
// doing. The values are bit-like and fixed, and so are their strings: both are
// written by serialisers and read back from scripts. toString() of a value
// outside the enumeration is null; fromString() reports an unknown name by
// returning false, leaving the caller to decide how loudly to fail.
//
// Example:
//   qoLinear::TransformOperation op = qoLinear::TransformOperation::Rotate;
//   qoLinear::toString(op);                               // "Rotate"
//   if (qoLinear::fromString("NonPScale", op))
//     use(op);                                            // 8
//
//===----------------------------------------------------------------------===//
#ifndef QOLINEAR_TRANSFORMOPERATION_H
#define QOLINEAR_TRANSFORMOPERATION_H

#include <cstdint>
#include <string_view>

namespace qoLinear {

enum class TransformOperation : std::uint32_t {
  Identity = 0,
  Translate = 1,
  Rotate = 2,
  // A scale with equal factors on every axis so far.
  Scale = 4,
  // A scale whose factors have once been unequal.
  NonPScale = 8,
  // A free transform.
  General = 16,
};

const char *toString(TransformOperation Op);
bool fromString(std::string_view Name, TransformOperation &Op);

} // namespace qoLinear

#endif // QOLINEAR_TRANSFORMOPERATION_H
