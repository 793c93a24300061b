// Lists of points as JSON: an array with one object an image. That of a picture without points
// holds "image" and "error" only; a point has a "kind" where it is known.
#ifndef QUORVEX_TOOLS_LISTS_POINTS_JSON_H_
#define QUORVEX_TOOLS_LISTS_POINTS_JSON_H_

#include <string>
#include <vector>

#include "tools/lists/listed_points.h"

namespace quorvex::tools {

// One object of the array, without a comma or a line break after it.
std::string FormatJsonImage(const PointsOfImage& image);

std::string FormatPointsJson(const std::vector<PointsOfImage>& images);

// `name` is that of the file. Throws InputError naming file, place and reason.
std::vector<PointsOfImage> ParsePointsJson(const std::string& text, const std::string& name);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_LISTS_POINTS_JSON_H_
