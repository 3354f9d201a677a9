#include "articles/ean_index.h"

#include <QStringBuilder>
#include <optional>
#include <variant>
#include <vector>

#include "articles/overwritten.h"
#include "core/reactions.h"
#include "core/state.h"
#include "platform/store/store.h"
#include "platform/text/windows1252.h"
#include "platform/ui/busy_guard.h"
#include "platform/ui/user_port.h"
#include "platform/usermmc/usermmc.h"

namespace articles {

namespace {

constexpr std::int16_t kFatto = 0;
constexpr std::int16_t kNonEseguito = -1;
constexpr std::int16_t kFallito = 1;

/// The failure of one statement of the upkeep: told whatever its number.
void segnalaStatement(Utente& utente, const QString& prefisso, const Errore& errore, Errore* causa) {
  utente.MsgBox(prefisso % QString::number(errore.numero) % QLatin1Char('\n') % errore.descrizione,
                Icon::Critical);
  if (causa != nullptr) *causa = errore;
}

/// True if the statement ran.
bool esegui(const store::Statement& sql, Utente& utente, const QString& prefisso, Errore* causa) {
  try {
    varGlobal().DB_Articoli.Execute(sql);
    return true;
  } catch (const Errore& errore) {
    segnalaStatement(utente, prefisso, errore, causa);
    return false;
  }
}

QString testoUtf8(const store::Recordset& righe, int colonna) {
  const std::string_view byte = righe.utf8(colonna);
  return QString::fromUtf8(byte.data(), static_cast<qsizetype>(byte.size()));
}

/// What one row's statement is built of; a row that cannot be read keeps why until its turn comes.
struct Voce {
  QString ean;
  std::int32_t indice = 0;
};
using VoceLetta = std::variant<Voce, Errore>;

/// Every row, by position. `indiceDi` gives what the row's EAN is to be written with.
template <typename IndiceDi>
std::vector<VoceLetta> leggi(store::Recordset righe, const IndiceDi& indiceDi) {
  const int ean = righe.column(QStringLiteral("Codice_EAN"));
  std::vector<VoceLetta> voci;
  voci.reserve(static_cast<std::size_t>(righe.RecordCount()));
  for (; !righe.atEnd(); righe.MoveNext()) {
    try {
      voci.emplace_back(Voce{testoUtf8(righe, ean), indiceDi(righe)});
    } catch (const Errore& errore) {
      voci.emplace_back(errore);
    }
  }
  return voci;
}

/// The articles in ascending slot, each with its number from 0; a row that cannot be read keeps its number.
std::vector<VoceLetta> daNumerare() {
  const store::Recordset righe = varGlobal().DB_Articoli.OpenRecordset(
      u"SELECT Auto_ID,Codice_EAN from TAB_ARTICOLI ORDER by Auto_ID ASC");
  std::vector<VoceLetta> voci = leggi(righe, [](const store::Recordset&) { return 0; });
  std::int32_t numero = 0;
  for (VoceLetta& voce : voci) {
    if (auto* letta = std::get_if<Voce>(&voce)) letta->indice = numero;
    ++numero;
  }
  return voci;
}

/// The articles in the table's order with the position that they have; one that is no number is told as 13.
std::vector<VoceLetta> numerate() {
  const store::Recordset righe =
      varGlobal().DB_Articoli.OpenRecordset(u"SELECT Auto_ID,Codice_EAN ,ID_Position from TAB_ARTICOLI ");
  const int posizione = righe.column(QStringLiteral("ID_Position"));
  return leggi(righe, [posizione](const store::Recordset& riga) { return riga.field(posizione).int32(); });
}

std::vector<std::optional<QStringView>> chiavi(const std::vector<VoceLetta>& voci) {
  std::vector<std::optional<QStringView>> tutte;
  tutte.reserve(voci.size());
  for (const VoceLetta& voce : voci) {
    const auto* letta = std::get_if<Voce>(&voce);
    tutte.push_back(letta == nullptr ? std::nullopt : std::optional<QStringView>(letta->ean));
  }
  return tutte;
}

/// A walk over the articles with its own reaction to failures.
struct Visita {
  Utente& utente;
  QString prefisso;
  /// Told when a statement's result ends the walk.
  QString fermata;
  std::int16_t fallito;
  Errore* causa = nullptr;
  /// An event pass at each row.
  bool conEventi = false;
  std::int16_t esito = kFatto;

  template <typename Passo>
  reazioni::Esito passo(Passo&& corpo) {
    return reazioni::prossimaIstruzione(utente, prefisso, [&] {
      try {
        corpo();
      } catch (const Errore& errore) {
        if (causa != nullptr) *causa = errore;
        throw;
      }
    });
  }

  /// Hands the rows over; the result is `fallito` if they could not be had and the person was told.
  template <typename Corpo>
  std::int16_t conVoci(std::vector<VoceLetta> (*lettura)(), Corpo&& corpo) {
    std::vector<VoceLetta> voci;
    if (passo([&] { voci = lettura(); }) == reazioni::Esito::Segnalato) return fallito;
    corpo(voci);
    return esito;
  }

  /// Runs `statement` on each row until one results in -1. A row that could not be read is told and passed
  /// over.
  template <typename Statement>
  void percorri(const std::vector<VoceLetta>& voci, const Statement& statement) {
    std::size_t riga = 0;
    for (const VoceLetta& voce : voci) {
      if (conEventi) utente.DoEventsAtRecord();
      std::int16_t eseguito = kFatto;
      passo([&] {
        if (const auto* errore = std::get_if<Errore>(&voce)) throw Errore(*errore);
        eseguito = statement(riga, std::get<Voce>(voce));
      });
      ++riga;
      if (eseguito != kNonEseguito) continue;
      utente.MsgBox(fermata, Icon::Critical);
      esito = fallito;
      return;
    }
  }
};

}  // namespace

double CalcolaEanNum(const QString& ean) {
  const QByteArray byte = windows1252::toBytes(ean);
  return UserMMC::_get_crc32_double({byte.constData(), static_cast<std::size_t>(byte.size())});
}

std::int16_t UpdateIDPosition(const QString& ean, std::int32_t position, Utente& utente, Errore* causa) {
  const store::Statement sql = u"UPDATE TAB_ARTICOLI SET ID_Position = '" +
                               store::number(std::int64_t{position}) + u"' WHERE Codice_EAN ='" +
                               store::text(ean) + u"';";
  const bool fatto =
      esegui(sql, utente, QStringLiteral("Errore nell' inserimento dati nella TAB_ARTICOLI n° "), causa);
  return fatto ? kFatto : kNonEseguito;
}

std::int16_t CalcolaID_Position(Utente& utente, Errore* causa) {
  Visita visita{utente, QStringLiteral("CalcolaID_Position "), QStringLiteral("Fallito Inserimento indici "),
                kFallito, causa};
  return visita.conVoci(daNumerare, [&](const std::vector<VoceLetta>& voci) {
    const Sovrascritte sovrascritte(chiavi(voci));
    visita.percorri(voci, [&](std::size_t riga, const Voce& voce) {
      return sovrascritte.superflua(riga) ? kFatto : UpdateIDPosition(voce.ean, voce.indice, utente, causa);
    });
  });
}

std::int16_t InsertEanNumerici(const QString& ean, double checksum, std::int32_t index, Utente& utente) {
  const store::Statement sql =
      u"INSERT INTO TAB_EAN_NUMERICI (Codice_EAN,Codice_EAN_Num,Index,Spare) "
      u"Values ('" +
      store::text(ean) + u"'," + store::number(checksum) + u"," + store::number(std::int64_t{index}) +
      u",'');";
  const bool fatto = esegui(
      sql, utente, QStringLiteral("Errore nell' inserimento dati nella TAB_EAN_NUMERICI n° "), nullptr);
  return fatto ? kFatto : kNonEseguito;
}

std::int16_t UpdateEanNumAndIndex(Utente& utente) {
  const BusyGuard occupato;
  Visita visita{.utente = utente,
                .prefisso = QStringLiteral("UpdateEanNumAndIndex "),
                .fermata = QStringLiteral("Fallito Inserimento Codice EAN Numerico "),
                .fallito = kNonEseguito,
                .conEventi = true};
  return visita.conVoci(numerate, [&](const std::vector<VoceLetta>& voci) {
    visita.percorri(voci, [&](std::size_t, const Voce& voce) {
      return InsertEanNumerici(voce.ean, CalcolaEanNum(voce.ean), voce.indice, utente);
    });
  });
}

std::int16_t ReazioneUpdateIndex(const Errore& errore, Utente& utente) {
  const bool oltre = errore.numero == 0 || errore.numero == errors::kFileMissing ||
                     errore.numero == errors::kPathAccess || errore.numero == errors::kNoCurrentRecord;
  if (oltre) return kFatto;
  reazioni::segnala(utente, QStringLiteral("Errore nella funzione UpdateIndex "), errore);
  return kFallito;
}

std::int16_t UpdateIndex(const QString& ean, std::int32_t index, Utente& utente, Errore* causa) {
  try {
    const store::Statement sql = u"UPDATE TAB_EAN_NUMERICI SET Index = " +
                                 store::number(std::int64_t{index}) + u" WHERE Codice_Ean_num = " +
                                 store::number(CalcolaEanNum(ean)) + u";";
    const bool fatto =
        esegui(sql, utente, QStringLiteral("Errore nell' UPDATE dati nella TAB_EAN_NUMERICI n° "), causa);
    return fatto ? kFatto : kFallito;
  } catch (const Errore& errore) {
    if (causa != nullptr) *causa = errore;
    return ReazioneUpdateIndex(errore, utente);
  }
}

std::int16_t UpdateALLIndex(Utente& utente, Errore* causa) {
  Visita visita{utente, QStringLiteral("Fallita UpdateALLIndex "), QStringLiteral("Fallito UpdateIndex  "),
                kFallito, causa};
  return visita.conVoci(numerate, [&](const std::vector<VoceLetta>& voci) {
    Sovrascritte sovrascritte(chiavi(voci));
    // UpdateIndex fails with 1 and never with -1, so no row ends the walk: one EAN without its index is told
    // and the others keep theirs, instead of a deletion that cannot be done at all.
    visita.percorri(voci, [&](std::size_t riga, const Voce& voce) {
      if (sovrascritte.superflua(riga)) return kFatto;
      const std::int16_t fatto = UpdateIndex(voce.ean, voce.indice, utente, causa);
      if (fatto != kFatto) sovrascritte.fallita();
      return fatto;
    });
  });
}

}  // namespace articles
