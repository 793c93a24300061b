#include "tools/lists/points_opencv.h"

#include <gtest/gtest.h>

namespace quorvex::tests {

using namespace tools;

namespace {

TEST(PointsOpencv, PairsTheMarksThatWereSeen) {
  BoardTable table{{2, 1}, {}};
  table.views.push_back({"dark.png", 9, 9, {}, "too dark"});
  table.views.push_back({"a\"b.png", 640, 480, {std::nullopt, ListedPoint{2, 1, 0, 1.25, 2}}});
  EXPECT_EQ(FormatPointsOpencv(table, 30),
            "%YAML:1.0\n---\nboard_rows: 2\nboard_columns: 1\npitch: 30\n"
            "image_names:\n   - \"a\\\"b.png\"\nimage_sizes:\n   - [ 640, 480 ]\n"
            "object_points:\n   - !!opencv-matrix\n      rows: 1\n      cols: 1\n"
            "      dt: \"3f\"\n      data: [ 0, 30, 0. ]\n"
            "image_points:\n   - !!opencv-matrix\n      rows: 1\n      cols: 1\n"
            "      dt: \"2f\"\n      data: [ 1.25, 2 ]\n");
}

}  // namespace
}  // namespace quorvex::tests
