// Several threads and several processes that write to one folder.
#include "tests/faults/shared_folder.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <thread>
#include <vector>

#include "tests/support/differential.h"

namespace quorvex::tests {
namespace {

constexpr int kTimes = 3 + 9 / QUORVEX_CASES_DIVISOR;  // detections by each

TEST_F(SharedFolder, ThreadsGetTheirResultsAndLeaveWholeFiles) {
  ASSERT_FALSE(one.files == other.files);
  std::atomic<int> same{0};
  const auto detect = [&same](AloneDetected& alone) {
    for (int i = 0; i < kTimes; ++i) {
      same += alone.IsSameAgain() ? 1 : 0;
    }
  };
  std::thread first(detect, std::ref(one));
  std::thread second(detect, std::ref(other));
  first.join();
  second.join();
  EXPECT_EQ(same, 2 * kTimes);
  ExpectWholeFiles();
}

// The number of detections that gave something else, as the exit code of a process of its own.
pid_t StartDetecting(AloneDetected& alone) {
  const pid_t process = fork();
  if (process == 0) {
    int differing = 0;
    for (int i = 0; i < kTimes; ++i) {
      differing += alone.IsSameAgain() ? 0 : 1;
    }
    _exit(differing);
  }
  return process;
}

TEST_F(SharedFolder, ProcessesGetTheirResultsAndLeaveWholeFiles) {
  const pid_t processes[] = {StartDetecting(one), StartDetecting(other), StartDetecting(one)};
  for (const pid_t process : processes) {
    int status = -1;
    ASSERT_EQ(waitpid(process, &status, 0), process);
    EXPECT_EQ(status, 0);
  }
  ExpectWholeFiles();
}

// Saved again and again by two threads; one that finds the file in use is told so.
TEST_F(SharedFolder, ASavedPictureIsThatOfOneOfTheWriters) {
  constexpr const char* kName = "saved.bmp";
  std::atomic<int> saved{0};
  const auto save = [&saved](AloneDetected& alone) {
    for (int i = 0; i < 10 * kTimes; ++i) {
      saved += Save_Image(alone.image.Data(), kRoadSize, kRoadSize, 8, kName) ? 1 : 0;
    }
  };
  std::thread first(save, std::ref(one));
  std::thread second(save, std::ref(other));
  first.join();
  second.join();
  EXPECT_GT(saved, kTimes);
  const Bytes bytes = ReadBytes(kName);
  ASSERT_TRUE(Save_Image(one.image.Data(), kRoadSize, kRoadSize, 8, "one.bmp"));
  ASSERT_TRUE(Save_Image(other.image.Data(), kRoadSize, kRoadSize, 8, "other.bmp"));
  EXPECT_TRUE(bytes == ReadBytes("one.bmp") || bytes == ReadBytes("other.bmp"));
}

}  // namespace
}  // namespace quorvex::tests
