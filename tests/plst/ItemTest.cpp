#include "plst/Item.h"

#include <gtest/gtest.h>
TEST(Item, Placeholder) { EXPECT_EQ(nyPLST::Bool().value(), false); }
