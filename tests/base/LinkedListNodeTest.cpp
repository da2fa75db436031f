#include "base/util/LinkedListNode.h"

#include <gtest/gtest.h>

#include <vector>

using qoUtil::LinkedListNode;

namespace {

struct ByAge {};
struct BySize {};

struct Entry : LinkedListNode<Entry, ByAge>, LinkedListNode<Entry, BySize> {
  explicit Entry(int Id) : Id(Id) {}
  int Id;
};

using AgeList = LinkedListNode<Entry, ByAge>;
using SizeList = LinkedListNode<Entry, BySize>;

template <class List> std::vector<int> ids(List &L) {
  std::vector<int> Out;
  for (Entry &E : L)
    Out.push_back(E.Id);
  return Out;
}

} // namespace

TEST(LinkedListNode, TagsKeepTwoListsApart) {
  AgeList Ages;
  SizeList Sizes;
  Entry A(1), B(2), C(3);
  Ages.pushBack(A);
  Ages.pushBack(B);
  Ages.pushFront(C);
  Sizes.pushBack(B);
  Sizes.pushBack(A);
  // Moving within one list leaves the other alone.
  Ages.pushBack(C);
  SizeList::insertAfter(Sizes, C);
  EXPECT_EQ((std::vector<int>{1, 2, 3}), ids(Ages));
  EXPECT_EQ((std::vector<int>{3, 2, 1}), ids(Sizes));
  static_cast<SizeList &>(B).unlink();
  EXPECT_EQ((std::vector<int>{3, 1}), ids(Sizes));
  {
    Entry D(4);
    Ages.pushBack(D);
  }
  EXPECT_EQ((std::vector<int>{1, 2, 3}), ids(Ages)) << "D left when destroyed";
  EXPECT_EQ(1, Ages.popFront()->Id);
  Ages.clear();
  EXPECT_TRUE(Ages.empty());
  EXPECT_FALSE(static_cast<AgeList &>(B).linked());
}
