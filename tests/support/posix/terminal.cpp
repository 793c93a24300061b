#include "tests/support/posix/terminal.h"

#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>
#include <unistd.h>

#include <cstddef>
#include <stdexcept>
#include <thread>

namespace quorvex::tests {
namespace {

constexpr int kPause = 20;  // milliseconds

// Lines of text with a cursor, which is all that the command asks of a terminal.
class Screen {
 public:
  void Put(char c) {
    std::string& line = lines_.back();
    if (c == '\n') {
      lines_.emplace_back();
      column_ = 0;
    } else if (c == '\r') {
      column_ = 0;
    } else {
      if (column_ >= line.size()) line.resize(column_ + 1, ' ');
      line[column_++] = c;
    }
  }

  std::string Line() const { return WithoutBlanks(lines_.back()); }

  std::string Text() const {
    std::string text;
    for (const std::string& line : lines_) text += WithoutBlanks(line) + "\n";
    return text;
  }

 private:
  static std::string WithoutBlanks(const std::string& line) {
    return line.substr(0, line.find_last_not_of(' ') + 1);
  }

  std::vector<std::string> lines_{""};
  std::size_t column_ = 0;
};

int OpenTerminal() {
  const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
  if (terminal < 0 || grantpt(terminal) != 0 || unlockpt(terminal) != 0) {
    throw std::runtime_error("cannot open a pseudo terminal");
  }
  return terminal;
}

// Until nobody has the other end open any more.
void Watch(int terminal, Screen& screen, std::vector<std::string>& looks) {
  for (;;) {
    pollfd event = {terminal, POLLIN, 0};
    if (poll(&event, 1, kPause) == 0) {
      looks.push_back(screen.Line());
      continue;
    }
    char bytes[256];
    const ssize_t count = read(terminal, bytes, sizeof bytes);
    if (count <= 0) return;
    for (ssize_t i = 0; i < count; ++i) screen.Put(bytes[i]);
  }
}

}  // namespace

TerminalRun RunInTerminal(const ProgramRun& run) {
  const int terminal = OpenTerminal();
  ProgramRun inTerminal = run;
  inTerminal.errors = ptsname(terminal);
  // Kept open until the program has ended, so that reading does not end before it begins.
  const int other = open(inTerminal.errors.c_str(), O_RDWR | O_NOCTTY);
  TerminalRun seen;
  Screen screen;
  std::thread program([&] {
    seen.exitCode = RunProgram(inTerminal);
    close(other);
  });
  Watch(terminal, screen, seen.looks);
  program.join();
  close(terminal);
  seen.screen = screen.Text();
  return seen;
}

}  // namespace quorvex::tests
