// The curve that a row or a column of cross marks follows, and its least-squares fit.
#ifndef QUORVEX_GRID_CURVE_FIT_H_
#define QUORVEX_GRID_CURVE_FIT_H_

#include "base/calibration_point.h"

namespace quorvex {

// value = a * t * t + b * t + c, in pixels; a straight line has a = 0. A row is y of x, a column x
// of y. A curve that was never fitted is all zeros.
struct QuadraticCoefficients {
  float a = 0.0f;
  float b = 0.0f;
  float c = 0.0f;
};

// The curve's value at t, in single precision.
inline float EvaluateCurve(const QuadraticCoefficients& curve, float t) {
  return curve.a * (t * t) + curve.b * t + curve.c;
}

// Fits y as a function of x; two points give the straight line through them. `curve` is always
// written: for fewer than two points, and for two points less than 0.001 apart in x, with zeros,
// and the result is false. A singular system of three or more points gives whatever the division
// gives, and true. Method: normal equations by Gaussian elimination in double precision, each power
// and product of coordinates formed in single precision first.
bool FitQuadraticCurve(const PointList& points, QuadraticCoefficients& curve);

}  // namespace quorvex

#endif  // QUORVEX_GRID_CURVE_FIT_H_
