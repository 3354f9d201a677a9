#pragma once

#include "core/list_table.h"
#include "customers/registry.h"

class Attesa;

/// The list of the registry.
namespace customers {

/// Its columns, in the order of ColonnaCliente.
elenco::Colonne ColonneClienti();
/// How the list is exported: every column but the code, and a last one of a blank.
inline constexpr elenco::FormaCSV kFormaClienti{.chiusa = true};

/// Headings and widths.
void GestGridClienti(FlexGrid& griglia);
/// Gives the texts that their columns cut the room that the names leave, as far as it reaches; a column that
/// the person has dragged stays. To be done anew when the list's width has changed.
void AllargaTesti(FlexGrid& griglia);
/// The whole list anew, its shape with it, the cursor on the first cell of its first row; `attesa`, if there
/// is one, is moved along. A failure shows its message and ends the program: a list half filled must not be
/// worked on.
elenco::EsitoElenco CheckCampiClienti(FlexGrid& griglia, Contesto& contesto, Attesa* attesa = nullptr);
/// The customers that the search finds, under the headings that are there. It ends the program as the list
/// does, and passes no failure 20 over.
elenco::EsitoElenco CercaClienti(FlexGrid& griglia, const CampiCliente& campi, Contesto& contesto);

/// Rows of customers, the anonymous one left out.
int ClientiInElenco(const FlexGrid& griglia);
/// "3 clienti", or why there are none.
QString RaccontoClienti(const FlexGrid& griglia);

}  // namespace customers
