#include "tools/render/render_settings.h"

#include <fmt/format.h>

#include <cmath>

#include "tools/errors.h"
#include "tools/pictures/picture_limits.h"

namespace quorvex::tools {
namespace {

constexpr int kMinPictureSide = 4;      // pixels
constexpr int kMaxMarksPerSide = 1000;  // marks
constexpr double kMaxMagnitude = 1e9;   // of any number; keeps the products finite
constexpr double kMaxTilt = 80;         // degrees
constexpr double kMaxRotation = 45;     // degrees; beyond it rows and columns trade places
constexpr double kMaxGreyLevel = 255;   // grey levels
constexpr double kMaxBlurSigma = 100;   // pixels
constexpr double kMaxGradient = 1;      // relative; the light never turns negative along one axis

void RequireRange(const char* what, double value, double low, double high) {
  if (!(value >= low && value <= high)) {  // the negation catches a NaN too
    throw InputError(
        fmt::format("the {} must be {:g} to {:g}, but is {:g}", what, low, high, value));
  }
}

void RequireAboveZero(const char* what, double value) {
  if (!(value > 0 && value <= kMaxMagnitude)) {
    throw InputError(fmt::format("the {} must be above 0 and at most {:g}, but is {:g}", what,
                                 kMaxMagnitude, value));
  }
}

void RequireFinite(const char* what, double value) {
  RequireRange(what, value, -kMaxMagnitude, kMaxMagnitude);
}

void CheckCamera(const RenderSettings& settings) {
  RequireRange("width", settings.width, kMinPictureSide, kMaxPictureSide);
  RequireRange("height", settings.height, kMinPictureSide, kMaxPictureSide);
  RequireAboveZero("focal length", settings.focalLength);
  RequireFinite("coefficient k1", settings.k1);
  RequireFinite("coefficient k2", settings.k2);
  RequireFinite("coefficient k3", settings.k3);
  RequireFinite("coefficient k4", settings.k4);
  // Outside the picture too: a picture may be a cut-out of a larger one.
  RequireRange("principal point's x", settings.principalX.value_or(0), -kMaxPictureSide,
               2.0 * kMaxPictureSide);
  RequireRange("principal point's y", settings.principalY.value_or(0), -kMaxPictureSide,
               2.0 * kMaxPictureSide);
}

void CheckPose(const RenderSettings& settings) {
  RequireAboveZero("distance", settings.distance);
  RequireFinite("shift to the right", settings.shiftX);
  RequireFinite("shift down", settings.shiftY);
  RequireRange("tilt about x", settings.tiltX, -kMaxTilt, kMaxTilt);
  RequireRange("tilt about y", settings.tiltY, -kMaxTilt, kMaxTilt);
  RequireRange("rotation", settings.rotation, -kMaxRotation, kMaxRotation);
}

void CheckBoard(const RenderSettings& settings) {
  RequireRange("number of rows", settings.rows, 1, kMaxMarksPerSide);
  RequireRange("number of columns", settings.columns, 1, kMaxMarksPerSide);
  RequireAboveZero("pitch", settings.pitch);
  RequireAboveZero("arm length", settings.armLength);
  RequireAboveZero("stroke width", settings.strokeWidth);
  RequireAboveZero("margin", settings.margin);
  if (2 * settings.armLength >= settings.pitch) {
    throw InputError(fmt::format("arms of {:g} mm touch at a pitch of {:g} mm", settings.armLength,
                                 settings.pitch));
  }
  if (settings.strokeWidth > 2 * settings.armLength) {
    throw InputError(fmt::format("a stroke width of {:g} mm is more than two arms of {:g} mm",
                                 settings.strokeWidth, settings.armLength));
  }
  if (settings.armLength > settings.margin) {
    throw InputError(fmt::format("arms of {:g} mm do not fit into a margin of {:g} mm",
                                 settings.armLength, settings.margin));
  }
  for (const GridPosition& mark : settings.missing) {
    if (mark.row < 0 || mark.row >= settings.rows || mark.column < 0 ||
        mark.column >= settings.columns) {
      throw InputError(fmt::format("the missing mark {},{} is not among {} x {} marks", mark.row,
                                   mark.column, settings.rows, settings.columns));
    }
  }
}

void CheckLight(const RenderSettings& settings) {
  RequireRange("board's grey level", settings.boardLevel, 0, kMaxGreyLevel);
  RequireRange("marks' grey level", settings.markLevel, 0, kMaxGreyLevel);
  RequireRange("background's grey level", settings.backgroundLevel, 0, kMaxGreyLevel);
  RequireRange("gradient to the right", settings.gradientX, -kMaxGradient, kMaxGradient);
  RequireRange("gradient down", settings.gradientY, -kMaxGradient, kMaxGradient);
  RequireRange("blur sigma", settings.blurSigma, 0, kMaxBlurSigma);
  RequireRange("noise sigma", settings.noiseSigma, 0, kMaxGreyLevel);
}

}  // namespace

void CheckSettings(const RenderSettings& settings) {
  CheckCamera(settings);
  CheckPose(settings);
  CheckBoard(settings);
  CheckLight(settings);
}

}  // namespace quorvex::tools
