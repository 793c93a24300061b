#include "tests/support/run_program.h"

#include <windows.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <stdexcept>

#include "tools/system/command_line_windows.h"

namespace quorvex::tests {
namespace {

struct HandleCloser {
  void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using Handle = std::unique_ptr<void, HandleCloser>;

std::wstring Wide(const std::string& text) { return std::filesystem::u8path(text).wstring(); }

// A variable of this process, and so of those that it starts, put back at the end.
class Variable {
 public:
  Variable(const std::string& name, const std::string& value) : name_(Wide(name)) {
    constexpr DWORD kLongestValue = 32767;
    std::wstring before(kLongestValue, L'\0');
    const DWORD length = GetEnvironmentVariableW(name_.c_str(), before.data(), kLongestValue);
    if (length != 0) before_ = before.substr(0, length);
    SetEnvironmentVariableW(name_.c_str(), Wide(value).c_str());
  }
  ~Variable() { SetEnvironmentVariableW(name_.c_str(), before_ ? before_->c_str() : nullptr); }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;

 private:
  std::wstring name_;
  std::optional<std::wstring> before_;
};

// Quotes stand only where they must, as somebody would type it.
std::wstring TypedLine(const ProgramRun& run) {
  std::wstring line = tools::CommandLine(run.program, {});
  for (const std::string& argument : run.arguments) {
    const bool isPlain = !argument.empty() && argument.find_first_of(" \t\"") == std::string::npos;
    line += L' ' + (isPlain ? Wide(argument) : tools::QuotedArgument(argument));
  }
  return line;
}

Handle OpenInheritable(const std::wstring& path, DWORD access, DWORD disposition) {
  SECURITY_ATTRIBUTES attributes = {sizeof attributes, nullptr, TRUE};
  constexpr DWORD kShared = FILE_SHARE_READ | FILE_SHARE_WRITE;
  const HANDLE handle = CreateFileW(path.c_str(), access, kShared, &attributes, disposition,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
  if (handle == INVALID_HANDLE_VALUE) throw std::runtime_error("cannot open a program's streams");
  return Handle(handle);
}

}  // namespace

int RunProgram(const ProgramRun& run) {
  const std::filesystem::path folder = std::filesystem::u8path(run.folder);
  const std::wstring input = run.input.empty() ? L"NUL" : (folder / Wide(run.input)).wstring();
  const Handle in = OpenInheritable(input, GENERIC_READ, OPEN_EXISTING);
  const Handle out = OpenInheritable(folder / Wide(run.output), GENERIC_WRITE, CREATE_ALWAYS);
  const Handle err = OpenInheritable(folder / Wide(run.errors), GENERIC_WRITE, CREATE_ALWAYS);
  std::vector<std::unique_ptr<Variable>> variables;
  for (const auto& [name, value] : run.environment) {
    variables.push_back(std::make_unique<Variable>(name, value));
  }

  STARTUPINFOW startup = {};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdInput = in.get();
  startup.hStdOutput = out.get();
  startup.hStdError = err.get();
  PROCESS_INFORMATION started = {};
  std::wstring line = TypedLine(run);
  if (CreateProcessW(Wide(run.program).c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr,
                     folder.c_str(), &startup, &started) == 0) {
    throw std::runtime_error("cannot run " + run.program);
  }
  const Handle process(started.hProcess);
  const Handle thread(started.hThread);
  WaitForSingleObject(process.get(), INFINITE);
  DWORD exitCode = 0;
  GetExitCodeProcess(process.get(), &exitCode);
  return static_cast<int>(exitCode);
}

}  // namespace quorvex::tests
