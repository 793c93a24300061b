#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <string>

#include "tests/support/test_files.h"
#include "tools/system/private_directory.h"
#include "tools/system/staged_file.h"
#include "tools/system/worker_process.h"

namespace quorvex::tests {

using namespace tools;

namespace {

using testing::HasSubstr;
using testing::Not;

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

// The text that comes until every process that could write more is gone, or patience ends.
std::string ReadToTheEnd(int pipe) {
  constexpr int kPatience = 20000;  // milliseconds; the worker would sleep for 60 s
  std::string text;
  struct pollfd readable = {pipe, POLLIN, 0};
  while (poll(&readable, 1, kPatience) > 0) {
    char bytes[64];
    const ssize_t count = read(pipe, bytes, sizeof bytes);
    if (count <= 0) return text + "the end";
    text.append(bytes, static_cast<std::size_t>(count));
  }
  return text;
}

// Even when the command is killed and cannot clean up.
TEST(WorkerPool, WorkersGoWithTheirProcess) {
  int pipe[2];
  ASSERT_EQ(::pipe(pipe), 0);
  const pid_t command = fork();
  if (command == 0) {
    WorkerPool pool;
    const std::string output = std::to_string(pipe[1]);
    StartShell(pool, 0, "echo started >&" + output + "; exec sleep 60");
    StartShell(pool, 1, "sleep 0.3; kill -9 $PPID; exec sleep 60");
    pool.WaitForOne();
    _exit(1);
  }
  close(pipe[1]);
  int status = 0;
  ASSERT_EQ(waitpid(command, &status, 0), command);
  EXPECT_TRUE(WIFSIGNALED(status));
  EXPECT_EQ(ReadToTheEnd(pipe[0]), "started\nthe end");
  close(pipe[0]);
}

TEST(WorkerPool, WorkersInheritNoFileOfTheCommand) {
  const TemporaryFolder folder;
  const std::string listing = folder.Path("listing");
  const StagedFile staged(folder.Path("staged"));
  WorkerPool pool;
  StartShell(pool, 0, "ls -l /proc/self/fd > " + listing);
  EXPECT_EQ(pool.WaitForOne().failure, "");
  EXPECT_THAT(ReadWhole(listing), HasSubstr("listing"));
  EXPECT_THAT(ReadWhole(listing), Not(HasSubstr("staged")));
}

TEST(PrivateDirectory, IsForThisUserOnly) {
  const PrivateDirectory directory;
  EXPECT_EQ(std::filesystem::status(directory.Path()).permissions(),
            std::filesystem::perms::owner_all);
}

}  // namespace
}  // namespace quorvex::tests
