// Little-endian fields of file headers.
#ifndef QUORVEX_IMAGEIO_LITTLE_ENDIAN_H_
#define QUORVEX_IMAGEIO_LITTLE_ENDIAN_H_

#include <cstdint>

namespace quorvex {

inline std::uint16_t GetU16(const unsigned char* bytes) {
  return static_cast<std::uint16_t>(bytes[0] | bytes[1] << 8);
}

inline std::uint32_t GetU32(const unsigned char* bytes) {
  return GetU16(bytes) | static_cast<std::uint32_t>(GetU16(bytes + 2)) << 16;
}

inline void PutU16(unsigned char* bytes, std::uint16_t value) {
  bytes[0] = static_cast<unsigned char>(value & 0xFF);
  bytes[1] = static_cast<unsigned char>(value >> 8);
}

inline void PutU32(unsigned char* bytes, std::uint32_t value) {
  PutU16(bytes, static_cast<std::uint16_t>(value & 0xFFFF));
  PutU16(bytes + 2, static_cast<std::uint16_t>(value >> 16));
}

}  // namespace quorvex

#endif  // QUORVEX_IMAGEIO_LITTLE_ENDIAN_H_
