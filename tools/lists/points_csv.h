// Lists of points as CSV: id, row, col, x, y, in front the image where there are several, at the
// end the kind where it is known. A picture without points has a row of the kind "failed" whose
// other fields are empty.
#ifndef QUORVEX_TOOLS_LISTS_POINTS_CSV_H_
#define QUORVEX_TOOLS_LISTS_POINTS_CSV_H_

#include <string>
#include <vector>

#include "tools/lists/listed_points.h"

namespace quorvex::tools {

// The columns that not every table has.
struct CsvColumns {
  bool image = false;
  bool kind = false;
  bool covariance = false;
};

// A table in pieces: its first line, and the rows of one image.
std::string FormatCsvHeader(CsvColumns columns);
std::string FormatCsvRows(const PointsOfImage& image, CsvColumns columns);

// A whole table, with the columns that its points fill.
std::string FormatPointsCsv(const std::vector<PointsOfImage>& images, bool withImageColumn);

// Images come in the order of their first row. `name` is that of the file. Throws InputError naming
// file, line and reason.
std::vector<PointsOfImage> ParsePointsCsv(const std::string& text, const std::string& name);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_LISTS_POINTS_CSV_H_
