#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "interface/quorvex_c.h"
#include "tests/support/message_box.h"

namespace quorvex::tests {
namespace {

struct Free {
  void operator()(quorvex_points* points) const { quorvex_points_free(points); }
};

class CPointsTest : public ::testing::Test {
 protected:
  ~CPointsTest() override { EXPECT_TRUE(TakeMessages().empty()); }

  // rows x columns points whose spacing shrinks from the middle outwards, with ids -1.
  void FillWithGrid(int rows, int columns) {
    for (int row = 0; row < rows; ++row) {
      for (int column = 0; column < columns; ++column) {
        const float x = static_cast<float>(column) - 0.5f * static_cast<float>(columns - 1);
        const float y = static_cast<float>(row) - 0.5f * static_cast<float>(rows - 1);
        const float scale = 100.0f - 2.0f * (x * x + y * y);
        quorvex_points_add(list.get(), 500.0f + scale * x, 500.0f + scale * y);
      }
    }
  }

  std::vector<int> Ids() const {
    std::vector<int> ids;
    quorvex_point point;
    for (std::size_t i = 0; i < quorvex_points_count(list.get()); ++i) {
      EXPECT_EQ(quorvex_points_get(list.get(), i, &point), QUORVEX_OK);
      ids.push_back(point.id);
    }
    return ids;
  }

  std::unique_ptr<quorvex_points, Free> list{quorvex_points_create()};
};

TEST_F(CPointsTest, NullPointersAreNamed) {
  quorvex_point point = {};
  EXPECT_EQ(quorvex_points_get(nullptr, 0, &point), QUORVEX_ERROR_ARGUMENT);
  EXPECT_STREQ(quorvex_error_detail(), "points: expected a pointer, given NULL");
  quorvex_points_add(list.get(), 1.0f, 2.0f);
  EXPECT_STREQ(quorvex_error_detail(), "");
  EXPECT_EQ(quorvex_points_get(list.get(), 0, nullptr), QUORVEX_ERROR_ARGUMENT);
  EXPECT_STREQ(quorvex_error_detail(), "point: expected a pointer, given NULL");
  EXPECT_EQ(quorvex_points_append(nullptr, &point), QUORVEX_ERROR_ARGUMENT);
  EXPECT_EQ(quorvex_points_append(list.get(), nullptr), QUORVEX_ERROR_ARGUMENT);
  EXPECT_EQ(quorvex_points_clear(nullptr), QUORVEX_ERROR_ARGUMENT);
  EXPECT_EQ(quorvex_points_query(nullptr, 1, &point), QUORVEX_ERROR_ARGUMENT);
  EXPECT_EQ(quorvex_points_query(list.get(), 1, nullptr), QUORVEX_ERROR_ARGUMENT);
  EXPECT_EQ(quorvex_points_delete(nullptr, 1), QUORVEX_ERROR_ARGUMENT);
  EXPECT_EQ(quorvex_points_delete_at(nullptr, 1.0f, 1.0f), QUORVEX_ERROR_ARGUMENT);
  EXPECT_EQ(quorvex_points_add(nullptr, 1.0f, 1.0f), QUORVEX_ERROR_ARGUMENT);
  EXPECT_EQ(quorvex_points_alter(nullptr, &point), QUORVEX_ERROR_ARGUMENT);
  EXPECT_EQ(quorvex_points_alter(list.get(), nullptr), QUORVEX_ERROR_ARGUMENT);
  EXPECT_EQ(quorvex_points_renumber(nullptr, 1, 1), QUORVEX_ERROR_ARGUMENT);
  EXPECT_EQ(quorvex_points_rearrange_left(nullptr, 1), QUORVEX_ERROR_ARGUMENT);
  EXPECT_EQ(quorvex_points_rearrange_right(nullptr, 1), QUORVEX_ERROR_ARGUMENT);
  EXPECT_EQ(quorvex_points_count(nullptr), 0u);
  quorvex_points_free(nullptr);
}

TEST_F(CPointsTest, IndexBeyondTheListIsRefused) {
  quorvex_points_add(list.get(), 1.0f, 2.0f);
  quorvex_point point = {5, 5, 5, 5.0f, 5.0f};
  EXPECT_EQ(quorvex_points_get(list.get(), 1, &point), QUORVEX_ERROR_ARGUMENT);
  EXPECT_STREQ(quorvex_error_detail(),
               "index: expected less than 1, the count of the list, given 1");
  EXPECT_EQ(point.id, 5);
}

TEST_F(CPointsTest, PointsThatAreNotThereChangeNothing) {
  const quorvex_point added = {3, 1, 2, 10.0f, 20.0f};
  ASSERT_EQ(quorvex_points_append(list.get(), &added), QUORVEX_OK);
  quorvex_point point = {9, 0, 0, 0.0f, 0.0f};
  EXPECT_EQ(quorvex_points_query(list.get(), 9, &point), QUORVEX_ERROR_NO_POINT);
  EXPECT_STREQ(quorvex_error_detail(), "id: expected the id of a point in the list, given 9");
  EXPECT_EQ(quorvex_points_alter(list.get(), &point), QUORVEX_ERROR_NO_POINT);
  EXPECT_EQ(quorvex_points_delete(list.get(), 9), QUORVEX_ERROR_NO_POINT);
  EXPECT_EQ(quorvex_points_delete_at(list.get(), 19.0f, 20.0f), QUORVEX_ERROR_NO_POINT);
  ASSERT_EQ(quorvex_points_query(list.get(), 3, &point), QUORVEX_OK);
  EXPECT_EQ(point.row, 1);
  EXPECT_EQ(point.col, 2);
  EXPECT_EQ(point.x, 10.0f);
  EXPECT_EQ(point.y, 20.0f);
}

TEST_F(CPointsTest, RenumbersColumnByColumn) {
  FillWithGrid(2, 3);
  ASSERT_EQ(quorvex_points_renumber(list.get(), 2, 3), QUORVEX_OK) << quorvex_error_detail();
  EXPECT_EQ(Ids(), (std::vector<int>{1, 4, 2, 5, 3, 6}));
}

TEST_F(CPointsTest, AGridOfAnotherSizeStaysAsItIs) {
  FillWithGrid(2, 3);
  EXPECT_EQ(quorvex_points_renumber(list.get(), 2, 2), QUORVEX_ERROR_NO_GRID);
  EXPECT_STREQ(quorvex_error_detail(),
               "points: expected a grid of 2 x 2 points whose spacing shrinks from its middle "
               "outwards, given 6 points");
  EXPECT_EQ(quorvex_points_renumber(list.get(), 1, 6), QUORVEX_ERROR_NO_GRID);
  EXPECT_EQ(Ids(), std::vector<int>(6, -1));
}

TEST_F(CPointsTest, RowsColumnsAndCountsHaveARange) {
  for (const int wrong : {0, -1, 32769}) {
    EXPECT_EQ(quorvex_points_renumber(list.get(), wrong, 1), QUORVEX_ERROR_ARGUMENT);
    EXPECT_EQ(std::string(quorvex_error_detail()),
              "rows: expected 1 to 32768, given " + std::to_string(wrong));
    EXPECT_EQ(quorvex_points_renumber(list.get(), 1, wrong), QUORVEX_ERROR_ARGUMENT);
    EXPECT_EQ(quorvex_points_rearrange_left(list.get(), wrong), QUORVEX_ERROR_ARGUMENT);
    EXPECT_EQ(quorvex_points_rearrange_right(list.get(), wrong), QUORVEX_ERROR_ARGUMENT);
  }
}

TEST_F(CPointsTest, RearrangesForBothCameras) {
  FillWithGrid(2, 2);
  ASSERT_EQ(quorvex_points_renumber(list.get(), 2, 2), QUORVEX_OK);
  ASSERT_EQ(quorvex_points_rearrange_left(list.get(), 2), QUORVEX_OK);
  quorvex_point first = {};
  ASSERT_EQ(quorvex_points_query(list.get(), 1, &first), QUORVEX_OK);
  EXPECT_LT(first.x, 500.0f);
  EXPECT_GT(first.y, 500.0f);
  ASSERT_EQ(quorvex_points_rearrange_right(list.get(), 2), QUORVEX_OK);
}

TEST_F(CPointsTest, CamerasCountAPartialColumnFromDifferentEnds) {
  for (const bool isLeft : {true, false}) {
    ASSERT_EQ(quorvex_points_clear(list.get()), QUORVEX_OK);
    FillWithGrid(3, 3);
    ASSERT_EQ(quorvex_points_renumber(list.get(), 3, 3), QUORVEX_OK);
    ASSERT_EQ(quorvex_points_delete(list.get(), 1), QUORVEX_OK);
    const auto rearrange = isLeft ? quorvex_points_rearrange_left : quorvex_points_rearrange_right;
    ASSERT_EQ(rearrange(list.get(), 3), QUORVEX_OK);
    // The column that lost its uppermost point; it is row 0 now.
    quorvex_point lower = {};
    quorvex_point upper = {};
    ASSERT_EQ(quorvex_points_query(list.get(), isLeft ? 1 : 2, &lower), QUORVEX_OK) << isLeft;
    ASSERT_EQ(quorvex_points_query(list.get(), isLeft ? 2 : 3, &upper), QUORVEX_OK) << isLeft;
    EXPECT_EQ(lower.row, 0);
    EXPECT_EQ(upper.row, 0);
    EXPECT_EQ(lower.col, isLeft ? 0 : 1);
    EXPECT_EQ(upper.col, isLeft ? 1 : 2);
    EXPECT_GT(lower.y, upper.y);
    EXPECT_EQ(quorvex_points_query(list.get(), isLeft ? 3 : 1, &upper), QUORVEX_ERROR_NO_POINT);
  }
}

TEST_F(CPointsTest, AListWithoutSuchColumnsIsNotEmptiedByRearranging) {
  quorvex_points_add(list.get(), 1.0f, 2.0f);
  EXPECT_EQ(quorvex_points_rearrange_left(list.get(), 3), QUORVEX_ERROR_NO_GRID);
  EXPECT_EQ(quorvex_points_rearrange_right(list.get(), 3), QUORVEX_ERROR_NO_GRID);
  EXPECT_EQ(quorvex_points_count(list.get()), 1u);
}

}  // namespace
}  // namespace quorvex::tests
