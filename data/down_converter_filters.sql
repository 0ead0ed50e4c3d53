-- SPDX-License-Identifier: GPL-3.0-or-later
-- Filters of the down converter, one list for both directions, offered by rising "Order". The tenth offered filter is
-- the default of both. "Custom" stands for coefficients that a unit was given by other means; it is never offered.

CREATE TABLE "Down Converter Filters" (
  "Order"        INTEGER NOT NULL UNIQUE,
  "Description"  TEXT NOT NULL UNIQUE,
  "Code"         INTEGER NOT NULL CHECK ("Code" BETWEEN 0 AND 255),  -- on the wire
  "Ignore1"      INTEGER NOT NULL CHECK ("Ignore1" IN (0, 1))        -- 1: not offered
) STRICT;

INSERT INTO "Down Converter Filters" VALUES
  ( 0, 'Custom',           15, 0),
  ( 1, 'Extra Soft',        0, 0),
  ( 2, 'Soft',              1, 0),
  ( 3, 'Medium Soft',       2, 0),
  ( 4, 'Anti-Flicker Low',  3, 0),
  ( 5, 'Anti-Flicker High', 4, 0),
  ( 6, 'Film Soft',         5, 0),
  ( 7, 'Film',              6, 0),
  ( 8, 'Low Ringing',       7, 0),
  ( 9, 'Graphics',          8, 0),
  (10, 'Normal',            9, 0),
  (11, 'Medium Sharp',     10, 0),
  (12, 'Sharp',            11, 0),
  (13, 'Extra Sharp',      12, 0),
  (14, 'Bypass',           13, 0),
  (15, 'Impulse Test',     14, 1);
