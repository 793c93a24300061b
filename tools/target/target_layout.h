// Where everything stands on a printed target. Millimetres from the top left corner of the paper, x
// to the right and y down.
#ifndef QUORVEX_TOOLS_TARGET_TARGET_LAYOUT_H_
#define QUORVEX_TOOLS_TARGET_TARGET_LAYOUT_H_

#include <string>
#include <vector>

#include "tools/target/paper.h"

namespace quorvex::tools {

// Terms of the renderer (tools/render/render_settings.h).
struct TargetMarks {
  int rows = 0;            // marks, 1 to 1000
  int columns = 0;         // marks, 1 to 1000
  double pitch = 0;        // millimetres from one mark to the next
  double armLength = 0;    // millimetres from a mark's centre to the tip; below half the pitch
  double strokeWidth = 0;  // millimetres
};

struct Bar {
  double x = 0;  // of its top left corner
  double y = 0;
  double width = 0;
  double height = 0;
};

// Text that begins at a point of its base line and runs to the right, or upwards.
struct Label {
  std::string text;
  double x = 0;
  double y = 0;
  double height = 0;  // of the font
  double room = 0;    // the text is drawn smaller where it would be longer
  bool runsUp = false;
};

struct TargetLayout {
  Paper paper;              // as it lies before the user
  std::vector<Bar> marks;   // black
  std::vector<Bar> rulers;  // grey
  std::vector<Label> labels;
  double acrossLength = 0;  // of the ruler below the marks, from the middle of its first tick to
                            // the middle of its last
  double downLength = 0;    // of the ruler on their left
};

// Puts the marks in the middle of the paper, upright where they fit so, else on its side. Throws
// InputError (tools/errors.h) for marks that cannot be, and for marks that do not fit; it then says
// what would.
TargetLayout LayOutTarget(const TargetMarks& marks, const Paper& paper);

// As the renderer checks a board. Throws InputError.
void CheckTargetMarks(const TargetMarks& marks);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_TARGET_TARGET_LAYOUT_H_
