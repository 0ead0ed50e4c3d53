-- SPDX-License-Identifier: GPL-3.0-or-later
-- What must hold between rows and tables, read when all of them are there. Each statement looks for what breaks a
-- rule; a single hit stops the build with the line of the statement. Nothing of this is left in the database.

CREATE TEMP TABLE "Broken" ("Row" CONSTRAINT "a rule in rules.sql" CHECK ("Row" IS NULL));

-- Texts that units report and that configuration files hold.
CREATE TEMP TABLE "Known" ("Table", "Text");
INSERT INTO "Known" VALUES
  ('standard', 'NTSC'), ('standard', 'PAL'), ('standard', '1080p/24'), ('standard', '1080i/60'),
  ('standard', '1080i/50'), ('standard', '525i/60'), ('standard', '625i/50'), ('standard', '720p/60'),
  ('size', 'Large (32 lines/field)'), ('size', 'Small (16 lines/field)'), ('size', 'Tiny (8 lines/field)'),
  ('slate', 'On at Event Start for Duration'), ('slate', 'On Between Events and for Duration'),
  ('mode', 'HD Video Downconvert'), ('mode', 'Bi-Phase Accuracy Test'), ('mode', 'KeyKode Accuracy Test'),
  ('mode', 'Multi-Camera Episodic'), ('mode', 'Pre-stripe Timecode'), ('mode', 'Test'),
  -- The windows of the down convert mode.
  ('window', 'Video Timecode'), ('window', 'Video User Bits'), ('window', 'Text'), ('window', 'PullDown'),
  ('window', 'Debug'), ('window', 'Debug2'), ('window', 'Debug3');
CREATE TEMP TABLE "Offered" AS
  SELECT 'standard' AS "Table", "Description" AS "Text" FROM "Video Standards" WHERE NOT "Ignore1"
  UNION ALL SELECT 'size', "Description" FROM "Character Sizes" WHERE NOT "Ignore1"
  UNION ALL SELECT 'slate', "Description" FROM "Virtual Slate Modes" WHERE NOT "Ignore1"
  UNION ALL SELECT 'mode', "Name" FROM "Operating Mode"
  UNION ALL SELECT 'window', "Name" FROM "Character Windows" WHERE "Device";
INSERT INTO "Broken" SELECT "Text" FROM (SELECT * FROM "Known" EXCEPT SELECT * FROM "Offered");

-- Units know no other standards and sizes; the rows of a window are counted by the size's place in the list.
INSERT INTO "Broken" SELECT "Text" FROM "Offered" WHERE "Table" IN ('standard', 'size')
  AND "Text" NOT IN (SELECT "Text" FROM "Known");
INSERT INTO "Broken" SELECT a."Code" FROM "Character Sizes" a, "Character Sizes" b
  WHERE a.rowid < b.rowid AND a."Code" > b."Code";

-- Codes are looked up by text, and the last row of a text decides: each text must have one code.
INSERT INTO "Broken" SELECT "Description" FROM "Code Sources"
  GROUP BY "Description" HAVING count(DISTINCT "Gen Number") > 1;
INSERT INTO "Broken" SELECT "Description" FROM "Down Converter Process Modes"
  GROUP BY "Description" HAVING count(DISTINCT "Code") > 1;

-- Something to choose in each box: a process mode for each standard, sources for each line that a mode can have.
INSERT INTO "Broken" SELECT "Text" FROM "Offered" WHERE "Table" = 'standard'
  AND "Text" NOT IN (SELECT "Video Standard" FROM "Down Converter Process Modes" WHERE NOT "Ignore1");
CREATE TEMP TABLE "Boxes" ("Field Name", "Line");
INSERT INTO "Boxes" VALUES ('VTRT', 1), ('VTRU', 1), ('LTC1GT', 1), ('LTC1GU', 1), ('VITC1T', 1), ('VITC1U', 1),
  ('VITC2', 2), ('VITC3T', 3), ('VITC3U', 3);
CREATE TEMP TABLE "Feeds" AS SELECT * FROM "Time Code Assignments" WHERE CAST("Device" AS REAL) AND NOT "Ignore1";
INSERT INTO "Broken" SELECT "Text" FROM "Offered", "Boxes" WHERE "Table" = 'mode'
  AND "Line" <= (SELECT max("VITC Mode") FROM "Feeds" WHERE "Name" = "Text")
  AND NOT EXISTS (SELECT 1 FROM "Feeds" JOIN "Code Sources" USING ("Field Value")
                  WHERE "Name" = "Text" AND "Feeds"."Field Name" = "Boxes"."Field Name");
INSERT INTO "Broken" SELECT "Field Name" FROM "Feeds" JOIN "Boxes" USING ("Field Name")
  GROUP BY "Name", "Field Name" HAVING count(*) > 1;

-- The start selects the tenth filter of both directions.
INSERT INTO "Broken" SELECT 'filters' WHERE
  (SELECT count(*) FROM "Down Converter Filters" WHERE NOT "Ignore1" AND "Description" <> 'Custom') < 10;

-- One row of limits for each standard and size, behind those of older hardware, since the last one counts.
CREATE TEMP TABLE "Limits" AS
  SELECT "Video Standard", "Description", max(rowid) AS "Last", sum("HardwareID" IN (1000, 200)) AS "Choices"
  FROM "Character Max Positions" GROUP BY "Video Standard", "Description";
INSERT INTO "Broken" SELECT s."Text" FROM "Offered" s, "Offered" z WHERE s."Table" = 'standard' AND z."Table" = 'size'
  AND NOT EXISTS (SELECT 1 FROM "Limits" l JOIN "Character Max Positions" p ON p.rowid = l."Last"
                  WHERE l."Video Standard" = s."Text" AND l."Description" = z."Text" AND l."Choices" = 1
                  AND p."HardwareID" IN (1000, 200));

-- Windows stand inside these limits, rise by their numbers as a loaded file does, and the fourteenth is limited by
-- the length of the message.
INSERT INTO "Broken" SELECT "Name" FROM "Character Windows" w, "Limits" l
  JOIN "Character Max Positions" p ON p.rowid = l."Last" WHERE w."Device" AND l."Choices" = 1
  AND (w."Default Vert Posn" NOT BETWEEN p."Min Vert Posn" AND p."Max Vert Posn"
       OR w."Default Hor Posn" < p."Min Hor Posn"
       OR w."Default Hor Posn" + w."Length" + w."Field Length" + w."Symbol Length" > p."Max Hor Posn");
INSERT INTO "Broken" SELECT b."Name" FROM "Character Windows" a, "Character Windows" b
  WHERE a."Device" AND b."Device" AND a.rowid < b.rowid AND a."Number" > b."Number";
INSERT INTO "Broken" SELECT 'Text' WHERE 'Text' <>
  (SELECT "Name" FROM "Character Windows" WHERE "Device" ORDER BY rowid LIMIT 1 OFFSET 13);

-- Parameters that units have lost: loading a file needs at least one, and none may be offered.
INSERT INTO "Broken" SELECT 'none' WHERE NOT EXISTS (SELECT 1 FROM "Deleted Parameters");
INSERT INTO "Broken" SELECT "Parameter" FROM "Deleted Parameters" JOIN "System Parameters" USING ("Class", "Parameter");
