-- The translation tables in MariaDB.
--
-- The tables compare by code (utf8mb4_bin): names differ by case, and the range of labels offered
-- for selection is cut by a string comparison. Table names are upper case, which matters on
-- Linux. DATECHANGED is text: a changed text stores the date as it is written in the author's
-- locale, a new label the value of that date read as an expression (4/26/2000 becomes a small number).
-- Only I18NTEXT has a key; the other two may hold a name twice, as installations do.

CREATE TABLE I18NTEXT (
    LABEL       VARCHAR(40) NOT NULL,
    TEXT        VARCHAR(1000),
    LOCALEID    INTEGER     NOT NULL,
    DATECHANGED VARCHAR(40),
    STATUS      INTEGER,
    PRIMARY KEY (LABEL, LOCALEID)
) DEFAULT CHARSET = utf8mb4 COLLATE = utf8mb4_bin;

CREATE TABLE I18NFIELDNAMES (
    PROVIDERNAME VARCHAR(100) NOT NULL,
    BISTYPE      VARCHAR(10)  NOT NULL,
    FIELDNAME    VARCHAR(100) NOT NULL,
    LABEL        VARCHAR(40),
    INDEX I18NFIELDNAMES_FIELD (PROVIDERNAME, BISTYPE, FIELDNAME)
) DEFAULT CHARSET = utf8mb4 COLLATE = utf8mb4_bin;

CREATE TABLE I18NFIELDVALUES (
    PROVIDERNAME VARCHAR(100) NOT NULL,
    BISTYPE      VARCHAR(10)  NOT NULL,
    FIELDNAME    VARCHAR(100) NOT NULL,
    FIELDVALUE   VARCHAR(255),
    LABEL        VARCHAR(40),
    INDEX I18NFIELDVALUES_FIELD (PROVIDERNAME, BISTYPE, FIELDNAME)
) DEFAULT CHARSET = utf8mb4 COLLATE = utf8mb4_bin;
