#include "tools/target/target_layout.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "tools/errors.h"
#include "tools/render/presets.h"
#include "tools/render/render_settings.h"

namespace quorvex::tools {
namespace {

// Millimetres from the paper's edge: what printers leave blank, then a ruler or a line of text,
// then a gap up to the tips of the outermost arms.
constexpr double kBlankEdge = 5;
constexpr double kTickLength = 3;
constexpr double kBorder = 12;  // all of it

constexpr double kLineWidth = 0.2;        // millimetres, of rulers
constexpr double kTickDistance = 10;      // millimetres
constexpr double kLongestRuler = 100;     // millimetres
constexpr double kShortestRuler = 20;     // millimetres
constexpr double kFontHeight = 2.8;       // millimetres
constexpr double kRulerLabelLength = 12;  // millimetres
constexpr double kPitchStep = 0.1;        // millimetres, of a pitch that is proposed

double NeededWidth(const TargetMarks& marks) {
  return (marks.columns - 1) * marks.pitch + 2 * (marks.armLength + kBorder);
}

double NeededHeight(const TargetMarks& marks) {
  return (marks.rows - 1) * marks.pitch + 2 * (marks.armLength + kBorder);
}

bool Fits(const TargetMarks& marks, const Paper& paper) {
  return NeededWidth(marks) <= paper.width && NeededHeight(marks) <= paper.height;
}

// By how much the marks may be magnified on a sheet as it lies there; negative when even points
// would not fit.
double Magnification(const TargetMarks& marks, const Paper& paper) {
  return std::min((paper.width - 2 * kBorder) / (NeededWidth(marks) - 2 * kBorder),
                  (paper.height - 2 * kBorder) / (NeededHeight(marks) - 2 * kBorder));
}

std::string Proposal(const TargetMarks& marks, const Paper& paper) {
  for (const Paper& other : NamedPapers()) {
    if (Fits(marks, other) || Fits(marks, Turned(other))) {
      return fmt::format("they fit {}", PaperText(other));
    }
  }
  const double factor = std::max(Magnification(marks, paper), Magnification(marks, Turned(paper)));
  const double pitch = std::floor(marks.pitch * factor / kPitchStep) * kPitchStep;
  if (pitch < kPitchStep) {
    return "take fewer of them";
  }
  return fmt::format(
      "take fewer, or a pitch of at most {:.1f} mm with arms and strokes made smaller likewise",
      pitch);
}

Paper ChoosePaper(const TargetMarks& marks, const Paper& paper) {
  for (const Paper& sheet : {paper, Turned(paper)}) {
    if (Fits(marks, sheet)) {
      return sheet;
    }
  }
  throw InputError(fmt::format(
      "{} x {} marks with a pitch of {:g} mm need {:g} x {:g} mm of paper and do not fit {}; {}",
      marks.rows, marks.columns, marks.pitch, NeededWidth(marks), NeededHeight(marks),
      PaperText(paper), Proposal(marks, paper)));
}

double RulerLength(double side) {
  const double room = side - 2 * (kBorder + kRulerLabelLength);
  const double length = std::min(kLongestRuler, std::floor(room / kTickDistance) * kTickDistance);
  return std::max(length, kShortestRuler);
}

void AddMark(double x, double y, const TargetMarks& marks, std::vector<Bar>& bars) {
  const double arm = marks.armLength;
  const double stroke = marks.strokeWidth;
  bars.push_back({x - arm, y - stroke / 2, 2 * arm, stroke});
  bars.push_back({x - stroke / 2, y - arm, stroke, 2 * arm});
}

// Ticks stand on one side of the line, towards the edge, so that no crosses come about.
void AddRulers(TargetLayout& layout) {
  const Paper& paper = layout.paper;
  const double half = kLineWidth / 2;
  const double left = (paper.width - layout.acrossLength) / 2;
  const double bottom = paper.height - kBlankEdge - kTickLength;
  layout.rulers.push_back(
      {left - half, bottom - half, layout.acrossLength + kLineWidth, kLineWidth});
  for (int tick = 0; tick * kTickDistance <= layout.acrossLength; ++tick) {
    layout.rulers.push_back({left + tick * kTickDistance - half, bottom, kLineWidth, kTickLength});
  }
  const double top = (paper.height - layout.downLength) / 2;
  const double right = kBlankEdge + kTickLength;
  layout.rulers.push_back({right - half, top - half, kLineWidth, layout.downLength + kLineWidth});
  for (int tick = 0; tick * kTickDistance <= layout.downLength; ++tick) {
    layout.rulers.push_back(
        {kBlankEdge, top + tick * kTickDistance - half, kTickLength, kLineWidth});
  }
  layout.labels.push_back({fmt::format("{:g} mm", layout.acrossLength),
                           left + layout.acrossLength + 1, bottom + kTickLength, kFontHeight,
                           kRulerLabelLength, false});
  layout.labels.push_back({fmt::format("{:g} mm", layout.downLength), right, top - 1, kFontHeight,
                           kRulerLabelLength, true});
}

void AddCaption(const TargetMarks& marks, TargetLayout& layout) {
  const std::string rulers = layout.acrossLength == layout.downLength
                                 ? fmt::format("both rulers are {:g} mm long", layout.acrossLength)
                                 : fmt::format("the rulers are {:g} and {:g} mm long",
                                               layout.acrossLength, layout.downLength);
  layout.labels.push_back(
      {fmt::format("{} rows x {} columns, pitch {:g} mm, arms {:g} mm, strokes {:g} mm, {}; print "
                   "at 100 %: {}",
                   marks.rows, marks.columns, marks.pitch, marks.armLength, marks.strokeWidth,
                   PaperText(layout.paper), rulers),
       kBorder, kBlankEdge + kFontHeight, kFontHeight, layout.paper.width - 2 * kBorder, false});
}

}  // namespace

void CheckTargetMarks(const TargetMarks& marks) {
  RenderSettings settings = PresetByName(kDefaultPreset);
  settings.rows = marks.rows;
  settings.columns = marks.columns;
  settings.pitch = marks.pitch;
  settings.armLength = marks.armLength;
  settings.strokeWidth = marks.strokeWidth;
  settings.margin = marks.pitch;
  CheckSettings(settings);
}

TargetLayout LayOutTarget(const TargetMarks& marks, const Paper& paper) {
  CheckTargetMarks(marks);
  TargetLayout layout;
  layout.paper = ChoosePaper(marks, paper);
  layout.acrossLength = RulerLength(layout.paper.width);
  layout.downLength = RulerLength(layout.paper.height);
  const double left = (layout.paper.width - (marks.columns - 1) * marks.pitch) / 2;
  const double top = (layout.paper.height - (marks.rows - 1) * marks.pitch) / 2;
  for (int row = 0; row < marks.rows; ++row) {
    for (int column = 0; column < marks.columns; ++column) {
      AddMark(left + column * marks.pitch, top + row * marks.pitch, marks, layout.marks);
    }
  }
  AddRulers(layout);
  AddCaption(marks, layout);
  return layout;
}

}  // namespace quorvex::tools
