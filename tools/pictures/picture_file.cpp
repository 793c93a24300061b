#include "tools/pictures/picture_file.h"

#include <fmt/format.h>

#include <cctype>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "tools/errors.h"
#include "tools/pictures/bmp_reader.h"
#include "tools/pictures/bmp_writer.h"
#include "tools/pictures/picture_limits.h"
#include "tools/pictures/png_codec.h"
#include "tools/system/staged_file.h"

namespace quorvex::tools {
namespace {

enum class PictureFormat { kBmp, kPng };

PictureFormat FormatByEnding(const std::string& path) {
  std::string ending = std::filesystem::u8path(path).extension().string();
  for (char& letter : ending) {
    letter = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
  }
  if (ending == ".bmp") {
    return PictureFormat::kBmp;
  }
  if (ending == ".png") {
    return PictureFormat::kPng;
  }
  throw InputError(fmt::format("cannot write {}: a picture's name must end in .bmp or .png", path));
}

[[noreturn]] void ThrowCannotRead(const std::string& path, const std::string& reason) {
  throw InputError(fmt::format("cannot read {}: {}", path, reason));
}

// Only a regular file has a size to check against; opening a pipe might wait for ever.
std::vector<std::uint8_t> ReadWholeFile(const std::string& path) {
  std::error_code error;
  const std::filesystem::file_status status =
      std::filesystem::status(std::filesystem::u8path(path), error);
  if (error) {
    ThrowCannotRead(path, error.message());
  }
  if (std::filesystem::is_directory(status)) {
    ThrowCannotRead(path, "it is a directory");
  }
  if (!std::filesystem::is_regular_file(status)) {
    ThrowCannotRead(path, "it is not a regular file");
  }
  const std::uintmax_t size = std::filesystem::file_size(std::filesystem::u8path(path), error);
  if (error) {
    ThrowCannotRead(path, error.message());
  }
  if (size == 0) {
    ThrowCannotRead(path, "the file is empty");
  }
  if (size > kMaxPictureFileBytes) {
    ThrowCannotRead(path, fmt::format("{} bytes are more than the {} that are allowed", size,
                                      kMaxPictureFileBytes));
  }
  errno = 0;
  std::ifstream file(std::filesystem::u8path(path), std::ios::binary);
  if (!file) {
    ThrowCannotRead(path, std::strerror(errno));
  }
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(size));
  file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(size));
  if (file.gcount() != static_cast<std::streamsize>(size)) {
    ThrowCannotRead(path, "the file became shorter while it was read");
  }
  return bytes;
}

}  // namespace

Picture ReadPictureFile(const std::string& path) {
  const std::vector<std::uint8_t> bytes = ReadWholeFile(path);
  if (IsPng(bytes)) {
    return DecodePng(bytes, path);
  }
  if (IsBmp(bytes)) {
    return DecodeBmp(bytes, path);
  }
  ThrowCannotRead(path, "it is neither a BMP nor a PNG file");
}

void RequirePictureEnding(const std::string& path) { FormatByEnding(path); }

std::vector<std::uint8_t> EncodePicture(const Picture& picture, const std::string& path) {
  return FormatByEnding(path) == PictureFormat::kBmp ? EncodeBmp(picture, path)
                                                     : EncodePng(picture, path);
}

void WritePictureFile(const Picture& picture, const std::string& path) {
  WriteFileWhole(path, EncodePicture(picture, path));
}

void WriteColorPng(const ColorPicture& picture, const std::string& path) {
  WriteFileWhole(path, EncodePng(picture, path));
}

}  // namespace quorvex::tools
