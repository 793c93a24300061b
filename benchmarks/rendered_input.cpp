#include "benchmarks/rendered_input.h"

#include <algorithm>

#include "tools/render/render_target.h"

namespace quorvex::benchmarks {

GrayImage RenderInput(const tools::RenderSettings& settings) {
  const tools::Picture picture = tools::RenderTarget(settings).picture;
  GrayImage image(picture.width, picture.height);
  for (int y = 0; y < picture.height; ++y) {
    std::copy_n(picture.pixels.data() + PixelOffset(0, y, picture.width), picture.width,
                image.Data() + PixelOffset(0, picture.height - 1 - y, picture.width));
  }
  return image;
}

}  // namespace quorvex::benchmarks
