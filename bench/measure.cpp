/// bench_measure ROUNDS COMMAND... [-- COMMAND...]...
///
/// Runs the commands in alternation (first, second, ..., first, second, ...) ROUNDS times and prints one line for each:
/// the median wall clock time and the median processor time of the whole process in seconds, and the largest peak
/// memory in KiB. Each command's standard output goes to a file named by its first word: "OUTPUT program arguments...".
/// A command that fails ends the measurement with status 1; Tovak's exit status for doubts does not count as failure,
/// as some formats cannot hold the made-up points exactly.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int kDoubts = 4;

struct Command {
  const char* output = nullptr;
  std::vector<char*> arguments;  ///< ends with a null pointer, as execvp requires
  std::vector<double> wallSeconds;
  std::vector<double> cpuSeconds;
  long peakKib = 0;
};

std::vector<Command> commandsOf(char** argument) {
  std::vector<Command> commands(1);
  for (; *argument != nullptr; ++argument) {
    Command& last = commands.back();
    if (std::strcmp(*argument, "--") == 0) {
      commands.emplace_back();
    } else if (last.output == nullptr) {
      last.output = *argument;
    } else {
      last.arguments.push_back(*argument);
    }
  }
  for (Command& command : commands) command.arguments.push_back(nullptr);
  return commands;
}

[[noreturn]] void becomeCommand(const Command& command) {
  const int output = open(command.output, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  if (output >= 0 && dup2(output, STDOUT_FILENO) >= 0) execvp(command.arguments.front(), command.arguments.data());
  std::perror(command.arguments.front());
  _exit(127);
}

double seconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

bool runOnce(Command& command) {
  const auto start = std::chrono::steady_clock::now();
  const pid_t child = fork();
  if (child == 0) becomeCommand(command);
  int status = 0;
  rusage usage{};
  if (child < 0 || wait4(child, &status, 0, &usage) != child) return false;
  const std::chrono::duration<double> wall = std::chrono::steady_clock::now() - start;
  command.wallSeconds.push_back(wall.count());
  command.cpuSeconds.push_back(seconds(usage.ru_utime) + seconds(usage.ru_stime));
  command.peakKib = std::max(command.peakKib, usage.ru_maxrss);
  const bool done = WIFEXITED(status) && (WEXITSTATUS(status) == 0 || WEXITSTATUS(status) == kDoubts);
  if (!done) std::fprintf(stderr, "bench_measure: %s failed\n", command.arguments.front());
  return done;
}

double median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

}  // namespace

int main(int argc, char** argv) {
  const long rounds = argc > 3 ? std::strtol(argv[1], nullptr, 10) : 0;
  if (rounds < 1) return 2;
  std::vector<Command> commands = commandsOf(argv + 2);
  for (long round = 0; round < rounds; ++round) {
    for (Command& command : commands) {
      if (!runOnce(command)) return 1;
    }
  }
  for (const Command& command : commands) {
    std::printf("%.6f %.6f %ld\n", median(command.wallSeconds), median(command.cpuSeconds), command.peakKib);
  }
  return 0;
}
