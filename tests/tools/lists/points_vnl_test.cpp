#include "tools/lists/points_vnl.h"

#include <gtest/gtest.h>

#include "tools/errors.h"

namespace quorvex::tests {

using namespace tools;

namespace {

TEST(PointsVnl, HasABlockForEveryPicture) {
  BoardTable table{{1, 3}, {}};
  table.views.push_back({"a.png",
                         9,
                         9,
                         {ListedPoint{1, 0, 0, 1.25, 2, PointKind::kMeasured}, std::nullopt,
                          ListedPoint{3, 0, 2, 700.123456, 3, PointKind::kDoubtful}}});
  table.views.push_back({"b.png", 9, 9, {}, "too dark"});
  EXPECT_EQ(
      FormatPointsVnl(table),
      "# filename x y level\na.png 1.25 2 0\na.png - - -\na.png 700.123456 3 1\nb.png - - -\n");
}

TEST(PointsVnl, RefusesNamesThatWouldBeReadWrongly) {
  RequireVnlName("poses/a-1.png");
  for (const char* name : {"", "a b.png", "#a.png", "a\tb", "a\n"}) {
    EXPECT_THROW(RequireVnlName(name), InputError) << name;
  }
}

}  // namespace
}  // namespace quorvex::tests
