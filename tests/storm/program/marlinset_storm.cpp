// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/storm/program/storm_program.h"

int main(int argc, char** argv) {
  return marlinset::RunStorms(argc, argv, marlinset::RunStorm);
}
