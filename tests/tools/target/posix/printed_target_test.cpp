// A printed target before a camera: the drawing, turned into pixels by another program, is laid on
// the renderer's board. Both detections find its marks, and neither takes the rulers or the caption
// for one.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "tests/support/run_program.h"
#include "tests/support/temporary_folder.h"
#include "tools/compare/compare_points.h"
#include "tools/lists/points_file.h"
#include "tools/pictures/picture_file.h"
#include "tools/render/board.h"
#include "tools/render/camera.h"
#include "tools/render/picture_effects.h"
#include "tools/render/presets.h"
#include "tools/render/render_target.h"

namespace quorvex::tests {

using namespace tools;

namespace {

constexpr double kPagePixels = 300 / 25.4;  // a millimetre
constexpr double kPageSide = 180;           // millimetres
constexpr double kInk = 10;                 // grey level
constexpr double kPaper = 200;              // grey level
constexpr double kAround = 30;              // grey level

RenderSettings ThePose() {
  RenderSettings settings = PresetByName("fisheye");
  settings.width = settings.height = 1200;
  settings.focalLength = 1000;
  settings.distance = 190;
  settings.rows = settings.columns = 5;
  settings.pitch = 30;
  settings.armLength = 12.75;
  settings.strokeWidth = 0.55;
  settings.rotation = 20;
  settings.shiftX = settings.shiftY = 7.5;
  return settings;
}

// Between four pixels; the paper ends at the page's edge.
double PageLevel(const Picture& page, const BoardPoint& point) {
  const double x = (point.x + kPageSide / 2) * kPagePixels - 0.5;
  const double y = (point.y + kPageSide / 2) * kPagePixels - 0.5;
  if (!(x >= 0 && x < page.width - 1 && y >= 0 && y < page.height - 1)) {
    return kAround;
  }
  const auto at = [&page](int column, int row) {
    return page.pixels[static_cast<std::size_t>(row) * static_cast<std::size_t>(page.width) +
                       static_cast<std::size_t>(column)];
  };
  const int column = static_cast<int>(x);
  const int row = static_cast<int>(y);
  const double right = x - column;
  const double down = y - row;
  const double grey = (1 - down) * ((1 - right) * at(column, row) + right * at(column + 1, row)) +
                      down * ((1 - right) * at(column, row + 1) + right * at(column + 1, row + 1));
  return kInk + (kPaper - kInk) * grey / 255;
}

Picture Photograph(const Picture& page, const RenderSettings& settings) {
  const Camera camera(settings);
  const Board board(settings);
  const LevelPicture levels = FilterSamples(
      settings.width, settings.height, 0.8, [&](int row, std::vector<double>& samples) {
        for (std::size_t i = 0; i < samples.size(); ++i) {
          const auto place = [](double index) {
            return (index + 0.5) / kSamplesPerPixelSide - 0.5;
          };
          const auto ray = camera.Ray({place(static_cast<double>(i)), place(row)});
          BoardPoint point;
          samples[i] = ray && board.Intersect(*ray, point) ? PageLevel(page, point) : kAround;
        }
      });
  return AddNoiseAndRound(levels, 1.5, 1);
}

class PrintedTarget : public testing::Test {
 protected:
  void SetUp() override {
    if (std::string(QUORVEX_TARGET_DRAWING) == "none") {
      GTEST_SKIP() << "built without cairo (Debian: libcairo2-dev)";
    }
    if (std::string(QUORVEX_PDFTOPPM).empty()) {
      GTEST_SKIP() << "no pdftoppm (Debian: poppler-utils)";
    }
    ASSERT_EQ(Run(QUORVEX_COMMAND,
                  "target --rows 5 --columns 5 --pitch 30 --arm 12.75 --stroke 0.55 "
                  "--paper 180x180 --output page.pdf"),
              0);
    ASSERT_EQ(Run(QUORVEX_PDFTOPPM, "-r 300 -gray -png -singlefile page.pdf page"), 0);
    const Picture photograph = Photograph(ReadPictureFile(folder.Path("page.png")), ThePose());
    WritePictureFile(photograph, folder.Path("photograph.bmp"));
  }

  int Run(const std::string& program, const std::string& arguments) const {
    return RunProgram({program, SplitAtBlanks(arguments), folder.Path()});
  }

  void ExpectEveryMark(const std::string& options, double rms) const {
    SCOPED_TRACE(options);
    ASSERT_EQ(Run(QUORVEX_COMMAND, "detect photograph.bmp -o points.csv " + options), 0);
    const auto points = ReadPointsFile(folder.Path("points.csv"));
    ASSERT_EQ(points.size(), 1u);
    const Comparison comparison = ComparePoints(points[0].points, ProjectMarks(ThePose()), 5);
    EXPECT_TRUE(comparison.IsComplete());
    EXPECT_LT(comparison.found.rms, rms);
  }

  TemporaryFolder folder;
};

TEST_F(PrintedTarget, BothDetectionsFindItsMarksAndNoOthers) {
  ExpectEveryMark("--no-check", 0.4);
  // The other program rounds strokes to whole pixels of the page, a quarter of a pixel here.
  ExpectEveryMark("--precise", 0.15);
}

}  // namespace
}  // namespace quorvex::tests
