// The host's detection.
#include <string>
#include <utility>
#include <vector>

#include "bindings/c/call.h"
#include "bindings/c/points.h"
#include "bindings/shared/bottom_up.h"
#include "interface/quorvex.h"

namespace quorvex::bindings {
namespace {

constexpr quorvex_detect_options kDefaults = {20, 20, 300};
constexpr int kLargestSpan = 1000;       // rows or columns
constexpr int kLargestRowSteps = 32768;  // pixels
constexpr int kSizeUnit = 4;             // pixels

void RequireOptions(const quorvex_detect_options& options) {
  RequireRange(options.row_span, 0, kLargestSpan, "options->row_span");
  RequireRange(options.column_span, 0, kLargestSpan, "options->column_span");
  RequireRange(options.row_steps, 1, kLargestRowSteps, "options->row_steps");
}

// Asked here, since the library shows a message for it.
void RequireDetectableSize(const quorvex_image& image) {
  if (image.width % kSizeUnit != 0 || image.height % kSizeUnit != 0) {
    throw Failure(QUORVEX_ERROR_SIZE,
                  "image: expected a width and a height that are multiples of 4, given " +
                      std::to_string(image.width) + " x " + std::to_string(image.height));
  }
}

void Detect(const quorvex_image& image, const quorvex_detect_options& options, PointList& points) {
  std::vector<unsigned char> pixels = BottomUpPixels(
      {image.pixels, image.stride, 1, image.width, image.height}, {image.width, image.height});
  PointList found;
  if (!SingleCamDetectCalibrationPoint(pixels.data(), image.width, image.height, 8,
                                       options.row_span, options.column_span, 0.0f, 0.0f,
                                       options.row_steps, found)) {
    throw Failure(QUORVEX_ERROR_NO_TARGET, "no grid of marks was found around the image's centre");
  }
  if (found.empty()) {
    throw Failure(QUORVEX_ERROR_NO_TARGET, "no point of the grid lies within the image");
  }
  points = std::move(found);
}

}  // namespace
}  // namespace quorvex::bindings

using namespace quorvex::bindings;

void quorvex_detect_options_init(quorvex_detect_options* options) {
  if (options != nullptr) {
    *options = kDefaults;
  }
}

quorvex_error quorvex_detect(const quorvex_image* image, const quorvex_detect_options* options,
                             quorvex_points* points) {
  return Run([&] {
    RequireImage(image, kSizeUnit);
    RequireDetectableSize(*image);
    RequirePointer(points, "points");
    const quorvex_detect_options& used = options != nullptr ? *options : kDefaults;
    RequireOptions(used);
    Detect(*image, used, points->list);
  });
}
