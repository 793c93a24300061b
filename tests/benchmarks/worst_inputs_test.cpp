// What the library costs at the worst, as ratios, since machines differ: to a white picture of the
// same size, and to a quarter of the same input. The limits are two to three times what
// benchmarks/worst_cases measures.
#include "benchmarks/worst_inputs.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>

#include "imageio/diagnostic_place.h"
#include "interface/quorvex.h"
#include "tests/road/detection_road.h"

namespace quorvex::tests {
namespace {

using benchmarks::WorstList;
using benchmarks::WorstLists;
using benchmarks::WorstPicture;
using benchmarks::WorstPictures;

constexpr int kWidth = 2000;  // pixels; the larger pictures have twice as many each way
constexpr int kHeight = 1500;
constexpr double kMostOfLinear = 3.0;        // times four, for four times the pixels
constexpr double kMostOfWhite = 12.0;        // times a white picture
constexpr double kMostOfWhiteAPoint = 0.15;  // and for each mark that is found, at 3 megapixels
constexpr double kShortest = 0.01;           // seconds; what takes less is too short to be compared

// Of processor time, so that other programs count little.
template <typename Work>
double SecondsOf(Work work) {
  const std::clock_t began = std::clock();
  work();
  return std::max(static_cast<double>(std::clock() - began) / CLOCKS_PER_SEC, kShortest);
}

struct Cost {
  double seconds;
  std::size_t points;
};

class WorstPictureTest : public ::testing::Test {
 protected:
  // Files are another matter.
  WorstPictureTest() {
    PlaceDiagnosticsBy([](const char*) -> const char* { return nullptr; });
  }
  ~WorstPictureTest() override { PlaceDiagnosticsBy(nullptr); }

  static Cost CostOf(const WorstPicture& picture, int width, int height) {
    GrayImage image = benchmarks::Draw(picture, width, height);
    PointList points;
    const double seconds = SecondsOf([&] {
      SingleCamDetectCalibrationPoint(image.Data(), width, height, 8, kRowSpan, kColumnSpan, 0.0f,
                                      0.0f, kRowSteps, points);
    });
    return {seconds, points.size()};
  }
};

TEST_F(WorstPictureTest, NoPictureCostsMoreThanItsPixelsAndMarks) {
  const double white = CostOf(WorstPictures().front(), kWidth, kHeight).seconds;
  for (const WorstPicture& picture : WorstPictures()) {
    const Cost quarter = CostOf(picture, kWidth, kHeight);
    const double limit = kMostOfWhite + kMostOfWhiteAPoint * static_cast<double>(quarter.points);
    EXPECT_LT(quarter.seconds / white, limit)
        << picture.name << ", " << quarter.points << " points";
    const Cost whole = CostOf(picture, 2 * kWidth, 2 * kHeight);
    EXPECT_LT(whole.seconds / quarter.seconds, 4.0 * kMostOfLinear) << picture.name;
  }
}

TEST_F(WorstPictureTest, AVeryLargePictureCostsWhatItsPixelsDo) {
  constexpr int kLargeWidth = 32768;
  constexpr int kLargeHeight = 8192;
  constexpr double kTimesThePixels =
      static_cast<double>(kLargeWidth) * kLargeHeight / (kWidth * kHeight);
  const WorstPicture& white = WorstPictures().front();
  const double small = CostOf(white, kWidth, kHeight).seconds;
  const double large = CostOf(white, kLargeWidth, kLargeHeight).seconds;
  EXPECT_LT(large / small, kMostOfLinear * kTimesThePixels);
}

// Sorting needs somewhat more than four times the time; a loop over all pairs sixteen times.
TEST(WorstListTest, FourTimesThePointsCostLittleMoreThanFourTimesTheTime) {
  constexpr int kCount = 100'000;
  constexpr double kMost = 10.0;
  for (const WorstList& list : WorstLists()) {
    PointList quarter = list.make(kCount / 4);
    PointList whole = list.make(kCount);
    const double ofQuarter = SecondsOf([&] { list.run(quarter); });
    const double ofWhole = SecondsOf([&] { list.run(whole); });
    EXPECT_LT(ofWhole / ofQuarter, kMost) << list.name;
  }
}

}  // namespace
}  // namespace quorvex::tests
