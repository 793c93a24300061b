// What the command needs of the operating system to run the detection in processes of their own.
// The sources beside this header are chosen by platform.
#ifndef QUORVEX_TOOLS_SYSTEM_WORKER_PROCESS_H_
#define QUORVEX_TOOLS_SYSTEM_WORKER_PROCESS_H_

#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace quorvex::tools {

// The user asked the command to stop (interrupt or termination).
class Interrupted : public std::runtime_error {
 public:
  explicit Interrupted(int code) : std::runtime_error("interrupted"), exitCode(code) {}
  const int exitCode;  // what the command should exit with
};

struct WorkerEnd {
  int worker = 0;       // the number given to Start
  std::string failure;  // how the process failed, without a name in front; empty when it did not
};

// Runs worker processes. While a pool exists a request to stop does not end the command but makes
// WaitForOne throw, so that callers can clean up. At most one pool at a time.
class WorkerPool {
 public:
  WorkerPool();
  ~WorkerPool();  // ends the workers that still run, and waits for them
  WorkerPool(const WorkerPool&) = delete;
  WorkerPool& operator=(const WorkerPool&) = delete;

  // Starts `program` with `arguments`, which are UTF-8; `worker` is any number of the caller's.
  // Throws std::runtime_error when the system refuses.
  void Start(int worker, const std::filesystem::path& program,
             const std::vector<std::string>& arguments);

  int Count() const;

  // Waits until a worker ends; there must be one. Throws Interrupted.
  WorkerEnd WaitForOne();

 private:
  struct State;
  std::unique_ptr<State> state_;
};

std::filesystem::path OwnProgramPath();  // throws std::runtime_error

// Makes a new directory, under the system's directory for temporary files, that only this user can
// read, and returns its absolute path. Throws std::runtime_error.
std::filesystem::path MakePrivateDirectory();

bool StandardErrorIsTerminal();

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_SYSTEM_WORKER_PROCESS_H_
