#include "tools/points/points_refine.h"

#include <fmt/format.h>

#include <cstddef>
#include <cstdio>
#include <vector>

#include "interface/quorvex_precise.h"
#include "tools/errors.h"
#include "tools/pictures/picture_file.h"
#include "tools/system/file_name.h"

namespace quorvex::tools {
namespace {

// A list that tells the size of its picture must be of this one.
void RequireSameSize(const PointsOfImage& list, const Picture& picture,
                     const std::filesystem::path& path) {
  const bool isKnown = list.width > 0 && list.height > 0;
  if (isKnown && (list.width != picture.width || list.height != picture.height)) {
    throw InputError(fmt::format("{} is {} x {} pixels, but the points are of a picture of {} x {}",
                                 Utf8Name(path), picture.width, picture.height, list.width,
                                 list.height));
  }
}

// Returns how many points were refined.
std::size_t Refine(const PointsRun& run, const Picture& picture, std::vector<ListedPoint>& points) {
  std::vector<precise::Point> places;
  places.reserve(points.size());
  for (const ListedPoint& p : points) {
    places.push_back({p.x, p.y});
  }
  const std::vector<precise::RefinedPoint> refined = precise::RefineMarks(
      {picture.pixels.data(), picture.width, picture.height, picture.width}, places);
  std::size_t count = 0;
  for (std::size_t i = 0; i < points.size(); ++i) {
    const precise::RefinedPoint& from = refined[i];
    ListedPoint& to = points[i];
    if (!from.isRefined) {
      fmt::print(stderr, "quorvex: {}: point {} at {:.2f},{:.2f} stays: {}\n", Utf8Name(run.input),
                 to.id, to.x, to.y, from.reason);
      continue;
    }
    to.x = from.x;
    to.y = from.y;
    to.kind = PointKind::kMeasured;
    to.covariance = Covariance{from.cxx, from.cxy, from.cyy};
    ++count;
  }
  return count;
}

}  // namespace

int RunRefinement(const PointsRun& run, const std::filesystem::path& picturePath,
                  const std::optional<GreyLevels>& levels) {
  OneImageFile file = ReadOneImageFile(run.input, run.image);
  const Picture picture = ReadPictureFile(picturePath, levels);
  if (!picture.note.empty()) {
    fmt::print(stderr, "{}: {}\n", Utf8Name(picturePath), picture.note);
  }
  RequireSameSize(file.list, picture, picturePath);
  if (Refine(run, picture, file.list.points) == 0) {
    fmt::print(stderr, "quorvex: {}: no point could be refined\n", Utf8Name(run.input));
    return kExitNothingFound;
  }
  WriteList(run, file);
  return kExitSuccess;
}

}  // namespace quorvex::tools
