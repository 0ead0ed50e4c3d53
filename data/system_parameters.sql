-- SPDX-License-Identifier: GPL-3.0-or-later
-- The units' numeric parameters. Class and number together name one on the wire and in configuration files. Two are
-- kept out on purpose: 0/0 switches a unit between automatic and manual video standard and would be sent with every
-- configuration; and everything in deleted_parameters.sql.
--
-- A row finds its record by the description, so each description is there once. Values from 256 on must not have a
-- low byte below 16: configuration files lose a digit of those. Negative values cannot be read from a file at all.

CREATE TABLE "System Parameters" (
  "Class"        INTEGER NOT NULL CHECK ("Class" BETWEEN 0 AND 255),      -- 1 and 25: internal, never shown or sent
  "Parameter"    INTEGER NOT NULL CHECK ("Parameter" BETWEEN 0 AND 255),
  "Description"  TEXT NOT NULL UNIQUE CHECK ("Description" <> ''),
  "Value"        INTEGER NOT NULL
                 CHECK ("Value" BETWEEN 0 AND 255 OR ("Value" BETWEEN 256 AND 32767 AND "Value" % 256 >= 16)),
  UNIQUE ("Class", "Parameter"),
  CHECK ("Class" <> 0 OR "Parameter" <> 0)
) STRICT;

INSERT INTO "System Parameters" VALUES
-- Internal
  ( 1,  0, 'Board Revision',                            3),
  ( 1,  1, 'Calibration Week',                        120),
  ( 1,  2, 'Hours of Operation Counter',                0),
-- Time code readers
  ( 2,  0, 'LTC Reader Flywheel (frames)',              8),
  ( 2,  1, 'LTC Reader Lowest Level (mV)',             80),
  ( 2,  2, 'VITC Reader First Line',                   10),
  ( 2,  3, 'VITC Reader Last Line',                    20),
  ( 2,  4, 'VITC Reader Checks CRC (0 no, 1 yes)',      1),
  ( 2,  5, 'Ancillary Reader Line',                    10),
  ( 2,  6, 'Reader Time Offset (frames)',               0),
-- Generators
  ( 3,  0, 'Generator Drop Frame (0 no, 1 yes)',        1),
  ( 3,  1, 'Generator Start Hour',                      1),
  ( 3,  2, 'LTC Output Level (mV)',                   800),
  ( 3,  3, 'LTC Output Rise Time (us)',                40),
  ( 3,  4, 'LTC Output Delay (frames)',                 0),
  ( 3,  5, 'Jam Sync (0 off, 1 once, 2 always)',        1),
-- VITC and white flag
  ( 4,  0, 'VITC Output Level (mV)',                  550),
  ( 4,  1, 'VITC Horizontal Start (samples)',         148),
  ( 4,  2, 'White Flag Level (percent)',              100),
  ( 4,  3, 'White Flag Length (lines)',                 1),
  ( 4,  4, 'Blank Lines Without VITC (0 no, 1 yes)',    0),
-- Character inserter
  ( 5,  0, 'Character Luminance (percent)',            90),
  ( 5,  1, 'Character Box Luminance (percent)',        10),
  ( 5,  2, 'Character Safe Area (percent)',            80),
  ( 5,  3, 'Character Horizontal Offset (samples)',    24),
  ( 5,  4, 'Hide Windows While Stopped (0 no, 1 yes)',  0),
-- Film
  ( 6,  0, 'Film Gauge (16 or 35 mm)',                 35),
  ( 6,  1, 'Perforations per Frame',                    4),
  ( 6,  2, 'Bi-Phase Pulses per Frame',                10),
  ( 6,  3, 'Edge Number Reader Distance (frames)',     18),
  ( 6,  4, 'Pulldown Reference Frame (0 A, 1 B, 2 C, 3 D)', 0),
-- Down converter
  ( 7,  0, 'Down Converter Luminance Delay (samples)', 32),
  ( 7,  1, 'Down Converter Horizontal Phase (samples)', 858),
  ( 7,  2, 'Down Converter Vertical Phase (lines)',     0),
  ( 7,  3, 'Setup on Composite Output (0 no, 1 yes)',   1),
  ( 7,  4, 'Detail Enhancement (percent)',             25),
-- Control inputs
  ( 8,  0, 'Event Input Polarity (0 low, 1 high)',      0),
  ( 8,  1, 'Event Input Debounce (ms)',                20),
  ( 8,  2, 'Recorder Poll Interval (ms)',              33),
-- Kept for the factory
  (25,  0, 'Service Mode Mask',                         0),
  (25,  1, 'Trace Level',                              16);
