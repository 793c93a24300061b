#include <windows.h>
// After windows.h.
#include <aclapi.h>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <system_error>
#include <thread>

#include "tests/support/run_program.h"
#include "tests/support/test_files.h"
#include "tools/system/private_directory.h"
#include "tools/system/worker_process.h"

namespace quorvex::tests {

using namespace tools;

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr auto kPatience = std::chrono::seconds(20);  // workers hold their file for 60

void WaitForFile(const std::string& path) {
  const Clock::time_point end = Clock::now() + kPatience;
  while (!fs::exists(path) && Clock::now() < end) Sleep(10);
  ASSERT_TRUE(fs::exists(path));
}

bool CanRemove(const std::string& path) {
  std::error_code error;
  return fs::remove(path, error);
}

// While a worker lives, the file that it holds cannot be removed.
TEST(WorkerPool, ARequestToStopEndsTheWorkers) {
  // A console of its own, so that Ctrl+C reaches this process only.
  FreeConsole();
  ASSERT_TRUE(AllocConsole());
  SetConsoleCtrlHandler(nullptr, FALSE);  // a parent may have left Ctrl+C ignored
  const TemporaryFolder folder;
  const std::string held = folder.Path("held");
  {
    WorkerPool pool;
    pool.Start(0, QUORVEX_WORKER, {"hold", held});
    WaitForFile(held);
    EXPECT_FALSE(CanRemove(held));
    ASSERT_TRUE(GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0));
    try {
      pool.WaitForOne();
      FAIL() << "the request was not seen";
    } catch (const Interrupted& stop) {
      EXPECT_EQ(stop.exitCode, 130);
    }
  }
  EXPECT_TRUE(CanRemove(held));
}

// Even when the command is ended from outside and cannot clean up.
TEST(WorkerPool, WorkersGoWithTheirProcess) {
  const TemporaryFolder folder;
  const std::string held = folder.Path("held");
  EXPECT_EQ(RunProgram({QUORVEX_KILLED_HOST, {QUORVEX_WORKER, held}, folder.Path()}), 9);
  EXPECT_TRUE(fs::exists(held));
  const Clock::time_point end = Clock::now() + kPatience;
  while (!CanRemove(held) && Clock::now() < end) Sleep(10);
  EXPECT_FALSE(fs::exists(held));
}

TEST(PrivateDirectory, IsForThisUserOnly) {
  const PrivateDirectory directory;
  ACL* list = nullptr;
  PSID owner = nullptr;
  PSECURITY_DESCRIPTOR descriptor = nullptr;
  ASSERT_EQ(GetNamedSecurityInfoW(directory.Path().c_str(), SE_FILE_OBJECT,
                                  OWNER_SECURITY_INFORMATION | DACL_SECURITY_INFORMATION, &owner,
                                  nullptr, &list, nullptr, &descriptor),
            static_cast<DWORD>(ERROR_SUCCESS));
  EXPECT_GE(list->AceCount, 1);
  for (DWORD i = 0; i < list->AceCount; ++i) {
    void* entry = nullptr;
    ASSERT_TRUE(GetAce(list, i, &entry));
    const auto* allowed = static_cast<ACCESS_ALLOWED_ACE*>(entry);
    EXPECT_EQ(allowed->Header.AceType, ACCESS_ALLOWED_ACE_TYPE);
    const PSID sid = const_cast<DWORD*>(&allowed->SidStart);
    // Wine lists the system itself, too.
    EXPECT_TRUE(EqualSid(owner, sid) || IsWellKnownSid(sid, WinLocalSystemSid));
  }
  LocalFree(descriptor);
}

}  // namespace
}  // namespace quorvex::tests
