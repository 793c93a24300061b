// The DLL of this build, and the decorated names that the import library of Visual C++ hosts is
// made from.
#ifndef QUORVEX_TESTS_WINDOWS_HOST_NAMES_H_
#define QUORVEX_TESTS_WINDOWS_HOST_NAMES_H_

#include <filesystem>
#include <fstream>
#include <set>
#include <string>

namespace quorvex::tests {

inline std::wstring TheDll() {
  return std::filesystem::path(QUORVEX_DLL).make_preferred().wstring();
}

inline std::set<std::string> HostNames() {
  std::set<std::string> names;
  std::ifstream list(QUORVEX_HOST_NAMES);
  for (std::string line; std::getline(list, line);) {
    const std::size_t first = line.find('"');
    if (first != std::string::npos) {
      names.insert(line.substr(first + 1, line.rfind('"') - first - 1));
    }
  }
  return names;
}

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_WINDOWS_HOST_NAMES_H_
