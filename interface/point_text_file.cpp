#include "interface/point_text_file.h"

#include <cstdio>

#include "imageio/diagnostic_list.h"

namespace quorvex {

void WritePointTextFile(const char* path, const PointList& points) {
  std::FILE* file = OpenDiagnosticList(path);
  if (file == nullptr) {
    return;
  }
  for (const CalibrationPoint& point : points) {
    std::fprintf(file, "%f\t%f\n", static_cast<double>(point.x), static_cast<double>(point.y));
  }
  std::fclose(file);
}

}  // namespace quorvex
