#include <fmt/format.h>

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "tools/errors.h"
#include "tools/pictures/picture_limits.h"
#include "tools/render/camera_model_names.h"
#include "tools/render/presets.h"
#include "tools/subcommands.h"
#include "tools/system/file_name.h"
#include "tools/system/output_file.h"
#include "tools/system/path_option.h"
#include "tools/system/staged_file.h"
#include "tools/target/paper.h"
#include "tools/target/setup_report.h"
#include "tools/target/side_lengths.h"
#include "tools/target/target_drawing.h"
#include "tools/target/target_layout.h"

namespace quorvex::tools {
namespace {

constexpr const char* kExamples = R"(Examples:
  quorvex target --rows 9 --columns 9 --pitch 30 --arm 12.75 --stroke 0.5
      --paper A3 --output target.pdf
      a board to print at 100 %, with rulers to check the print
  quorvex target --rows 9 --columns 9 --pitch 30 --arm 12.75 --stroke 0.5
      --check --sensor 2048x2048 --focal 1080 --distance 162
      whether its marks will be found before this camera, and what to change

--check takes the board as it is seen best: turned by 20 degrees and moved by a
quarter of the pitch, so that the picture's middle lies between strokes. The
exit code is 0 when either detection will find the marks, 1 when none will.)";

constexpr const char* kCameraGroup = "Camera";
constexpr double kUsualRotation = 20;     // degrees
constexpr double kUsualShiftPart = 0.25;  // of the pitch
constexpr double kThinnestStroke = 0.05;  // millimetres; a dot of a printer with 508 dpi

struct TargetRequest {
  TargetMarks marks;
  std::string paper;
  std::filesystem::path output;
  bool isQuiet = false;
  bool checks = false;
  std::string sensor;
  RenderSettings camera;  // camera and pose; the board comes from `marks`
  std::optional<double> shiftX;
  std::optional<double> shiftY;
};

DrawingFormat FormatOf(const std::filesystem::path& output) {
  const std::string ending = SmallEnding(output);
  if (ending == ".pdf") {
    return DrawingFormat::kPdf;
  }
  if (ending == ".svg") {
    return DrawingFormat::kSvg;
  }
  throw InputError(fmt::format("{}: a target is written as .pdf or .svg", Utf8Name(output)));
}

int Draw(const TargetRequest& request) {
  if (request.output.empty()) {
    throw InputError("an output is needed: --output FILE.pdf or FILE.svg");
  }
  if (request.paper.empty()) {
    throw InputError("the paper is needed: --paper A4, A3, A2 or WIDTHxHEIGHT in millimetres");
  }
  const DrawingFormat format = FormatOf(request.output);
  const TargetLayout layout = LayOutTarget(request.marks, ParsePaper(request.paper));
  if (request.marks.strokeWidth < kThinnestStroke) {
    throw InputError(fmt::format("strokes of {:g} mm are too thin to print; take {:g} mm or more",
                                 request.marks.strokeWidth, kThinnestStroke));
  }
  WriteFileWhole(request.output, DrawTarget(layout, format));
  if (!request.isQuiet) {
    fmt::print(stderr,
               "{}: {} x {} marks on {}; print at 100 %, then measure the rulers: {:g} mm "
               "across, {:g} mm down\n",
               Utf8Name(request.output), request.marks.rows, request.marks.columns,
               PaperText(layout.paper), layout.acrossLength, layout.downLength);
  }
  return kExitSuccess;
}

// Without a paper one pitch to each side.
BoardMargins MarginsOf(const TargetRequest& request) {
  const TargetMarks& marks = request.marks;
  if (request.paper.empty()) {
    return {marks.pitch, marks.pitch};
  }
  const Paper paper = LayOutTarget(marks, ParsePaper(request.paper)).paper;
  return {(paper.width - (marks.columns - 1) * marks.pitch) / 2,
          (paper.height - (marks.rows - 1) * marks.pitch) / 2};
}

void SetSensor(const std::string& text, RenderSettings& settings) {
  const std::optional<SideLengths> sensor = ParseSideLengths(text);
  const auto isSide = [](double side) {
    return side >= 1 && side <= kMaxPictureSide && side == std::floor(side);
  };
  if (!sensor || !isSide(sensor->width) || !isSide(sensor->height)) {
    throw InputError(
        fmt::format("--sensor: '{}' is no picture size such as 2048x1536, pixels up to {}", text,
                    kMaxPictureSide));
  }
  settings.width = static_cast<int>(sensor->width);
  settings.height = static_cast<int>(sensor->height);
}

RenderSettings SetupOf(const TargetRequest& request) {
  RenderSettings settings = request.camera;
  SetSensor(request.sensor, settings);
  settings.rows = request.marks.rows;
  settings.columns = request.marks.columns;
  settings.pitch = request.marks.pitch;
  settings.armLength = request.marks.armLength;
  settings.strokeWidth = request.marks.strokeWidth;
  settings.margin = request.marks.pitch;
  settings.shiftX = request.shiftX.value_or(kUsualShiftPart * settings.pitch);
  settings.shiftY = request.shiftY.value_or(kUsualShiftPart * settings.pitch);
  return settings;
}

int Check(const TargetRequest& request) {
  if (!request.output.empty()) {
    throw InputError("--check draws nothing; leave --output out");
  }
  if (request.sensor.empty() || request.camera.focalLength == 0 || request.camera.distance == 0) {
    throw InputError("--check needs the camera: --sensor, --focal and --distance");
  }
  const SetupReport report = ReportSetup(SetupOf(request), MarginsOf(request));
  WriteToStandardOutput(report.text);
  return report.isFound ? kExitSuccess : kExitNothingFound;
}

void RequireNoCamera(const CLI::App& command) {
  for (const CLI::Option* option : command.get_options()) {
    if (option->get_group() == kCameraGroup && option->count() > 0) {
      throw InputError(fmt::format("{} is for --check", option->get_name()));
    }
  }
}

void RequireCoefficientsOfTheModel(const CLI::App& command, CameraModel model) {
  for (const char* name : {"--k1", "--k2", "--k3", "--k4"}) {
    if (model != CameraModel::kKannalaBrandt && command.get_option(name)->count() > 0) {
      throw InputError(fmt::format("{} is for --model kannala-brandt", name));
    }
  }
}

void AddBoardOptions(CLI::App& command, TargetRequest& request) {
  TargetMarks& marks = request.marks;
  command.add_option("--rows", marks.rows, "marks in a column, 1 to 1000")->required();
  command.add_option("--columns", marks.columns, "marks in a row, 1 to 1000")->required();
  command.add_option("--pitch", marks.pitch, "from one mark to the next [mm]")->required();
  command
      .add_option("--arm", marks.armLength,
                  "from a mark's centre to the tip of an arm; below half the pitch [mm]")
      ->required();
  command.add_option("--stroke", marks.strokeWidth, "width of the strokes [mm]")->required();
  command
      .add_option(
          "--paper", request.paper,
          "A4, A3, A2 or width and height [mm], turned where the marks fit it so only; with\n"
          "--check one pitch of margin when not given")
      ->type_name("NAME|WxH");
}

void AddCameraOptions(CLI::App& command, TargetRequest& request) {
  RenderSettings& camera = request.camera;
  command.add_option("--sensor", request.sensor, "width and height of the picture [pixels]")
      ->type_name("WxH")
      ->group(kCameraGroup);
  AddChoiceOption(
      command, "--model", kCameraModelNames, [&camera](CameraModel model) { camera.model = model; },
      "equidistant, kannala-brandt, pinhole, equisolid or stereographic; equidistant when not "
      "given")
      ->type_name("NAME")
      ->group(kCameraGroup);
  const auto number = [&command](const char* name, auto& value, const char* help) {
    command.add_option(name, value, help)->group(kCameraGroup);
  };
  number("--focal", camera.focalLength, "focal length [pixels]");
  number("--k1", camera.k1, "kannala-brandt: coefficient of the third power");
  number("--k2", camera.k2, "of the fifth power");
  number("--k3", camera.k3, "of the seventh power");
  number("--k4", camera.k4, "of the ninth power");
  number("--distance", camera.distance, "from the camera to the board [mm]");
  number("--shift-x", request.shiftX,
         "moves the board to the right; a quarter of the pitch when not given [mm]");
  number("--shift-y", request.shiftY, "moves it down; likewise [mm]");
  number("--tilt-x", camera.tiltX, "moves the lower edge away, -80 to 80 [degrees]");
  number("--tilt-y", camera.tiltY, "brings the right edge nearer, -80 to 80 [degrees]");
  number("--rotation", camera.rotation,
         "clockwise in the board's plane, -45 to 45; 20 when not given [degrees]");
}

}  // namespace

void AddTargetCommand(CLI::App& app, Action& action) {
  const auto request = std::make_shared<TargetRequest>();
  request->camera = PresetByName(kDefaultPreset);  // for its light
  request->camera.focalLength = 0;
  request->camera.distance = 0;
  request->camera.rotation = kUsualRotation;
  CLI::App& command =
      *app.add_subcommand("target", "Draw a board of cross marks to print, or check a set-up");
  command.footer(kExamples);
  AddBoardOptions(command, *request);
  AddPathOption(command, "-o,--output", request->output, "the drawing to write, .pdf or .svg")
      ->type_name("FILE");
  command.add_flag("--check", request->checks,
                   "say whether the marks will be found before a camera; draws nothing");
  command.add_flag("-q,--quiet", request->isQuiet, "say nothing on standard error but failures");
  AddCameraOptions(command, *request);
  command.callback([request, &command, &action] {
    action = [request, &command] {
      if (request->checks) {
        RequireCoefficientsOfTheModel(command, request->camera.model);
        return Check(*request);
      }
      RequireNoCamera(command);
      return Draw(*request);
    };
  });
}

}  // namespace quorvex::tools
