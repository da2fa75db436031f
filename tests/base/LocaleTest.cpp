#include "base/os/Locale.h"

#include "tests/common/TestSupport.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <string>

using qoOS::CNumericLocaleScope;

// glibc's newlocale never frees its copy of LOCPATH; that block is not ours
// to report. The leak checker's switches exist in sanitized builds only.
extern "C" [[gnu::weak]] void __lsan_disable();
extern "C" [[gnu::weak]] void __lsan_enable();

namespace {

// A German locale, whose decimal point is a comma, or null. Systems without
// one installed get one compiled on the spot with localedef; the loaded
// locale keeps its data after the folder goes.
locale_t germanLocale() {
  static const locale_t German = [] {
    if (const locale_t Installed =
            newlocale(LC_ALL_MASK, "de_DE.UTF-8", locale_t()))
      return Installed;
    const orbotest::TempDir Compiled;
    // localedef exits with 1 on mere warnings; the locale may still be fine.
    std::system(("localedef -i de_DE -f UTF-8 '" +
                 (Compiled.path() / "de_DE.UTF-8").string() +
                 "' >/dev/null 2>&1")
                    .c_str());
    const char *Saved = std::getenv("LOCPATH");
    const std::string Previous = Saved ? Saved : "";
    setenv("LOCPATH", Compiled.path().c_str(), 1);
    if (__lsan_disable)
      __lsan_disable();
    const locale_t Built = newlocale(LC_ALL_MASK, "de_DE.UTF-8", locale_t());
    if (__lsan_enable)
      __lsan_enable();
    if (Saved)
      setenv("LOCPATH", Previous.c_str(), 1);
    else
      unsetenv("LOCPATH");
    return Built;
  }();
  return German;
}

std::string formatted(double Value) {
  char Buffer[32];
  std::snprintf(Buffer, sizeof Buffer, "%g", Value);
  return Buffer;
}

struct ThreadLocale {
  explicit ThreadLocale(locale_t Locale) : Saved(uselocale(Locale)) {}
  ~ThreadLocale() { uselocale(Saved); }
  const locale_t Saved;
};

} // namespace

TEST(CNumericLocaleScope, WritesAndReadsDecimalPointInAGermanThread) {
  const locale_t German = germanLocale();
  if (!German)
    GTEST_SKIP() << "no German locale installed and localedef failed";
  const ThreadLocale InGerman(German);
  ASSERT_EQ(formatted(1.5), "1,5") << "the thread must really be German";
  {
    CNumericLocaleScope Classic;
    EXPECT_EQ(formatted(1.5), "1.5");
    EXPECT_EQ(std::strtod("1.5", nullptr), 1.5);
    { CNumericLocaleScope Inner; }
    EXPECT_EQ(formatted(0.5), "0.5") << "an inner scope restores the outer";
  }
  EXPECT_EQ(formatted(1.5), "1,5");
  EXPECT_EQ(uselocale(locale_t()), German);
}

TEST(CNumericLocaleScope, RestoresTheProcessWideLocale) {
  const ThreadLocale Global(LC_GLOBAL_LOCALE);
  {
    CNumericLocaleScope Classic;
    EXPECT_NE(uselocale(locale_t()), LC_GLOBAL_LOCALE);
  }
  EXPECT_EQ(uselocale(locale_t()), LC_GLOBAL_LOCALE);
}
