#include "base/os/Filename.h"

#include <gtest/gtest.h>

using qoOS::Filename;
using qoString::IString;

TEST(Filename, SplitsThePath) {
  const struct {
    const char *Path, *Directory, *FileName, *BaseName, *Extension;
  } Cases[] = {{"/", "/", "", "", ""},
               {"/data/city.tar.gz", "/data", "city.tar.gz", "city.tar", "gz"},
               {"a//b/", "a", "b", "b", ""},
               {"d.x/noext", "d.x", "noext", "noext", ""}};
  for (const auto &Case : Cases) {
    SCOPED_TRACE(Case.Path);
    const Filename Name(Case.Path);
    EXPECT_EQ(Name.directory(), IString(Case.Directory));
    EXPECT_EQ(Name.fileName(), IString(Case.FileName));
    EXPECT_EQ(Name.baseName(), IString(Case.BaseName));
    EXPECT_EQ(Name.extension(), IString(Case.Extension));
  }
  EXPECT_EQ(Filename("a/").join("b").path(), IString("a/b"));
  EXPECT_EQ(Filename("a").join("/abs").path(), IString("/abs"));
}
