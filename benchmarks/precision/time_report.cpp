#include "benchmarks/precision/time_report.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <limits>
#include <string>

#include "benchmarks/precision/canvas.h"
#include "benchmarks/precision/scene_renderer.h"
#include "benchmarks/precision/scene_sets.h"

namespace quorvex::benchmarks {
namespace {

constexpr int kCalls = 5;
constexpr int kLargeWidth = 4000;   // pixels
constexpr int kLargeHeight = 3000;  // pixels
constexpr double kPaper = 200;      // grey level
constexpr double kInk = 60;         // grey level
constexpr double kMillisecondsPerSecond = 1000;

// The first scene of the row whose name begins so.
tools::Picture FirstOf(const std::string& name) {
  for (const SceneRow& row : AllSceneRows()) {
    if (row.name.find(name) == 0) {
      return RenderScene(row.make(1)).picture;
    }
  }
  return {};
}

tools::Picture GraphPaper(int spacing, double width) {
  Canvas canvas(kLargeWidth, kLargeHeight, kPaper);
  for (int x = spacing; x < kLargeWidth; x += spacing) {
    canvas.DrawStroke(x + 0.3, 0, x + 0.3, kLargeHeight, width, kInk);
  }
  for (int y = spacing; y < kLargeHeight; y += spacing) {
    canvas.DrawStroke(0, y - 0.2, kLargeWidth, y - 0.2, width, kInk);
  }
  return canvas.Finish(2, 1);
}

void PrintTime(const Detector& detector, const std::string& name, const tools::Picture& picture) {
  double least = std::numeric_limits<double>::infinity();
  std::size_t count = 0;
  for (int i = 0; i < kCalls; ++i) {
    const std::clock_t start = std::clock();
    count = detector(picture).marks.size();
    least = std::min(least, static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
  }
  fmt::print("| {} | {} | {:.0f} |\n", name, count, least * kMillisecondsPerSecond);
  std::fflush(stdout);
}

}  // namespace

void PrintTimeReport(const Detector& detector) {
  fmt::print("\n## Time\n\n| picture | marks | ms |\n|---|---|---|\n");
  PrintTime(detector, "2048 x 2048, noise 2", FirstOf("noise 2"));
  PrintTime(detector, "2048 x 2048, noise 5, blur 1", FirstOf("noise 5"));
  PrintTime(detector, "4000 x 3000, noise 2", FirstOf("4000 x 3000"));
  PrintTime(detector, "4000 x 3000, noise of 40 alone",
            Canvas(kLargeWidth, kLargeHeight, 128).Finish(40, 1));
  for (const int spacing : {16, 40, 100}) {
    PrintTime(detector, fmt::format("4000 x 3000, graph paper of {} px", spacing),
              GraphPaper(spacing, std::max(1.5, spacing / 20.0)));
  }
}

}  // namespace quorvex::benchmarks
