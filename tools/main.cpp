#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <exception>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "tools/errors.h"
#include "tools/subcommands.h"
#include "tools/system/system_files.h"
#include "tools/verbs.h"

namespace {

using namespace quorvex::tools;

int ReportParseError(const CLI::App& app, const CLI::ParseError& error) {
  const int code = app.exit(error);  // prints the help text, the version or the error
  return code == 0 ? kExitSuccess : kExitBadInput;
}

int Run(CLI::App& app, std::vector<std::string> words) {
  Action action;
  AddDetectCommand(app, action);
  AddPointsCommand(app, action);
  AddRenderCommand(app, action);
  AddCompareCommand(app, action);
  AddTargetCommand(app, action);
  // Only now: verbs take over the footer that is there when they are added.
  app.footer("'quorvex help VERB' shows the options of a verb.");
  words = WithHelpAsOption(std::move(words));
  RequireKnownVerbs(app, words);
  std::reverse(words.begin(), words.end());  // the parser takes them from the end
  app.parse(words);
  return action();
}

}  // namespace

int main(int argc, char** argv) {
  PassStandardStreamsUnchanged();
  CLI::App app{"Quorvex finds the calibration points of a cross-mark target in fisheye images.",
               "quorvex"};
  app.set_version_flag("-v,--version", "quorvex " QUORVEX_VERSION);
  app.require_subcommand(1);
  try {
    return Run(app, {argv + 1, argv + argc});
  } catch (const CLI::ParseError& error) {
    return ReportParseError(app, error);
  } catch (const std::bad_alloc&) {
    std::fputs("quorvex: out of memory\n", stderr);
  } catch (const std::exception& error) {
    fmt::print(stderr, "quorvex: {}\n", error.what());
  }
  return kExitBadInput;
}
