#include "imageio/diagnostic_picture.h"

#include <algorithm>
#include <cstdint>
#include <limits>

#include "imageio/bmp_header.h"
#include "imageio/diagnostic_place.h"
#include "platform/mfc.h"

namespace quorvex {
namespace {

constexpr int kBitsPerPixel = 8;
constexpr int kTableSize = 4 * 256;  // bytes, the grey ramp
constexpr int kHeaderSize = kBmpFileHeaderSize + kBmpInfoHeaderSize + kTableSize;

void WriteBytes(CFile& file, const unsigned char* bytes, std::int64_t count) {
  constexpr std::int64_t kLargestWrite = std::numeric_limits<UINT>::max();
  for (std::int64_t written = 0; written < count;) {
    const std::int64_t part = std::min(count - written, kLargestWrite);
    file.Write(bytes + written, static_cast<UINT>(part));
    written += part;
  }
}

void WriteZeros(CFile& file, std::int64_t count) {
  static const unsigned char kZeros[16 * 1024] = {};
  for (std::int64_t left = count; left > 0;) {
    const std::int64_t part = std::min(left, static_cast<std::int64_t>(sizeof kZeros));
    file.Write(kZeros, static_cast<UINT>(part));
    left -= part;
  }
}

// Ends the file with `count` zeros after its first `written` bytes, whatever stood there before.
void EndWithZeros(CFile& file, std::int64_t written, std::int64_t count) {
  if (kNewLengthIsZeros) {
    file.SetLength(static_cast<ULONGLONG>(written));
  } else {
    WriteZeros(file, count);
  }
  const std::int64_t length = written + count;
  file.SetLength(static_cast<ULONGLONG>(length));
}

// Over the file of an earlier detection, without emptying it first: giving its blocks back and
// taking them anew costs a multiple of the writing.
void WritePicture(CFile& file, const unsigned char* pixels, int rows, int width, int height) {
  const BmpLayout layout = LayOutBmp(width, height, kBitsPerPixel);
  unsigned char header[kHeaderSize] = {};
  FillBmpFileHeader(header, layout);
  FillBmpInfo(header + kBmpFileHeaderSize, width, height, kBitsPerPixel);
  const std::int64_t given = static_cast<std::int64_t>(width) * rows;
  WriteBytes(file, header, kHeaderSize);
  WriteBytes(file, pixels, given);
  EndWithZeros(file, kHeaderSize + given, layout.imageSize - given);
  file.Close();
}

}  // namespace

void SaveDiagnosticPicture(const unsigned char* pixels, int width, int height, const char* name) {
  SaveTopOfDiagnosticPicture(pixels, height, width, height, name);
}

void SaveTopOfDiagnosticPicture(const unsigned char* pixels, int rows, int width, int height,
                                const char* name) {
  CFile file;
  const char* const place = PlaceOfDiagnostic(name);
  if (place == nullptr || !CanBeStoredAsBmp(width, height, kBitsPerPixel) ||
      !file.Open(CA2T(place), CFile::modeCreate | CFile::modeNoTruncate | CFile::modeWrite)) {
    return;
  }
  try {
    try {
      WritePicture(file, pixels, rows, width, height);
    } catch (CFileException* exception) {
      exception->Delete();
      file.SetLength(0);  // what is left of an earlier picture must not pass for this one
    }
  } catch (CFileException* exception) {
    exception->Delete();
  }
}

}  // namespace quorvex
