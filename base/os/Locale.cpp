//===- base/os/Locale.cpp - Numbers that read the same in every locale ----===//
//
// One "C" locale object serves every scope of every thread: uselocale only
// reads it, and making it once keeps scopes cheap enough for inner loops.
// It is never freed, because a scope may still be alive on some thread at
// exit.
//
//===----------------------------------------------------------------------===//
#include "base/os/Locale.h"

namespace qoOS {

namespace {

locale_t classicLocale() {
  static const locale_t Classic = newlocale(LC_ALL_MASK, "C", locale_t());
  return Classic;
}

} // namespace

// Should newlocale have failed, uselocale(0) only queries and the scope
// changes nothing.
CNumericLocaleScope::CNumericLocaleScope()
    : Previous(uselocale(classicLocale())) {}

CNumericLocaleScope::~CNumericLocaleScope() {
  if (Previous)
    uselocale(Previous);
}

} // namespace qoOS
