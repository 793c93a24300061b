// Drive D:, where the library leaves its lists of numbers, without any. On Windows it is the
// machine's (tests that use it hold the lock that tests/CMakeLists.txt gives them); elsewhere a
// folder of that name in the current directory.
#ifndef QUORVEX_TESTS_SUPPORT_LIST_DRIVE_H_
#define QUORVEX_TESTS_SUPPORT_LIST_DRIVE_H_

#include <filesystem>
#include <system_error>

namespace quorvex::tests {

inline constexpr const char* kListNames[] = {"Row.txt", "Col.txt", "sdf.txt"};

class ListDrive {
 public:
  ListDrive() {
    std::error_code isThere;
    std::filesystem::create_directory("D:", isThere);
    RemoveLists();
  }
  ~ListDrive() { RemoveLists(); }
  ListDrive(const ListDrive&) = delete;
  ListDrive& operator=(const ListDrive&) = delete;

  static std::filesystem::path ListPath(const char* name) {
    return std::filesystem::path("D:/") / name;
  }

  static bool HasList(const char* name) { return std::filesystem::exists(ListPath(name)); }

  static bool HasLists() {
    return HasList(kListNames[0]) || HasList(kListNames[1]) || HasList(kListNames[2]);
  }

  // Puts folders where the lists would be, so that none can be opened.
  static void BlockLists() {
    for (const char* name : kListNames) {
      std::filesystem::create_directory(ListPath(name));
    }
  }

 private:
  static void RemoveLists() {
    for (const char* name : kListNames) {
      std::error_code ignored;
      std::filesystem::remove(ListPath(name), ignored);
    }
  }
};

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_SUPPORT_LIST_DRIVE_H_
