-- SPDX-License-Identifier: GPL-3.0-or-later
-- How the down converter treats motion, offered for each video standard. A description has one code whatever the
-- standard, because the code is looked up by the description alone.

CREATE TABLE "Down Converter Process Modes" (
  "Order"           INTEGER NOT NULL,                                   -- for readers of this table only
  "Description"     TEXT NOT NULL,
  "Code"            INTEGER NOT NULL CHECK ("Code" BETWEEN 0 AND 255),  -- on the wire
  "Video Standard"  TEXT NOT NULL,
  "Ignore1"         INTEGER NOT NULL CHECK ("Ignore1" IN (0, 1)),       -- 1: not offered
  UNIQUE ("Description", "Video Standard")
) STRICT;

INSERT INTO "Down Converter Process Modes" VALUES
  (10, 'Field Based',           0, '1080i/60', 0),
  (11, 'Motion Adaptive',       1, '1080i/60', 0),
  (12, 'Frame Based',           2, '1080i/60', 0),
  (20, 'Field Based',           0, '1080i/50', 0),
  (21, 'Motion Adaptive',       1, '1080i/50', 0),
  (22, 'Frame Based',           2, '1080i/50', 0),
  (30, '2:3 Pulldown',          3, '1080p/24', 0),
  (31, '2:3:3:2 Pulldown',      4, '1080p/24', 0),
  (32, 'Frame Based',           2, '1080p/24', 0),
  (40, 'Alternate Frames',      5, '720p/60',  0),
  (41, 'Frame Blend',           6, '720p/60',  0),
  (42, 'Reverse 2:3 Detection', 7, '720p/60',  1),
  (50, 'Bypass',                8, 'NTSC',     0),
  (60, 'Bypass',                8, 'PAL',      0),
  (70, 'Bypass',                8, '525i/60',  0),
  (80, 'Bypass',                8, '625i/50',  0);
