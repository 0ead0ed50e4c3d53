-- SPDX-License-Identifier: GPL-3.0-or-later
-- Aspect ratios of the down converted picture; the first offered one is the default.

CREATE TABLE "Down Converter Modes" (
  "Description"  TEXT NOT NULL UNIQUE,
  "Code"         INTEGER NOT NULL CHECK ("Code" BETWEEN 0 AND 255),  -- on the wire
  "Ignore1"      INTEGER NOT NULL CHECK ("Ignore1" IN (0, 1))        -- 1: not offered
) STRICT;

INSERT INTO "Down Converter Modes" VALUES
  ('16:9 Letterbox',         0, 0),
  ('4:3 Edge Crop',          1, 0),
  ('16:9 Anamorphic',        2, 0),
  ('14:9 Partial Letterbox', 3, 0),
  ('13:9 Partial Letterbox', 4, 0);
