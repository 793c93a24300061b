#include "tools/pictures/png_codec.h"

#include <fmt/format.h>
#include <png.h>

#include <algorithm>
#include <array>
#include <utility>

#include "tools/errors.h"
#include "tools/pictures/deep_png_reader.h"
#include "tools/pictures/grey_pixels.h"
#include "tools/pictures/picture_limits.h"
#include "tools/pictures/read_failure.h"

namespace quorvex::tools {
namespace {

constexpr std::array<std::uint8_t, 8> kSignature = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1a, '\n'};
constexpr std::array<std::uint8_t, 4> kPixelChunk = {'I', 'D', 'A', 'T'};

// Deflate packs at most so many bytes into one; a file that promises more cannot hold them.
constexpr std::uint64_t kMostBytesPerByte = 1032;

// Signature, then chunks: their length, type, data and checksum. The first has the sizes and below
// them bits and channels.
constexpr std::size_t kChunkFrame = 12;  // bytes beside the data
constexpr std::size_t kBitsOffset = 24;
constexpr std::size_t kColourTypeOffset = 25;

// Frees libpng's state on every path.
struct PngImage {
  png_image image{};
  PngImage() { image.version = PNG_IMAGE_VERSION; }
  ~PngImage() { png_image_free(&image); }
  PngImage(const PngImage&) = delete;
  PngImage& operator=(const PngImage&) = delete;
};

std::uint64_t ChannelCount(std::uint8_t colourType) {
  switch (colourType) {
    case PNG_COLOR_TYPE_GRAY_ALPHA:
      return 2;
    case PNG_COLOR_TYPE_RGB:
      return 3;
    case PNG_COLOR_TYPE_RGB_ALPHA:
      return 4;
    default:
      return 1;
  }
}

// Of a file whose first chunk libpng has read.
void CheckSize(const png_image& image, const std::vector<std::uint8_t>& bytes,
               const std::string& name) {
  if (image.width > kMaxPictureSide || image.height > kMaxPictureSide) {
    ThrowCannotRead(name, fmt::format("{} x {} pixels is more than {} on a side", image.width,
                                      image.height, kMaxPictureSide));
  }
  const std::uint64_t rowBytes =
      (std::uint64_t{image.width} * ChannelCount(bytes[kColourTypeOffset]) * bytes[kBitsOffset] +
       7) /
      8;
  if (rowBytes * image.height / kMostBytesPerByte > bytes.size()) {
    ThrowCannotRead(name, fmt::format("{} x {} pixels do not fit into {} bytes", image.width,
                                      image.height, bytes.size()));
  }
}

// Up to the pixels: libpng makes room for a whole chunk before it looks for its bytes.
void CheckChunks(const std::vector<std::uint8_t>& bytes, const std::string& name) {
  std::size_t left = bytes.size() - kSignature.size();
  while (left >= kChunkFrame) {
    const std::uint8_t* chunk = bytes.data() + (bytes.size() - left);
    const std::uint32_t length = std::uint32_t{chunk[0]} << 24 | std::uint32_t{chunk[1]} << 16 |
                                 std::uint32_t{chunk[2]} << 8 | chunk[3];
    if (std::equal(kPixelChunk.begin(), kPixelChunk.end(), chunk + 4)) {
      return;
    }
    if (length > left - kChunkFrame) {
      ThrowCannotRead(name, fmt::format("a chunk of {} bytes reaches beyond its end", length));
    }
    left -= kChunkFrame + length;
  }
}

std::vector<std::uint8_t> Encode(const std::vector<std::uint8_t>& samples, int width, int height,
                                 png_uint_32 format, const std::string& name) {
  PngImage png;
  png.image.width = static_cast<png_uint_32>(width);
  png.image.height = static_cast<png_uint_32>(height);
  png.image.format = format;
  png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(png.image);
  std::vector<std::uint8_t> bytes(size);
  if (png_image_write_to_memory(&png.image, bytes.data(), &size, 0, samples.data(), 0, nullptr) ==
      0) {
    throw InputError(fmt::format("cannot write {}: {}", name, png.image.message));
  }
  bytes.resize(size);
  return bytes;
}

}  // namespace

bool IsPng(const std::vector<std::uint8_t>& bytes) {
  return bytes.size() >= kSignature.size() &&
         std::equal(kSignature.begin(), kSignature.end(), bytes.begin());
}

Picture DecodePng(const std::vector<std::uint8_t>& bytes, const std::string& name,
                  const std::optional<GreyLevels>& levels) {
  CheckChunks(bytes, name);
  PngImage png;
  png_image& image = png.image;
  if (png_image_begin_read_from_memory(&image, bytes.data(), bytes.size()) == 0) {
    ThrowCannotRead(name, image.message);
  }
  CheckSize(image, bytes, name);
  const bool has16Bits = (image.format & PNG_FORMAT_FLAG_LINEAR) != 0;
  const bool isTransparent = (image.format & PNG_FORMAT_FLAG_ALPHA) != 0;
  if (has16Bits && !isTransparent) {
    return DecodeDeepPng(bytes, name, levels);
  }
  if (has16Bits && levels) {
    ThrowCannotRead(name, "--levels is not for pictures with transparency; save it without");
  }
  image.flags |= PNG_IMAGE_FLAG_16BIT_sRGB;  // otherwise 16 bits are taken as linear light
  const bool isColor = (image.format & PNG_FORMAT_FLAG_COLOR) != 0;
  image.format = isColor ? PNG_FORMAT_BGR : PNG_FORMAT_GRAY;
  std::vector<std::uint8_t> samples = AllocatePixels(PNG_IMAGE_SIZE(image), name);
  const png_color white = {255, 255, 255};
  if (png_image_finish_read(&image, &white, samples.data(), 0, nullptr) == 0) {
    ThrowCannotRead(name, image.message);
  }

  Picture picture;
  picture.width = static_cast<int>(image.width);
  picture.height = static_cast<int>(image.height);
  picture.pixels =
      isColor ? GreyPixels(samples, picture.width, picture.height, 24, name) : std::move(samples);
  if (has16Bits) {
    picture.bitsPerSample = 16;
  }
  return picture;
}

std::vector<std::uint8_t> EncodePng(const Picture& picture, const std::string& name) {
  return Encode(picture.pixels, picture.width, picture.height, PNG_FORMAT_GRAY, name);
}

std::vector<std::uint8_t> EncodePng(const ColorPicture& picture, const std::string& name) {
  return Encode(picture.rgb, picture.width, picture.height, PNG_FORMAT_RGB, name);
}

}  // namespace quorvex::tools
