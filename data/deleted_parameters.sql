-- SPDX-License-Identifier: GPL-3.0-or-later
-- Parameters that units no longer know. A configuration file that still holds one loses it on loading, and it cannot
-- be added again. None of them may stand among the system parameters.

CREATE TABLE "Deleted Parameters" (
  "Class"        INTEGER NOT NULL CHECK ("Class" BETWEEN 0 AND 255),
  "Parameter"    INTEGER NOT NULL CHECK ("Parameter" BETWEEN 0 AND 255),
  "Description"  TEXT NOT NULL,
  "Value"        INTEGER NOT NULL,
  UNIQUE ("Class", "Parameter")
) STRICT;

INSERT INTO "Deleted Parameters" VALUES
  (2, 9,  'Composite Reader Clamp',        1),
  (3, 12, 'Generator Colour Frame Lock',   0),
  (5, 11, 'Character Drop Shadow',         0),
  (6, 8,  'Capstan Servo Gain',           64),
  (8, 7,  'Modem Initialisation Timeout', 30);
