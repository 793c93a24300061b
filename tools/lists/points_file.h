// Lists of detected points as files: CSV and JSON, written and read, and a table for people,
// written only. Floats carry nine significant digits, so that a 32-bit position survives the round
// trip.
#ifndef QUORVEX_TOOLS_LISTS_POINTS_FILE_H_
#define QUORVEX_TOOLS_LISTS_POINTS_FILE_H_

#include <string>
#include <vector>

namespace quorvex::tools {

struct PointRow {
  int id = 0;    // row * (number of columns) + col + 1, or -1
  int row = 0;   // grid row from the top, from 0; -1 when unknown
  int col = 0;   // grid column from the left, from 0; -1 when unknown
  double x = 0;  // pixels, to the right, 0 at the centre of the leftmost pixel
  double y = 0;  // pixels, down, 0 at the centre of the top pixel
};

struct ImagePoints {
  std::string image;  // the name the user gave; empty when the file does not tell
  int width = 0;      // pixels; 0 when the file does not tell
  int height = 0;     // pixels; 0 when the file does not tell
  std::vector<PointRow> points;
};

enum class PointsFormat { kCsv, kJson, kText };

// Rows and columns of the grid that hold at least one point; -1 is none.
struct GridSize {
  int rows = 0;
  int columns = 0;
};
GridSize CountGrid(const std::vector<PointRow>& points);

// "name: 81 points, 9 rows x 9 columns"; without a name from the number of points on.
std::string DescribePoints(const ImagePoints& points);

// The text of a file. `withImageColumn` puts the image's name in front of each CSV row; JSON and
// text name the image always.
std::string FormatPoints(const std::vector<ImagePoints>& images, PointsFormat format,
                         bool withImageColumn);

// Reads a CSV or JSON file of at most 64 MiB; which of the two is told by its first character.
// Images come in the order of their first point. Throws InputError naming file, line and reason.
std::vector<ImagePoints> ReadPointsFile(const std::string& path);

// The same for a file that holds exactly one image's points; any other number is an InputError.
struct OneImageFile {
  ImagePoints points;
  PointsFormat format = PointsFormat::kCsv;  // what the file is written in: CSV or JSON
};
OneImageFile ReadOneImageFile(const std::string& path);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_LISTS_POINTS_FILE_H_
