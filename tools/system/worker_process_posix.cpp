#include <fcntl.h>
#include <fmt/format.h>
#include <signal.h>
#include <stdlib.h>
#include <string.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <map>

#include "tools/system/directory_owner.h"
#include "tools/system/file_name.h"
#include "tools/system/private_directory.h"
#include "tools/system/worker_process.h"

namespace quorvex::tools {
namespace {

constexpr int kSignalExitCode = 128;  // a shell shows a process ended by signal n as 128 + n

std::string DescribeSignal(int number) {
  const char* name = strsignal(number);
  if (number == SIGKILL) {
    return fmt::format(
        "the detection was ended from outside ({}), as the system does when memory is short", name);
  }
  if (number == SIGTERM || number == SIGINT || number == SIGHUP) {
    return fmt::format("the detection was ended from outside ({})", name);
  }
  if (number == SIGXFSZ) {
    return fmt::format("the detection may not write large files ({})", name);
  }
  if (number == SIGXCPU) {
    return fmt::format("the detection ran out of its time ({})", name);
  }
  return fmt::format("the detection crashed ({})", name);
}

std::string DescribeEnd(int status) {
  if (WIFSIGNALED(status)) {
    return DescribeSignal(WTERMSIG(status));
  }
  if (WEXITSTATUS(status) == 0) {
    return "";
  }
  return fmt::format("the detection ended with exit code {}", WEXITSTATUS(status));
}

bool IsIgnored(int signalNumber) {
  struct sigaction action;
  return sigaction(signalNumber, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

[[noreturn]] void ThrowCannotStart(const std::filesystem::path& program, int error) {
  throw std::runtime_error(fmt::format("cannot start {}: {}", Utf8Name(program), strerror(error)));
}

// In the new process, where nothing but system calls may be made: another thread may have held any
// lock. A worker ends with the command, however that ends: with its thread that started the worker,
// to be exact, which is its first.
[[noreturn]] void BecomeWorker(char** argv, const sigset_t& mask, pid_t parent, int report) {
  if (prctl(PR_SET_PDEATHSIG, SIGKILL) == 0 && getppid() == parent) {  // else it is gone already
    pthread_sigmask(SIG_SETMASK, &mask, nullptr);
    execv(argv[0], argv);
  }
  const int error = errno;
  const ssize_t told = write(report, &error, sizeof error);
  _exit(told > 0 ? 1 : 2);
}

}  // namespace

// The signals that matter are blocked and fetched one at a time, so none is lost between looking
// and waiting, and no handler is needed.
struct WorkerPool::State {
  std::map<pid_t, int> workers;  // the callers' numbers by process
  sigset_t awaited;
  sigset_t callersMask;
  struct sigaction callersChildAction;
};

WorkerPool::WorkerPool() : state_(std::make_unique<State>()) {
  // A parent may have left SIGCHLD ignored, and the ends of children would then never be seen.
  struct sigaction standard = {};
  standard.sa_handler = SIG_DFL;
  sigaction(SIGCHLD, &standard, &state_->callersChildAction);

  sigemptyset(&state_->awaited);
  sigaddset(&state_->awaited, SIGCHLD);
  for (const int stop : {SIGINT, SIGTERM, SIGHUP}) {
    if (!IsIgnored(stop)) {  // as nohup and shells ask for
      sigaddset(&state_->awaited, stop);
    }
  }
  pthread_sigmask(SIG_BLOCK, &state_->awaited, &state_->callersMask);
}

WorkerPool::~WorkerPool() {
  for (const auto& [process, worker] : state_->workers) {
    kill(process, SIGKILL);
  }
  for (const auto& [process, worker] : state_->workers) {
    waitpid(process, nullptr, 0);
  }
  sigaction(SIGCHLD, &state_->callersChildAction, nullptr);
  pthread_sigmask(SIG_SETMASK, &state_->callersMask, nullptr);
}

void WorkerPool::Start(int worker, const std::filesystem::path& program,
                       const std::vector<std::string>& arguments) {
  std::vector<char*> argv{const_cast<char*>(program.c_str())};
  for (const std::string& argument : arguments) {
    argv.push_back(const_cast<char*>(argument.c_str()));
  }
  argv.push_back(nullptr);

  int report[2];  // says why the program could not be started; closed by one that was
  if (pipe2(report, O_CLOEXEC) != 0) {
    ThrowCannotStart(program, errno);
  }
  const pid_t parent = getpid();
  const pid_t process = fork();
  if (process == 0) {
    BecomeWorker(argv.data(), state_->callersMask, parent, report[1]);
  }
  int error = process < 0 ? errno : 0;
  close(report[1]);
  if (process > 0 && read(report[0], &error, sizeof error) > 0) {
    waitpid(process, nullptr, 0);
  }
  close(report[0]);
  if (error != 0) {
    ThrowCannotStart(program, error);
  }
  state_->workers[process] = worker;
}

int WorkerPool::Count() const { return static_cast<int>(state_->workers.size()); }

WorkerEnd WorkerPool::WaitForOne() {
  for (;;) {
    // Before every wait, since one SIGCHLD may stand for several ends.
    for (const auto& [process, worker] : state_->workers) {
      int status = 0;
      if (waitpid(process, &status, WNOHANG) != process) {
        continue;
      }
      WorkerEnd end{worker, DescribeEnd(status)};
      state_->workers.erase(process);
      return end;
    }
    const int signalNumber = sigwaitinfo(&state_->awaited, nullptr);
    if (signalNumber > 0 && signalNumber != SIGCHLD) {
      throw Interrupted(kSignalExitCode + signalNumber);
    }
  }
}

std::filesystem::path OwnProgramPath() {
  std::error_code error;
  std::filesystem::path path = std::filesystem::read_symlink("/proc/self/exe", error);
  if (error) {
    throw std::runtime_error("cannot find the command's own program file");
  }
  return path;
}

std::filesystem::path MakePrivateDirectory() {
  const std::filesystem::path parent = FolderForTemporaryFiles();
  std::string path = (parent / (kDirectoryPrefix + std::string("XXXXXX"))).string();
  if (mkdtemp(path.data()) == nullptr) {
    const int error = errno;
    const std::string shortage = DescribeShortage(parent);
    throw std::runtime_error(fmt::format("cannot make a folder in {}: {}", Utf8Name(parent),
                                         shortage.empty() ? strerror(error) : shortage));
  }
  return path;
}

bool StandardErrorIsTerminal() { return isatty(STDERR_FILENO) != 0; }

}  // namespace quorvex::tools
