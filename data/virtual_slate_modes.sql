-- SPDX-License-Identifier: GPL-3.0-or-later
-- When the virtual slate shows. The first offered mode is the default. Code 1 is also what the preview box sends.

CREATE TABLE "Virtual Slate Modes" (
  "Description"  TEXT NOT NULL UNIQUE,
  "Code"         INTEGER NOT NULL CHECK ("Code" BETWEEN 0 AND 255),  -- on the wire
  "Ignore1"      INTEGER NOT NULL CHECK ("Ignore1" IN (0, 1))        -- 1: not offered
) STRICT;

INSERT INTO "Virtual Slate Modes" VALUES
  ('Off',                                0, 0),
  ('On',                                 1, 0),
  ('On at Event Start for Duration',     2, 0),
  ('On at Event End for Duration',       3, 0),
  ('On Between Events',                  4, 0),
  ('On Between Events and for Duration', 5, 0),
  ('On at Every Scene Change',           6, 1);
