#include "tools/pictures/jpeg_reader.h"
#include "tools/pictures/read_failure.h"

namespace quorvex::tools {

bool ReadsJpeg() { return false; }

Picture DecodeJpeg(const std::vector<std::uint8_t>& /*bytes*/, const std::string& name) {
  ThrowCannotRead(name, "it is a JPEG file, which this build of quorvex cannot read");
}

}  // namespace quorvex::tools
