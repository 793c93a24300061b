// Pictures, their files, and grey levels from colours.
#include "bindings/c/picture.h"

#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <memory>
#include <utility>

#include "bindings/c/call.h"
#include "imageio/bmp_header.h"
#include "interface/quorvex.h"

namespace quorvex::bindings {
namespace {

constexpr std::size_t kChunk = std::size_t{1} << 16;  // bytes read at a time
constexpr int kGreyBits = 8;

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

[[noreturn]] void FailOnFile(const char* path) {
  throw Failure(QUORVEX_ERROR_FILE, std::string(path) + ": " + std::strerror(errno));
}

std::vector<unsigned char> ReadWhole(const char* path) {
  const File file(std::fopen(path, "rb"));
  if (file == nullptr) {
    FailOnFile(path);
  }
  std::vector<unsigned char> bytes;
  std::size_t count = 0;
  do {
    const std::size_t before = bytes.size();
    bytes.resize(before + kChunk);
    count = std::fread(bytes.data() + before, 1, kChunk, file.get());
    bytes.resize(before + count);
  } while (count > 0);
  if (std::ferror(file.get()) != 0) {
    FailOnFile(path);
  }
  return bytes;
}

// Header, palette and rows from the bottom up, each padded to 4 bytes.
std::vector<unsigned char> EncodeBmp(const quorvex_image& image) {
  if (!CanBeStoredAsBmp(image.width, image.height, kGreyBits)) {
    throw Failure(QUORVEX_ERROR_SIZE, "image: expected a size that a BMP file can hold, given " +
                                          std::to_string(image.width) + " x " +
                                          std::to_string(image.height));
  }
  const BmpLayout layout = LayOutBmp(image.width, image.height, kGreyBits);
  const std::size_t headers =
      static_cast<std::size_t>(kBmpFileHeaderSize + kBmpInfoHeaderSize + layout.tableSize);
  std::vector<unsigned char> bytes(headers + static_cast<std::size_t>(layout.imageSize));
  FillBmpFileHeader(bytes.data(), layout);
  FillBmpInfo(bytes.data() + kBmpFileHeaderSize, image.width, image.height, kGreyBits);
  const std::size_t width = static_cast<std::size_t>(image.width);
  unsigned char* row = bytes.data() + headers;
  for (int y = image.height - 1; y >= 0; --y) {
    std::memcpy(row, image.pixels + image.stride * y, width);
    row += (width + 3) / 4 * 4;
  }
  return bytes;
}

void WriteWhole(const char* path, const std::vector<unsigned char>& bytes) {
  File file(std::fopen(path, "wb"));
  if (file == nullptr || std::fwrite(bytes.data(), 1, bytes.size(), file.get()) != bytes.size() ||
      std::fclose(file.release()) != 0) {
    FailOnFile(path);
  }
}

void RequireColourImage(const quorvex_colour_image* image) {
  RequirePointer(image, "image");
  RequirePointer(image->pixels, "image->pixels");
  if (image->bits_per_pixel != 24 && image->bits_per_pixel != 32) {
    throw Failure(QUORVEX_ERROR_ARGUMENT, "image->bits_per_pixel: expected 24 or 32, given " +
                                              std::to_string(image->bits_per_pixel));
  }
  RequireRange(image->width, 1, kLargestSide, "image->width");
  RequireRange(image->height, 1, kLargestSide, "image->height");
  const std::ptrdiff_t rowBytes = std::ptrdiff_t{image->width} * (image->bits_per_pixel / 8);
  if (image->stride < rowBytes && image->stride > -rowBytes) {
    throw Failure(QUORVEX_ERROR_ARGUMENT, "image->stride: expected " + std::to_string(rowBytes) +
                                              " bytes or more, or minus that, given " +
                                              std::to_string(image->stride));
  }
}

}  // namespace
}  // namespace quorvex::bindings

using namespace quorvex::bindings;

quorvex_error quorvex_convert_to_grey(const quorvex_colour_image* image, unsigned char* grey) {
  return Run([&] {
    RequireColourImage(image);
    RequirePointer(grey, "grey");
    for (int y = 0; y < image->height; ++y) {
      // The library's conversion takes pixels that it could change, and does not.
      ConvertRGBToGray(const_cast<unsigned char*>(image->pixels + image->stride * y), image->width,
                       1, image->bits_per_pixel, grey + std::ptrdiff_t{image->width} * y);
    }
  });
}

quorvex_error quorvex_read_bmp(const char* path, quorvex_picture** picture) {
  return Run([&] {
    RequirePointer(path, "path");
    RequirePointer(picture, "picture");
    *picture = std::make_unique<quorvex_picture>(DecodeBmp(ReadWhole(path), path)).release();
  });
}

void quorvex_picture_free(quorvex_picture* picture) { delete picture; }

quorvex_error quorvex_picture_image(const quorvex_picture* picture, quorvex_image* image) {
  return Run([&] {
    RequirePointer(picture, "picture");
    RequirePointer(image, "image");
    *image = {picture->pixels.data(), picture->width, picture->height, picture->width};
  });
}

quorvex_error quorvex_write_bmp(const char* path, const quorvex_image* image) {
  return Run([&] {
    RequirePointer(path, "path");
    RequireImage(image, 1);
    WriteWhole(path, EncodeBmp(*image));
  });
}
