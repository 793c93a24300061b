// What the library costs on inputs that cost more than others of their size.
//   worst_cases [--benchmark_filter=REGEX]
#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include <string>

#include "benchmarks/worst_inputs.h"
#include "interface/quorvex.h"
#include "tests/road/detection_road.h"
#include "tests/support/temporary_directory.h"

namespace {

using namespace quorvex;

struct Size {
  int width;  // pixels
  int height;
};

void TimePicture(benchmark::State& state, const benchmarks::WorstPicture& picture, Size size) {
  GrayImage image = benchmarks::Draw(picture, size.width, size.height);
  const tests::TemporaryDirectory directory;
  PointList points;
  for (auto _ : state) {
    points.clear();
    SingleCamDetectCalibrationPoint(image.Data(), size.width, size.height, 8, tests::kRowSpan,
                                    tests::kColumnSpan, 0.0f, 0.0f, tests::kRowSteps, points);
  }
  state.counters["points"] = static_cast<double>(points.size());
}

void TimeList(benchmark::State& state, const benchmarks::WorstList& list, int count) {
  const PointList made = list.make(count);
  for (auto _ : state) {
    PointList points = made;
    list.run(points);
  }
}

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
    return 2;
  }
  for (const benchmarks::WorstPicture& picture : benchmarks::WorstPictures()) {
    for (const Size size : {Size{2000, 1500}, Size{4000, 3000}, Size{32768, 8192}}) {
      const std::string name = fmt::format("{}/{}x{}", picture.name, size.width, size.height);
      benchmark::RegisterBenchmark(name.c_str(), TimePicture, picture, size)
          ->Unit(benchmark::kMillisecond);
    }
  }
  for (const benchmarks::WorstList& list : benchmarks::WorstLists()) {
    for (const int count : {10'000, 40'000, 100'000}) {
      const std::string name = fmt::format("{}/{}points", list.name, count);
      benchmark::RegisterBenchmark(name.c_str(), TimeList, list, count)
          ->Unit(benchmark::kMillisecond);
    }
  }
  benchmark::RunSpecifiedBenchmarks();
}
