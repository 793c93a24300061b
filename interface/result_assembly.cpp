#include "interface/result_assembly.h"

#include "crossmark/cross_mark_search.h"
#include "crossmark/cross_refinement.h"
#include "crossmark/mark_pictures.h"
#include "grid/centre_cross_pass.h"
#include "grid/dominant_group.h"
#include "grid/point_merging.h"
#include "grid/row_tracing_pass.h"
#include "interface/grid_numbering.h"
#include "interface/point_text_file.h"
#include "interface/stray_points.h"

namespace quorvex {

bool AssembleResult(const unsigned char* input, const StrokeImage& image,
                    const GridParameters& parameters, PointList& points) {
  const int width = image.strokes.Width();
  const int height = image.strokes.Height();
  MarkPictures pictures;  // written on every way out
  CrossMarkSearch search({image.strokes.Data(), width, height}, pictures);

  PointList firstGrid;
  if (!BuildGridFromCentreCross(search, parameters.rowSpan, parameters.rowSteps, image.rowSpans,
                                image.columnSpans, firstGrid)) {
    return false;
  }
  PointList seeds;
  SelectDominantGroup(firstGrid, seeds);
  // A second pass without a result leaves the first grid to stand alone.
  PointList secondGrid;
  TraceRowsFromSeeds(search, parameters.columnSpan, parameters.rowSteps, seeds, image.rowSpans,
                     image.columnSpans, secondGrid);
  WritePointTextFile("D:/Row.txt", secondGrid);
  WritePointTextFile("D:/Col.txt", firstGrid);

  PointList grid;
  MergePointSets(firstGrid, secondGrid, grid);
  NumberGrid(grid);
  CompleteGrid(width, height, grid);
  AppendNumberedPoints(grid, points);
  SortPointsById(points);

  RefineCrossMarks(input, width, height, image.mask.Data(), points, pictures);
  RemoveStrayPoints(width, height, points);
  TurnUpsideDown(height, points);
  return true;
}

}  // namespace quorvex
