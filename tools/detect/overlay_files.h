// Where the overlays of the images go.
#ifndef QUORVEX_TOOLS_DETECT_OVERLAY_FILES_H_
#define QUORVEX_TOOLS_DETECT_OVERLAY_FILES_H_

#include <filesystem>
#include <vector>

namespace quorvex::tools {

// One file for each image. `target` is what the user gave:
// - a folder, that is there or whose name ends in a separator: NAME.png in it,
// - a pattern, with {name} in it: the image's name takes its place,
// - else a file, for one image only.
// NAME is the image's name without folder and ending (image_names.h). Throws InputError when there
// are more images than files, or a file does not end in .png (capitals allowed).
std::vector<std::filesystem::path> OverlayFiles(const std::filesystem::path& target,
                                                const std::vector<std::filesystem::path>& images);

// Throws InputError when an overlay could not be put in place. A folder that is missing is made
// when `target` is a folder or a pattern.
void PrepareOverlayFiles(const std::filesystem::path& target,
                         const std::vector<std::filesystem::path>& files);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_DETECT_OVERLAY_FILES_H_
