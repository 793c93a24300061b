// How large a picture the command reads or makes.
#ifndef QUORVEX_TOOLS_PICTURES_PICTURE_LIMITS_H_
#define QUORVEX_TOOLS_PICTURES_PICTURE_LIMITS_H_

#include <cstdint>

namespace quorvex::tools {

constexpr int kMaxPictureSide = 32768;                       // pixels
constexpr std::uint64_t kMaxPictureFileBytes = 1024u << 20;  // bytes; 1 GiB

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_PICTURES_PICTURE_LIMITS_H_
