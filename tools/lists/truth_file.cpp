#include "tools/lists/truth_file.h"

#include <fmt/format.h>

#include <iterator>

#include "tools/errors.h"
#include "tools/lists/csv_table.h"
#include "tools/system/file_name.h"

namespace quorvex::tools {

std::string TruthCsv(const std::vector<TruthMark>& marks) {
  std::string csv = "row,col,x,y,missing\n";
  for (const TruthMark& mark : marks) {
    fmt::format_to(std::back_inserter(csv), "{},{},{:.6f},{:.6f},{}\n", mark.row, mark.column,
                   mark.x, mark.y, mark.isMissing ? 1 : 0);
  }
  return csv;
}

std::vector<TruthMark> ParseTruthCsv(const std::string& text, const std::string& name) {
  const CsvTable table(text, name);
  const std::size_t row = table.ColumnNamed("row");
  const std::size_t col = table.ColumnNamed("col");
  const std::size_t x = table.ColumnNamed("x");
  const std::size_t y = table.ColumnNamed("y");
  const std::size_t missing = table.ColumnNamed("missing");

  std::vector<TruthMark> marks;
  for (std::size_t i = 0; i < table.RowCount(); ++i) {
    const std::string& flag = table.Text(i, missing);
    if (flag != "0" && flag != "1") {
      throw InputError(
          fmt::format("{}: mark {}: \"missing\" is \"{}\", not 0 or 1", name, i + 1, flag));
    }
    marks.push_back({table.Integer(i, row), table.Integer(i, col), table.Number(i, x),
                     table.Number(i, y), flag == "1"});
  }
  if (marks.empty()) {
    throw InputError(fmt::format("{} holds no marks", name));
  }
  return marks;
}

std::vector<TruthMark> ReadTruthFile(const std::filesystem::path& path) {
  return ParseTruthCsv(ReadTextFile(path), Utf8Name(path));
}

}  // namespace quorvex::tools
