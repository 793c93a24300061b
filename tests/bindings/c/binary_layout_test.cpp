#include <gtest/gtest.h>

#include <cstddef>

#include "interface/quorvex_c.h"

namespace quorvex::tests {
namespace {

// Hosts in other languages hold these numbers and offsets themselves, and a host that was compiled
// against one release is run with the next.

TEST(CBinaryLayout, CodesKeepTheirNumbers) {
  EXPECT_EQ(QUORVEX_OK, 0);
  EXPECT_EQ(QUORVEX_ERROR_ARGUMENT, 1);
  EXPECT_EQ(QUORVEX_ERROR_SIZE, 2);
  EXPECT_EQ(QUORVEX_ERROR_NO_TARGET, 3);
  EXPECT_EQ(QUORVEX_ERROR_NO_POINT, 4);
  EXPECT_EQ(QUORVEX_ERROR_NO_GRID, 5);
  EXPECT_EQ(QUORVEX_ERROR_FILE, 6);
  EXPECT_EQ(QUORVEX_ERROR_FORMAT, 7);
  EXPECT_EQ(QUORVEX_ERROR_MEMORY, 8);
  EXPECT_EQ(QUORVEX_ERROR_INTERNAL, 9);
  EXPECT_EQ(QUORVEX_MARKS_EITHER, 0);
  EXPECT_EQ(QUORVEX_MARKS_DARK, 1);
  EXPECT_EQ(QUORVEX_MARKS_LIGHT, 2);
  EXPECT_EQ(QUORVEX_MARK_MEASURED, 0);
  EXPECT_EQ(QUORVEX_MARK_DOUBTFUL, 1);
  EXPECT_EQ(QUORVEX_MARK_PREDICTED, 2);
}

TEST(CBinaryLayout, StructuresKeepTheirSizes) {
  EXPECT_EQ(sizeof(quorvex_image), 24u);
  EXPECT_EQ(sizeof(quorvex_colour_image), 32u);
  EXPECT_EQ(sizeof(quorvex_point), 20u);
  EXPECT_EQ(sizeof(quorvex_detect_options), 12u);
  EXPECT_EQ(sizeof(quorvex_precise_options), 20u);
  EXPECT_EQ(sizeof(quorvex_mark), 80u);
  EXPECT_EQ(sizeof(quorvex_facts), 216u);
  EXPECT_EQ(sizeof(quorvex_position), 16u);
  EXPECT_EQ(sizeof(quorvex_refined_point), 144u);
}

TEST(CBinaryLayout, MembersKeepTheirOffsets) {
  EXPECT_EQ(offsetof(quorvex_image, stride), 16u);
  EXPECT_EQ(offsetof(quorvex_colour_image, bits_per_pixel), 24u);
  EXPECT_EQ(offsetof(quorvex_point, x), 12u);
  EXPECT_EQ(offsetof(quorvex_mark, x), 16u);
  EXPECT_EQ(offsetof(quorvex_mark, seen_arms), 56u);
  EXPECT_EQ(offsetof(quorvex_mark, verdict), 72u);
  EXPECT_EQ(offsetof(quorvex_facts, rotation), 56u);
  EXPECT_EQ(offsetof(quorvex_facts, translation), 128u);
  EXPECT_EQ(offsetof(quorvex_facts, focal_length), 152u);
  EXPECT_EQ(offsetof(quorvex_refined_point, is_refined), 40u);
  EXPECT_EQ(offsetof(quorvex_refined_point, reason), 44u);
}

}  // namespace
}  // namespace quorvex::tests
