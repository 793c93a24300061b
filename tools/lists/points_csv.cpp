#include "tools/lists/points_csv.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
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

bool NeedsCovarianceColumns(const std::vector<PointsOfImage>& images) {
  return std::any_of(images.begin(), images.end(),
                     [](const PointsOfImage& image) { return HasCovariances(image.points); });
}

std::string CovarianceFields(const std::optional<Covariance>& covariance) {
  return covariance
             ? fmt::format(",{:.6g},{:.6g},{:.6g}", covariance->xx, covariance->xy, covariance->yy)
             : ",,,";
}

// Without the sign of -0, which JSON numbers have not, so that a list is the same from both.
double Number(const CsvTable& table, std::size_t row, std::size_t column) {
  return table.Number(row, column) + 0.0;
}

// The three columns, where a table has them.
class CovarianceColumns {
 public:
  explicit CovarianceColumns(const CsvTable& table) : table_(table) {
    if (table.HasColumn("cxx")) {
      columns_ = {table.ColumnNamed("cxx"), table.ColumnNamed("cxy"), table.ColumnNamed("cyy")};
    }
  }

  // Nothing for empty fields.
  std::optional<Covariance> Of(std::size_t row) const {
    if (!columns_ || table_.Text(row, (*columns_)[0]).empty()) {
      return std::nullopt;
    }
    return Covariance{Number(table_, row, (*columns_)[0]), Number(table_, row, (*columns_)[1]),
                      Number(table_, row, (*columns_)[2])};
  }

 private:
  const CsvTable& table_;
  std::optional<std::array<std::size_t, 3>> columns_;
};

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

std::string FormatCsvHeader(CsvColumns columns) {
  return fmt::format("{}id,row,col,x,y{}{}\n", columns.image ? "image," : "",
                     columns.kind ? ",kind" : "", columns.covariance ? ",cxx,cxy,cyy" : "");
}

std::string FormatCsvRows(const PointsOfImage& image, CsvColumns columns) {
  const std::string prefix = columns.image ? CsvField(image.image) + ',' : "";
  if (!image.error.empty()) {
    return fmt::format("{},,,,,{}{}\n", prefix, kFailedKind, columns.covariance ? ",,," : "");
  }
  std::string text;
  for (const ListedPoint& p : image.points) {
    fmt::format_to(std::back_inserter(text), "{}{},{},{},{:.9g},{:.9g}{}{}{}\n", prefix, p.id,
                   p.row, p.col, p.x, p.y, columns.kind ? "," : "", KindName(p.kind),
                   columns.covariance ? CovarianceFields(p.covariance) : "");
  }
  return text;
}

std::string FormatPointsCsv(const std::vector<PointsOfImage>& images, bool withImageColumn) {
  const CsvColumns columns{withImageColumn, NeedsKindColumn(images),
                           NeedsCovarianceColumns(images)};
  std::string text = FormatCsvHeader(columns);
  for (const PointsOfImage& image : images) {
    text += FormatCsvRows(image, columns);
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

  const CovarianceColumns covariances(table);

  std::vector<PointsOfImage> images;
  for (std::size_t i = 0; i < table.RowCount(); ++i) {
    PointsOfImage& list = ImageNamed(isNamed ? table.Text(i, image) : "", images);
    const std::string kindName = hasKind ? table.Text(i, kind) : "";
    const bool isFailure = kindName == kFailedKind;
    if (isFailure ? !list.points.empty() : !list.error.empty()) {
      table.FailAtRow(i, "the image has points and a failed detection");
    }
    if (isFailure) {
      list.error = "the detection failed";
      continue;
    }
    const std::optional<PointKind> pointKind = KindNamed(kindName);
    if (!pointKind) {
      table.FailAtField(i, kind, fmt::format("{} or {}", kKindNames, kFailedKind).c_str());
    }
    list.points.push_back({table.Integer(i, id), table.Integer(i, row), table.Integer(i, col),
                           Number(table, i, x), Number(table, i, y), *pointKind,
                           covariances.Of(i)});
  }
  // A list without points still is the list of one image.
  if (images.empty() && !isNamed) {
    images.emplace_back();
  }
  return images;
}

}  // namespace quorvex::tools
