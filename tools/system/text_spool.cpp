#include "tools/system/text_spool.h"

#include <fmt/format.h>

#include <cerrno>
#include <cstring>

#include "tools/errors.h"
#include "tools/system/output_file.h"
#include "tools/system/staged_file.h"
#include "tools/system/system_files.h"

namespace quorvex::tools {
namespace {

constexpr std::size_t kPieceBytes = 1 << 16;

[[noreturn]] void ThrowNoRoom(const char* reason) {
  throw InputError(
      fmt::format("the folder for temporary files does not take the points found: {}", reason));
}

}  // namespace

TextSpool::TextSpool(std::size_t capacity) : capacity_(capacity) {}

void TextSpool::Append(const std::string& text) {
  held_ += text;
  if (held_.size() > capacity_) {
    Spill();
  }
}

void TextSpool::Spill() {
  if (!file_) {
    file_.reset(OpenScratchFile());
  }
  if (!file_ || std::fwrite(held_.data(), 1, held_.size(), file_.get()) != held_.size() ||
      std::fflush(file_.get()) != 0) {
    ThrowNoRoom(std::strerror(errno));
  }
  held_.clear();
}

void TextSpool::ForEachPiece(const std::function<void(const std::string&)>& use) {
  if (file_) {
    std::rewind(file_.get());
    std::string piece(kPieceBytes, '\0');
    std::size_t count = kPieceBytes;
    while ((count = std::fread(piece.data(), 1, kPieceBytes, file_.get())) > 0) {
      use(count == kPieceBytes ? piece : piece.substr(0, count));
    }
    if (std::ferror(file_.get()) != 0) {
      ThrowNoRoom("it cannot be read again");
    }
  }
  use(held_);
}

void TextSpool::WriteTo(const std::filesystem::path& path) {
  if (IsStandardOutput(path)) {
    ForEachPiece([](const std::string& piece) { WriteToStandardOutput(piece); });
    return;
  }
  StagedFile target(path);
  ForEachPiece([&](const std::string& piece) { target.Append(piece.data(), piece.size()); });
  target.Commit();
}

}  // namespace quorvex::tools
