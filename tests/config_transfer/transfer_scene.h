#pragma once

#include <gtest/gtest.h>

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <vector>

#include "articles/back_room.h"
#include "sostegno/guided_screen.h"
#include "sostegno/test_till.h"

inline const QString kSchermo = QStringLiteral("Form_TrasferimentoProgrammazione");
inline const QString kAvvia = QStringLiteral("Cmd_Avvia");
inline const QString kEsci = QStringLiteral("Cmd_Esci");
inline const QString kConnetti = QStringLiteral("CmdInviaModECR");
inline const QString kBarra = QStringLiteral("vkBar1");
inline const QString kInvia = QStringLiteral("vkOptionAggiornaECR");
inline const QString kRicevi = QStringLiteral("vkOptionRicezioneECR");
inline const QString kReset = QStringLiteral("vkOptionResetECR");
inline const QString kTastiera = QStringLiteral("vkOptionButtonSendCodiceTastiera");

Box critico(const char* testo);
Box informa(const char* testo);
/// A question of the screen, its safe answer preset.
Box domanda(const char* testo);
inline const Box kComunicazione =
    box(QStringLiteral("Errore nella comunicazione con ECR: *"), Icon::Critical);
Box fallitoFile(const QString& file);

/// The nine files in the order of the sending and in that of the reception.
const QStringList& ordineInvio();
const QStringList& ordineRicezione();
/// What the person reads where the fetching of a file failed.
Box fallitaRichiesta(const QString& file);

/// A whole programme of 244968 bytes that repeats nowhere within a record family; another `seed`, another
/// one.
QByteArray disegno(int seed);
/// The records of one file in it, without the byte that travels behind them.
QByteArray recordIn(const QByteArray& immagine, const QString& file);
/// The file as it travels: one zero byte behind the records, plu.bin aside.
QByteArray fileDi(const QByteArray& immagine, const QString& file);
/// The programme in memory.
QByteArray immagineInMemoria();

/// The back room with an open configuration, `negozio.dat` and `negozio_art.mdb`, whose programme is
/// `disegno(1)`, a till, and the screen on the way between them. The archive beside the configuration is the
/// template's: 5000 slots without an article.
class BancoTrasferimento : public testing::Test {
 protected:
  explicit BancoTrasferimento(const ecrsim::Options& opzioni = {});
  ~BancoTrasferimento() override;

  /// The screen, connected, with an option chosen.
  GuidedScreen pronto(const QString& opzione);
  /// Lays into the till the nine files of `disegno(2)`, its articles those of `fullArchive()`.
  void programmaCassa();
  /// Opens the archive beside the configuration for a test's own statements, and closes it.
  void nelCompagno(const QStringList& istruzioni);
  /// Rows, or the first field, of a query on it.
  int righeNelCompagno(const QString& sql);
  QString valoreNelCompagno(const QString& sql);
  /// Calls on the till behind those of the connection.
  QStringList chiamate();
  QByteArray fileConfigurazione();
  QString piede(const GuidedScreen& schermo);

  BackRoom bottega;
  TestTill cassa;
  const QString configurazione = bottega.folder.file(QStringLiteral("negozio.dat"));
  const QString compagno = bottega.folder.file(QStringLiteral("negozio_art.mdb"));

 private:
  qsizetype gia_ = 0;
};

/// Clicks "Avvia" while another program wants the folder for itself at each event pass and at each box. What
/// came of each try: "libera" where it had the folder, "presa" where the lock stood in its way that stopped
/// it first, "ripresa" where that one had been given back and another was there.
QStringList contesaDurante(BackRoom& bottega, const GuidedScreen& schermo);
/// The calls of so many files, each between its opening and its closing.
QStringList scambi(int modo, const QStringList& file);
/// What the till's plu.bin holds when the archive beside the configuration has no article.
const QByteArray& senzaArticoli();
/// The till's own plu.bin, of `fullArchive()`.
const QByteArray& articoliDellaCassa();
