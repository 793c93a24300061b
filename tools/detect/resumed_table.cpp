#include "tools/detect/resumed_table.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cstddef>
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

// The first field of a line of a table, as CsvField writes it, and then as it was meant.
std::string RawFirstField(const std::string& line) {
  bool isQuoted = false;
  std::size_t end = 0;
  for (; end < line.size() && (isQuoted || line[end] != ','); ++end) {
    isQuoted = isQuoted != (line[end] == '"');
  }
  return line.substr(0, end);
}

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

fs::path NotePath(const fs::path& table) {
  fs::path path = table;
  path += ".resume";
  return path;
}

// A line of options and lines of numbers.
bool IsNote(const fs::path& path) {
  std::error_code ignored;
  std::ifstream file(path, std::ios::binary);
  std::string line;
  if (!fs::is_regular_file(path, ignored) || !file || !ReadLine(file, line)) {
    return false;
  }
  bool hasLength = false;
  while (std::getline(file, line)) {
    if (line.empty() || line.find_first_not_of("0123456789") != std::string::npos) {
      return false;
    }
    hasLength = true;
  }
  return hasLength;
}

// Whether what follows in a table can be the rows of one image that is not among those held, the
// last row perhaps not to its end.
bool AreRowsOfOneImage(std::istream& rows, const std::set<std::string>& held) {
  std::string line;
  std::string start;
  while (std::getline(rows, line)) {
    const bool isWhole = !rows.eof();
    const std::string field = RawFirstField(line);
    if (isWhole && start.empty()) {
      start = field + ',';
      if (held.count(FirstField(line)) > 0) {
        return false;
      }
    }
    const std::size_t known = isWhole ? start.size() : std::min(start.size(), line.size());
    if (line.compare(0, known, start, 0, known) != 0) {
      return false;
    }
  }
  return true;
}

}  // namespace

ResumedTable::ResumedTable(const fs::path& path, CsvColumns columns, const std::string& options)
    : path_(path), notePath_(NotePath(path)), columns_(columns) {
  length_ = FindLength(options);
  if (length_ > 0) {
    ReadHeld(length_);
  }
  RequireInterruptedWrite();
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
    Refuse(path_,
           fmt::format("it has {} bytes where {} were written; put it back as it was, or remove "
                       "both it and {} to begin anew",
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

void ResumedTable::RequireInterruptedWrite() const {
  std::ifstream table(path_, std::ios::binary);
  if (SizeOf(path_) <= length_) {
    return;
  }
  bool isOneWrite = true;
  if (length_ == 0) {
    const std::string header = FormatCsvHeader(columns_);
    std::string start(header.size(), '\0');
    table.read(start.data(), static_cast<std::streamsize>(start.size()));
    start.resize(static_cast<std::size_t>(table.gcount()));
    isOneWrite = header.compare(0, start.size(), start) == 0;
  } else {
    table.seekg(static_cast<std::streamoff>(length_));
  }
  if (!isOneWrite || !AreRowsOfOneImage(table, held_)) {
    Refuse(path_, fmt::format("{0} says that {1} of its {2} bytes are whole, but the rest is not "
                              "the rows of one new image, which is all that a stopped run leaves; "
                              "if the table is whole, remove {0}",
                              Utf8Name(notePath_), length_, SizeOf(path_)));
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

void ForgetStoppedRun(const fs::path& table) {
  const fs::path note = NotePath(table);
  if (IsNote(note)) {
    std::error_code ignored;  // what stays is found out by the run that goes on with the table
    fs::remove(note, ignored);
  }
}

}  // namespace quorvex::tools
