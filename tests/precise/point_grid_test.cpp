#include "precise/point_grid.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace quorvex::tests {
namespace {

using precise::PointGrid;

TEST(PointGrid, EveryPointWithinReachIsVisitedOnce) {
  std::mt19937 random(5);
  const auto coordinate = [&random] { return static_cast<double>(random() % 1200) - 100; };
  std::vector<Eigen::Vector2d> points;
  PointGrid grid(1000, 1000, 30);
  for (int i = 0; i < 400; ++i) {
    points.emplace_back(coordinate(), coordinate());
    grid.Add(points.back(), i);
  }
  for (int trial = 0; trial < 100; ++trial) {
    const Eigen::Vector2d at(coordinate(), coordinate());
    std::vector<int> visits(points.size());
    grid.VisitNear(at, 75, [&visits](int index) { ++visits[static_cast<std::size_t>(index)]; });
    for (std::size_t i = 0; i < points.size(); ++i) {
      EXPECT_LE(visits[i], 1);
      if ((points[i] - at).norm() <= 75) {
        EXPECT_EQ(visits[i], 1);
      }
    }
  }
}

TEST(PointGrid, PointsFarAwayAreNotVisited) {
  PointGrid grid(1000, 1000, 30);
  grid.Add({10, 10}, 0);
  int visits = 0;
  grid.VisitNear({500, 500}, 100, [&visits](int) { ++visits; });
  EXPECT_EQ(visits, 0);
}

}  // namespace
}  // namespace quorvex::tests
