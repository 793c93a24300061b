// The option of the verbs that read pictures with more than 8 bits.
#ifndef QUORVEX_TOOLS_PICTURES_LEVELS_OPTION_H_
#define QUORVEX_TOOLS_PICTURES_LEVELS_OPTION_H_

#include <CLI/CLI.hpp>
#include <optional>
#include <string>

#include "tools/pictures/grey_levels.h"

namespace quorvex::tools {

// `levels` stays as it is when the option is not given.
inline CLI::Option* AddLevelsOption(CLI::App& command, std::optional<GreyLevels>& levels) {
  return command
      .add_option_function<std::string>(
          "--levels", [&levels](const std::string& text) { levels = ParseGreyLevels(text); },
          "of pictures with more than 8 bits: values up to LOW become black, from HIGH on white, "
          "linear in between; 0 and the largest value that the file allows (65535, in PGM files "
          "what their header says) when not given")
      ->option_text("LOW,HIGH");
}

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_PICTURES_LEVELS_OPTION_H_
