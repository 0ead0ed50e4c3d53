-- SPDX-License-Identifier: GPL-3.0-or-later
-- The operating modes. A mode is chosen by its "Name" or "ModeId" on the command line and is written into
-- configuration files by its "Name"; the names must therefore stay.

CREATE TABLE "Operating Mode" (
  "ModeId"       TEXT NOT NULL UNIQUE,
  "Name"         TEXT NOT NULL UNIQUE,
  "Order"        INTEGER NOT NULL,                              -- for readers of this table only
  "Description"  TEXT NOT NULL,                                 -- for readers of this table only
  "Ignore1"      INTEGER NOT NULL CHECK ("Ignore1" IN (0, 1))   -- not used
) STRICT;

INSERT INTO "Operating Mode" VALUES
  ('HDDC', 'HD Video Downconvert',   1, 'HD playback through the down converter with the seven windows of video work', 0),
  ('BIPH', 'Bi-Phase Accuracy Test', 2, 'Counts a film transport''s bi-phase pulses against the picture',               0),
  ('KEYK', 'KeyKode Accuracy Test',  3, 'Reads edge numbers on three VITC lines to check them against the picture',     0),
  ('MCAM', 'Multi-Camera Episodic',  4, 'Several cameras of one scene: time code and rolls on two VITC lines',          0),
  ('PRES', 'Pre-stripe Timecode',    5, 'Lays generated time code on blank stock',                                     0),
  ('TEST', 'Test',                   6, 'Every source on every output, for the bench',                                 0);
