// Labelled marks by their labels, and where their neighbours predict a mark to be.
#ifndef QUORVEX_PRECISE_LABEL_MAP_H_
#define QUORVEX_PRECISE_LABEL_MAP_H_

#include <Eigen/Core>
#include <array>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "precise/board_cells.h"
#include "precise/mark_candidate.h"

namespace quorvex::precise {

// What the neighbours of a place say of the mark there.
struct MarkPrediction {
  int votes = 0;  // extrapolations and interpolations that were averaged; 0 when there is none
  Eigen::Vector2d centre = Eigen::Vector2d::Zero();  // px
  double step = 0.0;                                 // px, the smallest to a neighbour
  double tolerance = 0.0;                            // px, within which a mark must lie
};

// What the arms of the nearest marks around a place have in common; by direction +column, +row,
// -column, -row.
struct PredictedArms {
  int votes = 0;                              // marks that were averaged
  std::array<Eigen::Vector2d, 4> directions;  // unit vectors
  double contrast = 0.0;                      // grey levels
  double length = 0.0;                        // px, of the longest arm
};

// The candidates must outlive it.
class LabelMap {
 public:
  LabelMap(const std::vector<MarkCandidate>& marks, const std::vector<LabelledMark>& labelled);

  // The labelled mark at a place, or null; valid until the next Set or Remove.
  const LabelledMark* Find(int row, int column) const;
  void Set(const LabelledMark& mark);
  void Remove(const LabelledMark& mark);

  // From the marks around a place, not from the one that is there: along its row, its column and
  // the cells at its corners; where that says little, from a surface through the marks some
  // steps away.
  MarkPrediction Predict(int row, int column) const;
  PredictedArms PredictArms(int row, int column) const;

 private:
  const MarkCandidate* CandidateAt(int row, int column) const;
  MarkPrediction PredictFromSurface(int row, int column) const;
  PredictedArms ArmsWithin(int row, int column, int reach) const;
  const std::vector<MarkCandidate>& marks_;
  std::unordered_map<std::uint64_t, LabelledMark> places_;
};

}  // namespace quorvex::precise

#endif  // QUORVEX_PRECISE_LABEL_MAP_H_
