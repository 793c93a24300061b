// The seed of a board: marks with whole-numbered labels, found without any model of the camera.
//
// Marks are candidates of the pyramid whose arms point at one another (FindLinks), in the largest
// component of links that close cells, and what joins it by prediction. A label that the links do
// not support is never given: a mark in doubt is left out, since growing finds it again. Rows and
// columns count from an arbitrary mark and may be negative; +column and +row of the labels turn
// like +x and +y of the picture, clockwise, so labels are never mirrored.
#ifndef QUORVEX_PRECISE_SEED_H_
#define QUORVEX_PRECISE_SEED_H_

#include <Eigen/Core>
#include <array>
#include <string>
#include <vector>

#include "precise/gray_picture.h"
#include "precise/mark_candidate.h"

namespace quorvex::precise {

using SeedArm = MarkArm;

struct SeedMark {
  int row = 0;
  int column = 0;
  Eigen::Vector2d centre = Eigen::Vector2d::Zero();  // px, good to about 0.3
  std::array<SeedArm, 4> arms;                       // +column, +row, -column, -row
};

struct Seed {
  std::vector<SeedMark> marks;  // by row, then by column; empty when there is no board
  double noise = 0.0;           // grey levels, standard deviation
  double pitch = 0.0;           // px, median distance of neighbours in the seed
  std::string reason;           // why there are no marks; empty when there are
};

enum class BoardLines {
  kOfMarks,    // with gaps between marks; paper with lines through is no board
  kContinuous  // may run through from crossing to crossing
};

// The marks must be dark on a bright board. The same picture gives the same seed.
Seed FindSeed(const GrayPicture& picture, BoardLines lines = BoardLines::kOfMarks);

}  // namespace quorvex::precise

#endif  // QUORVEX_PRECISE_SEED_H_
