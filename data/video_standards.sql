-- SPDX-License-Identifier: GPL-3.0-or-later
-- The video standards. The list on the main window shows them in the order of these rows; the first one is in force
-- until the operator or a file chooses another. Units report and take standards by these very texts.

CREATE TABLE "Video Standards" (
  "Description"              TEXT NOT NULL UNIQUE,
  "Code"                     REAL NOT NULL,     -- what a unit calls it, 1 to 8; for readers of this table only
  "Order"                    REAL NOT NULL,     -- for readers of this table only
  "Ignore1"                  INTEGER NOT NULL CHECK ("Ignore1" IN (0, 1)),   -- 1: not offered
  "Frame Rate"               INTEGER NOT NULL,  -- whole frames a second
  -- First and last line of a field on which a unit can write: VITC lines 1 to 3, their duplicates and the white flag.
  -- For an HD standard these are lines of the down converted picture, 525 lines at 24, 30 and 60 frames, 625 at 25.
  "VITC1 Line1Num Min"       INTEGER NOT NULL,
  "VITC1 Line1Num Max"       INTEGER NOT NULL,
  "VITC1 Line1Num Default1"  INTEGER NOT NULL,  -- white flag
  "VITC1 Line1Num Default2"  INTEGER NOT NULL,  -- first VITC line and its duplicate
  "VITC2 Line1Num Default1"  INTEGER NOT NULL,  -- not used
  "VITC2 Line1Num Default2"  INTEGER NOT NULL,  -- not used
  "VITC2 Line2Num Default1"  INTEGER NOT NULL,  -- second VITC line and its duplicate at first start
  "VITC2 Line2Num Default2"  INTEGER NOT NULL,  -- not used
  "VITC3 Line1Num Default1"  INTEGER NOT NULL,  -- third VITC line and its duplicate at first start
  "VITC3 Line1Num Default2"  INTEGER NOT NULL,  -- not used
  "ANC LineNum Min"          INTEGER NOT NULL,  -- lines of ancillary time code; not used
  "ANC LineNum Max"          INTEGER NOT NULL,
  "ANC LineNum Default"      INTEGER NOT NULL,
  CHECK ("VITC1 Line1Num Min" BETWEEN 1 AND "VITC1 Line1Num Max" AND "VITC1 Line1Num Max" <= 255),
  -- Lines of a set are neighbours, so three of them must fit behind the first one.
  CHECK ("VITC1 Line1Num Default2" BETWEEN "VITC1 Line1Num Min" AND "VITC1 Line1Num Max" - 2)
) STRICT;

INSERT INTO "Video Standards" VALUES
--  Description  Code Order Ign Rate  Limits  Flag VITC  2nd/1   2nd/2   3rd     ANC
  ('1080i/60',   4.0, 1.0, 0, 30,    10, 20,  11, 14,   15, 17, 15, 17, 16, 18,  9, 20, 10),
  ('1080i/50',   5.0, 2.0, 0, 25,     6, 22,  11, 19,   20, 21, 20, 21, 21, 22,  9, 20, 10),
  ('1080p/24',   3.0, 3.0, 0, 24,    10, 20,  11, 14,   15, 17, 15, 17, 16, 18,  9, 41, 10),
  ('720p/60',    8.0, 4.0, 0, 60,    10, 20,  11, 14,   15, 17, 15, 17, 16, 18,  9, 25, 10),
  ('NTSC',       1.0, 5.0, 0, 30,    10, 20,  11, 14,   15, 17, 15, 17, 16, 18, 12, 19, 13),
  ('PAL',        2.0, 6.0, 0, 25,     6, 22,  11, 19,   20, 21, 20, 21, 21, 22,  8, 22,  9),
  ('525i/60',    6.0, 7.0, 0, 30,    10, 20,  11, 14,   15, 17, 15, 17, 16, 18, 12, 19, 13),
  ('625i/50',    7.0, 8.0, 0, 25,     6, 22,  11, 19,   20, 21, 20, 21, 21, 22,  8, 22,  9);
