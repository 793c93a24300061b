// What a scene of the measuring stick shows: a board before a camera as the renderer knows it, what
// stands before the board, and what happens to the picture. Pixels, integer values at pixel
// centres, x to the right and y down.
#ifndef QUORVEX_BENCHMARKS_PRECISION_SCENE_H_
#define QUORVEX_BENCHMARKS_PRECISION_SCENE_H_

#include <cstdint>
#include <string>
#include <vector>

#include "tools/pictures/picture.h"
#include "tools/render/render_settings.h"

namespace quorvex::benchmarks {

struct Disc {
  double x = 0;       // pixels
  double y = 0;       // pixels
  double radius = 0;  // pixels
  double level = 0;   // grey level
};

// A strip right across the picture.
struct Band {
  double x = 0;      // pixels, a point of its middle line
  double y = 0;      // pixels
  double angle = 0;  // radians, of the middle line, from x towards y
  double width = 0;  // pixels
  double level = 0;  // grey level
};

// What real pictures suffer, in the order in which it is applied; all of it before noise and
// rounding but the compression.
struct Disturbance {
  double shadowFactor = 1;    // of the light on the dark side of a straight edge
  double shadowX = 0;         // pixels, a point of the edge
  double shadowY = 0;         // pixels
  double shadowAngle = 0;     // radians, of the edge
  double blotchSigma = 0;     // grey levels
  double blotchSize = 0;      // pixels, about the diameter of a blotch
  double moireAmplitude = 0;  // grey levels
  double moirePeriod = 0;     // pixels
  double moireAngle = 0;      // radians, of the wave's direction
  double motionLength = 0;    // pixels; the marks' true places are in the middle of the motion
  double motionAngle = 0;     // radians
  double gain = 1;            // levels become gain * level + offset and are clipped to 0..255
  double offset = 0;          // grey levels
  double gamma = 1;           // levels become 255 * (level / 255)^(1 / gamma)
  int jpegQuality = 0;        // 1 to 100 as in the JPEG group's tables; 0 is no compression
};

struct Scene {
  std::string name;              // of its row in the table
  tools::RenderSettings target;  // its rotation may have any value; marks may lie out of sight;
                                 // arms of half the pitch are continuous lines
  std::vector<Disc> discs;
  std::vector<Band> bands;
  Disturbance disturbance;
};

struct SceneMark {
  int row = 0;
  int column = 0;
  double x = 0;  // pixels
  double y = 0;  // pixels
  // The centre is kVisibleRim or more inside the picture and, but for the blur, away from
  // everything before the board, which also leaves an arm of each stroke free over half its length.
  bool isVisible = false;
};

constexpr double kVisibleRim = 4;  // pixels

struct RenderedScene {
  tools::Picture picture;
  std::vector<SceneMark> marks;  // all that are printed on the board and before the camera
};

}  // namespace quorvex::benchmarks

#endif  // QUORVEX_BENCHMARKS_PRECISION_SCENE_H_
