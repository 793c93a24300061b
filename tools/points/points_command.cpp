#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "tools/errors.h"
#include "tools/lists/option_text.h"
#include "tools/lists/point_edits.h"
#include "tools/lists/points_file.h"
#include "tools/pictures/levels_option.h"
#include "tools/pictures/picture_file.h"
#include "tools/points/points_refine.h"
#include "tools/points/points_run.h"
#include "tools/subcommands.h"
#include "tools/system/choice_option.h"
#include "tools/system/path_option.h"

namespace quorvex::tools {
namespace {

void AddFile(CLI::App& verb, PointsRun& run) {
  AddPathOption(verb, "file", run.input, "CSV or JSON file that detect wrote")
      ->required()
      ->option_text("FILE");
  verb.add_option("--image", run.image,
                  "the image whose points are meant, where FILE holds several")
      ->option_text("NAME");
}

CLI::Option* AddFormat(CLI::App& verb, PointsRun& run) {
  return AddChoiceOption(
             verb, "--format", kPointsFormats, [&run](PointsFormat format) { run.format = format; },
             "csv, json or text; when not given, as the name of the output ends, else as FILE")
      ->option_text("NAME");
}

CLI::Option* AddOutput(CLI::App& verb, PointsRun& run) {
  return AddPathOption(verb, "-o,--output", run.output,
                       "file for the list; standard output when not given or -")
      ->option_text("FILE");
}

void AddEditOutputs(CLI::App& verb, PointsRun& run) {
  CLI::Option* format = AddFormat(verb, run);
  CLI::Option* output = AddOutput(verb, run);
  verb.add_flag("-i,--in-place", run.isInPlace,
                "write the list back to FILE, its other images as they are")
      ->excludes(format)
      ->excludes(output);
}

void AddList(CLI::App& points, Action& action) {
  const auto run = std::make_shared<PointsRun>();
  CLI::App& verb = *points.add_subcommand("list", "Show all points");
  AddFile(verb, *run);
  AddFormat(verb, *run);
  AddOutput(verb, *run);
  verb.callback([run, &action] { action = [run] { return RunConversion(*run); }; });
}

// Two formats stand for a name that asks for none.
void RequireFormat(const PointsRun& run) {
  if (!run.format && FormatByName(run.output, PointsFormat::kCsv) !=
                         FormatByName(run.output, PointsFormat::kJson)) {
    throw InputError("convert needs --format, or an --output that ends in .csv, .json or .txt");
  }
}

void AddConvert(CLI::App& points, Action& action) {
  const auto run = std::make_shared<PointsRun>();
  CLI::App& verb = *points.add_subcommand("convert", "Write the list in another format");
  AddFile(verb, *run);
  AddFormat(verb, *run)
      ->description("csv, json or text; as the name of the output ends when not given");
  AddOutput(verb, *run);
  verb.callback([run, &action] {
    action = [run] {
      RequireFormat(*run);
      return RunConversion(*run);
    };
  });
}

void AddQuery(CLI::App& points, Action& action) {
  struct Options {
    PointsRun run;
    int id = 0;
  };
  const auto options = std::make_shared<Options>();
  CLI::App& verb = *points.add_subcommand("query", "Show the first point with an id");
  AddFile(verb, options->run);
  verb.add_option("id", options->id, "number of the point")->required()->option_text("ID");
  AddFormat(verb, options->run);
  AddOutput(verb, options->run);
  verb.callback(
      [options, &action] { action = [options] { return RunQuery(options->run, options->id); }; });
}

void AddDelete(CLI::App& points, Action& action) {
  struct Options {
    PointsRun run;
    std::optional<int> id;
    std::string at;
  };
  const auto options = std::make_shared<Options>();
  CLI::App& verb = *points.add_subcommand("delete", "Remove points by id or by position");
  AddFile(verb, options->run);
  CLI::Option_group& which = *verb.add_option_group("Which points");
  which.add_option("--id", options->id, "every point with this id")->option_text("N");
  which
      .add_option("--at", options->at,
                  "every point less than 9 pixels from this position both in x and in y")
      ->option_text("X,Y");
  which.require_option(1);
  AddEditOutputs(verb, options->run);
  verb.callback([options, &action] {
    action = [options] {
      return RunEdit(options->run, [options](PointList& list) {
        if (options->id) {
          DeletePoints(*options->id, list);
        } else {
          DeletePointsAt(ParsePosition(options->at), list);
        }
      });
    };
  });
}

void AddAdd(CLI::App& points, Action& action) {
  struct Options {
    PointsRun run;
    std::string at;
  };
  const auto options = std::make_shared<Options>();
  CLI::App& verb = *points.add_subcommand("add", "Append a point; its id, row and column are -1");
  AddFile(verb, options->run);
  verb.add_option("--at", options->at, "position [pixels]")->required()->option_text("X,Y");
  AddEditOutputs(verb, options->run);
  verb.callback([options, &action] {
    action = [options] {
      return RunEdit(options->run,
                     [options](PointList& list) { AddPoint(ParsePosition(options->at), list); });
    };
  });
}

void AddMove(CLI::App& points, Action& action) {
  struct Options {
    PointsRun run;
    int id = 0;
    std::string to;
    std::optional<int> row;
    std::optional<int> column;
  };
  const auto options = std::make_shared<Options>();
  CLI::App& verb = *points.add_subcommand("move", "Move the first point with an id; the id stays");
  AddFile(verb, options->run);
  verb.add_option("id", options->id, "number of the point")->required()->option_text("ID");
  verb.add_option("--to", options->to, "new position [pixels]")->required()->option_text("X,Y");
  verb.add_option("--row", options->row, "new row; unchanged when not given")->option_text("R");
  verb.add_option("--col", options->column, "new column; unchanged when not given")
      ->option_text("C");
  AddEditOutputs(verb, options->run);
  verb.callback([options, &action] {
    action = [options] {
      return RunEdit(options->run, [options](PointList& list) {
        MovePoint(options->id, ParsePosition(options->to), options->row, options->column, list);
      });
    };
  });
}

void AddRenumber(CLI::App& points, Action& action) {
  struct Options {
    PointsRun run;
    GridSize grid;
  };
  const auto options = std::make_shared<Options>();
  CLI::App& verb = *points.add_subcommand("renumber", "Number a complete grid by its geometry");
  verb.footer(
      "Row 0 is the top one, column 0 the left one; id = row * columns + column + 1. The list is\n"
      "ordered column by column. The spacing must shrink from the middle outwards, as in a\n"
      "fisheye image.");
  AddFile(verb, options->run);
  verb.add_option("--rows", options->grid.rows, "rows of the grid")
      ->required()
      ->check(CLI::Range(1, kMostGridLines))
      ->option_text("R");
  verb.add_option("--columns", options->grid.columns, "columns of the grid")
      ->required()
      ->check(CLI::Range(1, kMostGridLines))
      ->option_text("C");
  AddEditOutputs(verb, options->run);
  verb.callback([options, &action] {
    action = [options] {
      return RunEdit(options->run, [options](PointList& list) { Renumber(options->grid, list); });
    };
  });
}

void AddRearrange(CLI::App& points, Action& action) {
  struct Options {
    PointsRun run;
    CameraSide side = CameraSide::kLeft;
    std::optional<int> count;
  };
  const auto options = std::make_shared<Options>();
  CLI::App& verb =
      *points.add_subcommand("rearrange", "Number the grid for the left or the right camera");
  verb.footer(
      "Column k becomes row k, and the point with the largest y in it gets column 0;\n"
      "id = row * N + column + 1. Points without a column from 0 to N - 1 are removed. Where a\n"
      "column does not hold N points, left counts from 0 at the largest y up, right from N - 1 at\n"
      "the smallest y down.");
  AddFile(verb, options->run);
  AddChoiceOption(
      verb, "side", kCameraSides, [options](CameraSide side) { options->side = side; },
      "left or right")
      ->required()
      ->option_text("left|right");
  verb.add_option("--count", options->count,
                  "columns that are read, and the N of the ids; the columns of the list when not "
                  "given")
      ->check(CLI::Range(1, kMostGridLines))
      ->option_text("N");
  AddEditOutputs(verb, options->run);
  verb.callback([options, &action] {
    action = [options] {
      return RunEdit(options->run, [options](PointList& list) {
        Rearrange(options->side, options->count.value_or(CountColumns(list)), list);
      });
    };
  });
}

void AddRefine(CLI::App& points, Action& action) {
  struct Options {
    PointsRun run;
    std::filesystem::path picture;
    std::optional<GreyLevels> levels;
  };
  const auto options = std::make_shared<Options>();
  CLI::App& verb = *points.add_subcommand("refine", "Measure the points on their picture");
  verb.footer(
      "Each point that lies within about 4 pixels of a mark is moved to it and gets a covariance.\n"
      "A point that is no mark stays where it is, and a sentence says why.");
  AddFile(verb, options->run);
  AddPathOption(verb, "picture", options->picture, ReadFormats() + " file")
      ->required()
      ->option_text("IMAGE");
  AddLevelsOption(verb, options->levels);
  AddEditOutputs(verb, options->run);
  verb.callback([options, &action] {
    action = [options] { return RunRefinement(options->run, options->picture, options->levels); };
  });
}

}  // namespace

void AddPointsCommand(CLI::App& app, Action& action) {
  CLI::App& points = *app.add_subcommand("points", "Show, correct and renumber detected points");
  points.require_subcommand(1);
  AddList(points, action);
  AddQuery(points, action);
  AddDelete(points, action);
  AddAdd(points, action);
  AddMove(points, action);
  AddRenumber(points, action);
  AddRearrange(points, action);
  AddRefine(points, action);
  AddConvert(points, action);
  points.footer(
      "Positions are pixels, x to the right and y down, and are kept as 32-bit floats. The list\n"
      "goes to standard output in the format of FILE; of a CSV file only the columns that detect\n"
      "writes are kept. A point that was added or moved counts as seen, where the list tells the\n"
      "kind of its points. Nothing is written when there is nothing to change.\n"
      "Exit code 0: done; 1: the list does not allow it; 2: bad usage or input.\n\n"
      "Examples:\n"
      "  quorvex points query points.csv 41\n"
      "  quorvex points delete points.csv --at 812,640 --in-place\n"
      "  quorvex points add points.csv --at 815.5,642 --in-place\n"
      "  quorvex points refine points.csv board.bmp --in-place\n"
      "  quorvex points renumber points.csv --rows 9 --columns 9 --output numbered.csv\n"
      "  quorvex points rearrange numbered.csv left --count 9 --output left.csv\n"
      "  quorvex points convert left.csv --format json");
}

}  // namespace quorvex::tools
