#include "tools/detect/failure_diagnosis.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "tools/detect/picture_measures.h"
#include "tools/detect/picture_shapes.h"
#include "tools/errors.h"
#include "tools/pictures/picture_file.h"
#include "tools/system/private_directory.h"

namespace quorvex::tools {
namespace {

constexpr int kTargetLevel = 80;  // grey level; the detection takes what is below for dark

// Of the picture's area; below is a stray bright spot.
constexpr double kSmallestTargetShare = 0.01;
constexpr int kBorderMargin = 2;  // pixels; the outline itself takes the outermost one
constexpr std::int64_t kFewestStrokePixels = 100;  // less than one stroke of a mark
constexpr int kCentreReach = 250;                  // pixels to each side of the centre

constexpr double kMostNoise = 4;    // grey levels; grids begin to have gaps at 2.5
constexpr int kFewestShapes = 4;    // of one kind, to be a pattern
constexpr int kShapesPerCross = 3;  // so many times the crosses, to be a pattern of something else

// Marks that touch make a piece of edges that is larger than the largest mark. The target's own
// border is no mark; its edges reach so far into the mask.
constexpr double kFaintMark = 0.7;  // of the board's grey level
constexpr int kLargestMark = 300;   // pixels
constexpr int kTargetBorder = 16;   // pixels

// Variance along the main direction over that across it. Two crossing strokes of equal length give
// 1; a lone stroke 60 long with its two edges 14 apart gives 300 / 49.
constexpr double kLoneStrokeRatio = 5;

// What a failed detection left, and what the pictures after the first ones tell.
struct Evidence {
  Picture input;
  Picture mask;                     // the target
  Picture edges;                    // all edges within the target
  Picture strokes;                  // what was left of them for marks
  std::optional<Picture> segments;  // the strokes near the last mark examined; there need be none
};

std::optional<Picture> ReadKeptPicture(const std::filesystem::path& directory, const char* name) {
  try {
    return ReadPictureFile(directory / name);
  } catch (const InputError&) {
    return std::nullopt;
  }
}

std::optional<Evidence> ReadEvidence(const std::filesystem::path& directory) {
  std::optional<Picture> input = ReadKeptPicture(directory, "ProImage.bmp");
  std::optional<Picture> mask = ReadKeptPicture(directory, "Mask.bmp");
  std::optional<Picture> edges = ReadKeptPicture(directory, "Sobel.bmp");
  std::optional<Picture> strokes = ReadKeptPicture(directory, "Eliminate.bmp");
  if (!input || !mask || !edges || !strokes) {
    return std::nullopt;
  }
  return Evidence{std::move(*input), std::move(*mask), std::move(*edges), std::move(*strokes),
                  ReadKeptPicture(directory, "LineSegment.bmp")};
}

double Area(const Picture& picture) { return static_cast<double>(picture.pixels.size()); }

// Too dark for anything to be found. Empty when the picture is bright enough somewhere.
std::string DescribeDarkness(const Picture& input, int bitsPerSample) {
  const int brightest = BrightestLevel(input);
  if (brightest >= kTargetLevel) {
    return "";
  }
  if (bitsPerSample == 16) {
    return fmt::format(
        "the file has 16 bits a pixel but uses only the lowest {:.0f} % of their range; give "
        "--levels LOW,HIGH so that the target becomes brighter than {} % of it",
        std::ceil((brightest + 1) / 2.56), std::lround(kTargetLevel / 2.55));
  }
  return "no bright target was found: nothing in the picture is brighter than grey level " +
         fmt::format("{} (ProImage.bmp), but the target must be brighter than {}; expose longer",
                     brightest, kTargetLevel);
}

std::string DescribeNoise(const Picture& input) {
  const double noise = NoiseLevel(input);
  if (noise < kMostNoise) {
    return "";
  }
  return fmt::format(
      "the picture is noisy: sigma is about {:.0f} grey levels (ProImage.bmp), and marks are found "
      "up to 2.5; give more light or average several pictures",
      noise);
}

// A pattern of something else than dark crosses.
std::string DescribeWrongPattern(const Picture& input) {
  const ShapeCounts dark = CountShapes(input, Foreground::kDark);
  const int fewest = std::max(kFewestShapes, kShapesPerCross * dark.crosses);
  if (dark.squares >= fewest && dark.squares >= dark.dots) {
    return "the target looks like a chessboard (ProImage.bmp); it must carry separate dark crosses";
  }
  if (dark.dots >= fewest) {
    return "the target's marks look like circles (ProImage.bmp); they must be dark crosses";
  }
  if (dark.crosses < kFewestShapes &&
      CountShapes(input, Foreground::kBright).crosses >= kFewestShapes) {
    return "the target looks inverted, with bright marks on a dark board (ProImage.bmp); its marks "
           "must be dark on a bright board";
  }
  return "";
}

std::string DescribeMissingTarget(const Picture& input) {
  const PictureShape* largest = nullptr;
  const std::vector<PictureShape> bright =
      FindShapes(input, Foreground::kBright, kTargetLevel,
                 static_cast<std::int64_t>(kSmallestTargetShare * Area(input)) + 1);
  for (const PictureShape& shape : bright) {
    if (largest == nullptr || shape.area > largest->area) {
      largest = &shape;
    }
  }
  const int x = input.width / 2;
  const int y = input.height / 2;
  if (largest != nullptr &&
      (largest->left > x || largest->right < x || largest->top > y || largest->bottom < y)) {
    return fmt::format(
        "the target is off the centre: the picture's centre is dark, and the largest bright area "
        "lies around {:.0f}, {:.0f} (Mask.bmp); aim the camera at the target",
        largest->x, largest->y);
  }
  return "no bright target was found around the picture's centre (Mask.bmp); the target must be "
         "brighter than grey level 80 there, so expose longer or aim at the target";
}

bool ReachesAllBorders(const Picture& mask) {
  const WhitePixels white = FindWhite(mask);
  return white.left <= kBorderMargin && white.right >= mask.width - 1 - kBorderMargin &&
         white.top <= kBorderMargin && white.bottom >= mask.height - 1 - kBorderMargin;
}

bool IsWellInside(const Picture& mask, int x, int y) {
  return x >= kTargetBorder && x + kTargetBorder < mask.width && y >= kTargetBorder &&
         y + kTargetBorder < mask.height && mask.At(x - kTargetBorder, y) != 0 &&
         mask.At(x + kTargetBorder, y) != 0 && mask.At(x, y - kTargetBorder) != 0 &&
         mask.At(x, y + kTargetBorder) != 0;
}

// Blurred marks do not, and their edges run into each other far from the strokes.
bool HasMarksThatStandOut(std::vector<std::uint8_t>& levels) {
  if (levels.size() <= kFewestStrokePixels) {
    return false;
  }
  const auto darkest = levels.begin() + kFewestStrokePixels;
  std::nth_element(levels.begin(), darkest, levels.end());
  const int mark = *darkest;
  const auto middle = levels.begin() + static_cast<std::ptrdiff_t>(levels.size() / 2);
  std::nth_element(levels.begin(), middle, levels.end());
  return mark < kFaintMark * *middle;
}

bool DoMarksTouch(const Evidence& evidence) {
  Picture edges = evidence.edges;
  std::vector<std::uint8_t> levels;
  for (int y = 0; y < edges.height; ++y) {
    for (int x = 0; x < edges.width; ++x) {
      if (IsWellInside(evidence.mask, x, y)) {
        levels.push_back(evidence.input.At(x, y));
      } else {
        edges.At(x, y) = 0;
      }
    }
  }
  if (!HasMarksThatStandOut(levels)) {
    return false;
  }
  const std::vector<PictureShape> pieces =
      FindShapes(edges, Foreground::kBright, 128, kFewestStrokePixels);
  return std::any_of(pieces.begin(), pieces.end(),
                     [](const PictureShape& piece) { return piece.Extent() > kLargestMark; });
}

// The mark at the centre: what the search for it left. Empty when two strokes were found.
std::string DescribeMissingCentreMark(const Evidence& evidence) {
  const int x = evidence.strokes.width / 2;
  const int y = evidence.strokes.height / 2;
  const WhitePixels near = FindWhite(evidence.strokes, x - kCentreReach, y - kCentreReach,
                                     x + kCentreReach, y + kCentreReach);
  if (near.count < kFewestStrokePixels) {
    return "no mark lies within 250 pixels of the picture's centre; a mark must be there, so move "
           "the camera or crop the picture";
  }
  const WhitePixels segments = evidence.segments ? FindWhite(*evidence.segments) : WhitePixels();
  if (segments.count == 0) {
    return "no straight strokes were found near the picture's centre (CrossMarkRegion.bmp); the "
           "marks may be too small, too thin or blurred";
  }
  if (Elongation(segments) > kLoneStrokeRatio) {
    return "only one stroke was found near the picture's centre (CrossMarkRegion.bmp); a mark "
           "needs two that cross, so look for glare or dirt there";
  }
  return "";
}

std::string DescribeMissingMarks(const Evidence& evidence) {
  if (DoMarksTouch(evidence)) {
    return "neighbouring marks touch each other, or nearly so (Sobel.bmp), or are larger than "
           "300 pixels; leave a gap of 8 pixels or more between their arms";
  }
  if (FindWhite(evidence.strokes).count < kFewestStrokePixels) {
    if (ReachesAllBorders(evidence.mask)) {
      return "the whole picture is as bright as a target and shows no marks (Mask.bmp); it may be "
             "overexposed, or the target is not in view";
    }
    return "the target was found but no marks on it (Eliminate.bmp); they must be dark, apart from "
           "each other, and smaller than 400 pixels";
  }
  return DescribeMissingCentreMark(evidence);
}

}  // namespace

std::string DescribeFailure(const FailedDetection& failure) {
  if (failure.gridFound) {
    return "a grid was found, but none of its points lies inside the picture; look for marks that "
           "are not part of one regular grid (Eliminate.bmp)";
  }
  const std::optional<Evidence> evidence = ReadEvidence(failure.directory);
  if (!evidence) {
    const std::string shortage = DescribeShortage(failure.directory);
    return "nothing was found, and the diagnostic pictures that would tell why were not written" +
           (shortage.empty() ? "; is the disk full?" : ": " + shortage);
  }
  std::string reason = DescribeDarkness(evidence->input, failure.bitsPerSample);
  if (reason.empty()) {
    reason = DescribeNoise(evidence->input);
  }
  if (reason.empty()) {
    reason = DescribeWrongPattern(evidence->input);
  }
  if (!reason.empty()) {
    return reason;
  }
  const double smallestTarget = kSmallestTargetShare * Area(evidence->mask);
  if (static_cast<double>(FindWhite(evidence->mask).count) < smallestTarget) {
    return DescribeMissingTarget(evidence->input);
  }
  reason = DescribeMissingMarks(*evidence);
  if (!reason.empty()) {
    return reason;
  }
  return "a mark was found near the picture's centre but no grid around it; neighbours must be "
         "more than 121 pixels apart, and --row-steps at least 10 more than the widest spacing";
}

}  // namespace quorvex::tools
