// How dark a straight stroke makes the pixels across it: a box of the stroke's width, seen through
// a Gaussian blur and integrated over square pixels. In units of the stroke's full darkness; the
// distance is that of the pixel's middle from the stroke's middle line, in px.
#ifndef QUORVEX_PRECISE_STROKE_PROFILE_H_
#define QUORVEX_PRECISE_STROKE_PROFILE_H_

#include <Eigen/Core>
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace quorvex::precise {

constexpr double kProfileSamples = 32.0;  // a px; linear between them: off by less than 1e-4

// An edge through blur and pixel, for all directions, in tables; one for each blur of a board.
// Pixels are squares, so that the direction matters: their shadow on the edge's normal is the
// convolution of boxes as wide as the normal's two components. A direction's table is made when it
// is first asked for, so that one object serves one thread.
class EdgeTables {
 public:
  // sigma: of the blur, px; values below 0.1 count as 0.1.
  explicit EdgeTables(double sigma);

  double Sigma() const { return sigma_; }
  double Reach() const { return reach_; }  // px; beyond it an edge is 0 or 1
  // Standard deviation of blur and pixel together, px.
  double TotalSigma() const;

  static int DirectionIndex(const Eigen::Vector2d& normal);

  struct Value {
    double edge;    // the part of a pixel that is covered
    double spread;  // its derivative, 1 / px
  };
  // For pixels `inside` px within the edge, and 1, 2, ... samples further.
  std::vector<Value> Along(int direction, double inside, int count) const;

 private:
  using Table = std::vector<Value>;
  const Table& TableOf(int direction) const;

  double sigma_;
  double reach_;
  int half_ = 0;                       // samples on each side of the edge
  mutable std::vector<Table> tables_;  // by direction; empty until asked for
};

// A stroke of one width and direction.
class StrokeProfile {
 public:
  StrokeProfile() = default;
  // width in px; normal a unit vector across the stroke.
  StrokeProfile(const EdgeTables& edges, const Eigen::Vector2d& normal, double width);

  double Width() const { return width_; }
  double Reach() const { return reach_; }  // px; no darkness beyond
  double TotalSigma() const { return totalSigma_; }
  double Peak() const { return entries_[0].dark; }

  struct Value {
    double dark = 0.0;   // 0 to 1
    double slope = 0.0;  // its derivative across, per px
  };
  Value At(double across) const {
    const Eigen::Array2d pair = PairAt(across);
    return {pair[0], pair[1]};
  }
  // The same as a pair, for sums over many pixels.
  Eigen::Array2d PairAt(double across) const {
    using Entry = Eigen::Map<const Eigen::Array2d>;
    static constexpr double kSign[2][2] = {{1.0, 1.0}, {1.0, -1.0}};
    const double position = std::min(last_, std::abs(across) * kProfileSamples);
    const std::size_t sample = static_cast<std::size_t>(static_cast<int>(position));
    const double part = position - static_cast<int>(position);
    const Entry near(&entries_[sample].dark);
    const Entry far(&entries_[sample + 1].dark);
    return (near + part * (far - near)) * Entry(kSign[across < 0.0 ? 1 : 0]);
  }

 private:
  double width_ = 0.0;
  double reach_ = 0.0;
  double totalSigma_ = 0.0;
  double last_ = 0.0;                                   // index of the last entry but one
  std::vector<Value> entries_ = std::vector<Value>(2);  // from the middle outwards, the last two 0
};

}  // namespace quorvex::precise

#endif  // QUORVEX_PRECISE_STROKE_PROFILE_H_
