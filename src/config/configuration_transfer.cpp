#include "config/configuration_transfer.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "articles/article_database.h"
#include "articles/plu_image.h"
#include "articles/transfer.h"
#include "config/companion_archive.h"
#include "config/configuration_file.h"
#include "core/archive_file.h"
#include "core/context.h"
#include "core/conversions.h"
#include "core/figures.h"
#include "core/reactions.h"
#include "core/state.h"
#include "ecrlink/file_channel.h"
#include "ecrlink/session.h"
#include "ecrlink/transfer_lock.h"
#include "platform/text/file_name.h"
#include "platform/ui/user_port.h"

namespace config {

namespace {

/// In the order in which the till takes them.
constexpr std::array kOrdineInvio{&kIntestazione, &kReparto,  &kPLU,  &kIVA,      &kValuta,
                                  &kOperatore,    &kCortesia, &kLogo, &kParametri};
static_assert(kOrdineInvio.size() == kFileConfigurazione);

struct Richiesta {
  const Famiglia* famiglia;
  /// What the person reads where it fails.
  const char16_t* fallita;
};
/// In the order in which they are asked for, which is not that of the sending. The operators' message names
/// the currencies: shops and their support know the steps by these words.
constexpr std::array kOrdineRicezione{
    Richiesta{&kIntestazione, u"Errore nell'invio richiesta dati presenti nell'intestazione "},
    Richiesta{&kParametri, u"Errore nell'invio richiesta dati presenti in RAM "},
    Richiesta{&kPLU, u"Errore nell'invio richiesta dati presenti in PLU "},
    Richiesta{&kValuta, u"Errore nell'invio richiesta dati Valute "},
    Richiesta{&kOperatore, u"Errore nell'invio richiesta dati presenti in Valute "},
    Richiesta{&kCortesia, u"Errore nell'invio richiesta dati Cortesia "},
    Richiesta{&kLogo, u"Errore nell'invio richiesta dati Logo "},
    Richiesta{&kIVA, u"Errore nell'invio richiesta dati Iva "},
    Richiesta{&kReparto, u"Errore nell'invio richiesta dati Reparti "},
};
static_assert(kOrdineRicezione.size() == kFileConfigurazione);

/// A family as the small tills exchange it.
struct Stretta {
  Record corta;
  void (*restringi)(RecordLetto piena, Record corta);
  void (*allarga)(RecordLetto corta, Record piena);
};

std::optional<Stretta> strettaDi(const Famiglia& famiglia) {
  if (&famiglia == &kIntestazione)
    return Stretta{righeStrette().intestazione, restringiIntestazione, allargaIntestazione};
  if (&famiglia == &kCortesia) return Stretta{righeStrette().cortesia, restringiCortesia, allargaCortesia};
  return std::nullopt;
}

const QString& classe() {
  return commonForKora().ECR_INFO.InfoTipoBitmap;
}

/// The family's bytes as they travel. The whole programme stands in one image, which is the assembling buffer
/// too: there is nothing to copy into it first.
RecordLetto daInviare(const Famiglia& famiglia) {
  const RecordLetto piena = std::as_const(immagineProgrammazione()).blocco(famiglia);
  const std::optional<Stretta> stretta = invioStretto(classe()) ? strettaDi(famiglia) : std::nullopt;
  if (!stretta) return piena;
  stretta->restringi(piena, stretta->corta);
  return stretta->corta;
}

/// The folder's lock, held from the first file to the last: another program's are not to come in between.
using Scambio = std::optional<ecrlink::ScambioEsclusivo>;

/// Bytes of the file's records that the till has now; nothing for a failure.
std::optional<std::int64_t> invia(const Famiglia& famiglia, Contesto& contesto, Scambio& scambio) {
  const RecordLetto record = daInviare(famiglia);
  // One byte longer, as the file channel wants its images.
  std::vector<std::uint8_t> immagine(record.size() + 1);
  std::copy(record.begin(), record.end(), immagine.begin());
  if (ecrlink::SendPRGTo_ECR(immagine, QLatin1String(famiglia.file), contesto, scambio) != 0)
    return std::nullopt;
  return static_cast<std::int64_t>(record.size());
}

/// A file that came.
struct Arrivo {
  std::int64_t byte = 0;
  std::int64_t previsti = 0;
};

/// Files come with the byte behind their records, or without it.
QString avvisoDi(const Famiglia& famiglia, const Arrivo& arrivo) {
  const bool corto = arrivo.byte < arrivo.previsti;
  if (!corto && arrivo.byte <= arrivo.previsti + 1) return {};
  return QStringLiteral("Ricevuti %1 byte invece di %2 di %3: %4")
      .arg(cifra(arrivo.byte), cifra(arrivo.previsti), QLatin1String(famiglia.file),
           corto ? QStringLiteral("il resto è rimasto com'era.")
                 : QStringLiteral("quelli in più non sono stati letti."));
}

/// Into memory only once the whole file is there.
std::optional<Arrivo> ricevi(const Famiglia& famiglia, Contesto& contesto, Scambio& scambio) {
  const Record piena = immagineProgrammazione().blocco(famiglia);
  const std::optional<Stretta> stretta = ricezioneStretta(classe()) ? strettaDi(famiglia) : std::nullopt;
  // Lines that a short file does not reach are to come back as they are.
  if (stretta) stretta->restringi(piena, stretta->corta);
  const Record meta = stretta ? stretta->corta : piena;
  std::vector<std::uint8_t> immagine(meta.begin(), meta.end());
  // What lay under the name is of an earlier exchange: the configuration's own file holds what counts.
  const std::optional<std::int64_t> byte = ecrlink::RiceviFile(
      immagine, QLatin1String(famiglia.file), ecrlink::Precedente::Rimosso, contesto, scambio);
  if (!byte) return std::nullopt;
  std::copy(immagine.begin(), immagine.end(), meta.begin());
  if (stretta) stretta->allarga(stretta->corta, piena);
  return Arrivo{*byte, static_cast<std::int64_t>(meta.size())};
}

void aggiungi(QString& frasi, const QString& frase) {
  if (frase.isEmpty()) return;
  if (!frasi.isEmpty()) frasi += u' ';
  frasi += frase;
}

/// The archive as it was stays beside it: the till's articles are written over all of its own.
bool salvaArticoli(const QString& percorso, Contesto& contesto) {
  return reazioni::oppure(
      [&] {
        const ArchivioCompagno compagno(percorso, contesto);
        archivio::Conserva(PercorsoCompagno(percorso), contesto);
        return articles::SalvaPLU(contesto) == 0;
      },
      [&](const Errore& errore) {
        reazioni::segnalaImprevisto(contesto.utente, errore, QStringLiteral("SalvaPLU"),
                                    QStringLiteral("Common_PRG"));
        return false;
      });
}

QString fineDellaRicezione(const Ricezione& ricezione, const QString& percorso) {
  switch (ricezione.esito) {
    case EsitoRicezione::Fatta:
      return ricezione.cambiati.isEmpty()
                 ? QStringLiteral("Il file %1 era già uguale.").arg(FileName(percorso))
                 : QStringLiteral("Cambiati in %1: %2.").arg(FileName(percorso), ricezione.cambiati);
    case EsitoRicezione::Interrotta:
      return QStringLiteral("Nulla è stato salvato: i file ricevuti sono in memoria.");
    case EsitoRicezione::NonSalvata:
      return QStringLiteral("Nulla è stato salvato: %1 è rimasto com'era.").arg(FileName(percorso));
    case EsitoRicezione::SenzaArticoli:
      return QStringLiteral("%1 è salvato; gli articoli di %2 sono rimasti com'erano.")
          .arg(FileName(percorso), FileName(PercorsoCompagno(percorso)));
  }
  return {};
}

}  // namespace

RigheStrette& righeStrette() {
  static RigheStrette uniche;
  return uniche;
}

void azzeraRigheStrette() {
  righeStrette() = {};
}

bool CassaBloccata() {
  return Val(commonForKora().ECR_INFO.InfoDatiFiscali) > 0;
}

bool AzzeraCassa(Contesto& contesto) {
  std::optional<ecrlink::ScambioEsclusivo> scambio;
  const bool azzerata = reazioni::oppure(
      [&] {
        // The closure is refused while a transfer is open: not one of another program's is to be in its way.
        ecrlink::prendiDovePossibile(scambio);
        return ecrlink::avviaECR({}, ecrlink::Modo::ChiusuraFiscale, contesto) == 0;
      },
      [&](const Errore& errore) {
        contesto.utente.MsgBox(errore.descrizione, Icon::Critical);
        return false;
      });
  scambio.reset();
  if (azzerata)
    contesto.utente.MsgBox(QStringLiteral("AZZERAMENTO EFFETTUATO CORRETTAMENTE"), Icon::Information);
  else
    contesto.utente.MsgBox(QStringLiteral("AZZERAMENTO NON EFFETTUATO"), Icon::Critical);
  return azzerata;
}

Invio InviaConfigurazione(Contesto& contesto, const AlFileFatto& alFile) {
  Invio invio;
  Scambio scambio;
  for (const Famiglia* famiglia : kOrdineInvio) {
    const std::optional<std::int64_t> byte = invia(*famiglia, contesto, scambio);
    if (!byte) return invio;
    invio.byte += *byte;
    alFile(++invio.file);
    contesto.utente.DoEvents();
  }
  invio.articoli = articles::ArticoliInMemoria();
  invio.riuscito = true;
  return invio;
}

Invio InviaConArticoli(Contesto& contesto, const AlFileFatto& alFile) {
  const ArchivioCompagno compagno(varGestionePRG().PathConfigurazione, contesto);
  // Half an archive would sell at the prices of another one.
  if (articles::RiempiPLU(contesto.utente) != 0) return {};
  return InviaConfigurazione(contesto, alFile);
}

QString RaccontoInvio(const Invio& invio) {
  if (invio.riuscito)
    return QStringLiteral("Inviati %1 file, %2 byte, %3")
        .arg(cifra(invio.file), cifra(invio.byte),
             quanti(invio.articoli, QStringLiteral("articolo"), QStringLiteral("articoli")));
  if (invio.file == 0) return QStringLiteral("Nulla è stato inviato: la cassa tiene la sua programmazione.");
  return QStringLiteral(
             "Inviati %1 file di %2: la cassa ha quelli, e il resto della programmazione di prima.")
      .arg(cifra(invio.file), cifra(kFileConfigurazione));
}

Ricezione RiceviConfigurazione(Contesto& contesto, const AlFileFatto& alFile) {
  Ricezione ricezione;
  Scambio scambio;
  for (const Richiesta& richiesta : kOrdineRicezione) {
    const std::optional<Arrivo> arrivo = ricevi(*richiesta.famiglia, contesto, scambio);
    if (!arrivo) {
      scambio.reset();
      contesto.utente.MsgBox(QString::fromUtf16(richiesta.fallita), Icon::Critical);
      return ricezione;
    }
    ricezione.byte += std::min(arrivo->byte, arrivo->previsti);
    aggiungi(ricezione.avviso, avvisoDi(*richiesta.famiglia, *arrivo));
    alFile(++ricezione.file);
    contesto.utente.DoEvents();
  }
  ricezione.articoli = articles::ArticoliInMemoria();
  ricezione.esito = EsitoRicezione::NonSalvata;
  return ricezione;
}

Ricezione RiceviESalva(Contesto& contesto, const AlFileFatto& alFile) {
  const QString percorso = varGestionePRG().PathConfigurazione;
  Ricezione ricezione = RiceviConfigurazione(contesto, alFile);
  if (ricezione.esito == EsitoRicezione::Interrotta) return ricezione;
  const Salvataggio salvataggio = SalvaConfigurazioneRaccontando(percorso, contesto.utente);
  if (salvataggio.esito != 0) return ricezione;
  ricezione.cambiati = salvataggio.racconto;
  ricezione.esito = salvaArticoli(percorso, contesto) ? EsitoRicezione::Fatta : EsitoRicezione::SenzaArticoli;
  return ricezione;
}

QString RaccontoRicezione(const Ricezione& ricezione) {
  QString frasi;
  if (ricezione.esito == EsitoRicezione::Interrotta)
    frasi = QStringLiteral("Ricevuti %1 file di %2.").arg(cifra(ricezione.file), cifra(kFileConfigurazione));
  else
    frasi = QStringLiteral("Ricevuti %1 file, %2 byte, %3.")
                .arg(cifra(ricezione.file), cifra(ricezione.byte),
                     quanti(ricezione.articoli, QStringLiteral("articolo"), QStringLiteral("articoli")));
  aggiungi(frasi, ricezione.avviso);
  aggiungi(frasi, fineDellaRicezione(ricezione, varGestionePRG().PathConfigurazione));
  return frasi;
}

}  // namespace config
