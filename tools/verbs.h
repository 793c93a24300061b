// The verbs of the command line, before the argument parser sees them: help for one, and the
// nearest one for a word that is none.
#ifndef QUORVEX_TOOLS_VERBS_H_
#define QUORVEX_TOOLS_VERBS_H_

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace quorvex::tools {

// "help points add" becomes "points add --help"; other words stay as they are.
std::vector<std::string> WithHelpAsOption(std::vector<std::string> words);

// Throws InputError (tools/errors.h) when a verb is wanted and the word in its place is none:
// "there is no verb 'detct'; did you mean detect?", or the list of verbs when none is near.
void RequireKnownVerbs(const CLI::App& app, const std::vector<std::string>& words);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_VERBS_H_
