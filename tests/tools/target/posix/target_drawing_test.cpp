// A drawn target, turned into pixels by another program and measured there. Sums of darkness tell
// lengths to a fraction of a pixel.
#include "tools/target/target_drawing.h"

#include <gtest/gtest.h>

#include <cmath>
#include <regex>
#include <string>
#include <vector>

#include "tests/support/run_program.h"
#include "tests/support/temporary_folder.h"
#include "tools/pictures/picture_file.h"
#include "tools/target/target_layout.h"

namespace quorvex::tests {

using namespace tools;

namespace {

constexpr double kPixels = 600 / 25.4;  // a millimetre
constexpr double kRulerLevel = 0.4;     // darkness of rulers, 1 is black
constexpr TargetMarks kMarks = {3, 4, 25, 11, 0.6};
constexpr const char* kPaper = "150x140";
constexpr double kWidth = 150;   // millimetres
constexpr double kHeight = 140;  // millimetres

std::string TextOf(DrawingFormat format) {
  const auto bytes = DrawTarget(LayOutTarget(kMarks, ParsePaper(kPaper)), format);
  return std::string(bytes.begin(), bytes.end());
}

// A strip of the picture, millimetres.
struct Strip {
  double left;
  double top;
  double right;
  double bottom;
};

struct Dark {
  double area = 0;  // square millimetres, of black
  double x = 0;     // its middle, millimetres
  double y = 0;
};

class TargetDrawing : public testing::Test {
 protected:
  void SetUp() override {
    if (std::string(QUORVEX_TARGET_DRAWING) == "none") {
      GTEST_SKIP() << "built without cairo (Debian: libcairo2-dev)";
    }
  }

  Dark Sum(const Strip& strip) const {
    Dark sum;
    const auto first = [](double at) { return static_cast<int>(std::floor(at * kPixels)); };
    for (int y = first(strip.top); y < first(strip.bottom); ++y) {
      for (int x = first(strip.left); x < first(strip.right); ++x) {
        const double dark =
            (255 -
             picture.pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.width) +
                            static_cast<std::size_t>(x)]) /
            255.0;
        sum.area += dark;
        sum.x += dark * (x + 0.5);
        sum.y += dark * (y + 0.5);
      }
    }
    sum.x /= sum.area * kPixels;
    sum.y /= sum.area * kPixels;
    sum.area /= kPixels * kPixels;
    return sum;
  }

  // A millimetre's piece of each stroke, off the other one.
  void ExpectMark(double x, double y) const {
    SCOPED_TRACE(testing::Message() << x << ", " << y);
    const double pixel = 1 / kPixels;
    const double at = 6;  // millimetres from the centre
    const Dark upright = Sum({x - 2, y + at, x + 2, y + at + 1});
    const Dark level = Sum({x + at, y - 2, x + at + 1, y + 2});
    const double length = std::floor((y + at + 1) * kPixels) - std::floor((y + at) * kPixels);
    const double breadth = std::floor((x + at + 1) * kPixels) - std::floor((x + at) * kPixels);
    EXPECT_NEAR(upright.x, x, pixel);
    EXPECT_NEAR(level.y, y, pixel);
    EXPECT_NEAR(upright.area * kPixels / length, kMarks.strokeWidth, pixel);
    EXPECT_NEAR(level.area * kPixels / breadth, kMarks.strokeWidth, pixel);
    // Along the middle of each stroke, from tip to tip.
    const Dark down = Sum({x, y - 12, x + pixel, y + 12});
    const Dark across = Sum({x - 12, y, x + 12, y + pixel});
    EXPECT_NEAR(down.area * kPixels, 2 * kMarks.armLength, pixel);
    EXPECT_NEAR(across.area * kPixels, 2 * kMarks.armLength, pixel);
    const Dark all = Sum({x - 12, y - 12, x + 12, y + 12});
    EXPECT_NEAR(all.x, x, pixel);
    EXPECT_NEAR(all.y, y, pixel);
  }

  TemporaryFolder folder;
  Picture picture;
};

TEST_F(TargetDrawing, ThePrintHasTheMeasuresThatWereAskedFor) {
  if (std::string(QUORVEX_PDFTOPPM).empty()) {
    GTEST_SKIP() << "no pdftoppm (Debian: poppler-utils)";
  }
  folder.File("a.pdf", TextOf(DrawingFormat::kPdf));
  ASSERT_EQ(RunProgram({QUORVEX_PDFTOPPM,
                        {"-r", "600", "-gray", "-png", "-singlefile", "a.pdf", "a"},
                        folder.Path()}),
            0);
  picture = ReadPictureFile(folder.Path("a.png"));
  EXPECT_NEAR(picture.width, kWidth * kPixels, 1);
  EXPECT_NEAR(picture.height, kHeight * kPixels, 1);
  for (int row = 0; row < kMarks.rows; ++row) {
    for (int column = 0; column < kMarks.columns; ++column) {
      ExpectMark(kWidth / 2 + (column - 1.5) * kMarks.pitch,
                 kHeight / 2 + (row - 1.0) * kMarks.pitch);
    }
  }
  // The first and the last tick of each ruler, half a tick long.
  const TargetLayout layout = LayOutTarget(kMarks, ParsePaper(kPaper));
  ASSERT_EQ(layout.acrossLength, 100);
  ASSERT_EQ(layout.downLength, 90);
  const Dark first = Sum({24, kHeight - 7.5, 26, kHeight - 6});
  const Dark last = Sum({124, kHeight - 7.5, 126, kHeight - 6});
  EXPECT_NEAR(last.x - first.x, 100, 1 / kPixels);
  EXPECT_NEAR(first.area / 1.5 / 0.2, kRulerLevel, 0.05);
  const Dark top = Sum({6, 24, 7.5, 26});
  const Dark bottom = Sum({6, 114, 7.5, 116});
  EXPECT_NEAR(bottom.y - top.y, 90, 1 / kPixels);
}

TEST_F(TargetDrawing, TheSameTargetIsTheSameFile) {
  EXPECT_EQ(TextOf(DrawingFormat::kPdf), TextOf(DrawingFormat::kPdf));
  // The library counts its surfaces and names one by its number.
  const std::regex name("surface[0-9]+");
  EXPECT_EQ(std::regex_replace(TextOf(DrawingFormat::kSvg), name, ""),
            std::regex_replace(TextOf(DrawingFormat::kSvg), name, ""));
  const std::string pdf = TextOf(DrawingFormat::kPdf);
  EXPECT_NE(pdf.find("20000101000000Z"), std::string::npos);
}

// Marks are paths of four corners, in the units that the viewBox maps to true points.
TEST_F(TargetDrawing, TheVectorsOfTheSvgFileAreTrueToScale) {
  const std::string svg = TextOf(DrawingFormat::kSvg);
  std::smatch size;
  ASSERT_TRUE(std::regex_search(
      svg, size,
      std::regex("width=\"([0-9.]+)(?:pt)?\" height=\"([0-9.]+)(?:pt)?\" viewBox=\"0 0 ([0-9.]+) "
                 "([0-9.]+)\"")))
      << svg.substr(0, 300);
  constexpr double kPoint = 25.4 / 72;  // millimetres
  EXPECT_NE(size[0].str().find("pt"), std::string::npos);
  EXPECT_NEAR(std::stod(size[1]) * kPoint, kWidth, 0.01);
  EXPECT_NEAR(std::stod(size[2]) * kPoint, kHeight, 0.01);
  EXPECT_EQ(size[1], size[3]);
  EXPECT_EQ(size[2], size[4]);

  const std::string number = "([0-9.]+) ";
  const std::regex path("fill:rgb\\(0%,0%,0%\\);[^>]* d=\"M " + number + number + "L " + number +
                        number + "L " + number + number + "L " + number + number + "Z");
  std::size_t count = 0;
  const std::vector<Bar> bars = LayOutTarget(kMarks, ParsePaper(kPaper)).marks;
  for (std::sregex_iterator found(svg.begin(), svg.end(), path), end; found != end; ++found) {
    ASSERT_LT(count, bars.size());
    const Bar& bar = bars[count++];
    EXPECT_NEAR(std::stod((*found)[1]) * kPoint, bar.x, 0.002);
    EXPECT_NEAR(std::stod((*found)[2]) * kPoint, bar.y, 0.002);
    EXPECT_NEAR(std::stod((*found)[5]) * kPoint, bar.x + bar.width, 0.002);
    EXPECT_NEAR(std::stod((*found)[6]) * kPoint, bar.y + bar.height, 0.002);
  }
  EXPECT_EQ(count, bars.size());
}

}  // namespace
}  // namespace quorvex::tests
