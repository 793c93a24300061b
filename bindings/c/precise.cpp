// The direct detection.
#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "bindings/c/call.h"
#include "interface/quorvex_precise.h"

struct quorvex_marks {
  quorvex::precise::Result result;
  int columns = 0;  // by which marks are numbered
};

namespace quorvex::bindings {
namespace {

constexpr quorvex_precise_options kDefaults = {QUORVEX_MARKS_EITHER, 0, 0, 0, 0};
constexpr int kLeastSize = 16;         // pixels
constexpr int kMostBoardLines = 1000;  // rows or columns

precise::ImageView ViewOf(const quorvex_image& image) {
  return {image.pixels, image.width, image.height, image.stride};
}

precise::Options ToOptions(const quorvex_precise_options& from) {
  RequireRange(from.colour, QUORVEX_MARKS_EITHER, QUORVEX_MARKS_LIGHT, "options->colour");
  RequireRange(from.predict_missing, 0, 1, "options->predict_missing");
  RequireRange(from.continuous_lines, 0, 1, "options->continuous_lines");
  const bool isKnown = from.board_rows != 0 || from.board_columns != 0;
  RequireRange(from.board_rows, isKnown ? 1 : 0, kMostBoardLines, "options->board_rows");
  RequireRange(from.board_columns, isKnown ? 1 : 0, kMostBoardLines, "options->board_columns");
  precise::Options options;
  options.colour = from.colour == QUORVEX_MARKS_DARK    ? precise::MarkColour::kDark
                   : from.colour == QUORVEX_MARKS_LIGHT ? precise::MarkColour::kLight
                                                        : precise::MarkColour::kEither;
  options.predictsMissing = from.predict_missing != 0;
  options.hasContinuousLines = from.continuous_lines != 0;
  options.boardRows = from.board_rows;
  options.boardColumns = from.board_columns;
  return options;
}

quorvex_verdict ToVerdict(precise::Verdict verdict) {
  switch (verdict) {
    case precise::Verdict::kMeasured:
      return QUORVEX_MARK_MEASURED;
    case precise::Verdict::kDoubtful:
      return QUORVEX_MARK_DOUBTFUL;
    case precise::Verdict::kPredicted:
      break;
  }
  return QUORVEX_MARK_PREDICTED;
}

quorvex_mark ToMark(const precise::Mark& from, int columns) {
  quorvex_mark mark = {};
  mark.id = from.row * columns + from.column + 1;
  mark.row = from.row;
  mark.col = from.column;
  mark.x = from.x;
  mark.y = from.y;
  mark.cxx = from.cxx;
  mark.cxy = from.cxy;
  mark.cyy = from.cyy;
  for (std::size_t i = 0; i < from.seenArms.size(); ++i) {
    mark.seen_arms[i] = from.seenArms[i] ? 1 : 0;
  }
  mark.verdict = ToVerdict(from.verdict);
  return mark;
}

quorvex_facts ToFacts(const precise::PictureFacts& from) {
  quorvex_facts facts = {};
  facts.noise = from.noise;
  facts.stroke_width = from.strokeWidth;
  facts.pitch = from.pitch;
  facts.blur = from.blur;
  facts.arm_length = from.armLength;
  facts.has_light_marks = from.hasLightMarks ? 1 : 0;
  facts.has_fixed_rows = from.hasFixedRows ? 1 : 0;
  facts.has_fixed_columns = from.hasFixedColumns ? 1 : 0;
  const precise::CameraFacts& camera = from.camera;
  std::copy(camera.rotation.begin(), camera.rotation.end(), facts.rotation);
  std::copy(camera.translation.begin(), camera.translation.end(), facts.translation);
  facts.focal_length = camera.focalLength;
  facts.k1 = camera.k1;
  facts.k2 = camera.k2;
  facts.k3 = camera.k3;
  facts.centre_x = camera.centreX;
  facts.centre_y = camera.centreY;
  facts.aspect = camera.aspect;
  facts.residual = camera.residual;
  return facts;
}

quorvex_refined_point ToRefined(const precise::RefinedPoint& from) {
  quorvex_refined_point point = {};
  point.x = from.x;
  point.y = from.y;
  point.cxx = from.cxx;
  point.cxy = from.cxy;
  point.cyy = from.cyy;
  point.is_refined = from.isRefined ? 1 : 0;
  std::snprintf(point.reason, sizeof point.reason, "%s", from.reason.c_str());
  return point;
}

std::unique_ptr<quorvex_marks> Detect(const quorvex_image& image, const precise::Options& options) {
  auto marks = std::make_unique<quorvex_marks>();
  marks->result = precise::Detect(ViewOf(image), options);
  if (marks->result.marks.empty()) {
    throw Failure(QUORVEX_ERROR_NO_TARGET, marks->result.stage + ": " + marks->result.reason);
  }
  marks->columns = options.boardColumns;
  for (const precise::Mark& mark : marks->result.marks) {
    marks->columns = std::max(marks->columns, mark.column + 1);
  }
  return marks;
}

}  // namespace
}  // namespace quorvex::bindings

namespace precise = quorvex::precise;
using namespace quorvex::bindings;

void quorvex_precise_options_init(quorvex_precise_options* options) {
  if (options != nullptr) {
    *options = kDefaults;
  }
}

quorvex_error quorvex_detect_precise(const quorvex_image* image,
                                     const quorvex_precise_options* options,
                                     quorvex_marks** marks) {
  return Run([&] {
    RequireImage(image, kLeastSize);
    RequirePointer(marks, "marks");
    *marks = Detect(*image, ToOptions(options != nullptr ? *options : kDefaults)).release();
  });
}

void quorvex_marks_free(quorvex_marks* marks) { delete marks; }

size_t quorvex_marks_count(const quorvex_marks* marks) {
  return marks != nullptr ? marks->result.marks.size() : 0;
}

quorvex_error quorvex_marks_get(const quorvex_marks* marks, size_t index, quorvex_mark* mark) {
  return Run([&] {
    RequirePointer(marks, "marks");
    RequirePointer(mark, "mark");
    const std::size_t count = marks->result.marks.size();
    if (index >= count) {
      throw Failure(QUORVEX_ERROR_ARGUMENT, "index: expected less than " + std::to_string(count) +
                                                ", the count of the marks, given " +
                                                std::to_string(index));
    }
    *mark = ToMark(marks->result.marks[index], marks->columns);
  });
}

quorvex_error quorvex_marks_facts(const quorvex_marks* marks, quorvex_facts* facts) {
  return Run([&] {
    RequirePointer(marks, "marks");
    RequirePointer(facts, "facts");
    *facts = ToFacts(marks->result.facts);
  });
}

quorvex_error quorvex_refine_marks(const quorvex_image* image, const quorvex_position* positions,
                                   size_t count, const quorvex_precise_options* options,
                                   quorvex_refined_point* refined) {
  return Run([&] {
    RequireImage(image, kLeastSize);
    if (count > 0) {
      RequirePointer(positions, "positions");
      RequirePointer(refined, "refined");
    }
    std::vector<precise::Point> places(count);
    for (std::size_t i = 0; i < count; ++i) {
      places[i] = {positions[i].x, positions[i].y};
    }
    const std::vector<precise::RefinedPoint> found = precise::RefineMarks(
        ViewOf(*image), places, ToOptions(options != nullptr ? *options : kDefaults));
    std::transform(found.begin(), found.end(), refined, ToRefined);
  });
}
