// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <fcntl.h>
#include <gmock/gmock.h>
#include <signal.h>
#include <stdio.h>
#include <sys/wait.h>
#include <unistd.h>

#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace marlinset {

using json = nlohmann::ordered_json;

/// A running program. A test that waits for output that does not come runs into its own time limit.
class ChildProgram {
 public:
  ChildProgram(const char* program, std::vector<std::string> options) {
    options.insert(options.begin(), program);
    std::vector<char*> arguments;
    arguments.reserve(options.size() + 1);
    for (std::string& word : options) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    int pipes[3][2];
    for (auto& ends : pipes) {
      if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    }
    process_ = fork();
    if (process_ == 0) {
      for (const int stream : {0, 1, 2}) dup2(pipes[stream][stream == 0 ? 0 : 1], stream);
      execv(program, arguments.data());
      _exit(127);
    }
    close(pipes[0][0]);
    for (const int stream : {1, 2}) close(pipes[stream][1]);
    input_ = pipes[0][1];
    output_ = fdopen(pipes[1][0], "r");
    errors_ = fdopen(pipes[2][0], "r");
  }
  ~ChildProgram() {
    End();
    fclose(output_);
    fclose(errors_);
  }
  ChildProgram(const ChildProgram&) = delete;
  ChildProgram& operator=(const ChildProgram&) = delete;

  void Tell(const std::string& line) const { dprintf(input_, "%s\n", line.c_str()); }
  /// The next line of standard output or standard error; empty at the end.
  std::string ReadLine() { return NextLine(output_); }
  std::string ReadDiagnostic() { return NextLine(errors_); }
  void Send(int signal) const { kill(process_, signal); }
  /// Closes its standard input and returns the exit status as a shell reports it: 128 + N for signal N.
  int End() {
    if (process_ < 0) return -1;
    close(input_);
    int status = 0;
    waitpid(std::exchange(process_, -1), &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  }

 private:
  static std::string NextLine(FILE* stream) {
    std::string line;
    for (int letter = 0; (letter = getc(stream)) != EOF && letter != '\n';) line += static_cast<char>(letter);
    return line;
  }

  pid_t process_;
  int input_;
  FILE* output_;
  FILE* errors_;
};

struct UnitProgram : ChildProgram {
  explicit UnitProgram(const std::vector<std::string>& options) : ChildProgram(UNIT_PROGRAM, options) {}
  /// What the unit answers after it has carried out the line.
  std::string State(const std::string& line) {
    Tell(line + "\nstate");
    return ReadLine();
  }
};

struct CliProgram : ChildProgram {
  explicit CliProgram(const std::vector<std::string>& options) : ChildProgram(CLI_PROGRAM, options) {}
};

/// Whether an answer holds this part: these members of an object, all elements of a list; the first ones
/// before "...".
inline bool Holds(const json& answer, const json& part) {
  if (!part.is_structured()) return answer == part;
  const bool open = part.is_array() && !part.empty() && part.back() == "...";
  if (part.is_array() && !open && answer.size() != part.size()) return false;
  for (const auto& [key, value] : part.items()) {
    const json::json_pointer place("/" + key);
    if (open && value == "...") continue;
    if (!answer.contains(place) || !Holds(answer[place], value)) return false;
  }
  return true;
}

struct Script : CliProgram {
  explicit Script(const std::vector<std::string>& options) : CliProgram(options) {
    start = json::parse(ReadLine(), nullptr, false);
  }
  json Answer(const std::string& line) {
    Tell(line);
    return json::parse(ReadLine(), nullptr, false);
  }
  /// Runs actions and compares each answer with the JSON beside it; without any it must be ok.
  void Expect(const std::vector<std::pair<std::string, std::string>>& lines) {
    for (const auto& [line, part] : lines) {
      const json answer = Answer(line);
      EXPECT_TRUE(Holds(answer, json::parse(part.empty() ? R"({"ok":true})" : part))) << line << "\n"
                                                                                      << answer;
      EXPECT_TRUE(answer.value("ok", false) || !answer.value("error", "").empty()) << line;
    }
  }
  json start;
};

}  // namespace marlinset
