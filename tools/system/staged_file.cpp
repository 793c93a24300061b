#include "tools/system/staged_file.h"

#include <fmt/format.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <random>
#include <system_error>

#include "tools/errors.h"
#include "tools/system/file_name.h"
#include "tools/system/system_files.h"

namespace quorvex::tools {
namespace {

constexpr int kNameAttempts = 16;  // a random name of 32 bits is practically never taken twice
constexpr std::streamsize kCopiedBytes = 1 << 16;  // at a time

[[noreturn]] void ThrowCannotWrite(const std::filesystem::path& path, const std::string& reason) {
  throw InputError(fmt::format("cannot write {}: {}", Utf8Name(path), reason));
}

// Renaming over a device or a pipe would replace the device itself.
void RequireReplaceable(const std::filesystem::path& path) {
  std::error_code error;
  const std::filesystem::file_status status = std::filesystem::status(path, error);
  if (std::filesystem::is_directory(status)) {
    ThrowCannotWrite(path, "it is a directory");
  }
  if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {
    ThrowCannotWrite(path, "it is not a regular file");
  }
}

}  // namespace

StagedFile::StagedFile(const std::filesystem::path& targetPath) : path_(targetPath) { Open(); }

StagedFile::StagedFile(const std::filesystem::path& targetPath,
                       const std::vector<std::uint8_t>& bytes)
    : path_(targetPath) {
  Open();
  try {
    Append(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    Close();
  } catch (const InputError&) {
    RemoveTemporary();  // a throwing constructor runs no destructor
    throw;
  }
}

void StagedFile::Open() {
  RequireReplaceable(path_);
  std::random_device random;
  for (int attempt = 0; attempt < kNameAttempts && file_ == nullptr; ++attempt) {
    temporaryPath_ = path_;
    temporaryPath_ += fmt::format(".{:08x}.tmp", static_cast<std::uint32_t>(random()));
    file_ = CreateNewFile(temporaryPath_);  // never writes into somebody else's file
    if (file_ == nullptr && errno != EEXIST) {
      break;
    }
  }
  if (file_ == nullptr) {
    ThrowCannotWrite(path_, std::strerror(errno));
  }
}

void StagedFile::Append(const char* bytes, std::size_t count) {
  // An empty vector's data may be null, which fwrite must not get.
  if (count > 0 && std::fwrite(bytes, 1, count, file_) != count) {
    ThrowCannotWrite(path_, std::strerror(errno));
  }
}

void StagedFile::Close() {
  std::FILE* const file = file_;
  file_ = nullptr;
  if (file != nullptr && std::fclose(file) != 0) {  // the last block is written here
    ThrowCannotWrite(path_, std::strerror(errno));
  }
}

StagedFile::~StagedFile() { RemoveTemporary(); }

void StagedFile::Commit() {
  Close();
  std::error_code error;
  std::filesystem::rename(temporaryPath_, path_, error);
  if (error) {
    ThrowCannotWrite(path_, error.message());
  }
  temporaryPath_.clear();
}

void StagedFile::RemoveTemporary() noexcept {
  if (file_ != nullptr) {
    std::fclose(file_);
    file_ = nullptr;
  }
  if (!temporaryPath_.empty()) {
    std::error_code ignored;
    std::filesystem::remove(temporaryPath_, ignored);
  }
}

void WriteFileWhole(const std::filesystem::path& path, const std::vector<std::uint8_t>& bytes) {
  StagedFile(path, bytes).Commit();
}

void CopyFileWhole(const std::filesystem::path& from, const std::filesystem::path& to) {
  std::ifstream source(from, std::ios::binary);
  StagedFile copy(to);
  std::vector<char> piece(kCopiedBytes);
  while (source.read(piece.data(), kCopiedBytes) || source.gcount() > 0) {
    copy.Append(piece.data(), static_cast<std::size_t>(source.gcount()));
  }
  if (!source.eof()) {
    throw InputError(fmt::format("cannot read {}", Utf8Name(from)));
  }
  copy.Commit();
}

}  // namespace quorvex::tools
