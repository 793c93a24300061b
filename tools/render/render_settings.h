// What a rendered picture shows: a planar board of cross marks or a chessboard, the camera that
// sees it and the light.
//
// Pictures: pixels, integer values at pixel centres, x to the right and y down from the top row.
// The camera looks along +z with x to the right and y down. Board: millimetres, columns along +x
// and rows along +y, the origin in the middle of the marks. Angles are degrees, grey levels 0 to
// 255.
#ifndef QUORVEX_TOOLS_RENDER_RENDER_SETTINGS_H_
#define QUORVEX_TOOLS_RENDER_RENDER_SETTINGS_H_

#include <cstdint>
#include <optional>
#include <vector>

#include "tools/lists/grid_position.h"

namespace quorvex::tools {

// How the angle t between a ray and the optical axis becomes the distance r from the principal
// point.
enum class CameraModel {
  kEquidistant,    // r = f t
  kKannalaBrandt,  // r = f (t + k1 t^3 + k2 t^5 + k3 t^7 + k4 t^9); Kannala and Brandt, 2006
  kPinhole,        // r = f tan t
  kEquisolid,      // r = 2 f sin(t / 2)
  kStereographic,  // r = 2 f tan(t / 2)
};

enum class Pattern {
  kCrosses,     // marks of two strokes
  kChessboard,  // the marks' centres are the inner corners; arms, strokes and missing say nothing
};

struct RenderSettings {
  int width = 0;   // pixels, 4 to 32768
  int height = 0;  // pixels, 4 to 32768

  CameraModel model = CameraModel::kEquidistant;
  double focalLength = 0;  // pixels
  double k1 = 0;           // the four coefficients serve kKannalaBrandt only
  double k2 = 0;
  double k3 = 0;
  double k4 = 0;
  // Pixels; absent is the middle of the picture, (width - 1) / 2 and (height - 1) / 2.
  std::optional<double> principalX;
  std::optional<double> principalY;

  double distance = 0;  // millimetres along the optical axis to the board's origin
  double shiftX = 0;    // millimetres; moves the board to the right
  double shiftY = 0;    // millimetres; moves the board down
  double tiltX = 0;     // degrees about the camera's x axis; positive moves the lower edge away
  double tiltY = 0;     // degrees about the camera's y axis; positive brings the right edge nearer
  double rotation = 0;  // degrees in the board's plane, clockwise, -45 to 45: row 0 stays on top

  Pattern pattern = Pattern::kCrosses;
  int rows = 0;            // marks, 1 to 1000
  int columns = 0;         // marks, 1 to 1000
  double pitch = 0;        // millimetres from one mark to the next
  double armLength = 0;    // millimetres from a mark's centre to the tip; below half the pitch
  double strokeWidth = 0;  // millimetres
  double margin = 0;       // millimetres from the outermost mark centres (squares) to the edge
  std::vector<GridPosition> missing;  // marks that are left out

  double boardLevel = 0;       // grey level
  double markLevel = 0;        // grey level
  double backgroundLevel = 0;  // grey level
  double gradientX = 0;        // relative change of the light from the middle to the right edge
  double gradientY = 0;        // relative change of the light from the middle to the bottom edge

  double blurSigma = 0;    // pixels, 0 to 100; Gaussian
  double noiseSigma = 0;   // grey levels; Gaussian, independent from pixel to pixel
  std::uint64_t seed = 0;  // of the noise
};

// Throws InputError (tools/errors.h), saying in one sentence which value is out of range.
void CheckSettings(const RenderSettings& settings);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_RENDER_RENDER_SETTINGS_H_
