#pragma once

#include <gtest/gtest.h>

#include <QByteArray>
#include <vector>

#include "articles/back_room.h"
#include "articles/csv_import.h"

/// The archive's articles, every column as text, in the order of the slots.
using Fotografia = std::vector<QStringList>;

/// What every test of the import begins with: an archive from the template, a clock that stands still.
struct ImportArticoli : testing::Test {
  BackRoom bottega;
  /// Of the transactions when the last import had run, before its command ended.
  int livelloAllaFine = 0;
  const QString archivio = bottega.folder.file(QStringLiteral("archivio.mdb"));

  void SetUp() override { bottega.openArchive(); }

  /// One command: the person picks the file and the import runs to its last box.
  articles::EsitoImport importaFile(const QString& percorso);
  /// As above over a file of these bytes.
  articles::EsitoImport importa(const QByteArray& csv);

  /// Lines of the report without its heading and its closing; fails if either is not there.
  QStringList annotazioni();
  QByteArray report() { return bottega.folder.read(QStringLiteral("lista_20240307090501.log")); }

  /// As the open archive shows them, an open transaction included.
  Fotografia fotografia() { return fotografa(varGlobal().DB_Articoli); }
  /// As another program would find them.
  Fotografia fotografiaDaFuori();
  QString colonna(const QString& nome, int auto_id);

  static Fotografia fotografa(store::Database& base);
  /// The box of a finished import.
  static Box riuscita();
  static Box fallita();
  /// The box with the total of faults.
  Box conErrori(int errori) const;
};

/// A line of the exchange file.
QByteArray rigaCsv(int auto_id, const QByteArray& ean, const QByteArray& codice,
                   const QByteArray& descrizione, const QByteArray& prezzo, const QByteArray& reparto);
/// `quante` sound lines for the slots from 1.
QByteArray listaSana(int quante);
