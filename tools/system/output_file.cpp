#include "tools/system/output_file.h"

#include <cstddef>
#include <cstdio>

#include "tools/errors.h"
#include "tools/system/staged_file.h"

namespace quorvex::tools {

bool IsStandardOutput(const std::filesystem::path& path) { return path.empty() || path == "-"; }

void RequireWritable(const std::filesystem::path& path) {
  if (!IsStandardOutput(path)) {
    const StagedFile neverCommitted(path, {});
  }
}

void WriteTextFileWhole(const std::filesystem::path& path, const std::string& text) {
  WriteFileWhole(path, {text.begin(), text.end()});
}

void WriteText(const std::filesystem::path& path, const std::string& text) {
  if (IsStandardOutput(path)) {
    WriteToStandardOutput(text);
  } else {
    WriteTextFileWhole(path, text);
  }
}

void WriteToStandardOutput(const std::string& text) {
  const std::size_t written = std::fwrite(text.data(), 1, text.size(), stdout);
  if (written != text.size() || std::fflush(stdout) != 0) {
    throw InputError("standard output cannot be written");
  }
}

}  // namespace quorvex::tools
