// The words of options for the camera models.
#ifndef QUORVEX_TOOLS_RENDER_CAMERA_MODEL_NAMES_H_
#define QUORVEX_TOOLS_RENDER_CAMERA_MODEL_NAMES_H_

#include "tools/render/render_settings.h"
#include "tools/system/choice_option.h"

namespace quorvex::tools {

constexpr Choice<CameraModel> kCameraModelNames[] = {
    {"equidistant", CameraModel::kEquidistant},
    {"kannala-brandt", CameraModel::kKannalaBrandt},
    {"pinhole", CameraModel::kPinhole},
    {"equisolid", CameraModel::kEquisolid},
    {"stereographic", CameraModel::kStereographic}};

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_RENDER_CAMERA_MODEL_NAMES_H_
