#include "tools/target/side_lengths.h"

#include <cmath>
#include <cstdlib>

namespace quorvex::tools {
namespace {

// Plain decimal digits, so that neither blanks nor "0x10" nor "inf" pass.
std::optional<double> ParseLength(const std::string& text) {
  if (text.empty() || text.find_first_not_of("0123456789.") != std::string::npos) {
    return std::nullopt;
  }
  char* end = nullptr;
  const double value = std::strtod(text.c_str(), &end);
  if (*end != '\0' || !std::isfinite(value)) {
    return std::nullopt;
  }
  return value;
}

}  // namespace

std::optional<SideLengths> ParseSideLengths(const std::string& text) {
  const std::size_t x = text.find_first_of("xX");
  if (x == std::string::npos) {
    return std::nullopt;
  }
  const std::optional<double> width = ParseLength(text.substr(0, x));
  const std::optional<double> height = ParseLength(text.substr(x + 1));
  if (!width || !height) {
    return std::nullopt;
  }
  return SideLengths{*width, *height};
}

}  // namespace quorvex::tools
