#include "tools/lists/point_list.h"

#include <fmt/format.h>

#include <cmath>
#include <cstddef>

#include "tools/errors.h"

namespace quorvex::tools {

PointList ToPointList(const std::vector<PointRow>& rows, const std::string& path) {
  PointList points;
  points.reserve(rows.size());
  for (const PointRow& row : rows) {
    CalibrationPoint point = {};
    point.id = row.id;
    point.row = row.row;
    point.col = row.col;
    point.x = static_cast<float>(row.x);
    point.y = static_cast<float>(row.y);
    if (!std::isfinite(point.x) || !std::isfinite(point.y)) {
      throw InputError(fmt::format("{}: the position of point {} is too large for a 32-bit float",
                                   path, points.size() + 1));
    }
    points.push_back(point);
  }
  return points;
}

std::vector<PointRow> ToRows(const PointList& points) {
  std::vector<PointRow> rows;
  rows.reserve(points.size());
  for (const CalibrationPoint& p : points) rows.push_back({p.id, p.row, p.col, p.x, p.y});
  return rows;
}

}  // namespace quorvex::tools
