// Where the marks of a scene are, and which of them a detector ought to find.
#ifndef QUORVEX_BENCHMARKS_PRECISION_SCENE_TRUTH_H_
#define QUORVEX_BENCHMARKS_PRECISION_SCENE_TRUTH_H_

#include <vector>

#include "benchmarks/precision/scene.h"

namespace quorvex::benchmarks {

// The marks that are printed on the board and before the camera, wherever they are.
std::vector<SceneMark> TrueMarks(const Scene& scene);

}  // namespace quorvex::benchmarks

#endif  // QUORVEX_BENCHMARKS_PRECISION_SCENE_TRUTH_H_
