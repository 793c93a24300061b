#include "tools/render/camera.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tools/render/presets.h"

namespace quorvex::tests {

using namespace tools;

namespace {

constexpr double kPixelTolerance = 1e-6;

RenderSettings SettingsOf(CameraModel model) {
  RenderSettings settings = PresetByName("fisheye");
  settings.model = model;
  settings.focalLength = 600;
  if (model == CameraModel::kKannalaBrandt) {
    settings.k1 = -0.05;
    settings.k2 = 0.01;
    settings.k3 = -0.003;
    settings.k4 = 0.0004;
  }
  return settings;
}

// The picture's corners are within two focal lengths, where the equisolid model ends.
RenderSettings WideSettingsOf(CameraModel model) {
  RenderSettings settings = SettingsOf(model);
  settings.focalLength = 800;
  return settings;
}

class CameraModels : public testing::TestWithParam<CameraModel> {};

TEST_P(CameraModels, RayOfAPixelProjectsBackToIt) {
  const Camera camera(WideSettingsOf(GetParam()));
  for (double y = -0.5; y < 2048; y += 93.25) {
    for (double x = -0.5; x < 2048; x += 93.25) {
      const auto ray = camera.Ray({x, y});
      ASSERT_TRUE(ray) << x << ", " << y;
      EXPECT_NEAR(ray->x * ray->x + ray->y * ray->y + ray->z * ray->z, 1, 1e-12);
      const auto pixel = camera.Project(*ray);
      ASSERT_TRUE(pixel) << x << ", " << y;
      EXPECT_NEAR(pixel->x, x, kPixelTolerance);
      EXPECT_NEAR(pixel->y, y, kPixelTolerance);
    }
  }
}

TEST_P(CameraModels, TableAgreesWithTheExactRays) {
  const Camera camera(WideSettingsOf(GetParam()));
  const RayTable table(camera, 1500);
  for (double x = -1023.4; x < 1024; x += 31.37) {
    for (double y = -1023.4; y < 1024; y += 31.37) {
      Vector3 ray;
      ASSERT_TRUE(table.Lookup(x, y, ray));
      const auto pixel = camera.Project(ray);
      ASSERT_TRUE(pixel);
      EXPECT_NEAR(pixel->x - camera.PrincipalPoint().x, x, 1e-4);
      EXPECT_NEAR(pixel->y - camera.PrincipalPoint().y, y, 1e-4);
    }
  }
}

TEST_P(CameraModels, AxisIsSeenAtThePrincipalPoint) {
  RenderSettings settings = SettingsOf(GetParam());
  const auto middle = Camera(settings).Project({0, 0, 5});
  ASSERT_TRUE(middle);
  EXPECT_EQ(middle->x, 1023.5);
  EXPECT_EQ(middle->y, 1023.5);
  settings.principalX = 700.25;
  settings.principalY = 900;
  const auto moved = Camera(settings).Project({0, 0, 5});
  ASSERT_TRUE(moved);
  EXPECT_EQ(moved->x, 700.25);
  EXPECT_EQ(moved->y, 900);
}

INSTANTIATE_TEST_SUITE_P(All, CameraModels,
                         testing::Values(CameraModel::kEquidistant, CameraModel::kKannalaBrandt,
                                         CameraModel::kPinhole, CameraModel::kEquisolid,
                                         CameraModel::kStereographic));

TEST(Camera, RadiusFollowsTheModel) {
  EXPECT_DOUBLE_EQ(Camera(SettingsOf(CameraModel::kEquidistant)).RadiusAt(0.5), 300);
  EXPECT_DOUBLE_EQ(Camera(SettingsOf(CameraModel::kPinhole)).RadiusAt(0.5), 600 * std::tan(0.5));
  EXPECT_DOUBLE_EQ(Camera(SettingsOf(CameraModel::kEquisolid)).RadiusAt(0.5),
                   1200 * std::sin(0.25));
  EXPECT_DOUBLE_EQ(Camera(SettingsOf(CameraModel::kStereographic)).RadiusAt(0.5),
                   1200 * std::tan(0.25));
  const double polynomial = 0.5 - 0.05 * std::pow(0.5, 3) + 0.01 * std::pow(0.5, 5) -
                            0.003 * std::pow(0.5, 7) + 0.0004 * std::pow(0.5, 9);
  EXPECT_DOUBLE_EQ(Camera(SettingsOf(CameraModel::kKannalaBrandt)).RadiusAt(0.5), 600 * polynomial);
}

TEST(Camera, FisheyeSeesBehindItselfAndPinholeDoesNot) {
  EXPECT_TRUE(Camera(SettingsOf(CameraModel::kEquidistant)).Project({1, 0, -1}));
  EXPECT_FALSE(Camera(SettingsOf(CameraModel::kPinhole)).Project({1, 0, -1}));
  EXPECT_FALSE(Camera(SettingsOf(CameraModel::kPinhole)).Project({1, 0, 0}));
}

TEST(Camera, EquisolidEndsAtTwoFocalLengthsAndStereographicNever) {
  const Camera equisolid(SettingsOf(CameraModel::kEquisolid));
  EXPECT_TRUE(equisolid.Project({1, 0, -10}));
  EXPECT_FALSE(equisolid.Ray({1023.5 + 1201, 1023.5}));
  const Camera stereographic(SettingsOf(CameraModel::kStereographic));
  EXPECT_TRUE(stereographic.Ray({1023.5 + 1e5, 1023.5}));
  EXPECT_FALSE(stereographic.Project({0, 0, -1}));
}

TEST(Camera, PolynomialEndsWhereItTurnsBack) {
  RenderSettings settings = SettingsOf(CameraModel::kKannalaBrandt);
  settings.k1 = -1.0 / 3;  // the slope 1 - t^2 is zero at one radian
  settings.k2 = settings.k3 = settings.k4 = 0;
  const Camera camera(settings);
  EXPECT_NEAR(camera.MaxRadius(), 600 * 2.0 / 3, 0.01);
  EXPECT_FALSE(camera.Project({std::sin(1.01), 0, std::cos(1.01)}));
  EXPECT_TRUE(camera.Project({std::sin(0.99), 0, std::cos(0.99)}));
  EXPECT_FALSE(camera.Ray({1023.5 + 401, 1023.5}));
}

}  // namespace
}  // namespace quorvex::tests
