#include "tools/detect/resumed_table.h"

#include <fmt/format.h>

#include <charconv>
#include <system_error>

#include "tools/errors.h"
#include "tools/lists/point_kind.h"
#include "tools/system/file_name.h"
#include "tools/system/output_file.h"

namespace quorvex::tools {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void Refuse(const fs::path& path, const std::string& reason) {
  throw InputError(fmt::format("--resume cannot go on with {}: {}", Utf8Name(path), reason));
}

// The line without its end; false for one that has none, since it was not written to its end.
bool ReadLine(std::istream& file, std::string& line) {
  return static_cast<bool>(std::getline(file, line)) && !file.eof();
}

std::uint64_t SizeOf(const fs::path& path) {
  std::error_code error;
  const std::uintmax_t size = fs::file_size(path, error);
  return error ? 0 : size;
}

// The first field of a line of a table, as CsvField writes it.
std::string FirstField(const std::string& line) {
  if (line.empty() || line.front() != '"') {
    return line.substr(0, line.find(','));
  }
  std::string field;
  for (std::size_t i = 1; i < line.size(); ++i) {
    if (line[i] == '"' && (++i == line.size() || line[i] != '"')) {
      break;
    }
    field += line[i];
  }
  return field;
}

}  // namespace

ResumedTable::ResumedTable(const fs::path& path, CsvColumns columns, const std::string& options)
    : path_(path), notePath_(path), columns_(columns) {
  notePath_ += ".resume";
  length_ = FindLength(options);
  if (length_ > 0) {
    ReadHeld(length_);
  }
  WriteTextFileWhole(notePath_, fmt::format("{}\n{}\n", options, length_));
  std::error_code error;
  if (SizeOf(path_) > length_) {
    fs::resize_file(path_, length_, error);
  }
  note_.open(notePath_, std::ios::binary | std::ios::app);
  table_.open(path_, std::ios::binary | std::ios::app);
  if (error || !note_ || !table_) {
    Refuse(path_, error ? error.message() : "it cannot be written");
  }
  if (length_ == 0) {
    Append(FormatCsvHeader(columns_));
  }
}

std::uint64_t ResumedTable::FindLength(const std::string& options) const {
  std::ifstream note(notePath_, std::ios::binary);
  std::string line;
  if (!note || !ReadLine(note, line)) {
    return SizeOf(path_);
  }
  if (line != options) {
    Refuse(path_, fmt::format("it was begun with other options, \"{}\" and not \"{}\"; give those, "
                              "or another --output",
                              line, options));
  }
  std::uint64_t length = 0;
  while (ReadLine(note, line)) {
    std::from_chars(line.data(), line.data() + line.size(), length);
  }
  if (SizeOf(path_) < length) {
    Refuse(path_, fmt::format("it has {} bytes where {} were written; remove {} to begin anew",
                              SizeOf(path_), length, Utf8Name(notePath_)));
  }
  return length;
}

void ResumedTable::ReadHeld(std::uint64_t length) {
  std::ifstream table(path_, std::ios::binary);
  std::string line;
  const std::string header = FormatCsvHeader(columns_);
  if (!ReadLine(table, line) || line + '\n' != header) {
    Refuse(path_, fmt::format("its first line is not \"{}\"", header.substr(0, header.size() - 1)));
  }
  std::uint64_t read = header.size();
  const std::string failed = fmt::format(",,,,,{}", kFailedKind);
  while (read < length && ReadLine(table, line)) {
    read += line.size() + 1;
    held_.insert(FirstField(line));
    holdsFailure_ = holdsFailure_ || line.find(failed) != std::string::npos;
  }
  if (read != length) {
    Refuse(path_, "its last line has no end");
  }
}

void ResumedTable::Append(const std::string& rows) {
  table_ << rows << std::flush;
  length_ += rows.size();
  // Only now that the rows are there.
  if (table_) {
    note_ << length_ << '\n' << std::flush;
  }
  if (!table_ || !note_) {
    throw InputError(fmt::format("cannot write {}; --resume goes on with it", Utf8Name(path_)));
  }
}

void ResumedTable::Add(const PointsOfImage& list) { Append(FormatCsvRows(list, columns_)); }

OutputReport ResumedTable::Finish() {
  note_.close();
  std::error_code error;
  fs::remove(notePath_, error);
  return {};
}

}  // namespace quorvex::tools
