// How a board of marks comes out in the picture of a camera, in pixels.
#ifndef QUORVEX_TOOLS_TARGET_SETUP_MEASURES_H_
#define QUORVEX_TOOLS_TARGET_SETUP_MEASURES_H_

#include <vector>

#include "tools/render/render_settings.h"

namespace quorvex::tools {

struct Spread {
  double smallest = 0;  // pixels
  double median = 0;    // pixels
  double largest = 0;   // pixels
};

struct SetupMeasures {
  int marks = 0;             // on the board
  int marksInPicture = 0;    // whose centres are 4 px or more inside the picture
  int rowsInPicture = 0;     // with such a mark
  int columnsInPicture = 0;  // likewise
  // Of the marks in the picture; all 0 when there are none.
  Spread spacing;                // between neighbours, along rows and columns
  Spread arms;                   // from a mark's centre to the tip
  Spread strokes;                // across, at a mark's centre
  bool isEdgeInPicture = false;  // all of the board's edge
  double border = 0;        // pixels, from the outermost marks' centres to the board's edge, at its
                            // narrowest; 0 where the edge is not in the picture
  double markToMiddle = 0;  // pixels, from the picture's middle to the nearest mark
  double strokeToMiddle = 0;  // pixels, from the picture's middle to the nearest stroke
};

// The board's margin may differ along its rows and columns; the settings' own is not asked.
struct BoardMargins {
  double alongRows = 0;     // millimetres, from the outermost marks' centres to the edge
  double alongColumns = 0;  // millimetres
};

// Throws InputError (tools/errors.h) for settings out of range and for a board that turns its back
// to the camera.
SetupMeasures MeasureSetup(const RenderSettings& settings, const BoardMargins& margins);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_TARGET_SETUP_MEASURES_H_
