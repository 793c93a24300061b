// The way between the points of a file and the library's list.
#ifndef QUORVEX_TOOLS_LISTS_POINT_LIST_H_
#define QUORVEX_TOOLS_LISTS_POINT_LIST_H_

#include <filesystem>
#include <vector>

#include "interface/calibration_point.h"
#include "tools/lists/points_file.h"

namespace quorvex::tools {

// Positions become 32-bit floats. Throws InputError naming `path` and the point for a position that
// a float cannot hold.
PointList ToPointList(const std::vector<ListedPoint>& listedPoints,
                      const std::filesystem::path& path);

std::vector<ListedPoint> ToListedPoints(const PointList& points);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_LISTS_POINT_LIST_H_
