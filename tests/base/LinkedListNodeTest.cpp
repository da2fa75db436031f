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

TEST(LinkedListNode, PushBackMovesAnEntryToTheBack) {
  AgeList Head;
  Entry A(1), B(2), C(3);
  EXPECT_TRUE(Head.empty());
  EXPECT_EQ(nullptr, Head.front());
  Head.pushBack(A);
  Head.pushBack(B);
  Head.pushFront(C);
  EXPECT_EQ((std::vector<int>{3, 1, 2}), ids(Head));
  Head.pushBack(C);
  Head.pushBack(C);
  EXPECT_EQ((std::vector<int>{1, 2, 3}), ids(Head));
  EXPECT_EQ(3u, Head.size());
  EXPECT_EQ(1, Head.popFront()->Id);
  EXPECT_FALSE(static_cast<AgeList &>(A).linked());
  EXPECT_EQ(3, Head.back()->Id);
  Head.clear();
  EXPECT_TRUE(Head.empty());
  EXPECT_FALSE(static_cast<AgeList &>(B).linked());
}

TEST(LinkedListNode, EntriesLeaveWhenDestroyed) {
  AgeList Head;
  Entry A(1);
  {
    Entry B(2);
    Head.pushBack(A);
    Head.pushBack(B);
  }
  EXPECT_EQ((std::vector<int>{1}), ids(Head));
}

TEST(LinkedListNode, TagsKeepTwoListsApart) {
  AgeList Ages;
  SizeList Sizes;
  Entry A(1), B(2), C(3);
  Ages.pushBack(A);
  Ages.pushBack(B);
  Sizes.pushBack(B);
  Sizes.pushBack(A);
  AgeList::insertBefore(A, C);
  SizeList::insertAfter(Sizes, C);
  EXPECT_EQ((std::vector<int>{3, 1, 2}), ids(Ages));
  EXPECT_EQ((std::vector<int>{3, 2, 1}), ids(Sizes));
  // Moving within one list leaves the other alone.
  AgeList::insertAfter(B, C);
  EXPECT_EQ((std::vector<int>{1, 2, 3}), ids(Ages));
  EXPECT_EQ((std::vector<int>{3, 2, 1}), ids(Sizes));
  static_cast<SizeList &>(B).unlink();
  EXPECT_EQ((std::vector<int>{3, 1}), ids(Sizes));
  EXPECT_EQ(3u, Ages.size());
}
