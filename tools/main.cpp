#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>

#include "tools/errors.h"
#include "tools/subcommands.h"
#include "tools/system/system_files.h"

namespace {

using namespace quorvex::tools;

int ReportParseError(const CLI::App& app, const CLI::ParseError& error) {
  const int code = app.exit(error);  // prints the help text, the version or the error
  return code == 0 ? kExitSuccess : kExitBadInput;
}

}  // namespace

int main(int argc, char** argv) {
  PassStandardStreamsUnchanged();
  CLI::App app{"Quorvex finds the calibration points of a cross-mark target in fisheye images."};
  app.set_version_flag("--version", "quorvex " QUORVEX_VERSION);
  app.require_subcommand(1);
  Action action;
  AddDetectCommand(app, action);
  AddPointsCommand(app, action);
  AddRenderCommand(app, action);
  AddCompareCommand(app, action);

  try {
    app.parse(argc, argv);
    return action();
  } catch (const CLI::ParseError& error) {
    return ReportParseError(app, error);
  } catch (const std::exception& error) {
    fmt::print(stderr, "quorvex: {}\n", error.what());
    return kExitBadInput;
  }
}
