// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

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
class WorkKeeper;

/// What the computer offers, as the tool sees it. Put together in app/ (or in a test) and handed down by
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
  /// Folder of the program: reference database and default configuration lie here.
  std::string programFolder;
  /// Keeps unsaved work for the next run; none where no operator composes.
  WorkKeeper* work = nullptr;
};

}  // namespace marlinset
