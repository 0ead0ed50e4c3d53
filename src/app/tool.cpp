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
      wholeSend(platform, variables, form, communications, commands),
      views(form),
      hardwareModel(variables, form),
      videoStandard(variables, form, panels),
      parameterList(variables, form, panels),
      panelRules(platform, variables, form, commands),
      configurationFile(platform, variables, form, panels),
      fileCommands(platform, variables, form, panels, configurationFile),
      startUp(platform, variables, form, database, panels, ports) {
  startUp.KeepStatusWhile([this] { return wholeSend.Running(); });
}

bool Tool::Start(const std::string& commandText) {
  const bool loaded = startUp.Form_Load(commandText);
  form.SetVisible(true);
  return loaded;
}

}  // namespace marlinset
