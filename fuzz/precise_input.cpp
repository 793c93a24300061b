#include "fuzz/precise_input.h"

#include <limits>
#include <vector>

#include "fuzz/input_bytes.h"
#include "fuzz/result_check.h"
#include "fuzz/steered_picture.h"

namespace quorvex::fuzz {
namespace {

using precise::MarkColour;
using precise::Options;
using precise::Point;

constexpr int kMostPoints = 12;
constexpr int kMostLines = 40;  // rows or columns of a board that is known; pictures show up to 8

double Coordinate(InputBytes& input) {
  using Limits = std::numeric_limits<double>;
  switch (input.Between(0, 15)) {
    case 11:
      return Limits::quiet_NaN();
    case 12:
      return Limits::infinity();
    case 13:
      return -Limits::infinity();
    case 14:
      return Limits::max();
    case 15:
      return input.Real(-1e10, 1e10);
    default:
      return input.Real(-20.0, 820.0);
  }
}

// Near the places of marks, or anywhere.
std::vector<Point> MakePoints(InputBytes& input, const std::vector<Point>& places) {
  std::vector<Point> points;
  const int count = input.Between(0, kMostPoints);
  for (int i = 0; i < count; ++i) {
    if (places.empty() || input.OneIn(3)) {
      const double x = Coordinate(input);
      points.push_back({x, Coordinate(input)});
    } else {
      const Point& place = places[static_cast<std::size_t>(input.Byte()) % places.size()];
      const double x = place.x + input.Real(-3.0, 3.0);
      points.push_back({x, place.y + input.Real(-3.0, 3.0)});
    }
  }
  return points;
}

}  // namespace

PreciseOutcome RunPreciseInput(const std::uint8_t* bytes, std::size_t size) {
  InputBytes input(bytes, size);
  Options options;
  options.colour = static_cast<MarkColour>(input.Between(0, 2));
  options.predictsMissing = input.OneIn(2);
  options.hasContinuousLines = input.OneIn(4);
  if (input.OneIn(4)) {
    options.boardRows = input.Between(1, kMostLines);
    options.boardColumns = input.Between(1, kMostLines);
  }
  const bool canRead = !input.OneIn(32);
  const SteeredPicture picture = canRead ? MakePicture(input) : MakeWrongPicture(input);
  const std::vector<Point> points = MakePoints(input, picture.places);
  PreciseOutcome outcome;
  outcome.result = precise::Detect(picture.view, options);
  outcome.wrong = WrongResult(picture.view, options, outcome.result, canRead);
  const std::vector<precise::RefinedPoint> refined =
      precise::RefineMarks(picture.view, points, options);
  for (const precise::RefinedPoint& point : refined) {
    outcome.refined += point.isRefined ? 1 : 0;
  }
  if (outcome.wrong.empty()) {
    outcome.wrong = WrongRefinement(picture.view, points, refined, canRead);
  }
  return outcome;
}

}  // namespace quorvex::fuzz
