#include <fmt/format.h>

#include <cstdio>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "tools/errors.h"
#include "tools/pictures/picture_file.h"
#include "tools/render/presets.h"
#include "tools/render/render_target.h"
#include "tools/subcommands.h"
#include "tools/system/file_name.h"
#include "tools/system/path_option.h"
#include "tools/system/staged_file.h"

namespace quorvex::tools {
namespace {

constexpr const char* kExamples = R"(Examples:
  quorvex render --output board.bmp
      the default board, with its truth in board.csv
  quorvex render --preset tilted --noise 0 --output board.png --truth marks.csv
      a preset with one value changed
  quorvex render --model pinhole --focal-length 1300 --distance 300 --rows 5 --columns 5
      --output flat.png
      the default board through another camera
  quorvex render --missing 0,3 --missing 5,5 --output gaps.bmp
      two marks left out

The truth is a table row,col,x,y,missing: pixels to the right and down from the
top row, integer values at pixel centres, row 0 and column 0 at the top left.)";

// Changes that the options make to the preset, which is known only after all of them are parsed.
using Changes = std::vector<std::function<void(RenderSettings&)>>;

struct RenderRequest {
  std::string preset = kDefaultPreset;
  bool listsPresets = false;
  bool isQuiet = false;
  std::filesystem::path output;
  std::filesystem::path truth;
  std::vector<std::string> missing;
  Changes changes;
};

template <typename Value, typename Field>
CLI::Option* AddSetting(CLI::App& command, Changes& changes, const std::string& name,
                        Field RenderSettings::*field, const std::string& help) {
  return command
      .add_option_function<Value>(
          name,
          [&changes, field](const Value& value) {
            changes.push_back(
                [field, value](RenderSettings& settings) { settings.*field = value; });
          },
          help)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
}

void AddCameraOptions(CLI::App& command, Changes& changes) {
  const auto number = [&](const char* name, auto field, const char* help) {
    AddSetting<double>(command, changes, name, field, help)->group("Camera");
  };
  AddSetting<int>(command, changes, "--width", &RenderSettings::width, "Pixels, 4 to 32768")
      ->group("Camera");
  AddSetting<int>(command, changes, "--height", &RenderSettings::height, "Pixels, 4 to 32768")
      ->group("Camera");
  const std::map<std::string, CameraModel> models = {
      {"equidistant", CameraModel::kEquidistant},
      {"kannala-brandt", CameraModel::kKannalaBrandt},
      {"pinhole", CameraModel::kPinhole}};
  AddSetting<CameraModel>(command, changes, "--model", &RenderSettings::model,
                          "equidistant, kannala-brandt or pinhole")
      ->transform(CLI::Transformer(models).description(""))
      ->type_name("NAME")
      ->group("Camera");
  number("--focal-length", &RenderSettings::focalLength, "Pixels");
  number("--k1", &RenderSettings::k1, "Kannala-Brandt coefficient of the third power");
  number("--k2", &RenderSettings::k2, "Of the fifth power");
  number("--k3", &RenderSettings::k3, "Of the seventh power");
  number("--k4", &RenderSettings::k4, "Of the ninth power");
  number("--principal-x", &RenderSettings::principalX,
         "Pixels, integer values at pixel centres; (width - 1) / 2 if not given");
  number("--principal-y", &RenderSettings::principalY, "Pixels; (height - 1) / 2 if not given");
  number("--distance", &RenderSettings::distance, "Millimetres from the camera to the board");
  number("--shift-x", &RenderSettings::shiftX, "Millimetres; moves the board to the right");
  number("--shift-y", &RenderSettings::shiftY, "Millimetres; moves the board down");
  number("--tilt-x", &RenderSettings::tiltX, "Degrees, -80 to 80; moves the lower edge away");
  number("--tilt-y", &RenderSettings::tiltY, "Degrees, -80 to 80; brings the right edge nearer");
  number("--rotation", &RenderSettings::rotation, "Degrees clockwise in the plane, -45 to 45");
}

void AddBoardOptions(CLI::App& command, RenderRequest& request) {
  const auto number = [&](const char* name, double RenderSettings::*field, const char* help) {
    AddSetting<double>(command, request.changes, name, field, help)->group("Board");
  };
  AddSetting<int>(command, request.changes, "--rows", &RenderSettings::rows, "Marks, 1 to 1000")
      ->group("Board");
  AddSetting<int>(command, request.changes, "--columns", &RenderSettings::columns,
                  "Marks, 1 to 1000")
      ->group("Board");
  number("--pitch", &RenderSettings::pitch, "Millimetres from mark to mark");
  number("--arm", &RenderSettings::armLength,
         "Millimetres from a mark's centre to the tip; below half the pitch");
  number("--stroke", &RenderSettings::strokeWidth, "Millimetres; width of the strokes");
  number("--margin", &RenderSettings::margin,
         "Millimetres from the outermost marks' centres to the edge");
  command
      .add_option("--missing", request.missing,
                  "A mark to leave out, counted from 0 at the top left; may be repeated and\n"
                  "replaces the preset's list; 'none' empties it")
      ->type_name("ROW,COL")
      ->expected(1)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
      ->group("Board");
}

void AddLightOptions(CLI::App& command, Changes& changes) {
  const auto number = [&](const char* name, double RenderSettings::*field, const char* help) {
    AddSetting<double>(command, changes, name, field, help)->group("Light");
  };
  number("--board-level", &RenderSettings::boardLevel, "Grey level, 0 to 255");
  number("--mark-level", &RenderSettings::markLevel, "Grey level, 0 to 255");
  number("--background-level", &RenderSettings::backgroundLevel, "Grey level, 0 to 255");
  number("--gradient-x", &RenderSettings::gradientX,
         "Relative change of the light from the middle to the right edge, -1 to 1");
  number("--gradient-y", &RenderSettings::gradientY,
         "Relative change of the light from the middle to the bottom edge, -1 to 1");
  number("--blur", &RenderSettings::blurSigma, "Pixels, 0 to 100; sigma of the blur");
  number("--noise", &RenderSettings::noiseSigma, "Grey levels, 0 to 255; sigma of the noise");
  AddSetting<std::uint64_t>(command, changes, "--seed", &RenderSettings::seed, "Of the noise")
      ->check([](const std::string& text) {  // a negative number would wrap around
        return text.find('-') == std::string::npos ? "" : "a seed is not negative";
      })
      ->group("Light");
}

GridPosition ParseMissing(const std::string& text) {
  GridPosition mark;
  int used = 0;
  if (std::sscanf(text.c_str(), "%d,%d%n", &mark.row, &mark.column, &used) != 2 ||
      static_cast<std::size_t>(used) != text.size()) {
    throw InputError(
        fmt::format("'{}' is not a mark; write it as row,column, for example 2,3", text));
  }
  return mark;
}

RenderSettings SettingsOf(const RenderRequest& request) {
  RenderSettings settings = PresetByName(request.preset);
  for (const auto& change : request.changes) {
    change(settings);
  }
  if (!request.missing.empty()) {
    settings.missing.clear();
  }
  for (const std::string& text : request.missing) {
    if (text != "none") {
      settings.missing.push_back(ParseMissing(text));
    }
  }
  return settings;
}

int ListPresets() {
  for (const Preset& preset : AllPresets()) {
    fmt::print("{:<10}{}\n", preset.name, preset.summary);
  }
  return kExitSuccess;
}

// Both files are staged before one is put in place, so that a failure leaves neither.
void WriteBoth(const RenderedTarget& target, const std::filesystem::path& output,
               const std::filesystem::path& truth) {
  const std::string csv = TruthCsv(target.marks);
  StagedFile pictureFile(output, EncodePicture(target.picture, output));
  StagedFile truthFile(truth, std::vector<std::uint8_t>(csv.begin(), csv.end()));
  pictureFile.Commit();
  truthFile.Commit();
}

int RunRender(const RenderRequest& request) {
  if (request.listsPresets) {
    return ListPresets();
  }
  if (request.output.empty()) {
    throw InputError("an output picture is needed: --output FILE.bmp or FILE.png");
  }
  RequirePictureEnding(request.output);
  const std::filesystem::path truth =
      request.truth.empty() ? std::filesystem::path(request.output).replace_extension(".csv")
                            : request.truth;
  if (truth == request.output) {
    throw InputError(fmt::format("picture and truth cannot both be {}", Utf8Name(truth)));
  }
  const RenderSettings settings = SettingsOf(request);
  const RenderedTarget target = RenderTarget(settings);
  WriteBoth(target, request.output, truth);
  if (!request.isQuiet) {
    fmt::print(stderr, "{}: {} x {} pixels, {} x {} marks, {} left out; truth in {}\n",
               Utf8Name(request.output), settings.width, settings.height, settings.rows,
               settings.columns, settings.missing.size(), Utf8Name(truth));
  }
  return kExitSuccess;
}

}  // namespace

void AddRenderCommand(CLI::App& app, Action& action) {
  const auto request = std::make_shared<RenderRequest>();
  CLI::App& command =
      *app.add_subcommand("render", "Render a board of cross marks with known positions");
  command.footer(kExamples);
  AddPathOption(command, "-o,--output", request->output, "The picture to write, .bmp or .png")
      ->type_name("FILE");
  AddPathOption(command, "--truth", request->truth,
                "Where the marks' positions go; the output's name with .csv if not given")
      ->type_name("FILE");
  command
      .add_option("--preset", request->preset,
                  "Settings to start from; every other option changes one")
      ->type_name("NAME")
      ->capture_default_str();
  command.add_flag("--list-presets", request->listsPresets, "Show the presets and stop");
  command.add_flag("-q,--quiet", request->isQuiet, "No summary on standard error");
  AddCameraOptions(command, request->changes);
  AddBoardOptions(command, *request);
  AddLightOptions(command, request->changes);
  command.callback([request, &action] { action = [request] { return RunRender(*request); }; });
}

}  // namespace quorvex::tools
