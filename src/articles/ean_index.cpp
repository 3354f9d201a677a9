#include "articles/ean_index.h"

#include <QStringBuilder>
#include <optional>
#include <vector>

#include "articles/overwritten.h"
#include "core/reazioni.h"
#include "core/stato.h"
#include "platform/store/store.h"
#include "platform/text/windows1252.h"
#include "platform/ui/occupato.h"
#include "platform/ui/utente.h"
#include "platform/usermmc/usermmc.h"

namespace articles {

namespace {

constexpr std::int16_t kFatto = 0;
constexpr std::int16_t kNonEseguito = -1;
constexpr std::int16_t kFallito = 1;

const QString kTutti = QStringLiteral("SELECT Auto_ID,Codice_EAN ,ID_Position from TAB_ARTICOLI ");

/// The failure of one statement of the upkeep: told whatever its number.
void segnalaStatement(Utente& utente, const QString& prefisso, const Errore& errore, Errore* causa) {
  utente.MsgBox(prefisso % QString::number(errore.numero) % QLatin1Char('\n') % errore.descrizione,
                Icona::Critica);
  if (causa != nullptr) *causa = errore;
}

/// True if the statement ran.
bool esegui(const QString& sql, Utente& utente, const QString& prefisso, Errore* causa) {
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

/// What one row's statement is built of.
struct Voce {
  QString ean;
  std::int32_t indice = 0;
};

/// Row `riga`, from 0, as the renumbering sees it.
Voce voceDaNumerare(const store::Recordset& righe, int riga) {
  return {testoUtf8(righe, righe.colonna(QStringLiteral("Codice_EAN"))), riga};
}

/// The row as the checksum table sees it. A position that is no number throws 13.
Voce voceNumerata(const store::Recordset& righe, int) {
  return {testoUtf8(righe, righe.colonna(QStringLiteral("Codice_EAN"))),
          righe.campo(QStringLiteral("ID_Position")).intero()};
}

using Lettura = Voce (*)(const store::Recordset&, int);

/// The EAN of every row; nothing where the row cannot be read, which is told when its turn comes.
std::vector<std::optional<QString>> chiavi(store::Recordset righe, Lettura leggi) {
  std::vector<std::optional<QString>> tutte;
  for (int riga = 0; !righe.fine(); righe.MoveNext(), ++riga) {
    try {
      tutte.emplace_back(leggi(righe, riga).ean);
    } catch (const Errore&) {
      tutte.emplace_back(std::nullopt);
    }
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

  /// Hands the rows of `sql` over; the result is `fallito` if they could not be had and the person was told.
  template <typename Corpo>
  std::int16_t conRighe(const QString& sql, Corpo&& corpo) {
    const auto letto = passo([&] { corpo(varGlobal().DB_Articoli.OpenRecordset(sql)); });
    return letto == reazioni::Esito::Segnalato ? fallito : esito;
  }

  /// Runs `statement` on each row until one results in -1. A row that cannot be read is told and passed over.
  template <typename Statement>
  void percorri(store::Recordset righe, Lettura leggi, const Statement& statement) {
    for (int riga = 0; !righe.fine(); righe.MoveNext(), ++riga) {
      std::int16_t eseguito = kFatto;
      passo([&] { eseguito = statement(static_cast<std::size_t>(riga), leggi(righe, riga)); });
      if (eseguito != kNonEseguito) continue;
      utente.MsgBox(fermata, Icona::Critica);
      esito = fallito;
      return;
    }
  }
};

}  // namespace

double CalcolaEanNum(const QString& ean) {
  const QByteArray byte = windows1252::inByte(ean);
  return UserMMC::_get_crc32_double({byte.constData(), static_cast<std::size_t>(byte.size())});
}

std::int16_t UpdateIDPosition(const QString& ean, std::int32_t position, Utente& utente, Errore* causa) {
  const QString sql = QStringLiteral("UPDATE TAB_ARTICOLI SET ID_Position = '") % QString::number(position) %
                      QStringLiteral("' WHERE Codice_EAN ='") % ean % QStringLiteral("';");
  const bool fatto =
      esegui(sql, utente, QStringLiteral("Errore nell' inserimento dati nella TAB_ARTICOLI n° "), causa);
  return fatto ? kFatto : kNonEseguito;
}

std::int16_t CalcolaID_Position(Utente& utente, Errore* causa) {
  Visita visita{utente, QStringLiteral("CalcolaID_Position "), QStringLiteral("Fallito Inserimento indici "),
                kFallito, causa};
  const QString sql = QStringLiteral("SELECT Auto_ID,Codice_EAN from TAB_ARTICOLI ORDER by Auto_ID ASC");
  return visita.conRighe(sql, [&](const store::Recordset& righe) {
    const Sovrascritte sovrascritte(chiavi(righe, voceDaNumerare));
    visita.percorri(righe, voceDaNumerare, [&](std::size_t riga, const Voce& voce) {
      return sovrascritte.superflua(riga) ? kFatto : UpdateIDPosition(voce.ean, voce.indice, utente, causa);
    });
  });
}

std::int16_t InsertEanNumerici(const QString& ean, double checksum, std::int32_t index, Utente& utente) {
  const QString sql =
      QStringLiteral("INSERT INTO TAB_EAN_NUMERICI (Codice_EAN,Codice_EAN_Num,Index,Spare) Values ('") % ean %
      QStringLiteral("',") % QString::number(checksum, 'f', 0) % QLatin1Char(',') % QString::number(index) %
      QStringLiteral(",'');");
  const bool fatto = esegui(
      sql, utente, QStringLiteral("Errore nell' inserimento dati nella TAB_EAN_NUMERICI n° "), nullptr);
  return fatto ? kFatto : kNonEseguito;
}

std::int16_t UpdateEanNumAndIndex(Utente& utente) {
  const Occupato occupato;
  Visita visita{utente, QStringLiteral("UpdateEanNumAndIndex "),
                QStringLiteral("Fallito Inserimento Codice EAN Numerico "), kNonEseguito};
  return visita.conRighe(kTutti, [&](const store::Recordset& righe) {
    visita.percorri(righe, voceNumerata, [&](std::size_t, const Voce& voce) {
      utente.DoEvents();
      return InsertEanNumerici(voce.ean, CalcolaEanNum(voce.ean), voce.indice, utente);
    });
  });
}

std::int16_t ReazioneUpdateIndex(const Errore& errore, Utente& utente) {
  const bool oltre = errore.numero == 0 || errore.numero == errore::kFileAssente ||
                     errore.numero == errore::kAccessoPercorso || errore.numero == errore::kNessunRecord;
  if (oltre) return kFatto;
  reazioni::segnala(utente, QStringLiteral("Errore nella funzione UpdateIndex "), errore);
  return kFallito;
}

std::int16_t UpdateIndex(const QString& ean, std::int32_t index, Utente& utente, Errore* causa) {
  try {
    const QString sql = QStringLiteral("UPDATE TAB_EAN_NUMERICI SET Index = ") % QString::number(index) %
                        QStringLiteral(" WHERE Codice_Ean_num = ") %
                        QString::number(CalcolaEanNum(ean), 'f', 0) % QLatin1Char(';');
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
  return visita.conRighe(kTutti, [&](const store::Recordset& righe) {
    Sovrascritte sovrascritte(chiavi(righe, voceNumerata));
    // UpdateIndex fails with 1 and never with -1, so no row ends the walk: one EAN without its index is told
    // and the others keep theirs, instead of a deletion that cannot be done at all.
    visita.percorri(righe, voceNumerata, [&](std::size_t riga, const Voce& voce) {
      if (sovrascritte.superflua(riga)) return kFatto;
      const std::int16_t fatto = UpdateIndex(voce.ean, voce.indice, utente, causa);
      if (fatto != kFatto) sovrascritte.fallita();
      return fatto;
    });
  });
}

}  // namespace articles
