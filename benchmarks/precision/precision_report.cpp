#include "benchmarks/precision/precision_report.h"

#include <fmt/format.h>

#include <cstdio>
#include <ctime>
#include <fstream>
#include <string>

#include "benchmarks/precision/empty_pictures.h"
#include "benchmarks/precision/scene_renderer.h"
#include "tools/pictures/picture_file.h"

namespace quorvex::benchmarks {
namespace {

constexpr double kMillisecondsPerSecond = 1000;
constexpr int kToldFailures = 6;  // of a scene; the rest is in the files

std::string FileStem(const std::string& name, std::uint64_t seed) {
  std::string stem;
  for (const char letter : name) {
    const bool isPlain = (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') ||
                         (letter >= '0' && letter <= '9') || letter == '.';
    stem += isPlain ? letter : '_';
  }
  return fmt::format("{}-{}", stem, seed);
}

std::string TruthText(const std::vector<SceneMark>& marks) {
  std::string text = "row,col,x,y,visible\n";
  for (const SceneMark& mark : marks) {
    text += fmt::format("{},{},{:.6f},{:.6f},{}\n", mark.row, mark.column, mark.x, mark.y,
                        mark.isVisible ? 1 : 0);
  }
  return text;
}

std::string FoundText(const Detection& detection) {
  std::string text = "row,col,x,y,doubtful,cxx,cxy,cyy\n";
  for (const FoundMark& mark : detection.marks) {
    text += fmt::format("{},{},{:.6f},{:.6f},{},{:g},{:g},{:g}\n", mark.row, mark.column, mark.x,
                        mark.y, mark.isDoubtful ? 1 : 0, mark.covarianceXX, mark.covarianceXY,
                        mark.covarianceYY);
  }
  return text;
}

void KeepScene(const std::filesystem::path& folder, const std::string& stem,
               const RenderedScene& rendered, const Detection& detection) {
  std::filesystem::create_directories(folder);
  tools::WritePictureFile(rendered.picture, folder / (stem + ".png"));
  std::ofstream(folder / (stem + "-truth.csv")) << TruthText(rendered.marks);
  std::ofstream(folder / (stem + "-found.csv")) << FoundText(detection);
}

void TellFailures(const std::string& stem, const Detection& detection, const Score& score) {
  fmt::print(stderr, "{}: {} of {} found, {} wrong labels, {} false points{}{}\n", stem,
             score.found, score.visible, score.wrongLabels, score.falsePoints,
             detection.reason.empty() ? "" : "; reason: ", detection.reason);
  int told = 0;
  for (const std::string& failure : score.failures) {
    if (++told > kToldFailures) {
      fmt::print(stderr, "  and {} more\n", score.failures.size() - kToldFailures);
      break;
    }
    fmt::print(stderr, "  {}\n", failure);
  }
}

// A variance without covariances is no figure.
std::string VarianceText(const Score& score) {
  return score.normalisedErrors.empty() ? "-" : fmt::format("{:.2f}", Mean(score.normalisedErrors));
}

void PrintRow(const std::string& name, int scenes, const Score& sum) {
  fmt::print("| {} | {} of {} | {} | {} | {} | {:.4f} / {:.4f} / {:.3f} | {} | {:.0f} |\n", name,
             sum.found, sum.visible, sum.wrongLabels, sum.falsePoints, sum.doubtful,
             RootMeanSquare(sum.errors), Quantile(sum.errors, 0.5), Quantile(sum.errors, 1),
             VarianceText(sum), sum.seconds / scenes * kMillisecondsPerSecond);
  std::fflush(stdout);
}

void PrintHeading(const std::string& table) {
  fmt::print(
      "\n## {}\n\n"
      "| scene | found, right label | wrong label | false | doubtful | RMS / median / max, px | "
      "variance | ms |\n|---|---|---|---|---|---|---|---|\n",
      table);
}

bool IsWanted(const SceneRow& row, const std::string& only) {
  return row.table.find(only) != std::string::npos || row.name.find(only) != std::string::npos;
}

double ProcessorSeconds() { return static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

}  // namespace

Score RunScene(const Detector& detector, const Scene& scene, std::uint64_t seed,
               const ReportOptions& options) {
  const RenderedScene rendered = RenderScene(scene);
  const double start = ProcessorSeconds();
  const Detection detection = detector ? detector(rendered.picture) : Detection();
  const double seconds = ProcessorSeconds() - start;
  Score score = ScoreDetection(detection, rendered.marks);
  score.seconds = seconds;
  const std::string stem = FileStem(scene.name, seed);
  if (detector && !score.failures.empty()) {
    TellFailures(stem, detection, score);
  }
  if (!options.failures.empty() && !score.failures.empty()) {
    KeepScene(options.failures, stem, rendered, detection);
  }
  return score;
}

bool PrintPrecisionReport(const Detector& detector, const ReportOptions& options) {
  std::string table;
  bool isClean = true;
  for (const SceneRow& row : AllSceneRows()) {
    if (!IsWanted(row, options.only)) {
      continue;
    }
    if (row.table != table) {
      table = row.table;
      PrintHeading(table);
    }
    const int seeds = options.seeds == 0 ? row.seeds : std::min(row.seeds, options.seeds);
    Score sum;
    for (int seed = 1; seed <= seeds; ++seed) {
      const std::uint64_t number = static_cast<std::uint64_t>(seed);
      AddScore(RunScene(detector, row.make(number), number, options), sum);
    }
    PrintRow(row.name, seeds, sum);
    isClean = isClean && sum.wrongLabels == 0 && sum.falsePoints == 0;
  }
  return isClean;
}

bool PrintEmptyReport(const Detector& detector, const ReportOptions& options) {
  fmt::print(
      "\n## Pictures without a board\n\n| picture | points | ms | reason |\n|---|---|---|---|\n");
  bool isClean = true;
  for (const EmptyPicture& empty : AllEmptyPictures()) {
    const tools::Picture picture = empty.make();
    const double start = ProcessorSeconds();
    const Detection detection = detector(picture);
    const double seconds = ProcessorSeconds() - start;
    fmt::print("| {} | {} | {:.0f} | {} |\n", empty.name, detection.marks.size(),
               seconds * kMillisecondsPerSecond, detection.reason);
    std::fflush(stdout);
    const bool isFailure = !detection.marks.empty() || detection.reason.empty();
    isClean = isClean && !isFailure;
    if (isFailure && !options.failures.empty()) {
      KeepScene(options.failures, FileStem(empty.name, 0), {picture, {}}, detection);
    }
  }
  return isClean;
}

}  // namespace quorvex::benchmarks
