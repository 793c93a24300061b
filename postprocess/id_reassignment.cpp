#include "postprocess/id_reassignment.h"

#include <cstddef>

#include "base/point_geometry.h"
#include "grid/point_order.h"
#include "platform/mfc.h"
#include "postprocess/grid_line_trace.h"
#include "postprocess/neighbour_search.h"

namespace quorvex {
namespace {

constexpr float kFarthestFromCentre = 1000.0f;  // pixels

// The first of the nearest points to the centre of gravity; the list's first point when all are
// far.
CalibrationPoint StartPoint(const PointList& points) {
  const CalibrationPoint centre = CentreOfGravity(points);
  const CalibrationPoint* nearest = &points.front();
  float nearestDistance = kFarthestFromCentre;
  for (const CalibrationPoint& point : points) {
    const float distance = PointDistance(centre, point);
    if (distance < nearestDistance) {
      nearest = &point;
      nearestDistance = distance;
    }
  }
  return *nearest;
}

// The line from a middle point in one direction: its neighbour there, if any, and what lies beyond.
struct Branch {
  PointList neighbour;  // one point or none
  PointList traced;
};

Branch FollowBranch(const PointList& points, const CalibrationPoint& middle, Sector sector) {
  Branch branch;
  CalibrationPoint neighbour = {};
  if (FindNeighbourInSector(points, middle, neighbour, sector)) {
    branch.neighbour.push_back(neighbour);
    CalibrationPoint previous = middle;
    TraceGridLine(points, previous, neighbour, branch.traced);
  }
  return branch;
}

void Append(const PointList& points, PointList& list) {
  list.insert(list.end(), points.begin(), points.end());
}

PointList MiddleRow(const PointList& points) {
  const CalibrationPoint start = StartPoint(points);
  const Branch right = FollowBranch(points, start, kTowardsLargerX);
  const Branch left = FollowBranch(points, start, kTowardsSmallerX);
  PointList row = right.traced;
  Append(left.traced, row);
  row.push_back(start);
  Append(right.neighbour, row);
  Append(left.neighbour, row);
  SortPointsByX(row);
  return row;
}

PointList ColumnThrough(const PointList& points, const CalibrationPoint& middle) {
  const Branch larger = FollowBranch(points, middle, kTowardsLargerY);
  const Branch smaller = FollowBranch(points, middle, kTowardsSmallerY);
  PointList column = {middle};
  Append(larger.neighbour, column);
  Append(smaller.neighbour, column);
  Append(larger.traced, column);
  Append(smaller.traced, column);
  SortPointsByY(column, kAscending);
  return column;
}

}  // namespace

bool ReAssignmentID(int rows, int columns, PointList& points) {
  if (points.empty()) {
    return false;
  }
  const long long expected = static_cast<long long>(rows) * columns;
  if (static_cast<long long>(points.size()) != expected) {
    AfxMessageBox(_T("点集数量与行列数不一致！"));
    return false;
  }
  const PointList middleRow = MiddleRow(points);
  PointList result;
  for (std::size_t col = 0; col < middleRow.size(); ++col) {
    const PointList column = ColumnThrough(points, middleRow[col]);
    for (std::size_t row = 0; row < column.size(); ++row) {
      CalibrationPoint point = column[row];
      point.row = static_cast<int>(row);
      point.col = static_cast<int>(col);
      point.id = point.row * columns + 1 + point.col;
      result.push_back(point);
    }
  }
  // A point that two traces reached stands here twice; the count tells.
  if (static_cast<long long>(result.size()) != expected) {
    return false;
  }
  points = result;
  return true;
}

}  // namespace quorvex
