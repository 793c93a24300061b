// The pictures and lists that the detection leaves behind, and keeping them for the user.
#ifndef QUORVEX_TOOLS_DETECT_DIAGNOSTICS_FOLDER_H_
#define QUORVEX_TOOLS_DETECT_DIAGNOSTICS_FOLDER_H_

#include <filesystem>
#include <vector>

namespace quorvex::tools {

// Where each image's diagnostics go: `folder` itself for one image, else a folder per image in it,
// with the image's name (image_names.h).
std::vector<std::filesystem::path> DiagnosticsFolders(
    const std::filesystem::path& folder, const std::vector<std::filesystem::path>& images);

// Makes the folder and its parents where they are missing. Throws InputError when that fails or no
// file can be made in it.
void PrepareDiagnosticsFolder(const std::filesystem::path& folder);

// Copies what a detection left in `directory` to `folder`, lists and pictures side by side. A file
// of an earlier detection that this one did not write is removed. Throws InputError.
void KeepDiagnostics(const std::filesystem::path& directory, const std::filesystem::path& folder);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_DETECT_DIAGNOSTICS_FOLDER_H_
