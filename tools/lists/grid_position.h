// Places and sizes in a grid of marks.
#ifndef QUORVEX_TOOLS_LISTS_GRID_POSITION_H_
#define QUORVEX_TOOLS_LISTS_GRID_POSITION_H_

namespace quorvex::tools {

struct GridPosition {
  int row = 0;     // from the top
  int column = 0;  // from the left
};

struct GridSize {
  int rows = 0;
  int columns = 0;
};

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_LISTS_GRID_POSITION_H_
