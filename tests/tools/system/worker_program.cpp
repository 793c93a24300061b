// A worker for the tests of the worker pool:
//   worker_program exit CODE | crash | sleep | hold FILE
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <string>
#include <thread>

namespace {

void SleepLong() { std::this_thread::sleep_for(std::chrono::seconds(60)); }

void WriteNowhere() {
  volatile int* volatile nowhere = nullptr;
  *nowhere = 1;
}

}  // namespace

int main(int argc, char** argv) {
  const std::string task = argc > 1 ? argv[1] : "";
  if (task == "exit") return std::atoi(argv[2]);
  if (task == "crash") WriteNowhere();
  if (task == "sleep") SleepLong();
  if (task == "hold") {
    // On Windows a file that is open somewhere cannot be removed.
    const std::ofstream file(argv[2]);
    SleepLong();
  }
  return 0;
}
