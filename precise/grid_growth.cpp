#include "precise/grid_growth.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <utility>

#include "precise/grid_check.h"
#include "precise/mark_acceptance.h"
#include "precise/median.h"
#include "precise/seed_facts.h"

namespace quorvex::precise {
namespace {

constexpr std::size_t kFewestMarks = 6;    // fewer do not contradict any camera
constexpr double kLargestResidual = 0.08;  // pitches, of the seed from the camera
constexpr double kFirstBend = 0.3;         // px at the end of the arms
constexpr double kFirstSettled = 0.15;   // px; a linear fit from there is off by a hundredth of it
constexpr double kNearTolerance = 0.08;  // pitches from the prediction, beside a known mark
constexpr double kFarTolerance = 0.15;   // pitches, over a gap
constexpr double kLeastTolerance = 1.0;  // px
constexpr double kSearchRange = 0.15;    // pitches across a stroke
constexpr double kWellPredicted = 0.15;  // px
constexpr double kWellSigmas = 5.0;      // of the prediction
constexpr double kLeastArm = 6.0;        // px; shorter ones hold too few blocks
constexpr int kGap = 6;                  // marks that a gap may be wide
constexpr int kRounds = 40;              // of growing; a board has no more rings
constexpr int kTries = 2;                // at one place, since cameras get better

using Key = std::pair<int, int>;  // row, column

class Growth {
 public:
  Growth(const GrayPicture& picture, const Seed& seed) : picture_(picture), seed_(seed) {}

  Grid Run();

 private:
  bool StartCamera();
  bool MeasureFacts();
  void TrySeed();
  std::set<Key> PlacesWithin(int reach) const;
  bool GrowRing(int reach);
  void Try(const Key& key, double tolerance, bool isLast);
  double WellPredicted(const Key& key) const;
  void TryOnceMore();
  void Refine();
  double DarknessAround(const Key& key) const;
  std::vector<GridMark> Marks() const;

  const GrayPicture& picture_;
  const Seed& seed_;
  Grid grid_;
  std::map<Key, GridMark> marks_;
  std::map<Key, int> tries_;
  std::vector<EdgeTables> edges_;
  double usualDarkness_ = 0.0;  // grey levels, median of the marks so far
  std::vector<BoardMap> map_;   // one, or none before the first camera
};

bool Growth::StartCamera() {
  std::vector<LabelledPoint> points;
  for (const SeedMark& mark : seed_.marks) {
    points.push_back({Eigen::Vector2d(mark.column, mark.row), mark.centre});
  }
  grid_.camera = FitCamera(points, picture_.Width(), picture_.Height());
  if (!grid_.camera.isFitted ||
      grid_.camera.residual > std::max(kLargestResidual * seed_.pitch, 1.0)) {
    grid_.stage = "camera";
    grid_.reason = "the marks' rows and columns are not seen as a flat board would be";
    return false;
  }
  map_.assign(1, BoardMap({}, grid_.camera));
  return true;
}

bool Growth::MeasureFacts() {
  if (!MeasureSeedFacts(picture_, seed_, map_[0], grid_.facts)) {
    grid_.stage = "strokes";
    grid_.reason = "no stroke could be measured on the marks";
    return false;
  }
  edges_.emplace_back(grid_.facts.sigma[0]);
  edges_.emplace_back(grid_.facts.sigma[1]);
  return true;
}

double Growth::DarknessAround(const Key& key) const {
  constexpr int kReach = 2;
  std::vector<double> values;
  for (int row = key.first - kReach; row <= key.first + kReach; ++row) {
    for (int column = key.second - kReach; column <= key.second + kReach; ++column) {
      const auto found = marks_.find({row, column});
      if (found != marks_.end()) {
        values.push_back(found->second.fit.darkness);
      }
    }
  }
  if (values.empty()) {
    return usualDarkness_;
  }
  return MedianOf(values);
}

void Growth::Try(const Key& key, double tolerance, bool isLast) {
  ++tries_[key];
  MarkFrame frame;
  if (!map_[0].Frame(key.first, key.second, grid_.facts, frame)) {
    return;
  }
  const Eigen::Vector2d& centre = frame.centre;
  if (!(centre.x() >= 0.0 && centre.y() >= 0.0 && centre.x() <= picture_.Width() - 1.0 &&
        centre.y() <= picture_.Height() - 1.0)) {
    return;
  }
  const double shortest = std::min(std::max(frame.armLength[0][0], frame.armLength[0][1]),
                                   std::max(frame.armLength[1][0], frame.armLength[1][1]));
  if (!(shortest >= kLeastArm)) {
    return;
  }
  const double pitch = shortest / grid_.facts.armEnd;
  Expectation expected;
  expected.darkness = DarknessAround(key);
  expected.tolerance = std::max(tolerance * pitch, kLeastTolerance);
  expected.isWellPredicted = isLast;
  if (isLast) {
    expected.tolerance = WellPredicted(key);
  }
  const double range = std::max(kSearchRange * pitch, 1.0);
  if (!MayHoldMark(picture_, frame, range, expected.darkness)) {
    return;
  }
  MarkFitSettings settings;
  settings.edges = {&edges_[0], &edges_[1]};
  settings.noise = seed_.noise;
  settings.bendSigma = {kFirstBend, 0.5 * kFirstBend};
  settings.settled = kFirstSettled;
  GridMark mark;
  mark.row = key.first;
  mark.column = key.second;
  mark.fit = FitMark(picture_, frame, settings);
  bool isMark = IsMark(picture_, frame, mark.fit, expected);
  if (!isMark && !expected.isWellPredicted) {
    const MarkFrame moved = LookAround(picture_, frame, range);
    mark.fit = FitMark(picture_, moved, settings);
    isMark = IsMark(picture_, frame, mark.fit, expected);
  }
  if (isMark) {
    marks_[key] = mark;
  }
}

void Growth::TrySeed() {
  for (const SeedMark& mark : seed_.marks) {
    Try({mark.row, mark.column}, kFarTolerance, false);
  }
  Refine();
}

std::vector<GridMark> Growth::Marks() const {
  std::vector<GridMark> marks;
  for (const auto& entry : marks_) {
    marks.push_back(entry.second);
  }
  return marks;
}

void Growth::Refine() {
  const std::vector<GridMark> marks = Marks();
  if (marks.size() < kFewestMarks) {
    return;
  }
  std::vector<double> darkness;
  darkness.reserve(marks.size());
  for (const GridMark& mark : marks) {
    darkness.push_back(mark.fit.darkness);
  }
  usualDarkness_ = MedianOf(darkness);
  const CameraFit camera =
      RefineCamera(PointsOf(marks), grid_.camera.model, picture_.Width(), picture_.Height());
  if (camera.isFitted) {
    grid_.camera = camera;
  }
  map_.assign(1, BoardMap(marks, grid_.camera));
}

// The places up to `reach` labels from marks, theirs included.
std::set<Key> Growth::PlacesWithin(int reach) const {
  std::set<Key> places;
  for (const auto& entry : marks_) {
    for (int row = -reach; row <= reach; ++row) {
      for (int column = -reach; column <= reach; ++column) {
        places.insert({entry.first.first + row, entry.first.second + column});
      }
    }
  }
  return places;
}

// Tries the places up to `reach` labels from marks; true when there are new marks.
bool Growth::GrowRing(int reach) {
  const std::size_t before = marks_.size();
  for (const Key& key : PlacesWithin(reach)) {
    if (marks_.count(key) == 0 && tries_[key] < kTries) {
      Try(key, reach == 1 ? kNearTolerance : kFarTolerance, false);
    }
  }
  if (marks_.size() == before) {
    return false;
  }
  Refine();
  return true;
}

// How far a mark may be from a prediction that all other marks support, px.
double Growth::WellPredicted(const Key& key) const {
  const Predicted predicted = map_[0].At(key.first, key.second, false);
  return std::max(kWellPredicted, kWellSigmas * std::sqrt(predicted.covariance.trace()));
}

// With the whole board known, two arms tell a mark: its place, directions and darkness must agree.
void Growth::TryOnceMore() {
  for (const Key& key : PlacesWithin(1)) {
    if (marks_.count(key) == 0) {
      Try(key, 0.0, true);
    }
  }
}

Grid Growth::Run() {
  if (seed_.marks.size() < kFewestMarks) {
    grid_.stage = "seed";
    grid_.reason = seed_.reason.empty() ? "fewer than six marks belong together" : seed_.reason;
    return grid_;
  }
  if (!StartCamera() || !MeasureFacts()) {
    return grid_;
  }
  TrySeed();
  for (int round = 0; round < kRounds; ++round) {
    if (!GrowRing(1) && !GrowRing(kGap)) {
      break;
    }
  }
  TryOnceMore();
  grid_.marks = Marks();
  const std::size_t grown = grid_.marks.size();
  DropContradicted(grid_.marks, grid_.camera, picture_.Width(), picture_.Height());
  const std::size_t dropped = grown - grid_.marks.size();
  if (grid_.marks.size() < kFewestMarks || dropped > grown / 4) {
    grid_.marks.clear();
    grid_.stage = "check";
    grid_.reason = "the marks contradict each other";
  }
  return grid_;
}

}  // namespace

Grid GrowGrid(const GrayPicture& picture, const Seed& seed) { return Growth(picture, seed).Run(); }

}  // namespace quorvex::precise
