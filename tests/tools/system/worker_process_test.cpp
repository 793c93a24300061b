#include "tools/system/worker_process.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <set>

namespace quorvex::tests {

using namespace tools;

namespace {

using testing::HasSubstr;

TEST(WorkerPool, ReportsEveryWorkerOnce) {
  WorkerPool pool;
  for (int worker = 0; worker < 5; ++worker) pool.Start(worker, QUORVEX_WORKER, {"exit", "0"});
  EXPECT_EQ(pool.Count(), 5);
  std::set<int> ended;
  for (int i = 0; i < 5; ++i) {
    const WorkerEnd end = pool.WaitForOne();
    EXPECT_EQ(end.failure, "");
    ended.insert(end.worker);
  }
  EXPECT_EQ(ended.size(), 5u);
  EXPECT_EQ(pool.Count(), 0);
}

// As many as the command allows; the last one started is the one that ends.
TEST(WorkerPool, SeesTheEndOfOneAmongMany) {
  const auto start = std::chrono::steady_clock::now();
  {
    WorkerPool pool;
    for (int worker = 0; worker < 63; ++worker) pool.Start(worker, QUORVEX_WORKER, {"sleep"});
    pool.Start(63, QUORVEX_WORKER, {"exit", "0"});
    EXPECT_EQ(pool.WaitForOne().worker, 63);
  }
  // The pool is gone, and with it the workers that slept.
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(50));
}

TEST(WorkerPool, TellsACrashAndAnExitCode) {
  WorkerPool pool;
  pool.Start(7, QUORVEX_WORKER, {"crash"});
  const WorkerEnd crash = pool.WaitForOne();
  EXPECT_EQ(crash.worker, 7);
  EXPECT_THAT(crash.failure, HasSubstr("the detection crashed (" QUORVEX_CRASH));
  pool.Start(8, QUORVEX_WORKER, {"exit", "3"});
  EXPECT_EQ(pool.WaitForOne().failure, "the detection ended with exit code 3");
}

TEST(WorkerPool, TellsAProgramThatCannotBeStarted) {
  WorkerPool pool;
  EXPECT_THROW(pool.Start(0, "/nowhere/to/be/found", {}), std::runtime_error);
  EXPECT_EQ(pool.Count(), 0);
}

TEST(OwnProgram, IsThisOne) {
  EXPECT_EQ(OwnProgramPath().stem(), "tools_tests");
  EXPECT_TRUE(std::filesystem::is_regular_file(OwnProgramPath()));
}

}  // namespace
}  // namespace quorvex::tests
