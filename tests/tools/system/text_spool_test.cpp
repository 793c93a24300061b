#include "tools/system/text_spool.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/test_files.h"
#include "tools/errors.h"

namespace quorvex::tests {

using namespace tools;

namespace {

TEST(TextSpool, GivesBackAllOfItWhateverMemoryHolds) {
  std::string all;
  for (int i = 0; i < 30000; ++i) all += std::to_string(i) + '\n';
  for (const std::size_t capacity : {std::size_t{0}, std::size_t{1000}, std::size_t{1} << 30}) {
    const TemporaryFolder folder;
    TextSpool spool(capacity);
    for (std::size_t i = 0; i < all.size(); i += 777) spool.Append(all.substr(i, 777));
    spool.WriteTo(folder.Path("a.txt"));
    EXPECT_EQ(ReadWhole(folder.Path("a.txt")), all) << capacity;
    EXPECT_EQ(folder.FileCount(), 1u);
  }
}

TEST(TextSpool, LeavesNothingWhereItCannotWrite) {
  const TemporaryFolder folder;
  TextSpool spool(10);
  spool.Append("some text that does not fit");
  EXPECT_THROW(spool.WriteTo(folder.Path("absent/a.txt")), InputError);
  EXPECT_EQ(folder.FileCount(), 0u);
}

}  // namespace
}  // namespace quorvex::tests
