// How long a detection takes on the rendered presets, and its stages on one of them, each with the
// pictures that it leaves behind. Stages that work in place include the copy of what they work on.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <string>
#include <vector>

#include "base/gray_image.h"
#include "crossmark/cross_refinement.h"
#include "grid/centre_cross_pass.h"
#include "grid/dominant_group.h"
#include "grid/point_merging.h"
#include "grid/row_tracing_pass.h"
#include "imageio/diagnostic_picture.h"
#include "interface/detection_driver.h"
#include "interface/grid_numbering.h"
#include "interface/stray_points.h"
#include "interface/stroke_image.h"
#include "preprocess/outline_tracing.h"
#include "preprocess/rank_filter.h"
#include "preprocess/sobel_edges.h"
#include "tests/road/detection_road.h"
#include "tests/support/temporary_directory.h"
#include "tools/render/presets.h"
#include "tools/render/render_target.h"

namespace {

using namespace quorvex;
using tests::kColumnSpan;
using tests::kRowSpan;
using tests::kRowSteps;

// The rendered picture as the library takes it, the bottom row first.
GrayImage Render(const std::string& preset) {
  const tools::Picture picture = tools::RenderTarget(tools::PresetByName(preset)).picture;
  GrayImage image(picture.width, picture.height);
  for (int y = 0; y < picture.height; ++y) {
    std::copy_n(picture.pixels.data() + PixelOffset(0, y, picture.width), picture.width,
                image.Data() + PixelOffset(0, picture.height - 1 - y, picture.width));
  }
  return image;
}

// What every stage gets from those before it.
struct Detection {
  GrayImage input = Render(tools::kDefaultPreset);
  int width = input.Width();
  int height = input.Height();
  StrokeImage image = MakeStrokeImage(input.Data(), width, height);
  PointList firstGrid;
  PointList seeds;
  PointList secondGrid;
  PointList grid;

  Detection() {
    BuildFirstGrid(firstGrid);
    SelectDominantGroup(firstGrid, seeds);
    TraceSecondGrid(secondGrid);
    MergePointSets(firstGrid, secondGrid, grid);
    NumberGrid(grid);
  }

  void BuildFirstGrid(PointList& output) const {
    BuildGridFromCentreCross(image.strokes.Data(), width, height, kRowSpan, 0, kRowSteps,
                             image.rowSpans, image.columnSpans, output);
  }

  void TraceSecondGrid(PointList& output) const {
    TraceRowsFromSeeds(image.strokes.Data(), width, height, 0, kColumnSpan, kRowSteps, seeds,
                       image.rowSpans, image.columnSpans, output);
  }
};

const Detection& SharedDetection() {
  static const Detection detection;
  return detection;
}

void TimeDetection(benchmark::State& state, const std::string& preset) {
  const GrayImage input = Render(preset);
  const tests::TemporaryDirectory directory;
  PointList points;
  for (auto _ : state) {
    points.clear();
    if (!SingleCamDetectCalibrationPoint(input.Data(), input.Width(), input.Height(), 8, kRowSpan,
                                         kColumnSpan, 0.0f, 0.0f, kRowSteps, points)) {
      state.SkipWithError("no target was found");
      break;
    }
  }
  state.counters["points"] = static_cast<double>(points.size());
}

template <typename Stage>
void RegisterStage(const std::string& name, Stage stage) {
  const auto run = [stage](benchmark::State& state) {
    const tests::TemporaryDirectory directory;
    const Detection& detection = SharedDetection();
    for (auto _ : state) {
      stage(detection);
    }
  };
  benchmark::RegisterBenchmark(name.c_str(), run)->Unit(benchmark::kMillisecond);
}

void RegisterImageStages() {
  RegisterStage("MakeStrokeImage",
                [](const Detection& d) { MakeStrokeImage(d.input.Data(), d.width, d.height); });
  // Black and white, as in a detection: the time depends on it.
  RegisterStage("RankFilter3x3", [](const Detection& d) {
    GrayImage mask = d.image.mask;
    RankFilter3x3(mask.Data(), d.width, d.height, 0);
  });
  RegisterStage("SobelEdges", [](const Detection& d) {
    GrayImage edges = d.input;
    SobelEdges(edges.Data(), d.width, d.height);
  });
  RegisterStage("TraceTargetOutline", [](const Detection& d) {
    OutlineList outline;
    TraceTargetOutline(d.image.mask.Data(), d.width, d.height, outline);
  });
  RegisterStage("SaveDiagnosticPicture", [](const Detection& d) {
    SaveDiagnosticPicture(d.input.Data(), d.width, d.height, "./ProImage.bmp");
  });
}

void RegisterGridStages() {
  RegisterStage("BuildGridFromCentreCross", [](const Detection& d) {
    PointList grid;
    d.BuildFirstGrid(grid);
  });
  RegisterStage("SelectDominantGroup", [](const Detection& d) {
    PointList seeds;
    SelectDominantGroup(d.firstGrid, seeds);
  });
  RegisterStage("TraceRowsFromSeeds", [](const Detection& d) {
    PointList grid;
    d.TraceSecondGrid(grid);
  });
  RegisterStage("MergePointSets", [](const Detection& d) {
    PointList grid;
    MergePointSets(d.firstGrid, d.secondGrid, grid);
  });
  RegisterStage("CompleteGrid", [](const Detection& d) {
    PointList grid = d.grid;
    CompleteGrid(d.width, d.height, grid);
  });
  RegisterStage("RefineCrossMarks", [](const Detection& d) {
    PointList grid = d.grid;
    RefineCrossMarks(d.input.Data(), d.width, d.height, d.image.mask.Data(), grid);
  });
  RegisterStage("RemoveStrayPoints", [](const Detection& d) {
    PointList grid = d.grid;
    RemoveStrayPoints(d.width, d.height, grid);
  });
}

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
    return 2;
  }
  for (const tools::Preset& preset : tools::AllPresets()) {
    benchmark::RegisterBenchmark(("Detection/" + preset.name).c_str(), TimeDetection, preset.name)
        ->Unit(benchmark::kMillisecond);
  }
  RegisterImageStages();
  RegisterGridStages();
  benchmark::RunSpecifiedBenchmarks();
}
