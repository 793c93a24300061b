// A cut across a dark stroke: seven samples along the normal.
#ifndef QUORVEX_PRECISE_STROKE_SECTION_H_
#define QUORVEX_PRECISE_STROKE_SECTION_H_

#include <Eigen/Core>

#include "precise/pyramid.h"

namespace quorvex::precise {

struct StrokeSection {
  bool isInside = false;   // all samples lie within the level
  double depth = 0.0;      // grey levels, the middle's darkness against its weaker side
  double brightest = 0.0;  // grey levels, of its brighter side
  double offset = 0.0;     // level px along the normal, of the darkness' centroid
};

// `point` in pixels of the level, `normal` a unit vector, `spacing` the distance of two samples in
// pixels.
StrokeSection CutStroke(const PyramidLevel& level, const Eigen::Vector2d& point,
                        const Eigen::Vector2d& normal, double spacing);

}  // namespace quorvex::precise

#endif  // QUORVEX_PRECISE_STROKE_SECTION_H_
