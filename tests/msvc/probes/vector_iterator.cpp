// Must be refused: iterators of lists are no pointers.
#include "base/calibration_point.h"

CalibrationPoint* First(PointList& points) { return points.begin(); }
