// Text that comes in pieces and is put out as a whole: the first of it is held in memory, more in a
// file that no name shows, so that memory stays bounded however much there is.
#ifndef QUORVEX_TOOLS_SYSTEM_TEXT_SPOOL_H_
#define QUORVEX_TOOLS_SYSTEM_TEXT_SPOOL_H_

#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace quorvex::tools {

class TextSpool {
 public:
  // `capacity` is what memory holds, in bytes.
  explicit TextSpool(std::size_t capacity);

  // Throws InputError (tools/errors.h) when the disk of the folder for temporary files is full.
  void Append(const std::string& text);

  // All of it to the file, which appears whole or not at all, or to standard output where
  // IsStandardOutput (output_file.h). Throws InputError.
  void WriteTo(const std::filesystem::path& path);

 private:
  struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };

  void Spill();
  void ForEachPiece(const std::function<void(const std::string&)>& use);

  std::size_t capacity_;
  std::string held_;                             // what the file does not hold, the last of it
  std::unique_ptr<std::FILE, FileCloser> file_;  // null until memory is full
};

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_SYSTEM_TEXT_SPOOL_H_
