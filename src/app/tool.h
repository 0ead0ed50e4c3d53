// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "core/frm_start.h"
#include "core/load_arrays.h"
#include "core/panel_setup.h"
#include "core/variables.h"
#include "exchange/compare_command.h"
#include "exchange/comparison.h"
#include "exchange/table_commands.h"
#include "exchange/take_over.h"
#include "files/configuration_file.h"
#include "history/history.h"
#include "link/communications.h"
#include "link/held_settings.h"
#include "link/identification.h"
#include "link/interactive_mode.h"
#include "link/line_events.h"
#include "link/ports.h"
#include "link/setting_commands.h"
#include "link/whole_send.h"
#include "panels/ends_of_run.h"
#include "panels/file_commands.h"
#include "panels/hardware_model.h"
#include "panels/panel_rules.h"
#include "panels/parameter_dialogs.h"
#include "panels/parameter_list.h"
#include "panels/picture_rules.h"
#include "panels/port_devices.h"
#include "panels/recent_files.h"
#include "panels/recovery.h"
#include "panels/start_up.h"
#include "panels/traffic_rules.h"
#include "panels/unsaved_changes.h"
#include "panels/video_standard.h"
#include "panels/views.h"
#include "panels/window_settings.h"
#include "picture/remark_list.h"
#include "platform/platform.h"
#include "report/about.h"
#include "report/print_command.h"

namespace marlinset {

/// The complete tool without a screen, built on a platform: the panel model and every module connected to it.
/// Several can live in one process.
class Tool {
 public:
  explicit Tool(const Platform& platform);
  ~Tool();
  Tool(const Tool&) = delete;
  Tool& operator=(const Tool&) = delete;

  /// Starts the tool in the operating mode that `commandText` names (empty: the default) and shows the main
  /// window. Returns false if the start failed, after telling the operator why. Without `resume` it loads the
  /// defaults, whatever configuration the last run asked for, and offers only the work of a run that died.
  bool Start(const std::string& commandText, bool resume = true);
  /// The two halves of the start, so that a window can show a splash in between.
  bool Load(const std::string& commandText, bool resume = true);
  void Show();
  /// Another program takes the focus, or the tool gets it back; then the main window has it, unless the About
  /// box is open.
  void SetActive(bool active) { variables.MainFormActive = active && !about.Open(); }

  /// All windows of the tool, the main window first.
  std::vector<Form*> Forms();

  Platform platform;
  Variables variables;
  FrmStart form;

  ReferenceDatabase database;
  PanelSetup panels;
  Ports ports;
  Communications communications;
  LineEvents lineEvents;
  Identification identification;
  SettingCommands commands;
  HeldSettings held;
  WholeSend wholeSend;
  Views views;
  HardwareModel hardwareModel;
  VideoStandard videoStandard;
  ParameterList parameterList;
  ParameterDialogs parameterDialogs;
  PortDevices portDevices;
  PanelRules panelRules;
  PictureRules pictureRules;
  TrafficRules trafficRules;
  ConfigurationFile configurationFile;
  UnsavedChanges unsavedChanges;
  RemarkList remarks;
  Recovery recovery;
  FileCommands fileCommands;
  RecentFiles recentFiles;
  Comparison comparison;
  TakeOver takeOver;
  CompareCommand compareCommand;
  TableCommands tables;
  History history;
  InteractiveMode interactiveMode;
  WindowSettings windowSettings;
  EndsOfRun endsOfRun;
  StartUp startUp;
  PrintCommand printCommand;
  About about;
};

}  // namespace marlinset
