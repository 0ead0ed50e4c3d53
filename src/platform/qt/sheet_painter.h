// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "platform/form_printer.h"

class QPagedPaintDevice;
class QPageLayout;

namespace marlinset {

/// Margins and orientation of the record on a device's own paper.
QPageLayout RecordLayout(const QPagedPaintDevice& device);

/// Paints forms onto a device with pages, a sheet a page; the same for printer, preview and document. Failure
/// 482 when the device does not take them.
void PaintForms(QPagedPaintDevice& device, const std::vector<PrintedForm>& forms);

}  // namespace marlinset
