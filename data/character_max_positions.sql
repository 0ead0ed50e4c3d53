-- SPDX-License-Identifier: GPL-3.0-or-later
-- How far a character window may go, for each video standard and font size. Vertical positions count units of eight
-- lines of a field and are kept in one byte by configuration files; horizontal ones are columns: the picture is 32
-- columns wide whatever the size. A character row is 4 units high in "Large", 2 in "Small" and 1 in "Tiny". The first
-- position is that of the first row that units show, the last one that of the last row that lies within the field.
--
-- Sizes are offered from the rows of hardware 1000 and 200, one for each standard and size. Rows of other hardware
-- must stand before them: the last row of a standard and size is the one whose limits count.

CREATE TABLE "Character Max Positions" (
  "Description"     TEXT NOT NULL,     -- font size
  "Video Standard"  TEXT NOT NULL,
  "HardwareID"      INTEGER NOT NULL,  -- 1000: HD7340 and HD7340Q, 200: SD7340, 100: units before them
  "Min Vert Posn"   INTEGER NOT NULL CHECK ("Min Vert Posn" >= 0),
  "Max Vert Posn"   INTEGER NOT NULL CHECK ("Max Vert Posn" BETWEEN "Min Vert Posn" AND 255),
  "Min Hor Posn"    INTEGER NOT NULL CHECK ("Min Hor Posn" >= 0),
  "Max Hor Posn"    INTEGER NOT NULL CHECK ("Max Hor Posn" BETWEEN "Min Hor Posn" AND 32),
  UNIQUE ("Description", "Video Standard", "HardwareID")
) STRICT;

INSERT INTO "Character Max Positions" VALUES
  ('Large (32 lines/field)', 'NTSC',     100, 32,  56, 0, 24),
  ('Small (16 lines/field)', 'NTSC',     100, 36,  64, 0, 24),
  ('Large (32 lines/field)', 'PAL',      100, 32,  64, 0, 24),
  ('Small (16 lines/field)', 'PAL',      100, 36,  70, 0, 24),
  ('Large (32 lines/field)', '1080i/60', 1000, 32,  92, 0, 32),
  ('Small (16 lines/field)', '1080i/60', 1000, 36, 100, 0, 32),
  ('Tiny (8 lines/field)',   '1080i/60', 1000, 37, 103, 0, 32),
  ('Large (32 lines/field)', '1080i/50', 1000, 32,  92, 0, 32),
  ('Small (16 lines/field)', '1080i/50', 1000, 36, 100, 0, 32),
  ('Tiny (8 lines/field)',   '1080i/50', 1000, 37, 103, 0, 32),
  ('Large (32 lines/field)', '1080p/24', 1000, 32,  92, 0, 32),
  ('Small (16 lines/field)', '1080p/24', 1000, 36, 100, 0, 32),
  ('Tiny (8 lines/field)',   '1080p/24', 1000, 37, 103, 0, 32),
  ('Large (32 lines/field)', '720p/60',  1000, 32, 116, 0, 32),
  ('Small (16 lines/field)', '720p/60',  1000, 36, 124, 0, 32),
  ('Tiny (8 lines/field)',   '720p/60',  1000, 37, 126, 0, 32),
  ('Large (32 lines/field)', 'NTSC',      200, 32,  56, 0, 32),
  ('Small (16 lines/field)', 'NTSC',      200, 36,  64, 0, 32),
  ('Tiny (8 lines/field)',   'NTSC',      200, 37,  66, 0, 32),
  ('Large (32 lines/field)', 'PAL',       200, 32,  64, 0, 32),
  ('Small (16 lines/field)', 'PAL',       200, 36,  70, 0, 32),
  ('Tiny (8 lines/field)',   'PAL',       200, 37,  72, 0, 32),
  ('Large (32 lines/field)', '525i/60',  1000, 32,  56, 0, 32),
  ('Small (16 lines/field)', '525i/60',  1000, 36,  64, 0, 32),
  ('Tiny (8 lines/field)',   '525i/60',  1000, 37,  66, 0, 32),
  ('Large (32 lines/field)', '625i/50',  1000, 32,  64, 0, 32),
  ('Small (16 lines/field)', '625i/50',  1000, 36,  70, 0, 32),
  ('Tiny (8 lines/field)',   '625i/50',  1000, 37,  72, 0, 32);
