// How the values of pictures with more than 8 bits a sample become grey levels.
#ifndef QUORVEX_TOOLS_PICTURES_GREY_LEVELS_H_
#define QUORVEX_TOOLS_PICTURES_GREY_LEVELS_H_

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quorvex::tools {

// The largest value of 16 bits, for files that do not tell a largest value of their own.
constexpr int kLargestSample = 65535;

// Two values of a picture file, low < high: what becomes black and what becomes white.
struct GreyLevels {
  int low = 0;
  int high = kLargestSample;
};

// "300,4095". Throws InputError (tools/errors.h) for anything but two whole numbers from 0 to
// 65535, the lower one first.
GreyLevels ParseGreyLevels(const std::string& text);
std::string GreyLevelsText(GreyLevels levels);

// The grey of a file's values: 0 up to `low`, 255 from `high` on, in between linear and rounded to
// the nearest level, halves up.
class GreyScale {
 public:
  // Without `levels` from 0 to `largest`, which the file allows (at least 1).
  GreyScale(int largest, const std::optional<GreyLevels>& levels);

  std::uint8_t operator()(std::uint16_t value) const { return grey_[value]; }

 private:
  std::vector<std::uint8_t> grey_;  // of each value of 16 bits
};

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_PICTURES_GREY_LEVELS_H_
