// Draws cross marks for the tests of the direct detector: straight strokes with edges one pixel
// soft.
#ifndef QUORVEX_TESTS_PRECISE_MARK_DRAWING_H_
#define QUORVEX_TESTS_PRECISE_MARK_DRAWING_H_

#include <Eigen/Core>
#include <vector>

#include "precise/gray_picture.h"
#include "precise/mark_candidate.h"

namespace quorvex::tests {

// An unturned mark of the sizes that most tests use.
struct DrawnMark {
  Eigen::Vector2d centre = Eigen::Vector2d::Zero();  // px
  std::vector<double> angles = {0, 90, 180, 270};    // of the arms, degrees, clockwise from +x
  double length = 30;                                // px, of an arm
  double stroke = 4;                                 // px
  double level = 40;                                 // grey level of the strokes
};

constexpr int kBoardLevel = 200;  // grey level of the pictures that marks are drawn on

// Draws the arms of a mark, each from the centre to its end.
void DrawMark(const DrawnMark& mark, precise::GrayPicture& picture);

// Adds normal noise that depends on the seed alone.
void AddNoise(double sigma, unsigned seed, precise::GrayPicture& picture);

// The unit vector of an angle in degrees, clockwise from +x as the picture is seen.
Eigen::Vector2d DirectionOf(double degrees);

// A board's marks as candidates, without a picture: pitch 100 px, arms of 40 px; mark (row, column)
// is number row * columns + column. Rows run along `degrees`.
std::vector<precise::MarkCandidate> BoardOfCandidates(int rows, int columns, double degrees);

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_PRECISE_MARK_DRAWING_H_
