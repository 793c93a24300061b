// The one place where the UTF-8 text of an option becomes a file name, and a file name becomes text
// for a message, a list or another program's arguments. Everywhere in between file names are paths:
// on Windows the conversions that std::filesystem::path does by itself take narrow text for the
// system's code page.
#ifndef QUORVEX_TOOLS_SYSTEM_FILE_NAME_H_
#define QUORVEX_TOOLS_SYSTEM_FILE_NAME_H_

#include <filesystem>
#include <string>

namespace quorvex::tools {

inline std::filesystem::path PathFromUtf8(const std::string& text) {
  return std::filesystem::u8path(text);
}

// On POSIX a name that is not UTF-8 comes out as it is.
inline std::string Utf8Name(const std::filesystem::path& path) { return path.u8string(); }

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_SYSTEM_FILE_NAME_H_
