// The compiled part of the Python module. Arguments are checked in quorvex/__init__.py, which is
// alone in calling it.
#include "bindings/python/diagnostics.h"
#include "bindings/python/records.h"

namespace quorvex::bindings {

void DefineRecords() {
  PYBIND11_NUMPY_DTYPE(PointRecord, id, row, col, x, y);
  PYBIND11_NUMPY_DTYPE(MarkRecord, id, row, col, x, y, cxx, cxy, cyy, verdict);
  PYBIND11_NUMPY_DTYPE(RefinedRecord, x, y, cxx, cxy, cyy, refined);
}

}  // namespace quorvex::bindings

PYBIND11_MODULE(_native, module) {
  using namespace quorvex::bindings;
  KeepDiagnosticsFromTheCurrentDirectory();
  DefineRecords();
  DefineDetections(module);
  DefineEditing(module);
  module.attr("version") = QUORVEX_VERSION;
  module.attr("point_dtype") = pybind11::dtype::of<PointRecord>();
  module.attr("mark_dtype") = pybind11::dtype::of<MarkRecord>();
  module.attr("refined_dtype") = pybind11::dtype::of<RefinedRecord>();
}
