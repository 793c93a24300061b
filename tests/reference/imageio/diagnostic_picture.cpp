#include <cstdint>
#include <cstring>

#include "imageio/global_block.h"
#include "imageio/little_endian.h"
#include "platform/mfc.h"
#include "preprocess/bitmap_stride.h"
#include "tests/reference/imageio.h"

namespace quorvex::plain {
namespace {

constexpr int kFileHeaderSize = 14;  // bytes
constexpr int kInfoHeaderSize = 40;
constexpr int kTableSize = 256 * 4;
constexpr int kResolution = 2925;  // pixels per metre

void FillInfoHeader(unsigned char* header, int width, int height, std::size_t imageSize) {
  PutU32(header, kInfoHeaderSize);
  PutU32(header + 4, static_cast<std::uint32_t>(width));
  PutU32(header + 8, static_cast<std::uint32_t>(height));
  PutU16(header + 12, 1);
  PutU16(header + 14, 8);
  PutU32(header + 20, static_cast<std::uint32_t>(imageSize));
  PutU32(header + 24, kResolution);
  PutU32(header + 28, kResolution);
}

// The rows are copied in one piece, also where the file's rows are longer.
void WritePicture(const unsigned char* pixels, int width, int height, const char* name) {
  const std::size_t imageSize = BitmapStride(width) * static_cast<std::size_t>(height);
  const std::size_t dibSize = kInfoHeaderSize + kTableSize + imageSize;
  GlobalBlock dib(dibSize);
  if (!dib.IsValid()) {
    return;
  }
  FillInfoHeader(dib.Data(), width, height, imageSize);
  for (int level = 0; level < 256; ++level) {
    std::memset(dib.Data() + kInfoHeaderSize + 4 * level, level, 3);
  }
  std::memcpy(dib.Data() + kInfoHeaderSize + kTableSize, pixels,
              static_cast<std::size_t>(width) * static_cast<std::size_t>(height));

  CFile file;
  if (!file.Open(CA2T(name), CFile::modeCreate | CFile::modeWrite)) {
    return;
  }
  unsigned char header[kFileHeaderSize] = {'B', 'M'};
  PutU32(header + 2, static_cast<std::uint32_t>(kFileHeaderSize + dibSize));
  PutU32(header + 10, kFileHeaderSize + kInfoHeaderSize + kTableSize);
  file.Write(header, kFileHeaderSize);
  file.Write(dib.Data(), static_cast<UINT>(dibSize));
  file.Close();
}

}  // namespace

void SaveDiagnosticPicture(const unsigned char* pixels, int width, int height, const char* name) {
  try {
    WritePicture(pixels, width, height, name);
  } catch (CFileException* exception) {
    exception->Delete();
  }
}

}  // namespace quorvex::plain
