// The direct detector finds the same marks in every build: those of a list that one build wrote.
#include "tests/road/direct_road.h"

#include <gtest/gtest.h>

#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/bytes.h"

namespace quorvex::tests {
namespace {

constexpr double kTolerance = QUORVEX_POSITION_TOLERANCE;  // px

struct ListedMark {
  int row = 0;
  int column = 0;
  double x = 0.0;  // px
  double y = 0.0;  // px
  std::string verdict;
};

struct PositionsList {
  std::string picture;
  std::vector<ListedMark> marks;
};

PositionsList ReadList(const std::string& preset) {
  std::istringstream text(ReadText(QUORVEX_ROAD_FOLDER "/" + PositionsFileName(preset)));
  PositionsList list;
  std::string word;
  text >> word >> list.picture;
  ListedMark mark;
  while (text >> mark.row >> mark.column >> mark.x >> mark.y >> mark.verdict) {
    list.marks.push_back(mark);
  }
  return list;
}

class DirectRoadTest : public ::testing::TestWithParam<const char*> {
 protected:
  // All tests of a preset look at one detection.
  static const DirectRoad& Road() {
    static std::map<std::string, DirectRoad> roads;
    const auto known = roads.find(GetParam());
    return known != roads.end()
               ? known->second
               : roads.emplace(GetParam(), RunDirectRoad(GetParam())).first->second;
  }
};

// A difference here is one of the renderer.
TEST_P(DirectRoadTest, SeesThePictureOfTheList) {
  EXPECT_EQ(Road().picture, ReadList(GetParam()).picture);
}

TEST_P(DirectRoadTest, FindsTheMarksOfTheList) {
  const std::vector<ListedMark> listed = ReadList(GetParam()).marks;
  const std::vector<precise::Mark>& marks = Road().result.marks;
  ASSERT_FALSE(listed.empty());
  ASSERT_EQ(marks.size(), listed.size()) << Road().result.reason;
  for (std::size_t i = 0; i < marks.size(); ++i) {
    SCOPED_TRACE(testing::Message() << "row " << listed[i].row << ", column " << listed[i].column);
    EXPECT_EQ(marks[i].row, listed[i].row);
    EXPECT_EQ(marks[i].column, listed[i].column);
    EXPECT_NEAR(marks[i].x, listed[i].x, kTolerance);
    EXPECT_NEAR(marks[i].y, listed[i].y, kTolerance);
    EXPECT_EQ(VerdictName(marks[i].verdict), listed[i].verdict);
  }
}

INSTANTIATE_TEST_SUITE_P(Presets, DirectRoadTest, ::testing::ValuesIn(kDirectPresets),
                         [](const auto& preset) { return std::string(preset.param); });

}  // namespace
}  // namespace quorvex::tests
