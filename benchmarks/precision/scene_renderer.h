// Renders a scene with the true places of its marks. The blur acts on cells far finer than a pixel,
// before the pixels integrate them: applied to finished pixels it would move strokes that run along
// the pixel rows by up to 0.05 pixels.
#ifndef QUORVEX_BENCHMARKS_PRECISION_SCENE_RENDERER_H_
#define QUORVEX_BENCHMARKS_PRECISION_SCENE_RENDERER_H_

#include "benchmarks/precision/scene.h"
#include "tools/render/picture_effects.h"

namespace quorvex::benchmarks {

// The blurred levels, without the light's gradient, disturbances and noise.
tools::LevelPicture RenderLevels(const Scene& scene);

// Deterministic: the same scene gives the same bytes. The noise is of the target's seed.
RenderedScene RenderScene(const Scene& scene);

}  // namespace quorvex::benchmarks

#endif  // QUORVEX_BENCHMARKS_PRECISION_SCENE_RENDERER_H_
