// What each stage of a detection gets from those before it, on a rendered preset.
#ifndef QUORVEX_BENCHMARKS_STAGE_INPUTS_H_
#define QUORVEX_BENCHMARKS_STAGE_INPUTS_H_

#include <string>

#include "base/calibration_point.h"
#include "base/gray_image.h"
#include "base/pixel_span.h"
#include "preprocess/outline.h"

namespace quorvex::benchmarks {

constexpr int kDilationElement[9] = {1, 1, 1, 1, 1, 1, 1, 1, 1};

struct StageInputs {
  explicit StageInputs(const std::string& preset);

  GrayImage input;
  int width;
  int height;

  GrayImage binarized;
  GrayImage filtered;  // and binarized again
  GrayImage dilated;
  OutlineList outline;
  GrayImage contour;  // the outline drawn on black
  GrayImage marked;   // the outside marked as well
  GrayImage mask;
  GrayImage region;
  PixelSpanList rowSpans;
  PixelSpanList columnSpans;
  GrayImage edges;   // binarized
  GrayImage erased;  // without the outline's edges
  GrayImage strokes;

  PointList firstGrid;
  PointList seeds;
  int markX;  // pixels, the first point of the first grid
  int markY;
  GrayImage strokePatch;  // around that mark, 200 x 200
  GrayImage greyPatch;    // 160 x 160
  GrayImage binaryPatch;
};

}  // namespace quorvex::benchmarks

#endif  // QUORVEX_BENCHMARKS_STAGE_INPUTS_H_
