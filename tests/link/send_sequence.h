// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/link_rig.h"
#include "tests/support/table.h"

namespace marlinset {

using Texts = std::vector<std::string>;

/// Columns of the table of messages: fields; what is yellow meanwhile; what the operator reads if the
/// acknowledgement is missing; when it is sent (always, for model Q, with the inserter on or off); its wait.
enum Column : std::size_t { kFields, kMarks, kFailure, kWhen, kWaitMs };

/// The messages of a whole send between the queries for the standard at its beginning and its end.
struct Sequence {
  explicit Sequence(bool modelQ = false, bool charOn = true) {
    for (const TableRow& row : TableOf("whole_send")) {
      if (row[kWhen] == (charOn ? "off" : "on") || (row[kWhen] == "model Q" && !modelQ)) continue;
      rows.push_back(row);
      fields.push_back(row[kFields]);
    }
  }
  /// With those queries.
  Texts Framed() const {
    const char* const sense = "15 0 52";
    Texts all{"15 0 53", sense};
    all.insert(all.end(), fields.begin(), fields.end());
    all.emplace_back(sense);
    return all;
  }

  std::vector<TableRow> rows;
  Texts fields;
};

/// The controls that are yellow, except the traffic indicator.
inline std::string Marked(const LinkRig& rig) {
  std::string names;
  for (const Control* control : rig.form.Controls()) {
    if (control->BackColor() != kYellow || control == &rig.form.pComBut) continue;
    names += (names.empty() ? "" : " ") + control->FullName();
  }
  return names;
}

inline void ExpectIdle(const LinkRig& rig) {
  EXPECT_EQ(Marked(rig), "");
  EXPECT_EQ(rig.form.comVS.BackColor(), kWindowColor);
  EXPECT_EQ(rig.EnabledButtons(), 6);
  EXPECT_EQ(rig.form.InterTime.Enabled(), rig.form.mnuInter.Checked());
  EXPECT_FALSE(rig.wholeSend.Running() || rig.form.tClearStat.Enabled());
}

}  // namespace marlinset
