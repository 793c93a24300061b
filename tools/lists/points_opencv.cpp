#include "tools/lists/points_opencv.h"

#include <fmt/format.h>

#include <cstddef>
#include <functional>
#include <iterator>

namespace quorvex::tools {
namespace {

// In quotes; names hold any characters.
std::string YamlString(const std::string& text) {
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') {
      quoted += '\\';
    }
    if (c == '\n' || c == '\r' || c == '\t') {
      quoted += c == '\n' ? "\\n" : c == '\r' ? "\\r" : "\\t";
    } else {
      quoted += c;
    }
  }
  return quoted + '"';
}

// One matrix, a line for each mark.
void AppendMatrix(const BoardView& view, const char* type,
                  const std::function<std::string(const ListedPoint&)>& values, std::string& text) {
  std::size_t count = 0;
  std::string data;
  for (const std::optional<ListedPoint>& mark : view.marks) {
    if (mark) {
      data += fmt::format("{}{}", count++ == 0 ? " " : ",\n         ", values(*mark));
    }
  }
  fmt::format_to(std::back_inserter(text),
                 "   - !!opencv-matrix\n      rows: {}\n      cols: 1\n      dt: \"{}\"\n"
                 "      data: [{} ]\n",
                 count, type, data);
}

}  // namespace

std::string FormatPointsOpencv(const BoardTable& table, double pitch) {
  std::string names;
  std::string sizes;
  std::string objects;
  std::string places;
  for (const BoardView& view : table.views) {
    if (!view.leftOut.empty()) {
      continue;
    }
    names += fmt::format("   - {}\n", YamlString(view.image));
    sizes += fmt::format("   - [ {}, {} ]\n", view.width, view.height);
    AppendMatrix(
        view, "3f",
        [pitch](const ListedPoint& p) {
          return fmt::format("{:.9g}, {:.9g}, 0.", p.col * pitch, p.row * pitch);
        },
        objects);
    AppendMatrix(
        view, "2f", [](const ListedPoint& p) { return fmt::format("{:.9g}, {:.9g}", p.x, p.y); },
        places);
  }
  return fmt::format(
      "%YAML:1.0\n---\nboard_rows: {}\nboard_columns: {}\npitch: {:.9g}\nimage_names:\n{}"
      "image_sizes:\n{}object_points:\n{}image_points:\n{}",
      table.board.rows, table.board.columns, pitch, names, sizes, objects, places);
}

}  // namespace quorvex::tools
