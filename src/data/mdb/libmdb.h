// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// libmdb's header includes glib's inside `extern "C"`, where C++ templates are not allowed; so glib's comes
// first.
#include <glib.h>
// The order above must stay.
#include <mdbtools.h>
