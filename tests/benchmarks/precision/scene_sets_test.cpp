#include "benchmarks/precision/scene_sets.h"

#include <gtest/gtest.h>

#include <set>

#include "benchmarks/precision/scene_truth.h"

namespace quorvex::tests {

using namespace benchmarks;

namespace {

int VisibleCount(const Scene& scene) {
  int count = 0;
  for (const SceneMark& mark : TrueMarks(scene)) {
    count += mark.isVisible ? 1 : 0;
  }
  return count;
}

TEST(SceneSets, EachSceneShowsABoard) {
  std::set<std::string> names;
  for (const SceneRow& row : AllSceneRows()) {
    EXPECT_TRUE(names.insert(row.name).second) << row.name;
    EXPECT_GE(row.seeds, 3) << row.name;
    for (int seed = 1; seed <= row.seeds; ++seed) {
      const Scene scene = row.make(static_cast<std::uint64_t>(seed));
      const int marks = scene.target.rows * scene.target.columns;
      EXPECT_GT(VisibleCount(scene), marks / 3) << row.name << " " << seed;
      EXPECT_GT(VisibleCount(scene), 12) << row.name << " " << seed;
    }
  }
}

TEST(SceneSets, SeedsDecideAboutEverything) {
  for (const SceneRow& row : AllSceneRows()) {
    const Scene first = row.make(1);
    const Scene again = row.make(1);
    const Scene other = row.make(2);
    EXPECT_EQ(first.target.principalX, again.target.principalX) << row.name;
    EXPECT_EQ(first.target.seed, again.target.seed) << row.name;
    EXPECT_NE(first.target.seed, other.target.seed) << row.name;
  }
}

TEST(SceneSets, WhatIsCutOrHiddenIsSo) {
  int cut = 0;
  int hidden = 0;
  for (const SceneRow& row : AllSceneRows()) {
    for (const std::uint64_t seed : {1, 2, 3, 4, 5}) {
      const int lost = 169 - VisibleCount(row.make(seed));
      if (row.name.find("cut by the frame") == 0) {
        cut += lost;
      } else if (row.name.find("three discs") == 0) {
        hidden += lost;
      } else if (row.table == "Scenes") {
        EXPECT_EQ(lost, 0) << row.name << " " << seed;
      }
    }
  }
  EXPECT_GT(cut, 50);
  EXPECT_GT(hidden, 5);
}

}  // namespace
}  // namespace quorvex::tests
