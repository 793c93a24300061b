// Measures one mark: the crossing of the middle lines of its two strokes, with its covariance and
// what is seen of its four arms.
#ifndef QUORVEX_PRECISE_MARK_FIT_H_
#define QUORVEX_PRECISE_MARK_FIT_H_

#include <Eigen/Core>
#include <array>

#include "precise/arm_judgement.h"
#include "precise/centre_line.h"
#include "precise/gray_picture.h"
#include "precise/stroke_profile.h"

namespace quorvex::precise {

// What is expected of a mark. Stroke 0 runs along +column, stroke 1 along +row; arm 0 along the
// stroke's direction, arm 1 against it.
struct MarkFrame {
  Eigen::Vector2d centre = Eigen::Vector2d::Zero();
  std::array<Eigen::Vector2d, 2> direction = {Eigen::Vector2d::UnitX(),
                                              Eigen::Vector2d::UnitY()};  // unit vectors
  std::array<std::array<double, 2>, 2> bend = {};       // of each stroke: u^2 and u^3 terms
  std::array<double, 2> width = {};                     // px, of each stroke
  std::array<std::array<double, 2>, 2> armLength = {};  // px, [stroke][arm], to its end
  std::array<double, 2> aside = {};  // px along the stroke's normal, by which its middle in the
                                     // picture is off the image of its middle on the board
  double darkness = 0.0;             // grey levels; 0: not known
};

struct MarkFitSettings {
  std::array<const EdgeTables*, 2> edges = {};  // for each stroke
  double noise = 1.0;                           // grey levels
  double armPart = 1.0;                         // of the arms' length that is used
  std::array<double, 2> bendSigma = {};         // px at the end of the arms; BendPrior
  int rounds = 3;                               // at most
  double settled = 0.05;  // px; a step below that is the last, off by a hundredth of it
  bool isNear = false;    // the frame is within a few tenths of a px: the first round may judge
                          // blocks by their residuals already
};

struct MarkFit {
  bool isMeasured = false;
  Eigen::Vector2d centre = Eigen::Vector2d::Zero();      // px, of the board's lines
  Eigen::Matrix2d covariance = Eigen::Matrix2d::Zero();  // px^2
  std::array<Eigen::Vector2d, 2> direction = {Eigen::Vector2d::UnitX(), Eigen::Vector2d::UnitY()};
  std::array<std::array<double, 2>, 2> bend = {};
  std::array<std::array<double, 2>, 2> bendVariance = {};  // of `bend`
  std::array<std::array<ArmFit, 2>, 2> arms = {};          // [stroke][arm]
  double darkness = 0.0;  // grey levels, of the strokes' middles as they are seen
  double squares = 0.0;   // of the blocks' distances from both lines, over their variances
  double freedom = 0.0;

  int SeenArms() const;
  bool SeesBothStrokes() const;
};

// A quick look: false where a mark of this darkness (grey levels) cannot be within `range` px.
bool MayHoldMark(const GrayPicture& picture, const MarkFrame& frame, double range, double darkness);

// A frame moved to where its strokes are darkest, each looked for within `range` px of its line;
// unchanged where nothing is dark.
MarkFrame LookAround(const GrayPicture& picture, const MarkFrame& frame, double range);

MarkFit FitMark(const GrayPicture& picture, const MarkFrame& frame,
                const MarkFitSettings& settings);

}  // namespace quorvex::precise

#endif  // QUORVEX_PRECISE_MARK_FIT_H_
