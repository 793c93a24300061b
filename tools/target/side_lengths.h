// "297x420": two lengths as they are written in options.
#ifndef QUORVEX_TOOLS_TARGET_SIDE_LENGTHS_H_
#define QUORVEX_TOOLS_TARGET_SIDE_LENGTHS_H_

#include <optional>
#include <string>

namespace quorvex::tools {

struct SideLengths {
  double width = 0;
  double height = 0;
};

// Nothing for anything but two finite numbers with an x between them.
std::optional<SideLengths> ParseSideLengths(const std::string& text);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_TARGET_SIDE_LENGTHS_H_
