#include <QDir>
#include <QFile>
#include <QProgressBar>
#include <QStringList>

#include "articles/article_database.h"
#include "config/configuration_transfer.h"
#include "config_transfer/transfer_scene.h"
#include "controls/outcome_bar.h"
#include "ecrlink/transfer_lock.h"
#include "sostegno/troubles.h"

namespace {

const Box kTrasferita = informa("PROGRAMMAZIONE DELLA CASSA CORRETTAMENTE TRASFERITA");
const Box kFallita = critico("Fallita operazione invio configurazione all'ECR");
const Box kCondizione = critico("RiempiPLU: uscita dal programma per condizione anomala *");

ecrsim::Options classe(char lettera) {
  ecrsim::Options opzioni;
  opzioni.bitmap.assign(1, lettera);
  return opzioni;
}

class InvioProgrammazione : public BancoTrasferimento {
 protected:
  using BancoTrasferimento::BancoTrasferimento;
  GuidedScreen schermo = pronto(kInvia);
};
class InvioACassaPiccola : public InvioProgrammazione {
 protected:
  InvioACassaPiccola() : InvioProgrammazione(classe('S')) {}
};
class InvioAClasseIgnota : public InvioProgrammazione {
 protected:
  InvioAClasseIgnota() : InvioProgrammazione(classe('X')) {}
};

}  // namespace

TEST_F(InvioProgrammazione, INoveFilePartonoNelLoroOrdineOgnunoColSuoTrasferimento) {
  schermo.click(kAvvia);
  expectBoxes(bottega, {kTrasferita});
  EXPECT_EQ(chiamate(), scambi(6, ordineInvio()));
  EXPECT_FALSE(cassa->transferOpen());
}

TEST_F(InvioProgrammazione, OgniFileArrivaByteAByteConUnByteZeroInCoda) {
  schermo.click(kAvvia);
  expectBoxes(bottega, {kTrasferita});
  for (const QString& file : ordineInvio()) {
    if (file == QStringLiteral("plu.bin")) continue;
    EXPECT_TRUE(cassa.byte(file) == fileDi(disegno(1), file)) << file.toStdString();
  }
  EXPECT_TRUE(cassa.byte(QStringLiteral("plu.bin")) == senzaArticoli());
  EXPECT_EQ(bottega.folder.read(QStringLiteral("plu.bin")).size(), 240000);
  EXPECT_EQ(bottega.folder.read(QStringLiteral("logo.bin")).size(), 121);
}

TEST_F(InvioProgrammazione, GliArticoliSonoQuelliDellArchivioAccantoAllaConfigurazione) {
  const std::vector<TestArticle>& articoli = fullArchive();
  articles::ApriDatabase(compagno, bottega.contesto);
  writeArticles(bottega, articoli);
  articles::ChiudiDatabase();
  schermo.click(kAvvia);
  expectBoxes(bottega, {kTrasferita});
  EXPECT_TRUE(cassa.byte(QStringLiteral("plu.bin")) ==
              expectedImage(articoli, recordIn(disegno(1), QStringLiteral("plu.bin"))));
}

TEST_F(InvioProgrammazione, LArchivioApertoPrimaERestituitoENonCEntra) {
  bottega.openArchive();
  bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Descrizione ='ALTRO NEGOZIO' WHERE auto_id =1"));
  schermo.click(kAvvia);
  expectBoxes(bottega, {kTrasferita});
  EXPECT_FALSE(cassa.byte(QStringLiteral("plu.bin")).contains("ALTRO NEGOZIO"));
  ASSERT_TRUE(varGlobal().DB_Articoli.isOpen());
  EXPECT_EQ(bottega.value(QStringLiteral("SELECT Descrizione from TAB_ARTICOLI where auto_id = 1")),
            QStringLiteral("ALTRO NEGOZIO"));
  EXPECT_TRUE(varGlobal().NomeDB_Articoli.endsWith(QStringLiteral("archivio.mdb")));
}

TEST_F(InvioProgrammazione, IlFileDellaConfigurazioneNonSiTocca) {
  const QByteArray prima = fileConfigurazione();
  schermo.click(kAvvia);
  expectBoxes(bottega, {kTrasferita});
  EXPECT_TRUE(fileConfigurazione() == prima);
}

TEST_F(InvioProgrammazione, LaBarraFaUnPassoPerFileEDaGliEventiFraLUnoELAltro) {
  const auto& barra = schermo.control<QProgressBar>(kBarra);
  QList<int> valori;
  bottega.user.onPass = [&] { valori << barra.value(); };
  schermo.click(kAvvia);
  bottega.user.onPass = nullptr;
  expectBoxes(bottega, {kTrasferita});
  EXPECT_EQ(valori, (QList<int>{1, 2, 3, 4, 5, 6, 7, 8, 9}));
  EXPECT_EQ(barra.minimum(), 0);
  EXPECT_EQ(barra.maximum(), 9);
  EXPECT_EQ(barra.text(), QStringLiteral("9 file di 9"));
}

TEST_F(InvioProgrammazione, AlPiedeFileByteEArticoli) {
  nelCompagno({QStringLiteral("UPDATE TAB_ARTICOLI SET Descrizione ='PANE' WHERE auto_id =1"),
               QStringLiteral("UPDATE TAB_ARTICOLI SET Codice_EAN ='8001' WHERE auto_id =5000")});
  schermo.click(kAvvia);
  expectBoxes(bottega, {kTrasferita});
  EXPECT_EQ(piede(schermo), QStringLiteral("Inviati 9 file, 244.968 byte, 2 articoli"));
  EXPECT_EQ(schermo.control<OutcomeBar>("BarraEsito").kind(), OutcomeBar::Kind::Done);
}

TEST_F(InvioProgrammazione, DopoLInvioSiPuoSoloUscire) {
  schermo.click(kAvvia);
  expectBoxes(bottega, {kTrasferita});
  EXPECT_TRUE(schermo.enabled(kEsci));
  EXPECT_FALSE(schermo.enabled(kAvvia));
  EXPECT_FALSE(schermo.enabled(kConnetti));
  EXPECT_EQ(schermo.control(kAvvia).toolTip(), QStringLiteral("Per un altro comando uscire e rientrare"));
}

TEST_F(InvioProgrammazione, UnGuastoAllIvaLasciaNellaCassaIPrimiTreFile) {
  cassa->faults({{.mode = 6, .file = "iva.bin"}});
  schermo.click(kAvvia);
  expectBoxes(bottega, {kComunicazione, fallitoFile(QStringLiteral("iva.bin")), kFallita});
  for (const char* file : {"intestazione.bin", "reparti.bin"})
    EXPECT_TRUE(cassa.byte(QLatin1String(file)) == fileDi(disegno(1), QLatin1String(file))) << file;
  EXPECT_TRUE(cassa.byte(QStringLiteral("plu.bin")) == senzaArticoli());
  for (const QString& file : ordineInvio().mid(3)) EXPECT_FALSE(cassa.exists(file)) << file.toStdString();
  EXPECT_EQ(schermo.control<QProgressBar>(kBarra).value(), 3);
  EXPECT_EQ(piede(schermo), QStringLiteral("Inviati 3 file di 9: la cassa ha quelli, e il resto della "
                                           "programmazione di prima."));
  EXPECT_EQ(schermo.control<OutcomeBar>("BarraEsito").kind(), OutcomeBar::Kind::Failed);
  EXPECT_TRUE(schermo.enabled(kEsci));
  EXPECT_FALSE(schermo.enabled(kAvvia));
}

TEST_F(InvioProgrammazione, UnFileChePrimaEraPiuLungoTieneLaCodaELaCassaLaRifiuta) {
  bottega.folder.write(QStringLiteral("iva.bin"), QByteArray(300, 'c'));
  schermo.click(kAvvia);
  expectBoxes(bottega, {kComunicazione, fallitoFile(QStringLiteral("iva.bin")), kFallita});
  EXPECT_TRUE(bottega.folder.read(QStringLiteral("iva.bin")) ==
              fileDi(disegno(1), QStringLiteral("iva.bin")) + QByteArray(67, 'c'));
}

TEST_F(InvioProgrammazione, IlFileCheNonSiPuoScrivereFermaLInvio) {
  ASSERT_TRUE(QDir().mkdir(bottega.folder.file(QStringLiteral("val.bin"))));
  schermo.click(kAvvia);
  expectBoxes(bottega, {plainBox(QStringLiteral("Error 75 (*")), kFallita});
  EXPECT_EQ(chiamate(), scambi(6, ordineInvio().mid(0, 4)));
}

TEST_F(InvioProgrammazione, ConUnAltroProgrammaNellaCartellaNullaParte) {
  {
    const ecrlink::ScambioEsclusivo altro;
    schermo.click(kAvvia);
  }
  expectBoxes(bottega, {plainBox(QStringLiteral("Errore SendPRGTo_ECR 70 - Un altro programma sta scambiando "
                                                "dati con una cassa nella cartella *")),
                        kFallita});
  EXPECT_EQ(chiamate(), QStringList());
  EXPECT_EQ(piede(schermo), QStringLiteral("Nulla è stato inviato: la cassa tiene la sua programmazione."));
}

TEST_F(InvioProgrammazione, LaCartellaRestaSuaFraUnFileELAltroEDopoLUltimoEDiTutti) {
  const QStringList esiti = contesaDurante(bottega, schermo);
  expectBoxes(bottega, {kTrasferita});
  EXPECT_EQ(esiti, QStringList(9, QStringLiteral("presa")) + QStringList{QStringLiteral("libera")});
  EXPECT_EQ(chiamate(), scambi(6, ordineInvio()));
}

// The lines of a small till.

TEST_F(InvioACassaPiccola, DiOgniRigaViaggianoLAltezzaELaPrimaLettera) {
  schermo.click(kAvvia);
  expectBoxes(bottega, {kTrasferita});
  const QByteArray piena = disegno(1);
  QByteArray attesa(209, '\0');
  for (qsizetype riga = 0; riga < 8; ++riga) {
    attesa[26 * riga] = piena[38 * riga];
    attesa[26 * riga + 1] = piena[38 * riga + 1];
  }
  EXPECT_TRUE(cassa.byte(QStringLiteral("intestazione.bin")) == attesa);
  QByteArray cortesia(55, '\0');
  for (qsizetype riga = 0; riga < 2; ++riga) {
    cortesia[27 * riga] = piena[304 + 39 * riga];
    cortesia[27 * riga + 1] = piena[304 + 39 * riga + 1];
    cortesia[27 * riga + 26] = piena[304 + 39 * riga + 38];
  }
  EXPECT_TRUE(cassa.byte(QStringLiteral("cortesia.bin")) == cortesia);
  EXPECT_EQ(cassa->calls().at(3), (ecrsim::Call{6, "intestazione.bin", 209}));
  EXPECT_EQ(piede(schermo), QStringLiteral("Inviati 9 file, 244.848 byte, 0 articoli"));
}

TEST_F(InvioACassaPiccola, IlRestoDellaRigaStrettaViaggiaComeStava) {
  config::righeStrette().intestazione.fill(0xA5);
  config::righeStrette().cortesia.fill(0xB6);
  schermo.click(kAvvia);
  expectBoxes(bottega, {kTrasferita});
  const QByteArray riga = cassa.byte(QStringLiteral("intestazione.bin"));
  EXPECT_EQ(riga.mid(2, 24), QByteArray(24, '\xA5'));
  EXPECT_EQ(riga.mid(184, 24), QByteArray(24, '\xA5'));
  EXPECT_EQ(riga.back(), '\0');
  EXPECT_EQ(cassa.byte(QStringLiteral("cortesia.bin")).mid(2, 24), QByteArray(24, '\xB6'));
}

TEST_F(InvioACassaPiccola, GliAltriFileSonoInteri) {
  schermo.click(kAvvia);
  expectBoxes(bottega, {kTrasferita});
  for (const char* file :
       {"reparti.bin", "iva.bin", "val.bin", "operatori.bin", "logo.bin", "prog_param.bin"})
    EXPECT_TRUE(cassa.byte(QLatin1String(file)) == fileDi(disegno(1), QLatin1String(file))) << file;
}

TEST_F(InvioAClasseIgnota, LeRighePartonoIntere) {
  schermo.click(kAvvia);
  expectBoxes(bottega, {kTrasferita});
  for (const char* file : {"intestazione.bin", "cortesia.bin"})
    EXPECT_TRUE(cassa.byte(QLatin1String(file)) == fileDi(disegno(1), QLatin1String(file))) << file;
}

// The archive beside the configuration.

TEST_F(InvioProgrammazione, SenzaLArchivioAccantoSiDiceENullaParte) {
  ASSERT_TRUE(QFile::remove(compagno));
  schermo.click(kAvvia);
  const std::vector<Box> visti = bottega.takeBoxes();
  ASSERT_EQ(visti.size(), 1U) << testing::PrintToString(visti);
  EXPECT_TRUE(visti[0].text.startsWith(QStringLiteral("Error 3024 (")));
  EXPECT_TRUE(visti[0].text.endsWith(
      QStringLiteral(") in procedure Cmd_Avvia_Click of Modulo Form_TrasferimentoProgrammazione")));
  EXPECT_EQ(chiamate(), QStringList());
  EXPECT_TRUE(schermo.enabled(kEsci));
  EXPECT_FALSE(schermo.enabled(kAvvia));
  EXPECT_TRUE(immagineInMemoria() == disegno(1));
}

TEST_F(InvioProgrammazione, ConLArchivioAccantoBloccatoNullaParte) {
  {
    const OtherProgram altro(compagno, {QStringLiteral("BEGIN EXCLUSIVE")});
    schermo.click(kAvvia);
  }
  EXPECT_EQ(chiamate(), QStringList());
  const std::vector<Box> visti = bottega.takeBoxes();
  ASSERT_FALSE(visti.empty());
  EXPECT_TRUE(visti[0].text.contains(QStringLiteral("3260"))) << testing::PrintToString(visti);
  EXPECT_TRUE(immagineInMemoria() == disegno(1));
  EXPECT_TRUE(schermo.enabled(kEsci));
}

TEST_F(InvioProgrammazione, TreRigheNellArchivioCambianoTrePluEGliAltriSonoQuelliDelFile) {
  nelCompagno({QStringLiteral("Delete  from TAB_ARTICOLI where auto_id > 3")});
  schermo.click(kAvvia);
  expectBoxes(bottega, {kTrasferita});
  EXPECT_TRUE(cassa.byte(QStringLiteral("plu.bin")) ==
              expectedImage(std::vector<TestArticle>(3), recordIn(disegno(1), QStringLiteral("plu.bin"))));
}

TEST_F(InvioProgrammazione, SeimilaRigheNonStannoNellaCassaENullaParte) {
  QStringList righe;
  for (int slot = 5001; slot <= 6000; ++slot)
    righe << QStringLiteral(
                 "INSERT INTO TAB_ARTICOLI (auto_id,Descrizione,Codice_EAN,Prezzo,Reparto) Values "
                 "(%1,'TROPPO','',1,1);")
                 .arg(slot);
  nelCompagno(righe);
  schermo.click(kAvvia);
  expectBoxes(bottega, {kCondizione, kFallita});
  EXPECT_EQ(chiamate(), QStringList());
  EXPECT_EQ(righeNelCompagno(QStringLiteral("SELECT * from TAB_ARTICOLI")), 6000);
}

TEST_F(InvioProgrammazione, UnArchivioDAltroGenereTerminaIlProgramma) {
  ASSERT_TRUE(QFile::remove(compagno));
  bottega.openWith({QStringLiteral("CREATE TABLE altro (a INTEGER)")}, QStringLiteral("negozio_art.mdb"));
  articles::ChiudiDatabase();
  schermo.click(kAvvia);
  EXPECT_TRUE(bottega.user.terminated());
  expectBoxes(bottega, {critico("ERRORE GRAVE !!! IL DATABASE E' CORROTTO OPPURE NON CORRETTO. PROCEDURA "
                                "ABORTITA !!!")});
  EXPECT_EQ(chiamate(), QStringList());
}
