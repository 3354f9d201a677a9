#pragma once

#include "articles/archive_fields.h"

class FlexGrid;
struct Contesto;

namespace articles {

enum class EsitoModifica {
  Fermata,  ///< a field was refused and the person told; nothing was run
  Fallita,  ///< told, and undone
  Salvata,
};

/// Saves the fields over the article whose slot is `campi.id`, in a transaction of the default workspace, and
/// takes the import's mark away. The list shows the archive again before the commit, and once more if the
/// commit fails. Nothing looks for another article with the same EAN, and the table of variations is not
/// written. With no row picked the statement fails and its message is shown. Throws Errore 6 for a price
/// beyond 32 bits.
EsitoModifica tasto_modifica(const CampiArticolo& campi, FlexGrid& griglia, Contesto& contesto);

}  // namespace articles
