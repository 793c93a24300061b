#include "tools/lists/points_file.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <nlohmann/json.hpp>
#include <set>
#include <utility>

#include "tools/errors.h"
#include "tools/lists/csv_table.h"
#include "tools/system/file_name.h"

namespace quorvex::tools {
namespace {

using Json = nlohmann::json;

std::string JsonString(const std::string& text) {
  // File names need not be UTF-8; JSON must be.
  return Json(text).dump(-1, ' ', false, Json::error_handler_t::replace);
}

std::string FormatCsv(const std::vector<PointsOfImage>& images, bool withImageColumn) {
  std::string text = withImageColumn ? "image,id,row,col,x,y\n" : "id,row,col,x,y\n";
  for (const PointsOfImage& image : images) {
    const std::string prefix = withImageColumn ? CsvField(image.image) + ',' : "";
    for (const ListedPoint& p : image.points) {
      fmt::format_to(std::back_inserter(text), "{}{},{},{},{:.9g},{:.9g}\n", prefix, p.id, p.row,
                     p.col, p.x, p.y);
    }
  }
  return text;
}

// One line per point: whole enough for a parser, readable and comparable for people.
std::string FormatJson(const std::vector<PointsOfImage>& images) {
  std::string text = "[";
  for (const PointsOfImage& image : images) {
    text += &image == images.data() ? "\n" : ",\n";
    fmt::format_to(std::back_inserter(text),
                   " {{\n  \"image\": {},\n  \"width\": {},\n  \"height\": {},\n  \"points\": [",
                   JsonString(image.image), image.width, image.height);
    for (const ListedPoint& p : image.points) {
      fmt::format_to(std::back_inserter(text),
                     "{}   {{\"id\": {}, \"row\": {}, \"col\": {}, \"x\": {:.9g}, \"y\": {:.9g}}}",
                     &p == image.points.data() ? "\n" : ",\n", p.id, p.row, p.col, p.x, p.y);
    }
    text += "\n  ]\n }";
  }
  return text + "\n]\n";
}

std::string FormatText(const std::vector<PointsOfImage>& images) {
  std::string text;
  for (const PointsOfImage& image : images) {
    text +=
        fmt::format("{:>6} {:>5} {:>5} {:>13} {:>13}\n", "id", "row", "col", "x [px]", "y [px]");
    for (const ListedPoint& p : image.points) {
      fmt::format_to(std::back_inserter(text), "{:>6} {:>5} {:>5} {:>13.9g} {:>13.9g}\n", p.id,
                     p.row, p.col, p.x, p.y);
    }
    text += DescribePoints(image) + '\n';
  }
  return text;
}

std::vector<PointsOfImage> ParseCsv(const std::string& text, const std::string& path) {
  const CsvTable table(text, path);
  const bool named = table.HasColumn("image");
  const std::size_t image = named ? table.ColumnNamed("image") : 0;
  const std::size_t id = table.ColumnNamed("id");
  const std::size_t row = table.ColumnNamed("row");
  const std::size_t col = table.ColumnNamed("col");
  const std::size_t x = table.ColumnNamed("x");
  const std::size_t y = table.ColumnNamed("y");

  std::vector<PointsOfImage> images;
  for (std::size_t i = 0; i < table.RowCount(); ++i) {
    const std::string name = named ? table.Text(i, image) : "";
    auto found = std::find_if(images.rbegin(), images.rend(),
                              [&](const PointsOfImage& known) { return known.image == name; });
    if (found == images.rend()) {
      images.emplace_back();
      images.back().image = name;
      found = images.rbegin();
    }
    found->points.push_back({table.Integer(i, id), table.Integer(i, row), table.Integer(i, col),
                             table.Number(i, x), table.Number(i, y)});
  }
  // A list without points still is the list of one image.
  if (images.empty() && !named) images.emplace_back();
  return images;
}

// Reads members of one JSON object; `path` and `where` name it in messages.
class JsonObject {
 public:
  JsonObject(const Json& object, const std::string& path, std::string where)
      : object_(object), path_(path), where_(std::move(where)) {
    if (!object.is_object()) Fail(where_ + " is not an object");
  }

  const Json& Member(const char* name) const {
    const auto found = object_.find(name);
    if (found == object_.end()) Fail(fmt::format("{} has no \"{}\"", where_, name));
    return *found;
  }
  int Integer(const char* name) const {
    const Json& value = Member(name);
    // The comparison with the 64-bit value refuses what an int cannot hold.
    if (!value.is_number_integer() || value != Json(value.get<int>())) {
      FailAt(name, "a whole number");
    }
    return value.get<int>();
  }
  double Number(const char* name) const {
    const Json& value = Member(name);
    if (!value.is_number() || !std::isfinite(value.get<double>())) {
      FailAt(name, "a number");
    }
    return value.get<double>();
  }
  std::string Text(const char* name) const {
    const Json& value = Member(name);
    if (!value.is_string()) FailAt(name, "a text");
    return value.get<std::string>();
  }
  const Json& List(const char* name) const {
    const Json& value = Member(name);
    if (!value.is_array()) FailAt(name, "a list");
    return value;
  }

 private:
  [[noreturn]] void Fail(const std::string& reason) const {
    throw InputError(fmt::format("{}: {}", path_, reason));
  }
  [[noreturn]] void FailAt(const char* name, const char* wanted) const {
    Fail(fmt::format("\"{}\" of {} is not {}", name, where_, wanted));
  }

  const Json& object_;
  const std::string& path_;
  std::string where_;
};

PointsOfImage ParseImage(const Json& value, const std::string& path, const std::string& where) {
  const JsonObject object(value, path, where);
  PointsOfImage image{
      object.Text("image"), object.Integer("width"), object.Integer("height"), {}, {}};
  const Json& points = object.List("points");
  for (std::size_t i = 0; i < points.size(); ++i) {
    const JsonObject point(points[i], path, fmt::format("{}, point {}", where, i + 1));
    image.points.push_back({point.Integer("id"), point.Integer("row"), point.Integer("col"),
                            point.Number("x"), point.Number("y")});
  }
  return image;
}

std::vector<PointsOfImage> ParseJson(const std::string& text, const std::string& path) {
  Json list;
  try {
    list = Json::parse(text);
  } catch (const Json::parse_error& error) {
    const std::size_t end = std::min(error.byte, text.size());
    const auto line =
        std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(end), '\n');
    throw InputError(fmt::format("{}:{}: not valid JSON", path, line + 1));
  } catch (const Json::out_of_range&) {
    throw InputError(fmt::format("{} holds a number that is too large", path));
  }
  if (!list.is_array()) throw InputError(fmt::format("{} is not a list of images", path));
  std::vector<PointsOfImage> images;
  for (std::size_t i = 0; i < list.size(); ++i) {
    images.push_back(ParseImage(list[i], path, fmt::format("image {}", i + 1)));
  }
  return images;
}

struct PointsFile {
  std::vector<PointsOfImage> images;
  PointsFormat format;
};

PointsFile ReadAnyFormat(const std::filesystem::path& path) {
  const std::string text = ReadTextFile(path);
  const std::string name = Utf8Name(path);
  const std::size_t first = text.find_first_not_of(" \t\r\n");
  const bool isJson = first != std::string::npos && (text[first] == '[' || text[first] == '{');
  if (isJson) return {ParseJson(text, name), PointsFormat::kJson};
  return {ParseCsv(text, name), PointsFormat::kCsv};
}

}  // namespace

GridSize CountGrid(const std::vector<ListedPoint>& points) {
  std::set<int> rows;
  std::set<int> columns;
  for (const ListedPoint& p : points) {
    if (p.row >= 0) rows.insert(p.row);
    if (p.col >= 0) columns.insert(p.col);
  }
  return {static_cast<int>(rows.size()), static_cast<int>(columns.size())};
}

std::string DescribePoints(const PointsOfImage& list) {
  const GridSize grid = CountGrid(list.points);
  return fmt::format("{}{}{} points, {} rows x {} columns", list.image,
                     list.image.empty() ? "" : ": ", list.points.size(), grid.rows, grid.columns);
}

std::string FormatPoints(const std::vector<PointsOfImage>& images, PointsFormat format,
                         bool withImageColumn) {
  switch (format) {
    case PointsFormat::kCsv:
      return FormatCsv(images, withImageColumn);
    case PointsFormat::kJson:
      return FormatJson(images);
    case PointsFormat::kText:
      break;
  }
  return FormatText(images);
}

std::vector<PointsOfImage> ReadPointsFile(const std::filesystem::path& path) {
  return ReadAnyFormat(path).images;
}

OneImageFile ReadOneImageFile(const std::filesystem::path& path) {
  PointsFile file = ReadAnyFormat(path);
  if (file.images.size() != 1) {
    throw InputError(fmt::format("{} holds the points of {} images; one is needed", Utf8Name(path),
                                 file.images.size()));
  }
  return {std::move(file.images.front()), file.format};
}

}  // namespace quorvex::tools
