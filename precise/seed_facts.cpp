#include "precise/seed_facts.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include "precise/board_facts.h"
#include "precise/median.h"

namespace quorvex::precise {
namespace {

constexpr std::size_t kStrongMarks = 14;  // more do not tell width and blur any better
constexpr double kShortestArm = 0.15;     // pitches
constexpr double kLongestArm = 0.48;      // pitches, to start from
constexpr double kNoArm = 0.0;            // grey levels of contrast

double WeakestArm(const SeedMark& mark) {
  double weakest = mark.arms[0].contrast;
  for (const SeedArm& arm : mark.arms) {
    weakest = std::min(weakest, arm.isSeen ? arm.contrast : kNoArm);
  }
  return weakest;
}

// The strongest marks with four arms, spread over the seed.
std::vector<SeedMark> StrongMarks(const Seed& seed) {
  std::vector<std::pair<double, std::size_t>> contrasts;
  for (std::size_t i = 0; i < seed.marks.size(); ++i) {
    contrasts.emplace_back(-WeakestArm(seed.marks[i]), i);
  }
  std::sort(contrasts.begin(), contrasts.end());
  const std::size_t strong =
      std::min(contrasts.size(), std::max(kStrongMarks, 2 * contrasts.size() / 3));
  const std::size_t stride = std::max<std::size_t>(1, strong / kStrongMarks);
  std::vector<SeedMark> marks;
  for (std::size_t i = 0; i < strong && marks.size() < kStrongMarks; i += stride) {
    marks.push_back(seed.marks[contrasts[i].second]);
  }
  return marks;
}

}  // namespace

bool MeasureSeedFacts(const GrayPicture& picture, const Seed& seed, const BoardMap& map,
                      BoardFacts& facts) {
  BoardFacts scale;
  scale.strokeWidth = {0.03, 0.03};
  scale.armEnd = 0.5;
  std::vector<GridLabel> labels;
  std::vector<double> ends;
  for (const SeedMark& mark : StrongMarks(seed)) {
    labels.push_back({mark.row, mark.column});
    MarkFrame frame;
    if (map.Frame(mark.row, mark.column, scale, frame)) {
      for (std::size_t arm = 0; arm < 4; ++arm) {
        ends.push_back(0.5 * mark.arms[arm].length / frame.armLength[arm % 2][arm / 2]);
      }
    }
  }
  if (ends.empty()) {
    return false;
  }
  const double end = std::clamp(MedianOf(ends), kShortestArm, kLongestArm);
  return MeasureBoard(picture, map, labels, seed.noise, end, facts);
}

}  // namespace quorvex::precise
