// What measured marks are off from the camera around one label, smoothed: Gaussian process
// regression with a squared exponential kernel over the labels (Rasmussen and Williams, Gaussian
// Processes for Machine Learning, 2006, chapters 2 and 5.4.2).
#ifndef QUORVEX_PRECISE_BOARD_FIELD_H_
#define QUORVEX_PRECISE_BOARD_FIELD_H_

#include <Eigen/Cholesky>
#include <Eigen/Core>
#include <array>
#include <vector>

namespace quorvex::precise {

constexpr int kFieldWindow = 3;  // labels on each side that a place is smoothed from
constexpr int kFieldReach = 10;  // square of the distance up to which they are, labels

// A measured mark near the field's middle.
struct Deviation {
  int row = 0;  // labels from the middle, -kFieldWindow to kFieldWindow
  int column = 0;
  Eigen::Vector2d away = Eigen::Vector2d::Zero();  // px, measured minus camera
  double variance = 0.0;                           // px^2, of the measurement
};

class BoardField {
 public:
  struct Estimate {
    Eigen::Vector2d away = Eigen::Vector2d::Zero();  // px
    double variance = 0.0;                           // px^2, of each coordinate
  };

  // variance: of what marks are off beyond their own errors, px^2; 0 says that nothing is off.
  BoardField(std::vector<Deviation> marks, double variance);

  // Off at a place that is `column` and `row` pitches from the middle, px.
  Eigen::Vector2d At(double column, double row) const;

  const Estimate& AtMiddle() const { return middle_; }
  // At the middle, as if the middle's own mark had not been measured.
  const Estimate& AtMiddleByOthers() const { return byOthers_; }

 private:
  using Solver = Eigen::LLT<Eigen::MatrixXd>;  // not kept: a board has many fields

  Solver Solve();
  void EstimateWithOwnMark(const Solver& solver);
  void EstimateWithoutOwnMark(const Solver& solver);

  std::vector<Deviation> marks_;  // the middle's own one last
  double variance_;
  Eigen::MatrixX2d weights_;
  Estimate middle_;
  Estimate byOthers_;
};

}  // namespace quorvex::precise

#endif  // QUORVEX_PRECISE_BOARD_FIELD_H_
