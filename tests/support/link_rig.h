// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/frm_start.h"
#include "core/variables.h"
#include "link/communications.h"
#include "link/identification.h"
#include "link/line_events.h"
#include "link/ports.h"
#include "link/setting_commands.h"
#include "link/whole_send.h"
#include "tests/support/fake_computer.h"
#include "tests/support/sample_panels.h"
#include "wire/frame.h"

namespace marlinset {

/// The link of the tool with the sample configuration, a virtual unit at the far end of the line and a
/// virtual clock; for `Line` and `Clock` see FakeComputer.
template <class Line = UnitLine, class Clock = TestPump>
struct LinkRigOn : FakeComputer<Line, Clock> {
  using Computer = FakeComputer<Line, Clock>;
  using Computer::guard, Computer::line, Computer::platform, Computer::pump;

  explicit LinkRigOn(int model = kModelHd7340) : Computer({.model = model}) { FillSamplePanels(vars, form); }

  void Open() { line.SetPortOpen(true); }
  /// Open, identified: acknowledgements are awaited for 100 ms from now on.
  void OpenIdentified() {
    form.bGetID.Press();
    line.ClearSent();
  }
  const std::string& Panel(int number) const { return form.StatBar(number).Text(); }
  /// How many of the link's six buttons can be pressed.
  int EnabledButtons() const {
    int count = 0;
    for (const Button* button :
         {&form.bOpen, &form.bSend, &form.bClose, &form.bGetID, &form.bBroad, &form.bSConfig}) {
      count += button->Enabled() ? 1 : 0;
    }
    return count;
  }

  /// Bytes from the unit, now and in one piece, whatever they are.
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
  WholeSend wholeSend{platform, vars, form, comms, commands, ports};
};

using LinkRig = LinkRigOn<>;

}  // namespace marlinset
