-- SPDX-License-Identifier: GPL-3.0-or-later
-- The character windows, in the order in which the panel shows them. Offered windows rise by "Number", since
-- a configuration file is put into that order when it is loaded. "Text" is the fourteenth offered window, because
-- the panel limits that row by the length of the text message. Its length is that of the longest message.
--
-- A window must fit into 32 columns together with its symbol and field digit, and lie inside the limits of every
-- video standard and font size. Its vertical position is a multiple of 4, the height of the largest characters, so that
-- units show it there in every size. New puts all windows into the first row, so those that are on by default have
-- columns of their own. Positions go into one byte of a configuration file.

CREATE TABLE "Character Windows" (
  "Device"                 INTEGER NOT NULL,  -- the unit that has the window; 0: none any more, the row is passed over
  "Name"                   TEXT NOT NULL UNIQUE,
  "Number"                 INTEGER NOT NULL UNIQUE CHECK ("Number" BETWEEN 1 AND 255),  -- on the wire
  "On"                     INTEGER NOT NULL CHECK ("On" IN (0, 1)),
  "Top"                    INTEGER NOT NULL CHECK ("Top" BETWEEN 0 AND 255),    -- eight lines of a field
  "Left"                   INTEGER NOT NULL CHECK ("Left" BETWEEN 0 AND 32),    -- columns
  "Length"                 INTEGER NOT NULL CHECK ("Length" BETWEEN 1 AND 32),  -- columns
  "Slate On"               INTEGER NOT NULL CHECK ("Slate On" IN (0, 1)),
  "Symbol On"              INTEGER NOT NULL CHECK ("Symbol On" IN (0, 1)),
  "Symbol Length"          INTEGER NOT NULL CHECK ("Symbol Length" >= 0),       -- columns; 0: has no symbol
  "Field On"               INTEGER NOT NULL CHECK ("Field On" IN (0, 1)),
  "Field Length"           INTEGER NOT NULL CHECK ("Field Length" >= 0),        -- columns; 0: has no field digit
  "Default Hor Posn"       INTEGER NOT NULL CHECK ("Default Hor Posn" >= 0),
  "Default Vert Posn"      INTEGER NOT NULL CHECK ("Default Vert Posn" BETWEEN 0 AND 255 AND
                                                   "Default Vert Posn" % 4 = 0),
  "Default on/off"         INTEGER NOT NULL CHECK ("Default on/off" IN (0, 1)),
  "Default Slate on/off"   INTEGER NOT NULL CHECK ("Default Slate on/off" IN (0, 1)),
  "Default Symbol on/off"  INTEGER NOT NULL CHECK ("Default Symbol on/off" IN (0, 1) AND
                                                   ("Default Symbol on/off" = 0 OR "Symbol Length" > 0)),
  "Default Field on/off"   INTEGER NOT NULL CHECK ("Default Field on/off" IN (0, 1) AND
                                                   ("Default Field on/off" = 0 OR "Field Length" > 0)),
  "Ignore1"                INTEGER NOT NULL CHECK ("Ignore1" IN (0, 1)),  -- not used
  "Double Height"          INTEGER NOT NULL CHECK ("Double Height" IN (0, 1)),
  CHECK ("Default Hor Posn" + "Length" + "Symbol Length" + "Field Length" <= 32)
) STRICT;

INSERT INTO "Character Windows" VALUES
--  Device Name               No On  Top Lft Len Slt  Sym Len Fld Len  Hor Vert  On Slt Sym Fld  Ign Dbl
  ( 7340, 'Video Timecode',   1, 1,   56,  0,  11,  0,    0,  2,   1,  2,    0,  56,   1,  0,   0,  1,    0,  0),
  ( 7340, 'Video User Bits',  2, 0,   56, 18,  11,  0,    0,  2,   0,  0,   18,  56,   0,  0,   0,  0,    0,  0),
  ( 7340, 'LTC Timecode',     3, 0,   40,  2,  11,  0,    1,  2,   0,  2,    2,  40,   0,  0,   1,  0,    0,  0),
  ( 7340, 'LTC User Bits',    4, 0,   40, 18,  11,  0,    0,  0,   0,  0,   18,  40,   0,  0,   0,  0,    0,  0),
  ( 7340, 'VITC Timecode',    5, 0,   44,  2,  11,  0,    1,  2,   0,  2,    2,  44,   0,  0,   1,  0,    0,  0),
  ( 7340, 'VITC User Bits',   6, 0,   44, 18,  11,  0,    0,  0,   0,  0,   18,  44,   0,  0,   0,  0,    0,  0),
  (    0, 'Control Track',   90, 0,   40,  2,   9,  0,    0,  0,   0,  0,    2,  40,   0,  0,   0,  0,    0,  0),
  ( 7340, 'Film Timecode',    7, 0,   48,  2,  11,  0,    0,  2,   1,  2,    2,  48,   0,  0,   0,  1,    0,  0),
  ( 7340, 'Film Footage',     8, 0,   48, 20,  10,  0,    0,  2,   0,  0,   20,  48,   0,  0,   0,  0,    0,  0),
  ( 7340, 'KeyKode',          9, 1,   52, 13,  17,  0,    1,  2,   0,  0,   13,  52,   1,  0,   1,  0,    0,  0),
  ( 7340, 'Sound Timecode',  10, 0,   40,  2,  11,  0,    0,  2,   0,  2,    2,  40,   0,  0,   0,  0,    0,  0),
  ( 7340, 'Camera Roll',     11, 0,   40,  0,   8,  1,    0,  0,   0,  0,    0,  40,   0,  1,   0,  0,    0,  0),
  ( 7340, 'Sound Roll',      12, 0,   40, 12,   8,  1,    0,  0,   0,  0,   12,  40,   0,  1,   0,  0,    0,  0),
  ( 7340, 'Scene and Take',  13, 0,   40, 22,  10,  1,    0,  0,   0,  0,   22,  40,   0,  1,   0,  0,    0,  1),
  ( 7340, 'Text',            14, 0,   48,  0,  32,  0,    0,  0,   0,  0,    0,  48,   0,  0,   0,  0,    0,  0),
  ( 7340, 'PullDown',        15, 0,   52, 27,   4,  0,    0,  0,   0,  1,   27,  52,   0,  0,   0,  0,    0,  0),
  ( 7340, 'Event Number',    16, 0,   48, 20,   6,  1,    0,  0,   0,  0,   20,  48,   0,  1,   0,  0,    0,  0),
  ( 7340, 'Event Duration',  17, 0,   44,  2,  11,  0,    0,  0,   0,  0,    2,  44,   0,  0,   0,  0,    0,  0),
  ( 7340, 'Debug',           18, 0,   40,  0,  32,  0,    0,  0,   0,  0,    0,  40,   0,  0,   0,  0,    0,  0),
  ( 7340, 'Debug2',          19, 0,   44,  0,  32,  0,    0,  0,   0,  0,    0,  44,   0,  0,   0,  0,    0,  0),
  ( 7340, 'Debug3',          20, 0,   48,  0,  32,  0,    0,  0,   0,  0,    0,  48,   0,  0,   0,  0,    0,  0),
  (    0, 'Reserved',        91, 0,   40,  0,   8,  0,    0,  0,   0,  0,    0,  40,   0,  0,   0,  0,    0,  0);
