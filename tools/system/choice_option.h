// Options whose value is one of a few words.
#ifndef QUORVEX_TOOLS_SYSTEM_CHOICE_OPTION_H_
#define QUORVEX_TOOLS_SYSTEM_CHOICE_OPTION_H_

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <string>
#include <string_view>
#include <utility>

namespace quorvex::tools {

// A word, in small letters, and the value it stands for.
template <typename Value>
using Choice = std::pair<std::string_view, Value>;

// `choices` is an array of Choice; `take` gets the value of
// the word that was given, in capitals or not. Any other word is a parse error that lists them:
// "--format: xml is not one of csv, json, text".
template <typename Choices, typename Take>
CLI::Option* AddChoiceOption(CLI::App& command, const std::string& name, const Choices& choices,
                             Take take, const std::string& help) {
  const std::string shownName = name.substr(name.find_last_of(',') + 1);
  return command.add_option_function<std::string>(
      name,
      [choices, take, shownName](const std::string& text) {
        std::string known;
        for (const auto& [word, value] : choices) {
          if (CLI::detail::to_lower(text) == word) {
            take(value);
            return;
          }
          known.append(known.empty() ? "" : ", ").append(word);
        }
        throw CLI::ValidationError(shownName, fmt::format("{} is not one of {}", text, known));
      },
      help);
}

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_SYSTEM_CHOICE_OPTION_H_
