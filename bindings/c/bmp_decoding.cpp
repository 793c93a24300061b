#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "bindings/c/call.h"
#include "bindings/c/picture.h"
#include "imageio/bmp_header.h"
#include "imageio/little_endian.h"
#include "interface/quorvex.h"

namespace quorvex::bindings {
namespace {

constexpr std::uint64_t kPixelOffsetField = 10;  // bytes from the start of the file
constexpr std::uint64_t kCompressionField = kBmpFileHeaderSize + 16;
constexpr std::uint64_t kMasksField = kBmpFileHeaderSize + kBmpInfoHeaderSize;
constexpr std::uint32_t kUncompressed = 0;
constexpr std::uint32_t kBitFields = 3;
constexpr std::uint32_t kMasks[] = {0x00ff0000u, 0x0000ff00u, 0x000000ffu};  // red, green, blue
constexpr std::uint32_t kLongestHeader = 124;                                // bytes
constexpr std::uint32_t kPaletteColours = 256;
constexpr std::uint64_t kPaletteEntrySize = 4;  // bytes: blue, green, red, unused

class BmpBytes {
 public:
  BmpBytes(const std::vector<unsigned char>& bytes, const std::string& name)
      : bytes_(bytes), name_(name) {}

  [[noreturn]] void Refuse(const std::string& reason) const {
    throw Failure(QUORVEX_ERROR_FORMAT, name_ + ": " + reason);
  }

  // The bytes from an offset on, of which there are at least `count`.
  const unsigned char* At(std::uint64_t offset, std::uint64_t count) const {
    if (offset > bytes_.size() || bytes_.size() - offset < count) {
      Refuse("the file ends too early, after " + std::to_string(bytes_.size()) + " bytes");
    }
    return bytes_.data() + offset;
  }

  int U16(std::uint64_t offset) const { return GetU16(At(offset, 2)); }
  std::uint32_t U32(std::uint64_t offset) const { return GetU32(At(offset, 4)); }

 private:
  const std::vector<unsigned char>& bytes_;
  const std::string& name_;
};

struct Layout {
  int width = 0;
  int height = 0;
  bool isTopDown = false;
  int sampleBytes = 0;  // of a pixel
  std::uint64_t pixelOffset = 0;
  std::uint64_t paletteOffset = 0;
  std::uint32_t paletteColours = 0;
};

int ReadSide(std::int64_t size, const BmpBytes& file) {
  if (size < 1 || size > kLargestSide) {
    file.Refuse("a width or height of " + std::to_string(size) + " pixels is out of range");
  }
  return static_cast<int>(size);
}

void RequireUncompressed(int bits, const BmpBytes& file) {
  const std::uint32_t compression = file.U32(kCompressionField);
  bool isPlain = compression == kUncompressed;
  if (compression == kBitFields && bits == 32) {
    isPlain = file.U32(kMasksField) == kMasks[0] && file.U32(kMasksField + 4) == kMasks[1] &&
              file.U32(kMasksField + 8) == kMasks[2];
  }
  if (!isPlain) {
    file.Refuse("its compression or colour masks are not supported");
  }
}

Layout ReadLayout(const BmpBytes& file) {
  if (file.U16(0) != kBmpType) {
    file.Refuse("it is no BMP file");
  }
  const std::uint32_t headerSize = file.U32(kBmpFileHeaderSize);
  if (headerSize < kBmpInfoHeaderSize || headerSize > kLongestHeader) {
    file.Refuse("a header of " + std::to_string(headerSize) + " bytes is not supported");
  }
  Layout layout;
  const std::int64_t height =
      static_cast<std::int32_t>(file.U32(kBmpFileHeaderSize + kBmpHeightOffset));
  layout.isTopDown = height < 0;
  layout.height = ReadSide(layout.isTopDown ? -height : height, file);
  layout.width =
      ReadSide(static_cast<std::int32_t>(file.U32(kBmpFileHeaderSize + kBmpWidthOffset)), file);
  const int bits = file.U16(kBmpFileHeaderSize + kBmpBitCountOffset);
  if (bits != 8 && bits != 24 && bits != 32) {
    file.Refuse(std::to_string(bits) + " bits a pixel are not supported");
  }
  layout.sampleBytes = bits / 8;
  RequireUncompressed(bits, file);
  layout.pixelOffset = file.U32(kPixelOffsetField);
  layout.paletteOffset = std::uint64_t{kBmpFileHeaderSize} + headerSize;
  const std::uint32_t colours = file.U32(kBmpFileHeaderSize + kBmpColorsUsedOffset);
  layout.paletteColours = colours == 0 ? kPaletteColours : colours;
  return layout;
}

// Levels of `count` colours of three or four bytes.
std::vector<unsigned char> ToGrey(std::vector<unsigned char>& colours, int sampleBytes, int width,
                                  int height) {
  const std::size_t step = static_cast<std::size_t>(sampleBytes);
  std::vector<unsigned char> grey(colours.size() / step);
  bool isGrey = true;
  for (std::size_t i = 0; i < grey.size() && isGrey; ++i) {
    const unsigned char* const colour = colours.data() + i * step;
    isGrey = colour[0] == colour[1] && colour[1] == colour[2];
    grey[i] = colour[0];
  }
  if (!isGrey) {
    ConvertRGBToGray(colours.data(), width, height, sampleBytes * 8, grey.data());
  }
  return grey;
}

// From palette entries to levels, in place. Entries that no pixel has count for nothing, so that
// they do not make a grey picture a coloured one.
void LookUp(const Layout& layout, const BmpBytes& file, std::vector<unsigned char>& pixels) {
  if (layout.paletteColours > kPaletteColours) {
    file.Refuse("a palette of " + std::to_string(layout.paletteColours) +
                " colours is out of range");
  }
  const unsigned char* const palette =
      file.At(layout.paletteOffset, kPaletteEntrySize * layout.paletteColours);
  std::vector<unsigned char> used(kPaletteEntrySize * kPaletteColours);
  for (const unsigned char pixel : pixels) {
    if (pixel >= layout.paletteColours) {
      file.Refuse("pixel value " + std::to_string(pixel) + " is outside its palette");
    }
    std::copy_n(palette + kPaletteEntrySize * pixel, 3, used.data() + kPaletteEntrySize * pixel);
  }
  const std::vector<unsigned char> grey =
      ToGrey(used, static_cast<int>(kPaletteEntrySize), static_cast<int>(kPaletteColours), 1);
  for (unsigned char& pixel : pixels) {
    pixel = grey[pixel];
  }
}

}  // namespace

quorvex_picture DecodeBmp(const std::vector<unsigned char>& bytes, const std::string& name) {
  const BmpBytes file(bytes, name);
  const Layout layout = ReadLayout(file);
  const std::size_t rows = static_cast<std::size_t>(layout.height);
  const std::size_t rowBytes =
      static_cast<std::size_t>(layout.width) * static_cast<std::size_t>(layout.sampleBytes);
  const std::size_t stride = (rowBytes + 3) / 4 * 4;
  const unsigned char* const stored = file.At(layout.pixelOffset, stride * rows);
  std::vector<unsigned char> packed;
  packed.reserve(rowBytes * rows);
  for (std::size_t y = 0; y < rows; ++y) {
    const unsigned char* const row = stored + stride * (layout.isTopDown ? y : rows - 1 - y);
    packed.insert(packed.end(), row, row + rowBytes);
  }
  quorvex_picture picture;
  picture.width = layout.width;
  picture.height = layout.height;
  if (layout.sampleBytes == 1) {
    LookUp(layout, file, packed);
    picture.pixels = std::move(packed);
  } else {
    picture.pixels = ToGrey(packed, layout.sampleBytes, layout.width, layout.height);
  }
  return picture;
}

}  // namespace quorvex::bindings
