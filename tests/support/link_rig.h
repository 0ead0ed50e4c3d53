// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/frm_start.h"
#include "core/variables.h"
#include "link/communications.h"
#include "link/held_settings.h"
#include "link/identification.h"
#include "link/line_events.h"
#include "link/ports.h"
#include "link/setting_commands.h"
#include "link/whole_send.h"
#include "tests/support/fake_computer.h"
#include "tests/support/sample_panels.h"
#include "wire/frame.h"

namespace marlinset {

/// The tool's link with the sample configuration; for `Line` and `Clock` see FakeComputer.
template <class Line = UnitLine, class Clock = TestPump>
struct LinkRigOn : FakeComputer<Line, Clock> {
  using Computer = FakeComputer<Line, Clock>;
  using Computer::guard, Computer::line, Computer::platform, Computer::pump;

  explicit LinkRigOn(int model = kModelHd7340) : Computer({.model = model}) { FillSamplePanels(vars, form); }

  void Open() { line.SetPortOpen(true); }
  /// Opens the port and identifies the unit, so that the tool waits 100 ms for acknowledgements.
  void OpenIdentified() {
    form.bGetID.Press();
    line.ClearSent();
  }
  const std::string& Panel(int number) const { return form.StatBar(number).Text(); }
  /// How many of the link's six buttons are enabled.
  int EnabledButtons() const {
    int count = 0;
    for (const Button* button :
         {&form.bOpen, &form.bSend, &form.bClose, &form.bGetID, &form.bBroad, &form.bSConfig}) {
      count += button->Enabled() ? 1 : 0;
    }
    return count;
  }

  /// Any bytes from the unit arrive now, in one piece.
  void Receive(const Bytes& bytes) {
    line.SetGate(false);
    line.Inject(bytes, pump.Now());
    pump.Pass(0);
  }
  void ReceiveFields(const Bytes& fields) { Receive(EncodeFrame(fields)); }

  std::vector<std::string> Sent() const { return line.SentFields(); }

  Variables vars;
  FrmStart form{pump, guard};
  Ports ports{platform, vars, form};
  Communications comms{platform, vars, form};
  LineEvents lineEvents{platform, form, comms, ports};
  Identification identification{platform, vars, form, comms};
  SettingCommands commands{platform, vars, form, comms};
  HeldSettings held{form, commands, ports};
  WholeSend wholeSend{platform, vars, form, comms, commands, held, ports};
};

using LinkRig = LinkRigOn<>;

}  // namespace marlinset
