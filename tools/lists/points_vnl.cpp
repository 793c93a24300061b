#include "tools/lists/points_vnl.h"

#include <fmt/format.h>

#include <iterator>

#include "tools/errors.h"

namespace quorvex::tools {

void RequireVnlName(const std::string& name) {
  if (name.empty() || name.front() == '#' ||
      name.find_first_of(" \t\r\n\v\f") != std::string::npos) {
    throw InputError(fmt::format(
        "\"{}\" cannot stand in a vnl table, whose names hold no blank and do not begin with #",
        name));
  }
}

std::string FormatPointsVnl(const BoardTable& table) {
  std::string text = "# filename x y level\n";
  for (const BoardView& view : table.views) {
    if (!view.leftOut.empty()) {
      fmt::format_to(std::back_inserter(text), "{} - - -\n", view.image);
    }
    for (const std::optional<ListedPoint>& mark : view.marks) {
      if (mark) {
        fmt::format_to(std::back_inserter(text), "{} {:.9g} {:.9g} {}\n", view.image, mark->x,
                       mark->y, mark->kind == PointKind::kDoubtful ? 1 : 0);
      } else {
        fmt::format_to(std::back_inserter(text), "{} - - -\n", view.image);
      }
    }
  }
  return text;
}

}  // namespace quorvex::tools
