// How full the disk of a folder is, for messages.
#ifndef QUORVEX_TOOLS_SYSTEM_DISK_ROOM_H_
#define QUORVEX_TOOLS_SYSTEM_DISK_ROOM_H_

#include <cstdint>
#include <filesystem>
#include <string>

namespace quorvex::tools {

// "/tmp, on a disk with 3.0 MiB of 8.0 GiB free"; the folder alone when the system does not tell.
std::string DescribeRoom(const std::filesystem::path& folder);

// "512 bytes", "3.0 MiB".
std::string BytesText(std::uintmax_t bytes);

}  // namespace quorvex::tools

#endif  // QUORVEX_TOOLS_SYSTEM_DISK_ROOM_H_
