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

template <class List> std::vector<int> ids(List &L) {
  std::vector<int> Out;
  for (Entry &E : L)
    Out.push_back(E.Id);
  return Out;
}

} // namespace

// Moving within one list leaves the other alone; a destroyed entry leaves.
TEST(LinkedListNode, TagsKeepTwoListsApart) {
  LinkedListNode<Entry, ByAge> Ages;
  LinkedListNode<Entry, BySize> Sizes;
  Entry A(1), B(2), C(3);
  Ages.pushBack(A);
  Ages.pushBack(B);
  Ages.pushFront(C);
  Sizes.pushBack(B);
  Sizes.pushBack(A);
  Ages.pushBack(C);
  {
    Entry D(4);
    Ages.pushBack(D);
  }
  EXPECT_EQ((std::vector<int>{1, 2, 3}), ids(Ages));
  EXPECT_EQ((std::vector<int>{2, 1}), ids(Sizes));
}
