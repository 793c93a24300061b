// How well a detection agrees with a scene's truth.
#ifndef QUORVEX_BENCHMARKS_PRECISION_DETECTION_SCORE_H_
#define QUORVEX_BENCHMARKS_PRECISION_DETECTION_SCORE_H_

#include <functional>
#include <string>
#include <vector>

#include "benchmarks/precision/scene.h"

namespace quorvex::benchmarks {

struct FoundMark {
  int row = 0;
  int column = 0;
  double x = 0;             // pixels
  double y = 0;             // pixels
  double covarianceXX = 0;  // square pixels; all three are 0 where a detector gives none
  double covarianceXY = 0;
  double covarianceYY = 0;
  bool isDoubtful = false;
};

struct Detection {
  std::vector<FoundMark> marks;
  std::string reason;  // why there are none
};

using Detector = std::function<Detection(const tools::Picture&)>;

struct Score {
  int visible = 0;             // marks that ought to be found
  int found = 0;               // of these, with the right label
  int wrongLabels = 0;         // points on a mark whose label does not fit those of most others
  int falsePoints = 0;         // points that are no mark, and second points on a mark
  int doubtful = 0;            // points that the detector itself doubts
  std::vector<double> errors;  // pixels, of the visible marks that were found
  std::vector<double> normalisedErrors;  // half of e' C^-1 e, as far as covariances are given
  double seconds = 0;
  std::vector<std::string> failures;  // one sentence each, without the scene's name
};

// A point within this distance of a mark is that mark's; others are false.
constexpr double kMatchDistance = 2;  // pixels

// Labels are right when one turn by a multiple of a right angle and one shift take the true ones to
// those of all points; the turn and the shift are those that most points agree on.
Score ScoreDetection(const Detection& detection, const std::vector<SceneMark>& marks);

// Adds counts, errors and times up.
void AddScore(const Score& score, Score& sum);

double RootMeanSquare(const std::vector<double>& values);
double Mean(const std::vector<double>& values);
double Quantile(std::vector<double> values, double part);  // 0.5 is the median; 0 of nothing

}  // namespace quorvex::benchmarks

#endif  // QUORVEX_BENCHMARKS_PRECISION_DETECTION_SCORE_H_
