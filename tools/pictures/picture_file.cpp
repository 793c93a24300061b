#include "tools/pictures/picture_file.h"

#include <fmt/format.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "tools/errors.h"
#include "tools/pictures/bmp_reader.h"
#include "tools/pictures/bmp_writer.h"
#include "tools/pictures/file_signatures.h"
#include "tools/pictures/grey_pixels.h"
#include "tools/pictures/jpeg_reader.h"
#include "tools/pictures/pgm_reader.h"
#include "tools/pictures/picture_limits.h"
#include "tools/pictures/png_codec.h"
#include "tools/pictures/read_failure.h"
#include "tools/pictures/tiff_reader.h"
#include "tools/system/file_name.h"
#include "tools/system/staged_file.h"

namespace quorvex::tools {
namespace {

enum class PictureFormat { kBmp, kPng };

PictureFormat FormatByEnding(const std::filesystem::path& path) {
  const std::string ending = SmallEnding(path);
  if (ending == ".bmp") {
    return PictureFormat::kBmp;
  }
  if (ending == ".png") {
    return PictureFormat::kPng;
  }
  throw InputError(
      fmt::format("cannot write {}: a picture's name must end in .bmp or .png", Utf8Name(path)));
}

[[noreturn]] void Refuse(const std::filesystem::path& path, const std::string& reason) {
  ThrowCannotRead(Utf8Name(path), reason);
}

// Only a regular file has a size to check against; opening a pipe might wait for ever.
std::vector<std::uint8_t> ReadWholeFile(const std::filesystem::path& path) {
  std::error_code error;
  const std::filesystem::file_status status = std::filesystem::status(path, error);
  if (error) {
    Refuse(path, error.message());
  }
  if (std::filesystem::is_directory(status)) {
    Refuse(path, "it is a directory");
  }
  if (!std::filesystem::is_regular_file(status)) {
    Refuse(path, "it is not a regular file");
  }
  const std::uintmax_t size = std::filesystem::file_size(path, error);
  if (error) {
    Refuse(path, error.message());
  }
  if (size == 0) {
    Refuse(path, "the file is empty");
  }
  if (size > kMaxPictureFileBytes) {
    Refuse(path, fmt::format("{} bytes are more than the {} that are allowed", size,
                             kMaxPictureFileBytes));
  }
  errno = 0;
  std::ifstream file(path, std::ios::binary);
  if (!file) {
    Refuse(path, std::strerror(errno));
  }
  std::vector<std::uint8_t> bytes = AllocatePixels(static_cast<std::size_t>(size), Utf8Name(path));
  file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(size));
  if (file.gcount() != static_cast<std::streamsize>(size)) {
    Refuse(path, "the file became shorter while it was read");
  }
  return bytes;
}

Picture DecodeAnyFormat(const std::vector<std::uint8_t>& bytes, const std::string& name,
                        const std::optional<GreyLevels>& levels) {
  if (IsPng(bytes)) {
    return DecodePng(bytes, name, levels);
  }
  if (IsBmp(bytes)) {
    return DecodeBmp(bytes, name);
  }
  if (IsJpeg(bytes)) {
    return DecodeJpeg(bytes, name);
  }
  if (IsTiff(bytes)) {
    return DecodeTiff(bytes, name, levels);
  }
  if (IsPgm(bytes)) {
    return DecodePgm(bytes, name, levels);
  }
  ThrowCannotRead(name, fmt::format("it is none of the files that are read: {}", ReadFormats()));
}

}  // namespace

std::string ReadFormats() {
  return fmt::format("BMP, PNG, PGM{}{}", ReadsJpeg() ? ", JPEG" : "", ReadsTiff() ? ", TIFF" : "");
}

Picture ReadPictureFile(const std::filesystem::path& path,
                        const std::optional<GreyLevels>& levels) {
  return DecodePicture(ReadWholeFile(path), Utf8Name(path), levels);
}

Picture DecodePicture(const std::vector<std::uint8_t>& bytes, const std::string& name,
                      const std::optional<GreyLevels>& levels) {
  Picture picture = DecodeAnyFormat(bytes, name, levels);
  if (levels && picture.bitsPerSample == 8 && picture.note.empty()) {
    picture.note = "--levels is for pictures of more than 8 bits and changes nothing of this one";
  }
  return picture;
}

void RequirePictureEnding(const std::filesystem::path& path) { FormatByEnding(path); }

std::vector<std::uint8_t> EncodePicture(const Picture& picture, const std::filesystem::path& path) {
  return FormatByEnding(path) == PictureFormat::kBmp ? EncodeBmp(picture, Utf8Name(path))
                                                     : EncodePng(picture, Utf8Name(path));
}

void WritePictureFile(const Picture& picture, const std::filesystem::path& path) {
  WriteFileWhole(path, EncodePicture(picture, path));
}

void WriteColorPng(const ColorPicture& picture, const std::filesystem::path& path) {
  WriteFileWhole(path, EncodePng(picture, Utf8Name(path)));
}

}  // namespace quorvex::tools
