#include "tools/pictures/orientation.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

namespace quorvex::tools {
namespace {

constexpr std::array<std::uint8_t, 6> kExifMark = {'E', 'x', 'i', 'f', 0, 0};
constexpr std::size_t kEntryBytes = 12;
constexpr std::uint32_t kOrientationTag = 0x0112;
constexpr int kLastOrientation = 8;

// The numbers of a TIFF structure; 0 beyond its end, which no orientation is.
class TiffNumbers {
 public:
  TiffNumbers(const std::uint8_t* bytes, std::size_t size)
      : bytes_(bytes), size_(size), isBigEndian_(size > 0 && bytes[0] == 'M') {}

  std::uint32_t U16(std::size_t offset) const {
    if (size_ < 2 || offset > size_ - 2) {
      return 0;
    }
    const std::uint32_t first = bytes_[offset];
    const std::uint32_t second = bytes_[offset + 1];
    return isBigEndian_ ? first << 8 | second : second << 8 | first;
  }

  std::uint32_t U32(std::size_t offset) const {
    const std::uint32_t first = U16(offset);
    const std::uint32_t second = U16(offset + 2);
    return isBigEndian_ ? first << 16 | second : second << 16 | first;
  }

 private:
  const std::uint8_t* bytes_;
  std::size_t size_;
  bool isBigEndian_;
};

}  // namespace

int ExifOrientation(const std::uint8_t* bytes, std::size_t size) {
  if (size < kExifMark.size() || !std::equal(kExifMark.begin(), kExifMark.end(), bytes)) {
    return kUpright;
  }
  const TiffNumbers numbers(bytes + kExifMark.size(), size - kExifMark.size());
  const std::size_t directory = numbers.U32(4);
  const std::size_t entries = numbers.U16(directory);
  for (std::size_t i = 0; i < entries; ++i) {
    const std::size_t entry = directory + 2 + i * kEntryBytes;
    if (numbers.U16(entry) == kOrientationTag) {
      return static_cast<int>(numbers.U16(entry + 8));
    }
  }
  return kUpright;
}

std::string OrientationNote(int orientation) {
  return orientation > kUpright && orientation <= kLastOrientation
             ? fmt::format(
                   "its pixels are taken as they are stored, not turned as its orientation of {} "
                   "says",
                   orientation)
             : "";
}

}  // namespace quorvex::tools
