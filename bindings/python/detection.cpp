// Both detections, without the interpreter's lock.
#include <pybind11/stl.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "bindings/python/diagnostics.h"
#include "bindings/python/records.h"
#include "bindings/shared/bottom_up.h"
#include "interface/quorvex.h"
#include "interface/quorvex_precise.h"

namespace py = pybind11;

namespace quorvex::bindings {
namespace {

constexpr int kSizeUnit = 4;  // pixels

using Pixels = py::array_t<unsigned char>;

// Two dimensions, checked by the caller, with any strides.
PixelRows RowsOf(const Pixels& image) {
  return {image.data(), image.strides(0), image.strides(1), static_cast<int>(image.shape(1)),
          static_cast<int>(image.shape(0))};
}

int GrownSize(int size) { return (size + kSizeUnit - 1) / kSizeUnit * kSizeUnit; }

// The comparisons are false for a position that is not a number, so such a point goes, too.
void KeepPointsInside(const PixelRows& image, PointList& points) {
  const float right = static_cast<float>(image.width - 1);
  const float bottom = static_cast<float>(image.height - 1);
  const auto isOutside = [right, bottom](const CalibrationPoint& p) {
    return !(p.x >= 0.0f && p.x <= right && p.y >= 0.0f && p.y <= bottom);
  };
  points.erase(std::remove_if(points.begin(), points.end(), isOutside), points.end());
}

std::optional<PointArray> Detect(const Pixels& image, int rowSpan, int columnSpan, int rowSteps,
                                 const std::string& diagnostics) {
  PointList points;
  bool isFound = false;
  const PixelRows rows = RowsOf(image);
  {
    const py::gil_scoped_release unlocked;
    const DiagnosticsFolder folder(diagnostics);
    const BufferSize size{GrownSize(rows.width), GrownSize(rows.height)};
    std::vector<unsigned char> buffer = BottomUpPixels(rows, size);
    isFound = SingleCamDetectCalibrationPoint(buffer.data(), size.width, size.height, 8, rowSpan,
                                              columnSpan, 0.0f, 0.0f, rowSteps, points);
    KeepPointsInside(rows, points);
  }
  return isFound ? std::optional<PointArray>(ToArray(points)) : std::nullopt;
}

// A view of an image whose pixels lie side by side in rows that do not overlap; of a copy in
// `copied` otherwise.
precise::ImageView ViewOf(const PixelRows& image, std::vector<unsigned char>& copied) {
  const std::ptrdiff_t width = image.width;
  if (image.columnStride == 1 && (image.rowStride >= width || -image.rowStride >= width)) {
    return {image.pixels, image.width, image.height, image.rowStride};
  }
  copied.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(image.height));
  for (int y = 0; y < image.height; ++y) {
    for (int x = 0; x < image.width; ++x) {
      copied.push_back(image.pixels[image.rowStride * y + image.columnStride * x]);
    }
  }
  return {copied.data(), image.width, image.height, width};
}

py::array_t<MarkRecord> ToArray(const std::vector<precise::Mark>& marks, int boardColumns) {
  int columns = boardColumns;
  for (const precise::Mark& mark : marks) {
    columns = std::max(columns, mark.column + 1);
  }
  py::array_t<MarkRecord> array(static_cast<py::ssize_t>(marks.size()));
  auto records = array.mutable_unchecked<1>();
  for (py::ssize_t i = 0; i < records.shape(0); ++i) {
    const precise::Mark& mark = marks[static_cast<std::size_t>(i)];
    MarkRecord& to = records(i);
    to.id = mark.row * columns + mark.column + 1;
    to.row = mark.row;
    to.col = mark.column;
    to.x = mark.x;
    to.y = mark.y;
    to.cxx = mark.cxx;
    to.cxy = mark.cxy;
    to.cyy = mark.cyy;
    to.verdict = static_cast<std::uint8_t>(mark.verdict);  // as class Verdict has them
  }
  return array;
}

py::dict ToDict(const precise::PictureFacts& facts) {
  using namespace py::literals;
  const precise::CameraFacts& camera = facts.camera;
  py::list rotation;
  for (std::size_t i = 0; i < camera.rotation.size(); i += 3) {
    rotation.append(
        py::make_tuple(camera.rotation[i], camera.rotation[i + 1], camera.rotation[i + 2]));
  }
  const py::dict listed(
      "rotation"_a = py::tuple(rotation),
      "translation"_a =
          py::make_tuple(camera.translation[0], camera.translation[1], camera.translation[2]),
      "focal_length"_a = camera.focalLength, "k1"_a = camera.k1, "k2"_a = camera.k2,
      "k3"_a = camera.k3, "centre_x"_a = camera.centreX, "centre_y"_a = camera.centreY,
      "aspect"_a = camera.aspect, "residual"_a = camera.residual);
  return py::dict("noise"_a = facts.noise, "stroke_width"_a = facts.strokeWidth,
                  "pitch"_a = facts.pitch, "blur"_a = facts.blur, "arm_length"_a = facts.armLength,
                  "has_light_marks"_a = facts.hasLightMarks,
                  "has_fixed_rows"_a = facts.hasFixedRows,
                  "has_fixed_columns"_a = facts.hasFixedColumns, "camera"_a = listed);
}

precise::MarkColour ColourOf(int colour) {
  return colour == 1   ? precise::MarkColour::kDark
         : colour == 2 ? precise::MarkColour::kLight
                       : precise::MarkColour::kEither;
}

py::tuple DetectPrecise(const Pixels& image, int colour, bool predictsMissing,
                        bool hasContinuousLines, std::pair<int, int> board) {
  precise::Options options;
  options.colour = ColourOf(colour);
  options.predictsMissing = predictsMissing;
  options.hasContinuousLines = hasContinuousLines;
  options.boardRows = board.first;
  options.boardColumns = board.second;
  const PixelRows rows = RowsOf(image);
  precise::Result result;
  {
    const py::gil_scoped_release unlocked;
    std::vector<unsigned char> copied;
    result = precise::Detect(ViewOf(rows, copied), options);
  }
  return py::make_tuple(ToArray(result.marks, options.boardColumns), ToDict(result.facts),
                        result.stage, result.reason);
}

py::tuple RefineMarks(const Pixels& image, const std::vector<std::pair<double, double>>& positions,
                      int colour) {
  precise::Options options;
  options.colour = ColourOf(colour);
  std::vector<precise::Point> points;
  points.reserve(positions.size());
  for (const auto& [x, y] : positions) {
    points.push_back({x, y});
  }
  const PixelRows rows = RowsOf(image);
  std::vector<precise::RefinedPoint> refined;
  {
    const py::gil_scoped_release unlocked;
    std::vector<unsigned char> copied;
    refined = precise::RefineMarks(ViewOf(rows, copied), points, options);
  }
  py::array_t<RefinedRecord> array(static_cast<py::ssize_t>(refined.size()));
  auto records = array.mutable_unchecked<1>();
  std::vector<std::string> reasons;
  reasons.reserve(refined.size());
  for (std::size_t i = 0; i < refined.size(); ++i) {
    const precise::RefinedPoint& from = refined[i];
    records(static_cast<py::ssize_t>(i)) = {from.x,   from.y,   from.cxx,
                                            from.cxy, from.cyy, from.isRefined};
    reasons.push_back(from.reason);
  }
  return py::make_tuple(array, reasons);
}

}  // namespace

void DefineDetections(py::module_& module) {
  module.def("detect", &Detect);
  module.def("detect_precise", &DetectPrecise);
  module.def("refine_marks", &RefineMarks);
}

}  // namespace quorvex::bindings
