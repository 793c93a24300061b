// Small pictures of cross marks with known places, drawn without the detector's own formulas: the
// board is sampled five by five times a pixel, the samples are blurred, then averaged.
#ifndef QUORVEX_TESTS_PRECISE_DRAWN_BOARD_H_
#define QUORVEX_TESTS_PRECISE_DRAWN_BOARD_H_

#include <Eigen/Core>
#include <cstdint>
#include <set>
#include <utility>

#include "precise/gray_picture.h"

namespace quorvex::tests {

struct DrawnBoard {
  int width = 200;   // px
  int height = 200;  // px
  int rows = 1;
  int columns = 1;
  Eigen::Vector2d first = {100, 100};  // px, mark (0, 0)
  Eigen::Vector2d step = {40, 0};      // px from a column to the next; rows follow clockwise
  double arm = 0.4;                    // pitches
  double stroke = 3.0;                 // px
  double blur = 0.7;                   // px
  double board = 200;                  // grey level
  double mark = 40;                    // grey level
  double noise = 0;                    // grey levels
  std::uint32_t seed = 1;
  std::set<std::pair<int, int>> missing;  // row, column

  Eigen::Vector2d Place(double row, double column) const;
  precise::GrayPicture Draw() const;
};

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_PRECISE_DRAWN_BOARD_H_
