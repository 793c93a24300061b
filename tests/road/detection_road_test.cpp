// Detection from end to end on the renderer's presets: held to the bit by the manifest, and to the
// truth in pixels.
#include "tests/road/detection_road.h"

#include <gtest/gtest.h>

#include <fstream>
#include <map>

#include "tools/compare/compare_points.h"

namespace quorvex::testing {
namespace {

constexpr double kMatchTolerance = 20.0;  // pixels

class DetectionRoadTest : public ::testing::TestWithParam<std::string> {
 protected:
  // Both tests of a preset look at one detection.
  static const DetectionRoad& Road() {
    static std::map<std::string, DetectionRoad> roads;
    const auto known = roads.find(GetParam());
    return known != roads.end()
               ? known->second
               : roads.emplace(GetParam(), RunDetectionRoad(GetParam())).first->second;
  }
};

std::vector<std::string> ExpectedManifest(const std::string& preset) {
  std::ifstream file(QUORVEX_MANIFEST);
  std::vector<std::string> lines;
  for (std::string line; std::getline(file, line);) {
    if (line.rfind(preset + " ", 0) == 0) {
      lines.push_back(line);
    }
  }
  return lines;
}

tools::Comparison CompareWithTruth(const DetectionRoad& road) {
  std::vector<tools::PointRow> points;
  for (const CalibrationPoint& point : road.points) {
    points.push_back({point.id, point.row, point.col, static_cast<double>(point.x),
                      static_cast<double>(point.y)});
  }
  return tools::ComparePoints(points, road.target.marks, kMatchTolerance);
}

TEST_P(DetectionRoadTest, LeavesTheOutputsOfTheManifest) {
  const std::vector<std::string> expected = ExpectedManifest(GetParam());
  ASSERT_FALSE(expected.empty());
  EXPECT_EQ(Road().manifest, expected);
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
}  // namespace quorvex::testing
