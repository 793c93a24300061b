// Which of the formats that a build may lack a file is in, by its first bytes.
#ifndef QUORVEX_TOOLS_PICTURES_FILE_SIGNATURES_H_
#define QUORVEX_TOOLS_PICTURES_FILE_SIGNATURES_H_

#include <cstdint>
#include <vector>

namespace quorvex::tools {

bool IsJpeg(const std::vector<std::uint8_t>& bytes);

// Of either byte order; BigTIFF too.
bool IsTiff(const std::vector<std::uint8_t>& bytes);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_PICTURES_FILE_SIGNATURES_H_
