#include "tools/pictures/jpeg_reader.h"

#include <array>
#include <csetjmp>
#include <cstddef>
#include <cstdio>  // before libjpeg's header, which needs it

#include <jpeglib.h>

#include <jerror.h>

#include <fmt/format.h>

#include "tools/pictures/grey_pixels.h"
#include "tools/pictures/orientation.h"
#include "tools/pictures/picture_limits.h"
#include "tools/pictures/read_failure.h"

namespace quorvex::tools {
namespace {

// A block of 8 x 8 pixels takes one bit at least.
constexpr std::uint64_t kMostPixelsPerByte = std::uint64_t{64} * 8;
constexpr unsigned kLongestMarker = 0xffff;  // bytes
// Files have some ten. Each scan goes over all pixels, and takes a few bytes to say that nothing
// changes: a small file could keep the reader busy for hours.
constexpr int kMostScans = 100;

// libjpeg leaves a failing call by a jump, which must skip no destructor: what is called between
// setjmp and the jump has plain variables only, and everything else stands in here.
struct Decoder {
  jpeg_decompress_struct state{};
  jpeg_error_mgr errors{};
  jpeg_progress_mgr progress{};
  std::jmp_buf failure{};
  std::array<char, JMSG_LENGTH_MAX> reason{};
  std::uint8_t* rows = nullptr;

  Decoder() = default;
  ~Decoder() { jpeg_destroy_decompress(&state); }
  Decoder(const Decoder&) = delete;
  Decoder& operator=(const Decoder&) = delete;
};

Decoder& DecoderOf(j_common_ptr common) { return *static_cast<Decoder*>(common->client_data); }

[[noreturn]] void Fail(j_common_ptr common) {
  Decoder& decoder = DecoderOf(common);
  decoder.errors.format_message(common, decoder.reason.data());
  std::longjmp(decoder.failure, 1);
}

// A warning tells of pixels that were made up; a calibration needs those of the camera.
void FailOnWarning(j_common_ptr common, int level) {
  const bool isWarning = level < 0;  // from 0 on they are traces
  if (isWarning && common->err->msg_code != JWRN_ADOBE_XFORM) {
    Fail(common);
  }
}

void FailOnManyScans(j_common_ptr common) {
  const auto* state = reinterpret_cast<j_decompress_ptr>(common);
  if (state->input_scan_number > kMostScans) {
    Decoder& decoder = DecoderOf(common);
    std::snprintf(decoder.reason.data(), decoder.reason.size(), "it has more than %d scans",
                  kMostScans);
    std::longjmp(decoder.failure, 1);
  }
}

bool ReadHeader(const std::uint8_t* bytes, std::size_t size, Decoder& decoder) {
  decoder.state.err = jpeg_std_error(&decoder.errors);
  decoder.state.client_data = &decoder;
  decoder.errors.error_exit = Fail;
  decoder.errors.emit_message = FailOnWarning;
  if (setjmp(decoder.failure) != 0) {
    return false;
  }
  jpeg_create_decompress(&decoder.state);
  decoder.progress.progress_monitor = FailOnManyScans;
  decoder.state.progress = &decoder.progress;
  jpeg_mem_src(&decoder.state, bytes, static_cast<unsigned long>(size));
  jpeg_save_markers(&decoder.state, JPEG_APP0 + 1, kLongestMarker);  // Exif
  jpeg_read_header(&decoder.state, TRUE);
  return true;
}

bool ReadPixels(Decoder& decoder, std::size_t rowBytes) {
  if (setjmp(decoder.failure) != 0) {
    return false;
  }
  jpeg_start_decompress(&decoder.state);
  while (decoder.state.output_scanline < decoder.state.output_height) {
    JSAMPROW row = decoder.rows + decoder.state.output_scanline * rowBytes;
    jpeg_read_scanlines(&decoder.state, &row, 1);
  }
  jpeg_finish_decompress(&decoder.state);
  return true;
}

void CheckHeader(const jpeg_decompress_struct& state, std::uint64_t fileBytes,
                 const std::string& name) {
  if (state.image_width > kMaxPictureSide || state.image_height > kMaxPictureSide) {
    ThrowCannotRead(name, fmt::format("{} x {} pixels is more than {} on a side", state.image_width,
                                      state.image_height, kMaxPictureSide));
  }
  const std::uint64_t pixels = std::uint64_t{state.image_width} * state.image_height;
  if (pixels / kMostPixelsPerByte > fileBytes) {
    ThrowCannotRead(name, fmt::format("{} x {} pixels do not fit into {} bytes", state.image_width,
                                      state.image_height, fileBytes));
  }
  if (state.jpeg_color_space == JCS_CMYK || state.jpeg_color_space == JCS_YCCK) {
    ThrowCannotRead(name, "its colours are for print (CMYK); save it as grey or RGB");
  }
  if (state.jpeg_color_space == JCS_UNKNOWN) {
    ThrowCannotRead(name,
                    fmt::format("what its {} channels are is not known", state.num_components));
  }
}

int OrientationOf(const jpeg_decompress_struct& state) {
  int orientation = kUpright;
  for (jpeg_saved_marker_ptr marker = state.marker_list;
       marker != nullptr && orientation == kUpright; marker = marker->next) {
    orientation = ExifOrientation(marker->data, marker->data_length);
  }
  return orientation;
}

}  // namespace

bool ReadsJpeg() { return true; }

Picture DecodeJpeg(const std::vector<std::uint8_t>& bytes, const std::string& name) {
  Decoder decoder;
  if (!ReadHeader(bytes.data(), bytes.size(), decoder)) {
    ThrowCannotRead(name, decoder.reason.data());
  }
  CheckHeader(decoder.state, bytes.size(), name);
  const bool isGrey = decoder.state.jpeg_color_space == JCS_GRAYSCALE;
  decoder.state.out_color_space = isGrey ? JCS_GRAYSCALE : JCS_RGB;

  Picture picture;
  picture.width = static_cast<int>(decoder.state.image_width);
  picture.height = static_cast<int>(decoder.state.image_height);
  picture.note = OrientationNote(OrientationOf(decoder.state));
  const std::size_t rowBytes = std::size_t{decoder.state.image_width} * (isGrey ? 1 : 3);
  std::vector<std::uint8_t> samples = AllocatePixels(rowBytes * decoder.state.image_height, name);
  decoder.rows = samples.data();
  if (!ReadPixels(decoder, rowBytes)) {
    ThrowCannotRead(name, decoder.reason.data());
  }
  picture.pixels =
      isGrey ? std::move(samples) : GreyOfRgb(samples, picture.width, picture.height, name);
  return picture;
}

}  // namespace quorvex::tools
