#include "base/os/Locale.h"

#include "tests/common/TestSupport.h"

#include "base/os/MemoryIOStream.h"
#include "base/os/OStream.h"
#include "base/string/CString.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#if defined(__SANITIZE_ADDRESS__)
#define LOCALE_TEST_LSAN 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define LOCALE_TEST_LSAN 1
#endif
#endif
#ifdef LOCALE_TEST_LSAN
#include <sanitizer/lsan_interface.h>
#endif

using qoOS::CNumericLocaleScope;

namespace {

// glibc's newlocale never frees the copy it makes of LOCPATH; that block is
// not ours to report.
locale_t newLocaleIgnoringLeaks(const char *Name) {
#ifdef LOCALE_TEST_LSAN
  __lsan_disable();
#endif
  const locale_t Result = newlocale(LC_ALL_MASK, Name, locale_t());
#ifdef LOCALE_TEST_LSAN
  __lsan_enable();
#endif
  return Result;
}

std::string formatted(double Value) {
  char Buffer[32];
  std::snprintf(Buffer, sizeof Buffer, "%g", Value);
  return Buffer;
}

// A German locale, whose decimal point is a comma. Systems without one
// installed get one compiled on the spot with localedef.
class GermanLocale : public testing::Test {
protected:
  static void SetUpTestSuite() {
    for (const char *Name : {"de_DE.UTF-8", "de_DE.utf8", "de_DE"})
      if ((German = newlocale(LC_ALL_MASK, Name, locale_t())))
        return;
    Compiled = std::make_unique<orbotest::TempDir>();
    const std::string Command = "localedef -i de_DE -f UTF-8 '" +
                                (Compiled->path() / "de_DE.UTF-8").string() +
                                "' >/dev/null 2>&1";
    // localedef exits with 1 on mere warnings; the locale may still be fine.
    std::system(Command.c_str());
    const char *Saved = std::getenv("LOCPATH");
    const std::string Previous = Saved ? Saved : "";
    setenv("LOCPATH", Compiled->path().c_str(), 1);
    German = newLocaleIgnoringLeaks("de_DE.UTF-8");
    if (Saved)
      setenv("LOCPATH", Previous.c_str(), 1);
    else
      unsetenv("LOCPATH");
  }

  static void TearDownTestSuite() {
    if (German)
      freelocale(German);
    German = locale_t();
    Compiled.reset();
  }

  void SetUp() override {
    if (!German)
      GTEST_SKIP() << "no German locale installed and localedef failed";
    Saved = uselocale(German);
  }

  void TearDown() override {
    if (German)
      uselocale(Saved);
  }

  static locale_t German;
  static std::unique_ptr<orbotest::TempDir> Compiled;
  locale_t Saved = locale_t();
};

locale_t GermanLocale::German = locale_t();
std::unique_ptr<orbotest::TempDir> GermanLocale::Compiled;

} // namespace

TEST_F(GermanLocale, ScopeWritesAndReadsDecimalPoint) {
  ASSERT_EQ(formatted(1.5), "1,5") << "the thread must really be German";
  {
    CNumericLocaleScope Classic;
    EXPECT_EQ(formatted(1.5), "1.5");
    EXPECT_EQ(std::strtod("1.5", nullptr), 1.5);
    EXPECT_EQ(qoString::CString::format("%.2f", 2.25), "2.25");
    qoOS::MemoryIOStream Memory;
    {
      qoOS::OStream Out(Memory);
      Out.format("%g", 0.125);
    }
    EXPECT_EQ(Memory.contents(), "0.125");
  }
  EXPECT_EQ(formatted(1.5), "1,5");
  EXPECT_EQ(std::strtod("1.5", nullptr), 1.0) << "German strtod stops at '.'";
}

TEST_F(GermanLocale, NestedScopesRestoreInTurn) {
  {
    CNumericLocaleScope Outer;
    {
      CNumericLocaleScope Inner;
      EXPECT_EQ(formatted(0.5), "0.5");
    }
    EXPECT_EQ(formatted(0.5), "0.5");
  }
  EXPECT_EQ(formatted(0.5), "0,5");
  EXPECT_EQ(uselocale(locale_t()), German);
}

TEST(CNumericLocaleScope, RestoresTheProcessWideLocale) {
  const locale_t Saved = uselocale(LC_GLOBAL_LOCALE);
  {
    CNumericLocaleScope Classic;
    EXPECT_NE(uselocale(locale_t()), LC_GLOBAL_LOCALE);
  }
  EXPECT_EQ(uselocale(locale_t()), LC_GLOBAL_LOCALE);
  uselocale(Saved);
}
