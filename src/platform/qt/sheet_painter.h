// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "platform/form_printer.h"

class QPagedPaintDevice;
class QPageLayout;

namespace marlinset {

/// The record's margins and orientation on a device's own paper.
QPageLayout RecordLayout(const QPagedPaintDevice& device);

/// Paints forms onto a paged device, one sheet on each page; used for printer, preview and document. Throws
/// PrinterError if the device does not take them.
void PaintForms(QPagedPaintDevice& device, const std::vector<PrintedForm>& forms);

}  // namespace marlinset
