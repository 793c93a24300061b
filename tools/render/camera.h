// The camera models of the renderer: rays to pixels and back.
#ifndef QUORVEX_TOOLS_RENDER_CAMERA_H_
#define QUORVEX_TOOLS_RENDER_CAMERA_H_

#include <optional>
#include <vector>

#include "tools/render/render_settings.h"

namespace quorvex::tools {

struct Vector3 {
  double x = 0;
  double y = 0;
  double z = 0;
};

struct PixelPoint {
  double x = 0;  // pixels to the right, integer values at pixel centres
  double y = 0;  // pixels down
};

class Camera {
 public:
  explicit Camera(const RenderSettings& settings);

  // Where a ray of any length meets the picture; nothing if the model does not see that direction.
  std::optional<PixelPoint> Project(const Vector3& ray) const;

  // The direction, of length 1, that is seen at a pixel; nothing beyond the model's largest angle.
  std::optional<Vector3> Ray(const PixelPoint& pixel) const;

  PixelPoint PrincipalPoint() const { return principalPoint_; }
  double FocalLength() const { return focalLength_; }  // pixels

  // Distance from the principal point, in pixels, at an angle from the axis, in radians; and back.
  // Both grow strictly up to MaxAngle and MaxRadius, which the equidistant and the equisolid model
  // reach behind the camera and the pinhole and the stereographic model never reach.
  double RadiusAt(double angle) const;
  double AngleAt(double radius) const;
  double MaxRadius() const { return maxRadius_; }

 private:
  double Slope(double angle) const;  // of RadiusAt over the focal length, per radian
  double FindMaxAngle() const;
  bool Sees(double angle) const;

  CameraModel model_;
  double focalLength_;
  double k1_;
  double k2_;
  double k3_;
  double k4_;
  PixelPoint principalPoint_;
  double maxAngle_;
  double maxRadius_;
};

// The rays of all pixels up to some radius, as a table over the radius, since a model is symmetric
// about its axis. Linear between entries 1/8 pixel apart: a ray is off by less than
// (1/8)^2 / 8 / f radians, that is by 0.002 / f pixels, as long as the curve bends like the
// equidistant one.
class RayTable {
 public:
  RayTable(const Camera& camera, double largestRadius);

  // The direction seen at an offset from the principal point, in pixels; its length is about 1.
  // False beyond the model's largest angle.
  bool Lookup(double offsetX, double offsetY, Vector3& ray) const;

 private:
  struct Entry {
    double lateral;  // sine of the angle over the radius, per pixel
    double axial;    // cosine of the angle
  };

  double maxRadius_;
  std::vector<Entry> entries_;
};

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_RENDER_CAMERA_H_
