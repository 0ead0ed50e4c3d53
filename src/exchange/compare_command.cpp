// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/compare_command.h"

#include <algorithm>
#include <memory>

#include "base/runtime_error.h"
#include "controls/dialogs.h"
#include "controls/guard.h"
#include "core/frm_start.h"
#include "core/variables.h"
#include "files/configuration_file.h"
#include "platform/file_dialog.h"
#include "platform/file_system.h"
#include "platform/platform.h"
#include "platform/settings_keys.h"

namespace marlinset {

CompareCommand::CompareCommand(Platform& platform, const Variables& variables, FrmStart& form,
                               const Comparison& comparison, TakeOver& takeOver)
    : platform_(platform), vars_(variables), form_(form), comparison_(comparison), takeOver_(takeOver) {
  form_.mnuCompare.OnClick([this] { Ask(); });
}

/// What is compared may be in a folder of its own, such as yesterday's setups.
void CompareCommand::Ask() {
  const std::string folder = folder_.empty() ? LastFolder(platform_.settings, vars_.AppPath) : folder_;
  const auto file = AskToOpen(platform_.fileDialog, {.CancelError = true,
                                                     .Filter = std::string(kConfigurationFilter),
                                                     .Flags = kHideReadOnly,
                                                     .FileName = "*" + std::string(kConfigurationExtension),
                                                     .InitDir = folder,
                                                     .DialogTitle = "Compare with"});
  if (!file) return;
  folder_ = FolderOfPath(*file);
  Open(*file);
}

void CompareCommand::Open(const std::string& path) {
  try {
    const auto other = std::make_shared<const OtherFile>(comparison_.Read(path));
    const std::string name = FileNameOf(path);
    if (show) {
      show({.title = "Compare with " + name, .action = TakeOverName(name), .differences = [this, other] {
              return comparison_.With(*other);
            }});
    }
  } catch (const RuntimeError& failure) {
    Tell(failure);
  }
}

void CompareCommand::Take(const Offer& offer, const std::vector<NewValue>& shown) {
  try {
    const std::vector<ComparedValue> present = offer.differences();
    for (const NewValue& value : shown) {
      const auto row = std::ranges::find(present, value.name, &ComparedValue::name);
      if (row != present.end() && row->there != value.value) {
        throw RuntimeError(kErrInvalidCall, "The panels have changed, and with them what is offered.",
                           "Nothing was taken over. Look at the values again.");
      }
    }
    takeOver_.Set(offer.action, shown);
  } catch (const RuntimeError& failure) {
    Tell(failure);
  }
}

void CompareCommand::Tell(const RuntimeError& failure) const {
  platform_.dialogs.Show(
      {.text = failure.Description(), .icon = BoxIcon::kCritical, .remedy = failure.Remedy()});
}

}  // namespace marlinset
