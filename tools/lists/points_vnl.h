// Corner tables, "# filename x y level", of which programs for calibration read the marks of many
// pictures.
#ifndef QUORVEX_TOOLS_LISTS_POINTS_VNL_H_
#define QUORVEX_TOOLS_LISTS_POINTS_VNL_H_

#include <string>

#include "tools/lists/board_table.h"

namespace quorvex::tools {

// Throws InputError (tools/errors.h) for a picture's name that cannot stand in such a table: one
// that is empty, holds a blank or begins with #.
void RequireVnlName(const std::string& name);

// A line for every place of the board, row by row, a block for every picture; "- - -" for a mark
// that was not seen. The level says how far the resolution was cut for a mark, which programs take
// for half the weight: 0 for a mark that was measured or seen, 1 for a doubtful one. A picture that
// is left out has one line "- - -".
std::string FormatPointsVnl(const BoardTable& table);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_LISTS_POINTS_VNL_H_
