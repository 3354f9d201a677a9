#include <QDir>
#include <QFile>
#include <QProgressBar>
#include <algorithm>

#include "articles/article_database.h"
#include "config/configuration_transfer.h"
#include "config_transfer/transfer_scene.h"
#include "controls/outcome_bar.h"
#include "ecrlink/transfer_lock.h"
#include "sostegno/troubles.h"

namespace {

const Box kRicevuta = informa("PROGRAMMAZIONE DELLA CASSA CORRETTAMENTE RICEVUTA");
const Box kErrore = critico("Errore durante la programmazione. ");

ecrsim::Options classe(char lettera) {
  ecrsim::Options opzioni;
  opzioni.bitmap.assign(1, lettera);
  return opzioni;
}

/// Till programmed, screen ready. `disegno(1)` is open, `disegno(2)` and the test's articles are in the till.
class RicezioneProgrammazione : public BancoTrasferimento {
 protected:
  explicit RicezioneProgrammazione(const ecrsim::Options& opzioni = {}) : BancoTrasferimento(opzioni) {
    programmaCassa();
  }
  GuidedScreen schermo = pronto(kRicevi);
};
class RicezioneDaCassaPiccola : public RicezioneProgrammazione {
 protected:
  RicezioneDaCassaPiccola() : RicezioneProgrammazione(classe('S')) {
    QByteArray intestazione;
    for (int i = 0; i < 209; ++i) intestazione += static_cast<char>(100 + i % 97);
    QByteArray cortesia;
    for (int i = 0; i < 55; ++i) cortesia += static_cast<char>(50 + i);
    cassa.put(QStringLiteral("intestazione.bin"), intestazione);
    cassa.put(QStringLiteral("cortesia.bin"), cortesia);
  }
};
class RicezioneDaClasseIgnota : public RicezioneProgrammazione {
 protected:
  RicezioneDaClasseIgnota() : RicezioneProgrammazione(classe('X')) {}
};

/// What memory holds after the till's nine files.
QByteArray programmaDellaCassa() {
  QByteArray immagine = disegno(2);
  immagine.replace(3742, 240000, articoliDellaCassa());
  return immagine;
}

}  // namespace

TEST_F(RicezioneProgrammazione, INoveFileSiChiedonoNelLoroOrdine) {
  schermo.click(kAvvia);
  expectBoxes(bottega, {kRicevuta});
  EXPECT_EQ(chiamate(), scambi(7, ordineRicezione()));
}

TEST_F(RicezioneProgrammazione, TuttoEInMemoriaENelFileConTestataENegozioDiPrima) {
  const QByteArray prima = fileConfigurazione();
  schermo.click(kAvvia);
  expectBoxes(bottega, {kRicevuta});
  EXPECT_TRUE(immagineInMemoria() == programmaDellaCassa());
  const QByteArray file = fileConfigurazione();
  ASSERT_EQ(file.size(), 245114);
  EXPECT_TRUE(file.left(146) == prima.left(146));
  EXPECT_TRUE(file.mid(146) == programmaDellaCassa());
}

TEST_F(RicezioneProgrammazione, GliArticoliSonoNellArchivioAccanto) {
  schermo.click(kAvvia);
  expectBoxes(bottega, {kRicevuta});
  const TestArticle articolo = fullArchive().at(41);
  const QString riga = QStringLiteral(" from TAB_ARTICOLI where auto_id = 42");
  EXPECT_EQ(valoreNelCompagno(QStringLiteral("SELECT Codice_EAN") + riga), articolo.ean);
  EXPECT_EQ(valoreNelCompagno(QStringLiteral("SELECT Prezzo") + riga), QString::number(articolo.price));
  EXPECT_EQ(valoreNelCompagno(QStringLiteral("SELECT Reparto") + riga), QString::number(articolo.department));
  EXPECT_EQ(righeNelCompagno(QStringLiteral("SELECT * from TAB_ARTICOLI")), 5000);
  EXPECT_EQ(bottega.workspace.level(), 0);
}

TEST_F(RicezioneProgrammazione, FileEArchivioDiPrimaRestanoAccanto) {
  nelCompagno({QStringLiteral("UPDATE TAB_ARTICOLI SET Descrizione ='DI PRIMA' WHERE auto_id =1")});
  const QByteArray prima = fileConfigurazione();
  schermo.click(kAvvia);
  expectBoxes(bottega, {kRicevuta});
  EXPECT_TRUE(bottega.folder.read(QStringLiteral("negozio.dat.precedente")) == prima);
  articles::ApriDatabase(compagno + QStringLiteral(".precedente"), bottega.contesto);
  EXPECT_EQ(bottega.value(QStringLiteral("SELECT Descrizione from TAB_ARTICOLI where auto_id = 1")),
            QStringLiteral("DI PRIMA"));
  articles::ChiudiDatabase();
}

TEST_F(RicezioneProgrammazione, LArchivioApertoPrimaERestituitoComEra) {
  bottega.openArchive();
  schermo.click(kAvvia);
  expectBoxes(bottega, {kRicevuta});
  ASSERT_TRUE(varGlobal().DB_Articoli.isOpen());
  EXPECT_TRUE(varGlobal().NomeDB_Articoli.endsWith(QStringLiteral("archivio.mdb")));
  EXPECT_EQ(bottega.rows(QStringLiteral("SELECT * from TAB_ARTICOLI where Prezzo > 0")), 0);
}

TEST_F(RicezioneProgrammazione, LaBarraFaUnPassoPerFile) {
  const auto& barra = schermo.control<QProgressBar>(kBarra);
  QList<int> valori;
  bottega.user.onPass = [&] { valori << barra.value(); };
  schermo.click(kAvvia);
  bottega.user.onPass = nullptr;
  expectBoxes(bottega, {kRicevuta});
  EXPECT_EQ(valori, (QList<int>{1, 2, 3, 4, 5, 6, 7, 8, 9}));
  EXPECT_EQ(barra.maximum(), 9);
}

TEST_F(RicezioneProgrammazione, AllaSecondaVoltaLaBarraRiparteDaZero) {
  schermo.click(kAvvia);
  expectBoxes(bottega, {kRicevuta});
  ASSERT_EQ(schermo.control<QProgressBar>(kBarra).value(), 9);
  cassa->faults({{.mode = 7, .file = "intestazione.bin"}});
  schermo.click(kAvvia);
  expectBoxes(bottega, {kComunicazione, fallitaRichiesta(QStringLiteral("intestazione.bin")), kErrore});
  EXPECT_EQ(schermo.control<QProgressBar>(kBarra).value(), 0);
}

TEST_F(RicezioneProgrammazione, AlPiedeCioCheEArrivatoECioCheECambiato) {
  schermo.click(kAvvia);
  expectBoxes(bottega, {kRicevuta});
  const QString detto = piede(schermo);
  // Of the test's articles each 434th has neither EAN nor description: 0, 434, … 4774.
  EXPECT_TRUE(
      detto.startsWith(QStringLiteral("Ricevuti 9 file, 244.968 byte, 4.988 articoli. Cambiati in "
                                      "negozio.dat: 8 righe di intestazione, ")))
      << detto.toStdString();
  EXPECT_EQ(schermo.control<OutcomeBar>("BarraEsito").kind(), OutcomeBar::Kind::Done);
}

TEST_F(RicezioneProgrammazione, LaStessaProgrammazioneDiNuovoNonCambiaIlFile) {
  schermo.click(kAvvia);
  schermo.click(kAvvia);
  expectBoxes(bottega, {kRicevuta, kRicevuta});
  EXPECT_TRUE(piede(schermo).endsWith(QStringLiteral("Il file negozio.dat era già uguale.")));
}

TEST_F(RicezioneProgrammazione, DopoSiPuoRipetere) {
  schermo.click(kAvvia);
  expectBoxes(bottega, {kRicevuta});
  EXPECT_TRUE(schermo.enabled(kAvvia));
  EXPECT_TRUE(schermo.enabled(kEsci));
  EXPECT_FALSE(schermo.enabled(kConnetti));
}

// Files of other lengths.

TEST_F(RicezioneProgrammazione, CioCheUnFileCortoNonRaggiungeRestaComEraInMemoria) {
  cassa.put(QStringLiteral("reparti.bin"), fileDi(disegno(2), QStringLiteral("reparti.bin")).left(100));
  schermo.click(kAvvia);
  expectBoxes(bottega, {kRicevuta});
  EXPECT_TRUE(immagineInMemoria().mid(382, 100) == disegno(2).mid(382, 100));
  EXPECT_TRUE(immagineInMemoria().mid(482, 3260) == disegno(1).mid(482, 3260));
  EXPECT_TRUE(piede(schermo).contains(
      QStringLiteral("Ricevuti 100 byte invece di 3.360 di reparti.bin: il resto è rimasto com'era.")))
      << piede(schermo).toStdString();
  EXPECT_EQ(schermo.control<OutcomeBar>("BarraEsito").kind(), OutcomeBar::Kind::Warning);
}

TEST_F(RicezioneProgrammazione, DiUnFileLungoSiLeggonoISoliRecord) {
  cassa.put(QStringLiteral("iva.bin"), fileDi(disegno(2), QStringLiteral("iva.bin")) + "di troppo");
  schermo.click(kAvvia);
  expectBoxes(bottega, {kRicevuta});
  EXPECT_TRUE(immagineInMemoria() == programmaDellaCassa());
  EXPECT_TRUE(piede(schermo).contains(
      QStringLiteral("Ricevuti 242 byte invece di 232 di iva.bin: quelli in più non sono stati letti.")));
}

TEST_F(RicezioneProgrammazione, UnFileSenzaIlByteInCodaEIntero) {
  cassa.put(QStringLiteral("val.bin"), recordIn(disegno(2), QStringLiteral("val.bin")));
  schermo.click(kAvvia);
  expectBoxes(bottega, {kRicevuta});
  EXPECT_FALSE(piede(schermo).contains(QStringLiteral("invece")));
}

TEST_F(RicezioneProgrammazione, UnFileDiIeriNellaCartellaNonPassaPerQuelloDellaCassa) {
  for (const QString& file : ordineRicezione()) bottega.folder.write(file, QByteArray(500, 'v'));
  schermo.click(kAvvia);
  expectBoxes(bottega, {kRicevuta});
  EXPECT_TRUE(immagineInMemoria() == programmaDellaCassa());
  for (const QString& file : ordineRicezione())
    EXPECT_FALSE(QFile::exists(bottega.folder.file(file + QStringLiteral(".precedente"))))
        << file.toStdString();
}

// The lines of a small till.

TEST_F(RicezioneDaCassaPiccola, DelleRigheCambianoSoloIByteCheLaCassaScambia) {
  schermo.click(kAvvia);
  expectBoxes(bottega, {kRicevuta});
  QByteArray attesa = programmaDellaCassa();
  attesa.replace(0, 382, disegno(1).left(382));
  for (qsizetype riga = 0; riga < 8; ++riga) {
    attesa[38 * riga] = static_cast<char>(100 + (26 * riga) % 97);
    attesa[38 * riga + 1] = static_cast<char>(100 + (26 * riga + 1) % 97);
  }
  for (qsizetype riga = 0; riga < 2; ++riga) {
    attesa[304 + 39 * riga] = static_cast<char>(50 + 27 * riga);
    attesa[304 + 39 * riga + 1] = static_cast<char>(50 + 27 * riga + 1);
    attesa[304 + 39 * riga + 38] = static_cast<char>(50 + 27 * riga + 26);
  }
  EXPECT_TRUE(immagineInMemoria() == attesa);
  EXPECT_TRUE(fileConfigurazione().mid(146) == attesa);
  EXPECT_TRUE(piede(schermo).startsWith(QStringLiteral("Ricevuti 9 file, 244.848 byte, ")));
}

TEST_F(RicezioneDaCassaPiccola, LeRigheCheUnFileCortoNonRaggiungeRestanoComErano) {
  cassa.put(QStringLiteral("intestazione.bin"), QByteArray(27, 'z'));
  schermo.click(kAvvia);
  expectBoxes(bottega, {kRicevuta});
  QByteArray attesa = disegno(1).left(304);
  attesa[0] = 'z';
  attesa[1] = 'z';
  attesa[38] = 'z';
  EXPECT_TRUE(immagineInMemoria().left(304) == attesa);
  EXPECT_TRUE(piede(schermo).contains(
      QStringLiteral("Ricevuti 27 byte invece di 208 di intestazione.bin: il resto è rimasto com'era.")));
}

TEST_F(RicezioneDaCassaPiccola, CioCheERestatoNellaRigaStrettaTornaAllaCassaColProssimoInvio) {
  schermo.click(kAvvia);
  expectBoxes(bottega, {kRicevuta});
  schermo.click(kInvia);
  schermo.click(kAvvia);
  expectBoxes(bottega, {informa("PROGRAMMAZIONE DELLA CASSA CORRETTAMENTE TRASFERITA")});
  const QByteArray riga = cassa.byte(QStringLiteral("intestazione.bin"));
  EXPECT_EQ(riga[2], static_cast<char>(102));
  EXPECT_EQ(riga[207], static_cast<char>(100 + 207 % 97));
}

TEST_F(RicezioneDaClasseIgnota, SiLeggeLaFormaStrettaAncheDiUnFileIntero) {
  schermo.click(kAvvia);
  expectBoxes(bottega, {kRicevuta});
  QByteArray attesa = disegno(1).left(304);
  const QByteArray arrivata = disegno(2);
  for (qsizetype riga = 0; riga < 8; ++riga) {
    attesa[38 * riga] = arrivata[26 * riga];
    attesa[38 * riga + 1] = arrivata[26 * riga + 1];
  }
  EXPECT_TRUE(immagineInMemoria().left(304) == attesa);
  EXPECT_TRUE(piede(schermo).contains(QStringLiteral(
      "Ricevuti 305 byte invece di 208 di intestazione.bin: quelli in più non sono stati letti.")));
}

// What does not come, and what cannot be kept.

TEST_F(RicezioneProgrammazione, UnGuastoALogoLasciaInMemoriaISeiFileArrivatiENullaNelFile) {
  const QByteArray prima = fileConfigurazione();
  cassa->faults({{.mode = 7, .file = "logo.bin"}});
  schermo.click(kAvvia);
  expectBoxes(bottega, {kComunicazione, fallitaRichiesta(QStringLiteral("logo.bin")), kErrore});
  QByteArray attesa = programmaDellaCassa();
  // Graphics, rates and departments are asked for last.
  attesa.replace(244848, 120, disegno(1).mid(244848, 120));
  attesa.replace(243742, 232, disegno(1).mid(243742, 232));
  attesa.replace(382, 3360, disegno(1).mid(382, 3360));
  EXPECT_TRUE(immagineInMemoria() == attesa);
  EXPECT_TRUE(fileConfigurazione() == prima);
  EXPECT_EQ(righeNelCompagno(QStringLiteral("SELECT * from TAB_ARTICOLI where Prezzo > 0")), 0);
  EXPECT_EQ(piede(schermo),
            QStringLiteral("Ricevuti 6 file di 9. Nulla è stato salvato: i file ricevuti sono "
                           "in memoria."));
  EXPECT_TRUE(schermo.enabled(kEsci));
  EXPECT_FALSE(schermo.enabled(kAvvia));
  EXPECT_EQ(schermo.control<QProgressBar>(kBarra).value(), 6);
}

TEST_F(RicezioneProgrammazione, SeLaConfigurazioneNonSiSalvaNonSiDiceRicevuta) {
  ASSERT_TRUE(QFile::remove(configurazione));
  ASSERT_TRUE(QDir().mkdir(configurazione));
  schermo.click(kAvvia);
  const std::vector<Box> visti = bottega.takeBoxes();
  ASSERT_EQ(visti.size(), 1U) << testing::PrintToString(visti);
  EXPECT_TRUE(
      visti[0].text.endsWith(QStringLiteral("in procedure SalvaConfigurazione of Modulo CommonForKora")));
  EXPECT_TRUE(immagineInMemoria() == programmaDellaCassa());
  EXPECT_EQ(righeNelCompagno(QStringLiteral("SELECT * from TAB_ARTICOLI where Prezzo > 0")), 0);
  EXPECT_TRUE(
      piede(schermo).endsWith(QStringLiteral("Nulla è stato salvato: negozio.dat è rimasto com'era.")));
  EXPECT_EQ(schermo.control<OutcomeBar>("BarraEsito").kind(), OutcomeBar::Kind::Failed);
  EXPECT_TRUE(schermo.enabled(kEsci));
  EXPECT_FALSE(schermo.enabled(kAvvia));
}

TEST_F(RicezioneProgrammazione, UnApostrofoNegliArticoliLasciaLArchivioComEraEIlFileSalvato) {
  QByteArray plu = articoliDellaCassa();
  plu.replace(qsizetype{48} * 9, 7, QByteArray("L'OLIO\0", 7));
  cassa.put(QStringLiteral("plu.bin"), plu);
  schermo.click(kAvvia);
  expectBoxes(bottega, {critico("Errore nella modifica articoli .\nErrore n° 3075\n*")});
  EXPECT_EQ(righeNelCompagno(QStringLiteral("SELECT * from TAB_ARTICOLI where Prezzo > 0")), 0);
  EXPECT_TRUE(fileConfigurazione().mid(146 + 3742, 240000) == plu);
  EXPECT_TRUE(piede(schermo).endsWith(
      QStringLiteral("negozio.dat è salvato; gli articoli di negozio_art.mdb sono rimasti com'erano.")));
  EXPECT_EQ(bottega.workspace.level(), 0);
  EXPECT_FALSE(schermo.enabled(kAvvia));
}

TEST_F(RicezioneProgrammazione, SenzaLArchivioAccantoIlFileESalvatoESiDice) {
  ASSERT_TRUE(QFile::remove(compagno));
  schermo.click(kAvvia);
  const std::vector<Box> visti = bottega.takeBoxes();
  ASSERT_EQ(visti.size(), 1U) << testing::PrintToString(visti);
  EXPECT_TRUE(visti[0].text.startsWith(QStringLiteral("Error 3024 (")));
  EXPECT_TRUE(visti[0].text.endsWith(QStringLiteral(") in procedure SalvaPLU of Modulo Common_PRG")));
  EXPECT_TRUE(fileConfigurazione().mid(146) == programmaDellaCassa());
  EXPECT_TRUE(piede(schermo).endsWith(
      QStringLiteral("negozio.dat è salvato; gli articoli di negozio_art.mdb sono rimasti com'erano.")));
  EXPECT_FALSE(QFile::exists(compagno));
}

TEST_F(RicezioneProgrammazione, UnArchivioAccantoBloccatoRestaComEra) {
  {
    const OtherProgram altro(compagno, {QStringLiteral("BEGIN EXCLUSIVE")});
    schermo.click(kAvvia);
  }
  const std::vector<Box> visti = bottega.takeBoxes();
  ASSERT_EQ(visti.size(), 1U) << testing::PrintToString(visti);
  EXPECT_TRUE(visti[0].text.contains(QStringLiteral("3260")));
  EXPECT_EQ(righeNelCompagno(QStringLiteral("SELECT * from TAB_ARTICOLI where Prezzo > 0")), 0);
  EXPECT_TRUE(fileConfigurazione().mid(146) == programmaDellaCassa());
  EXPECT_EQ(bottega.workspace.level(), 0);
}

TEST_F(RicezioneProgrammazione, UnArchivioDiTreRigheNePrendeTre) {
  nelCompagno({QStringLiteral("Delete  from TAB_ARTICOLI where auto_id > 3")});
  schermo.click(kAvvia);
  expectBoxes(bottega, {kRicevuta});
  EXPECT_EQ(righeNelCompagno(QStringLiteral("SELECT * from TAB_ARTICOLI")), 3);
  EXPECT_EQ(valoreNelCompagno(QStringLiteral("SELECT Prezzo from TAB_ARTICOLI where auto_id = 3")),
            QStringLiteral("74"));
}

TEST_F(RicezioneProgrammazione, DiSeimilaRigheLePrimeCinquemila) {
  QStringList righe;
  for (int slot = 5001; slot <= 6000; ++slot)
    righe << QStringLiteral(
                 "INSERT INTO TAB_ARTICOLI (auto_id,Descrizione,Prezzo,Reparto) Values (%1,'OLTRE',7,1);")
                 .arg(slot);
  nelCompagno(righe);
  schermo.click(kAvvia);
  expectBoxes(bottega, {kRicevuta});
  EXPECT_EQ(righeNelCompagno(QStringLiteral("SELECT * from TAB_ARTICOLI where Descrizione ='OLTRE'")), 1000);
  EXPECT_EQ(valoreNelCompagno(QStringLiteral("SELECT Prezzo from TAB_ARTICOLI where auto_id = 5000")),
            QStringLiteral("184963"));
}

TEST_F(RicezioneProgrammazione, ConUnAltroProgrammaNellaCartellaNullaSiPerde) {
  {
    const ecrlink::ScambioEsclusivo altro;
    schermo.click(kAvvia);
  }
  expectBoxes(bottega,
              {plainBox(QStringLiteral("Error 70 (Un altro programma sta scambiando dati con una cassa "
                                       "nella cartella *")),
               fallitaRichiesta(QStringLiteral("intestazione.bin")), kErrore});
  EXPECT_EQ(chiamate(), QStringList());
  EXPECT_TRUE(immagineInMemoria() == disegno(1));
}

TEST_F(RicezioneProgrammazione, LaCartellaRestaSuaFraUnFileELAltroEDopoLUltimoEDiTutti) {
  const QStringList esiti = contesaDurante(bottega, schermo);
  expectBoxes(bottega, {kRicevuta});
  EXPECT_EQ(esiti, QStringList(9, QStringLiteral("presa")) + QStringList{QStringLiteral("libera")});
  EXPECT_EQ(chiamate(), scambi(7, ordineRicezione()));
}
