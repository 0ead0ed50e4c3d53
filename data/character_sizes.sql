-- SPDX-License-Identifier: GPL-3.0-or-later
-- The font sizes. A unit's rows are counted in steps of the size, which the tool tells from these very texts.

CREATE TABLE "Character Sizes" (
  "Char Size ID"  TEXT NOT NULL UNIQUE,
  "Description"   TEXT NOT NULL UNIQUE,
  "Code"          INTEGER NOT NULL CHECK ("Code" BETWEEN 0 AND 255),  -- on the wire
  "Ignore1"       INTEGER NOT NULL CHECK ("Ignore1" IN (0, 1))        -- 1: not offered
) STRICT;

INSERT INTO "Character Sizes" VALUES
  ('L32', 'Large (32 lines/field)', 0, 0),
  ('S16', 'Small (16 lines/field)', 1, 0),
  ('T08', 'Tiny (8 lines/field)',   2, 0);
