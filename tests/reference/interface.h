// The whole detection from the plain stages alone; stages that the library does in the plain way
// itself are its own. See tests/reference/preprocess.h for what holds for all plain forms.
#ifndef QUORVEX_TESTS_REFERENCE_INTERFACE_H_
#define QUORVEX_TESTS_REFERENCE_INTERFACE_H_

#include "base/calibration_point.h"
#include "base/gray_image.h"
#include "base/pixel_span.h"
#include "interface/result_assembly.h"

namespace quorvex::plain {

void SortPointsById(PointList& points);

bool AssembleResult(const unsigned char* input, const GrayImage& strokes, const GrayImage& mask,
                    const PixelSpanList& rowSpans, const PixelSpanList& columnSpans,
                    const GridParameters& parameters, PointList& points);

bool SingleCamDetectCalibrationPoint(const unsigned char* image, long imageWidth, long imageHeight,
                                     int bitsPerPixel, int rowSpan, int columnSpan, float unused1,
                                     float unused2, int rowSteps, PointList& points);

}  // namespace quorvex::plain

#endif  // QUORVEX_TESTS_REFERENCE_INTERFACE_H_
