// The scenes of the measuring stick, row by row. Everything random in them comes from their seeds.
#ifndef QUORVEX_BENCHMARKS_PRECISION_SCENE_SETS_H_
#define QUORVEX_BENCHMARKS_PRECISION_SCENE_SETS_H_

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "benchmarks/precision/scene.h"

namespace quorvex::benchmarks {

struct SceneRow {
  std::string table;  // which table of the report it belongs to
  std::string name;
  int seeds = 0;  // how many scenes of it are shown
  std::function<Scene(std::uint64_t seed)> make;
};

// In the order of the report. Making a row renders nothing.
std::vector<SceneRow> AllSceneRows();

}  // namespace quorvex::benchmarks

#endif  // QUORVEX_BENCHMARKS_PRECISION_SCENE_SETS_H_
