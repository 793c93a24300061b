// What a detection costs by pixels and by marks, with its pictures on disk and without.
//   detection_cost [--benchmark_repetitions=5]
#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include <filesystem>
#include <string>
#include <vector>

#include "benchmarks/rendered_input.h"
#include "interface/quorvex.h"
#include "tests/road/detection_road.h"
#include "tests/support/temporary_directory.h"
#include "tools/render/presets.h"

namespace {

using namespace quorvex;

struct Target {
  const char* preset;
  int width;  // pixels
  int height;
  int rows;  // marks
  int columns;
};

// The same board on more and more pixels, then more and more marks on the same pixels.
constexpr Target kTargets[] = {{"easy", 1280, 960, 6, 8},    {"easy", 2048, 2048, 6, 8},
                               {"easy", 4000, 3000, 6, 8},   {"large", 4000, 3000, 6, 8},
                               {"large", 4000, 3000, 9, 9},  {"large", 4000, 3000, 13, 19},
                               {"fisheye", 2048, 2048, 9, 9}};

std::size_t Detect(GrayImage& image) {
  PointList points;
  const bool found = SingleCamDetectCalibrationPoint(image.Data(), image.Width(), image.Height(), 8,
                                                     tests::kRowSpan, tests::kColumnSpan, 0.0f,
                                                     0.0f, tests::kRowSteps, points);
  return found ? points.size() : 0;
}

// Folders of the same names keep the files of a detection from being written again.
void BlockFiles(const std::filesystem::path& directory) {
  const std::filesystem::directory_iterator files(directory);
  const std::vector<std::filesystem::directory_entry> entries(begin(files), end(files));
  for (const std::filesystem::directory_entry& entry : entries) {
    std::filesystem::remove(entry.path());
    std::filesystem::create_directory(entry.path());
  }
}

void TimeDetection(benchmark::State& state, const Target& target, bool writesFiles) {
  tools::RenderSettings settings = tools::PresetByName(target.preset);
  settings.width = target.width;
  settings.height = target.height;
  settings.rows = target.rows;
  settings.columns = target.columns;
  settings.missing.clear();
  GrayImage image = benchmarks::RenderInput(settings);
  const tests::TemporaryDirectory directory;
  std::size_t marks = Detect(image);
  if (!writesFiles) {
    BlockFiles(directory.Path());
  }
  for (auto _ : state) {
    marks = Detect(image);
  }
  state.counters["marks"] = static_cast<double>(marks);
}

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
    return 2;
  }
  for (const Target& target : kTargets) {
    for (const bool writesFiles : {true, false}) {
      const std::string name =
          fmt::format("{}/{}x{}/{}marks/{}", target.preset, target.width, target.height,
                      target.rows * target.columns, writesFiles ? "files" : "no_files");
      benchmark::RegisterBenchmark(name.c_str(), TimeDetection, target, writesFiles)
          ->Unit(benchmark::kMillisecond);
    }
  }
  benchmark::RunSpecifiedBenchmarks();
}
