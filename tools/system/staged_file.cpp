#include "tools/system/staged_file.h"

#include <fmt/format.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <random>
#include <system_error>

#include "tools/errors.h"
#include "tools/system/system_files.h"

namespace quorvex::tools {
namespace {

constexpr int kNameAttempts = 16;  // a random name of 32 bits is practically never taken twice

[[noreturn]] void ThrowCannotWrite(const std::string& path, const std::string& reason) {
  throw InputError(fmt::format("cannot write {}: {}", path, reason));
}

// Renaming over a device or a pipe would replace the device itself.
void RequireReplaceable(const std::string& path) {
  std::error_code error;
  const std::filesystem::file_status status =
      std::filesystem::status(std::filesystem::u8path(path), error);
  if (std::filesystem::is_directory(status)) {
    ThrowCannotWrite(path, "it is a directory");
  }
  if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {
    ThrowCannotWrite(path, "it is not a regular file");
  }
}

}  // namespace

StagedFile::StagedFile(const std::string& targetPath, const std::vector<std::uint8_t>& bytes)
    : path(targetPath) {
  RequireReplaceable(path);
  std::random_device random;
  std::FILE* file = nullptr;
  for (int attempt = 0; attempt < kNameAttempts && file == nullptr; ++attempt) {
    temporaryPath = fmt::format("{}.{:08x}.tmp", path, static_cast<std::uint32_t>(random()));
    file = CreateNewFile(temporaryPath);  // never writes into somebody else's file
    if (file == nullptr && errno != EEXIST) {
      break;
    }
  }
  if (file == nullptr) {
    ThrowCannotWrite(path, std::strerror(errno));
  }
  // An empty vector's data may be null, which fwrite must not get.
  const bool written =
      bytes.empty() || std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
  const int writeError = errno;
  const bool closed = std::fclose(file) == 0;  // the last block is written here
  if (!written || !closed) {
    const int error = written ? errno : writeError;
    RemoveTemporary();  // a throwing constructor runs no destructor
    ThrowCannotWrite(path, std::strerror(error));
  }
}

StagedFile::~StagedFile() { RemoveTemporary(); }

void StagedFile::Commit() {
  std::error_code error;
  std::filesystem::rename(std::filesystem::u8path(temporaryPath), std::filesystem::u8path(path),
                          error);
  if (error) {
    ThrowCannotWrite(path, error.message());
  }
  temporaryPath.clear();
}

void StagedFile::RemoveTemporary() noexcept {
  if (!temporaryPath.empty()) {
    std::error_code ignored;
    std::filesystem::remove(std::filesystem::u8path(temporaryPath), ignored);
  }
}

void WriteFileWhole(const std::string& path, const std::vector<std::uint8_t>& bytes) {
  StagedFile(path, bytes).Commit();
}

}  // namespace quorvex::tools
