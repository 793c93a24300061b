#include "tools/pictures/tiff_reader.h"

#include <fmt/format.h>
#include <tiffio.h>

#include <algorithm>
#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <memory>
#include <mutex>
#include <string_view>
#include <utility>

#include "tools/pictures/grey_pixels.h"
#include "tools/pictures/orientation.h"
#include "tools/pictures/picture_limits.h"
#include "tools/pictures/read_failure.h"

namespace quorvex::tools {
namespace {

constexpr int kMostDirectories = 64;         // pictures and previews of a file that are looked at
constexpr std::size_t kLongestReason = 300;  // characters, of libtiff
constexpr std::uint16_t kMostChannels = 16;  // a pixel; the third is the last that counts
// What deflate and LZW reach on even areas, and more than any picture of a camera does.
constexpr std::uint64_t kMostBytesPerByte = 8192;

// A file in memory as libtiff reads it, and what libtiff had to say.
struct TiffSource {
  const std::vector<std::uint8_t>& bytes;
  std::uint64_t next = 0;
  bool failsOnWarnings = false;
  std::string reason = {};
};

tmsize_t Read(thandle_t handle, void* to, tmsize_t size) {
  TiffSource& source = *static_cast<TiffSource*>(handle);
  const std::uint64_t left = source.bytes.size() - source.next;
  const std::uint64_t count = std::min(static_cast<std::uint64_t>(size), left);
  std::copy_n(source.bytes.data() + source.next, count, static_cast<std::uint8_t*>(to));
  source.next += count;
  return static_cast<tmsize_t>(count);
}

tmsize_t RefuseWriting(thandle_t /*handle*/, void* /*from*/, tmsize_t /*size*/) { return -1; }

toff_t Seek(thandle_t handle, toff_t offset, int whence) {
  TiffSource& source = *static_cast<TiffSource*>(handle);
  const std::uint64_t start = whence == SEEK_SET   ? 0
                              : whence == SEEK_CUR ? source.next
                                                   : source.bytes.size();
  source.next = std::min<std::uint64_t>(start + offset, source.bytes.size());
  return source.next;
}

int Close(thandle_t /*handle*/) { return 0; }

toff_t Size(thandle_t handle) { return static_cast<TiffSource*>(handle)->bytes.size(); }

// The first thing said is the cause of the others.
void KeepReason(thandle_t handle, const char* /*module*/, const char* format, va_list arguments) {
  TiffSource* source = static_cast<TiffSource*>(handle);
  if (source == nullptr || !source->reason.empty()) {
    return;
  }
  char text[kLongestReason];
  std::vsnprintf(text, sizeof text, format, arguments);
  for (const char c : std::string_view(text)) {
    // Some reasons are of several lines, the next ones indented.
    const bool isBlank = static_cast<unsigned char>(c) <= ' ';
    if (!isBlank || (!source->reason.empty() && source->reason.back() != ' ')) {
      source->reason += isBlank ? ' ' : c;
    }
  }
}

// libtiff only warns of damage in JPEG data, and makes the pixels up.
void KeepWarning(thandle_t handle, const char* module, const char* format, va_list arguments) {
  const TiffSource* source = static_cast<TiffSource*>(handle);
  if (source != nullptr && source->failsOnWarnings) {
    KeepReason(handle, module, format, arguments);
  }
}

// The handlers are the process's: set once, they tell files apart by their handle.
void SilenceLibrary() {
  static std::once_flag isDone;
  std::call_once(isDone, [] {
    TIFFSetWarningHandler(nullptr);
    TIFFSetWarningHandlerExt(KeepWarning);
    TIFFSetErrorHandler(nullptr);
    TIFFSetErrorHandlerExt(KeepReason);
  });
}

struct TiffCloser {
  void operator()(TIFF* tiff) const { TIFFClose(tiff); }
};
using TiffFile = std::unique_ptr<TIFF, TiffCloser>;

[[noreturn]] void Refuse(const std::string& name, const TiffSource& source) {
  ThrowCannotRead(name, source.reason.empty() ? "it is damaged" : source.reason);
}

template <typename Value>
Value Field(TIFF* tiff, std::uint32_t tag, Value otherwise) {
  Value value = otherwise;
  return TIFFGetFieldDefaulted(tiff, tag, &value) == 1 ? value : otherwise;
}

// Makes the only picture the current one.
void ChoosePicture(TIFF* tiff, const std::string& name, const TiffSource& source) {
  int pictures = 0;
  tdir_t chosen = 0;
  int directories = 0;
  do {
    const std::uint32_t kind = Field<std::uint32_t>(tiff, TIFFTAG_SUBFILETYPE, 0);
    if ((kind & (FILETYPE_REDUCEDIMAGE | FILETYPE_MASK)) == 0) {
      chosen = TIFFCurrentDirectory(tiff);
      ++pictures;
    }
  } while (++directories < kMostDirectories && TIFFReadDirectory(tiff) == 1);
  if (pictures != 1) {
    ThrowCannotRead(name, pictures == 0 ? "it holds nothing but previews"
                                        : "it holds several pictures; save them one by one");
  }
  if (TIFFSetDirectory(tiff, chosen) != 1) {
    Refuse(name, source);
  }
}

struct TiffLayout {
  std::uint32_t width = 0;    // pixels
  std::uint32_t height = 0;   // pixels
  std::uint16_t bits = 0;     // per sample
  std::uint16_t samples = 0;  // per pixel
  std::uint16_t meaning = 0;  // PHOTOMETRIC_...
};

const char* NameOfUnread(std::uint16_t meaning) {
  switch (meaning) {
    case PHOTOMETRIC_SEPARATED:
      return "colours for print (CMYK)";
    case PHOTOMETRIC_PALETTE:
      return "colours of a palette";
    case PHOTOMETRIC_YCBCR:
      return "YCbCr colours";
    default:
      return "colours of another kind";
  }
}

void CheckSamples(TIFF* tiff, const TiffLayout& layout, const std::string& name) {
  const bool isGrey =
      layout.meaning == PHOTOMETRIC_MINISBLACK || layout.meaning == PHOTOMETRIC_MINISWHITE;
  if (!isGrey && layout.meaning != PHOTOMETRIC_RGB) {
    ThrowCannotRead(name,
                    fmt::format("it has {}; save it as grey or RGB", NameOfUnread(layout.meaning)));
  }
  const auto kind = Field<std::uint16_t>(tiff, TIFFTAG_SAMPLEFORMAT, SAMPLEFORMAT_UINT);
  if (kind != SAMPLEFORMAT_UINT && kind != SAMPLEFORMAT_VOID) {
    ThrowCannotRead(name, fmt::format("its samples are {}; whole numbers without a sign are read",
                                      kind == SAMPLEFORMAT_IEEEFP ? "floating-point numbers"
                                                                  : "numbers with a sign"));
  }
  if (layout.bits != 8 && layout.bits != 16) {
    ThrowCannotRead(name, fmt::format("it has {} bits a sample; 8 and 16 are read", layout.bits));
  }
  if (layout.samples < (isGrey ? 1 : 3)) {
    ThrowCannotRead(name, fmt::format("{} channels make no colour", layout.samples));
  }
  if (layout.samples > kMostChannels) {
    ThrowCannotRead(name,
                    fmt::format("{} channels are more than {}", layout.samples, kMostChannels));
  }
  const auto planes = Field<std::uint16_t>(tiff, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
  if (planes != PLANARCONFIG_CONTIG && layout.samples > 1) {
    ThrowCannotRead(name, "its channels lie in planes of their own; save it as grey");
  }
}

TiffLayout ReadLayout(TIFF* tiff, std::uint64_t fileBytes, const std::string& name) {
  TiffLayout layout;
  layout.width = Field<std::uint32_t>(tiff, TIFFTAG_IMAGEWIDTH, 0);
  layout.height = Field<std::uint32_t>(tiff, TIFFTAG_IMAGELENGTH, 0);
  layout.bits = Field<std::uint16_t>(tiff, TIFFTAG_BITSPERSAMPLE, 1);
  layout.samples = Field<std::uint16_t>(tiff, TIFFTAG_SAMPLESPERPIXEL, 1);
  // By the format's rules every file tells it; some that do not are grey all the same.
  layout.meaning = Field<std::uint16_t>(tiff, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_MINISBLACK);
  if (layout.width < 1 || layout.height < 1 || layout.width > kMaxPictureSide ||
      layout.height > kMaxPictureSide) {
    ThrowCannotRead(
        name, fmt::format("a size of {} x {} pixels is out of range", layout.width, layout.height));
  }
  CheckSamples(tiff, layout, name);
  const std::uint64_t rowBytes = std::uint64_t{layout.width} * layout.samples * (layout.bits / 8u);
  const auto compression = Field<std::uint16_t>(tiff, TIFFTAG_COMPRESSION, COMPRESSION_NONE);
  const std::uint64_t mostPerByte = compression == COMPRESSION_NONE ? 1 : kMostBytesPerByte;
  if (rowBytes * layout.height / mostPerByte > fileBytes) {
    ThrowCannotRead(name, fmt::format("{} x {} pixels do not fit into {} bytes", layout.width,
                                      layout.height, fileBytes));
  }
  if (compression == COMPRESSION_OJPEG) {
    ThrowCannotRead(name, "its compression is the old kind of JPEG; save it in another one");
  }
  if (TIFFIsTiled(tiff) != 0) {
    ThrowCannotRead(name, "it is cut into tiles; save it in strips, as most programs do");
  }
  if (static_cast<std::uint64_t>(TIFFScanlineSize64(tiff)) != rowBytes) {
    ThrowCannotRead(name, "its rows are not as long as its width says");
  }
  return layout;
}

// Rows of 8 bits a sample, of the channels that count.
std::vector<std::uint8_t> ReadSamples(TIFF* tiff, const TiffLayout& layout, std::size_t channels,
                                      const GreyScale& scale, const std::string& name,
                                      const TiffSource& source) {
  std::vector<std::uint8_t> samples =
      AllocatePixels(std::size_t{layout.width} * layout.height * channels, name);
  // In 16 bits, so that a row of either depth lies as its samples need it.
  const std::size_t rowSamples = std::size_t{layout.width} * layout.samples;
  std::vector<std::uint16_t> row(rowSamples);
  const std::uint8_t* const bytes = reinterpret_cast<const std::uint8_t*>(row.data());
  std::uint8_t* to = samples.data();
  for (std::uint32_t y = 0; y < layout.height; ++y) {
    if (TIFFReadScanline(tiff, row.data(), y, 0) != 1) {
      Refuse(name, source);
    }
    for (std::size_t pixel = 0; pixel < rowSamples; pixel += layout.samples) {
      for (std::size_t channel = 0; channel < channels; ++channel) {
        const std::size_t at = pixel + channel;
        *to++ = layout.bits == 16 ? scale(row[at]) : bytes[at];
      }
    }
  }
  return samples;
}

}  // namespace

bool ReadsTiff() { return true; }

Picture DecodeTiff(const std::vector<std::uint8_t>& bytes, const std::string& name,
                   const std::optional<GreyLevels>& levels) {
  SilenceLibrary();
  TiffSource source{bytes};
  // No mapping; "m" since there is no file to map.
  const TiffFile file(TIFFClientOpen(name.c_str(), "rm", &source, Read, RefuseWriting, Seek, Close,
                                     Size, nullptr, nullptr));
  if (!file) {
    Refuse(name, source);
  }
  ChoosePicture(file.get(), name, source);
  const TiffLayout layout = ReadLayout(file.get(), bytes.size(), name);
  const bool isColor = layout.meaning == PHOTOMETRIC_RGB;
  source.failsOnWarnings =
      Field<std::uint16_t>(file.get(), TIFFTAG_COMPRESSION, COMPRESSION_NONE) == COMPRESSION_JPEG;
  std::vector<std::uint8_t> samples = ReadSamples(file.get(), layout, isColor ? 3 : 1,
                                                  GreyScale(kLargestSample, levels), name, source);
  if (!source.reason.empty()) {
    Refuse(name, source);
  }

  Picture picture;
  picture.width = static_cast<int>(layout.width);
  picture.height = static_cast<int>(layout.height);
  picture.bitsPerSample = layout.bits;
  picture.note =
      OrientationNote(Field<std::uint16_t>(file.get(), TIFFTAG_ORIENTATION, ORIENTATION_TOPLEFT));
  if (layout.meaning == PHOTOMETRIC_MINISWHITE) {
    std::transform(samples.begin(), samples.end(), samples.begin(),
                   [](std::uint8_t level) { return static_cast<std::uint8_t>(255 - level); });
  }
  picture.pixels =
      isColor ? GreyOfRgb(samples, picture.width, picture.height, name) : std::move(samples);
  return picture;
}

}  // namespace quorvex::tools
