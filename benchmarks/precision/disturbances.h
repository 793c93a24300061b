// What happens to a picture between the board and the file, besides blur and noise.
#ifndef QUORVEX_BENCHMARKS_PRECISION_DISTURBANCES_H_
#define QUORVEX_BENCHMARKS_PRECISION_DISTURBANCES_H_

#include <cstdint>

#include "benchmarks/precision/scene.h"
#include "tools/render/picture_effects.h"

namespace quorvex::benchmarks {

// The light's gradients of the renderer's settings.
void ApplyGradient(tools::LevelPicture& picture, const tools::RenderSettings& target);

// All of a disturbance but the compression. The seed chooses the blotches.
void Disturb(tools::LevelPicture& picture, const Disturbance& disturbance, std::uint64_t seed);

}  // namespace quorvex::benchmarks

#endif  // QUORVEX_BENCHMARKS_PRECISION_DISTURBANCES_H_
