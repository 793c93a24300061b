#include "tools/detect/detection_result.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <stdexcept>
#include <string>

#include "tests/support/test_files.h"

namespace quorvex::tests {

using namespace tools;

namespace {

using testing::HasSubstr;

std::string ReasonOf(const std::string& path) {
  try {
    ReadDetectionResult(path);
  } catch (const std::runtime_error& error) {
    return error.what();
  }
  return "";
}

TEST(DetectionResult, SurvivesTheWay) {
  const TemporaryFolder folder;
  DetectionResult result;
  result.exitCode = kExitNothingFound;
  result.message = "a \"name\": \xC3\xA4";
  result.found.width = 1024;
  result.found.height = 840;
  result.found.points = {{7, 1, 2, 0.1f, 839.987f, PointKind::kFilled},
                         {-1, -1, -1, 5, 6, PointKind::kSeen}};
  result.direct.facts.pitch = 12.5;
  result.direct.marks.resize(1);
  result.disagreements = {{DisagreementKind::kLost, ListedPoint{}, std::nullopt}};
  result.stagePictures = {{"Mask.bmp", "data:,x"}};
  WriteDetectionResult(result, folder.Path("r.json"));
  const DetectionResult read = ReadDetectionResult(folder.Path("r.json"));
  EXPECT_EQ(read.exitCode, kExitNothingFound);
  EXPECT_EQ(read.message, result.message);
  EXPECT_EQ(read.found.width, 1024);
  EXPECT_EQ(read.found.height, 840);
  ASSERT_EQ(read.found.points.size(), 2u);
  EXPECT_EQ(read.found.points[0].id, 7);
  EXPECT_EQ(read.found.points[0].row, 1);
  EXPECT_EQ(read.found.points[0].col, 2);
  EXPECT_EQ(read.found.points[0].x, 0.1f);
  EXPECT_EQ(read.found.points[0].y, 839.987f);
  EXPECT_EQ(read.found.points[0].kind, PointKind::kFilled);
  EXPECT_EQ(read.found.points[1].kind, PointKind::kSeen);
  EXPECT_EQ(read.direct.facts.pitch, 12.5);
  EXPECT_EQ(read.direct.marks.size(), 1u);
  EXPECT_EQ(read.disagreements.size(), 1u);
  ASSERT_EQ(read.stagePictures.size(), 1u);
  EXPECT_EQ(read.stagePictures[0].name, "Mask.bmp");
  EXPECT_EQ(read.stagePictures[0].dataUri, "data:,x");
}

TEST(DetectionResult, AMessageThatIsNotUtf8DoesNotStandInTheWay) {
  const TemporaryFolder folder;
  DetectionResult result;
  result.message = "bild-\xE4.bmp";
  WriteDetectionResult(result, folder.Path("r.json"));
  EXPECT_THAT(ReadDetectionResult(folder.Path("r.json")).message, HasSubstr("bild-"));
}

TEST(DetectionResult, ThatIsMissingOrDamagedIsToldWithItsFolder) {
  const TemporaryFolder folder;
  EXPECT_THAT(ReasonOf(folder.Path("none.json")),
              HasSubstr(std::filesystem::path(folder.Path("none.json")).parent_path().string()));
  for (const char* text : {"", "{", "{\"exitCode\": 0}", "[]"}) {
    EXPECT_THAT(ReasonOf(folder.File("r.json", text)), HasSubstr("could not leave its result"))
        << text;
  }
}

TEST(DetectionResult, ThatCannotBeWrittenIsAnError) {
  const TemporaryFolder folder;
  EXPECT_THROW(WriteDetectionResult({}, folder.Path("no/such/folder.json")), std::runtime_error);
}

}  // namespace
}  // namespace quorvex::tests
