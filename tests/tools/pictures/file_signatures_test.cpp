#include "tools/pictures/file_signatures.h"

#include <gtest/gtest.h>

#include "tests/support/bytes.h"

namespace quorvex::tests {

using namespace tools;

namespace {

TEST(FileSignatures, JpegAndTiffOfBothByteOrders) {
  EXPECT_TRUE(IsJpeg({0xff, 0xd8, 0xff}));
  EXPECT_FALSE(IsJpeg({0xff, 0xd8}));
  EXPECT_FALSE(IsJpeg({0xff, 0xd8, 0}));
  EXPECT_TRUE(IsTiff({'I', 'I', 42, 0}));
  EXPECT_TRUE(IsTiff({'I', 'I', 43, 0}));
  EXPECT_TRUE(IsTiff({'M', 'M', 0, 42}));
  EXPECT_FALSE(IsTiff({'M', 'M', 42, 0}));
  EXPECT_FALSE(IsTiff({'I', 'M', 42, 0}));
  EXPECT_FALSE(IsTiff({'I', 'I', 42}));
}

}  // namespace
}  // namespace quorvex::tests
