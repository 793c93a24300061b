// What the command needs of the operating system for its files and its output. The sources beside
// this header are chosen by platform.
#ifndef QUORVEX_TOOLS_SYSTEM_SYSTEM_FILES_H_
#define QUORVEX_TOOLS_SYSTEM_SYSTEM_FILES_H_

#include <cstdio>
#include <filesystem>

namespace quorvex::tools {

// Makes a file that was not there and opens it for writing, byte by byte. Null, with the reason in
// errno, when that fails; EEXIST when something of that name is there, even a dangling link.
std::FILE* CreateNewFile(const std::filesystem::path& path);

// A file to write and read again that no name shows and that goes with the program, however it
// ends. Null, with the reason in errno, when there is none.
std::FILE* OpenScratchFile();

// The same key for names that the system takes for one file, as Windows does without regard to
// case.
std::filesystem::path FileNameKey(const std::filesystem::path& name);

// From here on standard output and standard error pass on the bytes that they get, so that what the
// command says is the same on every system.
void PassStandardStreamsUnchanged();

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_SYSTEM_SYSTEM_FILES_H_
