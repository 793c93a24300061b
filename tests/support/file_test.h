// Files through the platform's CFile, in a directory of their own.
#ifndef QUORVEX_TESTS_SUPPORT_FILE_TEST_H_
#define QUORVEX_TESTS_SUPPORT_FILE_TEST_H_

#include <gtest/gtest.h>

#include <fstream>
#include <memory>
#include <string>

#include "platform/mfc.h"
#include "tests/support/bytes.h"
#include "tests/support/temporary_directory.h"

namespace quorvex::tests {

inline constexpr UINT kWriteNew = CFile::modeCreate | CFile::modeWrite;
inline constexpr char kName[] = "file";

struct Deleter {
  void operator()(CFileException* exception) const { exception->Delete(); }
};
using ExceptionPointer = std::unique_ptr<CFileException, Deleter>;

class FileTest : public ::testing::Test {
 protected:
  static void Put(const std::string& text) { std::ofstream(kName, std::ios::binary) << text; }

  static std::string Contents() { return ReadWhole(kName); }

  // The cause of the refusal, CFileException::none when the file opens.
  static int CauseOfOpen(const char* path, UINT flags) {
    const ExceptionPointer error(new CFileException(CFileException::none));
    CFile file;
    const bool isOpen = file.Open(CA2T(path), flags, error.get()) != FALSE;
    EXPECT_EQ(isOpen, error->m_cause == CFileException::none);
    return error->m_cause;
  }

  // The cause that Write throws, CFileException::none when it does not.
  static int CauseOfWrite(CFile& file, const std::string& text) {
    try {
      file.Write(text.data(), static_cast<UINT>(text.size()));
    } catch (CFileException* exception) {
      return ExceptionPointer(exception)->m_cause;
    }
    return CFileException::none;
  }

 private:
  TemporaryDirectory directory_;
};

}  // namespace quorvex::tests

#endif  // QUORVEX_TESTS_SUPPORT_FILE_TEST_H_
