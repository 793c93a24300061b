#include "crossmark/line_picture.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/faults.h"
#include "tests/support/lines.h"
#include "tests/support/patches.h"
#include "tests/support/temporary_directory.h"

namespace quorvex::tests {
namespace {

constexpr int kWidth = 8;
constexpr int kHeight = 6;
const char* const kName = "./Points.bmp";

// Offsets of the white pixels in the saved picture; everything else must be black.
std::vector<int> WhiteOffsets(const std::vector<PointFList>& pointLists) {
  const TemporaryDirectory directory;
  SaveLinePicture(LinesThrough(pointLists), kWidth, kHeight, kName);
  const Picture picture = ReadPicture(kName);
  EXPECT_EQ(picture.width, kWidth);
  EXPECT_EQ(picture.height, kHeight);
  EXPECT_EQ(picture.pixels.size(), static_cast<std::size_t>(kWidth * kHeight));
  std::vector<int> offsets;
  for (std::size_t i = 0; i < picture.pixels.size(); ++i) {
    if (picture.pixels[i] == 255) {
      offsets.push_back(static_cast<int>(i));
    } else {
      EXPECT_EQ(picture.pixels[i], 0);
    }
  }
  return offsets;
}

TEST(SaveLinePicture, DrawsEveryPointOfEveryLine) {
  EXPECT_EQ(WhiteOffsets({{{0.0f, 0.0f}, {7.0f, 5.0f}}, {}, {{2.0f, 3.0f}}}),
            (std::vector<int>{0, 3 * kWidth + 2, 5 * kWidth + 7}));
}

TEST(SaveLinePicture, WithoutLinesIsBlack) { EXPECT_TRUE(WhiteOffsets({}).empty()); }

TEST(SaveLinePicture, CoordinatesAreCutTowardsZeroAfterAddingOneHalf) {
  EXPECT_EQ(WhiteOffsets({{{2.5f, 1.4f}}}), (std::vector<int>{1 * kWidth + 3}));
  EXPECT_EQ(WhiteOffsets({{{-1.25f, -1.25f}}}), (std::vector<int>{0}));
}

TEST(SaveLinePicture, PointsOutsideAreLeftOut) {
  EXPECT_TRUE(WhiteOffsets({{{-1.5f, 2.0f},
                             {2.0f, -1.5f},
                             {7.5f, 2.0f},
                             {2.0f, 5.5f},
                             {1e30f, 2.0f},
                             {2.0f, -1e30f}}})
                  .empty());
}

TEST(SaveLinePicture, ReplacesAnEarlierPicture) {
  const TemporaryDirectory directory;
  SaveLinePicture({}, 40, 40, kName);
  SaveLinePicture({}, kWidth, kHeight, kName);
  EXPECT_EQ(std::filesystem::file_size(kName), 14u + 40 + 256 * 4 + kWidth * kHeight);
}

TEST(SaveLinePicture, FailureToWriteIsIgnored) {
  const TemporaryDirectory directory;
  const FailNth failure(Fault::kWrite, 1);
  SaveLinePicture({}, kWidth, kHeight, kName);
  EXPECT_TRUE(failure.HasHappened());
  SaveLinePicture({}, kWidth, kHeight, "./missing folder/Points.bmp");
}

}  // namespace
}  // namespace quorvex::tests
