#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>

#include <chrono>
#include <filesystem>

#include "tools/system/private_directory.h"
#include "tools/system/worker_process.h"

namespace quorvex::tests {

using namespace tools;

namespace {

using testing::HasSubstr;

void StartShell(WorkerPool& pool, int worker, const std::string& script) {
  pool.Start(worker, "/bin/sh", {"-c", script});
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

TEST(PrivateDirectory, IsForThisUserOnly) {
  const PrivateDirectory directory;
  EXPECT_EQ(std::filesystem::status(directory.Path()).permissions(),
            std::filesystem::perms::owner_all);
}

}  // namespace
}  // namespace quorvex::tests
