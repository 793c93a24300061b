#include "precise/board_cells.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <map>
#include <utility>

namespace quorvex::precise {
namespace {

constexpr double kLongestSide = 2.2;  // over the opposite side of a cell; 1.5 in the widest views

// How many cells each link, by mark and arm, belongs to: none, one or two.
using CellCounts = std::vector<std::array<int, 4>>;

struct Corner {
  std::size_t mark;
  std::size_t arm;  // along which the way round the cell leaves
};

// Goes round the cell to the clockwise side of an arm: along the arm, then turning clockwise at
// each mark.
bool GoRound(const MarkLinks& links, std::size_t mark, std::size_t arm,
             std::array<Corner, 4>& corners) {
  Corner at{mark, arm};
  for (Corner& corner : corners) {
    corner = at;
    const ArmLink& link = links.links[at.mark][at.arm];
    if (link.mark == kNoMark) {
      return false;
    }
    at = {static_cast<std::size_t>(link.mark), static_cast<std::size_t>(link.arm + 3) % 4};
  }
  return at.mark == mark && at.arm == arm;
}

// Four different marks whose opposite sides are of like length and that turn clockwise at each
// corner.
bool IsCell(const std::vector<MarkCandidate>& marks, const std::array<Corner, 4>& corners) {
  std::array<Eigen::Vector2d, 4> sides;
  for (std::size_t k = 0; k < 4; ++k) {
    sides[k] = marks[corners[(k + 1) % 4].mark].centre - marks[corners[k].mark].centre;
  }
  for (std::size_t k = 0; k < 4; ++k) {
    const double ratio = sides[k].norm() / sides[(k + 2) % 4].norm();
    if (!(ratio < kLongestSide) || !(Cross(sides[k], sides[(k + 1) % 4]) > 0)) {
      return false;
    }
  }
  return true;
}

CellCounts CountCells(const std::vector<MarkCandidate>& marks, const MarkLinks& links) {
  CellCounts counts(marks.size());
  std::array<Corner, 4> corners{};
  for (std::size_t i = 0; i < marks.size(); ++i) {
    for (std::size_t k = 0; k < 4; ++k) {
      // Each cell is met at its four corners; its sides are counted at both ends.
      if (GoRound(links, i, k, corners) && IsCell(marks, corners)) {
        ++counts[i][k];
        const ArmLink& link = links.links[i][k];
        ++counts[static_cast<std::size_t>(link.mark)][static_cast<std::size_t>(link.arm)];
      }
    }
  }
  return counts;
}

// Labels spread from one mark over the links that belong to `least` cells; empty when they
// contradict.
class Component {
 public:
  Component(const MarkLinks& links, const CellCounts& counts, int least)
      : links_(links), counts_(counts), least_(least), index_(counts.size(), -1) {}

  bool IsLabelled(std::size_t mark) const { return index_[mark] >= 0; }

  std::vector<LabelledMark> Spread(std::size_t start) {
    std::vector<LabelledMark> found{{static_cast<int>(start), 0, 0, 0}};
    index_[start] = 0;
    std::map<std::pair<int, int>, int> places{{{0, 0}, static_cast<int>(start)}};
    bool isSound = true;
    for (std::size_t next = 0; next < found.size(); ++next) {
      const LabelledMark from = found[next];
      for (std::size_t k = 0; k < 4; ++k) {
        if (counts_[static_cast<std::size_t>(from.mark)][k] < least_) {
          continue;
        }
        const ArmLink& link = links_.links[static_cast<std::size_t>(from.mark)][k];
        const LabelledMark to = LabelBeyond(from, static_cast<int>(k), link);
        int& index = index_[static_cast<std::size_t>(link.mark)];
        if (index >= 0) {
          const LabelledMark& known = found[static_cast<std::size_t>(index)];
          isSound =
              isSound && known.row == to.row && known.column == to.column && known.turn == to.turn;
          continue;
        }
        isSound = isSound && places.insert({{to.row, to.column}, to.mark}).second;
        index = static_cast<int>(found.size());
        found.push_back(to);
      }
    }
    return isSound ? found : std::vector<LabelledMark>();
  }

 private:
  const MarkLinks& links_;
  const CellCounts& counts_;
  int least_;
  std::vector<int> index_;  // of each mark in its component's list, -1 without
};

std::vector<LabelledMark> LargestComponent(const MarkLinks& links, const CellCounts& counts,
                                           int least, bool* isSound) {
  std::vector<LabelledMark> largest;
  *isSound = true;
  Component component(links, counts, least);
  for (std::size_t i = 0; i < counts.size(); ++i) {
    bool hasCell = false;
    for (const int count : counts[i]) {
      hasCell = hasCell || count >= least;
    }
    if (hasCell && !component.IsLabelled(i)) {
      std::vector<LabelledMark> found = component.Spread(i);
      *isSound = *isSound && !found.empty();
      if (found.size() > largest.size()) {
        largest = std::move(found);
      }
    }
  }
  return largest;
}

}  // namespace

LabelledMark LabelBeyond(const LabelledMark& from, int arm, const ArmLink& link) {
  const int direction = (arm + from.turn) % 4;
  // The other arm points the opposite way.
  return {link.mark, from.row + kRowStep[direction], from.column + kColumnStep[direction],
          (direction + 2 - link.arm + 4) % 4};
}

std::vector<LabelledMark> LabelLargestComponent(const std::vector<MarkCandidate>& marks,
                                                const MarkLinks& links) {
  const CellCounts counts = CountCells(marks, links);
  bool isSound = true;
  std::vector<LabelledMark> largest = LargestComponent(links, counts, 1, &isSound);
  if (!isSound) {
    // Links inside of the board belong to two cells; wrong ones rarely do.
    std::vector<LabelledMark> inner = LargestComponent(links, counts, 2, &isSound);
    if (inner.size() > largest.size()) {
      largest = std::move(inner);
    }
  }
  return largest;
}

}  // namespace quorvex::precise
