#include "base/os/Filename.h"

#include <gtest/gtest.h>

#include <vector>

using qoOS::Filename;
using qoString::IString;

TEST(Filename, SplitsThePath) {
  const struct {
    const char *Path, *Directory, *FileName, *BaseName, *Extension;
  } Cases[] = {{"", "", "", "", ""},
               {"/", "/", "", "", ""},
               {"/data/city.tar.gz", "/data", "city.tar.gz", "city.tar", "gz"},
               {"/top", "/", "top", "top", ""},
               {"a//b/", "a", "b", "b", ""},
               {"//x", "/", "x", "x", ""},
               {"dir/.profile", "dir", ".profile", ".profile", ""},
               {"dir/.profile.bak", "dir", ".profile.bak", ".profile", "bak"},
               {"trailing.", "", "trailing.", "trailing", ""},
               {"d.x/noext", "d.x", "noext", "noext", ""},
               {"up/..", "up", "..", "..", ""},
               {"/caf\xC3\xA9/\xC3\xA9t\xC3\xA9.\xE2\x82\xAC", "/caf\xC3\xA9",
                "\xC3\xA9t\xC3\xA9.\xE2\x82\xAC", "\xC3\xA9t\xC3\xA9",
                "\xE2\x82\xAC"}};
  for (const auto &Case : Cases) {
    SCOPED_TRACE(Case.Path);
    const Filename Name(Case.Path);
    EXPECT_EQ(Name.directory(), IString(Case.Directory));
    EXPECT_EQ(Name.fileName(), IString(Case.FileName));
    EXPECT_EQ(Name.baseName(), IString(Case.BaseName));
    EXPECT_EQ(Name.extension(), IString(Case.Extension));
    EXPECT_EQ(Name.isAbsolute(), Case.Path[0] == '/');
  }
}

TEST(Filename, JoinAddsOneSeparatorAndComponentsSkipEmptyParts) {
  EXPECT_EQ(Filename("a/").join("b").path(), IString("a/b"));
  EXPECT_EQ(Filename("/").join("b").path(), IString("/b"));
  EXPECT_EQ(Filename("a").join("/abs").path(), IString("/abs"));
  EXPECT_EQ(Filename("").join("b").path(), IString("b"));
  EXPECT_EQ(Filename("a").join("").path(), IString("a"));
  EXPECT_EQ(Filename("/usr//lib/x.so/").components(),
            (std::vector<IString>{"usr", "lib", "x.so"}));
}
