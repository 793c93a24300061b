// A comma-separated table read from a file: a header line, then one line per row. Fields may be
// quoted ("a ""b"", c"); a quoted field stays on its line. Lines may end in CR LF, blank lines are
// skipped, and a byte order mark is ignored. Columns are found by name, so their order is free and
// others may stand between them. Everything that is wrong with a file is an InputError that names
// file and line.
#ifndef QUORVEX_TOOLS_LISTS_CSV_TABLE_H_
#define QUORVEX_TOOLS_LISTS_CSV_TABLE_H_

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace quorvex::tools {

// Reads a whole text file of at most 64 MiB. Throws InputError.
std::string ReadTextFile(const std::filesystem::path& path);

// One field as it stands in a table: quoted when it holds a comma, a quote or a line break.
std::string CsvField(const std::string& text);

class CsvTable {
 public:
  // `name` is that of the file, for the messages only. Throws InputError for an empty text, a
  // duplicate column, or a line with another number of fields than the header.
  CsvTable(const std::string& text, std::string name);

  std::size_t RowCount() const { return rows_.size(); }
  bool HasColumn(const std::string& name) const;
  std::size_t ColumnNamed(const std::string& name) const;  // throws InputError when there is none

  const std::string& Text(std::size_t row, std::size_t column) const;
  int Integer(std::size_t row, std::size_t column) const;    // throws InputError
  double Number(std::size_t row, std::size_t column) const;  // finite; throws InputError

  // Throw the InputError for a row, and for a field that is not what is `wanted`.
  [[noreturn]] void FailAtRow(std::size_t row, const std::string& reason) const;
  [[noreturn]] void FailAtField(std::size_t row, std::size_t column, const char* wanted) const;

 private:
  struct Row {
    std::size_t line;  // counted from 1
    std::vector<std::string> fields;
  };

  void ReadHeader(std::vector<std::string> names, std::size_t line);

  std::string name_;
  std::vector<std::string> header_;
  std::vector<Row> rows_;
};

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_LISTS_CSV_TABLE_H_
