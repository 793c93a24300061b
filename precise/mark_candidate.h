// A cross mark that may be one, with what is known of its arms before it has a label.
#ifndef QUORVEX_PRECISE_MARK_CANDIDATE_H_
#define QUORVEX_PRECISE_MARK_CANDIDATE_H_

#include <Eigen/Core>
#include <array>

namespace quorvex::precise {

struct MarkArm {
  bool isSeen = false;
  Eigen::Vector2d direction = Eigen::Vector2d::Zero();  // unit vector; predicted where not seen
  double length = 0.0;                                  // px, from the centre to the arm's end
  double contrast = 0.0;                                // grey levels against the weaker side
  bool isCrossed = false;                               // ends where another stroke lies across
  double palest = 0.0;  // of the contrast, at the palest place before the end; near 1 without a gap
};

// Arms k and k + 2 belong to one stroke; they follow one another clockwise as the picture is seen,
// from +x to +y. At least one arm of either stroke is seen.
struct MarkCandidate {
  Eigen::Vector2d centre = Eigen::Vector2d::Zero();  // px of the picture
  std::array<MarkArm, 4> arms;
  int level = 0;  // of the pyramid, at which its arms were found

  int ArmsSeen() const {
    int seen = 0;
    for (const MarkArm& arm : arms) {
      seen += arm.isSeen ? 1 : 0;
    }
    return seen;
  }
};

inline double Cross(const Eigen::Vector2d& a, const Eigen::Vector2d& b) {
  return a.x() * b.y() - a.y() * b.x();
}

}  // namespace quorvex::precise

#endif  // QUORVEX_PRECISE_MARK_CANDIDATE_H_
