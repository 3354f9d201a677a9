UPDATE TAB_ARTICOLI SET Codice_Articolo = 'A1',Descrizione = 'LATTE', Prezzo = 149,Reparto = 2 WHERE auto_id=7
UPDATE TAB_ARTICOLI SET Codice_Articolo = 'A2',Descrizione = '', Prezzo = 0,Reparto = 12 WHERE auto_id=5000
UPDATE TAB_ARTICOLI SET Codice_Articolo = 'A''2',Descrizione = 'x', Prezzo = -3,Reparto = 1.5 WHERE auto_id=5000