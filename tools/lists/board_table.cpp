#include "tools/lists/board_table.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace quorvex::tools {
namespace {

bool HasPlace(const ListedPoint& point) { return point.row >= 0 && point.col >= 0; }

// Of lines that a file may number up to the largest int.
int LineCount(int first, int last) {
  return static_cast<int>(
      std::min<std::int64_t>(std::int64_t{last} - first + 1, std::numeric_limits<int>::max()));
}

// Rows and columns from the first to the last that holds a mark that was seen.
GridSize SeenSize(const std::vector<ListedPoint>& points) {
  std::optional<ListedPoint> first;
  GridPosition last;
  for (const ListedPoint& p : points) {
    if (!HasPlace(p) || IsComputed(p.kind)) {
      continue;
    }
    if (!first) {
      first = p;
    }
    first->row = std::min(first->row, p.row);
    first->col = std::min(first->col, p.col);
    last.row = std::max(last.row, p.row);
    last.column = std::max(last.column, p.col);
  }
  return first ? GridSize{LineCount(first->row, last.row), LineCount(first->col, last.column)}
               : GridSize{};
}

GridSize LargestSize(const std::vector<PointsOfImage>& images) {
  GridSize largest;
  for (const PointsOfImage& image : images) {
    const GridSize seen = SeenSize(image.points);
    largest.rows = std::max(largest.rows, seen.rows);
    largest.columns = std::max(largest.columns, seen.columns);
  }
  return largest;
}

bool HasFact(const PointsOfImage& image, const char* name) {
  return std::any_of(image.facts.begin(), image.facts.end(),
                     [&](const auto& fact) { return fact.first == name && fact.second > 0; });
}

std::string SizeText(GridSize size) {
  return fmt::format("{} rows x {} columns", size.rows, size.columns);
}

// Why the picture cannot be used; empty when it can.
std::string ReasonToLeaveOut(const PointsOfImage& image, GridSize board) {
  if (!image.error.empty()) {
    return image.error;
  }
  const GridSize seen = SeenSize(image.points);
  const bool knowsRows = seen.rows == board.rows || HasFact(image, "fixed_rows");
  const bool knowsColumns = seen.columns == board.columns || HasFact(image, "fixed_columns");
  if (!knowsRows || !knowsColumns) {
    return fmt::format("which of the board's {} it shows cannot be told: marks are seen in {}",
                       SizeText(board), SizeText(seen));
  }
  const bool isBeyond = std::any_of(
      image.points.begin(), image.points.end(),
      [&](const ListedPoint& p) { return p.row >= board.rows || p.col >= board.columns; });
  return isBeyond ? fmt::format("it shows more than the board's {}", SizeText(board)) : "";
}

void PutMarks(const std::vector<ListedPoint>& points, GridSize board, BoardView& view) {
  const std::size_t columns = static_cast<std::size_t>(board.columns);
  view.marks.resize(static_cast<std::size_t>(board.rows) * columns);
  std::vector<bool> isClaimed(view.marks.size());
  for (const ListedPoint& p : points) {
    if (!HasPlace(p) || IsComputed(p.kind)) {
      continue;
    }
    const std::size_t place =
        static_cast<std::size_t>(p.row) * columns + static_cast<std::size_t>(p.col);
    view.marks[place] = isClaimed[place] ? std::nullopt : std::optional<ListedPoint>(p);
    isClaimed[place] = true;
  }
}

}  // namespace

BoardTable ArrangeOnBoard(const std::vector<PointsOfImage>& images, std::optional<GridSize> board) {
  BoardTable table;
  table.board = board ? *board : LargestSize(images);
  for (const PointsOfImage& image : images) {
    BoardView view{image.image, image.width, image.height, {}};
    view.leftOut = ReasonToLeaveOut(image, table.board);
    if (view.leftOut.empty()) {
      PutMarks(image.points, table.board, view);
    }
    table.views.push_back(std::move(view));
  }
  return table;
}

}  // namespace quorvex::tools
