#include <gtest/gtest.h>
#include "model/deck.h"
TEST(SplitFields, CountsATrailingComma) { zorlan::Fields f; EXPECT_EQ(zorlan::SplitFields("1,2,", f), 3); }
