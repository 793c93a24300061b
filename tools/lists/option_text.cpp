#include "tools/lists/option_text.h"

#include <fmt/format.h>

#include <charconv>
#include <cmath>
#include <string_view>
#include <system_error>

#include "tools/errors.h"

namespace quorvex::tools {
namespace {

// Two numbers with a separator between them and nothing around, in the notation of the C locale.
template <typename T>
bool ParsePair(std::string_view text, char separator, T& first, T& second) {
  const char* end = text.data() + text.size();
  const std::from_chars_result middle = std::from_chars(text.data(), end, first);
  if (middle.ec != std::errc() || middle.ptr == end || *middle.ptr != separator) {
    return false;
  }
  const std::from_chars_result last = std::from_chars(middle.ptr + 1, end, second);
  return last.ec == std::errc() && last.ptr == end;
}

bool IsLineCount(int count) { return count >= 1 && count <= kMostGridLines; }

}  // namespace

Position ParsePosition(const std::string& text) {
  Position position;
  if (!ParsePair(text, ',', position.x, position.y) || !std::isfinite(position.x) ||
      !std::isfinite(position.y)) {
    throw InputError(fmt::format(
        "'{}' is not a position; write it as x,y in pixels, for example 812.5,640", text));
  }
  return position;
}

GridPosition ParseGridPosition(const std::string& text) {
  GridPosition position;
  if (!ParsePair(text, ',', position.row, position.column)) {
    throw InputError(fmt::format(
        "'{}' is not a place in the grid; write it as row,column, for example 2,3", text));
  }
  return position;
}

GridSize ParseGridSize(const std::string& text) {
  GridSize grid;
  if (!ParsePair(text, 'x', grid.rows, grid.columns) || !IsLineCount(grid.rows) ||
      !IsLineCount(grid.columns)) {
    throw InputError(fmt::format(
        "'{}' is not the size of a grid; write it as rows x columns, each 1 to {}, for example 9x7",
        text, kMostGridLines));
  }
  return grid;
}

std::string GridSizeText(GridSize grid) { return fmt::format("{}x{}", grid.rows, grid.columns); }

}  // namespace quorvex::tools
