#include "tools/pictures/deep_png_reader.h"

#include <png.h>

#include <algorithm>
#include <csetjmp>
#include <cstddef>
#include <utility>

#include "tools/pictures/grey_pixels.h"
#include "tools/pictures/read_failure.h"

namespace quorvex::tools {
namespace {

constexpr std::size_t kLongestReason = 200;  // characters, of libpng

// libpng leaves a failing call by a jump, which must skip no destructor: what is called between
// setjmp and the jump has plain variables only, and everything else stands in here.
struct Decoder {
  png_structp png = nullptr;
  png_infop info = nullptr;
  const std::uint8_t* next = nullptr;
  std::size_t left = 0;  // bytes
  std::jmp_buf failure{};
  char reason[kLongestReason] = {};

  Decoder() = default;
  ~Decoder() { png_destroy_read_struct(&png, &info, nullptr); }
  Decoder(const Decoder&) = delete;
  Decoder& operator=(const Decoder&) = delete;
};

[[noreturn]] void Fail(png_structp png, png_const_charp reason) {
  Decoder& decoder = *static_cast<Decoder*>(png_get_error_ptr(png));
  std::size_t length = 0;
  for (; reason[length] != 0 && length + 1 < kLongestReason; ++length) {
    decoder.reason[length] = reason[length];
  }
  decoder.reason[length] = 0;
  std::longjmp(decoder.failure, 1);
}

void IgnoreWarning(png_structp /*png*/, png_const_charp /*reason*/) {}

void TakeBytes(png_structp png, png_bytep to, png_size_t count) {
  Decoder& decoder = *static_cast<Decoder*>(png_get_io_ptr(png));
  if (count > decoder.left) {
    png_error(png, "the file ends before its pixels do");
  }
  std::copy_n(decoder.next, count, to);
  decoder.next += count;
  decoder.left -= count;
}

bool ReadHeader(Decoder& decoder) {
  decoder.png = png_create_read_struct(PNG_LIBPNG_VER_STRING, &decoder, Fail, IgnoreWarning);
  if (decoder.png == nullptr || setjmp(decoder.failure) != 0) {
    return false;
  }
  decoder.info = png_create_info_struct(decoder.png);
  png_set_read_fn(decoder.png, &decoder, TakeBytes);
  png_read_info(decoder.png, decoder.info);
  png_set_interlace_handling(decoder.png);
  png_read_update_info(decoder.png, decoder.info);
  return true;
}

bool ReadRows(Decoder& decoder, png_bytepp rows) {
  if (setjmp(decoder.failure) != 0) {
    return false;
  }
  png_read_image(decoder.png, rows);
  return true;
}

[[noreturn]] void Refuse(const Decoder& decoder, const std::string& name) {
  ThrowCannotRead(name, decoder.reason[0] == 0 ? "out of memory" : decoder.reason);
}

}  // namespace

Picture DecodeDeepPng(const std::vector<std::uint8_t>& bytes, const std::string& name,
                      const std::optional<GreyLevels>& levels) {
  Decoder decoder;
  decoder.next = bytes.data();
  decoder.left = bytes.size();
  if (!ReadHeader(decoder)) {
    Refuse(decoder, name);
  }
  const std::size_t rowBytes = png_get_rowbytes(decoder.png, decoder.info);
  const std::size_t height = png_get_image_height(decoder.png, decoder.info);
  std::vector<std::uint8_t> packed = AllocatePixels(rowBytes * height, name);
  std::vector<png_bytep> rows(height);
  for (std::size_t y = 0; y < height; ++y) {
    rows[y] = packed.data() + y * rowBytes;
  }
  if (!ReadRows(decoder, rows.data())) {
    Refuse(decoder, name);
  }

  const GreyScale scale(kLargestSample, levels);
  std::vector<std::uint8_t> samples = AllocatePixels(packed.size() / 2, name);
  for (std::size_t i = 0; i < samples.size(); ++i) {
    samples[i] = scale(static_cast<std::uint16_t>(packed[2 * i] << 8 | packed[2 * i + 1]));
  }
  Picture picture;
  picture.width = static_cast<int>(png_get_image_width(decoder.png, decoder.info));
  picture.height = static_cast<int>(height);
  picture.bitsPerSample = 16;
  picture.pixels = png_get_channels(decoder.png, decoder.info) == 1
                       ? std::move(samples)
                       : GreyOfRgb(samples, picture.width, picture.height, name);
  return picture;
}

}  // namespace quorvex::tools
