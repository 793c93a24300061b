#include <fmt/format.h>
#include <windows.h>

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <filesystem>
#include <random>
#include <system_error>

#include "tools/system/command_line_windows.h"
#include "tools/system/directory_owner.h"
#include "tools/system/file_name.h"
#include "tools/system/private_directory.h"
#include "tools/system/worker_process.h"

namespace quorvex::tools {
namespace {

// What a POSIX shell shows for SIGINT and SIGTERM.
constexpr int kInterruptExitCode = 128 + 2;
constexpr int kTerminateExitCode = 128 + 15;
// Exit codes from here on are those of exceptions that nobody caught.
constexpr DWORD kFirstExceptionCode = 0xC0000000;
// A wait takes so many handles only; with more workers than that, the rest is looked at this often.
constexpr std::size_t kMostAwaited = MAXIMUM_WAIT_OBJECTS;
constexpr DWORD kLookInterval = 50;  // milliseconds
constexpr int kNameAttempts = 16;    // a random name of 64 bits is practically never taken

struct HandleCloser {
  void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using Handle = std::unique_ptr<void, HandleCloser>;

[[noreturn]] void ThrowLastError(const std::string& what) {
  const int error = static_cast<int>(GetLastError());
  throw std::runtime_error(fmt::format("{}: {}", what, std::system_category().message(error)));
}

std::string DescribeEnd(DWORD exitCode) {
  if (exitCode >= kFirstExceptionCode) {
    return fmt::format("the detection crashed (exception 0x{:08X})", exitCode);
  }
  if (exitCode == 0) {
    return "";
  }
  return fmt::format("the detection ended with exit code {}", exitCode);
}

// The event that says that the user asked to stop. It is never closed, since a request may come at
// any time, in a thread of the system's.
HANDLE StopEvent() {
  static const HANDLE event = CreateEventW(nullptr, TRUE, FALSE, nullptr);
  return event;
}
std::atomic<int> stopExitCode{0};

BOOL WINAPI RequestStop(DWORD request) {
  stopExitCode = request == CTRL_C_EVENT ? kInterruptExitCode : kTerminateExitCode;
  SetEvent(StopEvent());
  // Of a closed window or a logoff the system takes the return for the end of the command. This
  // thread goes with the command, once that has cleaned up.
  if (request != CTRL_C_EVENT && request != CTRL_BREAK_EVENT) {
    Sleep(INFINITE);
  }
  return TRUE;
}

// Workers go with the last handle to their job, which is this process's, however it ends.
Handle MakeJob() {
  Handle job(CreateJobObjectW(nullptr, nullptr));
  JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits = {};
  limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
  if (!job || SetInformationJobObject(job.get(), JobObjectExtendedLimitInformation, &limits,
                                      sizeof limits) == 0) {
    ThrowLastError("cannot prepare for workers");
  }
  return job;
}

struct Worker {
  Handle process;
  int number;  // the caller's
};

// An access list with this user in it and nobody else, for a directory and all that will be in it.
// Without one a new directory has that of the directory for temporary files, which others can read
// where TMP names a shared one.
class ThisUserOnly {
 public:
  ThisUserOnly() {
    HANDLE token = nullptr;
    DWORD size = 0;
    bool made = OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token) != 0;
    const Handle tokenCloser(token);
    made = made && GetTokenInformation(token, TokenUser, user_, sizeof user_, &size) != 0;
    const PSID sid = reinterpret_cast<TOKEN_USER*>(user_)->User.Sid;
    ACL* list = reinterpret_cast<ACL*>(list_);
    made = made && InitializeAcl(list, sizeof list_, ACL_REVISION) != 0 &&
           AddAccessAllowedAceEx(list, ACL_REVISION, OBJECT_INHERIT_ACE | CONTAINER_INHERIT_ACE,
                                 FILE_ALL_ACCESS, sid) != 0 &&
           InitializeSecurityDescriptor(&descriptor_, SECURITY_DESCRIPTOR_REVISION) != 0 &&
           SetSecurityDescriptorDacl(&descriptor_, TRUE, list, FALSE) != 0 &&
           // Nothing comes from the directory above.
           SetSecurityDescriptorControl(&descriptor_, SE_DACL_PROTECTED, SE_DACL_PROTECTED) != 0;
    if (!made) {
      ThrowLastError("cannot make a private directory");
    }
  }

  ThisUserOnly(const ThisUserOnly&) = delete;  // the descriptor holds the list's address
  ThisUserOnly& operator=(const ThisUserOnly&) = delete;

  SECURITY_ATTRIBUTES Attributes() { return {sizeof(SECURITY_ATTRIBUTES), &descriptor_, FALSE}; }

 private:
  // Room for the longest user identifier, with what stands around it.
  alignas(TOKEN_USER) BYTE user_[sizeof(TOKEN_USER) + SECURITY_MAX_SID_SIZE] = {};
  alignas(ACL) BYTE list_[sizeof(ACL) + sizeof(ACCESS_ALLOWED_ACE) + SECURITY_MAX_SID_SIZE] = {};
  SECURITY_DESCRIPTOR descriptor_ = {};
};

}  // namespace

struct WorkerPool::State {
  Handle job = MakeJob();
  std::vector<Worker> workers;
  UINT callersErrorMode = 0;
};

WorkerPool::WorkerPool() : state_(std::make_unique<State>()) {
  // Workers inherit it: a crash, or a drive without a disk, is not to wait for somebody to close a
  // window.
  constexpr UINT kNoWindows = SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX;
  state_->callersErrorMode = SetErrorMode(kNoWindows);
  SetErrorMode(state_->callersErrorMode | kNoWindows);
  ResetEvent(StopEvent());
  SetConsoleCtrlHandler(RequestStop, TRUE);
}

WorkerPool::~WorkerPool() {
  TerminateJobObject(state_->job.get(), 1);
  for (const Worker& worker : state_->workers) {
    WaitForSingleObject(worker.process.get(), INFINITE);
  }
  SetConsoleCtrlHandler(RequestStop, FALSE);
  SetErrorMode(state_->callersErrorMode);
}

void WorkerPool::Start(int worker, const std::filesystem::path& program,
                       const std::vector<std::string>& arguments) {
  std::wstring line = CommandLine(program, arguments);
  const std::wstring file = program.wstring();
  STARTUPINFOW startup = {};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION started = {};
  // A group of its own, so that Ctrl+C reaches the command only, which then ends its workers.
  // Suspended, so that it does nothing before it is in the job.
  if (CreateProcessW(file.c_str(), line.data(), nullptr, nullptr, TRUE,
                     CREATE_NEW_PROCESS_GROUP | CREATE_SUSPENDED, nullptr, nullptr, &startup,
                     &started) == 0) {
    ThrowLastError("cannot start " + Utf8Name(program));
  }
  Handle process(started.hProcess);
  const Handle thread(started.hThread);
  if (AssignProcessToJobObject(state_->job.get(), process.get()) == 0) {
    const DWORD error = GetLastError();
    TerminateProcess(process.get(), 1);
    SetLastError(error);
    ThrowLastError("cannot take charge of " + Utf8Name(program));
  }
  ResumeThread(thread.get());
  state_->workers.push_back({std::move(process), worker});
}

int WorkerPool::Count() const { return static_cast<int>(state_->workers.size()); }

WorkerEnd WorkerPool::WaitForOne() {
  std::vector<Worker>& workers = state_->workers;
  for (;;) {
    if (WaitForSingleObject(StopEvent(), 0) == WAIT_OBJECT_0) {
      throw Interrupted(stopExitCode);
    }
    std::vector<HANDLE> awaited{StopEvent()};
    for (std::size_t i = 0; i < workers.size(); ++i) {
      const HANDLE process = workers[i].process.get();
      if (WaitForSingleObject(process, 0) == WAIT_OBJECT_0) {
        DWORD exitCode = 0;
        GetExitCodeProcess(process, &exitCode);
        const WorkerEnd end{workers[i].number, DescribeEnd(exitCode)};
        workers.erase(workers.begin() + static_cast<std::ptrdiff_t>(i));
        return end;
      }
      awaited.push_back(process);
    }
    const std::size_t count = std::min(awaited.size(), kMostAwaited);
    WaitForMultipleObjects(static_cast<DWORD>(count), awaited.data(), FALSE,
                           count == awaited.size() ? INFINITE : kLookInterval);
  }
}

std::filesystem::path OwnProgramPath() {
  constexpr DWORD kLongestPath = 32768;  // with the closing zero
  std::wstring path(kLongestPath, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), kLongestPath));
  if (path.empty()) {
    throw std::runtime_error("cannot find the command's own program file");
  }
  return path;
}

std::filesystem::path MakePrivateDirectory() {
  const std::filesystem::path parent = FolderForTemporaryFiles();
  ThisUserOnly access;
  SECURITY_ATTRIBUTES attributes = access.Attributes();
  std::random_device random;
  for (int attempt = 0; attempt < kNameAttempts; ++attempt) {
    const std::string name = fmt::format("{}{:08x}{:08x}", kDirectoryPrefix, random(), random());
    const std::filesystem::path path = parent / name;
    if (CreateDirectoryW(path.c_str(), &attributes) != 0) {
      return path;
    }
    if (GetLastError() != ERROR_ALREADY_EXISTS) {
      break;
    }
  }
  ThrowLastError("cannot make a folder in " + Utf8Name(parent));
}

bool StandardErrorIsTerminal() {
  DWORD mode = 0;  // only a console has one; the null device, which isatty takes for one, has not
  return GetConsoleMode(GetStdHandle(STD_ERROR_HANDLE), &mode) != 0;
}

}  // namespace quorvex::tools
