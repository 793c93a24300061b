// Starts a worker that holds a file, and is ended in the middle of it:
//   killed_host WORKER_PROGRAM FILE
#include <windows.h>

#include <filesystem>

#include "tools/system/worker_process.h"

int main(int, char** argv) {
  quorvex::tools::WorkerPool pool;
  pool.Start(0, argv[1], {"hold", argv[2]});
  while (!std::filesystem::exists(argv[2])) Sleep(10);
  TerminateProcess(GetCurrentProcess(), 9);
}
