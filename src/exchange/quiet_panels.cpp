// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/quiet_panels.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "controls/dialogs.h"
#include "controls/guard.h"
#include "controls/packed_fields.h"
#include "core/choices.h"
#include "core/frm_start.h"
#include "core/panel_setup.h"
#include "core/variables.h"
#include "files/panel_document.h"
#include "link/communications.h"
#include "link/setting_commands.h"
#include "panels/panel_rules.h"
#include "panels/parameter_list.h"
#include "panels/video_standard.h"
#include "platform/file_dialog.h"
#include "platform/no_line.h"
#include "platform/platform.h"
#include "platform/settings_store.h"
#include "platform/virtual_pump.h"

namespace marlinset {
namespace {

class NoDialogs : public Dialogs {
 protected:
  BoxAnswer Present(const MessageBox& box) override {
    return box.buttons == BoxButtons::kYesNo ? BoxAnswer::kNo : BoxAnswer::kOk;
  }
  void PresentForm(Form& /*form*/) override {}
};

class NoSettings : public SettingsStore {
 public:
  std::string GetSetting(std::string_view /*key*/, std::string_view defaultValue) const override {
    return std::string(defaultValue);
  }
  void SaveSetting(std::string_view /*key*/, std::string_view /*value*/) override {}
};

class NoFileDialog : public FileDialog {
 protected:
  std::optional<std::string> AskOpen() override { return std::nullopt; }
  std::optional<std::string> AskSave() override { return std::nullopt; }
};

SystemParameterRec InternalParameter() {
  SystemParameterRec parameter;
  parameter.Class = 1;
  return parameter;
}

void CopyState(const Control& from, Control& to) {
  FieldPacker state;
  from.PackState(state);
  FieldReader fields(state.Bytes());
  to.RestoreState(fields);
}

}  // namespace

struct QuietPanels::Parts {
  Parts(const Platform& lender, const Variables& variables, const FrmStart& panels)
      : platform{.pump = pump,
                 .ComP1 = line,
                 .engine = lender.engine,
                 .dialogs = dialogs,
                 .settings = settings,
                 .guard = guard,
                 .fileDialog = fileDialog,
                 .files = lender.files,
                 .printer = lender.printer,
                 .desktop = lender.desktop,
                 .programFolder = lender.programFolder} {
    vars = variables;
    // Loading replaces all parameters; a single internal one, which no row shows, leaves no trace in them.
    vars.SystemParameters.assign(1, InternalParameter());
    for (int row = 1; row <= UBound(vars.CharWindows); ++row) {
      form.ForWindowRow([row](auto& array) { array.Load(row); });
    }
    CopyState(panels.comVS, form.comVS);
    for (const Choice& choice : kChoices) {
      if (choice.onNew == OnNew::kKeep) CopyState(BoxOf(panels, choice.id), BoxOf(form, choice.id));
    }
    for (const int mode : panels.oVITC.Indices()) CopyState(panels.oVITC(mode), form.oVITC(mode));
    form.SetVisible(panels.Visible());
  }

  NoDialogs dialogs;
  Guard guard{dialogs};
  VirtualPump pump;
  NoLine line;
  NoSettings settings;
  NoFileDialog fileDialog;
  Platform platform;
  Variables vars;
  FrmStart form{pump, guard};
  PanelSetup setup{vars, form};
  Communications communications{platform, vars, form};
  SettingCommands commands{platform, vars, form, communications};
  VideoStandard videoStandard{vars, form, setup};
  ParameterList parameterList{vars, form, setup, commands};
  PanelRules panelRules{platform, vars, form, commands};
  PanelLoader loader{platform, vars, form, setup};
};

QuietPanels::QuietPanels(const Platform& platform, const Variables& variables, const FrmStart& form)
    : parts_(std::make_unique<Parts>(platform, variables, form)) {}

QuietPanels::~QuietPanels() = default;

LoadOutcome QuietPanels::Load(std::span<const std::uint8_t> bytes) {
  return parts_->loader.Load(bytes, PanelLoader::Mode::kPresent);
}

void QuietPanels::SelectStandard(const std::string& standard) {
  const std::vector<std::string>& list = parts_->form.comVS.List();
  const auto found = std::ranges::find(list, standard);
  if (!list.empty()) {
    parts_->form.comVS.Preselect(found == list.end() ? 0 : static_cast<int>(found - list.begin()));
  }
}

QcfDocument QuietPanels::Document() const {
  return DocumentOfPanels(parts_->vars, parts_->form);
}

}  // namespace marlinset
