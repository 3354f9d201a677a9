#pragma once

#include <gtest/gtest.h>

#include <QString>

#include "platform/store/store.h"
#include "sostegno/cartella_temporanea.h"

/// Number of the Errore that `passo` throws, 0 where it throws none.
template <typename Passo>
int numeroErrore(Passo&& passo) {
  try {
    passo();
  } catch (const Errore& errore) {
    EXPECT_FALSE(errore.descrizione.isEmpty());
    return errore.numero;
  }
  return 0;
}

/// Description of the Errore that `passo` throws.
template <typename Passo>
QString descrizioneErrore(Passo&& passo) {
  try {
    passo();
  } catch (const Errore& errore) {
    return errore.descrizione;
  }
  ADD_FAILURE() << "no failure";
  return {};
}

/// An article archive fresh from the template, open, in a folder of its own.
class ArchivioDiProva : public testing::Test {
 protected:
  ArchivioDiProva() : percorso_(cartella_.file(QStringLiteral("negozio.mdb"))) {
    store::CopiaArchivio(modello(), percorso_);
    archivio_ = area_.OpenDatabase(percorso_);
  }

  static QString modello() { return QStringLiteral(GESTIONALE_APP "/QzDB.bck"); }

  int esegui(const char* sql) { return archivio_.Execute(QString::fromUtf8(sql)); }
  store::Recordset leggi(const char* sql) { return archivio_.OpenRecordset(QString::fromUtf8(sql)); }
  /// First field of the first row, as text.
  QString valore(const char* sql) { return leggi(sql).campo(0).testo(); }
  int numeroDi(const char* sql) {
    return numeroErrore([&] { esegui(sql); });
  }
  int numeroDellaLettura(const char* sql) {
    return numeroErrore([&] { leggi(sql); });
  }
  /// How the engine goes about a statement, in its words.
  QString piano(const char* sql) {
    QString testo;
    for (auto righe = leggi((std::string("EXPLAIN QUERY PLAN ") + sql).c_str()); !righe.fine();
         righe.MoveNext())
      testo += righe.campo(QStringLiteral("detail")).testo() + QLatin1Char('\n');
    return testo;
  }

  CartellaTemporanea cartella_;
  store::Workspace area_;
  QString percorso_;
  store::Database archivio_;
};
