// Pairs of numbers as they are written in options.
#ifndef QUORVEX_TOOLS_LISTS_OPTION_TEXT_H_
#define QUORVEX_TOOLS_LISTS_OPTION_TEXT_H_

#include <string>

#include "tools/lists/point_edits.h"

namespace quorvex::tools {

// "812.5,-3": pixels. Throws InputError for anything but two finite 32-bit floats.
Position ParsePosition(const std::string& text);

// "9x7": rows, then columns. Throws InputError for anything but two numbers from 1 to
// kMostGridLines.
GridSize ParseGridSize(const std::string& text);

// The inverse of ParseGridSize.
std::string GridSizeText(GridSize grid);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_LISTS_OPTION_TEXT_H_
