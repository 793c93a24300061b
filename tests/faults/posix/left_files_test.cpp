// Detections whose pictures and lists cannot be written: the result is that of any other.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <string>

#include "imageio/diagnostic_place.h"
#include "tests/faults/left_files.h"
#include "tests/faults/open_files.h"
#include "tests/faults/posix/limits.h"
#include "tests/faults/road_target.h"
#include "tests/support/differential.h"
#include "tests/support/faults.h"
#include "tests/support/list_drive.h"
#include "tests/support/message_box.h"
#include "tests/support/point_lists.h"
#include "tests/support/temporary_directory.h"

namespace quorvex::tests {
namespace {

namespace fs = std::filesystem;

class LeftFiles : public testing::Test {
 protected:
  LeftFiles() {
    DetectRoadTarget(image, expected);
    whole = ReadLeftFiles();
  }
  ~LeftFiles() override { EXPECT_TRUE(TakeMessages().empty()); }

  void ExpectSameResult() {
    const int files = OpenFileCount();
    PointList points;
    EXPECT_TRUE(DetectRoadTarget(image, points));
    ExpectSameBytes(points, expected);
    EXPECT_EQ(OpenFileCount(), files);
  }

  // Puts something under every name and detects.
  void ExpectSameResultWith(const std::function<void(const std::string&)>& put) {
    for (const char* name : kLeftFiles) {
      fs::remove_all(name);
      put(name);
    }
    ExpectSameResult();
  }

  GrayImage image = RoadTarget();
  PointList expected;
  TemporaryDirectory directory;
  ListDrive lists;
  std::map<std::string, Bytes> whole;
};

TEST_F(LeftFiles, AreAllThereWithoutAFault) {
  ASSERT_EQ(expected.size(), std::size_t{kRoadMarks});
  for (const auto& [name, bytes] : whole) {
    EXPECT_FALSE(bytes.empty()) << name;
  }
}

TEST_F(LeftFiles, AFullDiskCostsThePictureThatMeetsIt) {
  int cut = 0;
  bool hasHappened = true;
  for (int n = 1; hasHappened; n += QUORVEX_CASES_DIVISOR) {
    {
      const FailNth fault(Fault::kWrite, n);
      ExpectSameResult();
      hasHappened = fault.HasHappened();
    }
    int differing = 0;
    for (const auto& [name, bytes] : ReadLeftFiles()) {
      if (bytes != whole[name]) {
        ++differing;
        EXPECT_TRUE(bytes.empty()) << name;
      }
    }
    EXPECT_EQ(differing, hasHappened ? 1 : 0) << n;
    cut += differing;
  }
  EXPECT_GE(cut, 28 / QUORVEX_CASES_DIVISOR);  // fourteen pictures of two pieces at least
}

// Whatever byte the disk ends at: no piece of a picture stays.
TEST_F(LeftFiles, ALimitOfFileSizesLeavesNoPieceOfAPicture) {
  for (const rlim_t bytes : {0u, 1u, 13u, 54u, 1077u, 1078u, 1079u, 5000u, 100000u, 641077u}) {
    {
      const FileSizeLimit limit(bytes);
      ExpectSameResult();
    }
    for (const auto& [name, left] : ReadLeftFiles()) {
      const bool isList = name.rfind("D:", 0) == 0;
      EXPECT_TRUE(left == whole[name] || left.empty() || isList) << name << ' ' << bytes;
      EXPECT_LE(left.size(), std::max<std::size_t>(bytes, isList ? 0 : whole[name].size()));
    }
  }
  ExpectSameResult();
  EXPECT_TRUE(ReadLeftFiles() == whole);
}

TEST_F(LeftFiles, DevicesThatAreFullDoNotMatter) {
  ExpectSameResultWith([](const std::string& name) { fs::create_symlink("/dev/full", name); });
}

TEST_F(LeftFiles, FoldersInTheirPlaceDoNotMatter) {
  ExpectSameResultWith([](const std::string& name) { fs::create_directory(name); });
  EXPECT_TRUE(fs::is_empty("Mask.bmp"));
}

TEST_F(LeftFiles, DanglingLinksDoNotMatter) {
  const std::string missing = (directory.Path() / "missing" / "file").string();
  ExpectSameResultWith([&](const std::string& name) { fs::create_symlink(missing, name); });
  EXPECT_FALSE(fs::exists("missing"));
  EXPECT_TRUE(fs::is_symlink("Mask.bmp"));
  ExpectSameResultWith([](const std::string& name) { fs::create_symlink("itself", name); });
}

// Nobody reads them: a detection that waited for that would never end.
TEST_F(LeftFiles, PipesAreNotWaitedFor) {
  ExpectSameResultWith([](const std::string& name) { mkfifo(name.c_str(), 0600); });
  struct stat status;
  ASSERT_EQ(stat("D:/Row.txt", &status), 0);
  EXPECT_TRUE(S_ISFIFO(status.st_mode));
}

// A reader that goes away would end the process, and one that stays would get pieces.
TEST_F(LeftFiles, PipesThatAreReadGetNothing) {
  std::map<std::string, int> readers;
  ExpectSameResultWith([&](const std::string& name) {
    mkfifo(name.c_str(), 0600);
    readers[name] = open(name.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  });
  for (const auto& [name, reader] : readers) {
    char byte = 0;
    EXPECT_EQ(read(reader, &byte, 1), 0) << name;
    close(reader);
  }
}

TEST_F(LeftFiles, SocketsDoNotMatter) {
  ExpectSameResultWith([](const std::string& name) {
    const int listener = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    struct sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, name.c_str(), sizeof address.sun_path - 1);
    EXPECT_EQ(bind(listener, reinterpret_cast<struct sockaddr*>(&address), sizeof address), 0);
    close(listener);
  });
}

// Marked read-only, so that it holds for root, too.
TEST_F(LeftFiles, ReadOnlyPicturesAreLeftAlone) {
  for (const char* name : kLeftFiles) {
    std::ofstream(name, std::ios::binary) << "of somebody else";
    fs::permissions(name, fs::perms::owner_read);
  }
  ExpectSameResult();
  EXPECT_EQ(ReadWhole("Mask.bmp"), "of somebody else");
  EXPECT_EQ(ReadWhole("LineSegment.bmp"), "of somebody else");
}

TEST_F(LeftFiles, AFolderThatIsGoneDoesNotMatter) {
  const fs::path gone = directory.Path() / "gone";
  fs::create_directory(gone);
  fs::current_path(gone);
  fs::remove(gone);
  ExpectSameResult();
  fs::current_path(directory.Path());
  EXPECT_FALSE(fs::exists(gone));
}

TEST_F(LeftFiles, AFileInTheListsFolderDoesNotMatter) {
  fs::remove_all("D:");
  std::ofstream("D:") << "a file";
  ExpectSameResult();
  EXPECT_EQ(ReadWhole("D:"), "a file");
  fs::remove("D:");
  ASSERT_EQ(mkfifo("D:", 0600), 0);
  ExpectSameResult();
}

// The name that the detection asks for next, after the folder was removed under it.
int namesUntilRemoval = 0;
const char* PlaceAndRemove(const char* name) {
  if (namesUntilRemoval-- == 0) {
    std::error_code ignored;
    fs::remove_all(fs::current_path(ignored), ignored);
  }
  return name;
}

TEST_F(LeftFiles, AFolderThatGoesInMidCallDoesNotMatter) {
  for (const int at : {0, 1, 5, 9, 12, 16}) {
    const fs::path folder = directory.Path() / "going";
    fs::create_directory(folder);
    fs::current_path(folder);
    fs::create_directory("D:");
    namesUntilRemoval = at;
    PlaceDiagnosticsBy(PlaceAndRemove);
    ExpectSameResult();
    PlaceDiagnosticsBy(nullptr);
    fs::current_path(directory.Path());
    EXPECT_FALSE(fs::exists(folder)) << at;
  }
}

TEST_F(LeftFiles, NoDescriptorsLeftDoNotMatter) {
  const auto detect = [&] {
    PointList points;
    EXPECT_TRUE(DetectRoadTarget(image, points));
    ExpectSameBytes(points, expected);
  };
  detect();  // a sanitizer takes descriptors to look at types for the first time
  for (const char* name : kLeftFiles) {
    fs::remove(name);
  }
  {
    const NoDescriptors limit;
    detect();
  }
  EXPECT_FALSE(fs::exists("Mask.bmp"));
  ExpectSameResult();
  EXPECT_TRUE(ReadLeftFiles() == whole);
}

}  // namespace
}  // namespace quorvex::tests
