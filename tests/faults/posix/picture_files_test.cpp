// Save_Image and Read_Image, and their likes in C, when files cannot be written or read: there the
// fault is to be seen.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <ostream>
#include <string>

#include "interface/quorvex.h"
#include "interface/quorvex_c.h"
#include "platform/mfc.h"
#include "tests/faults/open_files.h"
#include "tests/faults/posix/limits.h"
#include "tests/faults/road_target.h"
#include "tests/support/bytes.h"
#include "tests/support/kept_memory.h"
#include "tests/support/temporary_directory.h"

namespace quorvex::tests {
namespace {

namespace fs = std::filesystem;

constexpr const char* kPicture = "picture.bmp";

enum class Saved { kYes, kNo, kThrown };

std::ostream& operator<<(std::ostream& stream, Saved saved) {
  return stream << (saved == Saved::kYes ? "true" : saved == Saved::kNo ? "false" : "thrown");
}

class PictureFiles : public testing::Test {
 protected:
  PictureFiles() : files_(OpenFileCount()) {}
  ~PictureFiles() override { EXPECT_EQ(OpenFileCount(), files_); }

  Saved Save(const char* path = kPicture) {
    try {
      return Save_Image(image.Data(), kRoadSize, kRoadSize, 8, path) ? Saved::kYes : Saved::kNo;
    } catch (CFileException* exception) {
      cause = exception->m_cause;
      exception->Delete();
      return Saved::kThrown;
    }
  }

  quorvex_error SaveInC(const char* path = kPicture) {
    const quorvex_image given = {image.Data(), kRoadSize, kRoadSize, kRoadSize};
    return quorvex_write_bmp(path, &given);
  }

  static bool Read(const char* path = kPicture) {
    unsigned char* pixels = nullptr;
    long width = 7;
    long height = 8;
    int bits = 9;
    if (Read_Image(pixels, width, height, bits, path)) {
      KeepForever(pixels);
      return true;
    }
    EXPECT_TRUE(pixels == nullptr && width == 7 && height == 8 && bits == 9);
    return false;
  }

  GrayImage image = RoadTarget();
  TemporaryDirectory directory;
  int cause = CFileException::none;

 private:
  int files_;
};

TEST_F(PictureFiles, AFullDeviceIsTold) {
  EXPECT_EQ(Save("/dev/full"), Saved::kThrown);
  EXPECT_EQ(cause, CFileException::diskFull);
  EXPECT_EQ(SaveInC("/dev/full"), QUORVEX_ERROR_FILE);
}

TEST_F(PictureFiles, ALimitOfFileSizesIsTold) {
  const std::uintmax_t size = 1078 + image.Size();
  for (const std::uintmax_t bytes : {std::uintmax_t{0}, std::uintmax_t{13}, size / 2, size - 1}) {
    {
      const FileSizeLimit limit(bytes);
      EXPECT_EQ(Save(), Saved::kThrown) << bytes;
      EXPECT_EQ(SaveInC("c.bmp"), QUORVEX_ERROR_FILE) << bytes;
    }
    EXPECT_FALSE(Read() && fs::file_size(kPicture) == size) << bytes;
    EXPECT_EQ(Save(), Saved::kYes);
    EXPECT_TRUE(Read());
  }
  const FileSizeLimit limit(size);
  EXPECT_EQ(Save(), Saved::kYes);
  EXPECT_EQ(SaveInC("c.bmp"), QUORVEX_OK);
}

TEST_F(PictureFiles, AFolderThatIsGoneIsTold) {
  EXPECT_EQ(Save("missing/picture.bmp"), Saved::kNo);
  EXPECT_EQ(SaveInC("missing/picture.bmp"), QUORVEX_ERROR_FILE);
  EXPECT_FALSE(Read("missing/picture.bmp"));
  fs::create_directory("gone");
  fs::current_path("gone");
  fs::remove(directory.Path() / "gone");
  EXPECT_EQ(Save(), Saved::kNo);
  EXPECT_FALSE(Read());
  fs::current_path(directory.Path());
}

TEST_F(PictureFiles, WhatIsNoFileIsTold) {
  fs::create_directory("folder");
  fs::create_symlink("missing/file", "dangling");
  ASSERT_EQ(mkfifo("pipe", 0600), 0);
  for (const char* name : {"folder", "dangling", "pipe", "folder/", ""}) {
    EXPECT_EQ(Save(name), Saved::kNo) << name;
    EXPECT_FALSE(Read(name)) << name;
  }
  EXPECT_EQ(SaveInC("folder"), QUORVEX_ERROR_FILE);
  EXPECT_FALSE(Read("/dev/null"));
  EXPECT_FALSE(Read("/dev/zero"));
}

TEST_F(PictureFiles, NoDescriptorsLeftAreTold) {
  const auto expect = [&](Saved saved, quorvex_error inC, bool isRead) {
    EXPECT_EQ(Save(), saved);
    EXPECT_EQ(SaveInC(), inC);
    EXPECT_EQ(Read(), isRead);
  };
  // A sanitizer takes descriptors to look at types for the first time, those of failures, too.
  expect(Saved::kYes, QUORVEX_OK, true);
  EXPECT_EQ(SaveInC("missing/picture.bmp"), QUORVEX_ERROR_FILE);
  {
    const NoDescriptors limit;
    expect(Saved::kNo, QUORVEX_ERROR_FILE, false);
  }
  EXPECT_TRUE(Read());  // nothing was begun
  EXPECT_EQ(Save(), Saved::kYes);
}

TEST_F(PictureFiles, ReadOnlyOnesAreLeftAlone) {
  ASSERT_EQ(Save(), Saved::kYes);
  const Bytes before = ReadBytes(kPicture);
  image.Fill(3);
  fs::permissions(kPicture, fs::perms::owner_read);
  EXPECT_EQ(Save(), Saved::kNo);
  EXPECT_TRUE(ReadBytes(kPicture) == before);
}

}  // namespace
}  // namespace quorvex::tests
