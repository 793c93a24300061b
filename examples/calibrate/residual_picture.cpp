#include "examples/calibrate/residual_picture.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <opencv2/imgproc.hpp>
#include <vector>

namespace calibrate {
namespace {

constexpr double kShrink = 0.5;     // pixels of the drawing for one of the picture
constexpr double kUsualArrow = 20;  // pixels of the drawing, the longest that the median gets
constexpr double kTipPart = 0.3;    // of an arrow
constexpr int kSubpixelBits = 4;    // positions are given in sixteenths of a pixel
constexpr double kTextSize = 0.7;   // of OpenCV's font

cv::Scalar Paper() { return {255, 255, 255}; }
cv::Scalar Arrow() { return {160, 60, 0}; }  // blue, green, red
cv::Scalar Text() { return {0, 0, 0}; }

// The largest of 1, 2 and 5 times a power of ten that is not above `limit`.
double RoundedDown(double limit) {
  const double power = std::pow(10.0, std::floor(std::log10(limit)));
  for (const double step : {5.0, 2.0}) {
    if (step * power <= limit) {
      return step * power;
    }
  }
  return power;
}

// Of the residuals' lengths, so that a few marks far off do not shrink all other arrows.
double Median(const std::vector<Residual>& residuals) {
  std::vector<double> lengths;
  lengths.reserve(residuals.size());
  for (const Residual& residual : residuals) {
    lengths.push_back(std::hypot(residual.dx, residual.dy));
  }
  std::sort(lengths.begin(), lengths.end());
  return lengths.empty() ? 0 : lengths[lengths.size() / 2];
}

cv::Point Subpixel(double x, double y) {
  const double scale = 1 << kSubpixelBits;
  return {static_cast<int>(std::lround(x * scale)), static_cast<int>(std::lround(y * scale))};
}

}  // namespace

cv::Mat DrawResiduals(const Calibration& calibration, const cv::Size& pictureSize,
                      const std::string& title) {
  const double median = Median(calibration.residuals);
  const double magnification = median > 0 ? RoundedDown(kUsualArrow / kShrink / median) : 1;
  cv::Mat drawing(static_cast<int>(pictureSize.height * kShrink),
                  static_cast<int>(pictureSize.width * kShrink), CV_8UC3, Paper());
  for (const Residual& residual : calibration.residuals) {
    const double x = residual.x * kShrink;
    const double y = residual.y * kShrink;
    cv::arrowedLine(drawing, Subpixel(x, y),
                    Subpixel(x + residual.dx * magnification * kShrink,
                             y + residual.dy * magnification * kShrink),
                    Arrow(), 1, cv::LINE_AA, kSubpixelBits, kTipPart);
  }
  char caption[160];
  std::snprintf(caption, sizeof caption,
                "%s: RMS %.4f px, median %.4f px, arrows magnified %g times", title.c_str(),
                RootMeanSquare(calibration.residuals), median, magnification);
  cv::putText(drawing, caption, cv::Point(16, 28), cv::FONT_HERSHEY_SIMPLEX, kTextSize, Text(), 1,
              cv::LINE_AA);
  return drawing;
}

}  // namespace calibrate
