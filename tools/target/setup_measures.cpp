#include "tools/target/setup_measures.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <optional>
#include <set>

#include "tools/render/board.h"
#include "tools/render/camera.h"

namespace quorvex::tools {
namespace {

constexpr double kRim = 4;             // pixels; a mark nearer to the frame is not measured
constexpr double kPartOfPitch = 1e-3;  // for derivatives of the view
constexpr int kEdgeSteps = 64;         // of each of the board's sides

using View = std::optional<PixelPoint>;

double Distance(const PixelPoint& a, const PixelPoint& b) {
  return std::hypot(a.x - b.x, a.y - b.y);
}

Spread SpreadOf(std::vector<double> values) {
  if (values.empty()) {
    return {};
  }
  std::sort(values.begin(), values.end());
  return {values.front(), values[values.size() / 2], values.back()};
}

class Setup {
 public:
  Setup(const RenderSettings& settings, const BoardMargins& margins)
      : settings_(settings), margins_(margins), camera_(settings), board_(settings) {}

  SetupMeasures Measure() const;

 private:
  View See(const BoardPoint& point) const { return camera_.Project(board_.ToCamera(point)); }
  bool IsInPicture(const View& view, double rim) const;
  View MarkInPicture(int row, int column) const;
  void MeasureMark(int row, int column, std::vector<double>& arms,
                   std::vector<double>& strokes) const;
  double Shift(const BoardPoint& point, double x, double y) const;
  bool IsEdgeInPicture() const;
  double Border() const;
  void MeasureMiddle(SetupMeasures& measures) const;

  const RenderSettings& settings_;
  const BoardMargins& margins_;
  Camera camera_;
  Board board_;
};

bool Setup::IsInPicture(const View& view, double rim) const {
  return view && view->x >= rim && view->x <= settings_.width - 1 - rim && view->y >= rim &&
         view->y <= settings_.height - 1 - rim;
}

View Setup::MarkInPicture(int row, int column) const {
  const View view = See(board_.MarkCentre(row, column));
  return IsInPicture(view, kRim) ? view : std::nullopt;
}

// How far a point moves in the picture when it moves on the board, pixels; 0 where it is not seen.
double Setup::Shift(const BoardPoint& point, double x, double y) const {
  const View from = See(point);
  const View to = See({point.x + x, point.y + y});
  return from && to ? Distance(*from, *to) : 0;
}

// A stroke's width across is its area in the picture over its length there, both for a short piece.
void Setup::MeasureMark(int row, int column, std::vector<double>& arms,
                        std::vector<double>& strokes) const {
  const BoardPoint centre = board_.MarkCentre(row, column);
  const double arm = settings_.armLength;
  for (const auto& [x, y] : {std::pair(arm, 0.0), {-arm, 0.0}, {0.0, arm}, {0.0, -arm}}) {
    arms.push_back(Shift(centre, x, y));
  }
  const double step = settings_.pitch * kPartOfPitch;
  const View origin = See(centre);
  const View right = See({centre.x + step, centre.y});
  const View down = See({centre.x, centre.y + step});
  if (!origin || !right || !down) {
    return;
  }
  const double area = std::abs((right->x - origin->x) * (down->y - origin->y) -
                               (right->y - origin->y) * (down->x - origin->x));
  const double widths = settings_.strokeWidth / step;
  strokes.push_back(widths * area / Distance(*origin, *right));
  strokes.push_back(widths * area / Distance(*origin, *down));
}

bool Setup::IsEdgeInPicture() const {
  const BoardPoint last = board_.MarkCentre(settings_.rows - 1, settings_.columns - 1);
  const double x = last.x + margins_.alongRows;
  const double y = last.y + margins_.alongColumns;
  for (int i = 0; i <= kEdgeSteps; ++i) {
    const double part = 2.0 * i / kEdgeSteps - 1;
    for (const BoardPoint& point :
         {BoardPoint{x, part * y}, {-x, part * y}, {part * x, y}, {part * x, -y}}) {
      if (!IsInPicture(See(point), 0)) {
        return false;
      }
    }
  }
  return true;
}

double Setup::Border() const {
  double least = std::numeric_limits<double>::infinity();
  for (int row = 0; row < settings_.rows; ++row) {
    least = std::min({least, Shift(board_.MarkCentre(row, 0), -margins_.alongRows, 0),
                      Shift(board_.MarkCentre(row, settings_.columns - 1), margins_.alongRows, 0)});
  }
  for (int column = 0; column < settings_.columns; ++column) {
    least =
        std::min({least, Shift(board_.MarkCentre(0, column), 0, -margins_.alongColumns),
                  Shift(board_.MarkCentre(settings_.rows - 1, column), 0, margins_.alongColumns)});
  }
  return least;
}

// From a point to a mark's nearer stroke, millimetres on the board.
double DistanceToStrokes(double x, double y, double arm, double stroke) {
  const auto toBar = [&](double along, double across) {
    return std::hypot(std::max(0.0, std::abs(along) - arm),
                      std::max(0.0, std::abs(across) - stroke / 2));
  };
  return std::min(toBar(x, y), toBar(y, x));
}

void Setup::MeasureMiddle(SetupMeasures& measures) const {
  const PixelPoint middle = {(settings_.width - 1) / 2.0, (settings_.height - 1) / 2.0};
  measures.markToMiddle = std::numeric_limits<double>::infinity();
  measures.strokeToMiddle = std::numeric_limits<double>::infinity();
  const std::optional<Vector3> ray = camera_.Ray(middle);
  BoardPoint point;
  const bool isOnBoard = ray && board_.Intersect(*ray, point);
  const double step = settings_.pitch * kPartOfPitch;
  const double pixelsPerMillimetre = isOnBoard ? Shift(point, step, 0) / step : 0;
  for (int row = 0; row < settings_.rows; ++row) {
    for (int column = 0; column < settings_.columns; ++column) {
      const BoardPoint centre = board_.MarkCentre(row, column);
      if (const View view = See(centre)) {
        measures.markToMiddle = std::min(measures.markToMiddle, Distance(*view, middle));
      }
      if (isOnBoard) {
        measures.strokeToMiddle = std::min(
            measures.strokeToMiddle,
            pixelsPerMillimetre * DistanceToStrokes(point.x - centre.x, point.y - centre.y,
                                                    settings_.armLength, settings_.strokeWidth));
      }
    }
  }
}

SetupMeasures Setup::Measure() const {
  SetupMeasures measures;
  std::vector<double> spacing;
  std::vector<double> arms;
  std::vector<double> strokes;
  std::set<int> rows;
  std::set<int> columns;
  for (int row = 0; row < settings_.rows; ++row) {
    for (int column = 0; column < settings_.columns; ++column) {
      ++measures.marks;
      const View view = MarkInPicture(row, column);
      if (!view) {
        continue;
      }
      ++measures.marksInPicture;
      rows.insert(row);
      columns.insert(column);
      MeasureMark(row, column, arms, strokes);
      for (const View& next :
           {column + 1 < settings_.columns ? MarkInPicture(row, column + 1) : View(),
            row + 1 < settings_.rows ? MarkInPicture(row + 1, column) : View()}) {
        if (next) {
          spacing.push_back(Distance(*view, *next));
        }
      }
    }
  }
  measures.rowsInPicture = static_cast<int>(rows.size());
  measures.columnsInPicture = static_cast<int>(columns.size());
  measures.spacing = SpreadOf(std::move(spacing));
  measures.arms = SpreadOf(std::move(arms));
  measures.strokes = SpreadOf(std::move(strokes));
  measures.isEdgeInPicture = IsEdgeInPicture();
  measures.border = measures.isEdgeInPicture ? Border() : 0;
  MeasureMiddle(measures);
  return measures;
}

}  // namespace

SetupMeasures MeasureSetup(const RenderSettings& settings, const BoardMargins& margins) {
  CheckSettings(settings);
  return Setup(settings, margins).Measure();
}

}  // namespace quorvex::tools
