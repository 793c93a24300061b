// Prints what the stages of the direct detector find on one BMP picture, for the page on how it
// works: lines of kind,x,y,x,y in pixels, the second place that of an arm's end or of a link's
// other mark.
#include <cstdio>
#include <vector>

#include "examples/checked_picture.h"
#include "precise/final_fit.h"
#include "precise/grid_growth.h"
#include "precise/grid_labels.h"
#include "precise/mark_candidates.h"
#include "precise/mark_links.h"
#include "precise/noise_estimate.h"
#include "precise/pyramid.h"
#include "precise/seed.h"

namespace quorvex::precise {
namespace {

void Print(const char* kind, const Eigen::Vector2d& from, const Eigen::Vector2d& to) {
  std::printf("%s,%.3f,%.3f,%.3f,%.3f\n", kind, from.x(), from.y(), to.x(), to.y());
}

void PrintCandidates(const GrayPicture& picture) {
  const std::vector<MarkCandidate> marks =
      FindMarkCandidates(BuildPyramid(picture), EstimateNoise(picture));
  for (const MarkCandidate& mark : marks) {
    Print("candidate", mark.centre, mark.centre);
    for (const MarkArm& arm : mark.arms) {
      if (arm.isSeen) {
        Print("arm", mark.centre, mark.centre + arm.length * arm.direction);
      }
    }
  }
  const MarkLinks links = FindMarkLinks(marks, picture.Width(), picture.Height());
  for (std::size_t i = 0; i < links.links.size(); ++i) {
    for (const ArmLink& link : links.links[i]) {
      if (link.mark > static_cast<int>(i)) {  // each link once
        Print("link", marks[i].centre, marks[static_cast<std::size_t>(link.mark)].centre);
      }
    }
  }
}

// The marks with the places where the camera that was fitted to them has them.
void PrintGrid(const char* kind, const Grid& grid) {
  for (const GridMark& mark : grid.marks) {
    Eigen::Vector2d byCamera = mark.fit.centre;
    grid.camera.model.Project({mark.column, mark.row}, byCamera);
    Print(kind, mark.fit.centre, byCamera);
  }
}

void PrintStages(const GrayPicture& picture) {
  PrintCandidates(picture);
  const Seed seed = FindSeed(picture);
  for (const SeedMark& mark : seed.marks) {
    Print("seed", mark.centre, mark.centre);
  }
  Grid grid = GrowGrid(picture, seed);
  PrintGrid("grown", grid);
  NameRowsAndColumns(grid);
  MeasureFinally(picture, seed.noise, grid);
  PrintGrid("measured", grid);
}

}  // namespace
}  // namespace quorvex::precise

int main(int argc, char** argv) {
  CheckedPicture p;
  const char* reason = argc == 2 ? ReadChecked(argv[1], p) : "usage: direct_stages BOARD.bmp";
  if (reason != nullptr) {
    std::fprintf(stderr, "direct_stages: %s\n", reason);
    return 1;
  }
  const unsigned char* topRow = p.pixels + (p.height - 1) * p.width;  // rows run upwards
  quorvex::precise::PrintStages(
      quorvex::precise::CopyPicture(topRow, static_cast<int>(p.width), static_cast<int>(p.height),
                                    -p.width, quorvex::precise::Polarity::kDarkMarks));
}
