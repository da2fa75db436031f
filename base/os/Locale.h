//===- base/os/Locale.h - Numbers that read the same in every locale ------===//
//
// printf, strtod and their relatives follow the locale: under a German
// locale 1.5 is written "1,5", and strtod stops at the '.' of "1.5". Text
// that another program reads (JSON, packet streams, scripts) must not
// depend on that. A CNumericLocaleScope makes the calling thread use the "C"
// locale while it lives (uselocale, so other threads and the process locale
// are untouched) and restores the thread's previous locale when it goes.
// Scopes nest; each must end on the thread that made it.
//
// Example:
//   {
//     qoOS::CNumericLocaleScope ClassicNumbers;
//     Out.format("%.17g", Value);      // always a '.' decimal point
//     Parsed = std::strtod(Text, &End);
//   }                                  // the thread's own locale again
//
//===----------------------------------------------------------------------===//
#ifndef QOOS_LOCALE_H
#define QOOS_LOCALE_H

#include <locale.h>
#ifdef __APPLE__
#include <xlocale.h>
#endif

namespace qoOS {

class CNumericLocaleScope {
public:
  CNumericLocaleScope();
  CNumericLocaleScope(const CNumericLocaleScope &) = delete;
  CNumericLocaleScope &operator=(const CNumericLocaleScope &) = delete;
  ~CNumericLocaleScope();

private:
  locale_t Previous;
};

} // namespace qoOS

#endif // QOOS_LOCALE_H
