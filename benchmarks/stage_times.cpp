// How long each stage of a detection takes on one picture, in the order in which the data flows.
//   stage_times IMAGE [REPETITIONS]
// Each figure is the median of the repetitions; diagnostic pictures go to a temporary directory.
#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "base/gray_image.h"
#include "crossmark/cross_refinement.h"
#include "grid/centre_cross_pass.h"
#include "grid/dominant_group.h"
#include "grid/point_merging.h"
#include "grid/row_tracing_pass.h"
#include "imageio/diagnostic_picture.h"
#include "interface/grid_numbering.h"
#include "interface/quorvex.h"
#include "interface/stray_points.h"
#include "preprocess/binarize.h"
#include "preprocess/component_removal.h"
#include "preprocess/dilation.h"
#include "preprocess/mask_spans.h"
#include "preprocess/outline_drawing.h"
#include "preprocess/outline_erasure.h"
#include "preprocess/outline_filter.h"
#include "preprocess/outline_tracing.h"
#include "preprocess/outside_region.h"
#include "preprocess/rank_filter.h"
#include "preprocess/sobel_edges.h"
#include "preprocess/target_mask.h"
#include "tests/support/temporary_directory.h"
#include "tools/pictures/picture_file.h"

namespace {

using namespace quorvex;
using Clock = std::chrono::steady_clock;

constexpr int kSpan = 20;
constexpr int kRowSteps = 300;  // pixels

class Stopwatch {
 public:
  // Runs the stage and keeps its time under the name.
  template <typename Stage>
  void Time(const std::string& name, Stage stage) {
    const Clock::time_point start = Clock::now();
    stage();
    const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
    if (times_[name].empty()) {
      order_.push_back(name);
    }
    times_[name].push_back(seconds);
  }

  void Print() {
    for (const std::string& name : order_) {
      std::vector<double>& times = times_[name];
      std::nth_element(times.begin(), times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2),
                       times.end());
      fmt::print("{:<28} {:9.2f} ms\n", name, times[times.size() / 2] * 1000.0);
    }
  }

 private:
  std::vector<std::string> order_;
  std::map<std::string, std::vector<double>> times_;
};

void TimeStages(const GrayImage& input, Stopwatch& watch) {
  const int width = input.Width();
  const int height = input.Height();
  constexpr int kElement[9] = {1, 1, 1, 1, 1, 1, 1, 1, 1};
  GrayImage working = input;
  watch.Time("BinarizeImage (80)", [&] { BinarizeImage(working.Data(), width, height, 80); });
  watch.Time("RankFilter3x3", [&] { RankFilter3x3(working.Data(), width, height, 0); });
  BinarizeImage(working.Data(), width, height, 50);
  watch.Time("DilateImage", [&] { DilateImage(working.Data(), width, height, 0, kElement); });

  OutlineList outline;
  watch.Time("TraceTargetOutline",
             [&] { TraceTargetOutline(working.Data(), width, height, outline); });
  const PixelPosition centre = ImageCentre(width, height);
  watch.Time("FilterOutlinePoints", [&] { FilterOutlinePoints(outline, centre.x, centre.y); });
  working.Fill(0);
  watch.Time("DrawOutline", [&] { DrawOutline(working.Data(), width, height, outline); });
  watch.Time("MarkOutsideRegion", [&] { MarkOutsideRegion(working.Data(), width, height); });

  GrayImage mask;
  GrayImage edges;
  PixelSpanList rowSpans;
  PixelSpanList columnSpans;
  watch.Time("mask, region and spans", [&] {
    mask = MakeTargetMask(working);
    edges = MakeTargetRegion(input.Data(), working);
    rowSpans = ComputeRowSpans(mask.Data(), width, height);
    columnSpans = ComputeColumnSpans(mask.Data(), width, height);
  });
  watch.Time("SobelEdges", [&] { SobelEdges(edges.Data(), width, height); });
  BinarizeImage(edges.Data(), width, height, 20);
  watch.Time("EraseOutlineEdges", [&] { EraseOutlineEdges(edges.Data(), width, height, outline); });
  watch.Time("RemoveLargeComponents", [&] { RemoveLargeComponents(edges.Data(), width, height); });
  BinarizeImage(edges.Data(), width, height, 40);

  PointList firstGrid;
  PointList seeds;
  PointList secondGrid;
  PointList grid;
  watch.Time("BuildGridFromCentreCross", [&] {
    BuildGridFromCentreCross(edges.Data(), width, height, kSpan, 0, kRowSteps, rowSpans,
                             columnSpans, firstGrid);
  });
  watch.Time("SelectDominantGroup", [&] { SelectDominantGroup(firstGrid, seeds); });
  watch.Time("TraceRowsFromSeeds", [&] {
    TraceRowsFromSeeds(edges.Data(), width, height, 0, kSpan, kRowSteps, seeds, rowSpans,
                       columnSpans, secondGrid);
  });
  watch.Time("MergePointSets", [&] { MergePointSets(firstGrid, secondGrid, grid); });
  NumberGrid(grid);
  watch.Time("PredictMissingGridPoints", [&] { CompleteGrid(width, height, grid); });
  watch.Time("RefineCrossMarks",
             [&] { RefineCrossMarks(input.Data(), width, height, mask.Data(), grid); });
  watch.Time("RemoveStrayPoints", [&] { RemoveStrayPoints(width, height, grid); });
  watch.Time("one whole-image picture",
             [&] { SaveDiagnosticPicture(mask.Data(), width, height, "./Mask.bmp"); });

  PointList points;
  watch.Time("whole detection", [&] {
    SingleCamDetectCalibrationPoint(const_cast<unsigned char*>(input.Data()), width, height, 8,
                                    kSpan, kSpan, 0.0f, 0.0f, kRowSteps, points);
  });
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    fmt::print(stderr, "usage: stage_times IMAGE [REPETITIONS]\n");
    return 2;
  }
  const int repetitions = argc > 2 ? std::atoi(argv[2]) : 5;
  const tools::Picture picture = tools::ReadPictureFile(argv[1]);
  GrayImage input(picture.width, picture.height);
  for (int y = 0; y < picture.height; ++y) {
    std::copy_n(picture.pixels.data() + PixelOffset(0, y, picture.width), picture.width,
                input.Data() + PixelOffset(0, picture.height - 1 - y, picture.width));
  }
  const tests::TemporaryDirectory directory;
  Stopwatch watch;
  for (int i = 0; i < repetitions; ++i) {
    TimeStages(input, watch);
  }
  watch.Print();
}
