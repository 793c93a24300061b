#include "tools/pictures/jpeg_writer.h"

#include <array>
#include <csetjmp>
#include <cstddef>
#include <cstdio>  // before libjpeg's header, which needs it
#include <cstdlib>
#include <stdexcept>

#include <jpeglib.h>

namespace quorvex::tools {
namespace {

// libjpeg leaves a failing call by a jump, which must skip no destructor: what is called between
// setjmp and the jump has plain variables only, and everything else stands in here.
struct Encoder {
  jpeg_compress_struct state{};
  jpeg_error_mgr errors{};
  std::jmp_buf failure{};
  std::array<char, JMSG_LENGTH_MAX> reason{};
  unsigned char* bytes = nullptr;  // by malloc
  unsigned long byteCount = 0;

  Encoder() = default;
  ~Encoder() {
    jpeg_destroy_compress(&state);
    std::free(bytes);
  }
  Encoder(const Encoder&) = delete;
  Encoder& operator=(const Encoder&) = delete;
};

[[noreturn]] void Fail(j_common_ptr common) {
  Encoder& encoder = *static_cast<Encoder*>(common->client_data);
  encoder.errors.format_message(common, encoder.reason.data());
  std::longjmp(encoder.failure, 1);
}

bool Encode(const Picture& picture, int quality, Encoder& encoder) {
  encoder.state.err = jpeg_std_error(&encoder.errors);
  encoder.state.client_data = &encoder;
  encoder.errors.error_exit = Fail;
  if (setjmp(encoder.failure) != 0) {
    return false;
  }
  jpeg_create_compress(&encoder.state);
  jpeg_mem_dest(&encoder.state, &encoder.bytes, &encoder.byteCount);
  encoder.state.image_width = static_cast<JDIMENSION>(picture.width);
  encoder.state.image_height = static_cast<JDIMENSION>(picture.height);
  encoder.state.input_components = 1;
  encoder.state.in_color_space = JCS_GRAYSCALE;
  jpeg_set_defaults(&encoder.state);
  jpeg_set_quality(&encoder.state, quality, TRUE);
  jpeg_start_compress(&encoder.state, TRUE);
  while (encoder.state.next_scanline < encoder.state.image_height) {
    const std::size_t first = encoder.state.next_scanline * std::size_t{encoder.state.image_width};
    // libjpeg's interface is not const, but a row is only read.
    JSAMPROW row = const_cast<JSAMPROW>(picture.pixels.data() + first);
    jpeg_write_scanlines(&encoder.state, &row, 1);
  }
  jpeg_finish_compress(&encoder.state);
  return true;
}

}  // namespace

bool WritesJpeg() { return true; }

std::vector<std::uint8_t> EncodeJpeg(const Picture& picture, int quality) {
  Encoder encoder;
  if (!Encode(picture, quality, encoder)) {
    throw std::runtime_error(encoder.reason.data());
  }
  return {encoder.bytes, encoder.bytes + encoder.byteCount};
}

}  // namespace quorvex::tools
