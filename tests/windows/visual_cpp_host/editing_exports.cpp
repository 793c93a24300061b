// The faces of the editing functions alone, as interface/exports.cpp has them.

#include "interface/point_editing.h"
#include "interface/quorvex.h"

bool QueryCalibrationPt_ID(int id, int& row, int& col, float& x, float& y, PointList& points) {
  return quorvex::QueryCalibrationPt_ID(id, row, col, x, y, points);
}

bool DeleteCalibrationPt_ID(int id, PointList& points) {
  return quorvex::DeleteCalibrationPt_ID(id, points);
}

bool DeleteCalibrationPt_Coordinate(float x, float y, PointList& points) {
  return quorvex::DeleteCalibrationPt_Coordinate(x, y, points);
}

bool AddCalibrationPt_Coordinate(float x, float y, PointList& points) {
  return quorvex::AddCalibrationPt_Coordinate(x, y, points);
}

bool AlterCalibrationPt_Coordinate(int id, int row, int col, float x, float y, PointList& points) {
  return quorvex::AlterCalibrationPt_Coordinate(id, row, col, x, y, points);
}
