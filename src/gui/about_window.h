// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <memory>

#include "report/frm_about.h"

namespace marlinset {

/// The window of the About box. Its texts can be selected, to mail them to the service desk.
std::unique_ptr<QDialog> MakeAboutWindow(FrmAbout& form, QWidget* parent);

}  // namespace marlinset
