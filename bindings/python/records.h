// The records of the module's arrays; quorvex/__init__.py names their fields and units.
#ifndef QUORVEX_BINDINGS_PYTHON_RECORDS_H_
#define QUORVEX_BINDINGS_PYTHON_RECORDS_H_

#include <pybind11/numpy.h>
#include <pybind11/pybind11.h>

#include <cstdint>

#include "interface/calibration_point.h"

namespace quorvex::bindings {

struct PointRecord {
  std::int32_t id;
  std::int32_t row;
  std::int32_t col;
  float x;
  float y;
};

struct MarkRecord {
  std::int32_t id;
  std::int32_t row;
  std::int32_t col;
  double x;
  double y;
  double cxx;
  double cxy;
  double cyy;
  std::uint8_t verdict;
};

struct RefinedRecord {
  double x;
  double y;
  double cxx;
  double cxy;
  double cyy;
  bool refined;
};

// Contiguous: the Python side has seen to it.
using PointArray = pybind11::array_t<PointRecord, pybind11::array::c_style>;

PointList ToList(const PointArray& points);
PointArray ToArray(const PointList& points);

// Names of the module.
void DefineRecords();
void DefineDetections(pybind11::module_& module);
void DefineEditing(pybind11::module_& module);

}  // namespace quorvex::bindings

#endif  // QUORVEX_BINDINGS_PYTHON_RECORDS_H_
