// Detection from end to end on the renderer's presets: held to the bit by the manifest, and to the
// truth in pixels.
#include "tests/road/detection_road.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/bytes.h"
#include "tools/compare/compare_points.h"

namespace quorvex::tests {
namespace {

constexpr double kMatchTolerance = 20.0;                       // pixels
constexpr double kNumberTolerance = QUORVEX_NUMBER_TOLERANCE;  // pixels

class DetectionRoadTest : public ::testing::TestWithParam<std::string> {
 protected:
  // All tests of a preset look at one detection.
  static const DetectionRoad& Road() {
    static std::map<std::string, DetectionRoad> roads;
    const auto known = roads.find(GetParam());
    return known != roads.end()
               ? known->second
               : roads.emplace(GetParam(), RunDetectionRoad(GetParam())).first->second;
  }
};

std::vector<std::string> ExpectedManifest(const std::string& preset) {
  std::ifstream file(QUORVEX_ROAD_FOLDER "/manifest.txt");
  std::vector<std::string> lines;
  for (std::string line; std::getline(file, line);) {
    if (line.rfind(preset + " ", 0) == 0) {
      lines.push_back(line);
    }
  }
  return lines;
}

// A line with the hash left out where this machine's C library is not that of the manifest and the
// numbers are therefore compared one by one.
std::string Comparable(const std::string& line) {
  const bool isClose = line.find(" close ") != std::string::npos;
  return isClose && kNumberTolerance > 0.0 ? line.substr(0, line.rfind(' ')) : line;
}

std::vector<std::string> LinesOf(const std::string& text) {
  std::istringstream stream(text);
  std::vector<std::string> lines;
  for (std::string line; std::getline(stream, line);) {
    lines.push_back(line);
  }
  return lines;
}

std::vector<double> NumbersOf(const std::string& line) {
  std::istringstream stream(line);
  return {std::istream_iterator<double>(stream), {}};
}

// The difference that a number may have, none with the manifest's own C library. Labels are whole
// numbers and so compared exactly by either rule.
double Tolerance(const RoadOutput& output, double expected) {
  // The quartic's coefficients have six decimals, the first three of them are tiny.
  const bool isQuartic = output.name == "sdf.txt";
  return kNumberTolerance * (isQuartic ? 2e-3 * std::max(1.0, std::fabs(expected)) : 1.0);
}

void ExpectNumbers(const std::string& expectedText, const RoadOutput& output) {
  const std::vector<std::string> expectedLines = LinesOf(expectedText);
  const std::vector<std::string> lines = LinesOf(output.bytes);
  ASSERT_EQ(lines.size(), expectedLines.size());
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const std::vector<double> expected = NumbersOf(expectedLines[i]);
    const std::vector<double> numbers = NumbersOf(lines[i]);
    ASSERT_FALSE(expected.empty());
    ASSERT_EQ(numbers.size(), expected.size()) << "line " << i;
    for (std::size_t j = 0; j < numbers.size(); ++j) {
      EXPECT_NEAR(numbers[j], expected[j], Tolerance(output, expected[j])) << "line " << i;
    }
  }
}

tools::Comparison CompareWithTruth(const DetectionRoad& road) {
  std::vector<tools::ListedPoint> points;
  for (const CalibrationPoint& point : road.points) {
    points.push_back({point.id, point.row, point.col, static_cast<double>(point.x),
                      static_cast<double>(point.y)});
  }
  return tools::ComparePoints(points, road.target.marks, kMatchTolerance);
}

TEST_P(DetectionRoadTest, LeavesTheOutputsOfTheManifest) {
  std::vector<std::string> expected;
  for (const std::string& line : ExpectedManifest(GetParam())) {
    expected.push_back(Comparable(line));
  }
  ASSERT_FALSE(expected.empty());
  std::vector<std::string> lines;
  for (const RoadOutput& output : Road().outputs) {
    lines.push_back(Comparable(ManifestLine(GetParam(), output)));
  }
  EXPECT_EQ(lines, expected);
}

TEST_P(DetectionRoadTest, FindsTheNumbersBesideTheManifest) {
  int compared = 0;
  for (const RoadOutput& output : Road().outputs) {
    if (!output.isNumbers) {
      continue;
    }
    SCOPED_TRACE(output.name);
    ExpectNumbers(ReadText(QUORVEX_ROAD_FOLDER "/" + NumbersFileName(GetParam(), output)), output);
    ++compared;
  }
  EXPECT_GE(compared, 3);  // the points and the two grids at least
}

TEST_P(DetectionRoadTest, FindsEveryMarkWhereTheTruthHasIt) {
  constexpr double kLargestRms = 0.35;  // pixels; the refinement samples whole pixels
  ASSERT_TRUE(Road().hasSucceeded);
  const tools::Comparison comparison = CompareWithTruth(Road());
  EXPECT_EQ(comparison.missed, 0);
  EXPECT_EQ(comparison.extra, 0);
  EXPECT_EQ(comparison.wrongLabels, 0);
  EXPECT_EQ(comparison.filledIn.count, comparison.leftOutMarks);
  EXPECT_EQ(comparison.found.count + comparison.leftOutMarks,
            static_cast<int>(Road().target.marks.size()));
  EXPECT_LT(comparison.found.rms, kLargestRms);
  RecordProperty("rms", std::to_string(comparison.found.rms));
}

TEST_P(DetectionRoadTest, OrdersThePointsByIdFromTheTopLeft) {
  const PointList& points = Road().points;
  ASSERT_FALSE(points.empty());
  for (std::size_t i = 0; i < points.size(); ++i) {
    EXPECT_EQ(points[i].id, static_cast<int>(i) + 1);
  }
  EXPECT_LT(points.front().y, points.back().y);
  EXPECT_LT(points.front().x, points.back().x);
}

INSTANTIATE_TEST_SUITE_P(Presets, DetectionRoadTest,
                         ::testing::Values("fisheye", "easy", "tilted", "dropped", "large"),
                         [](const auto& preset) { return preset.param; });

}  // namespace
}  // namespace quorvex::tests
