// Sizes of paper.
#ifndef QUORVEX_TOOLS_TARGET_PAPER_H_
#define QUORVEX_TOOLS_TARGET_PAPER_H_

#include <string>
#include <vector>

namespace quorvex::tools {

struct Paper {
  std::string name;   // "A4"; empty for a size of the user's
  double width = 0;   // millimetres
  double height = 0;  // millimetres
};

// Upright, from the smallest.
std::vector<Paper> NamedPapers();

// A name, in capitals or not, or "300x200": width and height in millimetres, each 50 to 2000.
// Throws InputError (tools/errors.h).
Paper ParsePaper(const std::string& text);

// The same sheet on its side.
Paper Turned(const Paper& paper);

// "A3 (297 x 420 mm)" or "300 x 200 mm".
std::string PaperText(const Paper& paper);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_TARGET_PAPER_H_
