// Must be refused: iterators of lists are no pointers.
#include "interface/calibration_point.h"

CalibrationPoint* First(PointList& points) { return points.begin(); }
