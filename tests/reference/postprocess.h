// The plain, literal forms of what renumbers and rearranges lists; see tests/reference/preprocess.h
// for what holds for all plain forms.
#ifndef QUORVEX_TESTS_REFERENCE_POSTPROCESS_H_
#define QUORVEX_TESTS_REFERENCE_POSTPROCESS_H_

#include "base/calibration_point.h"

namespace quorvex::plain {

void TraceGridLine(const PointList& points, CalibrationPoint& previous, CalibrationPoint& current,
                   PointList& output);

void LeftPtsRearrange(PointList& points, int unused, int count);
void RightPtsRearrange(PointList& points, int unused, int count);

}  // namespace quorvex::plain

#endif  // QUORVEX_TESTS_REFERENCE_POSTPROCESS_H_
