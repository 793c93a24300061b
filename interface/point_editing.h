// The operator's operations on a point list: query, delete, add, alter. Results are those that
// interface/quorvex.h states.
#ifndef QUORVEX_INTERFACE_POINT_EDITING_H_
#define QUORVEX_INTERFACE_POINT_EDITING_H_

#include "base/calibration_point.h"

namespace quorvex {

bool QueryCalibrationPt_ID(int id, int& row, int& col, float& x, float& y, PointList& points);
bool DeleteCalibrationPt_ID(int id, PointList& points);
bool DeleteCalibrationPt_Coordinate(float x, float y, PointList& points);
bool AddCalibrationPt_Coordinate(float x, float y, PointList& points);  // always true
bool AlterCalibrationPt_Coordinate(int id, int row, int col, float x, float y, PointList& points);

}  // namespace quorvex

#endif  // QUORVEX_INTERFACE_POINT_EDITING_H_
