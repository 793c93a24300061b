#include "tools/system/disk_room.h"

#include <fmt/format.h>

#include <system_error>

#include "tools/system/file_name.h"

namespace quorvex::tools {

std::string BytesText(std::uintmax_t bytes) {
  if (bytes < 1024) return fmt::format("{} bytes", bytes);
  double amount = static_cast<double>(bytes) / 1024;
  for (const char* unit : {"KiB", "MiB", "GiB"}) {
    if (amount < 1024) return fmt::format("{:.1f} {}", amount, unit);
    amount /= 1024;
  }
  return fmt::format("{:.1f} TiB", amount);
}

std::string DescribeRoom(const std::filesystem::path& folder) {
  std::error_code error;
  const std::filesystem::space_info space = std::filesystem::space(folder, error);
  if (error) return Utf8Name(folder);
  return fmt::format("{}, on a disk with {} of {} free", Utf8Name(folder),
                     BytesText(space.available), BytesText(space.capacity));
}

}  // namespace quorvex::tools
