// What stages of the direct detector need of a drawn board: its camera, facts and fitted marks.
#ifndef QUORVEX_TESTS_PRECISE_BOARD_VIEWS_H_
#define QUORVEX_TESTS_PRECISE_BOARD_VIEWS_H_

#include <vector>

#include "precise/board_map.h"
#include "precise/seed.h"
#include "tests/precise/drawn_board.h"

namespace quorvex::tests {

// The camera that sees the board where it is drawn, far away, so that the picture is flat.
precise::CameraFit CameraOf(const DrawnBoard& board);

// The same, but with the board behind it.
precise::CameraFit CameraBefore(const DrawnBoard& board);

precise::BoardFacts FactsOf(const DrawnBoard& board);

// All marks that are not missing, at their true places, with variances of (0.01 px)^2.
std::vector<precise::GridMark> TrueMarks(const DrawnBoard& board);

// 5 x 6 marks, 48 px apart, with a noise of 1.5 grey levels.
DrawnBoard NoisyBoard();

// 8 rows of 9 labels, each of which the camera must see.
std::vector<precise::LabelledPoint> PointsSeenBy(const precise::CameraModel& camera);

// Marks of the first rows and columns, a third of a pixel off their places.
precise::Seed SeedOf(const DrawnBoard& board, int rows, int columns);

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_PRECISE_BOARD_VIEWS_H_
