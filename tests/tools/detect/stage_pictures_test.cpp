#include "tools/detect/stage_pictures.h"

#include <gtest/gtest.h>

#include <cctype>
#include <cstddef>
#include <string>

#include "tests/support/test_files.h"
#include "tools/pictures/picture_file.h"
#include "tools/report/report_page.h"

namespace quorvex::tests {

using namespace tools;

namespace {

constexpr std::size_t kCharacters = 50'000;

std::string InSmallLetters(std::string text) {
  for (char& letter : text) {
    letter = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
  }
  return text;
}

// The part of the page below the heading that names the file, in small letters.
std::string SectionOf(const std::string& page, const std::string& file) {
  for (std::size_t at = page.find("\n## "); at != std::string::npos;) {
    const std::size_t next = page.find("\n## ", at + 1);
    const std::string section = page.substr(at, next - at);
    if (section.substr(0, section.find('\n', 1)).find(' ' + file) != std::string::npos) {
      return InSmallLetters(section);
    }
    at = next;
  }
  return "";
}

TEST(StagePictures, AreDescribedByThePageInTheSameWords) {
  const std::string page = ReadWhole(QUORVEX_STAGES_PAGE);
  for (const StagePicture& picture : kStagePictures) {
    const std::string section = SectionOf(page, picture.file);
    for (const std::string words : {picture.shows, picture.healthy}) {
      EXPECT_NE(section.find(InSmallLetters(words)), std::string::npos)
          << picture.file << ": " << words;
    }
  }
}

TEST(StagePictures, AreReadInTheirOrderWhereTheyAre) {
  const TemporaryFolder folder;
  WritePictureFile(FlatPicture(40, 20, 255), folder.Path("Sobel.bmp"));
  WritePictureFile(FlatPicture(40, 20, 255), folder.Path("Mask.bmp"));
  folder.File("Region.bmp", "no picture");
  const std::vector<ReportedImage> images = ReadStagePictures(folder.Path(), kCharacters);
  ASSERT_EQ(images.size(), 2u);
  EXPECT_EQ(images[0].name, "Mask.bmp");
  EXPECT_EQ(images[1].name, "Sobel.bmp");
}

TEST(StagePictures, OfAPatchAreCutToWhatIsDrawn) {
  const TemporaryFolder folder;
  Picture lines = FlatPicture(800, 600, 0);
  FillBox(lines, 300, 200, 330, 202, 255);
  WritePictureFile(lines, folder.Path("Lines.bmp"));
  Picture part = FlatPicture(30 + 40, 2 + 40, 0);
  FillBox(part, 20, 20, 50, 22, 255);
  EXPECT_EQ(ReadStagePictures(folder.Path(), kCharacters).at(0).dataUri,
            StripImage("Lines.bmp", part, kCharacters, StripPicture::kFineLines).dataUri);
}

TEST(StagePictures, OfFineLinesKeepThem) {
  const TemporaryFolder folder;
  Picture outline = FlatPicture(4800, 2400, 0);
  FillBox(outline, 1000, 0, 1001, 2400, 128);
  WritePictureFile(outline, folder.Path("Contour.bmp"));
  Picture small = FlatPicture(480, 240, 0);
  FillBox(small, 100, 0, 101, 240, 128);
  EXPECT_EQ(ReadStagePictures(folder.Path(), kCharacters).at(0).dataUri,
            StripImage("Contour.bmp", small, kCharacters).dataUri);
}

TEST(StagePictures, APatchWithoutADrawingIsWhole) {
  const TemporaryFolder folder;
  WritePictureFile(FlatPicture(80, 60, 0), folder.Path("LineSegment.bmp"));
  EXPECT_EQ(ReadStagePictures(folder.Path(), kCharacters).at(0).dataUri,
            StripImage("LineSegment.bmp", FlatPicture(80, 60, 0), kCharacters).dataUri);
}

}  // namespace
}  // namespace quorvex::tests
