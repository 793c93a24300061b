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
  std::map<std::pair<float, float>, const ListedPoint*>
      known;  // by position, as the library holds it
  for (const ListedPoint& p : before) {
    known[{static_cast<float>(p.x), static_cast<float>(p.y)}] = &p;
  }
  const bool hasKinds = HasKinds(before);
  for (ListedPoint& p : listedPoints) {
    const auto same = known.find({static_cast<float>(p.x), static_cast<float>(p.y)});
    if (same != known.end()) {
      p.x = same->second->x;  // with all of its digits
      p.y = same->second->y;
      p.kind = same->second->kind;
      p.covariance = same->second->covariance;
    } else if (hasKinds) {
      p.kind = PointKind::kSeen;
    }
  }
  return listedPoints;
}

}  // namespace quorvex::tools
