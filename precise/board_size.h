// Which of a board's rows and columns were found, where the board's size is known.
//
// A side is the end of the board where the arms of the next line's marks would begin within the
// picture, on a blank board. Where only one of two sides is an end, the missing lines lie on the
// other: outside the picture or hidden.
#ifndef QUORVEX_PRECISE_BOARD_SIZE_H_
#define QUORVEX_PRECISE_BOARD_SIZE_H_

#include <string>

#include "precise/gray_picture.h"
#include "precise/grid_growth.h"

namespace quorvex::precise {

struct BoardSize {
  int rows = 0;
  int columns = 0;
};

// Why no board has this size, in words; empty for 1 to 1000 rows and columns, and for none of both,
// which is a size that is not known.
std::string WrongSize(const BoardSize& board);

struct FixedLabels {
  bool rows = false;  // row 0 of the grid is row 0 of the board
  bool columns = false;
};

// The following need labels as NameRowsAndColumns leaves them.

// The rows and columns from 0 on that hold marks.
BoardSize SizeOf(const Grid& grid);

// Why the grid cannot be on a board of a known size, in words; empty when it can.
std::string SizeConflict(const Grid& grid, const BoardSize& board);

// Moves the labels of a grid that fits on the board to the board's own where these can be told.
FixedLabels FixLabels(const GrayPicture& picture, const BoardSize& board, Grid& grid);

}  // namespace quorvex::precise

#endif  // QUORVEX_PRECISE_BOARD_SIZE_H_
