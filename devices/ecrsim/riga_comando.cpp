#include "ecrsim/riga_comando.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <stdexcept>
#include <string_view>

#include "ecrsim/servizio.h"
#include "platform/ecrcom/ecrcom.h"

namespace ecrsim {
namespace {

constexpr std::string_view kStati = "IPVAL";
constexpr int kCodiceMassimo = std::numeric_limits<std::int16_t>::max();
constexpr int kMassimo = 1000000;

struct Nome {
  std::string_view testo;
  Cosa cosa;
};

constexpr std::array kNomi{
    Nome{"codice", Cosa::Codice},
    Nome{"silenzio", Cosa::Silenzio},
    Nome{"taglio-prima", Cosa::TaglioPrima},
    Nome{"taglio-dentro", Cosa::TaglioDentro},
    Nome{"taglio-dopo", Cosa::TaglioDopo},
    Nome{"corto", Cosa::FileCorto},
    Nome{"lungo", Cosa::FileLungo},
    Nome{"spazzatura", Cosa::Spazzatura},
};

[[noreturn]] void rifiuta(const std::string& cosa, std::string_view valore) {
  throw std::invalid_argument(cosa + ": " + std::string(valore));
}

template <class Numero>
Numero numero(std::string_view testo, Numero minimo, Numero massimo, const std::string& cosa) {
  Numero valore{};
  const char* const fine = testo.data() + testo.size();
  const auto [dove, errore] = std::from_chars(testo.data(), fine, valore);
  if (errore != std::errc() || dove != fine || valore < minimo || valore > massimo) rifiuta(cosa, testo);
  return valore;
}

char stato(const std::string& testo) {
  if (testo.size() != 1 || kStati.find(testo[0]) == std::string_view::npos)
    rifiuta("Lo stato deve essere I, P, V, A o L", testo);
  return testo[0];
}

Cosa cosa(std::string_view nome) {
  const auto voce =
      std::find_if(kNomi.begin(), kNomi.end(), [&](const Nome& uno) { return uno.testo == nome; });
  if (voce == kNomi.end()) rifiuta("Guasto non previsto", nome);
  return voce->cosa;
}

void applica(Richiesta& richiesta, const std::string& opzione, const std::string& valore) {
  using Seme = std::numeric_limits<std::uint32_t>;
  if (opzione == "--address") {
    if (!indirizzoLocale(valore)) rifiuta("L'indirizzo deve essere locale (127.x.y.z)", valore);
    richiesta.opzioni.indirizzo = valore;
  } else if (opzione == "--dir") {
    richiesta.opzioni.cartella = valore;
  } else if (opzione == "--bitmap") {
    richiesta.opzioni.bitmap = valore;
  } else if (opzione == "--stato") {
    richiesta.opzioni.stato = stato(valore);
  } else if (opzione == "--fiscale") {
    richiesta.opzioni.fiscale = numero(valore, 0, kMassimo, opzione);
  } else if (opzione == "--seriale") {
    richiesta.seriale = valore;
  } else if (opzione == "--giornata") {
    richiesta.giornata = numero(valore, 0, kMassimo, opzione);
  } else if (opzione == "--seme") {
    richiesta.seme = numero(valore, Seme::min(), Seme::max(), opzione);
  } else if (opzione == "--guasto") {
    richiesta.opzioni.guasti.push_back(leggiGuasto(valore));
  } else {
    rifiuta("Opzione sconosciuta", opzione);
  }
}

}  // namespace

Guasto leggiGuasto(const std::string& testo) {
  const std::size_t primo = testo.find(':');
  if (primo == std::string::npos) rifiuta("Il guasto si scrive MODO[:FILE]:COSA", testo);
  const std::size_t ultimo = testo.rfind(':');
  const std::string_view tutto = testo;
  Guasto guasto;
  guasto.modo = numero<int>(tutto.substr(0, primo), ECR_INFO_MODE, ECR_FISCAL_CLOSURE_MODE, "--guasto");
  if (ultimo > primo) guasto.file = testo.substr(primo + 1, ultimo - primo - 1);
  const std::string_view nome = tutto.substr(ultimo + 1);
  const std::size_t uguale = nome.find('=');
  guasto.cosa = cosa(nome.substr(0, uguale));
  if (uguale == std::string_view::npos) return guasto;
  if (guasto.cosa != Cosa::Codice) rifiuta("Guasto non previsto", nome);
  guasto.codice = numero<int>(nome.substr(uguale + 1), 1, kCodiceMassimo, "--guasto");
  return guasto;
}

Richiesta leggiRigaComando(std::span<const char* const> argomenti) {
  Richiesta richiesta;
  for (std::size_t i = 0; i < argomenti.size(); ++i) {
    const std::string opzione = argomenti[i];
    if (opzione == "--help") {
      richiesta.aiuto = true;
      continue;
    }
    if (i + 1 == argomenti.size()) rifiuta("Opzione sconosciuta o senza valore", opzione);
    applica(richiesta, opzione, argomenti[++i]);
  }
  return richiesta;
}

const char* testoAiuto() {
  return "ecrsim - cassa simulata\n"
         "\n"
         "  --address INDIRIZZO  indirizzo locale su cui risponde (127.0.0.20)\n"
         "  --dir CARTELLA       memoria della cassa (cartella corrente)\n"
         "  --bitmap S|L|...     classe di grafica (L)\n"
         "  --stato I|P|V|A|L    stato: idle, programmazione, vendita, azzeramento, lettura (I)\n"
         "  --fiscale N          dati fiscali non ancora chiusi (0)\n"
         "  --seriale LINK       apre anche una linea seriale, raggiungibile da LINK\n"
         "  --giornata N         batte N scontrini sugli articoli di plu.bin prima di rispondere\n"
         "  --seme K             seme della giornata (1)\n"
         "  --guasto MODO[:FILE]:COSA\n"
         "                       guasto a ogni comando di quel modo (e file): codice[=N], silenzio,\n"
         "                       taglio-prima, taglio-dentro, taglio-dopo, corto, lungo, spazzatura;\n"
         "                       si ripete a piacere\n"
         "  --help               questo testo\n";
}

}  // namespace ecrsim
