#include "tools/lists/points_file.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <iterator>

#include "tools/errors.h"
#include "tools/lists/csv_table.h"
#include "tools/lists/points_csv.h"
#include "tools/lists/points_json.h"
#include "tools/system/file_name.h"

namespace quorvex::tools {
namespace {

constexpr std::size_t kMostNamedImages = 10;  // in a message

std::string FormatText(const std::vector<PointsOfImage>& images) {
  std::string text;
  for (const PointsOfImage& image : images) {
    if (image.error.empty()) {
      const bool withKind = HasKinds(image.points);
      text += fmt::format("{:>6} {:>5} {:>5} {:>13} {:>13}{}\n", "id", "row", "col", "x [px]",
                          "y [px]", withKind ? " kind" : "");
      for (const ListedPoint& p : image.points) {
        const std::string kind = KindName(p.kind);
        fmt::format_to(std::back_inserter(text), "{:>6} {:>5} {:>5} {:>13.9g} {:>13.9g}{}{}\n",
                       p.id, p.row, p.col, p.x, p.y, kind.empty() ? "" : " ", kind);
      }
    }
    text += DescribePoints(image) + '\n';
  }
  return text;
}

struct PointsFile {
  std::vector<PointsOfImage> images;
  PointsFormat format;
};

PointsFile ParseAnyFormat(const std::string& text, const std::string& name) {
  const std::size_t first = text.find_first_not_of(" \t\r\n");
  const bool isJson = first != std::string::npos && (text[first] == '[' || text[first] == '{');
  if (isJson) {
    return {ParsePointsJson(text, name), PointsFormat::kJson};
  }
  return {ParsePointsCsv(text, name), PointsFormat::kCsv};
}

// "a.bmp, b.bmp and 3 more"
std::string NamesOf(const std::vector<PointsOfImage>& images) {
  std::string names;
  for (std::size_t i = 0; i < std::min(images.size(), kMostNamedImages); ++i) {
    names += (i == 0 ? "" : ", ") + images[i].image;
  }
  if (images.size() > kMostNamedImages) {
    names += fmt::format(" and {} more", images.size() - kMostNamedImages);
  }
  return names;
}

std::size_t IndexOf(const std::string& image, const std::vector<PointsOfImage>& images,
                    const std::string& name) {
  if (images.empty()) {
    throw InputError(fmt::format("{} holds no image's points", name));
  }
  if (image.empty()) {
    if (images.size() > 1) {
      throw InputError(fmt::format("{} holds the points of {} images; choose one with --image: {}",
                                   name, images.size(), NamesOf(images)));
    }
    return 0;
  }
  const auto found = std::find_if(images.begin(), images.end(),
                                  [&](const PointsOfImage& known) { return known.image == image; });
  if (found == images.end()) {
    const bool isNameless = images.size() == 1 && images.front().image.empty();
    throw InputError(isNameless ? fmt::format("{} does not tell the name of its image", name)
                                : fmt::format("{} holds no image {}; there are: {}", name, image,
                                              NamesOf(images)));
  }
  return static_cast<std::size_t>(found - images.begin());
}

}  // namespace

PointsFormat FormatByName(const std::filesystem::path& path, PointsFormat otherwise) {
  const std::string ending = SmallEnding(path);
  if (ending == ".csv") {
    return PointsFormat::kCsv;
  }
  if (ending == ".json") {
    return PointsFormat::kJson;
  }
  return ending == ".txt" ? PointsFormat::kText : otherwise;
}

std::string FormatPoints(const std::vector<PointsOfImage>& images, PointsFormat format,
                         bool withImageColumn) {
  switch (format) {
    case PointsFormat::kCsv:
      return FormatPointsCsv(images, withImageColumn);
    case PointsFormat::kJson:
      return FormatPointsJson(images);
    case PointsFormat::kText:
      break;
  }
  return FormatText(images);
}

std::vector<PointsOfImage> ParsePoints(const std::string& text, const std::string& name) {
  return ParseAnyFormat(text, name).images;
}

std::vector<PointsOfImage> ReadPointsFile(const std::filesystem::path& path) {
  return ParsePoints(ReadTextFile(path), Utf8Name(path));
}

OneImageFile ReadOneImageFile(const std::filesystem::path& path, const std::string& image) {
  const std::string name = Utf8Name(path);
  PointsFile file = ParseAnyFormat(ReadTextFile(path), name);
  const std::size_t index = IndexOf(image, file.images, name);
  const auto chosen = file.images.begin() + static_cast<std::ptrdiff_t>(index);
  if (!chosen->error.empty()) {
    throw InputError(
        fmt::format("{} holds no points of {}: {}", name, chosen->image, chosen->error));
  }
  OneImageFile one;
  one.format = file.format;
  one.before.assign(std::make_move_iterator(file.images.begin()), std::make_move_iterator(chosen));
  one.after.assign(std::make_move_iterator(chosen + 1), std::make_move_iterator(file.images.end()));
  one.list = std::move(*chosen);
  return one;
}

}  // namespace quorvex::tools
