#include "tools/render/render_settings.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <string>

#include "tools/errors.h"
#include "tools/render/presets.h"
#include "tools/render/render_target.h"

namespace quorvex::tests {

using namespace tools;

namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

struct BadSetting {
  const char* name;
  std::function<void(RenderSettings&)> change;
  const char* fragment;
};

const BadSetting kBadSettings[] = {
    {"Narrow", [](RenderSettings& s) { s.width = 3; }, "width must be 4 to 32768, but is 3"},
    {"Tall", [](RenderSettings& s) { s.height = 32769; }, "height must be 4 to 32768"},
    {"NoFocalLength", [](RenderSettings& s) { s.focalLength = 0; }, "focal length must be above 0"},
    {"NanFocalLength", [](RenderSettings& s) { s.focalLength = kNan; }, "focal length must be"},
    {"InfiniteShift", [](RenderSettings& s) { s.shiftX = std::numeric_limits<double>::infinity(); },
     "shift to the right must be"},
    {"NanCoefficient", [](RenderSettings& s) { s.k3 = kNan; }, "coefficient k3 must be"},
    {"FarPrincipalPoint", [](RenderSettings& s) { s.principalY = 1e6; }, "principal point's y"},
    {"NoDistance", [](RenderSettings& s) { s.distance = 0; }, "distance must be above 0"},
    {"OnItsSide", [](RenderSettings& s) { s.rotation = 90; }, "rotation must be -45 to 45"},
    {"FlatTilt", [](RenderSettings& s) { s.tiltX = 85; }, "tilt about x must be -80 to 80"},
    {"NoRows", [](RenderSettings& s) { s.rows = 0; }, "number of rows must be 1 to 1000"},
    {"NoColumns", [](RenderSettings& s) { s.columns = -1; }, "number of columns must be 1 to"},
    {"NoPitch", [](RenderSettings& s) { s.pitch = 0; }, "pitch must be above 0"},
    {"MarksTouch", [](RenderSettings& s) { s.armLength = 20; }, "arms of 20 mm touch"},
    {"FatStroke", [](RenderSettings& s) { s.strokeWidth = 35; }, "more than two arms"},
    {"ThinMargin", [](RenderSettings& s) { s.margin = 16; }, "do not fit into a margin of 16 mm"},
    {"MissingOutside",
     [](RenderSettings& s) {
       s.missing = {{9, 0}};
     },
     "missing mark 9,0 is not among 9 x 9 marks"},
    {"BrightBoard", [](RenderSettings& s) { s.boardLevel = 256; }, "board's grey level must be"},
    {"StrongGradient", [](RenderSettings& s) { s.gradientY = 1.5; }, "gradient down must be"},
    {"NegativeBlur", [](RenderSettings& s) { s.blurSigma = -1; }, "blur sigma must be 0 to 100"},
    {"NegativeNoise", [](RenderSettings& s) { s.noiseSigma = -0.1; }, "noise sigma must be 0"},
    {"OutsidePicture", [](RenderSettings& s) { s.width = 1300; },
     "outside the picture of 1300 x 2048 pixels"},
    {"BehindPinhole",
     [](RenderSettings& s) {
       s.model = CameraModel::kPinhole;
       s.tiltX = 80;
       s.distance = 100;
     },
     "is out of the camera's sight"},
    {"FromBehind",
     [](RenderSettings& s) {
       s.tiltY = 70;
       s.shiftX = -900;
     },
     "turns its back to the camera"},
};

class BadSettings : public testing::TestWithParam<BadSetting> {};

TEST_P(BadSettings, AreRefusedInOneSentence) {
  RenderSettings settings = PresetByName("fisheye");
  GetParam().change(settings);
  try {
    ProjectMarks(settings);
    ADD_FAILURE() << "accepted";
  } catch (const InputError& error) {
    const std::string message = error.what();
    EXPECT_NE(message.find(GetParam().fragment), std::string::npos) << message;
    EXPECT_EQ(message.find('\n'), std::string::npos) << message;
  }
}

INSTANTIATE_TEST_SUITE_P(All, BadSettings, testing::ValuesIn(kBadSettings),
                         [](const auto& setting) { return std::string(setting.param.name); });

}  // namespace
}  // namespace quorvex::tests
