// The stages of a detection and whole detections on the rendered presets, each beside its plain
// form (tests/reference/), and how many times faster it is. What a stage changes in place is copied
// before its time is taken.
//   plain_comparison [--benchmark_filter=fisheye] [--benchmark_repetitions=5]
#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "benchmarks/stage_inputs.h"
#include "crossmark/brightest_window.h"
#include "crossmark/cross_location.h"
#include "crossmark/cross_refinement.h"
#include "crossmark/hough_lines.h"
#include "crossmark/patch_binarization.h"
#include "crossmark/thinning.h"
#include "grid/centre_cross_pass.h"
#include "grid/row_tracing_pass.h"
#include "imageio/diagnostic_picture.h"
#include "interface/detection_driver.h"
#include "preprocess/binarize.h"
#include "preprocess/component_removal.h"
#include "preprocess/dilation.h"
#include "preprocess/mask_spans.h"
#include "preprocess/outline_erasure.h"
#include "preprocess/outline_tracing.h"
#include "preprocess/outside_region.h"
#include "preprocess/rank_filter.h"
#include "preprocess/sobel_edges.h"
#include "preprocess/target_mask.h"
#include "tests/reference/crossmark.h"
#include "tests/reference/grid.h"
#include "tests/reference/imageio.h"
#include "tests/reference/interface.h"
#include "tests/reference/preprocess.h"
#include "tests/road/detection_road.h"
#include "tests/support/temporary_directory.h"

namespace {

using namespace quorvex;
using benchmarks::kDilationElement;
using benchmarks::StageInputs;
using tests::kColumnSpan;
using tests::kRowSpan;
using tests::kRowSteps;

// Runs one form of a stage; `image` is a copy of what it works on in place.
using Stage = std::function<void(const StageInputs& inputs, GrayImage& image)>;

// Keeps the median, or the only time, of every benchmark and prints both forms of each side by
// side.
class RatioReporter : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      const bool isMedian = run.aggregate_name == "median";
      if (!run.error_occurred && (isMedian || run.repetitions <= 1)) {
        times_[run.run_name.function_name] = run.GetAdjustedRealTime();
      }
    }
    ConsoleReporter::ReportRuns(runs);
  }

  void PrintRatios(const std::vector<std::string>& names) const {
    fmt::print("\n{:<40} {:>12} {:>12} {:>8}\n", "", "fast, ms", "plain, ms", "times");
    for (const std::string& name : names) {
      const auto fast = times_.find(name + "/fast");
      const auto plain = times_.find(name + "/plain");
      if (fast != times_.end() && plain != times_.end()) {
        fmt::print("{:<40} {:>12.3f} {:>12.3f} {:>8.1f}\n", name, fast->second, plain->second,
                   plain->second / fast->second);
      }
    }
  }

 private:
  std::map<std::string, double> times_;  // milliseconds
};

// The inputs of one preset, made when they are first asked for; one preset is held at a time.
const StageInputs& InputsOf(const std::string& preset) {
  static std::pair<std::string, std::unique_ptr<StageInputs>> held;
  if (held.first != preset) {
    held.second.reset();
    held = {preset, std::make_unique<StageInputs>(preset)};
  }
  return *held.second;
}

void TimeStage(benchmark::State& state, const std::string& preset, GrayImage StageInputs::*source,
               const Stage& stage) {
  using Clock = std::chrono::steady_clock;
  const StageInputs& inputs = InputsOf(preset);
  const tests::TemporaryDirectory directory;
  for (auto _ : state) {
    GrayImage image;
    if (source != nullptr) {
      image = inputs.*source;
    }
    const Clock::time_point start = Clock::now();
    stage(inputs, image);
    state.SetIterationTime(std::chrono::duration<double>(Clock::now() - start).count());
  }
}

class Comparison {
 public:
  explicit Comparison(std::string preset) : preset_(std::move(preset)) {}

  const std::vector<std::string>& Names() const { return names_; }

  void Add(const std::string& stage, GrayImage StageInputs::*source, const Stage& fast,
           const Stage& plain) {
    const std::string name = preset_ + "/" + stage;
    names_.push_back(name);
    for (const auto& [form, run] :
         {std::make_pair("/fast", fast), std::make_pair("/plain", plain)}) {
      benchmark::RegisterBenchmark((name + form).c_str(), TimeStage, preset_, source, run)
          ->Unit(benchmark::kMillisecond)
          ->UseManualTime();
    }
  }

  void Add(const std::string& stage, const Stage& fast, const Stage& plain) {
    Add(stage, nullptr, fast, plain);
  }

 private:
  std::string preset_;
  std::vector<std::string> names_;
};

void AddStagesInPlace(Comparison& c) {
  using I = const StageInputs&;
  c.Add(
      "BinarizeImage", &StageInputs::input,
      [](I i, GrayImage& image) { BinarizeImage(image.Data(), i.width, i.height, 80); },
      [](I i, GrayImage& image) { plain::BinarizeImage(image.Data(), i.width, i.height, 80); });
  c.Add(
      "RankFilter3x3", &StageInputs::binarized,
      [](I i, GrayImage& image) { RankFilter3x3(image.Data(), i.width, i.height, 0); },
      [](I i, GrayImage& image) { plain::RankFilter3x3(image.Data(), i.width, i.height, 0); });
  c.Add(
      "DilateImage", &StageInputs::filtered,
      [](I i, GrayImage& image) {
        DilateImage(image.Data(), i.width, i.height, 0, kDilationElement);
      },
      [](I i, GrayImage& image) {
        plain::DilateImage(image.Data(), i.width, i.height, 0, kDilationElement);
      });
  c.Add(
      "MarkOutsideRegion", &StageInputs::contour,
      [](I i, GrayImage& image) { MarkOutsideRegion(image.Data(), i.width, i.height); },
      [](I i, GrayImage& image) { plain::MarkOutsideRegion(image.Data(), i.width, i.height); });
  c.Add(
      "SobelEdges", &StageInputs::region,
      [](I i, GrayImage& image) { SobelEdges(image.Data(), i.width, i.height); },
      [](I i, GrayImage& image) { plain::SobelEdges(image.Data(), i.width, i.height); });
  c.Add(
      "EraseOutlineEdges", &StageInputs::edges,
      [](I i, GrayImage& image) {
        OutlineList outline = i.outline;
        EraseOutlineEdges(image.Data(), i.width, i.height, outline);
      },
      [](I i, GrayImage& image) {
        OutlineList outline = i.outline;
        plain::EraseOutlineEdges(image.Data(), i.width, i.height, outline);
      });
  c.Add(
      "RemoveLargeComponents", &StageInputs::erased,
      [](I i, GrayImage& image) { RemoveLargeComponents(image.Data(), i.width, i.height); },
      [](I i, GrayImage& image) { plain::RemoveLargeComponents(image.Data(), i.width, i.height); });
}

void AddReadingStages(Comparison& c) {
  using I = const StageInputs&;
  c.Add(
      "TraceTargetOutline",
      [](I i, GrayImage&) {
        OutlineList outline;
        TraceTargetOutline(i.dilated.Data(), i.width, i.height, outline);
      },
      [](I i, GrayImage&) {
        OutlineList outline;
        plain::TraceTargetOutline(i.dilated.Data(), i.width, i.height, outline);
      });
  c.Add(
      "MaskAndRegion",
      [](I i, GrayImage&) {
        const GrayImage mask = MakeTargetMask(i.marked);
        const GrayImage region = MakeTargetRegion(i.input.Data(), i.marked);
      },
      [](I i, GrayImage&) {
        const GrayImage mask = plain::MakeTargetMask(i.marked);
        const GrayImage region = plain::MakeTargetRegion(i.input.Data(), i.marked);
      });
  c.Add(
      "Spans",
      [](I i, GrayImage&) {
        ComputeRowSpans(i.mask.Data(), i.width, i.height);
        ComputeColumnSpans(i.mask.Data(), i.width, i.height);
      },
      [](I i, GrayImage&) {
        plain::ComputeRowSpans(i.mask.Data(), i.width, i.height);
        plain::ComputeColumnSpans(i.mask.Data(), i.width, i.height);
      });
  c.Add(
      "SaveDiagnosticPicture",
      [](I i, GrayImage&) { SaveDiagnosticPicture(i.input.Data(), i.width, i.height, "./A.bmp"); },
      [](I i, GrayImage&) {
        plain::SaveDiagnosticPicture(i.input.Data(), i.width, i.height, "./A.bmp");
      });
}

// On the patches of one mark of the grid.
void AddMarkStages(Comparison& c) {
  using I = const StageInputs&;
  c.Add(
      "FindBrightestWindow",
      [](I i, GrayImage&) {
        int x = 0;
        int y = 0;
        FindBrightestWindow(i.strokes.Data(), i.width, i.height, i.markX, i.markY, 100, 100, x, y);
      },
      [](I i, GrayImage&) {
        int x = 0;
        int y = 0;
        plain::FindBrightestWindow(i.strokes.Data(), i.width, i.height, i.markX, i.markY, 100, 100,
                                   x, y);
      });
  c.Add(
      "HoughLines",
      [](I i, GrayImage&) {
        LineSegmentList lines;
        HoughLines(i.strokePatch.Data(), 200, 200, 255, lines);
      },
      [](I i, GrayImage&) {
        LineSegmentList lines;
        plain::HoughLines(i.strokePatch.Data(), 200, 200, 255, lines);
      });
  c.Add(
      "LocateCrossMark",
      [](I i, GrayImage&) {
        LineSegment lines[2];
        PointF centre;
        LocateCrossMark(i.strokes.Data(), i.width, i.height, i.markX, i.markY, 100, lines[0],
                        lines[1], centre);
      },
      [](I i, GrayImage&) {
        LineSegment lines[2];
        PointF centre;
        plain::LocateCrossMark(i.strokes.Data(), i.width, i.height, i.markX, i.markY, 100, lines[0],
                               lines[1], centre);
      });
  c.Add(
      "SauvolaBinarize", &StageInputs::greyPatch,
      [](I i, GrayImage& image) { SauvolaBinarize(i.greyPatch.Data(), image.Data(), 0.06f); },
      [](I i, GrayImage& image) {
        plain::SauvolaBinarize(i.greyPatch.Data(), image.Data(), 0.06f);
      });
  c.Add(
      "ThinImage", &StageInputs::binaryPatch,
      [](I, GrayImage& image) { ThinImage(image.Data(), image.Width(), image.Height()); },
      [](I, GrayImage& image) { plain::ThinImage(image.Data(), image.Width(), image.Height()); });
}

void AddGridStages(Comparison& c) {
  using I = const StageInputs&;
  c.Add(
      "BuildGridFromCentreCross",
      [](I i, GrayImage&) {
        PointList grid;
        BuildGridFromCentreCross(i.strokes.Data(), i.width, i.height, kRowSpan, 0, kRowSteps,
                                 i.rowSpans, i.columnSpans, grid);
      },
      [](I i, GrayImage&) {
        PointList grid;
        plain::BuildGridFromCentreCross(i.strokes.Data(), i.width, i.height, kRowSpan, 0, kRowSteps,
                                        i.rowSpans, i.columnSpans, grid);
      });
  c.Add(
      "TraceRowsFromSeeds",
      [](I i, GrayImage&) {
        PointList grid;
        TraceRowsFromSeeds(i.strokes.Data(), i.width, i.height, 0, kColumnSpan, kRowSteps, i.seeds,
                           i.rowSpans, i.columnSpans, grid);
      },
      [](I i, GrayImage&) {
        PointList grid;
        plain::TraceRowsFromSeeds(i.strokes.Data(), i.width, i.height, 0, kColumnSpan, kRowSteps,
                                  i.seeds, i.rowSpans, i.columnSpans, grid);
      });
  c.Add(
      "RefineCrossMarks",
      [](I i, GrayImage&) {
        PointList points = i.firstGrid;
        RefineCrossMarks(i.input.Data(), i.width, i.height, i.mask.Data(), points);
      },
      [](I i, GrayImage&) {
        PointList points = i.firstGrid;
        plain::RefineCrossMarks(i.input.Data(), i.width, i.height, i.mask.Data(), points);
      });
  c.Add(
      "Detection",
      [](I i, GrayImage&) {
        PointList points;
        SingleCamDetectCalibrationPoint(i.input.Data(), i.width, i.height, 8, kRowSpan, kColumnSpan,
                                        0.0f, 0.0f, kRowSteps, points);
      },
      [](I i, GrayImage&) {
        PointList points;
        plain::SingleCamDetectCalibrationPoint(i.input.Data(), i.width, i.height, 8, kRowSpan,
                                               kColumnSpan, 0.0f, 0.0f, kRowSteps, points);
      });
}

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
    return 2;
  }
  std::vector<std::string> names;
  for (const char* preset : {"easy", "fisheye", "large"}) {
    Comparison comparison(preset);
    AddStagesInPlace(comparison);
    AddReadingStages(comparison);
    AddMarkStages(comparison);
    AddGridStages(comparison);
    names.insert(names.end(), comparison.Names().begin(), comparison.Names().end());
  }
  RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  reporter.PrintRatios(names);
}
