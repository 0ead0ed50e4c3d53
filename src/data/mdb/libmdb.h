// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// libmdb's header includes glib's inside `extern "C"`, where its C++ templates may not stand; so glib's comes
// first.
#include <glib.h>
// The order above must stay.
#include <mdbtools.h>
