#include "articles/ean_index.h"

#include <gmock/gmock.h>

#include <sys/stat.h>

#include "articles/article_database.h"
#include "articles/back_room.h"
#include "articles/overwritten.h"
#include "articles/write_count.h"
#include "platform/ui/busy_guard.h"
#include "sostegno/statements.h"
#include "sostegno/troubles.h"

namespace {

using articles::CalcolaEanNum;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

const QString kFalliteLePosizioni = QStringLiteral("Errore nell' inserimento dati nella TAB_ARTICOLI n° ");
const QString kFallitoLInserimento =
    QStringLiteral("Errore nell' inserimento dati nella TAB_EAN_NUMERICI n° ");
const QString kFallitoLIndice = QStringLiteral("Errore nell' UPDATE dati nella TAB_EAN_NUMERICI n° ");

/// An archive whose articles stand in the slots given, with these EANs.
class IndiceEan : public testing::Test {
 protected:
  IndiceEan() { bottega.openArchive(); }

  void svuota() { bottega.execute(QStringLiteral("Delete  from TAB_ARTICOLI")); }
  void articolo(int slot, const QString& ean) {
    bottega.execute(QStringLiteral("INSERT INTO TAB_ARTICOLI (auto_id,ID_Position,Codice_EAN) "
                                   "Values (%1,'%1','%2');")
                        .arg(slot)
                        .arg(ean));
  }
  /// One article a slot, from 1.
  void soli(const QStringList& ean) {
    svuota();
    int slot = 0;
    for (const QString& uno : ean) articolo(++slot, uno);
  }
  QStringList colonna(const QString& sql) {
    QStringList valori;
    store::Recordset righe = varGlobal().DB_Articoli.OpenRecordset(asWritten(sql));
    for (; !righe.atEnd(); righe.MoveNext()) valori << righe.field(0).text();
    return valori;
  }
  QStringList posizioni() {
    return colonna(QStringLiteral("SELECT ID_Position from TAB_ARTICOLI ORDER BY auto_id"));
  }
  QStringList indici() { return colonna(QStringLiteral("SELECT Index from TAB_EAN_NUMERICI")); }
  std::int16_t numera() { return articles::CalcolaID_Position(bottega.user); }
  std::int16_t costruisci() { return articles::UpdateEanNumAndIndex(bottega.user); }
  std::int16_t riporta() { return articles::UpdateALLIndex(bottega.user); }
  void attendiRiquadri(const QStringList& testi) {
    EXPECT_THAT(bottega.user.takeBoxes(), ElementsAreArray(boxes(testi, Icon::Critical)));
  }
  /// The description of a statement's failure as the store words it.
  QString descrizione(const QString& sql) {
    try {
      bottega.execute(sql);
    } catch (const Errore& errore) {
      return errore.descrizione;
    }
    ADD_FAILURE() << "no failure";
    return {};
  }
  QString piano(const QString& sql) {
    QString testo;
    store::Recordset righe =
        varGlobal().DB_Articoli.OpenRecordset(asWritten(QStringLiteral("EXPLAIN QUERY PLAN ") + sql));
    for (; !righe.atEnd(); righe.MoveNext()) testo += righe.field(QStringLiteral("detail")).text();
    return testo;
  }

  BackRoom bottega;
};

// CalcolaEanNum.

TEST(CalcolaEanNum, EUnNumeroInteroDi32Bit) {
  EXPECT_EQ(CalcolaEanNum(QStringLiteral("123456789")), 3421780262.0);
}

TEST(CalcolaEanNum, UnTestoVuotoPassaComE) {
  EXPECT_EQ(CalcolaEanNum(QString()), 0.0);
}

TEST(CalcolaEanNum, GliSpaziInCodaDannoUnAltroValore) {
  EXPECT_NE(CalcolaEanNum(QStringLiteral("80012345")), CalcolaEanNum(QStringLiteral("80012345     ")));
}

TEST(CalcolaEanNum, UnCodiceCheNonENumeroNeHaUnoComeGliAltri) {
  EXPECT_GT(CalcolaEanNum(QStringLiteral("SFUSO-PANE")), 0.0);
  EXPECT_NE(CalcolaEanNum(QStringLiteral("SFUSO-PANE")), CalcolaEanNum(QStringLiteral("SFUSO-VINO")));
}

TEST(CalcolaEanNum, IlTestoVaConUnByteACarattere) {
  // CRC-32 of the one byte 0xE8; in UTF-8 there would be two.
  EXPECT_EQ(CalcolaEanNum(QStringLiteral("è")), 2094237127.0);
}

// CalcolaID_Position.

TEST_F(IndiceEan, ConLaTabellaVuotaTutteELeTreVisiteFinisconoSubito) {
  svuota();
  EXPECT_EQ(numera(), 0);
  EXPECT_EQ(costruisci(), 0);
  EXPECT_EQ(riporta(), 0);
  EXPECT_THAT(indici(), IsEmpty());
  EXPECT_EQ(bottega.user.passes(), 0);
}

TEST_F(IndiceEan, GliSlotCinqueSetteENovePrendonoZeroUnoEDue) {
  svuota();
  articolo(9, QStringLiteral("C"));
  articolo(5, QStringLiteral("A"));
  articolo(7, QStringLiteral("B"));
  EXPECT_EQ(numera(), 0);
  EXPECT_THAT(posizioni(), ElementsAre(QStringLiteral("0"), QStringLiteral("1"), QStringLiteral("2")));
}

TEST_F(IndiceEan, DueRigheConLoStessoEanPortanoLaPosizionePiuAlta) {
  soli({QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("A"), QStringLiteral("C")});
  EXPECT_EQ(numera(), 0);
  EXPECT_EQ(posizioni(), QStringList({QStringLiteral("2"), QStringLiteral("1"), QStringLiteral("2"),
                                      QStringLiteral("3")}));
}

TEST_F(IndiceEan, LeRigheSenzaEanPortanoLaPosizioneDellUltimaDiLoro) {
  soli({QString(), QStringLiteral("B"), QString(), QString(), QStringLiteral("E")});
  EXPECT_EQ(numera(), 0);
  EXPECT_EQ(posizioni(), QStringList({QStringLiteral("3"), QStringLiteral("1"), QStringLiteral("3"),
                                      QStringLiteral("3"), QStringLiteral("4")}));
}

TEST_F(IndiceEan, UnApostrofoNellEanFermaLaNumerazioneConDueMessaggi) {
  soli({QStringLiteral("A"), QStringLiteral("8''1"), QStringLiteral("C")});
  const QString perche =
      descrizione(QStringLiteral("UPDATE TAB_ARTICOLI SET ID_Position = '1' WHERE Codice_EAN ='8'1';"));
  EXPECT_EQ(numera(), 1);
  attendiRiquadri({kFalliteLePosizioni + QStringLiteral("3075\n") + perche,
                   QStringLiteral("Fallito Inserimento indici ")});
  EXPECT_EQ(posizioni(), QStringList({QStringLiteral("0"), QStringLiteral("2"), QStringLiteral("3")}));
}

TEST_F(IndiceEan, LaCausaDellaNumerazioneFallitaTornaAlChiamante) {
  soli({QStringLiteral("8''1")});
  Errore causa;
  EXPECT_EQ(articles::CalcolaID_Position(bottega.user, &causa), 1);
  EXPECT_EQ(causa.numero, errors::kSyntax);
  EXPECT_EQ(bottega.user.takeBoxes().size(), 2U);
}

TEST_F(IndiceEan, SenzaTabellaOgniVisitaDiceIlSuoPrefissoEFallisce) {
  bottega.openWith({QStringLiteral("CREATE TABLE altro (a INTEGER)")});
  const QString perche = QStringLiteral("3078 - ") + descrizione(QStringLiteral("Delete  from TAB_ARTICOLI"));
  EXPECT_EQ(numera(), 1);
  EXPECT_EQ(costruisci(), -1);
  EXPECT_EQ(riporta(), 1);
  attendiRiquadri({QStringLiteral("CalcolaID_Position ") + perche,
                   QStringLiteral("UpdateEanNumAndIndex ") + perche,
                   QStringLiteral("Fallita UpdateALLIndex ") + perche});
  EXPECT_FALSE(bottega.user.terminated());
}

TEST_F(IndiceEan, UnEanNulloSiDiceELaNumerazioneVaAvantiContandolo) {
  soli({QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")});
  bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Codice_EAN = null WHERE auto_id =2"));
  EXPECT_EQ(numera(), 0);
  attendiRiquadri({QStringLiteral("CalcolaID_Position 94 - Utilizzo non valido di Null")});
  EXPECT_EQ(posizioni(), QStringList({QStringLiteral("0"), QStringLiteral("2"), QStringLiteral("2")}));
}

TEST_F(IndiceEan, UnEanNulloInFondoNonToglieIlTurnoAgliEanVuoti) {
  soli({QString(), QString(), QString(), QString()});
  bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Codice_EAN = null WHERE auto_id =4"));
  EXPECT_EQ(numera(), 0);
  EXPECT_EQ(bottega.user.takeBoxes().size(), 1U);
  EXPECT_EQ(posizioni(), QStringList({QStringLiteral("2"), QStringLiteral("2"), QStringLiteral("2"),
                                      QStringLiteral("4")}));
}

TEST_F(IndiceEan, LaNumerazioneNonApreTransazioniENonFaPassareEventi) {
  soli({QStringLiteral("A")});
  EXPECT_EQ(numera(), 0);
  EXPECT_EQ(riporta(), 0);
  EXPECT_EQ(bottega.workspace.level(), 0);
  EXPECT_EQ(bottega.user.passes(), 0);
}

TEST_F(IndiceEan, UnArchivioInSolaLetturaFermaLaNumerazioneAllaPrimaRiga) {
  const QString file = varGlobal().NomeDB_Articoli;
  articles::ChiudiDatabase();
  ASSERT_EQ(chmod(bottega.folder.path().toUtf8().constData(), 0777), 0);
  ASSERT_EQ(chmod(file.toUtf8().constData(), 0444), 0);
  const OtherUser altro;
  articles::ApriDatabase(file, bottega.contesto);
  const QString perche = descrizione(QStringLiteral("Delete  from TAB_VARIE"));
  EXPECT_EQ(numera(), 1);
  attendiRiquadri({kFalliteLePosizioni + QStringLiteral("3073\n") + perche,
                   QStringLiteral("Fallito Inserimento indici ")});
}

// UpdateIDPosition.

TEST_F(IndiceEan, LaPosizioneDiUnEanCheNessunoPortaNonToccaNullaESiDiceFatta) {
  EXPECT_EQ(articles::UpdateIDPosition(QStringLiteral("X"), 7, bottega.user), 0);
  EXPECT_EQ(bottega.rows(QStringLiteral("SELECT * from TAB_ARTICOLI where ID_Position = '7'")), 1);
}

TEST_F(IndiceEan, AncheUnFallimentoChePassaOltreAltroveSiDiceDopoLoStatement) {
  articles::ChiudiDatabase();
  EXPECT_EQ(articles::UpdateIDPosition(QStringLiteral("X"), 7, bottega.user), -1);
  EXPECT_EQ(articles::InsertEanNumerici(QStringLiteral("X"), 1, 7, bottega.user), -1);
  EXPECT_EQ(articles::UpdateIndex(QStringLiteral("X"), 7, bottega.user), 1);
  const QString perche = QStringLiteral("3420\n") + descrizione(QStringLiteral("Delete  from TAB_ARTICOLI"));
  attendiRiquadri({kFalliteLePosizioni + perche, kFallitoLInserimento + perche, kFallitoLIndice + perche});
}

// UpdateEanNumAndIndex and InsertEanNumerici.

TEST_F(IndiceEan, LaCostruzioneScriveUnaRigaPerArticoloConUnPassaggioCiascuna) {
  soli({QStringLiteral("80012345"), QStringLiteral("80012346"), QString()});
  EXPECT_EQ(costruisci(), 0);
  EXPECT_EQ(bottega.user.passes(), 3);
  EXPECT_EQ(colonna(QStringLiteral("SELECT Codice_EAN from TAB_EAN_NUMERICI")),
            QStringList({QStringLiteral("80012345"), QStringLiteral("80012346"), QString()}));
  EXPECT_EQ(
      colonna(QStringLiteral("SELECT Codice_EAN_Num from TAB_EAN_NUMERICI")),
      QStringList({QString::number(CalcolaEanNum(QStringLiteral("80012345")), 'f', 0),
                   QString::number(CalcolaEanNum(QStringLiteral("80012346")), 'f', 0), QStringLiteral("0")}));
  EXPECT_EQ(indici(), QStringList({QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3")}));
  EXPECT_EQ(colonna(QStringLiteral("SELECT Spare from TAB_EAN_NUMERICI")), QStringList({{}, {}, {}}));
}

TEST_F(IndiceEan, DuranteLaCostruzioneClicETastiNonPassano) {
  soli({QStringLiteral("A"), QStringLiteral("B")});
  int occupati = 0;
  bottega.user.onPass = [&] { occupati += BusyGuard::active() ? 1 : 0; };
  EXPECT_EQ(costruisci(), 0);
  EXPECT_EQ(occupati, 2);
  EXPECT_FALSE(BusyGuard::active());
}

TEST_F(IndiceEan, UnApostrofoFermaLaCostruzioneConDueMessaggi) {
  soli({QStringLiteral("A"), QStringLiteral("8''1"), QStringLiteral("C")});
  const QString perche = descrizione(
      QStringLiteral("INSERT INTO TAB_EAN_NUMERICI (Codice_EAN,Codice_EAN_Num,Index,Spare) Values ('8'1',") +
      QString::number(CalcolaEanNum(QStringLiteral("8'1")), 'f', 0) + QStringLiteral(",2,'');"));
  EXPECT_EQ(costruisci(), -1);
  attendiRiquadri({kFallitoLInserimento + QStringLiteral("3075\n") + perche,
                   QStringLiteral("Fallito Inserimento Codice EAN Numerico ")});
  EXPECT_EQ(indici(), QStringList({QStringLiteral("1")}));
}

TEST_F(IndiceEan, UnaPosizioneCheNonENumeroSiDiceELaCostruzioneVaAvanti) {
  soli({QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")});
  bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET ID_Position = 'due' WHERE auto_id =2"));
  EXPECT_EQ(costruisci(), 0);
  EXPECT_EQ(indici(), QStringList({QStringLiteral("1"), QStringLiteral("3")}));
  EXPECT_EQ(bottega.user.passes(), 3) << "one a row, read or not";
  attendiRiquadri({QStringLiteral("UpdateEanNumAndIndex 13 - Tipo non corrispondente")});
}

TEST_F(IndiceEan, UnaPosizioneNullaSiDiceELeVisiteVannoAvanti) {
  soli({QStringLiteral("A"), QStringLiteral("B")});
  bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET ID_Position = null WHERE auto_id =1"));
  EXPECT_EQ(costruisci(), 0);
  EXPECT_EQ(riporta(), 0);
  EXPECT_EQ(indici(), QStringList({QStringLiteral("2")}));
  attendiRiquadri({QStringLiteral("UpdateEanNumAndIndex 94 - Utilizzo non valido di Null"),
                   QStringLiteral("Fallita UpdateALLIndex 94 - Utilizzo non valido di Null")});
}

// UpdateIndex and UpdateALLIndex.

TEST_F(IndiceEan, LIndiceDiUnEanSenzaRigaNonToccaNullaEDaZero) {
  soli({QStringLiteral("A")});
  EXPECT_EQ(costruisci(), 0);
  EXPECT_EQ(articles::UpdateIndex(QStringLiteral("B"), 9, bottega.user), 0);
  EXPECT_EQ(indici(), QStringList({QStringLiteral("1")}));
}

TEST_F(IndiceEan, LEanCancellatoRestaConMenoUno) {
  soli({QStringLiteral("A"), QStringLiteral("B")});
  EXPECT_EQ(costruisci(), 0);
  EXPECT_EQ(articles::UpdateIndex(QStringLiteral("A"), articles::kIndiceCancellato, bottega.user), 0);
  EXPECT_EQ(indici(), QStringList({QStringLiteral("-1"), QStringLiteral("2")}));
}

TEST_F(IndiceEan, UnApostrofoNonRompeLIndiceCheCercaPerNumero) {
  EXPECT_EQ(articles::InsertEanNumerici(QStringLiteral("8''1"), CalcolaEanNum(QStringLiteral("8'1")), 3,
                                        bottega.user),
            0);
  EXPECT_EQ(articles::UpdateIndex(QStringLiteral("8'1"), 5, bottega.user), 0);
  EXPECT_EQ(indici(), QStringList({QStringLiteral("5")}));
}

TEST_F(IndiceEan, LeDueRigheDiUnaSommaUgualeCambianoInsieme) {
  for (const int indice : {1, 2})
    EXPECT_EQ(articles::InsertEanNumerici(QStringLiteral("E%1").arg(indice),
                                          CalcolaEanNum(QStringLiteral("E1")), indice, bottega.user),
              0);
  EXPECT_EQ(articles::UpdateIndex(QStringLiteral("E1"), 8, bottega.user), 0);
  EXPECT_EQ(indici(), QStringList({QStringLiteral("8"), QStringLiteral("8")}));
}

TEST_F(IndiceEan, DopoUnaCancellazioneGliIndiciSeguonoLePosizioniSenzaIlBuco) {
  soli({QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")});
  EXPECT_EQ(costruisci(), 0);
  bottega.execute(QStringLiteral("Delete  from TAB_ARTICOLI where Codice_EAN ='A';"));
  EXPECT_EQ(numera(), 0);
  EXPECT_EQ(articles::UpdateIndex(QStringLiteral("A"), articles::kIndiceCancellato, bottega.user), 0);
  EXPECT_EQ(riporta(), 0);
  EXPECT_EQ(indici(), QStringList({QStringLiteral("-1"), QStringLiteral("0"), QStringLiteral("1")}));
}

TEST_F(IndiceEan, SenzaLaTabellaOgniRigaLoDiceELaVisitaDaZero) {
  bottega.openWith({QStringLiteral("CREATE TABLE TAB_ARTICOLI (auto_id INTEGER PRIMARY KEY, Codice_EAN "
                                   "TEXT, ID_Position TEXT)"),
                    QStringLiteral("INSERT INTO TAB_ARTICOLI VALUES (1,'','0'),(2,'A','1'),(3,'','2'),"
                                   "(4,'','3')")});
  const QString perche = kFallitoLIndice + QStringLiteral("3078\n") +
                         descrizione(QStringLiteral("Delete  from TAB_EAN_NUMERICI"));
  EXPECT_EQ(riporta(), 0);
  attendiRiquadri({perche, perche, perche, perche});
}

TEST_F(IndiceEan, LaReazioneFuoriDalloStatementPassaOltreQuattroNumeri) {
  for (const int numero : {0, 53, 75, 3021})
    EXPECT_EQ(articles::ReazioneUpdateIndex({numero, QStringLiteral("x")}, bottega.user), 0) << numero;
  EXPECT_THAT(bottega.user.takeBoxes(), IsEmpty());
}

TEST_F(IndiceEan, LaReazioneFuoriDalloStatementDiceGliAltriAncheIlVenti) {
  EXPECT_EQ(articles::ReazioneUpdateIndex({20, QStringLiteral("ripresa")}, bottega.user), 1);
  EXPECT_EQ(articles::ReazioneUpdateIndex({7, QStringLiteral("memoria")}, bottega.user), 1);
  attendiRiquadri({QStringLiteral("Errore nella funzione UpdateIndex 20 - ripresa"),
                   QStringLiteral("Errore nella funzione UpdateIndex 7 - memoria")});
}

// Cost.

TEST_F(IndiceEan, GliStatementRipetutiCercanoPerIndice) {
  for (const QString& sql :
       {QStringLiteral("UPDATE TAB_ARTICOLI SET ID_Position = '12' WHERE Codice_EAN ='80';"),
        QStringLiteral("UPDATE TAB_EAN_NUMERICI SET Index = 3 WHERE Codice_Ean_num = 3421780262;")})
    EXPECT_THAT(piano(sql).toStdString(), testing::StartsWith("SEARCH")) << sql.toStdString();
}

TEST_F(IndiceEan, CinquemilaSlotQuasiTuttiSenzaEanSiNumeranoConDueScrittureARiga) {
  writeArticles(bottega, testArticles(100));
  bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Codice_EAN = auto_id WHERE auto_id <=100"));
  WriteCount scritture(bottega, QStringLiteral("TAB_ARTICOLI"), QStringLiteral("ID_Position"));
  store::Transaction transazione(bottega.workspace);
  EXPECT_EQ(numera(), 0);
  transazione.Commit();
  EXPECT_EQ(scritture.soFar(), 100 + 2 * 4900);
  EXPECT_EQ(bottega.rows(QStringLiteral("SELECT * from TAB_ARTICOLI where ID_Position = '4999'")), 4900);
  EXPECT_EQ(bottega.value(QStringLiteral("SELECT ID_Position from TAB_ARTICOLI where auto_id =100")),
            QStringLiteral("99"));
}

TEST_F(IndiceEan, CinquemilaSlotSenzaEanRiportanoGliIndiciConDueScrittureARiga) {
  store::Transaction transazione(bottega.workspace);
  EXPECT_EQ(costruisci(), 0);
  transazione.Commit();
  WriteCount scritture(bottega, QStringLiteral("TAB_EAN_NUMERICI"), QStringLiteral("Index"));
  store::Transaction seconda(bottega.workspace);
  EXPECT_EQ(riporta(), 0);
  seconda.Commit();
  EXPECT_EQ(scritture.soFar(), 2 * 5000);
  EXPECT_EQ(bottega.rows(QStringLiteral("SELECT * from TAB_EAN_NUMERICI where Index = 5000")), 5000);
}

TEST_F(IndiceEan, CinquemilaEanDiversiScrivonoUnaRigaCiascuno) {
  bottega.execute(QStringLiteral("UPDATE TAB_ARTICOLI SET Codice_EAN = 8000000000000 + auto_id"));
  WriteCount scritture(bottega, QStringLiteral("TAB_ARTICOLI"), QStringLiteral("ID_Position"));
  store::Transaction transazione(bottega.workspace);
  EXPECT_EQ(numera(), 0);
  transazione.Commit();
  EXPECT_EQ(scritture.soFar(), 5000);
  EXPECT_EQ(bottega.rows(QStringLiteral("SELECT * from TAB_ARTICOLI where ID_Position = '0'")), 1);
  EXPECT_EQ(bottega.value(QStringLiteral("SELECT ID_Position from TAB_ARTICOLI where auto_id =5000")),
            QStringLiteral("4999"));
}

/// What the walk would leave behind if every statement ran.
TEST_F(IndiceEan, LoStatoFinaleEQuelloDiTuttiGliStatement) {
  const QStringList ean{
      QString(), QStringLiteral("a"), QStringLiteral("A"), QString(),           QStringLiteral("a"),
      QString(), QStringLiteral("A"), QStringLiteral("a"), QStringLiteral("B"), QString(),
      QString()};
  soli(ean);
  int posizione = 0;
  for (const QString& uno : ean) articles::UpdateIDPosition(uno, posizione++, bottega.user);
  const QStringList previste = posizioni();
  soli(ean);
  EXPECT_EQ(numera(), 0);
  EXPECT_EQ(posizioni(), previste);
}

TEST(Sovrascritte, DiOgniChiaveRestanoLaPrimaELUltima) {
  const QString a = QStringLiteral("a");
  const QString b = QStringLiteral("b");
  const articles::Sovrascritte sovrascritte({a, b, a, a, b, a});
  std::vector<bool> superflue;
  for (std::size_t i = 0; i < 6; ++i) superflue.push_back(sovrascritte.superflua(i));
  EXPECT_THAT(superflue, ElementsAre(false, false, true, true, false, false));
}

TEST(Sovrascritte, DopoUnFallimentoSiEseguonoTutte) {
  const QString a = QStringLiteral("a");
  articles::Sovrascritte sovrascritte({a, a, a});
  EXPECT_TRUE(sovrascritte.superflua(1));
  sovrascritte.fallita();
  EXPECT_FALSE(sovrascritte.superflua(1));
}

TEST(Sovrascritte, UnaRigaSenzaStatementNonEMaiLUltima) {
  const QString a = QStringLiteral("a");
  const articles::Sovrascritte sovrascritte({a, a, a, std::nullopt});
  EXPECT_TRUE(sovrascritte.superflua(1));
  EXPECT_FALSE(sovrascritte.superflua(2));
}

}  // namespace
