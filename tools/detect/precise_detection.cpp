#include "tools/detect/precise_detection.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "tools/pictures/picture_file.h"
#include "tools/system/file_name.h"

namespace quorvex::tools {
namespace {

PointKind KindOf(precise::Verdict verdict) {
  switch (verdict) {
    case precise::Verdict::kMeasured:
      return PointKind::kMeasured;
    case precise::Verdict::kDoubtful:
      return PointKind::kDoubtful;
    case precise::Verdict::kPredicted:
      break;
  }
  return PointKind::kPredicted;
}

// Numbered row by row, as the other detection numbers its points.
std::vector<ListedPoint> ToListedPoints(const std::vector<precise::Mark>& marks) {
  int columns = 0;
  for (const precise::Mark& mark : marks) {
    columns = std::max(columns, mark.column + 1);
  }
  std::vector<ListedPoint> points;
  points.reserve(marks.size());
  for (const precise::Mark& mark : marks) {
    points.push_back({mark.row * columns + mark.column + 1, mark.row, mark.column, mark.x, mark.y,
                      KindOf(mark.verdict), Covariance{mark.cxx, mark.cxy, mark.cyy}});
  }
  return points;
}

// Lengths are pixels but for those of the pose and the arms, which are pitches of the columns.
std::vector<std::pair<std::string, double>> ToListedFacts(const precise::PictureFacts& facts) {
  const precise::CameraFacts& camera = facts.camera;
  std::vector<std::pair<std::string, double>> listed{{"noise", facts.noise},
                                                     {"stroke_width", facts.strokeWidth},
                                                     {"pitch", facts.pitch},
                                                     {"blur", facts.blur},
                                                     {"arm_length", facts.armLength},
                                                     {"light_marks", facts.hasLightMarks ? 1 : 0},
                                                     {"focal_length", camera.focalLength},
                                                     {"k1", camera.k1},
                                                     {"k2", camera.k2},
                                                     {"centre_x", camera.centreX},
                                                     {"centre_y", camera.centreY},
                                                     {"aspect", camera.aspect},
                                                     {"residual", camera.residual}};
  for (std::size_t i = 0; i < camera.rotation.size(); ++i) {
    listed.emplace_back(fmt::format("rotation_{}{}", i / 3, i % 3), camera.rotation[i]);
  }
  for (std::size_t i = 0; i < camera.translation.size(); ++i) {
    listed.emplace_back(fmt::format("translation_{}", i), camera.translation[i]);
  }
  return listed;
}

}  // namespace

precise::ImageView ViewOf(const Picture& picture) {
  return {picture.pixels.data(), picture.width, picture.height, picture.width};
}

DetectionResult DetectPrecisely(const std::filesystem::path& image,
                                const precise::Options& options) {
  DetectionResult result;
  result.found.image = Utf8Name(image);
  try {
    const Picture picture = ReadPictureFile(image);
    const precise::Result found = precise::Detect(ViewOf(picture), options);
    result.found.width = picture.width;
    result.found.height = picture.height;
    if (found.marks.empty()) {
      result.exitCode = kExitNothingFound;
      result.message = fmt::format("{}: no target was found: {}", result.found.image, found.reason);
      return result;
    }
    result.found.points = ToListedPoints(found.marks);
    result.found.facts = ToListedFacts(found.facts);
  } catch (const InputError& error) {
    result.exitCode = kExitBadInput;
    result.message = error.what();
  } catch (const std::bad_alloc&) {
    result.exitCode = kExitNothingFound;
    result.message = fmt::format("{}: out of memory", result.found.image);
  }
  return result;
}

}  // namespace quorvex::tools
