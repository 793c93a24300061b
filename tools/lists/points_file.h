// Lists of detected points as files: CSV and JSON, written and read, and a table for people,
// written only. Floats carry nine significant digits, so that a 32-bit position survives the round
// trip.
#ifndef QUORVEX_TOOLS_LISTS_POINTS_FILE_H_
#define QUORVEX_TOOLS_LISTS_POINTS_FILE_H_

#include <filesystem>
#include <string>
#include <vector>

namespace quorvex::tools {

// Where a point of a list comes from.
enum class PointKind {
  kUnknown,  // the file does not tell
  kSeen,     // its mark is in the picture, or a person put it there
  kFilled,   // no mark was seen; the place follows from the points around it
};

struct ListedPoint {
  int id = 0;    // row * (number of columns) + col + 1, or -1
  int row = 0;   // grid row from the top, from 0; -1 when unknown
  int col = 0;   // grid column from the left, from 0; -1 when unknown
  double x = 0;  // pixels, to the right, 0 at the centre of the leftmost pixel
  double y = 0;  // pixels, down, 0 at the centre of the top pixel
  PointKind kind = PointKind::kUnknown;
};

struct PointsOfImage {
  std::string image;  // the name the user gave; empty when the file does not tell
  int width = 0;      // pixels; 0 when the file does not tell
  int height = 0;     // pixels; 0 when the file does not tell
  std::vector<ListedPoint> points;
  std::string error =
      {};  // why there are no points, one sentence; empty when the detection succeeded
};

enum class PointsFormat { kCsv, kJson, kText };

// Rows and columns of the grid that hold at least one point; -1 is none.
struct GridSize {
  int rows = 0;
  int columns = 0;
};
GridSize CountGrid(const std::vector<ListedPoint>& points);

// "name: 81 points, 9 rows x 9 columns"; without a name from the number of points on.
std::string DescribePoints(const PointsOfImage& list);

// The text of a file. `withImageColumn` puts the image's name in front of each CSV row; JSON and
// text name the image always.
std::string FormatPoints(const std::vector<PointsOfImage>& images, PointsFormat format,
                         bool withImageColumn);

// Reads a CSV or JSON file of at most 64 MiB; which of the two is told by its first character.
// Images come in the order of their first point. Throws InputError naming file, line and reason.
std::vector<PointsOfImage> ReadPointsFile(const std::filesystem::path& path);

// The same for a file that holds exactly one image's points; any other number is an InputError.
struct OneImageFile {
  PointsOfImage list;
  PointsFormat format = PointsFormat::kCsv;  // what the file is written in: CSV or JSON
};
OneImageFile ReadOneImageFile(const std::filesystem::path& path);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_LISTS_POINTS_FILE_H_
