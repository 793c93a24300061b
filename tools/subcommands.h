// The subcommands of the quorvex command. Each registers itself with the argument parser; what it
// does when chosen is stored in `action` and run by main, which turns its result into the exit
// code.
#ifndef QUORVEX_TOOLS_SUBCOMMANDS_H_
#define QUORVEX_TOOLS_SUBCOMMANDS_H_

#include <CLI/CLI.hpp>
#include <functional>

namespace quorvex::tools {

using Action = std::function<int()>;  // returns an exit code (tools/errors.h)

void AddDetectCommand(CLI::App& app, Action& action);
void AddRenderCommand(CLI::App& app, Action& action);
void AddCompareCommand(CLI::App& app, Action& action);
void AddPointsCommand(CLI::App& app, Action& action);
void AddTargetCommand(CLI::App& app, Action& action);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_SUBCOMMANDS_H_
