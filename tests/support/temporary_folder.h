// A folder of its own for a test, removed with all it holds. Names are UTF-8.
#ifndef QUORVEX_TESTS_SUPPORT_TEMPORARY_FOLDER_H_
#define QUORVEX_TESTS_SUPPORT_TEMPORARY_FOLDER_H_

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <system_error>

#include "tests/support/bytes.h"

namespace quorvex::tests {

class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::random_device random;
    do {
      folder =
          std::filesystem::temp_directory_path() / ("quorvex-test-" + std::to_string(random()));
    } while (!std::filesystem::create_directory(folder));
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    // Windows removes no read-only file.
    for (std::filesystem::directory_iterator entry(folder, ignored), end; entry != end;
         entry.increment(ignored)) {
      if (entry->is_regular_file(ignored) && !entry->is_symlink(ignored)) {
        std::filesystem::permissions(entry->path(), std::filesystem::perms::owner_write,
                                     std::filesystem::perm_options::add, ignored);
      }
    }
    std::filesystem::remove_all(folder, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::filesystem::path& Root() const { return folder; }

  std::string Path(const std::string& name = "") const {
    return (folder / std::filesystem::u8path(name)).string();
  }

  // Writes a file and returns its path.
  std::string File(const std::string& name, const std::string& text) const {
    std::ofstream(std::filesystem::u8path(Path(name)), std::ios::binary) << text;
    return Path(name);
  }

  bool Has(const std::string& name) const {
    return std::filesystem::exists(std::filesystem::u8path(Path(name)));
  }

  std::size_t FileCount() const {
    const std::filesystem::directory_iterator files(folder);
    return static_cast<std::size_t>(std::distance(begin(files), end(files)));
  }

 private:
  std::filesystem::path folder;
};

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_SUPPORT_TEMPORARY_FOLDER_H_
