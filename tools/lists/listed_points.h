// The points of one image, as lists hold them.
#ifndef QUORVEX_TOOLS_LISTS_LISTED_POINTS_H_
#define QUORVEX_TOOLS_LISTS_LISTED_POINTS_H_

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tools/lists/point_kind.h"

namespace quorvex::tools {

// Of a measured position.
struct Covariance {
  double xx = 0;  // pixels squared
  double xy = 0;
  double yy = 0;
};

struct ListedPoint {
  int id = 0;    // row * (number of columns) + col + 1, or -1
  int row = 0;   // grid row from the top, from 0; -1 when unknown
  int col = 0;   // grid column from the left, from 0; -1 when unknown
  double x = 0;  // pixels, to the right, 0 at the centre of the leftmost pixel
  double y = 0;  // pixels, down, 0 at the centre of the top pixel
  PointKind kind = PointKind::kUnknown;
  std::optional<Covariance> covariance = {};
};

struct PointsOfImage {
  std::string image;  // the name the user gave; empty when the file does not tell
  int width = 0;      // pixels; 0 when the file does not tell
  int height = 0;     // pixels; 0 when the file does not tell
  std::vector<ListedPoint> points;
  // Why the detection found none, without the image's name; empty when it succeeded.
  std::string error = {};
  // What else is known of the picture, by name; JSON lists hold it, and it is not read again.
  std::vector<std::pair<std::string, double>> facts = {};
  // What rows and columns count from, in a few words for people; it is not read again either.
  std::string labels = {};
};

// Whether a point of the list tells its kind.
bool HasKinds(const std::vector<ListedPoint>& points);

// Whether a point of the list tells its covariance.
bool HasCovariances(const std::vector<ListedPoint>& points);

// "name: 80 points, 9 rows x 9 columns, empty: place (2,4)"; without a name from the number of
// points on. Rows and columns are those that the ids count: the largest + 1. Empty rows and columns
// are named, and so are the places between the others that hold no point, as long as they are few.
// What the list says of its labels ends the sentence. For an image without a detection, "name: "
// and the error.
std::string DescribePoints(const PointsOfImage& list);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_LISTS_LISTED_POINTS_H_
