#include "tests/support/run_program.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <stdexcept>

extern char** environ;

namespace quorvex::tests {
namespace {

// As posix_spawn takes them; they live as long as the texts.
std::vector<char*> Pointers(const std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  for (const std::string& text : texts) pointers.push_back(const_cast<char*>(text.c_str()));
  pointers.push_back(nullptr);
  return pointers;
}

std::vector<std::string> Environment(const std::map<std::string, std::string>& changes) {
  std::vector<std::string> variables;
  for (char** variable = environ; *variable != nullptr; ++variable) {
    const std::string text = *variable;
    if (changes.count(text.substr(0, text.find('='))) == 0) variables.push_back(text);
  }
  for (const auto& [name, value] : changes) variables.push_back(name + "=" + value);
  return variables;
}

}  // namespace

int RunProgram(const ProgramRun& run) {
  std::vector<std::string> arguments{run.program};
  arguments.insert(arguments.end(), run.arguments.begin(), run.arguments.end());
  const std::vector<std::string> environment = Environment(run.environment);

  const std::string input = run.input.empty() ? "/dev/null" : run.input;
  constexpr int kNewFile = O_WRONLY | O_CREAT | O_TRUNC;
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addchdir_np(&actions, run.folder.c_str());
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, input.c_str(), O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, run.output.c_str(), kNewFile, 0600);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, run.errors.c_str(), kNewFile, 0600);
  pid_t process = 0;
  const int error = posix_spawn(&process, run.program.c_str(), &actions, nullptr,
                                Pointers(arguments).data(), Pointers(environment).data());
  posix_spawn_file_actions_destroy(&actions);
  int status = 0;
  if (error != 0 || waitpid(process, &status, 0) != process) {
    throw std::runtime_error("cannot run " + run.program);
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace quorvex::tests
