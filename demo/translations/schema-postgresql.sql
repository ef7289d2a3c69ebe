-- The translation tables in PostgreSQL.
--
-- LABEL is compared by code, whatever the locale of the database: the range of labels offered for
-- selection is cut by a string comparison. DATECHANGED is text: a changed text stores the date as
-- it is written in the author's locale, a new label the value of that date read as an expression
-- (4/26/2000 becomes the number 0, which PostgreSQL turns into text on assignment).
-- Only I18NTEXT has a key; the other two may hold a name twice, as installations do.

CREATE TABLE I18NTEXT (
    LABEL       VARCHAR(40) COLLATE "C" NOT NULL,
    TEXT        VARCHAR(1000),
    LOCALEID    INTEGER     NOT NULL,
    DATECHANGED VARCHAR(40),
    STATUS      INTEGER,
    PRIMARY KEY (LABEL, LOCALEID)
);

CREATE TABLE I18NFIELDNAMES (
    PROVIDERNAME VARCHAR(100) NOT NULL,
    BISTYPE      VARCHAR(10)  NOT NULL,
    FIELDNAME    VARCHAR(100) NOT NULL,
    LABEL        VARCHAR(40) COLLATE "C"
);

CREATE TABLE I18NFIELDVALUES (
    PROVIDERNAME VARCHAR(100) NOT NULL,
    BISTYPE      VARCHAR(10)  NOT NULL,
    FIELDNAME    VARCHAR(100) NOT NULL,
    FIELDVALUE   VARCHAR(255),
    LABEL        VARCHAR(40) COLLATE "C"
);

CREATE INDEX I18NFIELDNAMES_FIELD ON I18NFIELDNAMES (PROVIDERNAME, BISTYPE, FIELDNAME);
CREATE INDEX I18NFIELDVALUES_FIELD ON I18NFIELDVALUES (PROVIDERNAME, BISTYPE, FIELDNAME);
