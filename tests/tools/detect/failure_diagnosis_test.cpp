// Every sentence, on a picture that shows what it tells, through the command.
#include "tools/detect/failure_diagnosis.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <png.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include "tests/support/command_test.h"
#include "tools/detect/detect_worker.h"
#include "tools/pictures/picture_file.h"
#include "tools/render/presets.h"
#include "tools/render/render_target.h"

namespace quorvex::tests {

using namespace tools;

namespace {

using testing::HasSubstr;
using testing::StartsWith;

constexpr int kDrawnSide = 512;      // pixels
constexpr double kDrawnReach = 200;  // pixels from a drawn board's middle to its edges

// A board that the detection solves; each test spoils something.
RenderSettings GoodBoard() {
  RenderSettings settings = PresetByName("easy");
  settings.width = 1024;
  settings.height = 840;
  settings.rows = 4;
  settings.columns = 5;
  settings.margin = 26;
  return settings;
}

// A bright board, turned by a few degrees, with a pattern in black; positions on it are pixels from
// its middle.
using IsInk = std::function<bool(double x, double y)>;

int LevelOnBoard(double x, double y, const IsInk& isInk) {
  if (std::abs(x) > kDrawnReach || std::abs(y) > kDrawnReach) return 30;
  return isInk(x, y) ? 10 : 200;
}

Picture DrawBoard(const IsInk& isInk) {
  Picture picture = FlatPicture(kDrawnSide, kDrawnSide, 30);
  for (int y = 0; y < kDrawnSide; ++y) {
    for (int x = 0; x < kDrawnSide; ++x) {
      int sum = 0;
      for (int sample = 0; sample < 9; ++sample) {
        const double right = x - kDrawnSide / 2 + (sample % 3 - 1) / 3.0;
        const double down = y - kDrawnSide / 2 + (sample / 3 - 1) / 3.0;
        sum += LevelOnBoard(std::cos(0.15) * right + std::sin(0.15) * down,
                            -std::sin(0.15) * right + std::cos(0.15) * down, isInk);
      }
      picture.At(x, y) = static_cast<std::uint8_t>(sum / 9);
    }
  }
  return picture;
}

// Where a position is in its square of a grid of squares whose middles are `pitch` apart.
double InSquare(double position, double pitch) {
  return position - std::round(position / pitch) * pitch;
}

// 16-bit samples, as a camera of fewer bits leaves them: not spread over the whole range.
void WriteDeepPng(const Picture& picture, double scale, const std::string& path) {
  std::FILE* file = std::fopen(path.c_str(), "wb");
  ASSERT_NE(file, nullptr);
  png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
  png_infop info = png_create_info_struct(png);
  png_init_io(png, file);
  png_set_IHDR(png, info, static_cast<png_uint_32>(picture.width),
               static_cast<png_uint_32>(picture.height), 16, PNG_COLOR_TYPE_GRAY,
               PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
  png_write_info(png, info);
  std::vector<std::uint8_t> row(static_cast<std::size_t>(picture.width) * 2);
  for (int y = 0; y < picture.height; ++y) {
    for (int x = 0; x < picture.width; ++x) {
      const int sample = static_cast<int>(picture.At(x, y) * scale);
      row[static_cast<std::size_t>(x) * 2] = static_cast<std::uint8_t>(sample / 256);
      row[static_cast<std::size_t>(x) * 2 + 1] = static_cast<std::uint8_t>(sample % 256);
    }
    png_write_row(png, row.data());
  }
  png_write_end(png, info);
  png_destroy_write_struct(&png, &info);
  std::fclose(file);
}

class FailureDiagnosis : public CommandTest {
 protected:
  // What the command says about a picture in which nothing is found, without the picture's name.
  std::string Describe(const Picture& picture, const std::string& options = "") {
    WritePictureFile(picture, folder.Path("p.bmp"));
    return DescribeFile("p.bmp", options);
  }

  std::string Describe(const RenderSettings& settings, const std::string& options = "") {
    return Describe(RenderTarget(settings).picture, options);
  }

  std::string DescribeFile(const std::string& name, const std::string& options = "") {
    EXPECT_EQ(Run("detect " + name + " " + options), 1) << output;
    const std::string start = "quorvex: " + name + ": ";
    EXPECT_THAT(errors, StartsWith(start));
    return errors.substr(std::min(start.size(), errors.size()));
  }
};

TEST_F(FailureDiagnosis, TheBoardItselfIsSolved) {
  WritePictureFile(RenderTarget(GoodBoard()).picture, folder.Path("p.bmp"));
  EXPECT_EQ(Run("detect p.bmp"), 0);
  EXPECT_THAT(errors, HasSubstr("20 points"));
}

TEST_F(FailureDiagnosis, NoPictures) {
  WritePictureFile(FlatPicture(64, 48, 20), folder.Path("dark.bmp"));
  const TemporaryFolder work;
  std::filesystem::create_directory(work.Path("Mask.bmp"));  // no file can have that name
  const std::filesystem::path before = std::filesystem::current_path();
  const DetectionResult result = DetectInDirectory(folder.Path("dark.bmp"), work.Path(), {});
  std::filesystem::current_path(before);
  EXPECT_THAT(result.message, HasSubstr("were not written"));
}

TEST_F(FailureDiagnosis, AGridWithoutPoints) {
  const TemporaryFolder empty;
  EXPECT_THAT(DescribeFailure({empty.Path(), true}),
              HasSubstr("a grid was found, but none of its points"));
}

TEST_F(FailureDiagnosis, ADarkPicture) {
  RenderSettings settings = GoodBoard();
  settings.boardLevel = 60;
  settings.backgroundLevel = 10;
  EXPECT_THAT(Describe(settings), StartsWith("no bright target was found: nothing in the picture "
                                             "is brighter than grey level 6"));
}

TEST_F(FailureDiagnosis, SixteenBitsOfWhichAFractionIsUsed) {
  const Picture picture = RenderTarget(GoodBoard()).picture;
  WriteDeepPng(picture, 16, folder.Path("deep.png"));  // twelve bits
  EXPECT_THAT(DescribeFile("deep.png"), HasSubstr("uses only the lowest 6 % of their range"));
  WriteDeepPng(picture, 256, folder.Path("whole.png"));
  EXPECT_EQ(Run("detect whole.png"), 0) << errors;
}

TEST_F(FailureDiagnosis, Noise) {
  RenderSettings settings = GoodBoard();
  for (const int sigma : {5, 8, 20}) {
    settings.noiseSigma = sigma;
    EXPECT_THAT(Describe(settings), StartsWith("the picture is noisy: sigma is about")) << sigma;
  }
}

TEST_F(FailureDiagnosis, Circles) {
  const IsInk dots = [](double x, double y) {
    return std::hypot(InSquare(x, 60), InSquare(y, 60)) < 15;
  };
  EXPECT_THAT(Describe(DrawBoard(dots)), HasSubstr("look like circles"));
  // With the picture's centre between four circles.
  const IsInk moved = [&](double x, double y) { return dots(x + 30, y + 30); };
  EXPECT_THAT(Describe(DrawBoard(moved)), HasSubstr("look like circles"));
}

TEST_F(FailureDiagnosis, Rings) {
  EXPECT_THAT(Describe(DrawBoard([](double x, double y) {
                const double radius = std::hypot(InSquare(x, 60), InSquare(y, 60));
                return radius > 12 && radius < 16;
              })),
              HasSubstr("look like circles"));
}

TEST_F(FailureDiagnosis, AChessboard) {
  for (const bool isCentreDark : {false, true}) {
    EXPECT_THAT(Describe(DrawBoard([&](double x, double y) {
                  if (std::abs(x) > 170 || std::abs(y) > 170) return false;
                  const double squares = std::round(x / 50) + std::round(y / 50);
                  return (std::fmod(std::abs(squares), 2) == 0) == isCentreDark;
                })),
                HasSubstr("looks like a chessboard"))
        << isCentreDark;
  }
}

TEST_F(FailureDiagnosis, BrightMarksOnADarkBoard) {
  RenderSettings settings = GoodBoard();
  settings.markLevel = 200;
  settings.boardLevel = 30;
  settings.backgroundLevel = 10;
  EXPECT_THAT(Describe(settings), HasSubstr("looks inverted"));
  settings.backgroundLevel = 150;
  EXPECT_THAT(Describe(settings), HasSubstr("looks inverted"));
}

TEST_F(FailureDiagnosis, ATargetOffTheCentre) {
  Picture picture = FlatPicture(1024, 512, 30);
  FillBox(picture, 20, 40, 420, 440, 200);
  EXPECT_THAT(Describe(picture), HasSubstr("the target is off the centre: the picture's centre is "
                                           "dark, and the largest bright area lies around 220, "
                                           "240"));
}

TEST_F(FailureDiagnosis, NoTarget) {
  Picture picture = FlatPicture(512, 512, 30);
  FillBox(picture, 250, 250, 270, 270, 200);  // a bright spot is none
  EXPECT_THAT(Describe(picture), HasSubstr("no bright target was found around the picture's"));
}

TEST_F(FailureDiagnosis, ArmsThatTouch) {
  RenderSettings settings = GoodBoard();
  settings.armLength = 19.99;
  EXPECT_THAT(Describe(settings), HasSubstr("neighbouring marks touch each other"));
  settings.armLength = 19.4;  // a gap of 4.5 pixels
  EXPECT_THAT(Describe(settings), HasSubstr("neighbouring marks touch each other"));
}

TEST_F(FailureDiagnosis, ABlankBrightPicture) {
  EXPECT_THAT(Describe(FlatPicture(512, 512, 200)),
              HasSubstr("the whole picture is as bright as a target"));
}

TEST_F(FailureDiagnosis, ATargetWithoutMarks) {
  EXPECT_THAT(Describe(DrawBoard([](double, double) { return false; })),
              HasSubstr("the target was found but no marks on it"));
}

TEST_F(FailureDiagnosis, NoMarkNearTheCentre) {
  Picture picture = FlatPicture(1024, 1024, 30);
  FillBox(picture, 40, 40, 980, 980, 200);
  for (const int x : {140, 860}) {
    for (const int y : {140, 860}) {
      FillBox(picture, x - 40, y - 2, x + 41, y + 2, 10);
      FillBox(picture, x - 2, y - 40, x + 2, y + 41, 10);
    }
  }
  EXPECT_THAT(Describe(picture), HasSubstr("no mark lies within 250 pixels"));
}

TEST_F(FailureDiagnosis, BlurredMarks) {
  RenderSettings settings = GoodBoard();
  settings.blurSigma = 10;
  EXPECT_THAT(Describe(settings), HasSubstr("no straight strokes"));
}

TEST_F(FailureDiagnosis, OneStrokeAtTheCentre) {
  EXPECT_THAT(Describe(DrawBoard([](double x, double y) {
                return std::abs(x - 30) < 60 && std::abs(y - 40) < 1.6;
              })),
              HasSubstr("only one stroke"));
}

TEST_F(FailureDiagnosis, AMarkWithoutAGrid) {
  EXPECT_THAT(Describe(DrawBoard([](double x, double y) {
                const double along = std::max(std::abs(x - 20), std::abs(y - 20));
                const double across = std::min(std::abs(x - 20), std::abs(y - 20));
                return along < 50 && across < 1.6;
              })),
              HasSubstr("no grid around it; neighbours must be more than 121 pixels apart, and "
                        "--row-steps"));
}

}  // namespace
}  // namespace quorvex::tests
