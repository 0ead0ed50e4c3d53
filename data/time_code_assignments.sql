-- SPDX-License-Identifier: GPL-3.0-or-later
-- Which list of code_sources.sql feeds which box of the routing panels, for each operating mode.
--
-- Each offered row also makes its number of VITC lines available in its mode, and the last one decides which number
-- is chosen at first: rows of the preferred number therefore stand last. A box is named once in a mode, or its list
-- would hold every source twice.

CREATE TABLE "Time Code Assignments" (
  "Device"       TEXT,              -- the unit that knows the row, a number; 0: none any more, the row is passed over
  "Name"         TEXT NOT NULL,     -- the operating mode
  "Order"        INTEGER NOT NULL,  -- for readers of this table only
  "VITC Mode"    INTEGER NOT NULL CHECK ("VITC Mode" IN (1, 2, 3)),  -- number of VITC lines
  "Field Name"   TEXT NOT NULL CHECK ("Field Name" IN (
                   'VTRT', 'VTRU',              -- reader input, time and user bits
                   'LTC1GT', 'LTC1GU',          -- LTC output
                   'VITC1T', 'VITC1U',          -- first VITC line
                   'VITC2',                     -- second VITC line
                   'VITC3T', 'VITC3U',          -- third VITC line
                   'ATRT', 'ATRU', 'Edge Style', 'LOGINK', 'LOGKK')),  -- known to units, without a box
  "Field Value"  TEXT NOT NULL,     -- the list
  "Ignore1"      INTEGER NOT NULL CHECK ("Ignore1" IN (0, 1))        -- 1: not offered
) STRICT;

INSERT INTO "Time Code Assignments" VALUES
-- HD Video Downconvert: one line at first, two and three to choose
  ('7340', 'HD Video Downconvert',   1, 3, 'VITC3T',     'V3TIME',   0),
  ('7340', 'HD Video Downconvert',   2, 3, 'VITC3U',     'V3USER',   0),
  ('7340', 'HD Video Downconvert',   3, 2, 'VITC2',      'V2DATA',   0),
  (' 0',   'HD Video Downconvert',   4, 1, 'VTRT',       'AUXTIME',  0),
  ('7340', 'HD Video Downconvert',   5, 1, 'Edge Style', 'EDGE',     1),
  ('7340', 'HD Video Downconvert',   6, 1, 'ATRT',       'AUXTIME',  0),
  ('7340', 'HD Video Downconvert',   7, 1, 'ATRU',       'AUXUSER',  0),
  ('7340', 'HD Video Downconvert',   8, 1, 'VTRT',       'INTIME',   0),
  ('7340', 'HD Video Downconvert',   9, 1, 'VTRU',       'INUSER',   0),
  ('7340', 'HD Video Downconvert',  10, 1, 'LTC1GT',     'LTCTIME',  0),
  ('7340', 'HD Video Downconvert',  11, 1, 'LTC1GU',     'LTCUSER',  0),
  ('7340', 'HD Video Downconvert',  12, 1, 'VITC1T',     'V1TIME',   0),
  ('7340', 'HD Video Downconvert',  13, 1, 'VITC1U',     'V1USER',   0),
-- Bi-Phase Accuracy Test: one line
  ('7340', 'Bi-Phase Accuracy Test', 1, 1, 'VTRT',       'FILMTIME', 0),
  ('7340', 'Bi-Phase Accuracy Test', 2, 1, 'VTRU',       'FILMUSER', 0),
  ('7340', 'Bi-Phase Accuracy Test', 3, 1, 'LTC1GT',     'LTCTIME',  0),
  ('7340', 'Bi-Phase Accuracy Test', 4, 1, 'LTC1GU',     'LTCUSER',  0),
  ('7340', 'Bi-Phase Accuracy Test', 5, 1, 'VITC1T',     'FILMTIME', 0),
  ('7340', 'Bi-Phase Accuracy Test', 6, 1, 'VITC1U',     'FILMUSER', 0),
-- KeyKode Accuracy Test: three lines at first
  ('7340', 'KeyKode Accuracy Test',  1, 1, 'VTRT',       'INTIME',   0),
  ('7340', 'KeyKode Accuracy Test',  2, 1, 'VTRU',       'INUSER',   0),
  ('7340', 'KeyKode Accuracy Test',  3, 1, 'LTC1GT',     'LTCTIME',  0),
  ('7340', 'KeyKode Accuracy Test',  4, 1, 'LTC1GU',     'LTCUSER',  0),
  ('7340', 'KeyKode Accuracy Test',  5, 1, 'VITC1T',     'V1TIME',   0),
  ('7340', 'KeyKode Accuracy Test',  6, 1, 'VITC1U',     'V1USER',   0),
  ('7340', 'KeyKode Accuracy Test',  7, 1, 'LOGINK',     'LOGCAM',   0),
  ('7340', 'KeyKode Accuracy Test',  8, 1, 'LOGKK',      'LOGEDGE',  0),
  ('7340', 'KeyKode Accuracy Test',  9, 2, 'VITC2',      'V2DATA',   0),
  ('7340', 'KeyKode Accuracy Test', 10, 3, 'VITC3T',     'V3TIME',   0),
  ('7340', 'KeyKode Accuracy Test', 11, 3, 'VITC3U',     'V3USER',   0),
  ('7340', 'KeyKode Accuracy Test', 12, 3, 'Edge Style', 'EDGE',     0),
-- Multi-Camera Episodic: two lines at first, one to choose
  ('7340', 'Multi-Camera Episodic',  1, 1, 'VTRT',       'INTIME',   0),
  ('7340', 'Multi-Camera Episodic',  2, 1, 'VTRU',       'INUSER',   0),
  ('7340', 'Multi-Camera Episodic',  3, 1, 'LTC1GT',     'LTCTIME',  0),
  ('7340', 'Multi-Camera Episodic',  4, 1, 'LTC1GU',     'LTCUSER',  0),
  ('7340', 'Multi-Camera Episodic',  5, 1, 'VITC1T',     'V1TIME',   0),
  ('7340', 'Multi-Camera Episodic',  6, 1, 'VITC1U',     'V1USER',   0),
  ('0',    'Multi-Camera Episodic',  7, 3, 'VITC3T',     'V3TIME',   0),
  ('7340', 'Multi-Camera Episodic',  8, 2, 'VITC2',      'V2DATA',   0),
-- Pre-stripe Timecode: one line
  ('7340', 'Pre-stripe Timecode',    1, 1, 'VTRT',       'INTIME',   0),
  ('7340', 'Pre-stripe Timecode',    2, 1, 'VTRU',       'INUSER',   0),
  ('7340', 'Pre-stripe Timecode',    3, 1, 'LTC1GT',     'GENTIME',  0),
  ('7340', 'Pre-stripe Timecode',    4, 1, 'LTC1GU',     'GENUSER',  0),
  ('7340', 'Pre-stripe Timecode',    5, 1, 'VITC1T',     'GENTIME',  0),
  ('7340', 'Pre-stripe Timecode',    6, 1, 'VITC1U',     'GENUSER',  0),
-- Test: one line at first, two and three to choose
  ('7340', 'Test',                   1, 3, 'VITC3T',     'V3TIME',   0),
  ('7340', 'Test',                   2, 3, 'VITC3U',     'V3USER',   0),
  ('7340', 'Test',                   3, 2, 'VITC2',      'V2DATA',   0),
  ('7340', 'Test',                   4, 1, 'ATRT',       'AUXTIME',  0),
  ('7340', 'Test',                   5, 1, 'ATRU',       'AUXUSER',  0),
  ('7340', 'Test',                   6, 1, 'Edge Style', 'EDGE',     0),
  ('7340', 'Test',                   7, 1, 'LOGINK',     'LOGCAM',   0),
  ('7340', 'Test',                   8, 1, 'LOGKK',      'LOGEDGE',  0),
  ('7340', 'Test',                   9, 1, 'VTRT',       'INTIME',   0),
  ('7340', 'Test',                  10, 1, 'VTRU',       'INUSER',   0),
  ('7340', 'Test',                  11, 1, 'LTC1GT',     'LTCTIME',  0),
  ('7340', 'Test',                  12, 1, 'LTC1GU',     'LTCUSER',  0),
  ('7340', 'Test',                  13, 1, 'VITC1T',     'V1TIME',   0),
  ('7340', 'Test',                  14, 1, 'VITC1U',     'V1USER',   0),
  ('7340', 'Test',                  15, 3, 'LOGKK',      'LOGEDGE',  1);
