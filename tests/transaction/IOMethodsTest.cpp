//===- tests/transaction/IOMethodsTest.cpp - Field tables -----------------===//

#include "transaction/IOMethods.h"

#include "tests/transaction/TestObjects.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

// The RefCountedObject base does not come first, so the base's address
// differs from the object's.
struct Payload {
  virtual ~Payload() = default;
};
class Late : public Payload, public nyTXN::RefCountedObject {
public:
  using RefCountedObject::RefCountedObject;
};
class LateHolder : public nyTXN::RefCountedObject {
public:
  using RefCountedObject::RefCountedObject;
  void onTransact(nyTXN::Serializer &S) override {
    S.beginObject(this);
    S.field(List);
    S.field(Ref);
    S.endObject();
  }
  std::vector<Late *> List;
  qo::Reference<Late> Ref;
};

TEST(IOMethods, PointersToABaseNotFirstComeBackAsTheObject) {
  nyTXN::Manager M;
  qo::Reference<Late> A(new Late(M)), B(new Late(M));
  ASSERT_NE(static_cast<void *>(A.get()),
            static_cast<void *>(static_cast<nyTXN::Object *>(A.get())));
  qo::Reference<LateHolder> H(new LateHolder(M));
  H->List = {A.get(), B.get()};
  H->Ref = A;
  M.beginTransaction(nyTXN::TxnUndoable);
  H->recordChange();
  H->List = {B.get()};
  H->Ref = B;
  M.endTransaction();
  ASSERT_TRUE(M.undo());
  EXPECT_EQ(H->List, (std::vector<Late *>{A.get(), B.get()}));
  EXPECT_EQ(H->Ref.get(), A.get());
  EXPECT_EQ(A->refCount(), 2u);
  ASSERT_TRUE(M.redo());
  EXPECT_EQ(H->List, std::vector<Late *>{B.get()});
  EXPECT_EQ(H->Ref.get(), B.get());
  EXPECT_EQ(A->refCount(), 1u);
}

} // namespace
