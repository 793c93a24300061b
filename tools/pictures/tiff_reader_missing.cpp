#include "tools/pictures/read_failure.h"
#include "tools/pictures/tiff_reader.h"

namespace quorvex::tools {

bool ReadsTiff() { return false; }

Picture DecodeTiff(const std::vector<std::uint8_t>& /*bytes*/, const std::string& name,
                   const std::optional<GreyLevels>& /*levels*/) {
  ThrowCannotRead(name, "it is a TIFF file, which this build of quorvex cannot read");
}

}  // namespace quorvex::tools
