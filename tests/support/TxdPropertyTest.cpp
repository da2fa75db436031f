#include "support/TxdProperty.h"

#include "tests/support/PropertyProbe.h"

#include "transaction/Config.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>

using namespace orbotest;
using nySupport::TxdPropertyData;

TEST(TxdProperty, StoreRecordsItsMembersValueAndLink) {
  nyTXN::Manager M;
  PropertyRef A = Property::createTxd(M, "a", num(1));
  PropertyRef B = A->cloneTxd(M, "b"), C = A->cloneTxd(M, "c");
  TxdPropertyData &Store = *A->txdStore();
  const std::vector<unsigned char> Bytes = nyTXN::recordedBytes(Store);
  ASSERT_EQ(Bytes.size(), 4 + 5 * sizeof(void *));
  std::int32_t Count;
  const void *Pointers[5];
  std::memcpy(&Count, Bytes.data(), 4);
  std::memcpy(Pointers, Bytes.data() + 4, sizeof Pointers);
  EXPECT_EQ(Count, 3);
  EXPECT_EQ(Pointers[2], static_cast<const void *>(
                             dynamic_cast<nyTXN::RefCountedObject *>(C.get())));
  EXPECT_EQ(Pointers[4], nullptr); // no twin link

  // The value holder is charged a fixed size; the item costs nothing.
  nyTXN::ObjectSize Size;
  TxdPropertyData::Holder::create(M, num(1))->onTxnGetSize(Size);
  EXPECT_EQ(Size.objectBytes(), nyTXN::config::ValueHolderBytes +
                                    nyTXN::config::DefaultObjectBytes);
  EXPECT_EQ(Size.referencedBytes(), 0u);
  EXPECT_EQ(Size.references(), 1u);
}
