// Read_Image on any bytes: what it tells is what the file holds, and a picture that it reads whole
// comes back from Save_Image.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "fuzz/fault.h"
#include "fuzz/handed_out_memory.h"
#include "imageio/bmp_file.h"
#include "imageio/grey_conversion.h"
#include "tests/support/temporary_folder.h"

namespace quorvex::fuzz {
namespace {

constexpr std::uint64_t kMostPixels = 1u << 20;  // of a picture that is looked at pixel by pixel
constexpr long kUntouched = -77;

struct StoredImage {
  unsigned char* pixels = nullptr;
  long width = kUntouched;
  long height = kUntouched;
  int bitsPerPixel = static_cast<int>(kUntouched);
};

using Bytes = std::vector<std::uint8_t>;

// What the header of a file tells, written down plainly: where the
// pixels begin, only a header of 40 bytes counts as a long one.
class Header {
 public:
  explicit Header(const Bytes& file) : file_(file), size_(At(14, 4)) {}

  long Width() const { return HasShortSizes() ? static_cast<long>(At(18, 2)) : Signed(18); }
  long Height() const { return HasShortSizes() ? static_cast<long>(At(20, 2)) : Signed(22); }
  int BitsPerPixel() const { return static_cast<int>(At(HasShortSizes() ? 24 : 28, 2)); }

  std::uint64_t PixelOffset() const {
    const bool isLong = size_ == 40;
    const std::uint64_t told = isLong ? At(46, 4) : 0;
    const std::uint64_t bits = At(isLong ? 28 : 24, 2);
    const std::uint64_t all = bits == 1 ? 2 : bits == 4 ? 16 : bits == 8 ? 256 : 0;
    return 14 + size_ + (isLong ? 4 : 3) * (told != 0 ? told : all);
  }

 private:
  bool HasShortSizes() const { return size_ != 40 && size_ != 108 && size_ != 124; }
  std::uint64_t At(std::size_t offset, int count) const {
    std::uint64_t value = 0;
    for (int i = count - 1; i >= 0; --i) {
      value = value << 8 | file_.at(offset + static_cast<std::size_t>(i));
    }
    return value;
  }
  long Signed(std::size_t offset) const {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(At(offset, 4)));
  }

  const Bytes& file_;
  std::uint64_t size_;
};

bool Read(const std::string& path, StoredImage& image) {
  return Read_Image(image.pixels, image.width, image.height, image.bitsPerPixel, path.c_str());
}

// From the pixels' address to the end of the file.
Bytes PixelsOf(const StoredImage& image, std::uint64_t offset, const Bytes& file) {
  Require(offset <= file.size(), "the pixels begin beyond the end of the file");
  const Bytes expected(file.begin() + static_cast<std::ptrdiff_t>(offset), file.end());
  Require(std::equal(expected.begin(), expected.end(), image.pixels),
          "the pixels are not those of the file");
  return expected;
}

// A picture without gaps that the file holds whole; the header is not held against the file before.
bool IsWhole(const StoredImage& image, std::size_t bytes) {
  const bool isDepth =
      image.bitsPerPixel == 8 || image.bitsPerPixel == 24 || image.bitsPerPixel == 32;
  if (!isDepth || image.width < 1 || image.height < 1) {
    return false;
  }
  const std::uint64_t width = static_cast<std::uint64_t>(image.width);
  const std::uint64_t height = static_cast<std::uint64_t>(image.height);
  const std::uint64_t rowBytes = width * static_cast<std::uint64_t>(image.bitsPerPixel / 8);
  return rowBytes % 4 == 0 && width * height <= kMostPixels && rowBytes * height <= bytes;
}

void CheckConversion(const StoredImage& image) {
  const std::size_t count =
      static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height);
  Bytes grey(count + 1, 0xA5);
  ConvertRGBToGray(image.pixels, image.width, image.height, image.bitsPerPixel, grey.data());
  Require(grey.back() == 0xA5, "the conversion writes beyond the picture");
}

void CheckSaving(const StoredImage& image, const Bytes& pixels, const std::string& path) {
  Require(Save_Image(image.pixels, image.width, image.height, image.bitsPerPixel, path.c_str()),
          "a picture that was read cannot be saved");
  StoredImage again;
  Require(Read(path, again), "a picture that was saved cannot be read");
  const HandedOutMemory memory;
  Require(again.width == image.width && again.height == image.height &&
              again.bitsPerPixel == image.bitsPerPixel,
          "a picture comes back with other sizes");
  const std::size_t count = static_cast<std::size_t>(image.width) *
                            static_cast<std::size_t>(image.height) *
                            static_cast<std::size_t>(image.bitsPerPixel / 8);
  Require(std::equal(again.pixels, again.pixels + count, pixels.begin()),
          "a picture comes back with other pixels");
}

void RunFile(const Bytes& file) {
  static const tests::TemporaryFolder folder;
  const std::string path = folder.Path("image.bmp");
  tests::WriteBytes(path, file);
  StoredImage image;
  if (!Read(path, image)) {
    Require(image.pixels == nullptr && image.width == kUntouched && image.height == kUntouched &&
                image.bitsPerPixel == kUntouched,
            "a refusal changes the results");
    return;
  }
  const HandedOutMemory memory;
  const Header header(file);
  Require(image.width == header.Width() && image.height == header.Height() &&
              image.bitsPerPixel == header.BitsPerPixel(),
          "the sizes are not those of the header");
  const Bytes pixels = PixelsOf(image, header.PixelOffset(), file);
  if (IsWhole(image, pixels.size())) {
    CheckConversion(image);
    CheckSaving(image, pixels, folder.Path("again.bmp"));
  }
}

}  // namespace
}  // namespace quorvex::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  quorvex::fuzz::RunFile({bytes, bytes + size});
  return 0;
}
