#include "tools/detect/detect_reporter.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <functional>
#include <string>

#include "tests/support/test_files.h"

namespace quorvex::tests {

using namespace tools;

namespace {

DetectionResult Found(const std::string& image) {
  DetectionResult result;
  result.found.image = image;
  result.found.points = {{1, 0, 0, 5, 5}};
  return result;
}

DetectionResult Failed(const std::string& message) {
  DetectionResult result;
  result.exitCode = kExitNothingFound;
  result.message = message;
  return result;
}

// What a reporter of two images writes.
std::string Reported(ReporterSettings settings, const std::function<void(DetectReporter&)>& use) {
  const TemporaryFolder folder;
  std::FILE* file = std::fopen(folder.Path("out").c_str(), "wb");
  {
    DetectReporter reporter(file, 2, settings);
    use(reporter);
  }
  std::fclose(file);
  return ReadWhole(folder.Path("out"));
}

void TwoImages(DetectReporter& reporter) {
  reporter.ShowProgress(1);
  reporter.Report(Found("a.bmp"));
  reporter.ShowProgress(2);
  reporter.Report(Failed("b.bmp: nothing"));
}

TEST(DetectReporter, WritesALinePerImage) {
  EXPECT_EQ(Reported({ProgressStyle::kNone, true}, TwoImages),
            "a.bmp: 1 point, 1 row x 1 column\nquorvex: b.bmp: nothing\n");
}

TEST(DetectReporter, WithoutSummariesWritesFailuresOnly) {
  EXPECT_EQ(Reported({ProgressStyle::kNone, false}, TwoImages), "quorvex: b.bmp: nothing\n");
}

TEST(DetectReporter, PassesWarningsOnEvenWithoutSummaries) {
  const std::string reported =
      Reported({ProgressStyle::kNone, false}, [](DetectReporter& reporter) {
        DetectionResult result = Found("a.bmp");
        result.warning = "2 labels are wrong";
        reporter.Report(result);
      });
  EXPECT_EQ(reported, "quorvex: a.bmp: 2 labels are wrong\n");
}

// A clock that goes on by a second each time that it is read.
std::function<double()> TickingClock() {
  return [seconds = 100.0]() mutable { return seconds++; };
}

TEST(DetectReporter, DrawsTheProgressLineAgainBelowEachReport) {
  const auto erased = [](int width) { return "\r" + std::string(width, ' ') + "\r"; };
  ReporterSettings settings{ProgressStyle::kDrawnOver, true};
  settings.clock = [] { return 7.0; };
  EXPECT_EQ(Reported(settings, TwoImages),
            "\r0 of 2 images\r1 of 2 images" + erased(13) +
                "a.bmp: 1 point, 1 row x 1 column\n\r1 of 2 images\r2 of 2 images" + erased(13) +
                "quorvex: b.bmp: nothing\n\r2 of 2 images" + erased(13));
}

TEST(DetectReporter, DrawsOverALongerLine) {
  ReporterSettings settings{ProgressStyle::kDrawnOver};
  double now = 0;
  settings.clock = [&now] { return now; };
  const std::string reported = Reported(settings, [&now](DetectReporter& reporter) {
    now = 3.3;
    reporter.ShowProgress(1);
    now = 4;
    reporter.ShowProgress(2);
  });
  EXPECT_EQ(reported,
            "\r0 of 2 images\r1 of 2 images, 0.3 images/s, 0:03 left"
            "\r2 of 2 images, 0.5 images/s, 0:00 left\r" +
                std::string(38, ' ') + "\r");
}

TEST(DetectReporter, WritesLinesOfProgressWhereNothingCanBeDrawnOver) {
  ReporterSettings settings{ProgressStyle::kLines};
  settings.clock = TickingClock();
  EXPECT_EQ(Reported(settings,
                     [](DetectReporter& reporter) {
                       reporter.ShowProgress(1);
                       reporter.ShowProgress(2);
                     }),
            "1 of 2 images, 0.33 images/s, 0:03 left\n2 of 2 images, 0.4 images/s, 0:00 left\n");
}

TEST(DescribeProgress, TellsRateAndTime) {
  EXPECT_EQ(DescribeProgress(0, 9, 5), "0 of 9 images");
  EXPECT_EQ(DescribeProgress(3, 9, 0), "3 of 9 images");
  EXPECT_EQ(DescribeProgress(50, 300, 10), "50 of 300 images, 5 images/s, 0:50 left");
  EXPECT_EQ(DescribeProgress(1, 1000, 4), "1 of 1000 images, 0.25 images/s, 1:06:36 left");
  EXPECT_EQ(DescribeProgress(1200, 2400, 10), "1200 of 2400 images, 120 images/s, 0:10 left");
  EXPECT_EQ(DescribeProgress(99, 198, 10), "99 of 198 images, 9.9 images/s, 0:10 left");
  EXPECT_EQ(DescribeProgress(999, 1998, 100), "999 of 1998 images, 10 images/s, 1:40 left");
}

}  // namespace
}  // namespace quorvex::tests
