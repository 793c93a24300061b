#include "tools/lists/csv_table.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>
#include <utility>

#include "tools/errors.h"
#include "tools/system/file_name.h"

namespace quorvex::tools {
namespace {

constexpr std::uintmax_t kLargestTextFile = 64u << 20;  // bytes; a million points take about 40 MB
constexpr std::size_t kShownFieldLength = 40;           // characters of a bad field in a message

[[noreturn]] void FailAtLine(const std::string& name, std::size_t line, const std::string& reason) {
  throw InputError(fmt::format("{}:{}: {}", name, line, reason));
}

// Splits one line; `line` is its number for the messages.
std::vector<std::string> SplitFields(std::string_view text, const std::string& name,
                                     std::size_t line) {
  std::vector<std::string> fields(1);
  bool quoted = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (quoted && c == '"' && i + 1 < text.size() && text[i + 1] == '"') {
      fields.back() += '"';
      ++i;
    } else if (c == '"' && (quoted || fields.back().empty())) {
      quoted = !quoted;
    } else if (c == ',' && !quoted) {
      fields.emplace_back();
    } else {
      fields.back() += c;
    }
  }
  if (quoted) {
    FailAtLine(name, line, "a quoted field does not end on its line");
  }
  return fields;
}

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) {
    return {};
  }
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

// The whole of `text` as a number, in the notation of the C locale whatever the user's locale is.
template <typename T>
bool ParseWhole(std::string_view text, T& value) {
  const char* end = text.data() + text.size();
  const std::from_chars_result result = std::from_chars(text.data(), end, value);
  return result.ec == std::errc() && result.ptr == end;
}

}  // namespace

std::string ReadTextFile(const std::filesystem::path& path) {
  std::error_code error;
  if (std::filesystem::is_directory(path, error)) {
    throw InputError(fmt::format("{} is a directory, not a file", Utf8Name(path)));
  }
  std::ifstream file(path, std::ios::binary);
  if (!file) {
    throw InputError(fmt::format("{} cannot be opened", Utf8Name(path)));
  }
  std::string text;
  char block[1 << 16];
  while (file.read(block, sizeof block), file.gcount() > 0) {
    text.append(block, static_cast<std::size_t>(file.gcount()));
    if (text.size() > kLargestTextFile) {
      throw InputError(
          fmt::format("{} is larger than {} MiB", Utf8Name(path), kLargestTextFile >> 20));
    }
  }
  if (file.bad()) {
    throw InputError(fmt::format("{} cannot be read", Utf8Name(path)));
  }
  return text;
}

std::string CsvField(const std::string& text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos) {
    return text;
  }
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '"') {
      quoted += '"';
    }
    quoted += c;
  }
  return quoted + '"';
}

CsvTable::CsvTable(const std::string& text, std::string name) : name_(std::move(name)) {
  std::string_view rest = text;
  if (rest.substr(0, 3) == "\xEF\xBB\xBF") {
    rest.remove_prefix(3);
  }
  for (std::size_t line = 1; !rest.empty(); ++line) {
    const std::size_t length = std::min(rest.find('\n'), rest.size());
    std::string_view content = rest.substr(0, length);
    rest.remove_prefix(std::min(length + 1, rest.size()));
    if (!content.empty() && content.back() == '\r') {
      content.remove_suffix(1);
    }
    if (Trimmed(content).empty()) {
      continue;
    }

    std::vector<std::string> fields = SplitFields(content, name_, line);
    if (header_.empty()) {
      ReadHeader(std::move(fields), line);
    } else if (fields.size() != header_.size()) {
      FailAtLine(name_, line,
                 fmt::format("{} fields where the header has {}", fields.size(), header_.size()));
    } else {
      rows_.push_back({line, std::move(fields)});
    }
  }
  if (header_.empty()) {
    throw InputError(fmt::format("{} is empty", name_));
  }
}

void CsvTable::ReadHeader(std::vector<std::string> names, std::size_t line) {
  for (const std::string& field : names) {
    std::string name(Trimmed(field));
    if (HasColumn(name)) {
      FailAtLine(name_, line, fmt::format("the column \"{}\" appears twice", name));
    }
    header_.push_back(std::move(name));
  }
}

bool CsvTable::HasColumn(const std::string& name) const {
  return std::find(header_.begin(), header_.end(), name) != header_.end();
}

std::size_t CsvTable::ColumnNamed(const std::string& name) const {
  const auto found = std::find(header_.begin(), header_.end(), name);
  if (found == header_.end()) {
    throw InputError(fmt::format("{} has no column \"{}\" in its first line", name_, name));
  }
  return static_cast<std::size_t>(found - header_.begin());
}

const std::string& CsvTable::Text(std::size_t row, std::size_t column) const {
  return rows_.at(row).fields.at(column);
}

int CsvTable::Integer(std::size_t row, std::size_t column) const {
  int value = 0;
  if (!ParseWhole(Trimmed(Text(row, column)), value)) {
    FailAtField(row, column, "a whole number");
  }
  return value;
}

double CsvTable::Number(std::size_t row, std::size_t column) const {
  double value = 0;
  if (!ParseWhole(Trimmed(Text(row, column)), value) || !std::isfinite(value)) {
    FailAtField(row, column, "a number");
  }
  return value;
}

void CsvTable::FailAtRow(std::size_t row, const std::string& reason) const {
  FailAtLine(name_, rows_.at(row).line, reason);
}

void CsvTable::FailAtField(std::size_t row, std::size_t column, const char* wanted) const {
  FailAtRow(
      row, fmt::format("\"{}\" in column \"{}\" is not {}",
                       Text(row, column).substr(0, kShownFieldLength), header_.at(column), wanted));
}

}  // namespace quorvex::tools
