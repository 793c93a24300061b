// Options of the command that name files.
#ifndef QUORVEX_TOOLS_SYSTEM_PATH_OPTION_H_
#define QUORVEX_TOOLS_SYSTEM_PATH_OPTION_H_

#include <CLI/CLI.hpp>
#include <filesystem>
#include <string>
#include <vector>

#include "tools/system/file_name.h"

namespace quorvex::tools {

// `path` stays as it is when the option is not given.
inline CLI::Option* AddPathOption(CLI::App& command, const std::string& name,
                                  std::filesystem::path& path, const std::string& help) {
  return command.add_option_function<std::string>(
      name, [&path](const std::string& text) { path = PathFromUtf8(text); }, help);
}

inline CLI::Option* AddPathsOption(CLI::App& command, const std::string& name,
                                   std::vector<std::filesystem::path>& paths,
                                   const std::string& help) {
  return command.add_option_function<std::vector<std::string>>(
      name,
      [&paths](const std::vector<std::string>& texts) {
        paths.clear();
        for (const std::string& text : texts) {
          paths.push_back(PathFromUtf8(text));
        }
      },
      help);
}

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_SYSTEM_PATH_OPTION_H_
