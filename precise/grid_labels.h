// Rows and columns as people count them: the axis nearer to horizontal becomes the columns, row 0
// and column 0 are the first at the top left of what was found.
#ifndef QUORVEX_PRECISE_GRID_LABELS_H_
#define QUORVEX_PRECISE_GRID_LABELS_H_

#include "precise/grid_growth.h"

namespace quorvex::precise {

// Turns the labels of a grid by quarters and moves them; camera and facts follow, and the marks'
// two strokes change places where the axes do. The direction is judged at the middle of the marks.
void NameRowsAndColumns(Grid& grid);

// Makes this label (0, 0); the camera and its covariance follow.
void MoveOrigin(Grid& grid, int row, int column);

}  // namespace quorvex::precise

#endif  // QUORVEX_PRECISE_GRID_LABELS_H_
