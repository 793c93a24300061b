#include <gtest/gtest.h>

#include <cmath>
#include <utility>
#include <vector>

#include "interface/quorvex_precise.h"
#include "tests/precise/drawn_board.h"

namespace quorvex::tests {
namespace {

using precise::Detect;
using precise::GrayPicture;
using precise::ImageView;
using precise::Mark;
using precise::MarkColour;
using precise::Options;
using precise::Result;
using precise::Verdict;

DrawnBoard Board() {
  DrawnBoard board;
  board.width = 400;
  board.height = 330;
  board.rows = 5;
  board.columns = 6;
  board.first = {70.2, 35.6};
  board.step = {55, 8};
  board.noise = 2;
  return board;
}

ImageView ViewOf(const GrayPicture& picture) {
  return {picture.Row(0), picture.Width(), picture.Height(), picture.Width()};
}

void ExpectTheBoard(const DrawnBoard& board, const Result& result) {
  ASSERT_EQ(result.marks.size(), 30U - board.missing.size())
      << result.stage << ": " << result.reason;
  EXPECT_EQ(result.reason, "");
  EXPECT_EQ(result.stage, "");
  for (const Mark& mark : result.marks) {
    const Eigen::Vector2d place = board.Place(mark.row, mark.column);
    EXPECT_NEAR(mark.x, place.x(), 0.05) << mark.row << ", " << mark.column;
    EXPECT_NEAR(mark.y, place.y(), 0.05) << mark.row << ", " << mark.column;
    EXPECT_GT(mark.cxx * mark.cyy, mark.cxy * mark.cxy);
  }
}

// What hosts leave as it is made says nothing.
TEST(DirectDetector, RecordsAreEmptyAsTheyAreMade) {
  const Mark mark;
  EXPECT_EQ(mark.row, 0);
  EXPECT_EQ(mark.column, 0);
  for (const double value : {mark.x, mark.y, mark.cxx, mark.cxy, mark.cyy}) {
    EXPECT_EQ(value, 0.0);
  }
  EXPECT_EQ(mark.verdict, Verdict::kMeasured);
  const precise::Point point;
  const precise::RefinedPoint refined;
  for (const double value :
       {point.x, point.y, refined.x, refined.y, refined.cxx, refined.cxy, refined.cyy}) {
    EXPECT_EQ(value, 0.0);
  }
  EXPECT_FALSE(refined.isRefined);
  const precise::PictureFacts facts;
  const precise::CameraFacts& camera = facts.camera;
  for (const double value : {facts.noise, facts.strokeWidth, facts.pitch, facts.blur,
                             facts.armLength, camera.focalLength, camera.k1, camera.k2, camera.k3,
                             camera.centreX, camera.centreY, camera.residual}) {
    EXPECT_EQ(value, 0.0);
  }
  EXPECT_EQ(camera.aspect, 1.0);
  EXPECT_FALSE(facts.hasLightMarks || facts.hasFixedRows || facts.hasFixedColumns);
  const Options options;
  EXPECT_FALSE(options.predictsMissing || options.hasContinuousLines);
  EXPECT_EQ(options.colour, MarkColour::kEither);
  EXPECT_EQ(options.boardRows + options.boardColumns, 0);
}

TEST(Detect, FindsEveryMark) {
  const DrawnBoard board = Board();
  const GrayPicture picture = board.Draw();
  const Result result = Detect(ViewOf(picture));
  ExpectTheBoard(board, result);
  EXPECT_NEAR(result.facts.noise, 2.0, 0.3);
  EXPECT_NEAR(result.facts.strokeWidth, 3.0, 0.15);
  EXPECT_NEAR(result.facts.pitch, board.step.norm(), 0.3);
  EXPECT_NEAR(result.facts.blur, 0.7, 0.1);
  EXPECT_NEAR(result.facts.armLength, 0.4, 0.02);
}

TEST(Detect, ContinuousLinesAreABoardWhenTheCallerSaysSo) {
  DrawnBoard board = Board();
  board.arm = 0.5;
  const GrayPicture picture = board.Draw();
  const Result refused = Detect(ViewOf(picture));
  EXPECT_TRUE(refused.marks.empty());
  EXPECT_NE(refused.reason.find("continuous lines"), std::string::npos) << refused.reason;
  Options options;
  options.hasContinuousLines = true;
  ExpectTheBoard(board, Detect(ViewOf(picture), options));
}

TEST(Detect, FindsLightMarksOnADarkBoard) {
  DrawnBoard board = Board();
  board.board = 50;
  board.mark = 210;
  const GrayPicture picture = board.Draw();
  const Result result = Detect(ViewOf(picture));
  ExpectTheBoard(board, result);
  EXPECT_TRUE(result.facts.hasLightMarks);
  Options options;
  options.colour = MarkColour::kDark;
  EXPECT_TRUE(Detect(ViewOf(picture), options).marks.empty());
}

TEST(Detect, LooksForOneColourAloneWhenTold) {
  DrawnBoard board = Board();
  Options light;
  light.colour = MarkColour::kLight;
  const GrayPicture dark = board.Draw();
  EXPECT_EQ(Detect(ViewOf(dark), light).stage, "seed");
  std::swap(board.board, board.mark);
  const GrayPicture picture = board.Draw();
  ExpectTheBoard(board, Detect(ViewOf(picture), light));
}

TEST(Detect, RowsMayRunUpwardsAndHaveGaps) {
  const DrawnBoard board = Board();
  const GrayPicture picture = board.Draw();
  const int stride = board.width + 13;
  std::vector<unsigned char> bytes(static_cast<std::size_t>(stride * board.height), 0);
  for (int y = 0; y < board.height; ++y) {
    std::copy(picture.Row(y), picture.Row(y) + board.width,
              bytes.begin() + (board.height - 1 - y) * stride);
  }
  ExpectTheBoard(board, Detect({bytes.data() + (board.height - 1) * stride, board.width,
                                board.height, -stride}));
}

TEST(Detect, MissingMarksArePredictedOnDemandOnly) {
  DrawnBoard board = Board();
  board.missing.insert({2, 3});
  const GrayPicture picture = board.Draw();
  ExpectTheBoard(board, Detect(ViewOf(picture)));
  Options options;
  options.predictsMissing = true;
  const Result result = Detect(ViewOf(picture), options);
  ASSERT_EQ(result.marks.size(), 30U);
  const Mark& mark = result.marks[2 * 6 + 3];
  EXPECT_EQ(mark.verdict, Verdict::kPredicted);
  const Eigen::Vector2d place = board.Place(2, 3);
  EXPECT_LT(std::hypot(mark.x - place.x(), mark.y - place.y()), 0.05);
  EXPECT_GT(mark.cxx, 0.0);
}

void ExpectAnotherSize(const DrawnBoard& board) {
  const GrayPicture picture = board.Draw();
  Options options;
  options.boardRows = 5;
  options.boardColumns = 5;
  const Result result = Detect(ViewOf(picture), options);
  EXPECT_TRUE(result.marks.empty());
  EXPECT_EQ(result.stage, "size");
  EXPECT_EQ(result.reason, "5 rows x 6 columns were found on a board of 5 x 5");
}

TEST(Detect, ABoardThatTheGridDoesNotFitIsNoResult) {
  DrawnBoard board = Board();
  ExpectAnotherSize(board);
  std::swap(board.board, board.mark);
  ExpectAnotherSize(board);
}

TEST(Detect, HalfASizeOfTheBoardIsWrongInput) {
  const GrayPicture picture = Board().Draw();
  Options options;
  options.boardRows = 5;
  EXPECT_EQ(Detect(ViewOf(picture), options).stage, "input");
}

// Row 0 lies above the picture, and its edge cuts row 1; the blank board below row 4 is seen.
TEST(Detect, LabelsOfACutBoardAreTheBoards) {
  DrawnBoard board = Board();
  board.first = {70.2, -60.4};
  const GrayPicture picture = board.Draw();
  Options options;
  options.boardRows = 5;
  options.boardColumns = 6;
  options.predictsMissing = true;
  const Result result = Detect(ViewOf(picture), options);
  ASSERT_FALSE(result.marks.empty()) << result.reason;
  EXPECT_TRUE(result.facts.hasFixedRows);
  EXPECT_TRUE(result.facts.hasFixedColumns);
  EXPECT_EQ(result.marks.back().row, 4);
  for (const Mark& mark : result.marks) {
    const Eigen::Vector2d place = board.Place(mark.row, mark.column);
    const double most = mark.verdict == Verdict::kPredicted ? 1.0 : 0.1;
    EXPECT_LT(std::hypot(mark.x - place.x(), mark.y - place.y()), most) << mark.row;
    EXPECT_GE(mark.y, 0.0);
  }
  EXPECT_FALSE(Detect(ViewOf(picture)).facts.hasFixedRows);
}

TEST(Detect, ALargeBoardIsPredictedWithinThePictureAlone) {
  DrawnBoard board = Board();
  board.first = {70.2, -60.4};
  const GrayPicture picture = board.Draw();
  Options options;
  options.boardRows = 1000;
  options.boardColumns = 1000;
  options.predictsMissing = true;
  const Result result = Detect(ViewOf(picture), options);
  ASSERT_FALSE(result.marks.empty()) << result.reason;
  EXPECT_EQ(result.marks.back().row, 999);
  EXPECT_LT(result.marks.size(), 60U);
}

TEST(Detect, APictureWithoutMarksGivesAReason) {
  DrawnBoard board = Board();
  board.rows = board.columns = 0;
  board.noise = 8;
  const Result result = Detect(ViewOf(board.Draw()));
  EXPECT_TRUE(result.marks.empty());
  EXPECT_NE(result.reason, "");
  EXPECT_EQ(result.stage, "seed");
}

TEST(Detect, WrongInputGivesAReason) {
  std::vector<unsigned char> bytes(40 * 40, 128);
  for (const ImageView& image :
       {ImageView{nullptr, 40, 40, 40}, ImageView{bytes.data(), 15, 40, 40},
        ImageView{bytes.data(), 40, 0, 40}, ImageView{bytes.data(), -40, 40, 40},
        ImageView{bytes.data(), 40, 40, 39}, ImageView{bytes.data(), 40, 40, 0}}) {
    const Result result = Detect(image);
    EXPECT_TRUE(result.marks.empty());
    EXPECT_EQ(result.stage, "input");
    EXPECT_NE(result.reason, "");
  }
  EXPECT_EQ(Detect({bytes.data(), 16, 16, 40}).stage, "seed");
}

}  // namespace
}  // namespace quorvex::tests
