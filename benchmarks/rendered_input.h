// Rendered targets as the library takes them.
#ifndef QUORVEX_BENCHMARKS_RENDERED_INPUT_H_
#define QUORVEX_BENCHMARKS_RENDERED_INPUT_H_

#include "base/gray_image.h"
#include "tools/render/render_settings.h"

namespace quorvex::benchmarks {

// The bottom row first.
GrayImage RenderInput(const tools::RenderSettings& settings);

}  // namespace quorvex::benchmarks

#endif  // QUORVEX_BENCHMARKS_RENDERED_INPUT_H_
