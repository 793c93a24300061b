#include "preprocess/target_mask.h"

#include "preprocess/outline_level.h"

namespace quorvex {

GrayImage MakeTargetMask(const GrayImage& working) {
  constexpr unsigned char kInsideMask = 255;
  GrayImage mask = GrayImage::Unset(working.Width(), working.Height());
  const unsigned char* level = working.Data();
  unsigned char* __restrict inside = mask.Data();
  const std::size_t size = working.Size();
  for (std::size_t i = 0; i < size; ++i) {
    inside[i] = level[i] == kInsideLevel ? kInsideMask : 0;
  }
  return mask;
}

GrayImage MakeTargetRegion(const unsigned char* input, const GrayImage& working) {
  GrayImage region = GrayImage::Unset(working.Width(), working.Height());
  const unsigned char* level = working.Data();
  unsigned char* __restrict kept = region.Data();
  const std::size_t size = working.Size();
  for (std::size_t i = 0; i < size; ++i) {
    const unsigned char value = input[i];  // read in any case, for the sake of the vectoriser
    kept[i] = level[i] == kInsideLevel ? value : 0;
  }
  return region;
}

}  // namespace quorvex
