-- A new customer archive. Texts compare without regard to letter case, in columns and indexes alike.
-- Names of rules: lungo_<column> is a text beyond its column, numero_<column> no number of the column's kind.

-- The columns stand in the order in which the reception fills them. The code is the customer's place in the
-- till's table.
CREATE TABLE TAB_ANAG_CLIENTI (
  ID_Cliente INTEGER PRIMARY KEY,
  Ragione_Sociale TEXT COLLATE NOCASE CONSTRAINT lungo_Ragione_Sociale CHECK (length(Ragione_Sociale) <= 255),
  Indirizzo TEXT COLLATE NOCASE CONSTRAINT lungo_Indirizzo CHECK (length(Indirizzo) <= 255),
  Citta TEXT COLLATE NOCASE CONSTRAINT lungo_Citta CHECK (length(Citta) <= 255),
  Partita_IVA TEXT COLLATE NOCASE CONSTRAINT lungo_Partita_IVA CHECK (length(Partita_IVA) <= 255),
  Nota TEXT COLLATE NOCASE CONSTRAINT lungo_Nota CHECK (length(Nota) <= 255),
  Stato INTEGER CONSTRAINT numero_Stato
    CHECK (Stato IS NULL OR (typeof(Stato) = 'integer' AND Stato BETWEEN -32768 AND 32767))
);
CREATE INDEX CLIENTI_RAGIONE_SOCIALE ON TAB_ANAG_CLIENTI (Ragione_Sociale);
CREATE INDEX CLIENTI_INDIRIZZO ON TAB_ANAG_CLIENTI (Indirizzo);
CREATE INDEX CLIENTI_CITTA ON TAB_ANAG_CLIENTI (Citta);
CREATE INDEX CLIENTI_PARTITA_IVA ON TAB_ANAG_CLIENTI (Partita_IVA);
CREATE INDEX CLIENTI_NOTA ON TAB_ANAG_CLIENTI (Nota);

-- An invoice belongs to its customer by the code alone: it stays when the customer goes, and is listed again
-- when the customer is back. The number is a label and no key: a till that was cleared counts anew.
CREATE TABLE TAB_FATTURE (
  ID_Cliente INTEGER,
  NumFattura TEXT COLLATE NOCASE CONSTRAINT lungo_NumFattura CHECK (length(NumFattura) <= 255),
  Tipo_Fattura TEXT COLLATE NOCASE CONSTRAINT lungo_Tipo_Fattura CHECK (length(Tipo_Fattura) <= 255),
  DataFattura DATETIME,
  Corr_Non_Pagato INTEGER CONSTRAINT numero_Corr_Non_Pagato
    CHECK (Corr_Non_Pagato IS NULL OR
           (typeof(Corr_Non_Pagato) = 'integer' AND Corr_Non_Pagato BETWEEN -2147483648 AND 2147483647)),
  Importo_Fattura INTEGER CONSTRAINT numero_Importo_Fattura
    CHECK (Importo_Fattura IS NULL OR
           (typeof(Importo_Fattura) = 'integer' AND Importo_Fattura BETWEEN -2147483648 AND 2147483647)),
  Imponibile INTEGER CONSTRAINT numero_Imponibile
    CHECK (Imponibile IS NULL OR
           (typeof(Imponibile) = 'integer' AND Imponibile BETWEEN -2147483648 AND 2147483647)),
  Imposta INTEGER CONSTRAINT numero_Imposta
    CHECK (Imposta IS NULL OR (typeof(Imposta) = 'integer' AND Imposta BETWEEN -2147483648 AND 2147483647)),
  Nota TEXT COLLATE NOCASE CONSTRAINT lungo_Nota CHECK (length(Nota) <= 255)
);
-- A reception asks of each invoice whether the customer has one of that moment, whatever its century.
CREATE INDEX FATTURE_CLIENTE ON TAB_FATTURE (ID_Cliente, substr(DataFattura, 3));
CREATE INDEX FATTURE_DATA ON TAB_FATTURE (DataFattura);

-- Who buys without a name.
INSERT INTO TAB_ANAG_CLIENTI VALUES (0, '', '', '', '', '', 1);
