// The way between the points of a file and the library's list.
#ifndef QUORVEX_TOOLS_LISTS_POINT_LIST_H_
#define QUORVEX_TOOLS_LISTS_POINT_LIST_H_

#include <filesystem>
#include <vector>

#include "interface/calibration_point.h"
#include "tools/lists/listed_points.h"

namespace quorvex::tools {

// Positions become 32-bit floats. Throws InputError naming `path` and the point for a position that
// a float cannot hold.
PointList ToPointList(const std::vector<ListedPoint>& listedPoints,
                      const std::filesystem::path& path);

// The kinds are unknown.
std::vector<ListedPoint> ToListedPoints(const PointList& points);

// The same after an edit of the points `before`: a point that is where one of those was keeps that
// one's kind, covariance and digits; any other was put there by a person and is seen. Where
// `before` tells no kinds, none are given.
std::vector<ListedPoint> ToListedPoints(const PointList& points,
                                        const std::vector<ListedPoint>& before);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_LISTS_POINT_LIST_H_
