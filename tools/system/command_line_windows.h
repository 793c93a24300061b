// Windows hands a program one line of text; this is how arguments are put into it.
#ifndef QUORVEX_TOOLS_SYSTEM_COMMAND_LINE_WINDOWS_H_
#define QUORVEX_TOOLS_SYSTEM_COMMAND_LINE_WINDOWS_H_

#include <filesystem>
#include <string>
#include <vector>

namespace quorvex::tools {

// One argument, in quotes, as CommandLine puts it. The C library's start expands no pattern in
// them.
std::wstring QuotedArgument(const std::string& argument);

// The line that CommandLineToArgvW and the C library's start take apart into `program` and
// `arguments`, which are UTF-8, again; `program` holds no quote, as no file name does.
std::wstring CommandLine(const std::filesystem::path& program,
                         const std::vector<std::string>& arguments);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_SYSTEM_COMMAND_LINE_WINDOWS_H_
