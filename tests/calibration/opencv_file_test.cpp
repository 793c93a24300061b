// OpenCV reads the file of object and image points, where that was there when this was built.
#include <gtest/gtest.h>

#ifdef QUORVEX_HAS_OPENCV
#include <opencv2/core.hpp>
#endif

#include <string>
#include <vector>

#include "tests/support/temporary_folder.h"
#include "tools/lists/points_opencv.h"

namespace quorvex::tests {

using namespace tools;

namespace {

#ifdef QUORVEX_HAS_OPENCV

// Long enough that lines of the file are read in several pieces.
BoardTable TwoViews() {
  BoardTable table{{40, 50}, {}};
  for (const char* name : {"one \"and\" a \\ half.png", "\xC3\xA4.png"}) {
    BoardView view{name, 2048, 1536, {}};
    for (int row = 0; row < 40; ++row) {
      for (int col = 0; col < 50; ++col) {
        view.marks.emplace_back(ListedPoint{0, row, col, 40.123456 * col, 30 + row / 3.0});
      }
    }
    view.marks[7].reset();
    table.views.push_back(view);
  }
  return table;
}

void ReadWithOpencv() {
  const TemporaryFolder folder;
  const BoardTable table = TwoViews();
  folder.File("points.yml", FormatPointsOpencv(table, 2.5));
  const cv::FileStorage file(folder.Path("points.yml"), cv::FileStorage::READ);
  ASSERT_TRUE(file.isOpened());
  EXPECT_EQ(static_cast<int>(file["board_rows"]), 40);
  EXPECT_EQ(static_cast<int>(file["board_columns"]), 50);
  EXPECT_EQ(static_cast<double>(file["pitch"]), 2.5);
  std::vector<std::string> names;
  std::vector<cv::Size> sizes;
  std::vector<cv::Mat> objects;
  std::vector<cv::Mat> images;
  file["image_names"] >> names;
  file["object_points"] >> objects;
  file["image_points"] >> images;
  for (const cv::FileNode& size : file["image_sizes"]) {
    sizes.emplace_back(static_cast<int>(size[0]), static_cast<int>(size[1]));
  }
  ASSERT_EQ(names.size(), 2u);
  ASSERT_EQ(sizes.size(), 2u);
  ASSERT_EQ(objects.size(), 2u);
  ASSERT_EQ(images.size(), 2u);
  for (std::size_t view = 0; view < 2; ++view) {
    EXPECT_EQ(names[view], table.views[view].image);
    EXPECT_EQ(sizes[view], cv::Size(2048, 1536));
    ASSERT_EQ(objects[view].checkVector(3, CV_32F), 1999);
    ASSERT_EQ(images[view].checkVector(2, CV_32F), 1999);
    int next = 0;
    for (const std::optional<ListedPoint>& mark : table.views[view].marks) {
      if (!mark) continue;
      const cv::Point3f object = objects[view].at<cv::Point3f>(next);
      const cv::Point2f image = images[view].at<cv::Point2f>(next++);
      EXPECT_EQ(object, cv::Point3f(2.5f * static_cast<float>(mark->col),
                                    2.5f * static_cast<float>(mark->row), 0));
      EXPECT_FLOAT_EQ(image.x, static_cast<float>(mark->x));
      EXPECT_FLOAT_EQ(image.y, static_cast<float>(mark->y));
    }
  }
}

#else

void ReadWithOpencv() { GTEST_SKIP() << "built without OpenCV (Debian: libopencv-dev)"; }

#endif

TEST(OpencvFile, IsReadByFileStorage) { ReadWithOpencv(); }

}  // namespace
}  // namespace quorvex::tests
