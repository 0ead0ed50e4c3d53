// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/runtime_error.h"

namespace marlinset {

RuntimeError Overflow() {
  return {kErrOverflow, "Overflow"};
}
RuntimeError SubscriptOutOfRange() {
  return {kErrSubscript, "Subscript out of range"};
}
RuntimeError TypeMismatch() {
  return {kErrTypeMismatch, "Type mismatch"};
}
RuntimeError InvalidPropertyValue() {
  return {kErrBadProperty, "Invalid property value"};
}
RuntimeError NotSupported() {
  return {kErrNotSupported, "Object doesn't support this property or method"};
}
RuntimeError NoSuchElement(int index) {
  return {kErrNoSuchElement, "Control array element '" + std::to_string(index) + "' doesn't exist"};
}
RuntimeError PrinterError(std::string remedy) {
  return {kErrPrinter, "Printer error", std::move(remedy)};
}

}  // namespace marlinset
