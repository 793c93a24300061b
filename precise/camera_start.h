// Where a camera stands from which labels are seen at their places, for a lens that is given.
#ifndef QUORVEX_PRECISE_CAMERA_START_H_
#define QUORVEX_PRECISE_CAMERA_START_H_

#include <Eigen/Core>
#include <vector>

#include "precise/camera_model.h"

namespace quorvex::precise {

struct LabelledPoint {
  Eigen::Vector2d label = Eigen::Vector2d::Zero();  // column, row
  Eigen::Vector2d pixel = Eigen::Vector2d::Zero();  // px
};

// The pose under which rays of an equidistant lens meet the board: a homography from the board to
// the rays, solved linearly (Hartley and Zisserman, Multiple View Geometry, 2004, chapter 4) and
// taken apart. Needs four points or more. middle: of the picture, px; focalLength in px a radian.
// False where there is no such pose.
bool StartCamera(const std::vector<LabelledPoint>& points, const Eigen::Vector2d& middle,
                 double focalLength, CameraModel& model);

}  // namespace quorvex::precise

#endif  // QUORVEX_PRECISE_CAMERA_START_H_
