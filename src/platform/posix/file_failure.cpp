// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/posix/file_failure.h"

#include <algorithm>
#include <cerrno>
#include <iterator>
#include <system_error>

namespace marlinset {
namespace {

struct Reason {
  int error;
  int number;
  const char* words;
};

constexpr Reason kReasons[] = {
    {ENOSPC, kErrDiskFull, "The disk is full."},
    {EDQUOT, kErrDiskFull, "Your share of the disk is used up."},
    {EFBIG, kErrDiskFull, "Files may not become that large here."},
    {EACCES, kErrFileAccess, "There is no permission for it."},
    {EPERM, kErrFileAccess, "There is no permission for it."},
    {EROFS, kErrFileAccess, "The disk can only be read."},
    {EISDIR, kErrFileAccess, "This is a folder."},
    {EEXIST, kErrFileAccess, "That name is already taken."},
    {EIO, kErrFileAccess, "The disk reports a fault."},
    {ENOTDIR, kErrFileAccess, "A part of its path is no folder."},
    {ENAMETOOLONG, kErrFileAccess, "The name is too long."},
    {EBADF, kErrFileAccess, "It is closed."},
    {ELOOP, kErrFileAccess, "Its links lead in a circle."},
};

RuntimeError Failure(int number, const std::string& path, const std::string& reason) {
  const char* description = number == kErrDiskFull       ? "Disk full"
                            : number == kErrFileNotFound ? "File not found"
                                                         : "Path/File access error";
  return {number, description, path.empty() ? reason : path + "\n" + reason};
}

RuntimeError Failure(const std::string& path, int error) {
  const auto* found = std::find_if(std::begin(kReasons), std::end(kReasons),
                                   [error](const Reason& reason) { return reason.error == error; });
  if (found != std::end(kReasons)) return Failure(found->number, path, found->words);
  return Failure(kErrFileAccess, path, std::generic_category().message(error) + ".");
}

/// A line each; the reason alone if no path is known.
const std::string& PathAndReason(const RuntimeError& failure) {
  return failure.Remedy().empty() ? failure.Description() : failure.Remedy();
}

}  // namespace

RuntimeError ReadFailure(const std::string& path, int error) {
  if (error == ENOENT) return Failure(kErrFileNotFound, path, "It is not there.");
  return Failure(path, error);
}

RuntimeError WriteFailure(const std::string& path, int error) {
  if (error == ENOENT) return FileRefused(path, "Its folder is not there.");
  return Failure(path, error);
}

RuntimeError FileRefused(const std::string& path, const std::string& reason) {
  return Failure(kErrFileAccess, path, reason);
}

void RequireRegular(const std::string& path, const struct stat& status) {
  if (S_ISREG(status.st_mode)) return;
  throw FileRefused(path, S_ISDIR(status.st_mode)    ? "This is a folder."
                          : S_ISFIFO(status.st_mode) ? "This is a pipe, not a file."
                          : S_ISSOCK(status.st_mode) ? "This is a socket, not a file."
                                                     : "This is a device, not a file.");
}

std::string ReasonOf(const RuntimeError& failure) {
  const std::string& text = PathAndReason(failure);
  return text.substr(text.find('\n') + 1);  // all of it without a path
}

std::string InOneLine(const RuntimeError& failure) {
  std::string text = PathAndReason(failure);
  if (const auto lineBreak = text.find('\n'); lineBreak != std::string::npos)
    text.replace(lineBreak, 1, ": ");
  return text;
}

}  // namespace marlinset
