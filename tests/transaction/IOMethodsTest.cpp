//===- tests/transaction/IOMethodsTest.cpp - Field tables -----------------===//

#include "transaction/IOMethods.h"

#include "tests/transaction/TestObjects.h"

#include "transaction/Serializer.h"
#include "transaction/internal/ByteBuffer.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

using namespace txntest;

namespace {

std::vector<std::string> Log;

struct Probe {
  explicit Probe(std::string Name) : Name(std::move(Name)) {}
  void ref() const { Log.push_back("ref " + Name); }
  void unref() const { Log.push_back("unref " + Name); }
  std::string Name;
};

class Members : public nyTXN::RefCountedObject {
public:
  using RefCountedObject::RefCountedObject;
  void onTransact(nyTXN::Serializer &S) override {
    S.beginObject(this);
    S.field(List);
    S.endObject();
  }
  std::vector<Shape *> List;
};

// A class whose RefCountedObject base does not come first, so that the
// base's address differs from the object's.
struct Payload {
  virtual ~Payload() = default;
  double Weight = 0;
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
    S.field(One);
    S.field(List);
    S.field(Ref);
    S.endObject();
  }
  Late *One = nullptr;
  std::vector<Late *> List;
  qo::Reference<Late> Ref;
};

template <class T> std::vector<unsigned char> bytesOf(const T &Value) {
  nyTXN::internal::ByteBuffer Buffer;
  nyTXN::Writer W(Buffer, 0);
  nyTXN::IOMethods<T>::Table.callWrite(W, &Value);
  return {Buffer.data(), Buffer.data() + Buffer.size()};
}

TEST(IOMethods, PointerListIsACountThenThePointers) {
  nyTXN::Manager M;
  auto A = Shape::create(M, "a");
  auto B = Shape::create(M, "b");
  Members Store(M);
  Store.List = {A.get(), B.get(), A.get()};
  const auto Bytes = nyTXN::recordedBytes(Store);
  ASSERT_EQ(Bytes.size(), 4 + 3 * sizeof(void *));
  std::int32_t Count;
  std::memcpy(&Count, Bytes.data(), 4);
  EXPECT_EQ(Count, 3);
  Shape *Second;
  std::memcpy(&Second, Bytes.data() + 4 + sizeof(void *), sizeof Second);
  EXPECT_EQ(Second, B.get());

  Store.List.clear();
  nyTXN::Reader R(Bytes.data(), Bytes.size());
  nyTXN::IOMethods<std::vector<Shape *>>::Table.callRead(R, &Store.List);
  EXPECT_TRUE(R.atEnd());
  EXPECT_EQ(Store.List, (std::vector<Shape *>{A.get(), B.get(), A.get()}));
}

TEST(IOMethods, PointersToABaseNotFirstComeBackAsTheObject) {
  nyTXN::Manager M;
  qo::Reference<Late> A(new Late(M)), B(new Late(M));
  ASSERT_NE(
      static_cast<void *>(A.get()),
      static_cast<void *>(static_cast<nyTXN::RefCountedObject *>(A.get())));
  qo::Reference<LateHolder> H(new LateHolder(M));
  H->One = A.get();
  H->List = {A.get(), B.get()};
  H->Ref = A;
  M.beginTransaction(nyTXN::TxnUndoable);
  H->recordChange();
  H->One = B.get();
  H->List = {B.get()};
  H->Ref = B;
  M.endTransaction();
  ASSERT_TRUE(M.undo());
  EXPECT_EQ(H->One, A.get());
  EXPECT_EQ(H->List, (std::vector<Late *>{A.get(), B.get()}));
  EXPECT_EQ(H->Ref.get(), A.get());
  EXPECT_EQ(A->refCount(), 2u);
  ASSERT_TRUE(M.redo());
  EXPECT_EQ(H->One, B.get());
  EXPECT_EQ(H->List, std::vector<Late *>{B.get()});
  EXPECT_EQ(H->Ref.get(), B.get());
  EXPECT_EQ(A->refCount(), 1u);
}

TEST(IOMethods, ReadingAReferenceTakesTheNewOneBeforeReleasingTheOld) {
  Probe Old("old"), New("new");
  qo::Reference<Probe> Field(&Old);
  const auto Bytes = bytesOf(qo::Reference<Probe>(&New));
  Log.clear();
  nyTXN::Reader R(Bytes.data(), Bytes.size());
  nyTXN::IOMethods<qo::Reference<Probe>>::Table.callRead(R, &Field);
  EXPECT_EQ(Log, (std::vector<std::string>{"ref new", "unref old"}));
  EXPECT_EQ(Field.get(), &New);
  Log.clear();
  nyTXN::Clear C;
  nyTXN::IOMethods<qo::Reference<Probe>>::Table.callClear(C, &Field);
  EXPECT_EQ(Log, (std::vector<std::string>{"unref new"}));
  EXPECT_FALSE(Field);
}

TEST(IOMethods, ClearEmptiesReferencesAndListsAndLeavesValues) {
  int Number = 7;
  Shape *Pointer = reinterpret_cast<Shape *>(&Number);
  std::vector<int> Numbers{1, 2};
  nyTXN::Clear C;
  nyTXN::IOMethods<int>::Table.callClear(C, &Number);
  nyTXN::IOMethods<Shape *>::Table.callClear(C, &Pointer);
  nyTXN::IOMethods<std::vector<int>>::Table.callClear(C, &Numbers);
  EXPECT_EQ(Number, 7);
  EXPECT_EQ(Pointer, nullptr);
  EXPECT_TRUE(Numbers.empty());
}

TEST(IOMethods, ValueListsRoundTrip) {
  const std::vector<double> Values{1.5, -2, 1e300};
  const auto Bytes = bytesOf(Values);
  EXPECT_EQ(Bytes.size(), 4 + 3 * sizeof(double));
  std::vector<double> Back{9};
  nyTXN::Reader R(Bytes.data(), Bytes.size());
  nyTXN::IOMethods<std::vector<double>>::Table.callRead(R, &Back);
  EXPECT_EQ(Back, Values);
}

TEST(IOMethods, ReadingPastTheRecordedBytesYieldsZeros) {
  const auto Bytes = bytesOf(std::int16_t(5));
  nyTXN::Reader R(Bytes.data(), Bytes.size());
  std::int64_t Wide = -1;
  EXPECT_DEBUG_DEATH(R.readData(&Wide, sizeof Wide), "past the bytes");
#ifdef NDEBUG
  EXPECT_EQ(Wide, 0);
  EXPECT_TRUE(R.failed());
#endif
}

} // namespace
