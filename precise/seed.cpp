#include "precise/seed.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

#include "precise/board_cells.h"
#include "precise/label_check.h"
#include "precise/label_map.h"
#include "precise/mark_candidates.h"
#include "precise/mark_joining.h"
#include "precise/mark_links.h"
#include "precise/median.h"
#include "precise/noise_estimate.h"
#include "precise/pyramid.h"

namespace quorvex::precise {
namespace {

constexpr int kSmallestSide = 16;       // px; smaller pictures hold no board
constexpr std::size_t kLeastMarks = 6;  // two cells side by side
constexpr double kRunThrough =
    0.62;                       // of the distance of two marks, that an arm without end covers
constexpr double kNoGap = 0.8;  // of the contrast, at the palest place of a line without gaps

// Whether most neighbours are joined by a line without a gap.
bool AreLinesContinuous(const std::vector<MarkCandidate>& marks,
                        const std::vector<LabelledMark>& labelled) {
  const LabelMap map(marks, labelled);
  int steps = 0;
  int continuous = 0;
  for (const LabelledMark& label : labelled) {
    const MarkCandidate& mark = marks[static_cast<std::size_t>(label.mark)];
    for (std::size_t k = 0; k < 4; ++k) {
      const int direction = (static_cast<int>(k) + label.turn) % 4;
      const LabelledMark* next =
          map.Find(label.row + kRowStep[direction], label.column + kColumnStep[direction]);
      const MarkArm& arm = mark.arms[k];
      if (next == nullptr || !arm.isSeen) {
        continue;
      }
      const double distance =
          (marks[static_cast<std::size_t>(next->mark)].centre - mark.centre).norm();
      ++steps;
      continuous += arm.length > kRunThrough * distance && arm.palest > kNoGap ? 1 : 0;
    }
  }
  return 2 * continuous > steps;
}

// How the labels must be turned for +column to be the direction that is nearest to +x.
int TurnToX(const std::vector<MarkCandidate>& marks, const std::vector<LabelledMark>& labelled) {
  std::array<double, 4> towardsX{};
  for (const LabelledMark& label : labelled) {
    for (std::size_t k = 0; k < 4; ++k) {
      towardsX[(k + static_cast<std::size_t>(label.turn)) % 4] +=
          marks[static_cast<std::size_t>(label.mark)].arms[k].direction.x();
    }
  }
  const auto best = std::max_element(towardsX.begin(), towardsX.end());
  return (4 - static_cast<int>(best - towardsX.begin())) % 4;
}

SeedMark MarkOf(const std::vector<MarkCandidate>& marks, const LabelledMark& label, int turn) {
  const MarkCandidate& candidate = marks[static_cast<std::size_t>(label.mark)];
  SeedMark mark;
  mark.centre = candidate.centre;
  mark.row = label.row;
  mark.column = label.column;
  // A quarter turn makes +column what was -row.
  for (int k = 0; k < turn; ++k) {
    const int column = mark.column;
    mark.column = -mark.row;
    mark.row = column;
  }
  for (std::size_t k = 0; k < 4; ++k) {
    mark.arms[(k + static_cast<std::size_t>(label.turn + turn)) % 4] = candidate.arms[k];
  }
  return mark;
}

// The median distance of neighbours in a row or a column.
double MedianPitch(const std::vector<MarkCandidate>& marks,
                   const std::vector<LabelledMark>& labelled) {
  const LabelMap map(marks, labelled);
  std::vector<double> distances;
  for (const LabelledMark& label : labelled) {
    for (std::size_t k = 0; k < 2; ++k) {
      const LabelledMark* next = map.Find(label.row + kRowStep[k], label.column + kColumnStep[k]);
      if (next != nullptr) {
        distances.push_back((marks[static_cast<std::size_t>(next->mark)].centre -
                             marks[static_cast<std::size_t>(label.mark)].centre)
                                .norm());
      }
    }
  }
  return MedianOf(distances);
}

}  // namespace

Seed FindSeed(const GrayPicture& picture, BoardLines lines) {
  Seed seed;
  if (picture.Width() < kSmallestSide || picture.Height() < kSmallestSide) {
    seed.reason = "the picture is smaller than 16 pixels";
    return seed;
  }
  seed.noise = EstimateNoise(picture);
  const std::vector<MarkCandidate> marks =
      FindMarkCandidates(BuildPyramid(picture), seed.noise, lines == BoardLines::kOfMarks);
  if (marks.size() < kLeastMarks) {
    seed.reason = "hardly any place looks like a cross mark";
    return seed;
  }
  const MarkLinks links = FindMarkLinks(marks, picture.Width(), picture.Height());
  std::vector<LabelledMark> labelled = LabelLargestComponent(marks, links);
  if (labelled.size() < kLeastMarks) {
    seed.reason = "the cross marks do not form a grid";
    return seed;
  }
  if (lines == BoardLines::kOfMarks && AreLinesContinuous(marks, labelled)) {
    seed.reason = "the grid is made of continuous lines, not of marks";
    return seed;
  }
  JoinPredictedMarks(marks, links, picture.Width(), picture.Height(), labelled);
  DropUnpredictedMarks(marks, links.stepRatio, labelled);
  if (labelled.size() < kLeastMarks) {
    seed.reason = "the cross marks contradict one another";
    return seed;
  }
  seed.pitch = MedianPitch(marks, labelled);
  const int turn = TurnToX(marks, labelled);
  for (const LabelledMark& label : labelled) {
    seed.marks.push_back(MarkOf(marks, label, turn));
  }
  std::sort(seed.marks.begin(), seed.marks.end(), [](const SeedMark& a, const SeedMark& b) {
    return a.row != b.row ? a.row < b.row : a.column < b.column;
  });
  return seed;
}

}  // namespace quorvex::precise
