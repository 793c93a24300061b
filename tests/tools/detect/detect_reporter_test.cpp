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
  EXPECT_EQ(Reported({false, true}, TwoImages),
            "a.bmp: 1 point, 1 row x 1 column\nquorvex: b.bmp: nothing\n");
}

TEST(DetectReporter, WithoutSummariesWritesFailuresOnly) {
  EXPECT_EQ(Reported({false, false}, TwoImages), "quorvex: b.bmp: nothing\n");
}

TEST(DetectReporter, PassesWarningsOnEvenWithoutSummaries) {
  const std::string reported = Reported({false, false}, [](DetectReporter& reporter) {
    DetectionResult result = Found("a.bmp");
    result.warning = "2 labels are wrong";
    reporter.Report(result);
  });
  EXPECT_EQ(reported, "quorvex: a.bmp: 2 labels are wrong\n");
}

TEST(DetectReporter, DrawsTheProgressLineAgainBelowEachReport) {
  const std::string erased = "\r" + std::string(30, ' ') + "\r";
  EXPECT_EQ(Reported({true, true}, TwoImages),
            "\r0 of 2 images\r1 of 2 images" + erased +
                "a.bmp: 1 point, 1 row x 1 column\n\r1 of 2 images\r2 of 2 images" + erased +
                "quorvex: b.bmp: nothing\n\r2 of 2 images" + erased);
}

}  // namespace
}  // namespace quorvex::tests
