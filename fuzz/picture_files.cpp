// The command's readers of picture files on any bytes: a picture that is read is as large as it
// says, comes back the same from the files that the command writes, and what is refused is refused
// in one sentence.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "fuzz/fault.h"
#include "tools/errors.h"
#include "tools/pictures/picture_file.h"
#include "tools/pictures/picture_limits.h"

namespace quorvex::fuzz {
namespace {

using tools::GreyLevels;
using tools::Picture;
using Bytes = std::vector<std::uint8_t>;

constexpr std::size_t kMostWritten = 1u << 16;  // pixels; larger ones would be all the time is for

std::optional<Picture> Read(const Bytes& bytes, const std::optional<GreyLevels>& levels) {
  try {
    return tools::DecodePicture(bytes, "a.b", levels);
  } catch (const tools::InputError& error) {
    const std::string sentence = error.what();
    Require(sentence.rfind("cannot read a.b: ", 0) == 0 && sentence.size() > 17 &&
                sentence.find('\n') == std::string::npos,
            "a refusal is no sentence");
    return std::nullopt;
  }
}

void CheckSizes(const Picture& picture) {
  Require(picture.width >= 1 && picture.width <= tools::kMaxPictureSide && picture.height >= 1 &&
              picture.height <= tools::kMaxPictureSide,
          "a picture is smaller or larger than may be");
  Require(picture.pixels.size() ==
              static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height),
          "a picture has not as many pixels as its sides say");
  Require(picture.bitsPerSample == 8 || picture.bitsPerSample == 16, "a picture's depth is none");
}

void CheckWriting(const Picture& picture) {
  for (const char* name : {"a.bmp", "a.png"}) {
    const std::optional<Picture> again = Read(tools::EncodePicture(picture, name), std::nullopt);
    Require(again && again->width == picture.width && again->height == picture.height &&
                again->pixels == picture.pixels,
            "a picture that was written does not come back");
  }
}

void RunFile(const Bytes& bytes) {
  const std::optional<Picture> picture = Read(bytes, std::nullopt);
  if (!picture) {
    return;
  }
  CheckSizes(*picture);
  if (picture->pixels.size() <= kMostWritten) {
    CheckWriting(*picture);
  }
  // Only of deep pictures do levels change a pixel.
  const std::optional<Picture> other = Read(bytes, GreyLevels{1000, 3000});
  if (other) {
    CheckSizes(*other);
    Require(picture->bitsPerSample == 16 || other->pixels == picture->pixels,
            "levels change a picture of 8 bits");
  }
}

}  // namespace
}  // namespace quorvex::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  if (size > 0) {  // an empty file is refused before it is looked into
    quorvex::fuzz::RunFile({bytes, bytes + size});
  }
  return 0;
}
