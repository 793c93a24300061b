#include "tools/pictures/pgm_reader.h"

#include <fmt/format.h>

#include <cstddef>

#include "tools/pictures/grey_pixels.h"
#include "tools/pictures/picture_limits.h"
#include "tools/pictures/read_failure.h"

namespace quorvex::tools {
namespace {

constexpr int kLargestByte = 255;  // a larger maximum makes samples of two bytes

bool IsBlank(std::uint8_t byte) { return byte == ' ' || (byte >= '\t' && byte <= '\r'); }

bool IsDigit(std::uint8_t byte) { return byte >= '0' && byte <= '9'; }

// Takes a file from its beginning to its end.
class PgmStream {
 public:
  PgmStream(const std::vector<std::uint8_t>& bytes, const std::string& name)
      : bytes_(bytes), name_(name), next_(2) {}  // after "P5"

  std::uint64_t Left() const { return bytes_.size() - next_; }

  // Skips blanks and comments, which reach from # to the end of the line.
  int Number(const char* what) {
    while (next_ < bytes_.size() && (IsBlank(bytes_[next_]) || bytes_[next_] == '#')) {
      if (bytes_[next_] == '#') {
        SkipLine();
      } else {
        ++next_;
      }
    }
    if (next_ == bytes_.size()) {
      ThrowCannotRead(name_, fmt::format("the file ends before its {}", what));
    }
    if (!IsDigit(bytes_[next_])) {
      ThrowCannotRead(name_, fmt::format("its {} is not a number", what));
    }
    int number = 0;
    for (; next_ < bytes_.size() && IsDigit(bytes_[next_]); ++next_) {
      number = 10 * number + (bytes_[next_] - '0');
      if (number > kLargestSample) {
        ThrowCannotRead(name_, fmt::format("its {} is larger than {}", what, kLargestSample));
      }
    }
    return number;
  }

  // The one that stands between header and pixels.
  void Blank() {
    if (next_ == bytes_.size() || !IsBlank(bytes_[next_])) {
      ThrowCannotRead(name_, "no blank stands between its header and its pixels");
    }
    ++next_;
  }

  // One or two bytes, the high one first; there must be as many left.
  std::uint16_t Sample(int sampleBytes) {
    std::uint16_t sample = bytes_[next_++];
    if (sampleBytes == 2) {
      sample = static_cast<std::uint16_t>(sample << 8 | bytes_[next_++]);
    }
    return sample;
  }

 private:
  void SkipLine() {
    while (next_ < bytes_.size() && bytes_[next_] != '\n' && bytes_[next_] != '\r') {
      ++next_;
    }
  }

  const std::vector<std::uint8_t>& bytes_;
  const std::string& name_;
  std::size_t next_;
};

int Side(PgmStream& stream, const char* what, const std::string& name) {
  const int side = stream.Number(what);
  if (side < 1 || side > kMaxPictureSide) {
    ThrowCannotRead(name, fmt::format("its {} of {} pixels is out of range", what, side));
  }
  return side;
}

}  // namespace

bool IsPgm(const std::vector<std::uint8_t>& bytes) {
  return bytes.size() >= 3 && bytes[0] == 'P' && (bytes[1] == '5' || bytes[1] == '2') &&
         (IsBlank(bytes[2]) || bytes[2] == '#');
}

Picture DecodePgm(const std::vector<std::uint8_t>& bytes, const std::string& name,
                  const std::optional<GreyLevels>& levels) {
  PgmStream stream(bytes, name);
  const bool isText = bytes[1] == '2';
  Picture picture;
  picture.width = Side(stream, "width", name);
  picture.height = Side(stream, "height", name);
  const int largest = stream.Number("largest value");
  if (largest < 1) {
    ThrowCannotRead(name, "its largest value is 0");
  }
  stream.Blank();
  const int sampleBytes = largest > kLargestByte ? 2 : 1;
  const std::uint64_t pixels =
      static_cast<std::uint64_t>(picture.width) * static_cast<std::uint64_t>(picture.height);
  // In text a number takes two characters, but for the last one.
  const std::uint64_t needed =
      isText ? 2 * pixels - 1 : pixels * static_cast<std::uint64_t>(sampleBytes);
  if (needed > stream.Left()) {
    ThrowCannotRead(name, fmt::format("{} x {} pixels need {} bytes, but {} are left",
                                      picture.width, picture.height, needed, stream.Left()));
  }
  const bool isDeep = sampleBytes == 2;
  const GreyScale scale(largest, isDeep ? levels : std::nullopt);
  picture.pixels = AllocatePixels(static_cast<std::size_t>(pixels), name);
  for (std::uint8_t& pixel : picture.pixels) {
    const std::uint16_t sample = isText ? static_cast<std::uint16_t>(stream.Number("next pixel"))
                                        : stream.Sample(sampleBytes);
    if (sample > largest) {
      ThrowCannotRead(
          name, fmt::format("a pixel of {} is above its largest value of {}", sample, largest));
    }
    pixel = scale(sample);
  }
  picture.bitsPerSample = isDeep ? 16 : 8;
  return picture;
}

}  // namespace quorvex::tools
