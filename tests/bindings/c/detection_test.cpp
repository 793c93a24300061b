#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "interface/quorvex.h"
#include "interface/quorvex_c.h"
#include "tests/bindings/c/failing_new.h"
#include "tests/support/message_box.h"
#include "tests/support/temporary_directory.h"
#include "tools/render/presets.h"
#include "tools/render/render_target.h"

namespace quorvex::tests {
namespace {

struct Free {
  void operator()(quorvex_points* points) const { quorvex_points_free(points); }
};

bool AreSame(const quorvex_point& a, const CalibrationPoint& b) {
  return a.id == b.id && a.row == b.row && a.col == b.col && a.x == b.x && a.y == b.y;
}

class CDetectionTest : public ::testing::Test {
 protected:
  ~CDetectionTest() override { EXPECT_TRUE(TakeMessages().empty()); }

  static const tools::Picture& SmallPicture() {
    static const tools::Picture picture = [] {
      tools::RenderSettings settings = tools::PresetByName("easy");
      settings.width = 960;
      settings.height = 800;
      settings.rows = 4;
      settings.columns = 5;
      return tools::RenderTarget(settings).picture;
    }();
    return picture;
  }

  static quorvex_image SmallImage() {
    const tools::Picture& picture = SmallPicture();
    return {picture.pixels.data(), picture.width, picture.height, picture.width};
  }

  // What the library itself finds.
  static PointList Expected() {
    const tools::Picture& picture = SmallPicture();
    std::vector<unsigned char> pixels;
    for (int y = picture.height - 1; y >= 0; --y) {
      const auto row = picture.pixels.begin() + std::ptrdiff_t{y} * picture.width;
      pixels.insert(pixels.end(), row, row + picture.width);
    }
    PointList points;
    EXPECT_TRUE(SingleCamDetectCalibrationPoint(pixels.data(), picture.width, picture.height, 8, 20,
                                                20, 0.0f, 0.0f, 300, points));
    return points;
  }

  void ExpectPoints(const PointList& expected) const {
    ASSERT_EQ(quorvex_points_count(list.get()), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
      quorvex_point point;
      ASSERT_EQ(quorvex_points_get(list.get(), i, &point), QUORVEX_OK);
      EXPECT_TRUE(AreSame(point, expected[i])) << i;
    }
  }

  std::unique_ptr<quorvex_points, Free> list{quorvex_points_create()};

 private:
  TemporaryDirectory directory_;
};

TEST_F(CDetectionTest, GivesTheLibrarysPointsInPlaceOfEarlierOnes) {
  quorvex_points_add(list.get(), 1.0f, 2.0f);
  const quorvex_image image = SmallImage();
  ASSERT_EQ(quorvex_detect(&image, nullptr, list.get()), QUORVEX_OK) << quorvex_error_detail();
  const PointList expected = Expected();
  EXPECT_EQ(expected.size(), 20u);
  ExpectPoints(expected);
  EXPECT_TRUE(std::filesystem::exists("ProImage.bmp"));
}

TEST_F(CDetectionTest, TakesRowsWithGapsAndRowsThatRunUpwards) {
  const quorvex_image plain = SmallImage();
  const std::ptrdiff_t stride = plain.width + 7;
  std::vector<unsigned char> apart(static_cast<std::size_t>(stride * plain.height), 99);
  for (int y = 0; y < plain.height; ++y) {
    std::copy_n(plain.pixels + plain.stride * y, plain.width,
                apart.data() + stride * (plain.height - 1 - y));
  }
  const quorvex_image image = {apart.data() + stride * (plain.height - 1), plain.width,
                               plain.height, -stride};
  ASSERT_EQ(quorvex_detect(&image, nullptr, list.get()), QUORVEX_OK) << quorvex_error_detail();
  ExpectPoints(Expected());
}

TEST_F(CDetectionTest, APictureWithoutATargetLeavesTheListAlone) {
  const std::vector<unsigned char> black(64);
  const quorvex_image image = {black.data(), 8, 8, 8};
  quorvex_points_add(list.get(), 1.0f, 2.0f);
  EXPECT_EQ(quorvex_detect(&image, nullptr, list.get()), QUORVEX_ERROR_NO_TARGET);
  EXPECT_STREQ(quorvex_error_detail(), "no grid of marks was found around the image's centre");
  EXPECT_EQ(quorvex_points_count(list.get()), 1u);
}

TEST_F(CDetectionTest, WrongSizesAreNamed) {
  quorvex_image image = SmallImage();
  image.width = 958;
  EXPECT_EQ(quorvex_detect(&image, nullptr, list.get()), QUORVEX_ERROR_SIZE);
  EXPECT_STREQ(quorvex_error_detail(),
               "image: expected a width and a height that are multiples of 4, given 958 x 800");
  image.height = 3;
  EXPECT_EQ(quorvex_detect(&image, nullptr, list.get()), QUORVEX_ERROR_SIZE);
  EXPECT_STREQ(quorvex_error_detail(), "image: expected 4 x 4 pixels or more, given 958 x 3");
  EXPECT_TRUE(std::filesystem::is_empty("."));
}

TEST_F(CDetectionTest, WrongArgumentsAreNamed) {
  quorvex_image image = SmallImage();
  EXPECT_EQ(quorvex_detect(nullptr, nullptr, list.get()), QUORVEX_ERROR_ARGUMENT);
  EXPECT_STREQ(quorvex_error_detail(), "image: expected a pointer, given NULL");
  EXPECT_EQ(quorvex_detect(&image, nullptr, nullptr), QUORVEX_ERROR_ARGUMENT);
  EXPECT_STREQ(quorvex_error_detail(), "points: expected a pointer, given NULL");
  image.stride = image.width - 1;
  EXPECT_EQ(quorvex_detect(&image, nullptr, list.get()), QUORVEX_ERROR_ARGUMENT);
  image.pixels = nullptr;
  EXPECT_EQ(quorvex_detect(&image, nullptr, list.get()), QUORVEX_ERROR_ARGUMENT);
  EXPECT_STREQ(quorvex_error_detail(), "image->pixels: expected a pointer, given NULL");
}

TEST_F(CDetectionTest, OptionsHaveARange) {
  const quorvex_image image = SmallImage();
  for (const quorvex_detect_options& options :
       {quorvex_detect_options{-1, 20, 300}, quorvex_detect_options{1001, 20, 300},
        quorvex_detect_options{20, -1, 300}, quorvex_detect_options{20, 1001, 300},
        quorvex_detect_options{20, 20, 0}, quorvex_detect_options{20, 20, 32769}}) {
    EXPECT_EQ(quorvex_detect(&image, &options, list.get()), QUORVEX_ERROR_ARGUMENT);
  }
  EXPECT_STREQ(quorvex_error_detail(), "options->row_steps: expected 1 to 32768, given 32769");
  quorvex_detect_options_init(nullptr);
}

TEST_F(CDetectionTest, MemoryThatEndsLeavesTheListAlone) {
  const PointList expected = Expected();
  const quorvex_image image = SmallImage();
  int failures = 0;
  bool hasHappened = true;
  for (int n = 1; hasHappened; n += 1 + n) {
    quorvex_points_clear(list.get());
    quorvex_error error = QUORVEX_OK;
    {
      const FailNthNew fault(n);
      error = quorvex_detect(&image, nullptr, list.get());
      hasHappened = fault.HasHappened();
    }
    if (error == QUORVEX_ERROR_MEMORY) {
      EXPECT_EQ(quorvex_points_count(list.get()), 0u) << n;
      EXPECT_STREQ(quorvex_error_detail(), "memory ran out");
      ++failures;
    } else {  // a diagnostic picture less, at most
      ASSERT_EQ(error, QUORVEX_OK) << n;
      ExpectPoints(expected);
    }
  }
  EXPECT_GE(failures, 5);
}

TEST_F(CDetectionTest, AListWithoutMemoryIsNull) {
  const FailNthNew fault(1);
  EXPECT_EQ(quorvex_points_create(), nullptr);
}

}  // namespace
}  // namespace quorvex::tests
