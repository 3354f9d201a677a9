#include "ecrcom/codici.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace ecrcom {
namespace {

struct Voce {
  std::int16_t codice;
  const char* testo;
};

constexpr std::array kVoci{
    Voce{kFatto, "Nessun errore"},
    Voce{kIndirizzoErrato, "Indirizzo IP della cassa mancante o errato"},
    Voce{kNonRaggiungibile, "La cassa non \xE8 raggiungibile"},
    Voce{kTempoScaduto, "Tempo scaduto, la cassa non risponde"},
    Voce{kLineaInterrotta, "Collegamento con la cassa interrotto"},
    Voce{kRispostaIncomprensibile, "Risposta della cassa non riconosciuta"},
    Voce{kComandoSconosciuto, "Comando non previsto"},
    Voce{kStatoErrato, "Comando rifiutato nello stato attuale della cassa"},
    Voce{kTrasferimentoChiuso, "Nessun trasferimento aperto sulla cassa"},
    Voce{kTrasferimentoAperto, "Trasferimento gi\xE0 aperto sulla cassa"},
    Voce{kFileSconosciuto, "File sconosciuto alla cassa o assente"},
    Voce{kLunghezzaErrata, "Lunghezza del file non accettata dalla cassa"},
    Voce{kFileTroppoGrande, "File troppo grande"},
    Voce{kFileLocaleAssente, "File da inviare assente o non leggibile"},
    Voce{kFileLocaleNonScritto, "File ricevuto non scrivibile sul PC"},
    Voce{kNomeFileErrato, "Nome del file mancante o errato"},
    Voce{kMemoriaCassa, "Errore nella memoria della cassa"},
    Voce{kManigliaErrata, "Collegamento non aperto"},
    Voce{kTroppiCollegamenti, "Troppi collegamenti aperti"},
    Voce{kTestoErrato, "Sequenza di tasti non accettata"},
    Voce{kRisorseEsaurite, "Risorse del PC esaurite"},
};
constexpr const char* kIgnoto = "Errore sconosciuto";

static_assert(std::all_of(kVoci.begin(), kVoci.end(), [](const Voce& voce) {
  return std::string_view(voce.testo).size() <= kMessaggioMassimo;
}));

}  // namespace

const char* messaggio(std::int16_t codice) {
  const int positivo = codice < 0 ? -codice : codice;
  const auto voce =
      std::find_if(kVoci.begin(), kVoci.end(), [&](const Voce& una) { return una.codice == positivo; });
  return voce == kVoci.end() ? kIgnoto : voce->testo;
}

}  // namespace ecrcom
