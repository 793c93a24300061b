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

// The ending of a name with its dot, A to Z made small: ".png" of "Seen.PNG".
inline std::string SmallEnding(const std::filesystem::path& path) {
  std::string ending = Utf8Name(path.extension());
  for (char& letter : ending) {
    if (letter >= 'A' && letter <= 'Z') {
      letter = static_cast<char>(letter - 'A' + 'a');
    }
  }
  return ending;
}

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_SYSTEM_FILE_NAME_H_
