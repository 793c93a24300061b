#include "tools/pictures/grey_levels.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <system_error>

#include "tools/errors.h"

namespace quorvex::tools {
namespace {

constexpr int kWhite = 255;  // grey level

// The whole of a text as a value of a sample.
bool ParseSample(const std::string& text, int& value) {
  const char* end = text.data() + text.size();
  const std::from_chars_result result = std::from_chars(text.data(), end, value);
  return result.ec == std::errc() && result.ptr == end && value >= 0 && value <= kLargestSample;
}

}  // namespace

GreyLevels ParseGreyLevels(const std::string& text) {
  GreyLevels levels;
  const std::size_t comma = text.find(',');
  const bool isPair = comma != std::string::npos &&
                      ParseSample(text.substr(0, comma), levels.low) &&
                      ParseSample(text.substr(comma + 1), levels.high);
  if (!isPair || levels.low >= levels.high) {
    throw InputError(
        fmt::format("--levels: {} is not LOW,HIGH, two whole numbers from 0 to {}, LOW below HIGH",
                    text, kLargestSample));
  }
  return levels;
}

std::string GreyLevelsText(GreyLevels levels) {
  return fmt::format("{},{}", levels.low, levels.high);
}

GreyScale::GreyScale(int largest, const std::optional<GreyLevels>& levels)
    : grey_(std::size_t{kLargestSample} + 1) {
  const GreyLevels range = levels.value_or(GreyLevels{0, largest});
  const int span = range.high - range.low;
  for (int value = 0; value <= kLargestSample; ++value) {
    const int above = std::clamp(value - range.low, 0, span);
    // 255 * 65535 fits an int.
    grey_[static_cast<std::size_t>(value)] =
        static_cast<std::uint8_t>((above * kWhite + span / 2) / span);
  }
}

}  // namespace quorvex::tools
