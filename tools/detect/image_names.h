// Names for the files and folders that one command makes for several images.
#ifndef QUORVEX_TOOLS_DETECT_IMAGE_NAMES_H_
#define QUORVEX_TOOLS_DETECT_IMAGE_NAMES_H_

#include <filesystem>
#include <vector>

namespace quorvex::tools {

// The name of each image without folder and ending. Later ones of the same name get -2, -3, ...
// after it, so that all differ as file names.
std::vector<std::filesystem::path> NamesOfImages(const std::vector<std::filesystem::path>& images);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_DETECT_IMAGE_NAMES_H_
