// Two forms of a stage that leaves files in the current directory, each in a directory of its own.
#ifndef QUORVEX_TESTS_SUPPORT_SIDE_BY_SIDE_H_
#define QUORVEX_TESTS_SUPPORT_SIDE_BY_SIDE_H_

#include <filesystem>
#include <fstream>
#include <map>
#include <string>

#include "tests/support/bytes.h"
#include "tests/support/differential.h"
#include "tests/support/temporary_directory.h"

namespace quorvex::tests {

class SideBySide {
 public:
  SideBySide() {
    for (const char* name :
         {"CrossMarkRegion.bmp", "Sauvola.bmp", "Thining.bmp", "Lines.bmp", "LineSegment.bmp"}) {
      std::filesystem::create_directory(blocked_.Path() / name);
    }
  }

  // In empty directories: a file made anew takes a fraction of the time of one that is replaced.
  template <typename Plain, typename Fast>
  void Run(Plain plain, Fast fast) {
    Clear(plain_.Path());
    Clear(fast_.Path());
    RunAgain(plain, fast);
  }

  // Since files take most of the time, both forms run where the pictures of a mark cannot be
  // written, but for one case in ten.
  template <typename Plain, typename Fast>
  void RunMostlyBlocked(CaseRandom& random, Plain plain, Fast fast) {
    if (random.OneIn(10)) {
      Run(plain, fast);
      return;
    }
    hasFiles_ = false;
    std::filesystem::current_path(blocked_.Path());
    plain();
    fast();
  }

  // Over the files of the run before.
  template <typename Plain, typename Fast>
  void RunAgain(Plain plain, Fast fast) {
    hasFiles_ = true;
    std::filesystem::current_path(plain_.Path());
    plain();
    std::filesystem::current_path(fast_.Path());
    fast();
  }

  // The first file of the last run that differs, or nothing.
  std::string FileDifference() const {
    if (!hasFiles_) {
      return "";
    }
    const std::map<std::string, Bytes> plainFiles = FilesOf(plain_.Path());
    const std::map<std::string, Bytes> fastFiles = FilesOf(fast_.Path());
    for (const auto& [name, bytes] : plainFiles) {
      const auto other = fastFiles.find(name);
      if (other == fastFiles.end()) {
        return name + " is missing";
      }
      if (other->second != bytes) {
        return name + DifferenceOf(bytes, other->second);
      }
    }
    for (const auto& [name, bytes] : fastFiles) {
      if (plainFiles.count(name) == 0) {
        return name + " is left, but not by the plain form";
      }
    }
    return "";
  }

 private:
  static void Clear(const std::filesystem::path& directory) {
    for (const auto& entry : std::filesystem::directory_iterator(directory)) {
      std::filesystem::remove_all(entry.path());
    }
  }

  static std::map<std::string, Bytes> FilesOf(const std::filesystem::path& directory) {
    std::map<std::string, Bytes> files;
    for (const auto& entry : std::filesystem::directory_iterator(directory)) {
      if (entry.is_regular_file()) {
        Bytes& bytes = files[entry.path().filename().string()];
        bytes.resize(static_cast<std::size_t>(entry.file_size()));
        std::ifstream(entry.path(), std::ios::binary)
            .read(reinterpret_cast<char*>(bytes.data()),
                  static_cast<std::streamsize>(bytes.size()));
      }
    }
    return files;
  }

  static std::string DifferenceOf(const Bytes& plain, const Bytes& fast) {
    if (plain.size() != fast.size()) {
      return " has " + std::to_string(fast.size()) + " bytes, plain " +
             std::to_string(plain.size());
    }
    std::size_t i = 0;
    while (plain[i] == fast[i]) {
      ++i;
    }
    return ": byte " + std::to_string(i) + " is " + std::to_string(fast[i]) + ", plain " +
           std::to_string(plain[i]);
  }

  bool hasFiles_ = false;
  TemporaryDirectory blocked_;
  TemporaryDirectory plain_;
  TemporaryDirectory fast_;
};

// For all the cases of a program: their folders are made once.
inline SideBySide& SharedSideBySide() {
  static SideBySide forms;
  return forms;
}

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_SUPPORT_SIDE_BY_SIDE_H_
