#include "customers/customer_image.h"

#include <array>
#include <optional>

#include "controls/steady_progress.h"
#include "core/context.h"
#include "core/figures.h"
#include "core/reactions.h"
#include "core/state.h"
#include "customers/customer_database.h"
#include "customers/customer_records.h"
#include "ecrlink/session.h"
#include "ecrlink/transfer_lock.h"
#include "platform/text/temporary_file.h"
#include "platform/text/whole_file.h"
#include "platform/ui/user_port.h"

namespace customers {

namespace {

/// What the till reads a used place by. The archive's own state does not travel: that a customer was made up
/// from an invoice is the PC's business.
constexpr std::uint8_t kOccupato = 1;

using RecordCliente = std::array<std::uint8_t, cliente::kByte>;

/// Positions of the columns that reach the till, looked up once.
struct Colonne {
  explicit Colonne(const store::Recordset& righe)
      : codice(righe.column(QStringLiteral("ID_Cliente"))),
        ragioneSociale(righe.column(QStringLiteral("Ragione_Sociale"))),
        indirizzo(righe.column(QStringLiteral("Indirizzo"))),
        citta(righe.column(QStringLiteral("Citta"))),
        partitaIVA(righe.column(QStringLiteral("Partita_IVA"))),
        nota(righe.column(QStringLiteral("Nota"))) {}

  int codice, ragioneSociale, indirizzo, citta, partitaIVA, nota;
};

RecordCliente recordDi(const store::Recordset& righe, const Colonne& colonne) {
  RecordCliente byte{};
  record::scriviByte(byte, cliente::kFlag, kOccupato);
  record::scriviTesto(byte, cliente::kRagioneSociale, righe.text(colonne.ragioneSociale));
  record::scriviTesto(byte, cliente::kIndirizzo, righe.text(colonne.indirizzo));
  record::scriviTesto(byte, cliente::kCitta, righe.text(colonne.citta));
  record::scriviTesto(byte, cliente::kPartitaIVA, righe.text(colonne.partitaIVA));
  record::scriviTesto(byte, cliente::kNota, righe.text(colonne.nota));
  return byte;
}

/// One run of RiempiCLI. Each step is a statement of its own under the reaction to failures; the file is one,
/// so that what could not be written whole is not sent.
class Riempimento {
 public:
  Riempimento(Contesto& contesto, SteadyProgress& avanzamento)
      : contesto_(contesto), avanzamento_(avanzamento) {}

  std::int16_t esegui(int& clienti) {
    std::optional<store::Recordset> righe;
    passo([&] {
      righe = varGlobal().DB_Clienti.OpenRecordset(
          u"SELECT ID_Cliente,Ragione_Sociale,Indirizzo,Citta,Partita_IVA,Nota,Stato from TAB_ANAG_CLIENTI "
          u"where ID_Cliente <> 0 order by ID_Cliente,Ragione_Sociale,Partita_IVA");
    });
    if (!righe) return esito_;
    // Of an archive with the anonymous customer alone there is no first row, and every record is empty.
    passo([&] { righe->MoveFirst(); });
    passo([&] { clienti = scrivi(*righe); });
    return esito_;
  }

 private:
  template <typename Passo>
  void passo(Passo&& corpo) {
    if (reazioni::prossimaIstruzioneRiempimento(contesto_.utente, prefisso_, std::forward<Passo>(corpo)) ==
        reazioni::Esito::Segnalato)
      contesto_.utente.Terminate();
  }

  int scrivi(store::Recordset& righe) {
    const QString file = QLatin1String(kFileClienti);
    const Colonne colonne(righe);
    // No older table stays behind a file that could not be made.
    TemporaryFile::Sweep(file);
    RemoveFile(file);
    TemporaryFile nuovo(file);
    int usati = 0;
    for (int posto = 0; posto < kUltimoCliente; ++posto) {
      avanzamento_.to(posto);
      contesto_.utente.DoEventsAtRecord();
      // The till knows a customer by the place alone: a gap in the codes is an empty record.
      const bool suo = !righe.atEnd() && righe.int64(colonne.codice) == posto + 1;
      const RecordCliente byte = suo ? recordDi(righe, colonne) : RecordCliente{};
      nuovo.write(reinterpret_cast<const char*>(byte.data()), byte.size());
      if (!suo) continue;
      ++usati;
      righe.MoveNext();
    }
    nuovo.settle(TemporaryFile::Durability::Passing);
    esito_ = 0;
    return usati;
  }

  Contesto& contesto_;
  SteadyProgress& avanzamento_;
  const QString prefisso_ = QStringLiteral("RiempiCLI: uscita dal programma per condizione anomala ");
  std::int16_t esito_ = 1;
};

EsitoInvio fallito(Contesto& contesto) {
  contesto.utente.MsgBox(QStringLiteral("Errore nell'invio richiesta dati dei clienti"), Icon::Warning);
  return EsitoInvio::Fallito;
}

EsitoInvio spedisci(Contesto& contesto, SteadyProgress& avanzamento,
                    std::optional<ecrlink::ScambioEsclusivo>& scambio) {
  avanzamento.rest();
  const int esito = ecrlink::avviaECR(QLatin1String(kFileClienti), ecrlink::Modo::Invia, contesto);
  // Another program may exchange again before the box is answered.
  scambio.reset();
  if (esito != 0) return fallito(contesto);
  avanzamento.end();
  return EsitoInvio::Inviato;
}

}  // namespace

std::int32_t RicavaDettagliPC(Utente& utente) {
  const std::int32_t massimo = CodiceMassimo();
  if (massimo == 0) utente.MsgBox(QString::fromUtf16(kArchivioVuoto), Icon::Warning);
  if (massimo == -1)
    utente.MsgBox(QStringLiteral("Errore nella determinazione del numero degli clienti"), Icon::Warning);
  return massimo;
}

std::int16_t RiempiCLI(Contesto& contesto, SteadyProgress& avanzamento, int& clienti) {
  return Riempimento(contesto, avanzamento).esegui(clienti);
}

Invio InviaClienti(Contesto& contesto, SteadyProgress& avanzamento) {
  Invio invio;
  std::optional<ecrlink::ScambioEsclusivo> scambio;
  if (!ecrlink::prendiODillo(scambio, contesto.utente)) {
    invio.esito = fallito(contesto);
    return invio;
  }
  const bool fatto = RiempiCLI(contesto, avanzamento, invio.clienti) == 0;
  invio.esito = fatto ? spedisci(contesto, avanzamento, scambio) : EsitoInvio::NonRiempito;
  return invio;
}

QString RaccontoInvio(const Invio& invio, std::int32_t massimo) {
  if (invio.esito == EsitoInvio::Fallito) return {};
  if (invio.esito == EsitoInvio::NonRiempito)
    return QStringLiteral("Nulla è stato inviato: il file clienti.bin non si può scrivere.");
  const QString inviati =
      QStringLiteral("%1 %2, %3 byte")
          .arg(invio.clienti == 1 ? QStringLiteral("Trasferito") : QStringLiteral("Trasferiti"),
               quanti(invio.clienti, QStringLiteral("cliente"), QStringLiteral("clienti")),
               cifra(static_cast<qint64>(kByteClienti)));
  const QString esclusi = AvvisoClientiEsclusi(massimo);
  return esclusi.isEmpty() ? inviati : inviati + QStringLiteral(". ") + esclusi;
}

QString AvvisoClientiEsclusi(std::int32_t massimo) {
  if (massimo <= kUltimoCliente) return {};
  return QStringLiteral("I clienti con un codice oltre %1 restano sul PC: la cassa non ha posto per loro.")
      .arg(cifra(kUltimoCliente));
}

}  // namespace customers
