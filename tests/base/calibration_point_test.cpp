// The record's layout is shared with programs compiled elsewhere.
#include "base/calibration_point.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <type_traits>
#include <vector>

namespace {

TEST(CalibrationPoint, Is64BytesOfAlignment4) {
  EXPECT_EQ(sizeof(CalibrationPoint), 64u);
  EXPECT_EQ(alignof(CalibrationPoint), 4u);
}

TEST(CalibrationPoint, FieldsLieWhereTheHostReadsThem) {
  EXPECT_EQ(offsetof(CalibrationPoint, id), 0u);
  EXPECT_EQ(offsetof(CalibrationPoint, row), 4u);
  EXPECT_EQ(offsetof(CalibrationPoint, col), 8u);
  EXPECT_EQ(offsetof(CalibrationPoint, reservedAfterCol), 12u);
  EXPECT_EQ(offsetof(CalibrationPoint, x), 24u);
  EXPECT_EQ(offsetof(CalibrationPoint, y), 28u);
  EXPECT_EQ(offsetof(CalibrationPoint, reservedAfterY), 32u);
}

TEST(CalibrationPoint, FieldsAre32BitsWide) {
  static_assert(std::is_signed<decltype(CalibrationPoint::id)>::value, "ids can be negative");
  static_assert(std::is_same<decltype(CalibrationPoint::x), float>::value, "single precision");
  static_assert(std::is_same<decltype(CalibrationPoint::y), float>::value, "single precision");
  EXPECT_EQ(sizeof(CalibrationPoint::id), 4u);
  EXPECT_EQ(sizeof(CalibrationPoint::row), 4u);
  EXPECT_EQ(sizeof(CalibrationPoint::col), 4u);
  EXPECT_EQ(sizeof(CalibrationPoint::reservedAfterCol), 12u);
  EXPECT_EQ(sizeof(CalibrationPoint::reservedAfterY), 32u);
}

TEST(CalibrationPoint, IsMovedAsPlainMemory) {
  EXPECT_TRUE(std::is_trivially_copyable<CalibrationPoint>::value);
  EXPECT_TRUE(std::is_standard_layout<CalibrationPoint>::value);
  EXPECT_TRUE((std::is_same<PointList, std::vector<CalibrationPoint, PointAllocator>>::value));
  EXPECT_EQ(sizeof(PointList), 3 * sizeof(void*));  // begin, end, end of capacity
}

}  // namespace
