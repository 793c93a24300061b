// The direct detector and the interface for C when one allocation fails, any of them.
#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "interface/quorvex_c.h"
#include "interface/quorvex_precise.h"
#include "tests/faults/allocation_faults.h"
#include "tests/faults/road_target.h"
#include "tests/support/bytes.h"
#include "tests/support/differential.h"
#include "tests/support/list_drive.h"
#include "tests/support/temporary_directory.h"

namespace quorvex::tests {
namespace {

constexpr int kSamples = 60 / QUORVEX_CASES_DIVISOR;
constexpr int kSide = 240;  // pixels
constexpr int kPitch = 48;  // pixels
constexpr int kMarks = 25;  // 5 x 5
constexpr const char* kPicture = "a-picture-with-a-longer-name.bmp";

// Dark marks with soft edges.
Bytes Board() {
  Bytes pixels(static_cast<std::size_t>(kSide) * kSide);
  const auto cover = [](double across, double along) {
    const double soft = 1.0 / (1.0 + std::exp(2.5 * (std::fabs(across) - 2.0)));
    return std::fabs(along) <= 18.0 ? soft : 0.0;
  };
  for (int y = 0; y < kSide; ++y) {
    for (int x = 0; x < kSide; ++x) {
      const double dx = x % kPitch - kPitch / 2 + 0.3;
      const double dy = y % kPitch - kPitch / 2 - 0.2;
      const double dark = std::max(cover(dx, dy), cover(dy, dx));
      pixels[PixelOffset(x, y, kSide)] = static_cast<unsigned char>(200.5 - 150.0 * dark);
    }
  }
  return pixels;
}

class PreciseAllocations : public testing::Test {
 protected:
  precise::ImageView View() const { return {board.data(), kSide, kSide, kSide}; }
  quorvex_image Image() const { return {board.data(), kSide, kSide, kSide}; }

  const Bytes board = Board();
};

bool AreSame(const precise::Mark& a, const precise::Mark& b) {
  return a.row == b.row && a.column == b.column && a.x == b.x && a.y == b.y && a.cxx == b.cxx;
}

void ExpectSameMarks(const std::vector<precise::Mark>& marks,
                     const std::vector<precise::Mark>& expected) {
  ASSERT_EQ(marks.size(), expected.size());
  for (std::size_t i = 0; i < marks.size(); ++i) {
    EXPECT_TRUE(AreSame(marks[i], expected[i])) << i;
  }
}

TEST_F(PreciseAllocations, ADetectionThrowsAndTheNextOneIsWhole) {
  const std::vector<precise::Mark> expected = precise::Detect(View()).marks;
  ASSERT_EQ(expected.size(), std::size_t{kMarks});
  int thrown = 0;
  ForFaults(
      kSamples, [&] { precise::Detect(View()); },
      [&](int n) {
        precise::Result result;
        const FaultedCall call = CallWithFault(n, [&] { result = precise::Detect(View()); });
        thrown += call.threw ? 1 : 0;
        // Sorts that get no room do without.
        EXPECT_EQ(call.threw, call.failed != Asked::kNewThatDoesNotThrow);
        if (!call.threw) {
          ExpectSameMarks(result.marks, expected);
        }
        ExpectSameMarks(precise::Detect(View()).marks, expected);
      });
  EXPECT_GT(thrown, 0);
}

TEST_F(PreciseAllocations, ARefinementThrowsAndTheNextOneIsWhole) {
  const std::vector<precise::Point> points = {{72.0, 72.0}, {120.0, 119.0}, {5.0, 5.0}};
  const std::vector<precise::RefinedPoint> expected = precise::RefineMarks(View(), points);
  ASSERT_TRUE(expected[0].isRefined);
  ForFaults(
      kSamples, [&] { precise::RefineMarks(View(), points); },
      [&](int n) {
        const FaultedCall call = CallWithFault(n, [&] { precise::RefineMarks(View(), points); });
        EXPECT_EQ(call.threw, call.failed != Asked::kNewThatDoesNotThrow);
        const std::vector<precise::RefinedPoint> next = precise::RefineMarks(View(), points);
        EXPECT_EQ(next[0].x, expected[0].x);
        EXPECT_EQ(next[1].cyy, expected[1].cyy);
      });
}

// Of one call of the interface for C: its code, and that no exception came out.
template <typename Call>
quorvex_error CodeWithFault(int n, Asked& failed, const Call& call) {
  quorvex_error code = QUORVEX_OK;
  const FaultedCall result = CallWithFault(n, [&] { code = call(); });
  EXPECT_FALSE(result.threw);
  failed = result.failed;
  if (code == QUORVEX_ERROR_MEMORY) {
    EXPECT_STREQ(quorvex_error_detail(), "memory ran out");
  }
  return code;
}

TEST_F(PreciseAllocations, InCADetectionIsAnErrorOfMemoryAndHasNoMarks) {
  const quorvex_image image = Image();
  quorvex_marks* marks = nullptr;
  ForFaults(
      kSamples,
      [&] {
        quorvex_detect_precise(&image, nullptr, &marks);
        quorvex_marks_free(marks);
      },
      [&](int n) {
        marks = nullptr;
        Asked failed = Asked::kNothing;
        const quorvex_error code = CodeWithFault(
            n, failed, [&] { return quorvex_detect_precise(&image, nullptr, &marks); });
        EXPECT_EQ(code == QUORVEX_OK, failed == Asked::kNewThatDoesNotThrow) << code;
        EXPECT_EQ(marks == nullptr, code == QUORVEX_ERROR_MEMORY);
        quorvex_marks_free(marks);
        ASSERT_EQ(quorvex_detect_precise(&image, nullptr, &marks), QUORVEX_OK);
        EXPECT_EQ(quorvex_marks_count(marks), std::size_t{kMarks});
        quorvex_marks_free(marks);
      });
}

class CAllocations : public PreciseAllocations {
 protected:
  CAllocations() { quorvex_points_add(list.get(), 1.0f, 2.0f); }

  struct Free {
    void operator()(quorvex_points* points) const { quorvex_points_free(points); }
  };
  std::unique_ptr<quorvex_points, Free> list{quorvex_points_create()};

 private:
  TemporaryDirectory directory_;
  ListDrive lists_;
};

TEST_F(CAllocations, TheLibrarysDetectionLeavesTheListAsItWas) {
  const GrayImage target = RoadTarget();
  const quorvex_image image = {target.Data(), kRoadSize, kRoadSize, kRoadSize};
  const auto detect = [&] { return quorvex_detect(&image, nullptr, list.get()); };
  int failures = 0;
  ForFaults(
      kSamples / 2, [&] { detect(); },
      [&](int n) {
        quorvex_points_clear(list.get());
        Asked failed = Asked::kNothing;
        const quorvex_error code = CodeWithFault(n, failed, detect);
        if (code == QUORVEX_ERROR_MEMORY) {
          ++failures;
          EXPECT_EQ(failed, Asked::kNew);
          EXPECT_EQ(quorvex_points_count(list.get()), 0u);
        }
        // The detection's list takes the place of that one.
        EXPECT_EQ(detect(), QUORVEX_OK);
        EXPECT_EQ(quorvex_points_count(list.get()), std::size_t{kRoadMarks});
      });
  EXPECT_GT(failures, 0);
}

TEST_F(CAllocations, EditingLeavesTheListAsItWas) {
  ForFaults(
      kSamples, [&] { quorvex_points_free(quorvex_points_create()); },
      [&](int n) {
        quorvex_points* made = nullptr;
        EXPECT_EQ(CallWithFault(n, [&] { made = quorvex_points_create(); }).threw, false);
        EXPECT_EQ(made, nullptr);
      });
  int failures = 0;
  const int start = static_cast<int>(quorvex_points_count(list.get()));
  for (int i = start; i < 100; ++i) {
    Asked failed = Asked::kNothing;
    const quorvex_error code =
        CodeWithFault(1, failed, [&] { return quorvex_points_add(list.get(), 1.0f, 2.0f); });
    if (failed != Asked::kNothing) {
      ++failures;
      EXPECT_EQ(code, QUORVEX_ERROR_MEMORY);
      EXPECT_EQ(quorvex_points_count(list.get()), static_cast<std::size_t>(i));
      EXPECT_EQ(quorvex_points_add(list.get(), 1.0f, 2.0f), QUORVEX_OK);
    }
  }
  EXPECT_GT(failures, 3);
}

TEST_F(CAllocations, FilesAreAnErrorOfMemory) {
  const quorvex_image image = Image();
  ForFaults(
      kSamples, [&] { quorvex_write_bmp(kPicture, &image); },
      [&](int n) {
        Asked failed = Asked::kNothing;
        EXPECT_EQ(CodeWithFault(n, failed, [&] { return quorvex_write_bmp(kPicture, &image); }),
                  QUORVEX_ERROR_MEMORY);
      });
  quorvex_picture* picture = nullptr;
  ForFaults(
      kSamples,
      [&] {
        quorvex_read_bmp(kPicture, &picture);
        quorvex_picture_free(picture);
      },
      [&](int n) {
        picture = nullptr;
        Asked failed = Asked::kNothing;
        EXPECT_EQ(CodeWithFault(n, failed, [&] { return quorvex_read_bmp(kPicture, &picture); }),
                  QUORVEX_ERROR_MEMORY);
        EXPECT_EQ(picture, nullptr);
        ASSERT_EQ(quorvex_read_bmp(kPicture, &picture), QUORVEX_OK);
        quorvex_picture_free(picture);
      });
}

}  // namespace
}  // namespace quorvex::tests
