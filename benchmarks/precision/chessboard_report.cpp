#include "benchmarks/precision/chessboard_report.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <vector>

#include "benchmarks/precision/chessboard_detectors.h"
#include "benchmarks/precision/scene_renderer.h"
#include "benchmarks/precision/scene_truth.h"

namespace quorvex::benchmarks {
namespace {

constexpr const char* kTable = "Scenes";  // whose scenes are compared
constexpr double kMillisecondsPerSecond = 1000;

double ProcessorSeconds() { return static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

void PrintLine(const std::string& scene, const std::string& detector, int scenes,
               const Score& sum) {
  const std::string errors =
      sum.errors.empty() ? "-"
                         : fmt::format("{:.4f} / {:.4f} / {:.3f}", RootMeanSquare(sum.errors),
                                       Quantile(sum.errors, 0.5), Quantile(sum.errors, 1));
  fmt::print("| {} | {} | {} of {} | {} | {} | {:.0f} |\n", scene, detector, sum.found, sum.visible,
             sum.wrongLabels + sum.falsePoints, errors,
             sum.seconds / scenes * kMillisecondsPerSecond);
  std::fflush(stdout);
}

// The chessboard detectors know whole boards only.
bool IsWhole(const Scene& scene) {
  const std::vector<SceneMark> marks = TrueMarks(scene);
  return std::all_of(marks.begin(), marks.end(),
                     [](const SceneMark& mark) { return mark.isVisible; });
}

void CompareRow(const SceneRow& row, const Detector& detector, int seeds) {
  const std::vector<ChessboardDetector> others = ChessboardDetectors();
  std::vector<Score> sums(others.size());
  Score own;
  for (int seed = 1; seed <= seeds; ++seed) {
    Scene scene = row.make(static_cast<std::uint64_t>(seed));
    AddScore(RunScene(detector, scene, static_cast<std::uint64_t>(seed), {}), own);
    scene.target.pattern = tools::Pattern::kChessboard;
    const RenderedScene rendered = RenderScene(scene);
    for (std::size_t i = 0; i < others.size(); ++i) {
      const double start = ProcessorSeconds();
      const Detection detection =
          others[i].detect(rendered.picture, scene.target.rows, scene.target.columns);
      const double seconds = ProcessorSeconds() - start;
      Score score = ScoreDetection(detection, rendered.marks);
      score.seconds = seconds;
      AddScore(score, sums[i]);
    }
  }
  PrintLine(row.name, "marks, this detector", seeds, own);
  for (std::size_t i = 0; i < others.size(); ++i) {
    PrintLine("", "chessboard, " + others[i].name, seeds, sums[i]);
  }
}

}  // namespace

void PrintChessboardReport(const Detector& detector, const ReportOptions& options) {
  fmt::print(
      "\n## The same boards as chessboards\n\n| scene | detector | found, right label | "
      "wrong label or false | RMS / median / max, px | ms |\n|---|---|---|---|---|---|\n");
  for (const SceneRow& row : AllSceneRows()) {
    if (row.table == kTable && IsWhole(row.make(1))) {
      CompareRow(row, detector,
                 options.seeds == 0 ? row.seeds : std::min(row.seeds, options.seeds));
    }
  }
}

}  // namespace quorvex::benchmarks
