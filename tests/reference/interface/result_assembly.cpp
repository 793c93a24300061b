#include "tests/reference/interface.h"

#include "grid/dominant_group.h"
#include "grid/point_merging.h"
#include "interface/grid_numbering.h"
#include "interface/point_text_file.h"
#include "interface/stray_points.h"
#include "tests/reference/crossmark.h"
#include "tests/reference/grid.h"

namespace quorvex::plain {

bool AssembleResult(const unsigned char* input, const GrayImage& strokes, const GrayImage& mask,
                    const PixelSpanList& rowSpans, const PixelSpanList& columnSpans,
                    const GridParameters& parameters, PointList& points) {
  const int width = strokes.Width();
  const int height = strokes.Height();

  PointList firstGrid;
  if (!plain::BuildGridFromCentreCross(strokes.Data(), width, height, parameters.rowSpan, 0,
                                       parameters.rowSteps, rowSpans, columnSpans, firstGrid)) {
    return false;
  }
  PointList seeds;
  SelectDominantGroup(firstGrid, seeds);
  // A second pass without a result leaves the first grid to stand alone.
  PointList secondGrid;
  plain::TraceRowsFromSeeds(strokes.Data(), width, height, 0, parameters.columnSpan,
                            parameters.rowSteps, seeds, rowSpans, columnSpans, secondGrid);
  WritePointTextFile("D:/Row.txt", secondGrid);
  WritePointTextFile("D:/Col.txt", firstGrid);

  PointList grid;
  MergePointSets(firstGrid, secondGrid, grid);
  NumberGrid(grid);
  CompleteGrid(width, height, grid);
  AppendNumberedPoints(grid, points);
  plain::SortPointsById(points);

  plain::RefineCrossMarks(input, width, height, mask.Data(), points);
  RemoveStrayPoints(width, height, points);
  TurnUpsideDown(height, points);
  return true;
}

}  // namespace quorvex::plain
