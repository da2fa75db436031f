#include "base/os/Filename.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using qoOS::Filename;
using qoString::IString;

namespace {

struct PathCase {
  const char *Path, *Directory, *FileName, *BaseName, *Extension;
  bool Absolute;
};

void PrintTo(const PathCase &Case, std::ostream *Out) {
  *Out << '"' << Case.Path << '"';
}

class FilenameQueries : public testing::TestWithParam<PathCase> {};

} // namespace

TEST_P(FilenameQueries, SplitThePath) {
  const PathCase &Case = GetParam();
  const Filename Name(Case.Path);
  EXPECT_EQ(Name.directory(), IString(Case.Directory));
  EXPECT_EQ(Name.fileName(), IString(Case.FileName));
  EXPECT_EQ(Name.baseName(), IString(Case.BaseName));
  EXPECT_EQ(Name.extension(), IString(Case.Extension));
  EXPECT_EQ(Name.isAbsolute(), Case.Absolute);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, FilenameQueries,
    testing::Values(
        PathCase{"", "", "", "", "", false},
        PathCase{"/", "/", "", "", "", true},
        PathCase{"name", "", "name", "name", "", false},
        PathCase{"/data/city.tar.gz", "/data", "city.tar.gz", "city.tar", "gz",
                 true},
        PathCase{"/top", "/", "top", "top", "", true},
        PathCase{"a/b/", "a", "b", "b", "", false},
        PathCase{"a//b.c", "a", "b.c", "b", "c", false},
        PathCase{"//x", "/", "x", "x", "", true},
        PathCase{"dir/.profile", "dir", ".profile", ".profile", "", false},
        PathCase{"dir/.profile.bak", "dir", ".profile.bak", ".profile", "bak",
                 false},
        PathCase{"trailing.", "", "trailing.", "trailing", "", false},
        PathCase{"d.x/noext", "d.x", "noext", "noext", "", false},
        PathCase{"up/..", "up", "..", "..", "", false},
        PathCase{"/caf\xC3\xA9/\xC3\xA9t\xC3\xA9.\xE2\x82\xAC", "/caf\xC3\xA9",
                 "\xC3\xA9t\xC3\xA9.\xE2\x82\xAC", "\xC3\xA9t\xC3\xA9",
                 "\xE2\x82\xAC", true}));

TEST(Filename, JoinAddsOneSeparator) {
  EXPECT_EQ(Filename("a").join("b").path(), IString("a/b"));
  EXPECT_EQ(Filename("a/").join("b").path(), IString("a/b"));
  EXPECT_EQ(Filename("/").join("b").path(), IString("/b"));
  EXPECT_EQ(Filename("a").join("/abs").path(), IString("/abs"));
  EXPECT_EQ(Filename("").join("b").path(), IString("b"));
  EXPECT_EQ(Filename("a").join("").path(), IString("a"));
}

TEST(Filename, ComponentsSkipEmptyParts) {
  const std::vector<IString> Expected{"usr", "lib", "x.so"};
  EXPECT_EQ(Filename("/usr//lib/x.so/").components(), Expected);
  EXPECT_EQ(Filename("usr/lib/x.so").components(), Expected);
  EXPECT_TRUE(Filename("/").components().empty());
}
