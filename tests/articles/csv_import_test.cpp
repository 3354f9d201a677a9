#include "articles/csv_import.h"

#include <gmock/gmock.h>
#include <sqlite3.h>

#include <QFile>
#include <QGuiApplication>

#include "articles/import_fixture.h"
#include "articles/import_line.h"
#include "articles/sync_count.h"
#include "core/command.h"
#include "platform/ui/busy_guard.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Tipo = articles::EsitoImport::Tipo;

/// The characters of the code page between 0x80 and 0x9F; the others are those of their number.
QString daCodePage(const QByteArray& byte) {
  static const QString kAlti = QStringLiteral("€\u0081‚ƒ„…†‡ˆ‰Š‹Œ\u008DŽ\u008F\u0090‘’“”•–—˜™š›œ\u009DžŸ");
  QString testo;
  for (const char c : byte) {
    const auto codice = static_cast<unsigned char>(c);
    testo += codice >= 0x80 && codice < 0xA0 ? kAlti[codice - 0x80] : QChar(char16_t{codice});
  }
  return testo;
}

/// One line of the exchange file as the archive has to hold it: slot, EAN, code, description, hundredths,
/// department.
QStringList attesa(const QByteArray& riga) {
  QList<QByteArray> campi = riga.split(';');
  EXPECT_EQ(campi.size(), 9) << riga.toStdString();
  const QList<QByteArray> prezzo = campi[4].split(',');
  EXPECT_EQ(prezzo.size(), 2) << riga.toStdString();
  EXPECT_EQ(prezzo[1].size(), 2) << riga.toStdString();
  return {QString::fromLatin1(campi[0]),
          QString::fromLatin1(campi[1]),
          QString::fromLatin1(campi[2]),
          daCodePage(campi[3]),
          QString::number((prezzo[0] + prezzo[1]).toInt()),
          QString::fromLatin1(campi[5])};
}

QStringList letta(const QStringList& riga) {
  return {riga[0], riga[2], riga[3], riga[4], riga[5], riga[6]};
}

TEST_F(ImportArticoli, UnaRigaSanaScriveICinqueCampiEPulisceIlMarchio) {
  bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Filler ='ERR' WHERE auto_id =3"));
  const auto esito = importa(rigaCsv(3, "8001", "A1", "Caff\xE8", "2,38", "4"));
  EXPECT_EQ(esito.tipo, Tipo::Importato);
  EXPECT_EQ(esito.righe, 1);
  EXPECT_THAT(fotografia()[2],
              ElementsAre(u"3", u"3", u"8001", u"A1", u"Caffè", u"238", u"4", u" ", testing::_, testing::_));
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(riuscita()));
  EXPECT_THAT(annotazioni(), IsEmpty());
}

TEST_F(ImportArticoli, LaFinestraFiltraIFileCsv) {
  importa(listaSana(1));
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(riuscita()));
  ASSERT_EQ(bottega.user.requests().size(), 1U);
  EXPECT_EQ(bottega.user.requests()[0].filter, QStringLiteral("csv (*.csv)|*.csv"));
}

TEST_F(ImportArticoli, LaDescrizioneRestaNelleSueMaiuscole) {
  importa(rigaCsv(1, "8001", "a1", "Olio Extra", "1,00", "1"));
  EXPECT_EQ(colonna(QStringLiteral("Descrizione"), 1), QStringLiteral("Olio Extra"));
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(riuscita()));
}

TEST_F(ImportArticoli, LaListaDiEsempioArrivaRigaPerRiga) {
  const QString lista = QStringLiteral(GESTIONALE_APP "/articoli.csv");
  const QString copia = bottega.folder.file(QStringLiteral("lista.csv"));
  ASSERT_TRUE(QFile::copy(lista, copia));
  EXPECT_EQ(importaFile(copia).righe, 5000);
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(riuscita()));
  QFile file(copia);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const QList<QByteArray> righe = file.readAll().replace("\r\n", "\n").chopped(1).split('\n');
  const Fotografia foto = fotografia();
  ASSERT_EQ(righe.size(), 5000);
  ASSERT_EQ(foto.size(), 5000U);
  for (std::size_t i = 0; i < foto.size(); ++i)
    ASSERT_EQ(letta(foto[i]), attesa(righe[static_cast<qsizetype>(i)])) << "line " << i + 1;
  EXPECT_THAT(annotazioni(), IsEmpty());
}

TEST_F(ImportArticoli, GliApostrofiFalliscono_ConIlMessaggioDelloStatementENienteCambia) {
  const Fotografia prima = fotografia();
  const QString copia = bottega.folder.file(QStringLiteral("lista.csv"));
  ASSERT_TRUE(
      QFile::copy(QStringLiteral(GESTIONALE_SOURCES "/tests/sample_data/articoli-apostrofi.csv"), copia));
  QString descrizione;
  try {
    bottega.execute(
        QStringLiteral("UPDATE TAB_ARTICOLI SET  Codice_ean ='8002591902284', Codice_Articolo ='190228',"
                       "Descrizione ='Huile d'olive Barbera',Prezzo =256,Reparto =8,Filler =' ' WHERE "
                       "auto_id =1"));
    FAIL() << "the statement ran";
  } catch (const Errore& errore) {
    EXPECT_EQ(errore.numero, errors::kSyntax);
    descrizione = errore.descrizione;
  }
  EXPECT_EQ(importaFile(copia).tipo, Tipo::Annullato);
  EXPECT_THAT(
      bottega.user.boxes(),
      ElementsAre(Box{QStringLiteral("Errore nell'aggiornamento articoli Errore n° 3075\r\n") + descrizione,
                      Icon::Critical,
                      {},
                      Buttons::Ok},
                  riuscita()));
  EXPECT_EQ(fotografia(), prima);
  EXPECT_EQ(fotografiaDaFuori(), prima);
  EXPECT_EQ(bottega.workspace.level(), 0);
}

TEST_F(ImportArticoli, UnApostrofoNellEanDiceAncheLErroreDellaRicerca) {
  importa(rigaCsv(1, "80'1", "A", "B", "1,00", "1"));
  const auto riquadri = bottega.user.takeBoxes();
  ASSERT_EQ(riquadri.size(), 3U);
  EXPECT_TRUE(riquadri[0].text.startsWith(QStringLiteral("Errore GetCodiceEAN 3075 - ")));
  EXPECT_TRUE(
      riquadri[1].text.startsWith(QStringLiteral("Errore nell'aggiornamento articoli Errore n° 3075\r\n")));
  EXPECT_EQ(riquadri[2], riuscita());
}

TEST_F(ImportArticoli, UnFileEsportatoRilettoAggiornaOgniRigaLasciaIPermessiEPulisceIlMarchio) {
  const QByteArray lista = listaSana(5000);
  importa(lista);
  bottega.user.takeBoxes();
  bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET VarPrezzo =true WHERE auto_id >2500"));
  bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET PrezzoZero =true WHERE auto_id <1000"));
  const Fotografia prima = fotografia();
  bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Filler ='ERR'"));
  importa(lista);
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(riuscita()));
  EXPECT_EQ(fotografia(), prima);
}

TEST_F(ImportArticoli, SetteSeparatoriFermanoLImportAQuellaRiga) {
  const auto esito = importa(listaSana(2) + "3;8003;A3;TRE;1,00;1;N;N\r\n" +
                             rigaCsv(4, "8004", "A4", "QUATTRO", "1,00", "1"));
  EXPECT_EQ(esito.tipo, Tipo::Fallito);
  EXPECT_EQ(esito.righe, 2);
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(fallita()));
  EXPECT_EQ(colonna(QStringLiteral("Descrizione"), 2), QStringLiteral("ARTICOLO 2"));
  EXPECT_EQ(colonna(QStringLiteral("Descrizione"), 4), QString());
  EXPECT_THAT(annotazioni(), IsEmpty());
}

TEST_F(ImportArticoli, DopoUnaRigaSenzaFormaLeRighePrecedentiSonoConfermateAlRiquadro) {
  const Fotografia prima = fotografia();
  bottega.user.onBox = [&](const Box&) {
    EXPECT_EQ(bottega.workspace.level(), 0);
    EXPECT_NE(fotografiaDaFuori(), prima);
    EXPECT_EQ(fotografiaDaFuori(), fotografia());
  };
  importa(listaSana(2) + "rotta\r\n");
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(fallita()));
  EXPECT_EQ(livelloAllaFine, 0);
  EXPECT_EQ(bottega.workspace.level(), 0);
  EXPECT_EQ(colonna(QStringLiteral("Descrizione"), 2), QStringLiteral("ARTICOLO 2"));
  EXPECT_EQ(fotografiaDaFuori(), fotografia());
}

TEST_F(ImportArticoli, LaChiusuraDellArchivioTieneQuantoLImportFermatoHaScritto) {
  importa(listaSana(2) + "rotta\r\n");
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(fallita()));
  const Fotografia vista = fotografia();
  varGlobal().DB_Articoli.Close();
  EXPECT_EQ(fotografiaDaFuori(), vista);
}

TEST_F(ImportArticoli, UnaPosizioneVuotaFermaLImport) {
  importa(";8001;A;B;1,00;1;N;N; \r\n");
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(fallita()));
}

TEST_F(ImportArticoli, UnaPosizioneSottoZeroFermaLImport) {
  importa(rigaCsv(-1, "8001", "A", "B", "1,00", "1"));
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(fallita()));
}

TEST_F(ImportArticoli, IlReportEChiusoPrimaDelRiquadroDiUnImportFermato) {
  bottega.user.onBox = [this](const Box&) { EXPECT_THAT(annotazioni(), IsEmpty()); };
  importa("rotta\r\n");
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(fallita()));
}

TEST_F(ImportArticoli, IlReportEChiusoDopoIlRiquadroDiUnImportFinito) {
  bottega.user.onBox = [this](const Box&) { EXPECT_FALSE(report().contains("FINE REPORT")); };
  importa(listaSana(1));
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(riuscita()));
  EXPECT_TRUE(report().contains("FINE REPORT"));
}

TEST_F(ImportArticoli, UnPrezzoDi100000EScrittoMarcatoEAnnotato) {
  const auto esito = importa(rigaCsv(1, "8001", "A1", "UNO", "100000", "4"));
  EXPECT_EQ(esito.errori, 1);
  EXPECT_EQ(colonna(QStringLiteral("Prezzo"), 1), QStringLiteral("10000000"));
  EXPECT_EQ(colonna(QStringLiteral("Filler"), 1), QStringLiteral("ERR"));
  EXPECT_THAT(annotazioni(), ElementsAre(u"8001|A1 UNO 100000 4 [CODICE ERRORE=ERR: PREZZO *100000*]"));
  EXPECT_TRUE(report().contains("TOTALI ERRORI RISCONTRATI: [1]"));
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(conErrori(1)));
}

TEST_F(ImportArticoli, IlPrezzoMassimoPassa) {
  importa(rigaCsv(1, "8001", "A1", "UNO", "99999,99", "80"));
  EXPECT_EQ(colonna(QStringLiteral("Prezzo"), 1), QStringLiteral("9999999"));
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(riuscita()));
}

TEST_F(ImportArticoli, UnPrezzoSottoZeroEMarcato) {
  importa(rigaCsv(1, "8001", "A1", "UNO", "-0,01", "4"));
  EXPECT_EQ(colonna(QStringLiteral("Prezzo"), 1), QStringLiteral("-1"));
  EXPECT_EQ(colonna(QStringLiteral("Filler"), 1), QStringLiteral("ERR"));
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(conErrori(1)));
}

TEST_F(ImportArticoli, UnRepartoOltre80EScrittoMarcatoEAnnotato) {
  importa(rigaCsv(1, "8001", "A1", "UNO", "1,00", "81"));
  EXPECT_EQ(colonna(QStringLiteral("Reparto"), 1), QStringLiteral("81"));
  EXPECT_EQ(colonna(QStringLiteral("Filler"), 1), QStringLiteral("ERR"));
  EXPECT_THAT(annotazioni(), ElementsAre(u"8001|A1 UNO 1.00 81 [CODICE ERRORE=ERR: REPARTO *81*]"));
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(conErrori(1)));
}

TEST_F(ImportArticoli, UnReparto90ConUnPrezzoGuastoAnnotaSoloIlPrezzo) {
  const auto esito = importa(rigaCsv(1, "8001", "A1", "UNO", "100000", "90"));
  EXPECT_EQ(esito.errori, 1);
  EXPECT_THAT(annotazioni(), ElementsAre(u"8001|A1 UNO 100000 90 [CODICE ERRORE=ERR: PREZZO *100000*]"));
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(conErrori(1)));
}

// The reading of the price writes over the comma of the field.
TEST_F(ImportArticoli, IlReportHaLaVirgolaPrimaCheIlPrezzoSiLeggaEIlPuntoDopo) {
  importa(rigaCsv(1, "8001", "A1", "UNO", "1,00", "1") + rigaCsv(2, "8001", "", "DUE", "100000,50", "4"));
  EXPECT_THAT(annotazioni(),
              ElementsAre(u"8001|0 DUE 100000,50 4 [CODICE ERRORE=5 *CODICE ARTICOLO ASSENTE*]",
                          u"8001|0 DUE 100000,50 4 [CODICE ERRORE=WARNING: EAN DUPLICATO *8001*]",
                          u"8001|0 DUE 100000.50 4 [CODICE ERRORE=ERR: PREZZO *100000.50*]"));
  EXPECT_EQ(colonna(QStringLiteral("Prezzo"), 2), QStringLiteral("10000050"));
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(conErrori(1)));
}

TEST_F(ImportArticoli, LaBandieraDelPrezzoValePerUnaRigaSola) {
  importa(rigaCsv(1, "8001", "A1", "UNO", "100000", "4") + rigaCsv(2, "8002", "A2", "DUE", "1,00", "90"));
  EXPECT_THAT(annotazioni(), ElementsAre(u"8001|A1 UNO 100000 4 [CODICE ERRORE=ERR: PREZZO *100000*]",
                                         u"8002|A2 DUE 1.00 90 [CODICE ERRORE=ERR: REPARTO *90*]"));
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(conErrori(2)));
  EXPECT_EQ(colonna(QStringLiteral("Filler"), 2), QStringLiteral("ERR"));
}

TEST_F(ImportArticoli, DopoIlPrimoErroreOgniRigaEMarcata) {
  importa(rigaCsv(1, "8001", "A1", "UNO", "1,00", "1") + rigaCsv(2, "8002", "A2", "DUE", "100000", "1") +
          rigaCsv(3, "8003", "A3", "TRE", "1,00", "1"));
  EXPECT_EQ(colonna(QStringLiteral("Filler"), 1), QStringLiteral(" "));
  EXPECT_EQ(colonna(QStringLiteral("Filler"), 2), QStringLiteral("ERR"));
  EXPECT_EQ(colonna(QStringLiteral("Filler"), 3), QStringLiteral("ERR"));
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(conErrori(1)));
}

TEST_F(ImportArticoli, TreRigheGuasteAnnullanoTutto) {
  const Fotografia prima = fotografia();
  QByteArray csv = listaSana(10);
  for (int i = 11; i <= 13; ++i) csv += rigaCsv(i, "9" + QByteArray::number(i), "A", "GUASTA", "100000", "1");
  const auto esito = importa(csv);
  EXPECT_EQ(esito.tipo, Tipo::Annullato);
  EXPECT_EQ(esito.errori, 3);
  const auto riquadri = bottega.user.takeBoxes();
  ASSERT_EQ(riquadri.size(), 2U);
  EXPECT_TRUE(
      riquadri[0].text.startsWith(QStringLiteral("Errore nell'aggiornamento articoli Errore n° 3075\r\n")));
  EXPECT_EQ(riquadri[0].icon, Icon::Critical);
  EXPECT_EQ(riquadri[1], conErrori(3));
  EXPECT_EQ(annotazioni().size(), 3);
  EXPECT_EQ(fotografia(), prima);
  EXPECT_EQ(fotografiaDaFuori(), prima);
}

TEST_F(ImportArticoli, DueRepartiGuastiPesanoQuantoTrePrezzi) {
  const Fotografia prima = fotografia();
  const auto esito =
      importa(rigaCsv(1, "8001", "A1", "UNO", "1,00", "90") + rigaCsv(2, "8002", "A2", "DUE", "1,00", "90"));
  EXPECT_EQ(esito.tipo, Tipo::Annullato);
  EXPECT_EQ(bottega.user.takeBoxes().size(), 2U);
  EXPECT_EQ(fotografia(), prima);
}

TEST_F(ImportArticoli, UnPrezzoEUnRepartoGuastiPassanoMarcati) {
  importa(rigaCsv(1, "8001", "A1", "UNO", "100000", "1") + rigaCsv(2, "8002", "A2", "DUE", "1,00", "90") +
          rigaCsv(3, "8003", "A3", "TRE", "1,00", "1"));
  EXPECT_EQ(colonna(QStringLiteral("Filler"), 3), QStringLiteral("ERR"));
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(conErrori(2)));
}

TEST_F(ImportArticoli, ICampiMancantiSonoAnnotatiEScrittiConIPredefinitiSenzaErrore) {
  importa(
      "1;;A1;UNO;1,00;1;N;N; \r\n2;8002;;DUE;1,00;1;N;N; \r\n3;8003;A3;;1,00;1;N;N; \r\n"
      "4;8004;A4;QUATTRO;1,00;;N;N; \r\n5;8005;A5;CINQUE;;1;N;N; \r\n");
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(riuscita()));
  EXPECT_THAT(annotazioni(),
              ElementsAre(u"|A1 UNO 1,00 1 [CODICE ERRORE=4 *CODICE EAN ASSENTE*]",
                          u"8002|0 DUE 1,00 1 [CODICE ERRORE=5 *CODICE ARTICOLO ASSENTE*]",
                          u"8003|A3  1,00 1 [CODICE ERRORE=7 *DESCRIZIONE ASSENTE*]",
                          u"8004|A4 QUATTRO 1,00 0 [CODICE ERRORE=6 *NUMERO REPARTO ASSENTE*]"));
  EXPECT_EQ(colonna(QStringLiteral("Codice_EAN"), 1), QString());
  EXPECT_EQ(colonna(QStringLiteral("Codice_Articolo"), 2), QStringLiteral("0"));
  EXPECT_EQ(colonna(QStringLiteral("Descrizione"), 3), QString());
  EXPECT_EQ(colonna(QStringLiteral("Reparto"), 4), QStringLiteral("0"));
  EXPECT_EQ(colonna(QStringLiteral("Prezzo"), 5), QStringLiteral("0"));
  EXPECT_EQ(bottega.rows(QStringLiteral("SELECT auto_id from TAB_ARTICOLI where Filler ='ERR'")), 0);
}

TEST_F(ImportArticoli, UnEanDuplicatoEAnnotatoENonFermaLaRiga) {
  importa(rigaCsv(1, "8001", "A1", "UNO", "1,00", "1") + rigaCsv(2, "8001", "A2", "DUE", "1,00", "1"));
  EXPECT_THAT(annotazioni(),
              ElementsAre(u"8001|A2 DUE 1,00 1 [CODICE ERRORE=WARNING: EAN DUPLICATO *8001*]"));
  EXPECT_EQ(colonna(QStringLiteral("Codice_EAN"), 2), QStringLiteral("8001"));
  EXPECT_EQ(colonna(QStringLiteral("Filler"), 2), QStringLiteral(" "));
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(riuscita()));
}

TEST_F(ImportArticoli, UnEanVuotoNonEDuplicato) {
  importa("1;;A1;UNO;1,00;1;N;N; \r\n");
  EXPECT_THAT(annotazioni(), ElementsAre(u"|A1 UNO 1,00 1 [CODICE ERRORE=4 *CODICE EAN ASSENTE*]"));
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(riuscita()));
}

TEST_F(ImportArticoli, UnaPosizioneSenzaRigaNonAggiornaNulla) {
  const Fotografia prima = fotografia();
  EXPECT_EQ(
      importa(rigaCsv(0, "8001", "A", "B", "1,00", "1") + rigaCsv(5001, "8002", "A", "B", "1,00", "1")).righe,
      2);
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(riuscita()));
  EXPECT_EQ(fotografia(), prima);
}

TEST_F(ImportArticoli, LaPosizione40000InterrompeInSilenzioConLaTransazioneAperta) {
  const auto esito = importa(listaSana(1) + rigaCsv(40000, "8002", "A", "B", "1,00", "1"));
  EXPECT_EQ(esito.tipo, Tipo::Interrotto);
  EXPECT_EQ(esito.righe, 1);
  EXPECT_NE(esito.dettaglio, QString());
  EXPECT_THAT(bottega.user.boxes(), IsEmpty());
  EXPECT_EQ(livelloAllaFine, 1);
  EXPECT_EQ(colonna(QStringLiteral("Descrizione"), 1), QStringLiteral("ARTICOLO 1"));
  EXPECT_THAT(annotazioni(), IsEmpty());
}

TEST_F(ImportArticoli, UnPrezzoSmisuratoInterrompeInSilenzio) {
  EXPECT_EQ(importa(rigaCsv(1, "8001", "A", "B", "99999999999", "1")).tipo, Tipo::Interrotto);
  EXPECT_THAT(bottega.user.boxes(), IsEmpty());
  EXPECT_EQ(colonna(QStringLiteral("Prezzo"), 1), QStringLiteral("0"));
}

TEST_F(ImportArticoli, UnRepartoCheNonEUnNumeroFallisceConIlMessaggioDelloStatement) {
  const Fotografia prima = fotografia();
  EXPECT_EQ(importa(rigaCsv(1, "8001", "A", "B", "1,00", "pane")).tipo, Tipo::Annullato);
  const auto riquadri = bottega.user.takeBoxes();
  ASSERT_EQ(riquadri.size(), 2U);
  EXPECT_TRUE(
      riquadri[0].text.startsWith(QStringLiteral("Errore nell'aggiornamento articoli Errore n° 3464\r\n")));
  EXPECT_EQ(fotografia(), prima);
}

TEST_F(ImportArticoli, UnRepartoConDecimaliAnnullaTutto) {
  const Fotografia prima = fotografia();
  EXPECT_EQ(importa(listaSana(1) + rigaCsv(2, "8001", "A", "B", "1,00", "5.5")).tipo, Tipo::Annullato);
  const auto riquadri = bottega.user.takeBoxes();
  ASSERT_EQ(riquadri.size(), 2U);
  EXPECT_TRUE(riquadri[0].text.startsWith(QStringLiteral("Errore nell'aggiornamento articoli Errore n° ")));
  EXPECT_EQ(riquadri[0].icon, Icon::Critical);
  EXPECT_EQ(fotografia(), prima);
}

TEST_F(ImportArticoli, UnEanOCodiceOltreTrediciCaratteriAnnullaTuttoConIlMessaggioDelloStatement) {
  const Fotografia prima = fotografia();
  for (const QByteArray& riga : {rigaCsv(2, "80000000000001", "A", "B", "1,00", "1"),
                                 rigaCsv(2, "8001", "ABCDEFGHIJKLMN", "B", "1,00", "1")}) {
    EXPECT_EQ(importa(listaSana(1) + riga).tipo, Tipo::Annullato);
    const auto riquadri = bottega.user.takeBoxes();
    ASSERT_EQ(riquadri.size(), 2U);
    EXPECT_TRUE(
        riquadri[0].text.startsWith(QStringLiteral("Errore nell'aggiornamento articoli Errore n° 3163\r\n")))
        << riquadri[0].text.toStdString();
    EXPECT_EQ(fotografia(), prima);
  }
}

TEST_F(ImportArticoli, LAnnullamentoDellaFinestraLasciaLaTransazioneApertaFinoAllaFineDelComando) {
  const Fotografia prima = fotografia();
  bottega.user.chooses(std::nullopt);
  {
    const Comando comando(bottega.contesto, QStringLiteral("Importa"), QStringLiteral("Prova"));
    EXPECT_EQ(articles::ImportaArticoli(bottega.contesto).tipo, Tipo::Abbandonato);
    EXPECT_EQ(bottega.workspace.level(), 1);
  }
  EXPECT_EQ(bottega.workspace.level(), 0);
  EXPECT_EQ(fotografia(), prima);
}

TEST_F(ImportArticoli, DopoUnAnnullamentoUnNuovoImportRiesce) {
  bottega.user.chooses(std::nullopt);
  comando(bottega.contesto, "Importa", QStringLiteral("Prova"),
          [&] { articles::ImportaArticoli(bottega.contesto); });
  importa(listaSana(3));
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(riuscita()));
  EXPECT_EQ(bottega.workspace.level(), 0);
  EXPECT_EQ(fotografiaDaFuori(), fotografia());
}

TEST_F(ImportArticoli, UnNomeVuotoEUnAnnullamento) {
  EXPECT_EQ(importaFile(QString()).tipo, Tipo::Abbandonato);
  EXPECT_EQ(livelloAllaFine, 1);
}

TEST_F(ImportArticoli, LAttesaStaApertaAlleRigheESiChiudePrimaDelRiquadro) {
  bottega.screens.registra(QStringLiteral("Form_ATTESA"), [](Contesto&) { return new QWidget; });
  QStringList passi;
  bottega.user.onBox = [&](const Box&) {
    passi.append(QStringLiteral("riquadro"));
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(bottega.screens.trova(QStringLiteral("Form_ATTESA")), nullptr);
  };
  bottega.user.onPass = [&] {
    passi.append(QStringLiteral("passaggio"));
    ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    EXPECT_TRUE(BusyGuard::active());
    EXPECT_NE(bottega.screens.trova(QStringLiteral("Form_ATTESA")), nullptr);
  };
  importa(listaSana(2));
  EXPECT_THAT(passi, ElementsAre(u"passaggio", u"passaggio", u"riquadro"));
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(riuscita()));
}

TEST_F(ImportArticoli, UnSoloPassaggioDiEventiPerRiga) {
  importa(listaSana(37));
  EXPECT_EQ(bottega.user.passes(), 37);
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(riuscita()));
}

/// How the engine goes about a statement on the archive.
QString pianoDi(const QString& archivio, const QString& sql) {
  sqlite3* base = nullptr;
  EXPECT_EQ(sqlite3_open(archivio.toUtf8().constData(), &base), SQLITE_OK);
  sqlite3_stmt* frase = nullptr;
  EXPECT_EQ(sqlite3_prepare_v2(base, (QStringLiteral("EXPLAIN QUERY PLAN ") + sql).toUtf8().constData(), -1,
                               &frase, nullptr),
            SQLITE_OK)
      << sql.toStdString();
  constexpr int kDettaglio = 3;
  QString piano;
  while (sqlite3_step(frase) == SQLITE_ROW)
    piano += QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(frase, kDettaglio))) + u'\n';
  sqlite3_finalize(frase);
  sqlite3_close(base);
  return piano;
}

TEST_F(ImportArticoli, LaRicercaDellEanELAggiornamentoPassanoPerUnIndice) {
  const articles::CampiImport campi{7,
                                    QStringLiteral("8001"),
                                    QStringLiteral("A"),
                                    QStringLiteral("B"),
                                    QStringLiteral("1,00"),
                                    QStringLiteral("1")};
  for (const QString& sql :
       {QStringLiteral("SELECT Codice_EAN from TAB_ARTICOLI where auto_id <>7 and Codice_Ean ='8001';"),
        (articles::TestaIstruzione(campi) + articles::CodaIstruzione(articles::kStatoPulito, campi.auto_id))
            .sql()}) {
    const QString piano = pianoDi(archivio, sql);
    EXPECT_TRUE(piano.contains(QStringLiteral("SEARCH"))) << piano.toStdString();
    EXPECT_FALSE(piano.contains(QStringLiteral("SCAN"))) << piano.toStdString();
  }
}

TEST_F(ImportArticoli, CinquemilaRigheCostanoCinqueSincronismi) {
  const QByteArray lista = listaSana(5000);
  sync_count::start();
  importa(lista);
  EXPECT_LE(sync_count::soFar(), 5);
  EXPECT_GE(sync_count::soFar(), 2);
  EXPECT_THAT(bottega.user.boxes(), ElementsAre(riuscita()));
}

}  // namespace
