// Whole files as bytes and as text, and little-endian fields. File names are UTF-8.
#ifndef QUORVEX_TESTS_SUPPORT_BYTES_H_
#define QUORVEX_TESTS_SUPPORT_BYTES_H_

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

namespace quorvex::tests {

using Bytes = std::vector<unsigned char>;

// The lowest `count` bytes of the value, lowest first.
inline Bytes LittleEndian(std::uint64_t value, int count) {
  Bytes bytes;
  for (int i = 0; i < count; ++i) {
    bytes.push_back(static_cast<unsigned char>(value >> (8 * i) & 0xFF));
  }
  return bytes;
}

inline Bytes U16(std::uint64_t value) { return LittleEndian(value, 2); }
inline Bytes U32(std::uint64_t value) { return LittleEndian(value, 4); }

inline Bytes Concatenated(const std::vector<Bytes>& parts) {
  Bytes whole;
  for (const Bytes& part : parts) {
    whole.insert(whole.end(), part.begin(), part.end());
  }
  return whole;
}

// The part from `begin` to before `end`, cut where the bytes end.
inline Bytes Slice(const Bytes& bytes, std::size_t begin, std::size_t end) {
  Bytes slice;
  for (std::size_t i = begin; i < end && i < bytes.size(); ++i) {
    slice.push_back(bytes[i]);
  }
  return slice;
}

// The bytes of a file as a string.
inline std::string ReadWhole(const std::string& name) {
  const std::ifstream file(std::filesystem::u8path(name), std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

inline Bytes ReadBytes(const std::string& name) {
  const std::string text = ReadWhole(name);
  const auto* bytes = reinterpret_cast<const unsigned char*>(text.data());
  return Bytes(bytes, bytes + text.size());
}

inline void WriteBytes(const std::string& name, const Bytes& bytes) {
  std::ofstream(std::filesystem::u8path(name), std::ios::binary)
      .write(reinterpret_cast<const char*>(bytes.data()),
             static_cast<std::streamsize>(bytes.size()));
}

// The text of a file with lines that end as in C, whatever they end with in the file.
inline std::string ReadText(const std::string& name) {
  std::ifstream file(std::filesystem::u8path(name));
  return std::string(std::istreambuf_iterator<char>(file), {});
}

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_SUPPORT_BYTES_H_
