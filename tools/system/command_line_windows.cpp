#include "tools/system/command_line_windows.h"

#include <cstddef>

#include "tools/system/file_name.h"

namespace quorvex::tools {

// A backslash stands for itself, except in a run that ends at a quote: there two stand for one, and
// one more before the quote makes it part of the argument.
std::wstring QuotedArgument(const std::string& argument) {
  std::wstring quoted = L"\"";
  std::size_t backslashes = 0;
  for (const wchar_t c : PathFromUtf8(argument).wstring()) {
    if (c == L'"') {
      quoted.append(backslashes + 1, L'\\');
    }
    backslashes = c == L'\\' ? backslashes + 1 : 0;
    quoted += c;
  }
  return quoted.append(backslashes, L'\\') + L'"';
}

std::wstring CommandLine(const std::filesystem::path& program,
                         const std::vector<std::string>& arguments) {
  // The program's name has rules of its own: everything between the quotes stands for itself.
  std::wstring line = L'"' + program.wstring() + L'"';
  for (const std::string& argument : arguments) {
    line += L' ' + QuotedArgument(argument);
  }
  return line;
}

}  // namespace quorvex::tools
