-- SPDX-License-Identifier: GPL-3.0-or-later
-- Where an input or output can take its time or user bits from. All rows with one "Field Value" are the list of one
-- box, in this order; the first is the box's default. A description has one number wherever it stands, because the
-- number is looked up by the description alone. Configuration files hold the descriptions: they must stay, and
-- "Video LTC Reader Time", "Video LTC Reader User Bits", "Output Video Recorder Time", "Input Video Recorder Time",
-- "Video Recorder Time" and "Video Recorder User Bits" are what the names in old files are turned into.

CREATE TABLE "Code Sources" (
  "Field Value"  TEXT NOT NULL,  -- the list, named by time_code_assignments.sql
  "Description"  TEXT NOT NULL,
  "Gen Number"   INTEGER NOT NULL CHECK ("Gen Number" BETWEEN 0 AND 255),  -- on the wire
  "Drop Frame"   TEXT,           -- Y: counts drop frame when the source does, N: carries no count; not used
  UNIQUE ("Field Value", "Description")
) STRICT;

INSERT INTO "Code Sources" VALUES
-- Reader input, time bits
  ('INTIME', 'Video LTC Reader Time',               1, 'Y'),
  ('INTIME', 'Video VITC Reader Time',              3, 'Y'),
  ('INTIME', 'Input Video Recorder Time',           7, 'Y'),
  ('INTIME', 'Output Video Recorder Time',          5, 'Y'),
  ('INTIME', 'RP188 LTC Ancillary Data Reader',    10, 'Y'),
  ('INTIME', 'RP188 VITC1 Ancillary Data Reader',  11, 'Y'),
  ('INTIME', 'RP188 VITC2 Ancillary Data Reader',  12, 'Y'),
-- Reader input, user bits
  ('INUSER', 'Video LTC Reader User Bits',          2, 'N'),
  ('INUSER', 'Video VITC Reader User Bits',         4, 'N'),
  ('INUSER', 'Video Recorder User Bits',            6, 'N'),
  ('INUSER', 'Film Ancillary Data Reader',          9, 'N'),
-- LTC output, time bits
  ('LTCTIME', 'Video LTC Reader Time',              1, 'Y'),
  ('LTCTIME', 'Video Recorder Time',                8, 'Y'),
  ('LTCTIME', 'Output Video Recorder Time',         5, 'Y'),
  ('LTCTIME', 'RP188 LTC Ancillary Data Reader',   10, 'Y'),
  ('LTCTIME', 'Sound LTC Reader Time',             13, 'Y'),
  ('LTCTIME', 'Time Code Generator',               18, 'Y'),
-- LTC output, user bits
  ('LTCUSER', 'Video LTC Reader User Bits',         2, 'N'),
  ('LTCUSER', 'Video Recorder User Bits',           6, 'N'),
  ('LTCUSER', 'Sound LTC Reader User Bits',        14, 'N'),
  ('LTCUSER', 'User Bit Generator',                19, 'N'),
  ('LTCUSER', 'No User Bits',                       0, NULL),
-- First VITC line
  ('V1TIME', 'Output Video Recorder Time',          5, 'Y'),
  ('V1TIME', 'Video LTC Reader Time',               1, 'Y'),
  ('V1TIME', 'RP188 VITC1 Ancillary Data Reader',  11, 'Y'),
  ('V1TIME', 'Time Code Generator',                18, 'Y'),
  ('V1USER', 'Video Recorder User Bits',            6, 'N'),
  ('V1USER', 'Input Video Recorder Time',           7, 'Y'),
  ('V1USER', 'Video LTC Reader User Bits',          2, 'N'),
  ('V1USER', 'User Bit Generator',                 19, 'N'),
  ('V1USER', 'No User Bits',                        0, NULL),
-- Second VITC line: one source fills time and user bits
  ('V2DATA', 'KeyKode Reader',                     15, 'N'),
  ('V2DATA', 'Film Ancillary Data Reader',          9, 'N'),
  ('V2DATA', 'RP188 VITC2 Ancillary Data Reader',  12, 'Y'),
-- Third VITC line
  ('V3TIME', 'In-Camera Time Code Reader',         16, 'Y'),
  ('V3TIME', 'Sound LTC Reader Time',              13, 'Y'),
  ('V3TIME', 'Output Video Recorder Time',          5, 'Y'),
  ('V3USER', 'In-Camera User Bits Reader',         17, 'N'),
  ('V3USER', 'Sound LTC Reader User Bits',         14, 'N'),
  ('V3USER', 'No User Bits',                        0, NULL),
-- Film transports
  ('FILMTIME', 'Bi-Phase Counter',                 22, 'N'),
  ('FILMTIME', 'Video LTC Reader Time',             1, 'Y'),
  ('FILMTIME', 'In-Camera Time Code Reader',       16, 'Y'),
  ('FILMUSER', 'Film Footage Counter',             23, 'N'),
  ('FILMUSER', 'KeyKode Reader',                   15, 'N'),
  ('FILMUSER', 'Video LTC Reader User Bits',        2, 'N'),
-- Generators alone, for stock without code
  ('GENTIME', 'Time Code Generator',               18, 'Y'),
  ('GENTIME', 'Time of Day Clock',                 20, 'Y'),
  ('GENUSER', 'User Bit Generator',                19, 'N'),
  ('GENUSER', 'Date',                              21, 'N'),
  ('GENUSER', 'No User Bits',                       0, NULL),
-- Lists without a box on the panels
  ('AUXTIME', 'Sound LTC Reader Time',             13, 'Y'),
  ('AUXUSER', 'Sound LTC Reader User Bits',        14, 'N'),
  ('EDGE',    'Edge Number 35 mm 4 Perforations',  32, 'N'),
  ('EDGE',    'Edge Number 35 mm 3 Perforations',  33, 'N'),
  ('EDGE',    'Edge Number 16 mm',                 34, 'N'),
  ('LOGCAM',  'Log In-Camera Code',                40, 'N'),
  ('LOGEDGE', 'Log KeyKode',                       41, 'N');
