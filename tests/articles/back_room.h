#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <vector>

#include "core/context.h"
#include "core/screens.h"
#include "core/state.h"
#include "platform/ecrcom/library.h"
#include "platform/store/store.h"
#include "platform/ui/scripted_user.h"
#include "sostegno/temporary_folder.h"

/// The back room of one test: a folder, a person who answers from a script, the stores, the real library and
/// network, and an archive made from the template. The process-wide variables are fresh before and after.
class Bottega {
 public:
  /// `cartellaLibreria` holds the communications library.
  explicit Bottega(const QString& cartellaLibreria = QStringLiteral(GESTIONALE_APP));
  ~Bottega();

  /// Copies the template to `nome` in the folder and opens it as the archive.
  void apriArchivio(const QString& nome = QStringLiteral("archivio.mdb"));
  /// A file with the tables that the statements make; the archive, if `apri`.
  void apriVuoto(const QStringList& statement, const QString& nome = QStringLiteral("altro.mdb"));
  /// Runs a statement on the archive.
  int esegui(const QString& sql) { return varGlobal().DB_Articoli.Execute(sql); }
  /// First field of the first row of a query on the archive, as text.
  QString valore(const QString& sql);
  int righe(const QString& sql) { return varGlobal().DB_Articoli.OpenRecordset(sql).RecordCount(); }

  TemporaryFolder cartella;
  ScriptedUser utente;
  store::Workspace area;
  LibreriaEcr libreria;
  Schermate schermate;
  Contesto contesto;
};

/// One article as a test writes it into the archive.
struct ArticoloDiProva {
  QString ean;
  QString descrizione;
  std::int32_t prezzo = 0;
  int reparto = 1;
  bool varPrezzo = false;
  bool prezzoZero = false;
};

/// `quanti` articles with accents, the euro sign, every length of text and every pair of flags.
std::vector<ArticoloDiProva> articoliDiProva(int quanti);
/// Writes them over the slots from 1, in one transaction.
void scriviArticoli(Bottega& bottega, const std::vector<ArticoloDiProva>& articoli);
/// The image that the till has to hold for these articles, packed here byte by byte over `sotto`.
QByteArray immagineAttesa(const std::vector<ArticoloDiProva>& articoli,
                          QByteArray sotto = QByteArray(240000, '\0'));
/// The PLU records in memory as they stand.
QByteArray immagineInMemoria();
/// Fills the PLU records in memory with one byte.
void sporcaMemoria(std::uint8_t byte);

/// The boxes of the texts, all with one icon and no title.
std::vector<Box> riquadri(const QStringList& testi, Icon icona);
