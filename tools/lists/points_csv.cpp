#include "tools/lists/points_csv.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <optional>

#include "tools/lists/csv_table.h"

namespace quorvex::tools {
namespace {

bool NeedsKindColumn(const std::vector<PointsOfImage>& images) {
  return std::any_of(images.begin(), images.end(), [](const PointsOfImage& image) {
    return !image.error.empty() || HasKinds(image.points);
  });
}

PointsOfImage& ImageNamed(const std::string& name, std::vector<PointsOfImage>& images) {
  const auto found = std::find_if(images.rbegin(), images.rend(),
                                  [&](const PointsOfImage& known) { return known.image == name; });
  if (found != images.rend()) {
    return *found;
  }
  images.emplace_back();
  images.back().image = name;
  return images.back();
}

}  // namespace

std::string FormatPointsCsv(const std::vector<PointsOfImage>& images, bool withImageColumn) {
  const bool withKind = NeedsKindColumn(images);
  std::string text =
      fmt::format("{}id,row,col,x,y{}\n", withImageColumn ? "image," : "", withKind ? ",kind" : "");
  for (const PointsOfImage& image : images) {
    const std::string prefix = withImageColumn ? CsvField(image.image) + ',' : "";
    if (!image.error.empty()) {
      fmt::format_to(std::back_inserter(text), "{},,,,,{}\n", prefix, kFailedKind);
      continue;
    }
    for (const ListedPoint& p : image.points) {
      fmt::format_to(std::back_inserter(text), "{}{},{},{},{:.9g},{:.9g}{}{}\n", prefix, p.id,
                     p.row, p.col, p.x, p.y, withKind ? "," : "", KindName(p.kind));
    }
  }
  return text;
}

std::vector<PointsOfImage> ParsePointsCsv(const std::string& text, const std::string& name) {
  const CsvTable table(text, name);
  const bool isNamed = table.HasColumn("image");
  const bool hasKind = table.HasColumn("kind");
  const std::size_t image = isNamed ? table.ColumnNamed("image") : 0;
  const std::size_t kind = hasKind ? table.ColumnNamed("kind") : 0;
  const std::size_t id = table.ColumnNamed("id");
  const std::size_t row = table.ColumnNamed("row");
  const std::size_t col = table.ColumnNamed("col");
  const std::size_t x = table.ColumnNamed("x");
  const std::size_t y = table.ColumnNamed("y");

  std::vector<PointsOfImage> images;
  for (std::size_t i = 0; i < table.RowCount(); ++i) {
    PointsOfImage& list = ImageNamed(isNamed ? table.Text(i, image) : "", images);
    const std::string kindName = hasKind ? table.Text(i, kind) : "";
    if (kindName == kFailedKind) {
      list.error = "the detection failed";
      continue;
    }
    const std::optional<PointKind> pointKind = KindNamed(kindName);
    if (!pointKind) {
      table.FailAtField(i, kind, "seen, filled or failed");
    }
    list.points.push_back({table.Integer(i, id), table.Integer(i, row), table.Integer(i, col),
                           table.Number(i, x), table.Number(i, y), *pointKind});
  }
  // A list without points still is the list of one image.
  if (images.empty() && !isNamed) {
    images.emplace_back();
  }
  return images;
}

}  // namespace quorvex::tools
