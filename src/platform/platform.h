// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <string>

namespace marlinset {

class EventPump;
class MSComm;
class DataEngine;
class Dialogs;
class SettingsStore;
class Guard;
class FileDialog;
class FileSystem;
class FormPrinter;
class Desktop;
class PortMap;
class WorkKeeper;

/// What the computer offers to the tool. app/ (or a test) puts it together and passes it down by
/// reference.
struct Platform {
  EventPump& pump;
  MSComm& ComP1;
  DataEngine& engine;
  Dialogs& dialogs;
  SettingsStore& settings;
  Guard& guard;
  FileDialog& fileDialog;
  FileSystem& files;
  FormPrinter& printer;
  Desktop& desktop;
  /// Folder of the program, with reference database and default configuration.
  std::string programFolder;
  /// Keeps unsaved work for the next run; null if no operator composes.
  WorkKeeper* work = nullptr;
  /// Which devices ComP1 means by its port numbers; null if nobody may change that.
  PortMap* portMap = nullptr;
  /// Makes a closed line apart from ComP1 that knows one device, behind that port number. Set if `portMap`
  /// is.
  std::function<std::unique_ptr<MSComm>(int port, const std::string& device)> makeLine = {};
};

}  // namespace marlinset
