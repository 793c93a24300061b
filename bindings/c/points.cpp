#include "bindings/c/points.h"

#include <cstddef>
#include <string>

#include "bindings/c/call.h"
#include "bindings/shared/list_edits.h"
#include "interface/quorvex.h"

namespace quorvex::bindings {
namespace {

quorvex_point ToPoint(const CalibrationPoint& from) {
  return {from.id, from.row, from.col, from.x, from.y};
}

[[noreturn]] void FailWithoutPoint(int id) {
  throw Failure(QUORVEX_ERROR_NO_POINT,
                "id: expected the id of a point in the list, given " + std::to_string(id));
}

quorvex_error Rearrange(CameraSide side, int count, quorvex_points* points) {
  return Run([&] {
    RequirePointer(points, "points");
    RequireRange(count, 1, kMostGridLines, "count");
    if (!RearrangeGrid(side, count, points->list)) {
      throw Failure(QUORVEX_ERROR_NO_GRID, "points: expected points with a col below " +
                                               std::to_string(count) + ", given none of " +
                                               std::to_string(points->list.size()));
    }
  });
}

}  // namespace
}  // namespace quorvex::bindings

using namespace quorvex::bindings;

quorvex_points* quorvex_points_create(void) {
  quorvex_points* points = nullptr;
  Run([&] { points = new quorvex_points(); });
  return points;
}

void quorvex_points_free(quorvex_points* points) { delete points; }

size_t quorvex_points_count(const quorvex_points* points) {
  return points != nullptr ? points->list.size() : 0;
}

quorvex_error quorvex_points_get(const quorvex_points* points, size_t index, quorvex_point* point) {
  return Run([&] {
    RequirePointer(points, "points");
    RequirePointer(point, "point");
    if (index >= points->list.size()) {
      throw Failure(QUORVEX_ERROR_ARGUMENT,
                    "index: expected less than " + std::to_string(points->list.size()) +
                        ", the count of the list, given " + std::to_string(index));
    }
    *point = ToPoint(points->list[index]);
  });
}

quorvex_error quorvex_points_append(quorvex_points* points, const quorvex_point* point) {
  return Run([&] {
    RequirePointer(points, "points");
    RequirePointer(point, "point");
    CalibrationPoint record = {};
    record.id = point->id;
    record.row = point->row;
    record.col = point->col;
    record.x = point->x;
    record.y = point->y;
    points->list.push_back(record);
  });
}

quorvex_error quorvex_points_clear(quorvex_points* points) {
  return Run([&] {
    RequirePointer(points, "points");
    points->list.clear();
  });
}

quorvex_error quorvex_points_query(const quorvex_points* points, int id, quorvex_point* point) {
  return Run([&] {
    RequirePointer(points, "points");
    RequirePointer(point, "point");
    quorvex_point found = {id, 0, 0, 0.0f, 0.0f};
    // The library's query takes a list that it could change, and does not.
    if (!QueryCalibrationPt_ID(id, found.row, found.col, found.x, found.y,
                               const_cast<quorvex_points*>(points)->list)) {
      FailWithoutPoint(id);
    }
    *point = found;
  });
}

quorvex_error quorvex_points_delete(quorvex_points* points, int id) {
  return Run([&] {
    RequirePointer(points, "points");
    if (!DeleteCalibrationPt_ID(id, points->list)) {
      FailWithoutPoint(id);
    }
  });
}

quorvex_error quorvex_points_delete_at(quorvex_points* points, float x, float y) {
  return Run([&] {
    RequirePointer(points, "points");
    if (!DeleteCalibrationPt_Coordinate(x, y, points->list)) {
      throw Failure(QUORVEX_ERROR_NO_POINT,
                    "x, y: expected less than 9 pixels in x and in y from a point, given (" +
                        std::to_string(x) + ", " + std::to_string(y) + ")");
    }
  });
}

quorvex_error quorvex_points_add(quorvex_points* points, float x, float y) {
  return Run([&] {
    RequirePointer(points, "points");
    AddCalibrationPt_Coordinate(x, y, points->list);
  });
}

quorvex_error quorvex_points_alter(quorvex_points* points, const quorvex_point* point) {
  return Run([&] {
    RequirePointer(points, "points");
    RequirePointer(point, "point");
    if (!AlterCalibrationPt_Coordinate(point->id, point->row, point->col, point->x, point->y,
                                       points->list)) {
      FailWithoutPoint(point->id);
    }
  });
}

quorvex_error quorvex_points_renumber(quorvex_points* points, int rows, int columns) {
  return Run([&] {
    RequirePointer(points, "points");
    RequireRange(rows, 1, kMostGridLines, "rows");
    RequireRange(columns, 1, kMostGridLines, "columns");
    if (!RenumberGrid(rows, columns, points->list)) {
      throw Failure(QUORVEX_ERROR_NO_GRID,
                    "points: expected a grid of " + std::to_string(rows) + " x " +
                        std::to_string(columns) +
                        " points whose spacing shrinks from its middle outwards, given " +
                        std::to_string(points->list.size()) + " points");
    }
  });
}

quorvex_error quorvex_points_rearrange_left(quorvex_points* points, int count) {
  return Rearrange(CameraSide::kLeft, count, points);
}

quorvex_error quorvex_points_rearrange_right(quorvex_points* points, int count) {
  return Rearrange(CameraSide::kRight, count, points);
}
