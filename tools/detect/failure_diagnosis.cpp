#include "tools/detect/failure_diagnosis.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <optional>

#include "tools/errors.h"
#include "tools/pictures/picture_file.h"

namespace quorvex::tools {
namespace {

namespace fs = std::filesystem;

// Of the picture's area; below is a stray bright spot.
constexpr double kSmallestTargetShare = 0.01;
constexpr int kBorderMargin = 2;  // pixels; the outline itself takes the outermost one
constexpr std::int64_t kFewestStrokePixels = 100;  // less than one stroke of a mark
constexpr int kCentreReach = 250;                  // pixels to each side of the centre

// Variance along the main direction over that across it. Two crossing strokes of equal length give
// 1; a lone stroke 60 long with its two edges 14 apart gives 300 / 49.
constexpr double kLoneStrokeRatio = 5;

std::optional<Picture> ReadKeptPicture(const std::filesystem::path& directory, const char* name) {
  try {
    return ReadPictureFile(directory / name);
  } catch (const InputError&) {
    return std::nullopt;
  }
}

// First and second moments of the white pixels (128 and above).
struct WhitePixels {
  std::int64_t count = 0;
  int left = 0, right = 0, top = 0, bottom = 0;  // bounding box; meaningless when count is 0
  double sumX = 0, sumY = 0, sumXX = 0, sumXY = 0, sumYY = 0;
};

WhitePixels FindWhite(const Picture& picture, int x0, int y0, int x1, int y1) {
  WhitePixels white;
  for (int y = std::max(y0, 0); y < std::min(y1, picture.height); ++y) {
    for (int x = std::max(x0, 0); x < std::min(x1, picture.width); ++x) {
      if (picture.At(x, y) < 128) continue;
      if (white.count++ == 0) white.left = white.right = x, white.top = white.bottom = y;
      white.left = std::min(white.left, x);
      white.right = std::max(white.right, x);
      white.bottom = y;
      white.sumX += x;
      white.sumY += y;
      white.sumXX += static_cast<double>(x) * x;
      white.sumXY += static_cast<double>(x) * y;
      white.sumYY += static_cast<double>(y) * y;
    }
  }
  return white;
}

WhitePixels FindWhite(const Picture& picture) {
  return FindWhite(picture, 0, 0, picture.width, picture.height);
}

// The spread of the white pixels along their main direction over the spread across it.
double Elongation(const WhitePixels& white) {
  const double n = static_cast<double>(white.count);
  const double xx = white.sumXX / n - white.sumX / n * (white.sumX / n);
  const double xy = white.sumXY / n - white.sumX / n * (white.sumY / n);
  const double yy = white.sumYY / n - white.sumY / n * (white.sumY / n);
  const double mean = (xx + yy) / 2;
  const double half = std::hypot((xx - yy) / 2, xy);
  return (mean + half) / std::max(mean - half, 1e-6);
}

bool ReachesAllBorders(const WhitePixels& mask, const Picture& picture) {
  return mask.left <= kBorderMargin && mask.right >= picture.width - 1 - kBorderMargin &&
         mask.top <= kBorderMargin && mask.bottom >= picture.height - 1 - kBorderMargin;
}

// The centre mark: what the search for it left. Empty when two strokes were found.
std::string DescribeMissingCentreMark(const std::filesystem::path& directory,
                                      const Picture& strokes) {
  const int x = strokes.width / 2;
  const int y = strokes.height / 2;
  const WhitePixels near =
      FindWhite(strokes, x - kCentreReach, y - kCentreReach, x + kCentreReach, y + kCentreReach);
  if (near.count < kFewestStrokePixels) {
    return "no mark lies within 250 pixels of the picture's centre; a mark must be there, so move "
           "the camera or crop the picture";
  }
  const std::optional<Picture> lines = ReadKeptPicture(directory, "Lines.bmp");
  const std::optional<Picture> segments = ReadKeptPicture(directory, "LineSegment.bmp");
  if (!lines || !segments || FindWhite(*segments).count == 0) {
    return "no straight strokes were found near the picture's centre (CrossMarkRegion.bmp); the "
           "marks may be too small, too thin or blurred";
  }
  if (Elongation(FindWhite(*segments)) > kLoneStrokeRatio) {
    return "only one stroke was found near the picture's centre (CrossMarkRegion.bmp); a mark "
           "needs two that cross, so look for glare or dirt there";
  }
  return "";
}

}  // namespace

std::string DescribeFailure(const std::filesystem::path& directory, bool gridFound) {
  if (gridFound) {
    return "a grid was found, but none of its points lies inside the picture; look for marks that "
           "are not part of one regular grid (Eliminate.bmp)";
  }
  const std::optional<Picture> mask = ReadKeptPicture(directory, "Mask.bmp");
  const std::optional<Picture> strokes = ReadKeptPicture(directory, "Eliminate.bmp");
  if (!mask || !strokes) {
    return "nothing was found, and the diagnostic pictures that would tell why were not written; "
           "is the disk full?";
  }
  const WhitePixels target = FindWhite(*mask);
  if (static_cast<double>(target.count) < kSmallestTargetShare * mask->width * mask->height) {
    return "no bright target was found around the picture's centre (Mask.bmp); the target must be "
           "brighter than grey level 80 there, so expose longer or aim at the target";
  }
  if (FindWhite(*strokes).count < kFewestStrokePixels) {
    if (ReachesAllBorders(target, *mask)) {
      return "the whole picture is as bright as a target and shows no marks (Mask.bmp); it may be "
             "overexposed, or the target is not in view";
    }
    return "the target was found but no marks on it (Eliminate.bmp); they must be dark, apart from "
           "each other, and smaller than 400 pixels";
  }
  const std::string centre = DescribeMissingCentreMark(directory, *strokes);
  if (!centre.empty()) return centre;
  return "a mark was found near the picture's centre but no grid around it; neighbours must be "
         "more than 121 pixels apart, and --row-steps at least 10 more than the widest spacing";
}

}  // namespace quorvex::tools
