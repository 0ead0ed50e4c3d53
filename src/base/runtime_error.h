// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <exception>
#include <string>
#include <utility>

namespace marlinset {

/// A failure of a statement, with the stable number that operators quote to the service desk. A routine that
/// does not handle it passes it on to its caller; the guard (see guard.h) shows number and description, and
/// below them the remedy, which is often empty: what the operator can do.
class RuntimeError : public std::exception {
 public:
  RuntimeError(int number, std::string description, std::string remedy = {})
      : number_(number), description_(std::move(description)), remedy_(std::move(remedy)) {}

  int Number() const { return number_; }
  const std::string& Description() const { return description_; }
  const std::string& Remedy() const { return remedy_; }
  const char* what() const noexcept override { return description_.c_str(); }

 private:
  int number_;
  std::string description_;
  std::string remedy_;
};

constexpr int kErrInvalidCall = 5;
constexpr int kErrOverflow = 6;
constexpr int kErrMemory = 7;
constexpr int kErrSubscript = 9;
constexpr int kErrTypeMismatch = 13;
constexpr int kErrInternal = 51;
constexpr int kErrFileNotFound = 53;
constexpr int kErrDevice = 57;
constexpr int kErrDiskFull = 61;
constexpr int kErrFileAccess = 75;
constexpr int kErrPathNotFound = 76;
constexpr int kErrFileFormat = 321;
constexpr int kErrNoSuchElement = 340;
constexpr int kErrElementLoaded = 360;
constexpr int kErrBadProperty = 380;
constexpr int kErrNotSupported = 438;
constexpr int kErrPrinter = 482;
constexpr int kErrNoCurrentRecord = 3021;
constexpr int kErrNoDatabase = 3024;
constexpr int kErrNoTable = 3078;
constexpr int kErrNoColumn = 3265;
constexpr int kErrBadDatabase = 3343;
constexpr int kErrPort = 8002;

/// "Overflow": a number does not fit where it is to go, for example 256 in a byte of a message.
RuntimeError Overflow();
/// "Subscript out of range": an index beyond an array, or an array that was never filled.
RuntimeError SubscriptOutOfRange();
/// "Type mismatch": a value cannot be read as the type wanted, for example a database's text as a number.
RuntimeError TypeMismatch();
/// "Invalid property value": a control was given a value that it cannot take, for example the index of a list
/// entry that does not exist.
RuntimeError InvalidPropertyValue();
/// "Object doesn't support this property or method": a control was asked for what its kind cannot do.
RuntimeError NotSupported();
/// "Control array element 'N' doesn't exist".
RuntimeError NoSuchElement(int index);
/// "Printer error": a device that cannot be printed on.
RuntimeError PrinterError(std::string remedy = {});

/// Thrown to end the program at once, without a question and without saving, for example because the
/// reference database is unusable. Only `app`, at the edge of a program, catches it.
struct ProgramEnd {
  int status;
};

}  // namespace marlinset
