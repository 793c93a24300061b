#include <stdexcept>

#include "tools/pictures/jpeg_writer.h"

namespace quorvex::tools {

bool WritesJpeg() { return false; }

std::vector<std::uint8_t> EncodeJpeg(const Picture& /*picture*/, int /*quality*/) {
  throw std::runtime_error("this build of quorvex cannot write JPEG pictures");
}

}  // namespace quorvex::tools
