// A folder of its own for a test, removed with all it holds. Names are UTF-8.
#ifndef QUORVEX_TESTS_SUPPORT_TEMPORARY_FOLDER_H_
#define QUORVEX_TESTS_SUPPORT_TEMPORARY_FOLDER_H_

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <system_error>
#include <vector>

namespace quorvex::tests {

class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::random_device random;
    folder = std::filesystem::temp_directory_path() / ("quorvex-" + std::to_string(random()));
    std::filesystem::create_directory(folder);
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

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

using Bytes = std::vector<std::uint8_t>;

inline void WriteBytes(const std::string& path, const Bytes& bytes) {
  std::ofstream file(std::filesystem::u8path(path), std::ios::binary);
  file.write(reinterpret_cast<const char*>(bytes.data()),
             static_cast<std::streamsize>(bytes.size()));
}

inline Bytes ReadBytes(const std::string& path) {
  std::ifstream file(std::filesystem::u8path(path), std::ios::binary);
  return Bytes(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_SUPPORT_TEMPORARY_FOLDER_H_
