// The known marks of a rendered or measured target, and their CSV table with the columns row, col,
// x, y and missing.
#ifndef QUORVEX_TOOLS_LISTS_TRUTH_FILE_H_
#define QUORVEX_TOOLS_LISTS_TRUTH_FILE_H_

#include <filesystem>
#include <string>
#include <vector>

namespace quorvex::tools {

struct TruthMark {
  int row = 0;             // from the top
  int column = 0;          // from the left
  double x = 0;            // pixels to the right, integer values at pixel centres
  double y = 0;            // pixels down from the top row of the picture
  bool isMissing = false;  // left out of the board
};

// The table, positions with six decimals.
std::string TruthCsv(const std::vector<TruthMark>& marks);

// `name` is that of the file. Throws InputError naming file, line and reason; a table without marks
// is an error too.
std::vector<TruthMark> ParseTruthCsv(const std::string& text, const std::string& name);

// The same of a file.
std::vector<TruthMark> ReadTruthFile(const std::filesystem::path& path);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_LISTS_TRUTH_FILE_H_
