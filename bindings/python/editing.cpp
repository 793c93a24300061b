// Lists of points: a new array for every edit, None where there is nothing to change.
#include <pybind11/stl.h>

#include <cstddef>
#include <optional>

#include "bindings/python/records.h"
#include "bindings/shared/list_edits.h"
#include "interface/quorvex.h"

namespace py = pybind11;

namespace quorvex::bindings {

PointList ToList(const PointArray& points) {
  const auto records = points.unchecked<1>();
  PointList list(static_cast<std::size_t>(records.shape(0)), CalibrationPoint{});
  for (py::ssize_t i = 0; i < records.shape(0); ++i) {
    CalibrationPoint& to = list[static_cast<std::size_t>(i)];
    to.id = records(i).id;
    to.row = records(i).row;
    to.col = records(i).col;
    to.x = records(i).x;
    to.y = records(i).y;
  }
  return list;
}

PointArray ToArray(const PointList& points) {
  PointArray array(static_cast<py::ssize_t>(points.size()));
  auto records = array.mutable_unchecked<1>();
  for (py::ssize_t i = 0; i < records.shape(0); ++i) {
    const CalibrationPoint& from = points[static_cast<std::size_t>(i)];
    records(i) = {from.id, from.row, from.col, from.x, from.y};
  }
  return array;
}

namespace {

// Runs an edit, which tells whether it changed the list, without the interpreter's lock.
template <typename Edit>
std::optional<PointArray> Edited(const PointArray& points, const Edit& edit) {
  PointList list = ToList(points);
  bool hasChanged = false;
  {
    const py::gil_scoped_release unlocked;
    hasChanged = edit(list);
  }
  return hasChanged ? std::optional<PointArray>(ToArray(list)) : std::nullopt;
}

}  // namespace

void DefineEditing(py::module_& module) {
  module.def("add", [](const PointArray& points, float x, float y) {
    return Edited(points, [=](PointList& list) { return AddCalibrationPt_Coordinate(x, y, list); });
  });
  module.def("delete", [](const PointArray& points, int id) {
    return Edited(points, [=](PointList& list) { return DeleteCalibrationPt_ID(id, list); });
  });
  module.def("delete_at", [](const PointArray& points, float x, float y) {
    return Edited(points,
                  [=](PointList& list) { return DeleteCalibrationPt_Coordinate(x, y, list); });
  });
  module.def("alter", [](const PointArray& points, int id, int row, int col, float x, float y) {
    return Edited(points, [=](PointList& list) {
      return AlterCalibrationPt_Coordinate(id, row, col, x, y, list);
    });
  });
  module.def("query", [](const PointArray& points, int id) -> std::optional<PointArray> {
    PointList list = ToList(points);
    CalibrationPoint found = {};
    found.id = id;
    if (!QueryCalibrationPt_ID(id, found.row, found.col, found.x, found.y, list)) {
      return std::nullopt;
    }
    return ToArray({found});
  });
  module.def("renumber", [](const PointArray& points, int rows, int columns) {
    return Edited(points, [=](PointList& list) { return RenumberGrid(rows, columns, list); });
  });
  module.def("rearrange", [](const PointArray& points, bool isLeft, int count) {
    return Edited(points, [=](PointList& list) {
      return RearrangeGrid(isLeft ? CameraSide::kLeft : CameraSide::kRight, count, list);
    });
  });
  module.attr("most_grid_lines") = kMostGridLines;
}

}  // namespace quorvex::bindings
