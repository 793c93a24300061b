// A file that appears whole or not at all: its bytes go to a temporary file in the same folder, and
// Commit renames that over the target. Several files are put in place together by staging all of
// them before the first Commit. A staged file that is never committed leaves nothing behind.
#ifndef QUORVEX_TOOLS_SYSTEM_STAGED_FILE_H_
#define QUORVEX_TOOLS_SYSTEM_STAGED_FILE_H_

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <vector>

namespace quorvex::tools {

class StagedFile {
 public:
  // Makes the temporary file, empty. Throws InputError (tools/errors.h) naming the target and the
  // reason: the folder is missing or not writable, or the target is something other than a regular
  // file.
  explicit StagedFile(const std::filesystem::path& targetPath);

  // Writes `bytes` to it, too, and ends it; throws as well when the disk is full.
  StagedFile(const std::filesystem::path& targetPath, const std::vector<std::uint8_t>& bytes);
  ~StagedFile();
  StagedFile(const StagedFile&) = delete;
  StagedFile& operator=(const StagedFile&) = delete;

  // Throws InputError when the disk is full.
  void Append(const char* bytes, std::size_t count);

  // Replaces the target. Throws InputError when the system refuses; the target is then as before.
  void Commit();

 private:
  void Open();
  void Close();
  void RemoveTemporary() noexcept;

  std::filesystem::path path_;
  std::filesystem::path temporaryPath_;
  std::FILE* file_ = nullptr;  // null once it is ended
};

// Stages and commits one file.
void WriteFileWhole(const std::filesystem::path& path, const std::vector<std::uint8_t>& bytes);

// Stages and commits a copy of a file. Throws InputError, also when `from` cannot be read.
void CopyFileWhole(const std::filesystem::path& from, const std::filesystem::path& to);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_SYSTEM_STAGED_FILE_H_
