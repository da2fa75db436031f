#include "base/Reference.h"

#include "base/ReferenceCount.h"
#include "base/thread/ReferenceCount.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <unordered_set>
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

// Counts in its own way, as properties do: Reference must only call these.
struct OwnCount {
  virtual ~OwnCount() = default;
  virtual void ref() const { ++Refs; }
  virtual void unref() const { --Refs; }
  mutable int Refs = 0;
};

struct Shared : qoThread::ReferenceCount {
  static inline std::atomic<int> Live = 0;
  Shared() { ++Live; }
  ~Shared() override { --Live; }
};

} // namespace

TEST(Reference, CountsEveryHolderAndDeletesAtZero) {
  {
    Reference<Node> A(new Node);
    EXPECT_EQ(A->refCount(), 1u);
    Reference<Node> B = A;
    EXPECT_EQ(A->refCount(), 2u);
    Reference<Node> C = std::move(B);
    EXPECT_FALSE(B);
    EXPECT_EQ(A->refCount(), 2u);
    C.reset();
    EXPECT_EQ(A->refCount(), 1u);
    EXPECT_EQ(Node::Live, 1);
  }
  EXPECT_EQ(Node::Live, 0);
}

TEST(Reference, AssignmentReleasesTheOldObject) {
  Reference<Node> A(new Node);
  Reference<Node> B(new Node);
  A = B;
  EXPECT_EQ(Node::Live, 1);
  EXPECT_EQ(B->refCount(), 2u);
  A = A; // self-assignment must not drop the last reference first
  A = std::move(A);
  B.reset();
  ASSERT_TRUE(A);
  EXPECT_EQ(A->refCount(), 1u);
  A = nullptr;
  EXPECT_EQ(Node::Live, 0);
}

TEST(Reference, ReleaseHandsOverTheReference) {
  Reference<Node> A(new Node);
  Node *Raw = A.release();
  EXPECT_FALSE(A);
  EXPECT_EQ(Raw->refCount(), 1u);
  Raw->unref();
  EXPECT_EQ(Node::Live, 0);
}

TEST(Reference, ConstViewSharesTheObject) {
  Reference<Leaf> L(new Leaf);
  Reference<const Node> View = L;
  Reference<Node> Base = L;
  EXPECT_EQ(View.get(), L.get());
  EXPECT_EQ(L->refCount(), 3u);
  Reference<const Node> Moved = std::move(Base);
  EXPECT_EQ(L->refCount(), 3u);
  EXPECT_TRUE(View == Moved);
  EXPECT_TRUE(qo::constCast<Node>(View) == Reference<Node>(L));
}

TEST(Reference, ComparesByIdentity) {
  Reference<Node> A(new Node), B(new Node), A2 = A;
  Reference<Node> Null;
  EXPECT_TRUE(A == A2);
  EXPECT_FALSE(A == B);
  EXPECT_TRUE(Null == nullptr);
  EXPECT_TRUE(nullptr == Null);
  EXPECT_FALSE(A == nullptr);
  EXPECT_NE(A < B, B < A);

  std::unordered_set<Reference<Node>> Set{A, A2, B};
  EXPECT_EQ(Set.size(), 2u);
  EXPECT_EQ(Set.count(A2), 1u);
}

// Comparing with a raw pointer must not take and drop a reference: for an
// object that nothing holds yet, that would delete it.
TEST(Reference, ComparingWithARawPointerLeavesItsCountAlone) {
  Reference<Node> Held(new Node);
  Node *Fresh = new Node;
  EXPECT_FALSE(Held == Fresh);
  EXPECT_FALSE(Fresh == Held);
  EXPECT_TRUE(Held == Held.get());
  EXPECT_EQ(Node::Live, 2);
  EXPECT_EQ(Fresh->refCount(), 0u);
  delete Fresh;
}

TEST(Reference, CastsKeepTheObjectOrGiveNull) {
  Reference<Node> AsNode(new Leaf);
  Reference<Node> Plain(new Node);
  EXPECT_EQ(qo::dynamicCast<Leaf>(AsNode).get(), AsNode.get());
  EXPECT_FALSE(qo::dynamicCast<Leaf>(Plain));
  EXPECT_FALSE(qo::dynamicCast<Leaf>(Reference<Node>()));
  EXPECT_EQ(qo::staticCast<Leaf>(AsNode)->refCount(), 2u);
  EXPECT_EQ(qo::make<Leaf>()->refCount(), 1u);
}

TEST(Reference, CallsTheObjectsOwnRefAndUnref) {
  OwnCount Object;
  {
    Reference<OwnCount> A(&Object);
    Reference<const OwnCount> B = A;
    EXPECT_EQ(Object.Refs, 2);
  }
  EXPECT_EQ(Object.Refs, 0);
}

TEST(ReferenceCount, CopyStartsWithNoReferences) {
  Reference<Node> A(new Node);
  Reference<Node> Copy(new Node(*A));
  EXPECT_EQ(Copy->refCount(), 1u);
  *Copy = *A;
  EXPECT_EQ(Copy->refCount(), 1u);
  EXPECT_EQ(A->refCount(), 1u);
}

TEST(ThreadReferenceCount, CountsAcrossThreadsAndDeletesOnce) {
  Reference<Shared> Object(new Shared);
  std::vector<std::thread> Threads;
  for (int T = 0; T < 4; ++T)
    Threads.emplace_back([Object] {
      for (int I = 0; I < 10000; ++I) {
        Reference<Shared> Copy = Object;
        Reference<Shared> Again = Copy;
      }
    });
  for (auto &T : Threads)
    T.join();
  EXPECT_EQ(Object->refCount(), 1u);

  // The last release may happen on any thread.
  std::thread Last([O = std::move(Object)] {});
  Last.join();
  EXPECT_EQ(Shared::Live, 0);
}
