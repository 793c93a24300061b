#include "tools/pictures/file_signatures.h"

namespace quorvex::tools {

bool IsJpeg(const std::vector<std::uint8_t>& bytes) {
  return bytes.size() >= 3 && bytes[0] == 0xff && bytes[1] == 0xd8 && bytes[2] == 0xff;
}

bool IsTiff(const std::vector<std::uint8_t>& bytes) {
  if (bytes.size() < 4) {
    return false;
  }
  const bool isLittle = bytes[0] == 'I' && bytes[1] == 'I' && bytes[3] == 0;
  const bool isBig = bytes[0] == 'M' && bytes[1] == 'M' && bytes[2] == 0;
  const std::uint8_t version = isLittle ? bytes[2] : bytes[3];
  return (isLittle || isBig) && (version == 42 || version == 43);  // 43 is BigTIFF
}

}  // namespace quorvex::tools
