#include "base/Reference.h"

#include "base/ReferenceCount.h"
#include "base/thread/ReferenceCount.h"

#include <gtest/gtest.h>

#include <thread>
#include <utility>
#include <vector>

using qo::Reference;

namespace {

struct Node : qo::ReferenceCount {
  static inline int Live = 0;
  Node() { ++Live; }
  Node(const Node &Other) : qo::ReferenceCount(Other) { ++Live; }
  Node &operator=(const Node &) = default;
  ~Node() override { --Live; }
};

struct Leaf : Node {};

} // namespace

TEST(Reference, CountsEveryHolderAndDeletesAtZero) {
  Reference<Node> A(new Node), B(new Node);
  Reference<Node> C = std::move(B);
  A = C;
  EXPECT_EQ(Node::Live, 1);
  A = A; // self-assignment must not drop the last reference first
  C.reset();
  EXPECT_EQ(A->refCount(), 1u);

  // A copied object starts with no references of its own.
  Reference<Node> Copy(new Node(*A));
  *Copy = *A;
  EXPECT_EQ(Copy->refCount(), 1u);
  Node *Raw = A.release();
  Raw->unref();
  Copy = nullptr;
  EXPECT_EQ(Node::Live, 0);
}

TEST(Reference, ConstViewSharesTheObject) {
  Reference<Leaf> L(new Leaf);
  Reference<const Node> View = L;
  EXPECT_EQ(View.get(), L.get());
  EXPECT_EQ(L->refCount(), 2u);
  EXPECT_TRUE(qo::constCast<Node>(View) == Reference<Node>(L));
  EXPECT_EQ(qo::dynamicCast<const Leaf>(View).get(), L.get());
  EXPECT_FALSE(qo::dynamicCast<Leaf>(Reference<Node>(new Node)));
}

// Comparing with a raw pointer must not take and drop a reference: for an
// object that nothing holds yet, that would delete it.
TEST(Reference, ComparingWithARawPointerLeavesItsCountAlone) {
  Reference<Node> Held(new Node);
  Node *Fresh = new Node;
  EXPECT_FALSE(Held == Fresh);
  EXPECT_FALSE(Fresh == Held);
  EXPECT_TRUE(Held == Held.get());
  EXPECT_EQ(Fresh->refCount(), 0u);
  delete Fresh;
}

TEST(ThreadReferenceCount, CountsAcrossThreadsAndDeletesOnce) {
  // The sanitizers tell a missed or a second deletion.
  struct Shared : qoThread::ReferenceCount {};
  Reference<Shared> Object(new Shared);
  std::vector<std::thread> Threads;
  for (int T = 0; T < 4; ++T)
    Threads.emplace_back([Object] {
      for (int I = 0; I < 10000; ++I)
        Reference<Shared> Copy = Object;
    });
  for (auto &T : Threads)
    T.join();
  EXPECT_EQ(Object->refCount(), 1u);
  // The last release may happen on any thread.
  std::thread([O = std::move(Object)] {}).join();
}
