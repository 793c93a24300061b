// Where the command puts its text: a file that appears whole or not at all, or standard output.
#ifndef QUORVEX_TOOLS_SYSTEM_OUTPUT_FILE_H_
#define QUORVEX_TOOLS_SYSTEM_OUTPUT_FILE_H_

#include <filesystem>
#include <string>

namespace quorvex::tools {

// Whether the name given for an output is none, or "-".
bool IsStandardOutput(const std::filesystem::path& path);

// Throws InputError when a file could not be put in place at `path`, and leaves nothing behind. For
// use before long work, so that its result is not lost to a mistyped name. Standard output is taken
// for writable.
void RequireWritable(const std::filesystem::path& path);

// Throws InputError; an earlier file at `path` is then as it was.
void WriteTextFileWhole(const std::filesystem::path& path, const std::string& text);

// To the file, or to standard output where IsStandardOutput. Throws InputError.
void WriteText(const std::filesystem::path& path, const std::string& text);

// Throws InputError when standard output does not take everything.
void WriteToStandardOutput(const std::string& text);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_SYSTEM_OUTPUT_FILE_H_
