// Object and image points as a YAML file that cv::FileStorage reads.
#ifndef QUORVEX_TOOLS_LISTS_POINTS_OPENCV_H_
#define QUORVEX_TOOLS_LISTS_POINTS_OPENCV_H_

#include <string>

#include "tools/lists/board_table.h"

namespace quorvex::tools {

// Of the pictures that are not left out, in lists of the same order: image_names; image_sizes,
// width and height in pixels; object_points, a matrix of N x 1 triples in millimetres, x along the
// columns, y along the rows, z = 0, from the mark in row 0 and column 0; image_points, N x 1 pairs
// in pixels. The N marks are those that were seen, row by row. Besides board_rows, board_columns
// and pitch.
std::string FormatPointsOpencv(const BoardTable& table, double pitch);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_LISTS_POINTS_OPENCV_H_
