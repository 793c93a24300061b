#include "precise/arm_judgement.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "precise/median.h"

namespace quorvex::precise {
namespace {

constexpr double kWeakest = 0.45;      // of the median darkness; weaker is not this stroke
constexpr double kStrongest = 2.0;     // of the median darkness
constexpr double kSeenContrast = 0.4;  // of the darkness, against the weaker side
constexpr double kSeenPart = 0.6;      // of an arm's blocks
constexpr int kFewestSeen = 2;         // blocks of an arm; one has no direction
constexpr double kModelMisfit = 0.12;  // of the darkness: what the profile itself may be off
constexpr double kNoiseMisfit = 9.0;   // times the noise's variance

using Index = std::size_t;

bool ShowsStroke(const StrokeLook& look, const Block& block) {
  const double modelMisfit = kModelMisfit * look.darkness;
  const double misfit = kNoiseMisfit * look.noise * look.noise + modelMisfit * modelMisfit;
  return block.information > 0.0 && block.darkness > kWeakest * look.darkness &&
         block.darkness < kStrongest * look.darkness &&
         block.contrast > kSeenContrast * look.darkness * look.peak &&
         (!look.isNear || block.misfit < misfit);
}

}  // namespace

double TypicalDarkness(const std::vector<Block>& blocks) {
  std::vector<double> values;
  for (const Block& block : blocks) {
    if (block.information > 0.0 && block.contrast > 0.0) {
      values.push_back(block.darkness);
    }
  }
  return MedianOf(values);
}

std::array<ArmFit, 2> JudgeArms(const StrokeLook& look, const std::array<ArmSpan, 2>& spans,
                                std::vector<Block>& blocks) {
  const auto leaveOut = [&blocks](auto isLeftOut) {
    blocks.erase(std::remove_if(blocks.begin(), blocks.end(), isLeftOut), blocks.end());
  };
  leaveOut([&look](const Block& block) { return !ShowsStroke(look, block); });
  std::array<ArmFit, 2> arms;
  std::array<int, 2> counts = {};
  for (const Block& block : blocks) {
    const Index index = static_cast<Index>(block.arm);
    arms[index].contrast += block.contrast;
    arms[index].lastSeen = std::max(arms[index].lastSeen, std::abs(block.along));
    ++counts[index];
  }
  for (Index i = 0; i < 2; ++i) {
    if (counts[i] > 0) {
      arms[i].contrast /= counts[i];
      arms[i].seenPart = static_cast<double>(counts[i]) / spans[i].count;
    }
    arms[i].isSeen = counts[i] >= kFewestSeen && arms[i].seenPart >= kSeenPart;
  }
  leaveOut([&arms](const Block& block) { return !arms[static_cast<Index>(block.arm)].isSeen; });
  return arms;
}

}  // namespace quorvex::precise
