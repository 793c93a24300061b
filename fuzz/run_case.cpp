#include "fuzz/run_case.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <string>

#include "fuzz/fault.h"
#include "tests/support/differential_cases.h"

namespace quorvex::fuzz {
namespace {

constexpr std::size_t kPrefix = 3;  // bytes in front of those that steer the case

// Cases change the current directory, from which an engine names its files.
class KeptDirectory {
 public:
  KeptDirectory() : path_(std::filesystem::current_path()) {}
  ~KeptDirectory() {
    std::error_code ignored;
    std::filesystem::current_path(path_, ignored);
  }
  KeptDirectory(const KeptDirectory&) = delete;
  KeptDirectory& operator=(const KeptDirectory&) = delete;

 private:
  std::filesystem::path path_;
};

}  // namespace

void RunCase(const std::uint8_t* bytes, std::size_t size) {
  std::uint8_t prefix[kPrefix] = {};
  const std::size_t given = std::min(size, kPrefix);
  std::copy_n(bytes, given, prefix);
  const auto& cases = tests::DifferentialCases();
  const auto& [name, compare] = *std::next(cases.begin(), prefix[0] % cases.size());
  tests::CaseRandom random(prefix[1] * 256u + prefix[2], bytes + given, size - given);
  const KeptDirectory kept;
  const std::string difference = compare(random);
  Require(difference.empty() ? "" : name + ": " + difference);
}

}  // namespace quorvex::fuzz
