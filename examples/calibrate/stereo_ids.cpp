// Two cameras see one board. Renumbered for the left and for the right camera, points of equal id
// are the same mark, also where each camera misses other rows; the true positions tell.
//
//   stereo_ids COUNT LEFT RIGHT
//
// COUNT is the number of rows and of columns of the board. LEFT stands for the picture LEFT.bmp and
// its truth LEFT.csv as `quorvex render` leaves them; RIGHT likewise. Ends with exit code 1 when
// points of equal id are different marks.
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>

#include "examples/calibrate/detections.h"
#include "interface/quorvex.h"

namespace {

using MarkPlace = std::pair<int, int>;       // row and column on the board
using MarksById = std::map<int, MarkPlace>;  // of one camera
using Positions = std::map<MarkPlace, cv::Point2d>;

constexpr double kReach = 20;  // pixels within which a point's mark lies

Positions ReadTruth(const std::string& path) {
  std::ifstream file(path);
  Positions positions;
  for (std::string line; std::getline(file, line);) {
    std::istringstream fields(line);
    MarkPlace place;
    cv::Point2d position;
    char comma = ',';
    if (fields >> place.first >> comma >> place.second >> comma >> position.x >> comma >>
        position.y) {
      positions[place] = position;
    }
  }
  if (positions.empty()) {
    throw std::runtime_error(path + ": holds no marks");
  }
  return positions;
}

// Points that are near no mark are left out.
MarksById NameMarks(const PointList& points, const Positions& truth) {
  MarksById marks;
  for (const CalibrationPoint& point : points) {
    for (const auto& [place, position] : truth) {
      if (std::hypot(point.x - position.x, point.y - position.y) < kReach) {
        marks[point.id] = place;
      }
    }
  }
  return marks;
}

// Whether all ids that both cameras have name one mark; there must be some.
bool PrintRow(const char* name, const MarksById& left, const MarksById& right) {
  int common = 0;
  int same = 0;
  for (const auto& [id, mark] : left) {
    const auto other = right.find(id);
    if (other != right.end()) {
      ++common;
      same += other->second == mark ? 1 : 0;
    }
  }
  std::printf("%-12s %5zu %6zu %11d %10d\n", name, left.size(), right.size(), common, same);
  return common > 0 && same == common;
}

bool Run(int count, const std::string& leftName, const std::string& rightName) {
  const Positions leftTruth = ReadTruth(leftName + ".csv");
  const Positions rightTruth = ReadTruth(rightName + ".csv");
  PointList left = calibrate::DetectPoints(calibrate::ReadGreyPicture(leftName + ".bmp"));
  PointList right = calibrate::DetectPoints(calibrate::ReadGreyPicture(rightName + ".bmp"));
  std::printf("%-12s %5s %6s %11s %10s\n", "ids", "left", "right", "ids in both", "same mark");
  PrintRow("as detected", NameMarks(left, leftTruth), NameMarks(right, rightTruth));
  LeftPtsRearrange(left, 0, count);
  RightPtsRearrange(right, 0, count);
  return PrintRow("rearranged", NameMarks(left, leftTruth), NameMarks(right, rightTruth));
}

}  // namespace

int main(int argc, char** argv) {
  try {
    const int count = argc == 4 ? static_cast<int>(std::strtol(argv[1], nullptr, 10)) : 0;
    if (count < 1) {
      throw std::runtime_error("usage: stereo_ids COUNT LEFT RIGHT");
    }
    return Run(count, argv[2], argv[3]) ? EXIT_SUCCESS : EXIT_FAILURE;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "stereo_ids: %s\n", error.what());
    return EXIT_FAILURE;
  }
}
