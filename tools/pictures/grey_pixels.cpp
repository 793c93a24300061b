#include "tools/pictures/grey_pixels.h"

#include <fmt/format.h>

#include <new>
#include <stdexcept>
#include <utility>

#include "interface/quorvex.h"
#include "tools/errors.h"

namespace quorvex::tools {

std::vector<std::uint8_t> AllocatePixels(std::size_t count, const std::string& name) {
  try {
    return std::vector<std::uint8_t>(count);
  } catch (const std::bad_alloc&) {
  } catch (const std::length_error&) {  // more than any vector holds
  }
  throw InputError(
      fmt::format("cannot read {}: out of memory, {} bytes were asked for", name, count));
}

std::vector<std::uint8_t> GreyPixels(std::vector<std::uint8_t>& samples, int width, int height,
                                     int bitsPerPixel, const std::string& name) {
  const std::size_t sampleBytes = static_cast<std::size_t>(bitsPerPixel / 8);
  std::vector<std::uint8_t> grey = AllocatePixels(samples.size() / sampleBytes, name);
  bool isNeutral = true;
  for (std::size_t i = 0; i < grey.size() && isNeutral; ++i) {
    const std::uint8_t* sample = samples.data() + i * sampleBytes;
    isNeutral = sample[0] == sample[1] && sample[1] == sample[2];
    grey[i] = sample[0];
  }
  if (!isNeutral) {
    ConvertRGBToGray(samples.data(), width, height, bitsPerPixel, grey.data());
  }
  return grey;
}

std::vector<std::uint8_t> GreyOfRgb(std::vector<std::uint8_t>& rgb, int width, int height,
                                    const std::string& name) {
  for (std::size_t i = 0; i + 2 < rgb.size(); i += 3) {
    std::swap(rgb[i], rgb[i + 2]);
  }
  return GreyPixels(rgb, width, height, 24, name);
}

}  // namespace quorvex::tools
