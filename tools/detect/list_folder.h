// The folder "D:/" that the library writes its lists of numbers to. On POSIX that is a folder of
// the worker's directory, on Windows the drive D:, if there is one. The sources beside this header
// are chosen by platform.
#ifndef QUORVEX_TOOLS_DETECT_LIST_FOLDER_H_
#define QUORVEX_TOOLS_DETECT_LIST_FOLDER_H_

#include <filesystem>

namespace quorvex::tools {

constexpr const char* kListFiles[] = {"Row.txt", "Col.txt", "sdf.txt"};

// Where the detection in `directory` puts its lists.
std::filesystem::path ListFolder(const std::filesystem::path& directory);

// Whether the detections in all directories share that folder, so that they must run one after the
// other if their lists matter.
bool IsListFolderShared();

// To be called before the detection in `directory` when its lists matter: makes their folder where
// it is the directory's own, and removes the lists of earlier detections where it is not. Where
// the folder cannot be had there will be no lists, which is no failure.
void PrepareListFolder(const std::filesystem::path& directory);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_DETECT_LIST_FOLDER_H_
