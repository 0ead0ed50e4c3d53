-- SPDX-License-Identifier: GPL-3.0-or-later
-- What the SDI program output carries; the first offered one is the default.

CREATE TABLE "SDI Program Output" (
  "Order"        INTEGER NOT NULL,                                   -- for readers of this table only
  "Description"  TEXT NOT NULL UNIQUE,
  "Code"         INTEGER NOT NULL CHECK ("Code" BETWEEN 0 AND 255),  -- on the wire
  "Ignore1"      INTEGER NOT NULL CHECK ("Ignore1" IN (0, 1))        -- 1: not offered
) STRICT;

INSERT INTO "SDI Program Output" VALUES
  (1, 'HD Clean',            0, 0),
  (2, 'HD with Windows',     1, 0),
  (3, 'SD Clean',            2, 0),
  (4, 'SD with Windows',     3, 0),
  (5, 'Test Pattern',        4, 1);
