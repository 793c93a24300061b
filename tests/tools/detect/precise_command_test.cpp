// The direct detection through the command: its lists, its check of the other one, exit codes.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/support/command_test.h"
#include "tests/support/small_target.h"
#include "tools/lists/points_file.h"
#include "tools/pictures/picture_file.h"

namespace quorvex::tests {

using namespace tools;

namespace {

using testing::HasSubstr;
using testing::StartsWith;

class PreciseCommand : public CommandTest {
 protected:
  PreciseCommand() {
    WritePictureFile(RenderSmallTarget().picture, folder.Path("target.bmp"));
    WritePictureFile(FlatPicture(64, 48, 20), folder.Path("dark.bmp"));
  }
};

TEST_F(PreciseCommand, WritesKindsAndCovariances) {
  ASSERT_EQ(Run("detect --precise target.bmp"), 0) << errors;
  EXPECT_THAT(output, StartsWith("id,row,col,x,y,kind,cxx,cxy,cyy\n1,0,0,"));
  EXPECT_THAT(output, HasSubstr(",measured,"));
  EXPECT_THAT(errors, HasSubstr("19 points, 4 rows x 5 columns, empty: place (1,2)"));
  EXPECT_TRUE(LeftNothingTemporary());
}

TEST_F(PreciseCommand, PredictsOnDemand) {
  ASSERT_EQ(Run("detect --precise --predict target.bmp"), 0) << errors;
  EXPECT_THAT(output, HasSubstr(",predicted,"));
  EXPECT_EQ(Run("detect --predict target.bmp"), 2);
}

TEST_F(PreciseCommand, WritesThePicturesFactsIntoJson) {
  ASSERT_EQ(Run("detect --precise target.bmp -o points.json"), 0) << errors;
  EXPECT_THAT(ReadWhole(folder.Path("points.json")), HasSubstr("\"facts\": {\"noise\": "));
  const std::vector<PointsOfImage> images = ReadPointsFile(folder.Path("points.json"));
  ASSERT_EQ(images.size(), 1u);
  EXPECT_EQ(images[0].points.size(), 19u);
  EXPECT_TRUE(images[0].points[0].covariance);
}

// Positions keep all of their digits, and a covariance stays with its point.
TEST_F(PreciseCommand, ListsCanBeCorrected) {
  ASSERT_EQ(Run("detect --precise target.bmp -o points.csv"), 0) << errors;
  const std::string before = ReadWhole(folder.Path("points.csv"));
  ASSERT_EQ(Run("points delete points.csv --id 1"), 0) << errors;
  const std::size_t second = before.find("\n2,") + 1;
  EXPECT_EQ(output, before.substr(0, before.find('\n') + 1) + before.substr(second));
}

TEST_F(PreciseCommand, WorksInThreads) {
  ASSERT_EQ(Run("detect --precise target.bmp dark.bmp target.bmp -j 3 -q"), 1);
  EXPECT_THAT(errors, HasSubstr("dark.bmp: no target was found: "));
  EXPECT_THAT(output, HasSubstr("dark.bmp,,,,,,failed"));
}

TEST_F(PreciseCommand, RefusesOptionsOfTheOtherDetection) {
  EXPECT_EQ(Run("detect --precise target.bmp --row-span 3"), 2);
  EXPECT_EQ(Run("detect --precise target.bmp --diagnostics stages"), 2);
  EXPECT_EQ(Run("detect --precise target.bmp --no-check"), 2);
}

// A note that a stopped run left would cut down the table of the run that followed.
TEST_F(PreciseCommand, AWholeRunForgetsTheStoppedOne) {
  for (const char* name : {"p1.bmp", "p2.bmp", "p3.bmp", "p4.bmp"}) {
    std::filesystem::copy_file(folder.Path("target.bmp"), folder.Path(name));
  }
  ASSERT_EQ(Run("detect --precise -q --resume -o st.csv p1.bmp"), 0) << errors;
  const std::string note =
      "--precise\n0\n" + std::to_string(ReadWhole(folder.Path("st.csv")).size()) + "\n";
  folder.File("st.csv.resume", note);
  EXPECT_EQ(Run("detect --precise -q -o st.csv dark.bmp"), 1);  // nothing is written
  EXPECT_TRUE(folder.Has("st.csv.resume"));

  ASSERT_EQ(Run("detect --precise -q -o st.csv p1.bmp p2.bmp p3.bmp"), 0) << errors;
  EXPECT_FALSE(folder.Has("st.csv.resume"));
  const std::string three = ReadWhole(folder.Path("st.csv"));
  folder.File("st.csv.resume", note);
  EXPECT_EQ(Run("detect --precise -q --resume -o st.csv p4.bmp"), 2);
  EXPECT_THAT(errors, HasSubstr("--resume cannot go on with st.csv: st.csv.resume says that "));
  EXPECT_EQ(ReadWhole(folder.Path("st.csv")), three);

  std::filesystem::remove(folder.Path("st.csv.resume"));
  ASSERT_EQ(Run("detect --precise -q --resume -o st.csv p4.bmp"), 0) << errors;
  EXPECT_THAT(ReadWhole(folder.Path("st.csv")), StartsWith(three + "p4.bmp,"));
}

TEST_F(PreciseCommand, ExpectsAGrid) {
  EXPECT_EQ(Run("detect --precise target.bmp --expect 4x5 -q"), 0) << errors;
  EXPECT_EQ(Run("detect --precise target.bmp --expect 5x4 -q"), 1);
  EXPECT_THAT(errors, HasSubstr("target.bmp: a grid of 4x5 was found, not of 5x4"));
  EXPECT_EQ(Run("detect target.bmp --expect 4x6 -q"), 1);
  EXPECT_EQ(Run("detect target.bmp --expect 4"), 2);
}

TEST_F(PreciseCommand, TakesTheSizeOfTheBoard) {
  ASSERT_EQ(Run("detect --precise target.bmp --rows 4 --columns 5 --format json"), 0) << errors;
  EXPECT_THAT(output, HasSubstr("\"fixed_rows\": 1, \"fixed_columns\": 1}"));
  EXPECT_THAT(errors, HasSubstr("place (1,2); rows and columns are the board's"));
  ASSERT_EQ(Run("detect --precise target.bmp --rows 6 --columns 5 --format text"), 0) << errors;
  EXPECT_THAT(output, HasSubstr("; columns are the board's, rows count from the first one found"));
  EXPECT_THAT(errors, HasSubstr("quorvex: target.bmp: which of the board's 6 rows were found "));
  EXPECT_EQ(Run("detect --precise target.bmp --rows 6 --columns 5 --strict -q"), 1);
  EXPECT_THAT(output, StartsWith("id,row,col"));
}

TEST_F(PreciseCommand, ABoardThatIsTooSmallIsAFailure) {
  ASSERT_EQ(Run("detect --precise target.bmp --rows 5 --columns 4 -q"), 1);
  EXPECT_EQ(output, "");
  EXPECT_EQ(errors,
            "quorvex: target.bmp: 4 rows x 5 columns were found on a board of 5 x 4, where they "
            "would fit turned by a right angle\n");
}

TEST_F(PreciseCommand, RefusesHalfASizeAndWrongOnes) {
  EXPECT_EQ(Run("detect --precise target.bmp --rows 4"), 2);
  EXPECT_EQ(Run("detect --precise target.bmp --columns 5"), 2);
  EXPECT_EQ(Run("detect target.bmp --rows 4 --columns 5"), 2);
  EXPECT_EQ(Run("detect --precise target.bmp --rows 0 --columns 5"), 2);
  EXPECT_EQ(Run("detect --precise target.bmp --rows 4 --columns 1001"), 2);
}

TEST_F(PreciseCommand, TheCheckIsSilentWhereAllIsWell) {
  ASSERT_EQ(Run("render --preset easy -o easy.bmp -q"), 0) << errors;
  ASSERT_EQ(Run("detect easy.bmp -q --strict"), 0) << errors;
  EXPECT_EQ(errors, "");
}

// The other detection needs a mark near the middle of the picture and finds two of this board.
TEST_F(PreciseCommand, TheCheckTellsWhatIsWrong) {
  ASSERT_EQ(Run("detect target.bmp -q"), 0) << errors;
  EXPECT_THAT(errors, HasSubstr("quorvex: target.bmp: by the direct detection 17 marks were lost"));
  EXPECT_EQ(Run("detect target.bmp -q --strict"), 1);
  EXPECT_THAT(output, StartsWith("id,row,col"));
  ASSERT_EQ(Run("detect target.bmp -q --no-check"), 0);
  EXPECT_EQ(errors, "");
}

}  // namespace
}  // namespace quorvex::tests
