// Pairs of numbers as they are written in options.
#ifndef QUORVEX_TOOLS_LISTS_OPTION_TEXT_H_
#define QUORVEX_TOOLS_LISTS_OPTION_TEXT_H_

#include <string>

#include "tools/lists/grid_position.h"
#include "tools/lists/point_edits.h"

namespace quorvex::tools {

// "812.5,-3": pixels. Throws InputError for anything but two finite 32-bit floats.
Position ParsePosition(const std::string& text);

// "2,3": row, then column, from the top left, from 0. Throws InputError for anything but two whole
// numbers that an int holds; a sign other than a minus, blanks and further characters are refused.
GridPosition ParseGridPosition(const std::string& text);

// "9x7": rows, then columns. Throws InputError for anything but two numbers from 1 to
// kMostGridLines.
GridSize ParseGridSize(const std::string& text);

// The inverse of ParseGridSize.
std::string GridSizeText(GridSize grid);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_LISTS_OPTION_TEXT_H_
