// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <memory>

#include "core/frm_ports.h"

namespace marlinset {

/// The window that gives each port number its device. Closing it in any way ends a test.
std::unique_ptr<QDialog> MakePortWindow(FrmPorts& form, QWidget* parent);

}  // namespace marlinset
