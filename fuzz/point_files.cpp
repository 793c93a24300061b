// The command's readers of lists on any text. The first character chooses: T for a table of true
// marks with which a list is compared, R for a table that --resume goes on with, O for the words of
// options; everything else is a list of points.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "fuzz/fault.h"
#include "tests/support/temporary_folder.h"
#include "tools/compare/compare_points.h"
#include "tools/compare/compare_report.h"
#include "tools/detect/resumed_table.h"
#include "tools/errors.h"
#include "tools/lists/board_table.h"
#include "tools/lists/option_text.h"
#include "tools/lists/point_list.h"
#include "tools/lists/points_file.h"
#include "tools/lists/truth_file.h"
#include "tools/pictures/grey_levels.h"
#include "tools/target/side_lengths.h"

namespace quorvex::fuzz {
namespace {

using tools::ListedPoint;
using tools::PointsFormat;
using tools::PointsOfImage;
using Images = std::vector<PointsOfImage>;

constexpr std::size_t kLongestSentence = 4096;  // bytes; messages show parts of fields

// What `read` gives, or nothing where it refuses the text in one line.
template <typename Reader>
auto Attempt(const Reader& read) -> std::optional<decltype(read())> {
  try {
    return read();
  } catch (const tools::InputError& error) {
    const std::string sentence = error.what();
    Require(!sentence.empty() && sentence.find('\n') == std::string::npos &&
                sentence.size() < kLongestSentence,
            "a refusal is no sentence");
    return std::nullopt;
  }
}

void CheckSound(const Images& images) {
  for (const PointsOfImage& image : images) {
    Require(image.width >= 0 && image.height >= 0, "an image has sides below 0");
    Require(image.error.empty() || image.points.empty(), "an image without a detection has points");
  }
}

// CSV tells neither images without rows nor two of one name apart, and a name is on one line.
bool CanBeCsv(const Images& images) {
  std::set<std::string> names;
  return std::all_of(images.begin(), images.end(), [&](const PointsOfImage& image) {
    return (!image.points.empty() || !image.error.empty()) &&
           image.image.find('\n') == std::string::npos && names.insert(image.image).second;
  });
}

// What was written is read, and written again it is the same text.
void CheckWriting(const Images& images, PointsFormat format) {
  const std::string text = tools::FormatPoints(images, format, true);
  const std::optional<Images> again = Attempt([&] { return tools::ParsePoints(text, "a"); });
  Require(again.has_value(), "a list that was written is refused");
  Require(again->size() == images.size(), "a list comes back with other images");
  Require(tools::FormatPoints(*again, format, true) == text, "a list comes back as another");
}

void CheckUse(const Images& images) {
  tools::FormatPoints(images, PointsFormat::kText, true);
  tools::ArrangeOnBoard(images, tools::GridSize{7, 9});
  for (const PointsOfImage& image : images) {
    const auto list = Attempt([&] { return tools::ToPointList(image.points, "a"); });
    Require(!list || list->size() == image.points.size(), "points are lost on the way to the list");
    Require(!list || tools::ToListedPoints(*list, image.points).size() == image.points.size(),
            "points are lost on the way back");
  }
}

void RunList(const std::string& text) {
  const std::optional<Images> images = Attempt([&] { return tools::ParsePoints(text, "a"); });
  if (!images) {
    return;
  }
  CheckSound(*images);
  CheckWriting(*images, PointsFormat::kJson);
  if (CanBeCsv(*images)) {
    CheckWriting(*images, PointsFormat::kCsv);
  }
  CheckUse(*images);
}

// The marks, and after a line "---" the points that are compared with them.
void RunTruth(const std::string& text) {
  const std::size_t cut = std::min(text.find("---\n"), text.size());
  const auto marks = Attempt([&] { return tools::ParseTruthCsv(text.substr(0, cut), "a"); });
  if (!marks) {
    return;
  }
  const std::string written = tools::TruthCsv(*marks);
  const auto again = Attempt([&] { return tools::ParseTruthCsv(written, "a"); });
  Require(again && tools::TruthCsv(*again) == written, "marks that were written do not come back");
  const auto images =
      Attempt([&] { return tools::ParsePoints(text.substr(std::min(cut + 4, text.size())), "a"); });
  for (const PointsOfImage& image : images.value_or(Images{})) {
    const tools::Comparison comparison = tools::ComparePoints(image.points, *marks, 20.0);
    const int points = comparison.found.count + comparison.filledIn.count + comparison.extra;
    Require(points == static_cast<int>(image.points.size()), "points are lost in a comparison");
    Require(comparison.visibleMarks + comparison.leftOutMarks == static_cast<int>(marks->size()),
            "marks are lost in a comparison");
    tools::ReportAsText(comparison);
    tools::ReportAsJson(comparison, true);
    tools::DetailsAsCsv(comparison);
  }
}

// The note beside a table, and after a line "---" the table.
void RunResumed(const std::string& text) {
  static const tests::TemporaryFolder folder;
  const std::size_t cut = text.find("---\n");
  const std::string table = cut == std::string::npos ? text : text.substr(cut + 4);
  const std::filesystem::path path = folder.File("table.csv", table);
  folder.File("table.csv.resume", cut == std::string::npos ? "" : text.substr(0, cut));
  Require(tests::ReadWhole(path.string()) == table, "no file can be written; is the disk full?");
  PointsOfImage added;
  added.image = "added, \"last\"";
  added.points.push_back({1, 0, 0, 12.5, 30.25});
  const tools::CsvColumns columns{true, true, false};
  const auto count = Attempt([&] {
    tools::ResumedTable resumed(path, columns, "options");
    resumed.Add(added);
    return resumed.HeldCount();
  });
  if (count) {
    tools::ResumedTable resumed(path, columns, "options");
    Require(resumed.Holds(added.image) && resumed.HeldCount() >= *count,
            "a table that was gone on with lacks an image");
    resumed.Finish();
  } else {
    Require(tests::ReadWhole(folder.Path("table.csv")) == table, "a refused table is changed");
  }
}

// Of one line, since a refusal repeats it.
void RunOption(const std::string& all) {
  const std::string text = all.substr(0, all.find('\n'));
  const auto size = Attempt([&] { return tools::ParseGridSize(text); });
  Require(!size || tools::ParseGridSize(tools::GridSizeText(*size)).rows == size->rows,
          "the size of a grid does not come back");
  const auto levels = Attempt([&] { return tools::ParseGreyLevels(text); });
  Require(!levels || tools::ParseGreyLevels(tools::GreyLevelsText(*levels)).high == levels->high,
          "grey levels do not come back");
  Attempt([&] { return tools::ParsePosition(text); });
  Attempt([&] { return tools::ParseGridPosition(text); });
  tools::ParseSideLengths(text);
}

void RunText(const std::string& text) {
  switch (text.empty() ? ' ' : text.front()) {
    case 'T':
      return RunTruth(text.substr(1));
    case 'R':
      return RunResumed(text.substr(1));
    case 'O':
      return RunOption(text.substr(1));
    default:
      return RunList(text);
  }
}

}  // namespace
}  // namespace quorvex::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  quorvex::fuzz::RunText({bytes, bytes + size});
  return 0;
}
