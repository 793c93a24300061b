#include "tools/lists/point_list.h"

#include <fmt/format.h>

#include <cmath>
#include <cstddef>
#include <map>
#include <utility>

#include "tools/errors.h"
#include "tools/system/file_name.h"

namespace quorvex::tools {

PointList ToPointList(const std::vector<ListedPoint>& listedPoints,
                      const std::filesystem::path& path) {
  PointList points;
  points.reserve(listedPoints.size());
  for (const ListedPoint& listed : listedPoints) {
    CalibrationPoint point = {};
    point.id = listed.id;
    point.row = listed.row;
    point.col = listed.col;
    point.x = static_cast<float>(listed.x);
    point.y = static_cast<float>(listed.y);
    if (!std::isfinite(point.x) || !std::isfinite(point.y)) {
      throw InputError(fmt::format("{}: the position of point {} is too large for a 32-bit float",
                                   Utf8Name(path), points.size() + 1));
    }
    points.push_back(point);
  }
  return points;
}

std::vector<ListedPoint> ToListedPoints(const PointList& points) {
  std::vector<ListedPoint> listedPoints;
  listedPoints.reserve(points.size());
  for (const CalibrationPoint& p : points) {
    listedPoints.push_back({p.id, p.row, p.col, p.x, p.y});
  }
  return listedPoints;
}

std::vector<ListedPoint> ToListedPoints(const PointList& points,
                                        const std::vector<ListedPoint>& before) {
  std::vector<ListedPoint> listedPoints = ToListedPoints(points);
  if (!HasKinds(before)) {
    return listedPoints;
  }
  std::map<std::pair<float, float>, PointKind> kinds;  // by position, as the library holds it
  for (const ListedPoint& p : before) {
    kinds[{static_cast<float>(p.x), static_cast<float>(p.y)}] = p.kind;
  }
  for (ListedPoint& p : listedPoints) {
    const auto known = kinds.find({static_cast<float>(p.x), static_cast<float>(p.y)});
    p.kind = known == kinds.end() ? PointKind::kSeen : known->second;
  }
  return listedPoints;
}

}  // namespace quorvex::tools
