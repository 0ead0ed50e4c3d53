// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/runtime_error.h"
#include "core/records.h"
#include "platform/settings_keys.h"

namespace marlinset {

inline constexpr std::string_view kDefaultOperatingMode = "HD Video Downconvert";
inline constexpr std::string_view kDatabaseFile = "shotsys.mdb";

/// A field of a message: a value from -128 to 255, or empty, which is sent as 0.
using PacketField = std::optional<int>;

/// The tool's shared data: one configuration, one link, one window. `app` creates it once and passes it down.
struct Variables {
  std::string OperatingMode;
  std::string DatabasePath;
  std::string AppPath;  ///< program folder with its trailing separator
  std::string HardwareType{kModelSetting.byDefault};
  std::string ParDisType = "Dec";
  std::string CurrentFile = "Unsaved";
  double FileChannel = 0;  ///< number of the file written last, 0 before the first
  std::string LoadFolder;
  std::string ConfigFolder;
  bool ConfigSaved = false;
  bool MainFormActive = false;
  int CurCharMaxRow = 0;  ///< row of CharMaxPositions that limits window positions now

  std::uint8_t VsLastIndex = 0;  ///< last selected entries, to undo typing
  std::array<std::uint8_t, 5> TbLastIndex{};
  std::array<std::uint8_t, 5> UbLastIndex{};

  bool VitcChanging = false;
  std::array<int, 6> VitcLineDefault{};
  int NextParameterClass = 0;  ///< highest row of the parameter list

  std::vector<PacketField> PacketFields;  ///< fields of the message about to be sent
  std::vector<std::uint8_t> TxBytes;      ///< frame last built

  int ActivityFrame = 0;
  bool UnitLocalMode = false;
  int UnitVideoStandard = 0;     ///< status byte of the last video sense reply
  std::string UnitStandardText;  ///< standard of the last video sense reply, empty if none came
  std::string UnitIdText;        ///< firmware text

  std::string PortList;                  ///< digits of the ports that could be opened at start ("134")
  std::array<bool, 5> ComPortPresent{};  ///< by port number, 1 to 4
  int ComPortNumber = 1;
  bool WaitFullReply = false;  ///< leave the receive buffer unread until it holds 20 bytes

  std::vector<VideoStandardRec> VideoStandards;
  std::vector<CharMaxPosRec> CharMaxPositions;
  std::vector<CharStyleRec> CharStyles;
  std::vector<CharSizeRec> CharSizes;
  std::vector<CodedItemRec> SlateModes;
  std::vector<CodedItemRec> DownConverterModes;
  std::vector<DownConvProcessRec> DownConverterProcessModes;
  std::vector<OrderedCodeRec> DownConverterFilters;
  std::vector<OrderedCodeRec> SdiProgramOutputs;
  std::vector<CodeSourceRec> CodeSources;
  std::vector<TimeCodeAssignmentRec> TimeCodeAssignments;
  std::vector<OperatingModeRec> OperatingModes;
  std::vector<HelpMessageRec> HelpMessages;
  std::vector<CharWindowRec> CharWindows;
  std::vector<SystemParameterRec> SystemParameters;
  std::vector<SystemParameterRec> ReferenceParameters;  ///< as the database had them when it was last read
};

/// Highest index of an array. Throws SubscriptOutOfRange if the array was never filled.
template <class T>
int UBound(const std::vector<T>& array) {
  if (array.empty()) throw SubscriptOutOfRange();
  return static_cast<int>(array.size()) - 1;
}

/// Element `index` of an array. Throws SubscriptOutOfRange if there is none.
template <class Array>
auto& At(Array& array, int index) {
  if (index < 0 || static_cast<std::size_t>(index) >= array.size()) throw SubscriptOutOfRange();
  return array[static_cast<std::size_t>(index)];
}

}  // namespace marlinset
