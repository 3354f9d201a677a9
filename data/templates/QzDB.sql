-- A new article database. Texts compare without regard to letter case, in columns and indexes alike.
-- Names of rules: lungo_<column> is a text beyond its column, numero_<column> no number of the column's kind.

-- The till knows slots, not articles: row n is its n-th PLU. Price, department and mark are searched by one
-- screen only and tell few rows apart: an index on them would lead the search away from the better ones and
-- cost every import.
CREATE TABLE TAB_ARTICOLI (
  auto_id INTEGER PRIMARY KEY AUTOINCREMENT,
  ID_Position TEXT COLLATE NOCASE,
  Codice_EAN TEXT COLLATE NOCASE CONSTRAINT lungo_Codice_EAN CHECK (length(Codice_EAN) <= 13),
  Codice_Articolo TEXT COLLATE NOCASE CONSTRAINT lungo_Codice_Articolo CHECK (length(Codice_Articolo) <= 13),
  Descrizione TEXT COLLATE NOCASE CONSTRAINT lungo_Descrizione CHECK (length(Descrizione) <= 255),
  Prezzo INTEGER CONSTRAINT numero_Prezzo
    CHECK (Prezzo IS NULL OR (typeof(Prezzo) = 'integer' AND Prezzo BETWEEN -2147483648 AND 2147483647)),
  Reparto INTEGER CONSTRAINT numero_Reparto
    CHECK (Reparto IS NULL OR (typeof(Reparto) = 'integer' AND Reparto BETWEEN -32768 AND 32767)),
  Filler TEXT COLLATE NOCASE CONSTRAINT lungo_Filler CHECK (length(Filler) <= 255),
  VarPrezzo BOOLEAN NOT NULL DEFAULT 0,
  PrezzoZero BOOLEAN NOT NULL DEFAULT 0
);
CREATE INDEX ARTICOLI_EAN ON TAB_ARTICOLI (Codice_EAN);
CREATE INDEX ARTICOLI_CODICE ON TAB_ARTICOLI (Codice_Articolo);
CREATE INDEX ARTICOLI_DESCRIZIONE ON TAB_ARTICOLI (Descrizione);

CREATE TABLE TAB_VARIAZIONI (
  Codice_EAN TEXT COLLATE NOCASE CONSTRAINT lungo_Codice_EAN CHECK (length(Codice_EAN) <= 13),
  TipoOperazione TEXT COLLATE NOCASE CONSTRAINT lungo_TipoOperazione CHECK (length(TipoOperazione) <= 1)
);
CREATE INDEX VARIAZIONI_EAN ON TAB_VARIAZIONI (Codice_EAN);

-- A checksum is no key: two EANs may share one.
CREATE TABLE TAB_EAN_NUMERICI (
  Codice_EAN TEXT COLLATE NOCASE CONSTRAINT lungo_Codice_EAN CHECK (length(Codice_EAN) <= 13),
  Codice_EAN_Num REAL,
  "Index" INTEGER,
  Spare TEXT COLLATE NOCASE
);
CREATE INDEX EAN_NUMERICI_NUM ON TAB_EAN_NUMERICI (Codice_EAN_Num);

CREATE TABLE TAB_VARIE (
  NomeCassa TEXT COLLATE NOCASE,
  Num_Articoli_Cassa INTEGER,
  Data_end_update TEXT COLLATE NOCASE CONSTRAINT lungo_Data_end_update CHECK (length(Data_end_update) <= 14),
  Data_end_scarico TEXT COLLATE NOCASE CONSTRAINT lungo_Data_end_scarico CHECK (length(Data_end_scarico) <= 14)
);

-- Two receptions of one day stand side by side, so day and slot are no key. The article code stands under
-- Codice_EAN here and may be as long as the EAN.
CREATE TABLE TAB_VENDUTO (
  Data TEXT COLLATE NOCASE CONSTRAINT lungo_Data CHECK (length(Data) <= 8),
  id_plu INTEGER,
  Codice_EAN TEXT COLLATE NOCASE CONSTRAINT lungo_Codice_EAN CHECK (length(Codice_EAN) <= 13),
  Codice_Articolo TEXT COLLATE NOCASE CONSTRAINT lungo_Codice_Articolo CHECK (length(Codice_Articolo) <= 13),
  Descrizione TEXT COLLATE NOCASE CONSTRAINT lungo_Descrizione CHECK (length(Descrizione) <= 255),
  Importo_giornaliero INTEGER,
  sconto_giornaliero INTEGER,
  Tot_giorn_articoli_venduti INTEGER
);
CREATE INDEX VENDUTO_DATA_EAN ON TAB_VENDUTO (Data, Codice_EAN);

WITH RECURSIVE slot(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM slot WHERE n < 5000)
INSERT INTO TAB_ARTICOLI
SELECT n, CAST(n AS TEXT), '', '', '', 0, 1, '', 0, 0 FROM slot;

INSERT INTO TAB_VARIE VALUES ('NON_ASSEGNATO', 0, '', '');
