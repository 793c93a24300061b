#include "tests/reference/preprocess.h"

#include "preprocess/outline_level.h"

namespace quorvex::plain {

GrayImage MakeTargetMask(const GrayImage& working) {
  constexpr unsigned char kInsideMask = 255;
  GrayImage mask(working.Width(), working.Height());
  for (std::size_t i = 0; i < working.Size(); ++i) {
    mask.Data()[i] = working.Data()[i] == kInsideLevel ? kInsideMask : 0;
  }
  return mask;
}

GrayImage MakeTargetRegion(const unsigned char* input, const GrayImage& working) {
  GrayImage region(input, working.Width(), working.Height());
  for (std::size_t i = 0; i < working.Size(); ++i) {
    if (working.Data()[i] != kInsideLevel) {
      region.Data()[i] = 0;
    }
  }
  return region;
}

}  // namespace quorvex::plain
