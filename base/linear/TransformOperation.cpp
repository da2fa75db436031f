//===- base/linear/TransformOperation.cpp - Operation names --------------===//
#include "base/linear/TransformOperation.h"

namespace qoLinear {
namespace {

struct NamedOperation {
  TransformOperation Op;
  const char *Name;
};

constexpr NamedOperation Names[] = {
    {TransformOperation::Identity, "Identity"},
    {TransformOperation::Translate, "Translate"},
    {TransformOperation::Rotate, "Rotate"},
    {TransformOperation::Scale, "Scale"},
    {TransformOperation::NonPScale, "NonPScale"},
    {TransformOperation::General, "General"},
};

} // namespace

const char *toString(TransformOperation Op) {
  for (const NamedOperation &Entry : Names)
    if (Entry.Op == Op)
      return Entry.Name;
  return nullptr;
}

bool fromString(std::string_view Name, TransformOperation &Op) {
  for (const NamedOperation &Entry : Names)
    if (Name == Entry.Name) {
      Op = Entry.Op;
      return true;
    }
  return false;
}

} // namespace qoLinear
