#include "preprocess/sobel_edges.h"

#include <gtest/gtest.h>

#include "tests/support/bytes.h"
#include "tests/support/faults.h"

namespace quorvex::tests {
namespace {

Bytes EdgesOf(Bytes image, int width, int height) {
  EXPECT_TRUE(SobelEdges(image.data(), width, height));
  return image;
}

// The edge level of a pixel whose gradients are `vertical` (between the rows) and `horizontal`
// (between the columns), both even and at most 510.
int Combined(int vertical, int horizontal) {
  Bytes image(12, 0);
  image[1] = static_cast<unsigned char>(vertical / 2);    // below (1, 1)
  image[6] = static_cast<unsigned char>(horizontal / 2);  // to the right of it
  return EdgesOf(image, 4, 3)[5];
}

TEST(SobelEdges, GreaterGradientIsTakenBelow128) {
  EXPECT_EQ(Combined(30, 60), 60);
  EXPECT_EQ(Combined(60, 30), 60);
  EXPECT_EQ(Combined(126, 120), 126);
  EXPECT_EQ(Combined(0, 0), 0);
}

TEST(SobelEdges, StrongGradientGivesWayToAWeakOne) {
  EXPECT_EQ(Combined(200, 30), 30);
  EXPECT_EQ(Combined(30, 200), 30);
  EXPECT_EQ(Combined(200, 0), 0);
}

TEST(SobelEdges, OfTwoStrongGradientsTheGreaterIsTaken) {
  EXPECT_EQ(Combined(200, 130), 200);  // -56 against -126
  EXPECT_EQ(Combined(130, 200), 200);
  EXPECT_EQ(Combined(400, 130), 255);  // stored as 255, which is -1
}

TEST(SobelEdges, LevelsFrom128OnCountAsNegative) {
  EXPECT_EQ(Combined(128, 126), 126);
  EXPECT_EQ(Combined(126, 128), 126);
  EXPECT_EQ(Combined(128, 0), 0);
  EXPECT_EQ(Combined(0, 128), 0);
}

TEST(SobelEdges, WeighsTheMiddleTwice) {
  // The corner counts once in each direction.
  Bytes image(12, 0);
  image[0] = 10;
  EXPECT_EQ(EdgesOf(image, 4, 3)[5], 10);
  image[1] = 10;
  EXPECT_EQ(EdgesOf(image, 4, 3)[5], 30);
}

TEST(SobelEdges, StepBetweenColumnsIsAnEdgeOnBothSides) {
  EXPECT_EQ(EdgesOf({0, 0, 0, 0, 10, 10, 10, 10,  //
                     0, 0, 0, 0, 10, 10, 10, 10,  //
                     0, 0, 0, 0, 10, 10, 10, 10},
                    8, 3),
            (Bytes{0, 0, 0, 0,  10, 10, 10, 10,  //
                   0, 0, 0, 40, 40, 0,  0,  10,  //
                   0, 0, 0, 0,  10, 10, 10, 10}));
}

TEST(SobelEdges, BorderKeepsTheInput) {
  // The gradient at the right border would be 4 * 40.
  EXPECT_EQ(EdgesOf({9, 9, 0, 40,  //
                     9, 9, 0, 40,  //
                     9, 9, 0, 40},
                    4, 3),
            (Bytes{9, 9, 0, 40,     //
                   9, 36, 124, 40,  //
                   9, 9, 0, 40}));
}

TEST(SobelEdges, ImageWithoutInteriorStays) {
  const Bytes image = {1, 200, 3, 150, 5, 6, 7, 8};
  EXPECT_EQ(EdgesOf(image, 4, 2), image);
  EXPECT_EQ(EdgesOf(image, 4, 0), image);
}

TEST(SobelEdges, MissingMemoryIsFalseAndLeavesTheImage) {
  const Bytes before = {1, 2, 3, 4, 5, 90, 7, 8, 9, 10, 11, 12};
  for (const int nthAllocation : {1, 2, 3, 4}) {  // the two copies, the two convolutions
    Bytes image = before;
    const FailNth fault(Fault::kLocalAlloc, nthAllocation);
    EXPECT_FALSE(SobelEdges(image.data(), 4, 3)) << nthAllocation;
    EXPECT_TRUE(fault.HasHappened()) << nthAllocation;
    EXPECT_EQ(image, before) << nthAllocation;
  }
}

}  // namespace
}  // namespace quorvex::tests
