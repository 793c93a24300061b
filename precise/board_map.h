// Where every label of a board is seen: the camera model, and near measured marks what these are
// off from it, smoothed.
#ifndef QUORVEX_PRECISE_BOARD_MAP_H_
#define QUORVEX_PRECISE_BOARD_MAP_H_

#include <Eigen/Core>
#include <array>
#include <map>
#include <utility>
#include <vector>

#include "precise/board_field.h"
#include "precise/camera_fit.h"
#include "precise/mark_fit.h"

namespace quorvex::precise {

struct GridMark {
  int row = 0;
  int column = 0;
  MarkFit fit;
};

// Facts of the whole board, in pitches or px; MeasureBoard finds them.
struct BoardFacts {
  std::array<double, 2> strokeWidth =
      {};                            // of stroke 0 in pitches of the rows, of 1 of the columns
  std::array<double, 2> sigma = {};  // px, blur across each stroke
  double armEnd = 0.4;               // pitches, from a mark's centre to the end of its arms
};

// What is known at a label: the position and how sure it is.
struct Predicted {
  bool isSeen = false;                                   // false: no camera would see it
  Eigen::Vector2d pixel = Eigen::Vector2d::Zero();       // px
  Eigen::Matrix2d covariance = Eigen::Matrix2d::Zero();  // px^2
};

// One map serves one thread: what it says around a label is kept when it is first asked for.
class BoardMap {
 public:
  // Marks of the fit that are not measured are left out. width and height of the picture, px.
  BoardMap(const std::vector<GridMark>& marks, const CameraFit& camera);

  const CameraFit& Camera() const { return camera_; }
  // Standard deviation of what marks are off from the camera beyond their own errors, px.
  double FieldSigma() const { return fieldSigma_; }

  // With `withoutItself` a mark of this label is left out: what the others say of it.
  Predicted At(int row, int column, bool withoutItself) const;

  // The frame of a mark; false where it is not seen. The bend of the strokes comes from this map.
  bool Frame(int row, int column, const BoardFacts& facts, MarkFrame& frame) const;

 private:
  using Label = std::pair<int, int>;  // row, column

  struct Residual {
    Eigen::Vector2d away;  // px, measured minus camera
    double variance;       // px^2, of the measurement
  };

  const BoardField& FieldAround(int row, int column) const;

  CameraFit camera_;
  double fieldSigma_ = 0.0;
  std::map<Label, Residual> residuals_;
  mutable std::map<Label, BoardField> fields_;
};

}  // namespace quorvex::precise

#endif  // QUORVEX_PRECISE_BOARD_MAP_H_
