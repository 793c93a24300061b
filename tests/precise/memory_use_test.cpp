// The direct detector holds little more than its pyramid, whatever the picture shows.
#include <gtest/gtest.h>

#include <Eigen/Core>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <new>
#include <random>
#include <vector>

#include "interface/quorvex_precise.h"
#include "precise/gray_picture.h"
#include "tests/support/allocation_peak.h"

namespace quorvex::tests {
namespace {

using precise::Detect;
using precise::GrayPicture;
using precise::ImageView;
using precise::Options;

constexpr int kSide = 1000;             // px
constexpr std::size_t kMostTimes = 12;  // the image's bytes

ImageView ViewOf(const GrayPicture& picture) {
  return {picture.Row(0), picture.Width(), picture.Height(), picture.Width()};
}

enum class Marks { kNone, kSome };

void ExpectLittleMemory(const GrayPicture& picture, Marks marks) {
  const std::size_t image =
      static_cast<std::size_t>(picture.Width()) * static_cast<std::size_t>(picture.Height());
  Options options;
  options.predictsMissing = true;
  const AllocationPeak peak;
  const precise::Result result = Detect(ViewOf(picture), options);
  EXPECT_EQ(result.marks.empty(), marks == Marks::kNone) << result.reason;
  EXPECT_GT(peak.Bytes(), image);  // a copy at least, or nothing was counted
  EXPECT_LE(peak.Bytes(), kMostTimes * image);
  std::vector<precise::Point> points;
  for (int i = 0; i < 400; ++i) {
    points.push_back({50.0 * (i % 20), 50.0 * (i / 20)});
  }
  const AllocationPeak peakOfRefinement;
  RefineMarks(ViewOf(picture), points, options);
  EXPECT_LE(peakOfRefinement.Bytes(), kMostTimes * image);
}

// Lines of 3 px, or crosses of them, each `pitch` px.
GrayPicture Paper(int pitch, bool areCrosses) {
  GrayPicture picture(kSide, kSide, 210);
  for (int y = 0; y < kSide; ++y) {
    for (int x = 0; x < kSide; ++x) {
      const int dx = std::abs(x % pitch - pitch / 2);
      const int dy = std::abs(y % pitch - pitch / 2);
      const bool isLine = dx <= 1 || dy <= 1;
      const bool isNear = 5 * dx <= 2 * pitch && 5 * dy <= 2 * pitch;
      if (isLine && (!areCrosses || isNear)) {
        picture.Row(y)[x] = 40;
      }
    }
  }
  return picture;
}

GrayPicture Noise(int most) {
  GrayPicture picture(kSide, kSide, 0);
  std::mt19937 random(1);
  for (int y = 0; y < kSide; ++y) {
    for (int x = 0; x < kSide; ++x) {
      picture.Row(y)[x] =
          static_cast<std::uint8_t>(128 + static_cast<int>(random() % 256) * most / 256 - most / 2);
    }
  }
  return picture;
}

// Eigen asks the C library for memory, sorts and partitions ask the form of operator new that does
// not throw, everything else asks the usual one.
TEST(MemoryUse, TheCountSeesEveryBlock) {
  const AllocationPeak peak;
  EXPECT_EQ(std::vector<double>(10000, 1.0).back(), 1.0);
  EXPECT_GE(peak.Bytes(), 80000U);
  EXPECT_LT(peak.Bytes(), 81000U);
  void* volatile asked = ::operator new(90000, std::nothrow);
  ::operator delete(asked);
  EXPECT_GE(peak.Bytes(), 90000U);
  EXPECT_LT(peak.Bytes(), 95000U);
  // Compilers leave out blocks that they see through.
  Eigen::VectorXd values = Eigen::VectorXd::Constant(20000, 1.0);
  double* volatile shown = values.data();
  EXPECT_EQ(shown[19999], 1.0);
  EXPECT_GE(peak.Bytes(), 160000U);
  EXPECT_LT(peak.Bytes(), 170000U);  // large blocks are whole pages
}

TEST(MemoryUse, NoiseTakesLittle) {
  for (const int most : {20, 200}) {
    ExpectLittleMemory(Noise(most), Marks::kNone);
  }
}

TEST(MemoryUse, GraphPaperTakesLittle) {
  for (const int pitch : {10, 16, 40}) {
    ExpectLittleMemory(Paper(pitch, false), Marks::kNone);
  }
}

TEST(MemoryUse, ABoardTakesLittle) {
  for (const int pitch : {30, 40, 100}) {
    ExpectLittleMemory(Paper(pitch, true), Marks::kSome);
  }
}

// So small that they are mistaken for another grid; many candidates are held.
TEST(MemoryUse, ACrowdOfCrossesTakesLittle) {
  for (const int pitch : {12, 20}) {
    ExpectLittleMemory(Paper(pitch, true), Marks::kNone);
  }
}

}  // namespace
}  // namespace quorvex::tests
