-- SPDX-License-Identifier: GPL-3.0-or-later
-- The looks of the characters, for all windows together; the first offered one is the default.

CREATE TABLE "Character Styles" (
  "Char Style ID"  TEXT NOT NULL UNIQUE,
  "Description"    TEXT NOT NULL UNIQUE,
  "Code"           INTEGER NOT NULL CHECK ("Code" BETWEEN 0 AND 255),  -- on the wire
  "Order"          INTEGER NOT NULL,                                   -- for readers of this table only
  "Ignore1"        INTEGER NOT NULL CHECK ("Ignore1" IN (0, 1))        -- 1: not offered
) STRICT;

INSERT INTO "Character Styles" VALUES
  ('WBOX', 'White on Black Box',   0, 1, 0),
  ('WOUT', 'White with Outline',   1, 2, 0),
  ('WGRY', 'White on Grey Box',    2, 3, 0),
  ('BBOX', 'Black on White Box',   3, 4, 0),
  ('BOUT', 'Black with Outline',   4, 5, 0),
  ('WTRN', 'White, No Background', 5, 6, 0),
  ('TEST', 'Checkered Test Cells', 9, 7, 1);
