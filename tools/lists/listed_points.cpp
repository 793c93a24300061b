#include "tools/lists/listed_points.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <set>
#include <utility>

namespace quorvex::tools {
namespace {

constexpr std::size_t kMostNamed = 5;  // rows, columns or places; of more the number is told

struct Grid {
  std::set<int> rows;  // those that hold a point
  std::set<int> columns;
  std::set<std::pair<int, int>> places;  // row, column
  int withoutPlace = 0;                  // points with a row or a column of -1

  // In 64 bits: a file may hold any int.
  std::int64_t RowCount() const { return rows.empty() ? 0 : std::int64_t{*rows.rbegin()} + 1; }
  std::int64_t ColumnCount() const {
    return columns.empty() ? 0 : std::int64_t{*columns.rbegin()} + 1;
  }
};

Grid GridOf(const std::vector<ListedPoint>& points) {
  Grid grid;
  for (const ListedPoint& p : points) {
    if (p.row < 0 || p.col < 0) {
      ++grid.withoutPlace;
      continue;
    }
    grid.rows.insert(p.row);
    grid.columns.insert(p.col);
    grid.places.insert({p.row, p.col});
  }
  return grid;
}

std::string Counted(std::int64_t count, const std::string& what) {
  return fmt::format("{} {}{}", count, what, count == 1 ? "" : "s");
}

// "column 8", "columns 3, 8", "17 columns"; appended to `parts` unless none is empty.
void NameEmptyLines(const std::set<int>& taken, std::int64_t count, const std::string& what,
                    std::vector<std::string>& parts) {
  const std::int64_t empty = count - static_cast<std::int64_t>(taken.size());
  if (empty > static_cast<std::int64_t>(kMostNamed)) {
    parts.push_back(Counted(empty, what));
  } else if (empty > 0) {
    std::string names;
    int next = 0;  // the first line that was not looked at
    for (const int line : taken) {
      // No more than kMostNamed rounds in all, since that is how many are empty.
      for (; next < line; ++next) {
        names += (names.empty() ? "" : ", ") + std::to_string(next);
      }
      ++next;
    }
    parts.push_back(fmt::format("{}{} {}", what, empty == 1 ? "" : "s", names));
  }
}

// The places without a point where a row and a column that hold points cross.
void NameEmptyPlaces(const Grid& grid, std::vector<std::string>& parts) {
  const std::size_t empty = grid.rows.size() * grid.columns.size() - grid.places.size();
  if (empty > kMostNamed) {
    parts.push_back(Counted(static_cast<std::int64_t>(empty), "place"));
  } else if (empty > 0) {
    std::string names;
    for (const int row : grid.rows) {
      for (const int column : grid.columns) {
        if (grid.places.count({row, column}) == 0) {
          names += fmt::format("{}({},{})", names.empty() ? "" : ", ", row, column);
        }
      }
    }
    parts.push_back(fmt::format("place{} {}", empty == 1 ? "" : "s", names));
  }
}

}  // namespace

bool HasKinds(const std::vector<ListedPoint>& points) {
  return std::any_of(points.begin(), points.end(),
                     [](const ListedPoint& p) { return p.kind != PointKind::kUnknown; });
}

bool HasCovariances(const std::vector<ListedPoint>& points) {
  return std::any_of(points.begin(), points.end(),
                     [](const ListedPoint& p) { return p.covariance.has_value(); });
}

std::string DescribePoints(const PointsOfImage& list) {
  const std::string name = list.image.empty() ? "" : list.image + ": ";
  if (!list.error.empty()) {
    return name + list.error;
  }
  const Grid grid = GridOf(list.points);
  std::string text = fmt::format(
      "{}{}, {} x {}", name, Counted(static_cast<std::int64_t>(list.points.size()), "point"),
      Counted(grid.RowCount(), "row"), Counted(grid.ColumnCount(), "column"));
  std::vector<std::string> empty;
  NameEmptyLines(grid.rows, grid.RowCount(), "row", empty);
  NameEmptyLines(grid.columns, grid.ColumnCount(), "column", empty);
  NameEmptyPlaces(grid, empty);
  for (const std::string& part : empty) {
    text += (&part == empty.data() ? ", empty: " : "; ") + part;
  }
  if (grid.withoutPlace > 0) {
    text += fmt::format(", {} without a place", grid.withoutPlace);
  }
  return list.labels.empty() ? text : fmt::format("{}; {}", text, list.labels);
}

}  // namespace quorvex::tools
