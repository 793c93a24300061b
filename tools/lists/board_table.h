// The points of several pictures of one board, each in its place on the board, as programs for
// calibration want them.
#ifndef QUORVEX_TOOLS_LISTS_BOARD_TABLE_H_
#define QUORVEX_TOOLS_LISTS_BOARD_TABLE_H_

#include <optional>
#include <string>
#include <vector>

#include "tools/lists/grid_position.h"
#include "tools/lists/listed_points.h"

namespace quorvex::tools {

// One picture: a mark for every place of the board, row by row; nothing where none was seen.
struct BoardView {
  std::string image;
  int width = 0;   // pixels
  int height = 0;  // pixels
  std::vector<std::optional<ListedPoint>> marks;
  std::string leftOut = {};  // why the picture is of no use, without its name; then without marks
};

struct BoardTable {
  GridSize board;
  std::vector<BoardView> views;  // of all pictures, in their order
};

// Puts points into their places. A picture is left out whose detection failed, and one that does
// not tell which of the board's marks it shows: rows and columns count from the first ones found,
// so they are the board's when as many of them are seen as the board has, or when the detection
// knows them (its facts "fixed_rows" and "fixed_columns"). Without a `board` the largest numbers of
// rows and columns that a picture shows are taken. Points that were computed from others count as
// not seen, and so does a place that two points claim.
BoardTable ArrangeOnBoard(const std::vector<PointsOfImage>& images, std::optional<GridSize> board);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_LISTS_BOARD_TABLE_H_
