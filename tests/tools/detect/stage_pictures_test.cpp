#include "tools/detect/stage_pictures.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

#include "tests/support/test_files.h"
#include "tools/pictures/picture_file.h"
#include "tools/report/report_page.h"

namespace quorvex::tests {

using namespace tools;

namespace {

TEST(StagePictures, AreDescribedByThePageInTheSameWords) {
  const std::string page = ReadWhole(QUORVEX_STAGES_PAGE);
  std::size_t before = 0;
  for (const StagePicture& picture : kStagePictures) {
    const std::string row =
        "| `" + std::string(picture.file) + "` | " + picture.shows + " | " + picture.healthy + " |";
    const std::size_t at = page.find(row, before);
    ASSERT_NE(at, std::string::npos) << "after the ones before: " << row;
    before = at;
  }
}

TEST(StagePictures, AreReadInTheirOrderWhereTheyAre) {
  const TemporaryFolder folder;
  WritePictureFile(FlatPicture(40, 20, 255), folder.Path("Sobel.bmp"));
  WritePictureFile(FlatPicture(40, 20, 255), folder.Path("Mask.bmp"));
  folder.File("Region.bmp", "no picture");
  const std::vector<ReportedImage> images = ReadStagePictures(folder.Path());
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
  EXPECT_EQ(ReadStagePictures(folder.Path()).at(0).dataUri, StripImage("Lines.bmp", part).dataUri);
}

TEST(StagePictures, APatchWithoutADrawingIsWhole) {
  const TemporaryFolder folder;
  WritePictureFile(FlatPicture(80, 60, 0), folder.Path("LineSegment.bmp"));
  EXPECT_EQ(ReadStagePictures(folder.Path()).at(0).dataUri,
            StripImage("LineSegment.bmp", FlatPicture(80, 60, 0)).dataUri);
}

}  // namespace
}  // namespace quorvex::tests
