// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/tool.h"

#include "platform/event_pump.h"

namespace marlinset {

Tool::Tool(const Platform& computer)
    : platform(computer),
      form(platform.pump, platform.guard),
      database(platform, variables),
      panels(variables, form),
      ports(platform, variables, form),
      communications(platform, variables, form),
      lineEvents(platform, form, communications, ports),
      identification(platform, variables, form, communications),
      commands(platform, variables, form, communications),
      held(form, commands, ports),
      wholeSend(platform, variables, form, communications, commands, held, ports),
      views(form),
      hardwareModel(variables, form),
      videoStandard(variables, form, panels),
      parameterList(variables, form, panels, commands),
      parameterDialogs(platform, variables, database, parameterList, form),
      portDevices(platform, form, ports),
      panelRules(platform, variables, form, commands),
      pictureRules(platform, variables, form, panelRules.Windows()),
      trafficRules(platform, variables, form, communications, commands),
      configurationFile(platform, variables, form, panels),
      unsavedChanges(platform, variables, form, configurationFile),
      remarks(form, variables, configurationFile),
      recovery(platform, variables, form, configurationFile, unsavedChanges),
      fileCommands(platform, variables, form, panels, configurationFile, unsavedChanges, recovery),
      recentFiles(platform, form, configurationFile, fileCommands),
      comparison(platform, variables, form),
      takeOver(platform, variables, form, panels, wholeSend),
      compareCommand(platform, variables, form, comparison, takeOver),
      tables(platform, variables, form, takeOver, compareCommand),
      history(platform, variables, form, {configurationFile, unsavedChanges, communications, wholeSend}),
      interactiveMode(platform, variables, form, communications, commands, held, wholeSend),
      windowSettings(platform, variables, form, database),
      endsOfRun(
          platform, variables, form,
          {configurationFile, fileCommands, commands, interactiveMode, ports, windowSettings, recovery}),
      startUp(platform, variables, form,
              {database, panels, ports, windowSettings, endsOfRun, unsavedChanges, recovery}),
      printCommand(platform, variables, form),
      about(platform, variables, form, database, identification) {
  windowSettings.KeepStatusWhile([this] { return wholeSend.Running(); });
}

Tool::~Tool() = default;

bool Tool::Load(const std::string& commandText, bool resume) {
  return startUp.Form_Load(commandText, resume);
}

void Tool::Show() {
  form.SetVisible(true);
  variables.MainFormActive = true;
  history.Begin();
}

bool Tool::Start(const std::string& commandText, bool resume) {
  const bool loaded = Load(commandText, resume);
  Show();
  return loaded;
}

std::vector<Form*> Tool::Forms() {
  return {&form, &parameterDialogs.frmEditParameters, &parameterDialogs.frmDeleteParameter, &portDevices.form,
          &about.form};
}

}  // namespace marlinset
