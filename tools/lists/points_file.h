// Lists of detected points as files: CSV and JSON, written and read, and a table for people,
// written only. Floats carry nine significant digits, so that a 32-bit position survives the round
// trip. The kind of the points and their covariance stand in a file when they are known, and may be
// missing when read.
#ifndef QUORVEX_TOOLS_LISTS_POINTS_FILE_H_
#define QUORVEX_TOOLS_LISTS_POINTS_FILE_H_

#include <filesystem>
#include <string>
#include <vector>

#include "tools/lists/listed_points.h"
#include "tools/system/choice_option.h"

namespace quorvex::tools {

enum class PointsFormat { kCsv, kJson, kText };

// Their names in options.
constexpr Choice<PointsFormat> kPointsFormats[] = {
    {"csv", PointsFormat::kCsv}, {"json", PointsFormat::kJson}, {"text", PointsFormat::kText}};

// The format that a file's name asks for by its ending: .csv, .json or .txt, capitals allowed;
// `otherwise` for any other name.
PointsFormat FormatByName(const std::filesystem::path& path, PointsFormat otherwise);

// The text of a file. `withImageColumn` puts the image's name in front of each CSV row; JSON and
// text name the image always.
std::string FormatPoints(const std::vector<PointsOfImage>& images, PointsFormat format,
                         bool withImageColumn);

// Reads a list in CSV or JSON; which of the two is told by its first character. `name` is that of
// the file. Throws InputError naming file, line and reason.
std::vector<PointsOfImage> ParsePoints(const std::string& text, const std::string& name);

// The same of a file of at most 64 MiB.
std::vector<PointsOfImage> ReadPointsFile(const std::filesystem::path& path);

// One image's list out of a file.
struct OneImageFile {
  PointsOfImage list;
  PointsFormat format = PointsFormat::kCsv;  // what the file is written in: CSV or JSON
  std::vector<PointsOfImage> before;         // the lists of the file's other images
  std::vector<PointsOfImage> after;
};

// `image` names the one wanted; without a name there must be exactly one. Throws InputError when
// that cannot be, naming the images of the file, and when the wanted image has no points because
// its detection failed.
OneImageFile ReadOneImageFile(const std::filesystem::path& path, const std::string& image = "");

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_LISTS_POINTS_FILE_H_
