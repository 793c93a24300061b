// The direct detector from end to end: a rendered target, and the marks that are found on it.
#ifndef QUORVEX_TESTS_ROAD_DIRECT_ROAD_H_
#define QUORVEX_TESTS_ROAD_DIRECT_ROAD_H_

#include <string>

#include "interface/quorvex_precise.h"

namespace quorvex::tests {

// The renderer's presets whose marks are kept in positions/, one of them without some marks.
constexpr const char* kDirectPresets[] = {"tilted", "dropped"};

struct DirectRoad {
  std::string picture;  // hash of its pixels, 16 digits
  precise::Result result;
};

// Renders the preset of that name and finds its marks, those that are missing predicted.
DirectRoad RunDirectRoad(const std::string& preset);

// "measured", "doubtful" or "predicted".
const char* VerdictName(precise::Verdict verdict);

// The picture's hash, then a line for each mark: row, column, x, y, verdict.
std::string PositionsText(const DirectRoad& road);

// The name of the file beside the manifest that holds the positions of a preset.
std::string PositionsFileName(const std::string& preset);

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_ROAD_DIRECT_ROAD_H_
