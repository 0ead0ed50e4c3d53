-- SPDX-License-Identifier: GPL-3.0-or-later
-- The history of this database, one row a version. The last row is the version in force; it is shown in the About box
-- and kept in the settings.

CREATE TABLE "General" (
  "Database Version"  TEXT NOT NULL UNIQUE
) STRICT;

INSERT INTO "General" VALUES
  ('3.00'),
  ('3.10'),
  ('3.20');
