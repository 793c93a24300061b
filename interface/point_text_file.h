// The text files of point positions that a detection leaves behind.
#ifndef QUORVEX_INTERFACE_POINT_TEXT_FILE_H_
#define QUORVEX_INTERFACE_POINT_TEXT_FILE_H_

#include "base/calibration_point.h"

namespace quorvex {

// Writes one line "x<tab>y" a point, six decimals each, replacing the file, where the diagnostics
// go. A file that cannot be opened is skipped.
void WritePointTextFile(const char* path, const PointList& points);

}  // namespace quorvex

#endif  // QUORVEX_INTERFACE_POINT_TEXT_FILE_H_
