// Which arms of two marks point at one another, and which of these links are one step of the board.
//
// Each arm looks for the nearest mark that lies ahead and points back with an arm of like length
// and contrast; two arms that choose each other are linked. The distance over the sum of both arms'
// lengths is much the same all over a board, since arms shrink as distances do: its smallest
// well-populated value is one step, and links that skip an absent mark have twice that.
#ifndef QUORVEX_PRECISE_MARK_LINKS_H_
#define QUORVEX_PRECISE_MARK_LINKS_H_

#include <Eigen/Core>
#include <array>
#include <vector>

#include "precise/mark_candidate.h"

namespace quorvex::precise {

constexpr int kNoMark = -1;

// What an arm is linked to.
struct ArmLink {
  int mark = kNoMark;  // index of the other mark
  int arm = 0;         // of the other mark
};

struct MarkLinks {
  std::vector<std::array<ArmLink, 4>>
      links;               // one step, by mark and arm; both ends name each other
  double stepRatio = 0.0;  // distance over the sum of the arms; 0 when nothing is linked
};

// For marks of a picture of `width` by `height` px. The time grows with the marks, not with their
// square.
MarkLinks FindMarkLinks(const std::vector<MarkCandidate>& marks, int width, int height);

}  // namespace quorvex::precise

#endif  // QUORVEX_PRECISE_MARK_LINKS_H_
