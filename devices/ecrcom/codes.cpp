#include "ecrcom/codes.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace ecrcom {
namespace {

struct Entry {
  std::int16_t code;
  const char* text;
};

constexpr std::array kEntries{
    Entry{kDone, "Nessun errore"},
    Entry{kBadAddress, "Indirizzo IP della cassa mancante o errato"},
    Entry{kUnreachable, "La cassa non \xE8 raggiungibile"},
    Entry{kTimedOut, "Tempo scaduto, la cassa non risponde"},
    Entry{kLineCut, "Collegamento con la cassa interrotto"},
    Entry{kGarbledReply, "Risposta della cassa non riconosciuta"},
    Entry{kUnknownCommand, "Comando non previsto"},
    Entry{kWrongState, "Comando rifiutato nello stato attuale della cassa"},
    Entry{kTransferClosed, "Nessun trasferimento aperto sulla cassa"},
    Entry{kTransferOpen, "Trasferimento gi\xE0 aperto sulla cassa"},
    Entry{kUnknownFile, "File sconosciuto alla cassa o assente"},
    Entry{kBadLength, "Lunghezza del file non accettata dalla cassa"},
    Entry{kFileTooLarge, "File troppo grande"},
    Entry{kLocalFileMissing, "File da inviare assente o non leggibile"},
    Entry{kLocalFileNotWritten, "File ricevuto non scrivibile sul PC"},
    Entry{kBadFileName, "Nome del file mancante o errato"},
    Entry{kTillMemory, "Errore nella memoria della cassa"},
    Entry{kBadHandle, "Collegamento non aperto"},
    Entry{kTooManyConnections, "Troppi collegamenti aperti"},
    Entry{kBadText, "Sequenza di tasti non accettata"},
    Entry{kNoResources, "Risorse del PC esaurite"},
};
constexpr const char* kUnknown = "Errore sconosciuto";

static_assert(std::all_of(kEntries.begin(), kEntries.end(), [](const Entry& entry) {
  return std::string_view(entry.text).size() <= kMaxMessage;
}));

}  // namespace

const char* message(std::int16_t code) {
  const int positive = code < 0 ? -code : code;
  const auto entry =
      std::find_if(kEntries.begin(), kEntries.end(), [&](const Entry& one) { return one.code == positive; });
  return entry == kEntries.end() ? kUnknown : entry->text;
}

}  // namespace ecrcom
