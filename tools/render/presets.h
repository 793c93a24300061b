// Named settings of the renderer: pictures that a detection solves, from easy to large.
#ifndef QUORVEX_TOOLS_RENDER_PRESETS_H_
#define QUORVEX_TOOLS_RENDER_PRESETS_H_

#include <string>
#include <vector>

#include "tools/render/render_settings.h"

namespace quorvex::tools {

constexpr const char* kDefaultPreset = "fisheye";

struct Preset {
  std::string name;
  std::string summary;  // one line
  RenderSettings settings;
};

// In the order in which they are shown.
std::vector<Preset> AllPresets();

// Throws InputError (tools/errors.h), listing the known names, for an unknown one.
RenderSettings PresetByName(const std::string& name);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_RENDER_PRESETS_H_
