#include "tools/detect/list_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "tests/support/temporary_folder.h"

namespace quorvex::tests {

using namespace tools;

namespace {

TEST(ListFolder, HoldsNoListsOfEarlierDetectionsOnceItIsPrepared) {
  const TemporaryFolder first;
  PrepareListFolder(first.Path());
  for (const char* name : kListFiles) std::ofstream(ListFolder(first.Path()) / name) << "1 2\n";
  const TemporaryFolder second;
  PrepareListFolder(second.Path());
  for (const char* name : kListFiles) {
    EXPECT_FALSE(std::filesystem::exists(ListFolder(second.Path()) / name)) << name;
  }
}

TEST(ListFolder, IsSharedOnlyWhereItIsTheSameForAllDetections) {
  EXPECT_EQ(ListFolder("a") == ListFolder("b"), IsListFolderShared());
}

TEST(ListFolder, ThatCannotBeHadIsNoFailure) {
  EXPECT_NO_THROW(PrepareListFolder("/no/such/directory"));
}

}  // namespace
}  // namespace quorvex::tests
