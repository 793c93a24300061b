// Reading and writing picture files for the command: BMP (8, 24, 32 bits; top-down and paletted
// files too) and PNG; reading alone: JPEG, TIFF and PGM. Stricter and more telling than the
// library's own BMP export: every size is checked against the file before anything is allocated,
// and each failure is one sentence.
#ifndef QUORVEX_TOOLS_PICTURES_PICTURE_FILE_H_
#define QUORVEX_TOOLS_PICTURES_PICTURE_FILE_H_

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "tools/pictures/grey_levels.h"
#include "tools/pictures/picture.h"

namespace quorvex::tools {

// Reads a picture. One whose colour channels are equal is grey as it is; other colours become grey
// by the library's ConvertRGBToGray. Values of more than 8 bits are scaled: from 0 to the largest
// that the format or the file allows, or by `levels`, of which a picture of 8 bits only notes that
// they are not for it. The format is told by the file's first bytes, not by its name. Throws
// InputError (tools/errors.h) naming file and reason.
Picture ReadPictureFile(const std::filesystem::path& path,
                        const std::optional<GreyLevels>& levels = std::nullopt);

// The same of the bytes of a file; `name` is the file's, for messages.
Picture DecodePicture(const std::vector<std::uint8_t>& bytes, const std::string& name,
                      const std::optional<GreyLevels>& levels = std::nullopt);

// What ReadPictureFile of this build reads, for messages and helps: "BMP, PNG, PGM, JPEG, TIFF".
std::string ReadFormats();

// Writes an 8-bit picture as BMP (bottom-up, grey ramp) or PNG, by the ending of `path`; the file
// appears whole or not at all. Throws InputError when the ending is unknown or the file cannot be
// written.
void WritePictureFile(const Picture& picture, const std::filesystem::path& path);

// The bytes that WritePictureFile would write to `path`, for a caller that has several files to put
// in place together. Throws InputError when the ending is unknown or the picture cannot be encoded.
std::vector<std::uint8_t> EncodePicture(const Picture& picture, const std::filesystem::path& path);

// Throws InputError when `path` ends in neither .bmp nor .png (capitals allowed), so that a long
// computation can be refused before it starts.
void RequirePictureEnding(const std::filesystem::path& path);

// Writes a colour picture as PNG, whole or not at all. Throws InputError when it cannot be written.
void WriteColorPng(const ColorPicture& picture, const std::filesystem::path& path);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_PICTURES_PICTURE_FILE_H_
