// SPDX-License-Identifier: GPL-3.0-or-later
#include "bench/program.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QCoreApplication>
#include <csignal>
#include <stdexcept>
#include <utility>

extern char** environ;

namespace marlinset {

std::string ProgramPath(const char* name) {
  return (QCoreApplication::applicationDirPath() + '/' + name).toStdString();
}

Program::Program(const char* name, const std::vector<std::string>& arguments) : name_(name) {
  std::vector<std::string> words{ProgramPath(name)};
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<char*> pointers;
  for (std::string& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  posix_spawn_file_actions_t files;
  posix_spawn_file_actions_init(&files);
  posix_spawn_file_actions_addopen(&files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  const int failed = posix_spawn(&child_, pointers[0], &files, nullptr, pointers.data(), environ);
  posix_spawn_file_actions_destroy(&files);
  if (failed != 0) throw std::runtime_error(name_ + " does not start");
}

Program::~Program() {
  if (child_ != 0) KillForPeakKib();
}

void Program::Finish() {
  int status = 0;
  if (waitpid(std::exchange(child_, 0), &status, 0) < 0 || status != 0)
    throw std::runtime_error(name_ + " fails");
}

long Program::KillForPeakKib() {
  kill(child_, SIGKILL);
  rusage used{};
  wait4(std::exchange(child_, 0), nullptr, 0, &used);
  return used.ru_maxrss;
}

}  // namespace marlinset
