#include "tools/report/data_uri.h"

#include <algorithm>
#include <cmath>

#include "tools/pictures/jpeg_writer.h"
#include "tools/pictures/png_codec.h"
#include "tools/pictures/shrinking.h"

namespace quorvex::tools {
namespace {

constexpr const char* kBase64Digits =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

constexpr int kBestQuality = 90;
constexpr int kLeastQuality = 70;      // blocks begin to show
constexpr double kShareAtLeast = 0.5;  // of the characters at the best quality; noise takes less
constexpr double kShrinkMore = 0.95;   // the size in bytes falls slower than the number of pixels
constexpr int kFewestPixels = 64;      // of the longer side

}  // namespace

std::string Base64(const std::vector<std::uint8_t>& bytes) {
  std::string text;
  text.reserve((bytes.size() + 2) / 3 * 4);
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    const std::size_t count = std::min<std::size_t>(3, bytes.size() - i);
    std::uint32_t bits = std::uint32_t{bytes[i]} << 16;
    if (count > 1) {
      bits |= std::uint32_t{bytes[i + 1]} << 8;
    }
    if (count > 2) {
      bits |= bytes[i + 2];
    }
    text += kBase64Digits[bits >> 18];
    text += kBase64Digits[bits >> 12 & 63];
    text += count > 1 ? kBase64Digits[bits >> 6 & 63] : '=';
    text += count > 2 ? kBase64Digits[bits & 63] : '=';
  }
  return text;
}

std::string PngUri(const Picture& picture) {
  return "data:image/png;base64," + Base64(EncodePng(picture, "a picture of the report"));
}

std::string PhotoUri(const Picture& picture, int quality) {
  return WritesJpeg() ? "data:image/jpeg;base64," + Base64(EncodeJpeg(picture, quality))
                      : PngUri(picture);
}

FittedPhoto FitPhoto(const Picture& picture, std::size_t characters) {
  FittedPhoto photo{PhotoUri(picture, kBestQuality), picture.width, picture.height};
  if (photo.dataUri.size() <= characters) {
    return photo;
  }
  const double room = static_cast<double>(characters);
  // A guess, so that a large picture is not compressed once more than it need be.
  double size = kShareAtLeast * static_cast<double>(photo.dataUri.size());
  if (size <= room) {
    photo.dataUri = PhotoUri(picture, kLeastQuality);
    size = static_cast<double>(photo.dataUri.size());
  }
  while (photo.dataUri.size() > characters && std::max(photo.width, photo.height) > kFewestPixels) {
    const double scale = std::min(std::sqrt(room / size), 1.0) * kShrinkMore;
    const int longest = static_cast<int>(std::max(photo.width, photo.height) * scale);
    const Picture small = ShrinkToSide(picture, std::max(longest, kFewestPixels));
    photo = {PhotoUri(small, kLeastQuality), small.width, small.height};
    size = static_cast<double>(photo.dataUri.size());
  }
  return photo;
}

}  // namespace quorvex::tools
