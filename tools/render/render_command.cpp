#include <fmt/format.h>

#include <cstdio>
#include <filesystem>
#include <functional>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <vector>

#include "tools/errors.h"
#include "tools/lists/option_text.h"
#include "tools/pictures/picture_file.h"
#include "tools/render/camera_model_names.h"
#include "tools/render/presets.h"
#include "tools/render/render_target.h"
#include "tools/subcommands.h"
#include "tools/system/choice_option.h"
#include "tools/system/file_name.h"
#include "tools/system/output_file.h"
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
  quorvex render --pattern chessboard --output squares.png
      a chessboard of the same size and pose
  quorvex render --missing 0,3 --missing 5,5 --output gaps.bmp
      two marks left out

The truth is a table row,col,x,y,missing: pixels to the right and down from the
top row, integer values at pixel centres, row 0 and column 0 at the top left.)";

// Changes that the options make to the preset, which is known only after all of them are parsed.
using Changes = std::vector<std::function<void(RenderSettings&)>>;

constexpr Choice<Pattern> kPatterns[] = {{"crosses", Pattern::kCrosses},
                                         {"chessboard", Pattern::kChessboard}};

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
  AddSetting<int>(command, changes, "--width", &RenderSettings::width,
                  "width of the picture, 4 to 32768 [pixels]")
      ->group("Camera");
  AddSetting<int>(command, changes, "--height", &RenderSettings::height,
                  "height of the picture, 4 to 32768 [pixels]")
      ->group("Camera");
  AddChoiceOption(
      command, "--model", kCameraModelNames,
      [&changes](CameraModel model) {
        changes.push_back([model](RenderSettings& settings) { settings.model = model; });
      },
      "equidistant, kannala-brandt, pinhole, equisolid or stereographic")
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeLast)
      ->type_name("NAME")
      ->group("Camera");
  number("--focal-length", &RenderSettings::focalLength, "focal length [pixels]");
  number("--k1", &RenderSettings::k1, "kannala-brandt: coefficient of the third power");
  number("--k2", &RenderSettings::k2, "of the fifth power");
  number("--k3", &RenderSettings::k3, "of the seventh power");
  number("--k4", &RenderSettings::k4, "of the ninth power");
  number("--principal-x", &RenderSettings::principalX,
         "x of the principal point, an integer at a pixel's centre; (width - 1) / 2 when not given "
         "[pixels]");
  number("--principal-y", &RenderSettings::principalY,
         "its y; (height - 1) / 2 when not given [pixels]");
  number("--distance", &RenderSettings::distance, "from the camera to the board [mm]");
  number("--shift-x", &RenderSettings::shiftX, "moves the board to the right [mm]");
  number("--shift-y", &RenderSettings::shiftY, "moves the board down [mm]");
  number("--tilt-x", &RenderSettings::tiltX, "moves the lower edge away, -80 to 80 [degrees]");
  number("--tilt-y", &RenderSettings::tiltY, "brings the right edge nearer, -80 to 80 [degrees]");
  number("--rotation", &RenderSettings::rotation,
         "clockwise in the board's plane, -45 to 45 [degrees]");
}

void AddBoardOptions(CLI::App& command, RenderRequest& request) {
  const auto number = [&](const char* name, double RenderSettings::*field, const char* help) {
    AddSetting<double>(command, request.changes, name, field, help)->group("Board");
  };
  Changes& changes = request.changes;
  AddChoiceOption(
      command, "--pattern", kPatterns,
      [&changes](Pattern pattern) {
        changes.push_back([pattern](RenderSettings& settings) { settings.pattern = pattern; });
      },
      "crosses or chessboard, whose inner corners are where the marks would be")
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeLast)
      ->type_name("NAME")
      ->group("Board");
  AddSetting<int>(command, changes, "--rows", &RenderSettings::rows, "marks in a column, 1 to 1000")
      ->group("Board");
  AddSetting<int>(command, request.changes, "--columns", &RenderSettings::columns,
                  "marks in a row, 1 to 1000")
      ->group("Board");
  number("--pitch", &RenderSettings::pitch, "from one mark to the next [mm]");
  number("--arm", &RenderSettings::armLength,
         "from a mark's centre to the tip of an arm; below half the pitch [mm]");
  number("--stroke", &RenderSettings::strokeWidth, "width of the strokes [mm]");
  number("--margin", &RenderSettings::margin,
         "from the outermost marks' centres or squares to the board's edge [mm]");
  command
      .add_option("--missing", request.missing,
                  "a mark to leave out, counted from 0 at the top left; may be repeated and\n"
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
  number("--board-level", &RenderSettings::boardLevel, "of the board, 0 to 255 [grey levels]");
  number("--mark-level", &RenderSettings::markLevel, "of the marks, 0 to 255 [grey levels]");
  number("--background-level", &RenderSettings::backgroundLevel,
         "around the board, 0 to 255 [grey levels]");
  number("--gradient-x", &RenderSettings::gradientX,
         "relative change of the light from the middle to the right edge, -1 to 1");
  number("--gradient-y", &RenderSettings::gradientY,
         "relative change of the light from the middle to the bottom edge, -1 to 1");
  number("--blur", &RenderSettings::blurSigma, "sigma of the blur, 0 to 100 [pixels]");
  number("--noise", &RenderSettings::noiseSigma, "sigma of the noise, 0 to 255 [grey levels]");
  AddSetting<std::uint64_t>(command, changes, "--seed", &RenderSettings::seed, "of the noise")
      ->check([](const std::string& text) {  // a negative number would wrap around
        return text.find('-') == std::string::npos ? "" : "a seed is not negative";
      })
      ->group("Light");
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
      settings.missing.push_back(ParseGridPosition(text));
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
  if (IsStandardOutput(truth)) {
    WriteToStandardOutput(csv);
    pictureFile.Commit();
    return;
  }
  StagedFile truthFile(truth, std::vector<std::uint8_t>(csv.begin(), csv.end()));
  pictureFile.Commit();
  truthFile.Commit();
}

RenderedTarget RenderWithinMemory(const RenderSettings& settings) {
  try {
    return RenderTarget(settings);
  } catch (const std::bad_alloc&) {
    const std::uint64_t pixels =
        static_cast<std::uint64_t>(settings.width) * static_cast<std::uint64_t>(settings.height);
    throw InputError(fmt::format("out of memory: {} x {} pixels take {} bytes and more",
                                 settings.width, settings.height, pixels * sizeof(float)));
  }
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
  const RenderedTarget target = RenderWithinMemory(settings);
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
  AddPathOption(command, "-o,--output", request->output, "the picture to write, .bmp or .png")
      ->type_name("FILE");
  AddPathOption(
      command, "--truth", request->truth,
      "file for the marks' positions, - for standard output; the output's name with .csv when not "
      "given")
      ->type_name("FILE");
  command
      .add_option("--preset", request->preset,
                  "settings to start from; every other option changes one")
      ->type_name("NAME")
      ->capture_default_str();
  command.add_flag("--list-presets", request->listsPresets, "show the presets and stop");
  command.add_flag("-q,--quiet", request->isQuiet, "say nothing on standard error but failures");
  AddCameraOptions(command, request->changes);
  AddBoardOptions(command, *request);
  AddLightOptions(command, request->changes);
  command.callback([request, &action] { action = [request] { return RunRender(*request); }; });
}

}  // namespace quorvex::tools
