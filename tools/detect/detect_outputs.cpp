#include "tools/detect/detect_outputs.h"

#include <fmt/format.h>

#include <system_error>

#include "tools/detect/diagnostics_folder.h"
#include "tools/detect/overlay_files.h"
#include "tools/errors.h"
#include "tools/system/file_name.h"
#include "tools/system/output_file.h"

namespace quorvex::tools {
namespace {

namespace fs = std::filesystem;

void RequireNotAnImage(const fs::path& path, const std::vector<fs::path>& images) {
  for (const fs::path& image : images) {
    std::error_code ignored;
    if (fs::equivalent(path, image, ignored)) {
      throw InputError(
          fmt::format("{} is one of the images and would be overwritten", Utf8Name(path)));
    }
  }
}

// The file of the report; makes its folder.
fs::path PrepareReport(const DetectOptions& options) {
  std::error_code error;
  fs::create_directories(options.report, error);
  if (error) {
    throw InputError(fmt::format("cannot make the folder {} for the report: {}",
                                 Utf8Name(options.report), error.message()));
  }
  const fs::path page = options.report / "index.html";
  RequireNotAnImage(page, options.images);
  RequireWritable(page);
  return page;
}

}  // namespace

ImageOutputs PrepareOutputs(const DetectOptions& options) {
  ImageOutputs outputs;
  if (!options.overlay.empty()) {
    outputs.overlays = OverlayFiles(options.overlay, options.images);
    for (const fs::path& overlay : outputs.overlays) {
      if (overlay == options.output) {
        throw InputError("--overlay and --output name the same file");
      }
      RequireNotAnImage(overlay, options.images);
    }
    PrepareOverlayFiles(options.overlay, outputs.overlays);
  }
  if (!IsStandardOutput(options.output)) {
    RequireNotAnImage(options.output, options.images);
    RequireWritable(options.output);
  }
  if (!options.report.empty()) {
    outputs.report = PrepareReport(options);
  }
  if (!options.diagnostics.empty()) {
    outputs.diagnosticsFolders = DiagnosticsFolders(options.diagnostics, options.images);
    for (const fs::path& folder : outputs.diagnosticsFolders) {
      PrepareDiagnosticsFolder(folder);
    }
  }
  return outputs;
}

}  // namespace quorvex::tools
