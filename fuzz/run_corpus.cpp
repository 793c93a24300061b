// Runs a fuzz target without an engine: on nothing, then on every file of the folders and files
// that are named. A folder without a file is a fault, since it would hold nothing.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);

namespace {

using Paths = std::vector<std::filesystem::path>;

// In the order of their names, so that every run is the same.
Paths FilesIn(const std::filesystem::path& folder) {
  Paths files;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    if (entry.is_regular_file()) {
      files.push_back(entry.path());
    }
  }
  std::sort(files.begin(), files.end());
  return files;
}

// The bytes alone, in a block of their size, so that a sanitizer sees a look beyond their end.
bool RunFile(const std::filesystem::path& path) {
  std::printf("%s\n", path.u8string().c_str());
  std::fflush(stdout);  // a fault ends the process
  std::ifstream file(path, std::ios::binary);
  if (!file) {
    std::fprintf(stderr, "run_corpus: the file cannot be read\n");
    return false;
  }
  std::vector<char> bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  bytes.shrink_to_fit();
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
  return true;
}

}  // namespace

int main(int count, char** arguments) {
  LLVMFuzzerTestOneInput(nullptr, 0);
  for (int i = 1; i < count; ++i) {
    const std::filesystem::path path(arguments[i]);
    const Paths files = std::filesystem::is_directory(path) ? FilesIn(path) : Paths{path};
    if (files.empty()) {
      std::fprintf(stderr, "run_corpus: %s holds no file\n", arguments[i]);
      return 1;
    }
    if (!std::all_of(files.begin(), files.end(), RunFile)) {
      return 1;
    }
  }
  return 0;
}
