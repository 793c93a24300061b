// The DLL as a file: what it exports, what it needs, and what it says about itself.
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "tests/windows/host_names.h"

namespace quorvex::tests {
namespace {

using Names = std::set<std::string>;

// The headers of the DLL, read where the loader has put it.
class LoadedLibrary {
 public:
  LoadedLibrary() : module_(LoadLibraryW(TheDll().c_str())) {
    const auto* const dosHeader = At<IMAGE_DOS_HEADER>(0);
    headers_ = At<IMAGE_NT_HEADERS64>(static_cast<DWORD>(dosHeader->e_lfanew));
  }
  ~LoadedLibrary() { FreeLibrary(module_); }
  LoadedLibrary(const LoadedLibrary&) = delete;
  LoadedLibrary& operator=(const LoadedLibrary&) = delete;

  template <typename T>
  const T* At(DWORD offset) const {
    return reinterpret_cast<const T*>(reinterpret_cast<const char*>(module_) + offset);
  }

  const IMAGE_NT_HEADERS64& Headers() const { return *headers_; }

  // Null where the DLL has no such directory.
  template <typename T>
  const T* Directory(int index) const {
    const DWORD offset = headers_->OptionalHeader.DataDirectory[index].VirtualAddress;
    return offset == 0 ? nullptr : At<T>(offset);
  }

  std::wstring Path() const {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(module_, path, MAX_PATH);
    return path;
  }

 private:
  HMODULE module_;
  const IMAGE_NT_HEADERS64* headers_;
};

class DllFileTest : public ::testing::Test {
 protected:
  const LoadedLibrary library;
};

TEST_F(DllFileTest, ExportsTheNamesOfHostsAndNoOther) {
  const auto* const exports =
      library.Directory<IMAGE_EXPORT_DIRECTORY>(IMAGE_DIRECTORY_ENTRY_EXPORT);
  ASSERT_NE(exports, nullptr);
  Names exported;
  const DWORD* const names = library.At<DWORD>(exports->AddressOfNames);
  for (DWORD i = 0; i < exports->NumberOfNames; ++i) {
    exported.insert(library.At<char>(names[i]));
  }
  EXPECT_EQ(exported, HostNames());
  EXPECT_EQ(exports->NumberOfNames, 21u);
  EXPECT_EQ(exports->NumberOfFunctions, 21u);  // none by number alone
  EXPECT_STREQ(library.At<char>(exports->Name), "quorvex.dll");
}

// Part of every Windows: files, memory and modules; message boxes; the C runtime that MinGW builds
// on. The compiler's own libraries are linked in, so that the DLL can be copied alone.
TEST_F(DllFileTest, NeedsTheSystemsLibrariesOnly) {
  const Names system = {"kernel32.dll", "user32.dll", "msvcrt.dll"};
  const auto* import = library.Directory<IMAGE_IMPORT_DESCRIPTOR>(IMAGE_DIRECTORY_ENTRY_IMPORT);
  ASSERT_NE(import, nullptr);
  Names needed;
  for (; import->Name != 0; ++import) {
    std::string name = library.At<char>(import->Name);
    std::transform(name.begin(), name.end(), name.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    needed.insert(name);
  }
  EXPECT_EQ(needed, system);
  EXPECT_EQ(library.Directory<char>(IMAGE_DIRECTORY_ENTRY_DELAY_IMPORT), nullptr);
}

// So that two builds of the same sources are the same file.
TEST_F(DllFileTest, DoesNotSayWhenItWasBuilt) {
  EXPECT_EQ(library.Headers().FileHeader.TimeDateStamp, 0u);
  EXPECT_EQ(library.Directory<IMAGE_EXPORT_DIRECTORY>(IMAGE_DIRECTORY_ENTRY_EXPORT)->TimeDateStamp,
            0u);
}

TEST_F(DllFileTest, Is64BitsAndMovable) {
  const IMAGE_NT_HEADERS64& headers = library.Headers();
  EXPECT_EQ(headers.FileHeader.Machine, IMAGE_FILE_MACHINE_AMD64);
  constexpr WORD kWanted = IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE |
                           IMAGE_DLLCHARACTERISTICS_NX_COMPAT |
                           IMAGE_DLLCHARACTERISTICS_HIGH_ENTROPY_VA;
  EXPECT_EQ(headers.OptionalHeader.DllCharacteristics & kWanted, kWanted);
}

class VersionTest : public DllFileTest {
 protected:
  VersionTest() {
    DWORD ignored = 0;
    resource_.resize(GetFileVersionInfoSizeW(library.Path().c_str(), &ignored));
    GetFileVersionInfoW(library.Path().c_str(), 0, static_cast<DWORD>(resource_.size()),
                        resource_.data());
  }

  // Null where the resource has no such value.
  template <typename T>
  const T* Value(const std::wstring& path) const {
    void* value = nullptr;
    UINT length = 0;
    return !resource_.empty() &&
                   VerQueryValueW(resource_.data(), path.c_str(), &value, &length) != FALSE &&
                   length > 0
               ? static_cast<const T*>(value)
               : nullptr;
  }

  std::wstring Text(const std::wstring& name) const {
    const wchar_t* const text = Value<wchar_t>(L"\\StringFileInfo\\040904B0\\" + name);
    return text == nullptr ? L"none" : text;
  }

 private:
  std::vector<char> resource_;
};

TEST_F(VersionTest, IsTheProjects) {
  const auto* const fixed = Value<VS_FIXEDFILEINFO>(L"\\");
  ASSERT_NE(fixed, nullptr);
  const std::vector<DWORD> version = {QUORVEX_VERSION_NUMBERS, 0};
  const DWORD high = version[0] << 16 | version[1];
  const DWORD low = version[2] << 16 | version[3];
  EXPECT_EQ(fixed->dwFileVersionMS, high);
  EXPECT_EQ(fixed->dwFileVersionLS, low);
  EXPECT_EQ(fixed->dwProductVersionMS, high);
  EXPECT_EQ(fixed->dwProductVersionLS, low);
  EXPECT_EQ(fixed->dwFileType, static_cast<DWORD>(VFT_DLL));
  EXPECT_EQ(Text(L"FileVersion"), L"" QUORVEX_VERSION);
  EXPECT_EQ(Text(L"ProductVersion"), L"" QUORVEX_VERSION);
}

TEST_F(VersionTest, NamesTheFile) {
  EXPECT_EQ(Text(L"OriginalFilename"), L"quorvex.dll");
  EXPECT_EQ(Text(L"ProductName"), L"Quorvex");
}

}  // namespace
}  // namespace quorvex::tests
