-- SPDX-License-Identifier: GPL-3.0-or-later
-- Short help for each panel. Kept for the units' own service programs; the tool loads and does not show it.

CREATE TABLE "Help Messages" (
  "Module Ident"    INTEGER NOT NULL,  -- 1 time code, 2 VITC, 3 windows, 4 slate, 5 down converter, 6 parameters
  "Message Number"  INTEGER NOT NULL,
  "Message Text"    TEXT NOT NULL,
  UNIQUE ("Module Ident", "Message Number")
) STRICT;

INSERT INTO "Help Messages" VALUES
  (1, 1, 'Choose where the reader takes its time and user bits from.'),
  (1, 2, 'Each output can carry another source; a source that is not connected gives zeros.'),
  (2, 1, 'Lines of one set are neighbours: the first line moves the others.'),
  (2, 2, 'Duplicate lines protect the code against drop-outs of the recorder.'),
  (3, 1, 'Hold the mouse over a name to see its window highlighted in the picture.'),
  (3, 2, 'The symbol tells drop frame and colour frame; the field digit tells odd from even fields.'),
  (4, 1, 'The duration counts frames from the first frame of the event.'),
  (5, 1, 'Letterbox keeps the whole width of the HD picture, edge crop fills the SD picture.'),
  (5, 2, 'A sharper vertical filter shows more detail and more flicker.'),
  (6, 1, 'Parameters take effect as soon as the unit has acknowledged them.');
