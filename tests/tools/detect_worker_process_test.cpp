#include "tools/detect/private_directory.h"
#include "tools/detect/worker_process.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>

#include <chrono>
#include <filesystem>
#include <set>

#include "tests/tools/detect_test_files.h"

namespace quorvex::tools {
namespace {

using testing::HasSubstr;

void StartShell(WorkerPool& pool, int worker, const std::string& script) {
  pool.Start(worker, "/bin/sh", {"-c", script});
}

TEST(WorkerPool, ReportsEveryWorkerOnce) {
  WorkerPool pool;
  for (int worker = 0; worker < 5; ++worker) StartShell(pool, worker, "exit 0");
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

TEST(WorkerPool, TellsACrashAndAnExitCode) {
  WorkerPool pool;
  StartShell(pool, 7, "kill -SEGV $$");
  const WorkerEnd crash = pool.WaitForOne();
  EXPECT_EQ(crash.worker, 7);
  EXPECT_THAT(crash.failure, HasSubstr("crashed (Segmentation fault"));
  StartShell(pool, 8, "exit 3");
  EXPECT_THAT(pool.WaitForOne().failure, HasSubstr("exit code 3"));
}

TEST(WorkerPool, TellsAProgramThatCannotBeStarted) {
  WorkerPool pool;
  EXPECT_THROW(pool.Start(0, "/nowhere/to/be/found", {}), std::runtime_error);
  EXPECT_EQ(pool.Count(), 0);
}

TEST(WorkerPool, ARequestToStopEndsTheWorkers) {
  const auto start = std::chrono::steady_clock::now();
  {
    WorkerPool pool;
    StartShell(pool, 0, "exec sleep 60");
    raise(SIGTERM);
    try {
      pool.WaitForOne();
      FAIL() << "the request was not seen";
    } catch (const Interrupted& stop) {
      EXPECT_EQ(stop.exitCode, 128 + SIGTERM);
    }
  }
  // The pool is gone, so its worker has been waited for.
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(30));
}

TEST(WorkerPool, AWorkerSeesRequestsToStop) {
  WorkerPool pool;
  StartShell(pool, 0, "kill -TERM $$; sleep 60");
  EXPECT_THAT(pool.WaitForOne().failure, HasSubstr("Terminated"));
}

TEST(PrivateDirectory, GoesWithEverythingInIt) {
  std::string path;
  {
    const PrivateDirectory directory;
    path = directory.Path();
    EXPECT_TRUE(std::filesystem::path(path).is_absolute());
    EXPECT_EQ(std::filesystem::status(path).permissions(), std::filesystem::perms::owner_all);
    std::filesystem::create_directories(std::filesystem::path(path) / "D:" / "deeper");
  }
  EXPECT_FALSE(std::filesystem::exists(path));
}

}  // namespace
}  // namespace quorvex::tools
