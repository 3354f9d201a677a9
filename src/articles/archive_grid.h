#pragma once

#include "articles/archive_fields.h"
#include "core/list_table.h"

class Attesa;

/// The list of the archive screen.
namespace articles {

/// Its columns, in the order of ColonnaArticoli.
elenco::Colonne ColonneArticoli();

/// Headings, widths and ground.
void GestGridCentral(FlexGrid& griglia);
/// Every article in the table's order, faulty ones marked; `attesa`, if there is one, is moved along. A
/// failure shows its message and ends the program: a list half filled must not be worked on.
elenco::EsitoElenco RiempiGridCentral(FlexGrid& griglia, Contesto& contesto, Attesa* attesa = nullptr);
/// The articles of a search statement, which lacks the two flags: their columns stay empty and no row is
/// marked. A failure shows its number and description, and the list stays as far as the fill came.
elenco::EsitoElenco RiempiRicerca(FlexGrid& griglia, const store::Statement& istruzione, Contesto& contesto);
/// The list anew, its shape with it.
elenco::EsitoElenco Tasto_Refresh(FlexGrid& griglia, Contesto& contesto, Attesa* attesa = nullptr);

}  // namespace articles
