#include "articles/plu_image.h"

#include <QString>
#include <algorithm>
#include <limits>
#include <string_view>

#include "articles/failed_update.h"
#include "config/image.h"
#include "core/context.h"
#include "core/reactions.h"
#include "core/state.h"
#include "platform/text/windows1252.h"

namespace articles {

namespace {

using config::Campo;
using config::Record;
using config::RecordLetto;
namespace plu = config::plu;

/// Positions of the columns that reach the till, looked up once.
struct Colonne {
  explicit Colonne(const store::Recordset& righe)
      : ean(righe.column(QStringLiteral("Codice_EAN"))),
        descrizione(righe.column(QStringLiteral("Descrizione"))),
        prezzo(righe.column(QStringLiteral("Prezzo"))),
        reparto(righe.column(QStringLiteral("Reparto"))),
        varPrezzo(righe.column(QStringLiteral("VarPrezzo"))),
        prezzoZero(righe.column(QStringLiteral("PrezzoZero"))) {}

  int ean, descrizione, prezzo, reparto, varPrezzo, prezzoZero;
};

bool soloAscii(std::string_view testo) {
  return std::all_of(testo.begin(), testo.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

/// UTF-8 text into a CampoTesto. Most articles are plain ASCII: their bytes are the code page's own.
void copiaTesto(Record record, const Campo& campo, std::string_view utf8) {
  const std::string_view inizio = utf8.substr(0, campo.limite);
  if (soloAscii(inizio)) return config::scriviTesto(record, campo, inizio);
  config::scriviTesto(record, campo, QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size())));
}

std::int32_t intero32(std::int64_t valore) {
  using Limiti = std::numeric_limits<std::int32_t>;
  if (valore < Limiti::min() || valore > Limiti::max()) throw errors::overflow();
  return static_cast<std::int32_t>(valore);
}

/// One run of RiempiPLU. Every step is a statement of its own under the reaction to failures, so a null in
/// one column leaves that field of the record as it stood and the others are filled.
class Riempimento {
 public:
  explicit Riempimento(Utente& utente) : utente_(utente) {}

  std::int16_t esegui() {
    passo([&] {
      store::Recordset righe = varGlobal().DB_Articoli.OpenRecordset(
          u"SELECT Codice_EAN,Codice_Articolo,Descrizione,Prezzo,Reparto,Filler,VarPrezzo,PrezzoZero "
          u"from TAB_ARTICOLI");
      righe.MoveFirst();
      tutte(righe);
    });
    return esito_;
  }

 private:
  template <typename Passo>
  bool passo(Passo&& corpo) {
    const auto fatto =
        reazioni::prossimaIstruzioneRiempimento(utente_, prefisso_, std::forward<Passo>(corpo));
    if (fatto == reazioni::Esito::Segnalato) esito_ = 1;
    return fatto == reazioni::Esito::Fatto;
  }

  void tutte(store::Recordset& righe) {
    const Colonne colonne(righe);
    for (std::size_t indice = 0; !righe.atEnd(); righe.MoveNext(), ++indice) {
      Record record;
      // There is no record for a row beyond the 5000th: one message, and the walk is over.
      if (!passo([&] { record = config::immagineProgrammazione().record(config::kPLU, indice); })) return;
      riga(record, righe, colonne);
    }
  }

  void riga(Record record, const store::Recordset& righe, const Colonne& colonne) {
    passo([&] { copiaTesto(record, plu::kCodiceEAN, righe.utf8(colonne.ean)); });
    passo([&] { copiaTesto(record, plu::kDescrizione, righe.utf8(colonne.descrizione)); });
    passo([&] { config::scriviIntero(record, plu::kPrezzo, intero32(righe.int64(colonne.prezzo))); });
    passo([&] {
      config::scriviByte(
          record, plu::kReparto,
          static_cast<std::uint8_t>(static_cast<std::uint64_t>(righe.int64(colonne.reparto)) - 1));
    });
    config::scriviByte(record, plu::kAttributi, attributi(righe, colonne));
  }

  std::uint8_t attributi(const store::Recordset& righe, const Colonne& colonne) {
    unsigned bit = 0;
    passo([&] {
      if (righe.int64(colonne.varPrezzo) != 0) bit |= plu::kVarPrezzo;
    });
    passo([&] {
      if (righe.int64(colonne.prezzoZero) != 0) bit |= plu::kPrezzoZero;
    });
    return static_cast<std::uint8_t>(bit);
  }

  Utente& utente_;
  const QString prefisso_ = QStringLiteral("RiempiPLU: uscita dal programma per condizione anomala ");
  std::int16_t esito_ = 0;
};

/// The statement of slot `slot`, from 1.
store::Statement aggiornamento(RecordLetto record, int slot) {
  const std::uint8_t attributi = config::leggiByte(record, plu::kAttributi);
  return u"UPDATE TAB_ARTICOLI SET Descrizione = '" +
         store::text(config::leggiTesto(record, plu::kDescrizione)) + u"',Codice_EAN ='" +
         store::text(config::leggiTesto(record, plu::kCodiceEAN)) + u"',Prezzo =" +
         store::number(std::int64_t{config::leggiIntero(record, plu::kPrezzo)}) + u",Reparto =" +
         store::number(std::int64_t{config::leggiByte(record, plu::kReparto)} + 1) + u",varprezzo = " +
         store::flag((attributi & plu::kVarPrezzo) != 0) + u",prezzozero = " +
         store::flag((attributi & plu::kPrezzoZero) != 0) + u" WHERE auto_id =" +
         store::number(std::int64_t{slot});
}

void scriviRighe(store::Database& archivio) {
  const config::ImmagineProgrammazione& immagine = config::immagineProgrammazione();
  for (int i = 0; i < config::kNumeroPLU; ++i)
    archivio.Execute(aggiornamento(immagine.record(config::kPLU, static_cast<std::size_t>(i)), i + 1));
}

}  // namespace

std::int16_t RiempiPLU(Utente& utente) {
  return Riempimento(utente).esegui();
}

std::int16_t SalvaPLU(Contesto& contesto) {
  store::Transaction transazione(contesto.area);
  try {
    store::Database archivio = varGlobal().DB_Articoli;
    archivio.CheckIntegrity();
    scriviRighe(archivio);
    transazione.Commit();
    return 0;
  } catch (const Errore& errore) {
    SegnalaModificaFallita(errore, contesto.utente);
    return 1;
  }
}

}  // namespace articles
