#include "tools/pictures/bmp_reader.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <utility>

#include "tools/errors.h"
#include "tools/pictures/bmp_format.h"
#include "tools/pictures/grey_pixels.h"
#include "tools/pictures/picture_limits.h"

namespace quorvex::tools {
namespace {

constexpr std::uint32_t kCoreHeaderBytes = 12;  // sizes of 16 bits, palette entries of 3 bytes
constexpr std::uint32_t kV4HeaderBytes = 108;
constexpr std::uint32_t kV5HeaderBytes = 124;
constexpr std::uint32_t kBitFields = 3;
constexpr std::uint64_t kMaskBytes =
    std::uint64_t{3} * 4;  // after a header of 40 bytes, inside the longer ones

struct BmpLayout {
  int width = 0;
  int height = 0;
  bool isTopDown = false;
  int bitsPerPixel = 0;
  std::uint64_t pixelOffset = 0;    // bytes from the start of the file
  std::uint64_t stride = 0;         // bytes from one row to the next
  std::uint64_t paletteOffset = 0;  // bytes from the start of the file
  std::uint32_t paletteEntryBytes = 4;
  std::uint32_t paletteColors = 0;
};

// Reads little-endian numbers, refusing to look beyond the end.
class ByteReader {
 public:
  ByteReader(const std::vector<std::uint8_t>& bytes, const std::string& name)
      : bytes_(bytes), name_(name) {}

  [[noreturn]] void Refuse(const std::string& reason) const {
    throw InputError(fmt::format("cannot read {}: {}", name_, reason));
  }

  std::uint64_t Size() const { return bytes_.size(); }

  std::uint8_t U8(std::uint64_t offset) const {
    if (offset >= bytes_.size()) {
      Refuse("the file ends inside the header");
    }
    return bytes_[offset];
  }

  std::uint32_t U16(std::uint64_t offset) const {
    return U8(offset) | static_cast<std::uint32_t>(U8(offset + 1)) << 8;
  }

  std::uint32_t U32(std::uint64_t offset) const { return U16(offset) | U16(offset + 2) << 16; }

 private:
  const std::vector<std::uint8_t>& bytes_;
  const std::string& name_;
};

void SetSize(BmpLayout& layout, std::int64_t width, std::int64_t height, const ByteReader& reader) {
  layout.isTopDown = height < 0;
  const std::int64_t rows = layout.isTopDown ? -height : height;
  if (width <= 0 || rows == 0 || width > kMaxPictureSide || rows > kMaxPictureSide) {
    reader.Refuse(fmt::format("a size of {} x {} pixels is out of range", width, height));
  }
  layout.width = static_cast<int>(width);
  layout.height = static_cast<int>(rows);
}

void CheckMasks(const ByteReader& reader) {
  const std::uint64_t masks = kBmpFileHeaderBytes + kBmpInfoHeaderBytes;
  if (reader.U32(masks) != 0x00ff0000u || reader.U32(masks + 4) != 0x0000ff00u ||
      reader.U32(masks + 8) != 0x000000ffu) {
    reader.Refuse("its colour masks are not supported");
  }
}

// Fills the fields that the long headers have in common; returns where the header ends.
std::uint64_t ReadInfoHeader(BmpLayout& layout, std::uint32_t headerBytes,
                             const ByteReader& reader) {
  SetSize(layout, static_cast<std::int32_t>(reader.U32(18)),
          static_cast<std::int32_t>(reader.U32(22)), reader);
  layout.bitsPerPixel = static_cast<int>(reader.U16(28));
  const std::uint32_t compression = reader.U32(30);
  layout.paletteColors = reader.U32(46);
  std::uint64_t end = kBmpFileHeaderBytes + headerBytes;
  if (compression == kBitFields && layout.bitsPerPixel == 32) {
    CheckMasks(reader);
    if (headerBytes == kBmpInfoHeaderBytes) {
      end += kMaskBytes;
    }
  } else if (compression != kBmpUncompressed) {
    reader.Refuse(fmt::format("compression {} is not supported at {} bits per pixel", compression,
                              layout.bitsPerPixel));
  }
  return end;
}

std::uint64_t ReadCoreHeader(BmpLayout& layout, const ByteReader& reader) {
  SetSize(layout, reader.U16(18), reader.U16(20), reader);
  layout.bitsPerPixel = static_cast<int>(reader.U16(24));
  layout.paletteEntryBytes = 3;
  return kBmpFileHeaderBytes + kCoreHeaderBytes;
}

void CheckPalette(BmpLayout& layout, const ByteReader& reader) {
  if (layout.paletteColors == 0) {
    layout.paletteColors = kBmpPaletteColors;  // zero in the file stands for all of them
  }
  if (layout.paletteColors > kBmpPaletteColors) {
    reader.Refuse(fmt::format("a palette of {} colours is out of range", layout.paletteColors));
  }
  const std::uint64_t paletteEnd =
      layout.paletteOffset + std::uint64_t{layout.paletteColors} * layout.paletteEntryBytes;
  if (paletteEnd > layout.pixelOffset) {
    reader.Refuse(
        fmt::format("its palette of {} colours is missing or cut off", layout.paletteColors));
  }
}

BmpLayout ReadLayout(const ByteReader& reader) {
  BmpLayout layout;
  layout.pixelOffset = reader.U32(10);
  const std::uint32_t headerBytes = reader.U32(14);
  std::uint64_t headerEnd = 0;
  if (headerBytes == kCoreHeaderBytes) {
    headerEnd = ReadCoreHeader(layout, reader);
  } else if (headerBytes == kBmpInfoHeaderBytes || headerBytes == kV4HeaderBytes ||
             headerBytes == kV5HeaderBytes) {
    headerEnd = ReadInfoHeader(layout, headerBytes, reader);
  } else {
    reader.Refuse(fmt::format("a BMP header of {} bytes is not supported", headerBytes));
  }
  if (layout.bitsPerPixel != 8 && layout.bitsPerPixel != 24 && layout.bitsPerPixel != 32) {
    reader.Refuse(fmt::format("{} bits per pixel are not supported", layout.bitsPerPixel));
  }
  if (layout.pixelOffset < headerEnd) {
    reader.Refuse(
        fmt::format("its pixels start at byte {}, inside the header", layout.pixelOffset));
  }
  if (layout.bitsPerPixel == 8) {
    layout.paletteOffset = headerEnd;
    CheckPalette(layout, reader);
  }
  layout.stride = BmpStride(layout.width, layout.bitsPerPixel);
  const std::uint64_t needed =
      layout.pixelOffset + layout.stride * static_cast<std::uint64_t>(layout.height);
  if (needed > reader.Size()) {
    reader.Refuse(fmt::format("{} x {} pixels of {} bits need {} bytes, but the file has {}",
                              layout.width, layout.height, layout.bitsPerPixel, needed,
                              reader.Size()));
  }
  return layout;
}

using Palette = std::array<std::uint8_t, std::size_t{3} * kBmpPaletteColors>;  // blue, green, red

Palette ReadPalette(const BmpLayout& layout, const ByteReader& reader) {
  Palette colors{};
  for (std::size_t i = 0; i < layout.paletteColors; ++i) {
    for (std::size_t channel = 0; channel < 3; ++channel) {
      colors[3 * i + channel] =
          reader.U8(layout.paletteOffset + i * layout.paletteEntryBytes + channel);
    }
  }
  return colors;
}

void RequireInPalette(const std::vector<std::uint8_t>& pixels, const BmpLayout& layout,
                      const ByteReader& reader) {
  for (const std::uint8_t pixel : pixels) {
    if (pixel >= layout.paletteColors) {
      reader.Refuse(fmt::format("pixel value {} is outside its palette of {} colours", pixel,
                                layout.paletteColors));
    }
  }
}

// The grey of each entry. Entries that no pixel uses count for nothing, so that they do not make a
// grey picture a coloured one.
std::vector<std::uint8_t> GreyPalette(const std::vector<std::uint8_t>& pixels,
                                      const BmpLayout& layout, const ByteReader& reader,
                                      const std::string& name) {
  const Palette palette = ReadPalette(layout, reader);
  std::vector<std::uint8_t> used(palette.size());
  for (const std::uint8_t pixel : pixels) {
    std::copy_n(palette.data() + std::size_t{3} * pixel, 3, used.data() + std::size_t{3} * pixel);
  }
  return GreyPixels(used, kBmpPaletteColors, 1, 24, name);
}

}  // namespace

bool IsBmp(const std::vector<std::uint8_t>& bytes) {
  return bytes.size() >= 2 && bytes[0] == 'B' && bytes[1] == 'M';
}

Picture DecodeBmp(const std::vector<std::uint8_t>& bytes, const std::string& name) {
  const ByteReader reader(bytes, name);
  const BmpLayout layout = ReadLayout(reader);
  const std::size_t rowBytes =
      static_cast<std::size_t>(layout.width) * static_cast<std::size_t>(layout.bitsPerPixel / 8);
  const std::size_t rows = static_cast<std::size_t>(layout.height);
  std::vector<std::uint8_t> packed = AllocatePixels(rowBytes * rows, name);
  for (std::size_t y = 0; y < rows; ++y) {
    const std::size_t storedRow = layout.isTopDown ? y : rows - 1 - y;
    std::copy_n(bytes.data() + layout.pixelOffset + layout.stride * storedRow, rowBytes,
                packed.data() + rowBytes * y);
  }

  Picture picture;
  picture.width = layout.width;
  picture.height = layout.height;
  if (layout.bitsPerPixel == 8) {
    RequireInPalette(packed, layout, reader);
    const std::vector<std::uint8_t> greys = GreyPalette(packed, layout, reader, name);
    picture.pixels = std::move(packed);
    for (std::uint8_t& pixel : picture.pixels) {
      pixel = greys[pixel];
    }
  } else {
    picture.pixels = GreyPixels(packed, layout.width, layout.height, layout.bitsPerPixel, name);
  }
  return picture;
}

}  // namespace quorvex::tools
