#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>

#include "tools/detect/detect_run.h"
#include "tools/detect/detect_worker.h"
#include "tools/detect/detection_result.h"
#include "tools/detect/list_folder.h"
#include "tools/errors.h"
#include "tools/lists/option_text.h"
#include "tools/lists/points_file.h"
#include "tools/pictures/levels_option.h"
#include "tools/pictures/picture_file.h"
#include "tools/subcommands.h"
#include "tools/system/choice_option.h"
#include "tools/system/path_option.h"
#include "tools/system/worker_process.h"

namespace quorvex::tools {
namespace {

constexpr int kLargestSpan = 1000;       // rows or columns
constexpr int kLargestRowSteps = 32768;  // pixels; the widest picture that is read
constexpr int kMostWorkers = 64;

struct WorkerOptions {
  std::filesystem::path image;
  std::filesystem::path directory;
  DetectParameters parameters;
};

int RunWorker(const WorkerOptions& options) {
  const DetectionResult result =
      DetectInDirectory(options.image, options.directory, options.parameters);
  try {
    WriteDetectionResult(result, options.directory / kResultFile);
  } catch (const std::runtime_error&) {
    // The command, which waits for the result, tells that there is none.
  }
  return kExitSuccess;
}

void AddParameters(CLI::App& command, DetectParameters& parameters) {
  command
      .add_option("--row-span", parameters.rowSpan,
                  "rows looked for beyond the centre row, 0 to 1000")
      ->check(CLI::Range(0, kLargestSpan))
      ->option_text("N=20");
  command
      .add_option("--column-span", parameters.columnSpan,
                  "columns looked for beyond the centre column, 0 to 1000")
      ->check(CLI::Range(0, kLargestSpan))
      ->option_text("N=20");
  command
      .add_option("--row-steps", parameters.rowSteps,
                  "how far a row may run from one mark to the next [pixels]; at least the widest "
                  "spacing + 10, and above 121")
      ->check(CLI::Range(1, kLargestRowSteps))
      ->option_text("N=300");
  CLI::Option* pad = command.add_flag(
      "--pad", parameters.pad,
      "images whose size is not a multiple of 4 pixels are grown at the right and at the bottom, "
      "and a line says so; positions stay those of the image. So it is without this option, too");
  command
      .add_flag_callback(
          "--no-pad", [&parameters] { parameters.pad = false; }, "refuse such images")
      ->excludes(pad);
  AddLevelsOption(command, parameters.levels);
  command.add_flag_callback(
      "--no-check", [&parameters] { parameters.check = false; },
      "do not compare the points with what the direct detection finds");
  command
      .add_option_function<std::string>(
          "--renumber",
          [&parameters](const std::string& text) { parameters.renumber = ParseGridSize(text); },
          "number the points by their geometry, as 'points renumber' does; an image without a "
          "complete grid of this size counts as failed")
      ->option_text("ROWSxCOLUMNS");
  AddChoiceOption(
      command, "--rearrange", kCameraSides,
      [&parameters](CameraSide side) { parameters.rearrange = side; },
      "then number them for the left or the right camera, as 'points rearrange' does with the "
      "number of columns found; points without a column are dropped")
      ->option_text("left|right");
}

void AddOutputOptions(CLI::App& command, DetectOptions& options) {
  AddChoiceOption(
      command, "--format", kOutputFormats,
      [&options](OutputFormat format) { options.format = format; },
      "csv, json or text; vnl or opencv for tables that programs for calibration read; by the "
      "ending of the output's name when not given (.csv, .json, .txt, .vnl, .yml), else csv")
      ->option_text("NAME");
  command
      .add_option("--pitch", options.pitch,
                  "from one mark to the next [mm], for the object points of the format opencv")
      ->option_text("MM");
  AddPathOption(command, "-o,--output", options.output,
                "file for the points, instead of standard output, which - stands for")
      ->option_text("FILE");
  AddPathOption(command, "--overlay", options.overlay,
                "draw the points over the image, into FILE.png. Of several images, DIR/ (a folder "
                "that is there, or whose name ends in /) takes one picture each, named as the "
                "image; so does a file name with {name} in it, such as 'seen-{name}.png'")
      ->option_text("FILE.png|DIR/");
  std::string diagnosticsHelp =
      "keep the pictures of the detection's stages in DIR; with several images in a folder per "
      "image";
  if (IsListFolderShared()) {
    diagnosticsHelp += ", and one after the other, since all write their lists to drive D:";
  }
  AddPathOption(command, "--diagnostics", options.diagnostics, diagnosticsHelp)->option_text("DIR");
  AddPathOption(
      command, "--report", options.report,
      "show the run in DIR/index.html, one file for a browser: a table of the images, and "
      "each with its points, residuals, stages and what went wrong")
      ->option_text("DIR");
  command.add_flag("-q,--quiet", options.isQuiet, "say nothing on standard error but failures");
  command.add_flag("--progress", options.showsProgress,
                   "say how far the run is and how long it will take, even where standard error is "
                   "no terminal");
  command.add_flag("--resume", options.resumes,
                   "go on with the CSV file of --output: images that it holds are skipped, others "
                   "are added one by one, so that a run that was stopped loses nothing");
  command
      .add_option("-j,--jobs", options.parallel, "how many images are worked on at once, 1 to 64")
      ->check(CLI::Range(1, kMostWorkers))
      ->option_text("N=1");
}

void AddBoardSize(CLI::App& command, CLI::Option& isPrecise, precise::Options& options) {
  CLI::Option* rows = command.add_option(
      "--rows", options.boardRows,
      "with --precise and --columns: marks in a column of the whole board, 1 to 1000. Rows and "
      "columns are then the board's, also of a board that the picture cuts off, where its end on "
      "the other side is seen; a sentence says where they are not. An image with more counts as "
      "failed");
  CLI::Option* columns =
      command.add_option("--columns", options.boardColumns, "marks in a row of it, 1 to 1000");
  rows->needs(&isPrecise)->needs(columns)->check(CLI::Range(1, kLargestSpan))->option_text("R");
  columns->needs(&isPrecise)->needs(rows)->check(CLI::Range(1, kLargestSpan))->option_text("C");
}

void AddDirectDetection(CLI::App& command, DetectOptions& options) {
  CLI::Option* isPrecise = command.add_flag(
      "--precise", options.isPrecise,
      "detect directly: every visible mark, measured to some thousandths of a pixel, with its "
      "covariance; pictures of any size");
  for (const char* other : {"--row-span", "--column-span", "--row-steps", "--pad", "--no-pad",
                            "--renumber", "--rearrange", "--diagnostics", "--no-check"}) {
    isPrecise->excludes(command.get_option(other));
  }
  command
      .add_flag("--predict", options.preciseOptions.predictsMissing,
                "with --precise: also list the places within the grid where no mark is seen")
      ->needs(isPrecise);
  command
      .add_flag("--continuous-lines", options.preciseOptions.hasContinuousLines,
                "with --precise: the board's strokes may run through from crossing to crossing")
      ->needs(isPrecise);
  AddBoardSize(command, *isPrecise, options.preciseOptions);
  command.add_flag("--strict", options.isStrict,
                   "exit code 1 when the check has something to say about the points, or rows and "
                   "columns are not known to be the board's");
  command
      .add_option_function<std::string>(
          "--expect",
          [&options](const std::string& text) { options.expected = ParseGridSize(text); },
          "an image with another grid of points counts as failed")
      ->option_text("ROWSxCOLUMNS");
}

void AddWorkerCommand(CLI::App& app, Action& action) {
  const auto options = std::make_shared<WorkerOptions>();
  CLI::App* command = app.add_subcommand(kWorkerCommand, "");
  command->group("");  // not for people: hidden from the help
  AddPathOption(*command, "image", options->image, "")->required();
  AddPathOption(*command, "directory", options->directory, "")->required();
  AddParameters(*command, options->parameters);
  command->add_option("--stage-characters", options->parameters.stageCharacters, "");
  command->callback([options, &action] { action = [options] { return RunWorker(*options); }; });
}

}  // namespace

void AddDetectCommand(CLI::App& app, Action& action) {
  const auto options = std::make_shared<DetectOptions>();
  CLI::App* command = app.add_subcommand("detect", "Find the calibration points in images");
  AddPathsOption(*command, "images", options->images, ReadFormats() + " files")
      ->required()
      ->option_text("IMAGE...");
  AddParameters(*command, options->parameters);
  AddOutputOptions(*command, *options);
  AddDirectDetection(*command, *options);
  command->footer(
      "Positions are pixels, x to the right and y down, integer at pixel centres. A point is\n"
      "'seen' when its mark is in the picture, and 'filled' when its place follows from the\n"
      "points around it. The points are compared with what the direct detection finds; where they\n"
      "disagree, a sentence on standard error says how. With --precise its own points are listed:\n"
      "'measured', 'doubtful' (on two arms only, or off the others' grid) or 'predicted', with "
      "the\n"
      "covariance in pixels squared. A vnl or opencv table leaves out, with a sentence, an image\n"
      "that does not show which of the board's marks are in it. Of several images, one that fails "
      "has a row or an entry with "
      "the\n"
      "reason; when all fail, nothing is written.\n"
      "Exit code 0: points were found in every image; 1: an image was read but nothing was found\n"
      "in it, or its points cannot be numbered as wanted; 2: bad usage or input.\n\n"
      "Examples:\n"
      "  quorvex detect target.bmp --output points.csv --overlay points.png\n"
      "  quorvex detect left.bmp right.bmp --format json -j 2 --overlay seen/\n"
      "  quorvex detect *.png -o points.csv --report seen\n"
      "  quorvex detect photo.jpg --row-steps 400 --diagnostics stages\n"
      "  quorvex detect deep.tif --levels 0,4095 --precise -o points.csv\n"
      "  quorvex detect left.bmp right.bmp --precise --expect 9x9 -o points.json\n"
      "  quorvex detect left.bmp --renumber 9x9 --rearrange left\n"
      "  quorvex detect *.png --precise --expect 9x9 -o corners.vnl\n"
      "  quorvex detect *.png --precise --expect 9x9 --pitch 30 -o points.yml\n"
      "  quorvex detect *.png --precise --resume --progress -o points.csv");
  command->callback([options, &action] {
    action = [options] {
      try {
        return RunDetect(*options);
      } catch (const Interrupted& stop) {
        return stop.exitCode;
      }
    };
  });
  AddWorkerCommand(app, action);
}

}  // namespace quorvex::tools
