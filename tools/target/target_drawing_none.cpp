#include "tools/errors.h"
#include "tools/target/target_drawing.h"

namespace quorvex::tools {

std::vector<std::uint8_t> DrawTarget(const TargetLayout&, DrawingFormat) {
  throw InputError(
      "this build of quorvex draws no targets, since it was made without cairo; target --check "
      "works");
}

}  // namespace quorvex::tools
