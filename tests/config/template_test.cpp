#include <gtest/gtest.h>

#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <array>

#include "config/pinned_fields.h"
#include "platform/ecrcom/library.h"
#include "platform/store/store.h"
#include "platform/text/windows1252.h"
#include "sostegno/program_fixture.h"
#include "sostegno/statements.h"

namespace {

constexpr int kPazienza = 10000;  // milliseconds

QByteArray letto(const QString& percorso) {
  QFile file(percorso);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << percorso.toStdString();
  return file.readAll();
}

const QByteArray& modello() {
  static const QByteArray file = letto(QStringLiteral(GESTIONALE_APP "/QzPRG.bck"));
  return file;
}

/// The text from this byte up to its NUL.
QString testo(qsizetype inizio) {
  return windows1252::toText(QByteArray(modello().constData() + inizio));
}

int byte(qsizetype inizio) {
  return static_cast<unsigned char>(modello().at(inizio));
}

qint64 intero(qsizetype inizio) {
  return byte(inizio) + 256 * (byte(inizio + 1) + 256 * (byte(inizio + 2) + 256LL * byte(inizio + 3)));
}

/// Where a family stands in the file, and how many records it has.
struct Zona {
  std::string nome;
  qsizetype inizio;
  qsizetype record;
};
const std::vector<Zona> kZone{{"negozio", 9, 1},    {"intestazione", 146, 8},  {"cortesia", 450, 2},
                              {"reparti", 528, 80}, {"plu", 3888, 5000},       {"iva", 243888, 8},
                              {"val", 244120, 4},   {"operatori", 244236, 10}, {"prog_param", 244566, 1},
                              {"logo", 244994, 12}};

/// What the maker of the template says of a source, and whether it made one.
struct Fatto {
  int esito = -1;
  QString detto;
  bool scritto = false;
};

Fatto costruisci(const QByteArray& sorgente) {
  const TemporaryFolder cartella;
  const QString da = cartella.write(QStringLiteral("s"), sorgente);
  const QString a = cartella.file(QStringLiteral("t"));
  QProcess costruttore;
  costruttore.start(QStringLiteral(MAKE_CONFIGURATION), {da, a});
  EXPECT_TRUE(costruttore.waitForFinished(kPazienza)) << costruttore.errorString().toStdString();
  QString detto = QString::fromUtf8(costruttore.readAllStandardError()).trimmed();
  detto.remove(da);
  return {costruttore.exitCode(), detto, QFileInfo::exists(a)};
}

/// A source with one line behind its head.
Fatto costruisciRiga(const char* riga) {
  return costruisci(QByteArray("testata versione = V03.00\n") + riga + '\n');
}

struct Rifiutata {
  const char* riga;
  const char* detto;
};
void PrintTo(const Rifiutata& una, std::ostream* uscita) {
  *uscita << una.riga;
}

}  // namespace

TEST(ModelloDiConfigurazione, HaLaLunghezzaELaVersioneDelFormato) {
  EXPECT_EQ(modello().size(), 245114);
  EXPECT_EQ(modello().first(9), "V03.00001");
}

TEST(ModelloDiConfigurazione, OgniTestoFinisceConUnoZeroEntroIlSuoLimite) {
  int testi = 0;
  for (const PostoInRecord& posto : tuttiIPosti(config::Tipo::CampoTesto)) {
    const auto zona = std::ranges::find(kZone, posto.record, &Zona::nome);
    ASSERT_NE(zona, kZone.end()) << posto.record;
    for (qsizetype i = 0; i < zona->record; ++i, ++testi) {
      const qsizetype inizio =
          zona->inizio + i * static_cast<qsizetype>(posto.byte) + static_cast<qsizetype>(posto.posto.inizio);
      const QByteArray campo = modello().sliced(inizio, static_cast<qsizetype>(posto.posto.limite) + 1);
      ASSERT_NE(campo.indexOf('\0'), -1) << posto.record << " " << i + 1 << " " << posto.posto.nome;
      ASSERT_EQ(campo.mid(campo.indexOf('\0')).count('\0'), campo.size() - campo.indexOf('\0'));
    }
  }
  // 9 of the shop, 8 + 2 lines, 80 departments, 5000 PLUs with two each, 8 rates, 4 currencies, 10 operators
  // with two each, 15 options.
  EXPECT_EQ(testi, 9 + 8 + 2 + 80 + 10000 + 8 + 4 + 20 + 15);
}

TEST(ModelloDiConfigurazione, IntestazioneECortesia) {
  EXPECT_EQ(testo(9), QStringLiteral("NOME NEGOZIO"));
  EXPECT_EQ(byte(146), 1);
  EXPECT_EQ(testo(147), QStringLiteral("NOME NEGOZIO"));
  EXPECT_EQ(byte(184), 0);
  EXPECT_EQ(testo(147 + 3 * 38), QStringLiteral("CAP CITTÀ (PROVINCIA)"));
  EXPECT_EQ(testo(147 + 7 * 38), QString());
  EXPECT_EQ(testo(451), QStringLiteral("GRAZIE E ARRIVEDERCI"));
  EXPECT_EQ(byte(450 + 38), 1);
  EXPECT_EQ(byte(450 + 39 + 38), 0);
  for (int i = 0; i < 8; ++i) EXPECT_LE(testo(147 + i * 38).size(), 24) << i;
}

TEST(ModelloDiConfigurazione, LeOttoAliquote) {
  const std::array<std::pair<const char*, int>, 8> previste{{{"IVA 22%", 2200},
                                                             {"IVA 10%", 1000},
                                                             {"IVA 5%", 500},
                                                             {"IVA 4%", 400},
                                                             {"ESENTE", 0},
                                                             {"ALIQUOTA 6", 0},
                                                             {"ALIQUOTA 7", 0},
                                                             {"ALIQUOTA 8", 0}}};
  for (qsizetype i = 0; i < 8; ++i) {
    EXPECT_EQ(testo(243888 + i * 29), QString::fromLatin1(previste[static_cast<std::size_t>(i)].first));
    EXPECT_EQ(intero(243888 + i * 29 + 25), previste[static_cast<std::size_t>(i)].second) << i + 1;
  }
}

TEST(ModelloDiConfigurazione, LeQuattroValute) {
  EXPECT_EQ(testo(244120), QStringLiteral("EURO"));
  EXPECT_EQ(intero(244145), 100);
  for (int i = 1; i < 4; ++i) EXPECT_FALSE(testo(244120 + i * 29).isEmpty()) << i;
}

TEST(ModelloDiConfigurazione, IlPrimoRepartoAlPercentoDelDieci) {
  EXPECT_EQ(testo(528), QStringLiteral("ALIMENTARI"));
  EXPECT_EQ(byte(553), 1);  // second rate, "S", first tallon
  EXPECT_EQ(intero(554), 0);
  EXPECT_EQ(intero(558), 0);
  EXPECT_EQ(intero(562), 999999);
  EXPECT_EQ(intero(566), 0);
}

TEST(ModelloDiConfigurazione, IRepartiSeguentiHannoNomeAliquotaELimiti) {
  EXPECT_EQ(testo(570), QStringLiteral("FRUTTA E VERDURA"));
  EXPECT_EQ(byte(595), 3);
  EXPECT_EQ(testo(528 + 11 * 42), QStringLiteral("REPARTO 12"));
  EXPECT_EQ(testo(528 + 79 * 42), QStringLiteral("REPARTO 80"));
  for (int i = 11; i < 80; ++i) {
    EXPECT_EQ(byte(528 + i * 42 + 25), 0) << i + 1;
    EXPECT_EQ(intero(528 + i * 42 + 34), 999999) << i + 1;
  }
}

TEST(ModelloDiConfigurazione, DieciOperatoriIlPrimoAbilitatoTuttiConSeiCifre) {
  EXPECT_EQ(testo(244236), QStringLiteral("ADDETTO 1"));
  EXPECT_EQ(testo(244236 + 9 * 33), QStringLiteral("ADDETTO 10"));
  for (int i = 0; i < 10; ++i) {
    const qsizetype inizio = 244236 + i * 33;
    EXPECT_EQ(byte(inizio + 25), i == 0 ? 1 : 0) << i + 1;
    const QString password = testo(inizio + 26);
    EXPECT_EQ(password.size(), 6) << i + 1;
    for (const QChar cifra : password) EXPECT_TRUE(cifra >= u'0' && cifra <= u'9') << i + 1;
  }
}

TEST(ModelloDiConfigurazione, LeOpzioniGeneraliStannoNegliIntervalliDellaSchermata) {
  constexpr qsizetype kInizio = 244566;
  EXPECT_EQ(byte(kInizio + 5), 1);   // till
  EXPECT_EQ(byte(kInizio + 13), 2);  // speed of the printer
  EXPECT_EQ(testo(kInizio + 27), QStringLiteral("TICKET"));
  EXPECT_EQ(testo(kInizio + 52), QStringLiteral("BANCOMAT"));
  EXPECT_EQ(testo(kInizio + 127), QStringLiteral("000000"));
  EXPECT_EQ(byte(kInizio + 142), 2);   // blank lines
  EXPECT_EQ(byte(kInizio + 144), 30);  // lines of the body
  EXPECT_EQ(intero(kInizio + 152), 999999);
  EXPECT_EQ(testo(kInizio + 162), QStringLiteral("BUONO SCONTO 1"));
  EXPECT_EQ(testo(kInizio + 162 + qsizetype{7} * 25), QStringLiteral("BUONO SCONTO 8"));
  EXPECT_EQ(testo(kInizio + 363), QStringLiteral("NESSUNO"));
  EXPECT_EQ(modello().sliced(kInizio + 418, 10), QByteArray(10, '\0'));
}

TEST(ModelloDiConfigurazione, DateEOreSiLeggonoConLaLibreriaDellaCassa) {
  EcrLibrary libreria{QStringLiteral(GESTIONALE_APP)};
  const auto momento = [&](qsizetype inizio) {
    return QString::fromLatin1(libreria.ecr_oro_encode(static_cast<std::uint32_t>(intero(inizio))));
  };
  EXPECT_EQ(momento(244566 + 22), QStringLiteral("01/01/30 00:00:00"));
  EXPECT_EQ(momento(244566 + 135), QStringLiteral("00/00/00 21:00:00"));
  const std::array<std::pair<const char*, const char*>, 12> calendario{{{"01/01", "31/12"},
                                                                        {"01/01", "31/12"},
                                                                        {"01/12", "31/12"},
                                                                        {"22/03", "25/04"},
                                                                        {"01/05", "14/05"},
                                                                        {"19/03", "19/03"},
                                                                        {"08/03", "08/03"},
                                                                        {"01/07", "31/08"},
                                                                        {"01/02", "28/02"},
                                                                        {"14/02", "14/02"},
                                                                        {"01/01", "31/01"},
                                                                        {"01/07", "31/07"}}};
  for (std::size_t i = 0; i < 12; ++i) {
    const qsizetype inizio = 244994 + static_cast<qsizetype>(i) * 10;
    EXPECT_EQ(byte(inizio), 0) << i;
    EXPECT_EQ(momento(inizio + 1), QString::fromLatin1(calendario[i].first) + QStringLiteral("/00 00:00:00"));
    EXPECT_EQ(momento(inizio + 5),
              QString::fromLatin1(calendario[i].second) + QStringLiteral("/00 00:00:00"));
  }
}

// The screen of the options compares the two days of an entry as texts, without a leading zero.
TEST(ModelloDiConfigurazione, NessunaVoceDelCalendarioFermaIlPrimoSalvataggioDelleOpzioni) {
  EcrLibrary libreria{QStringLiteral(GESTIONALE_APP)};
  const auto comeTesto = [&](qsizetype inizio) {
    const QByteArray momento = libreria.ecr_oro_encode(static_cast<std::uint32_t>(intero(inizio)));
    return QString::number((momento.left(2) + momento.sliced(3, 2) + "2007").toInt());
  };
  for (qsizetype inizio = 244994; inizio < 245114; inizio += 10)
    EXPECT_LE(comeTesto(inizio + 1), comeTesto(inizio + 5)) << inizio;
}

TEST(ModelloDiConfigurazione, VaDAccordoConIlModelloDegliArticoli) {
  ProgramFixture programma;
  const QString copia = programma.folder.file(QStringLiteral("bar_art.mdb"));
  store::CopyArchive(QStringLiteral(GESTIONALE_APP "/QzDB.bck"), copia);
  store::Database archivio = programma.workspace.OpenDatabase(copia);
  store::Recordset righe = archivio.OpenRecordset(
      u"SELECT Descrizione,Reparto,Prezzo,Codice_EAN,VarPrezzo,PrezzoZero from TAB_ARTICOLI");
  int plu = 0;
  for (; !righe.atEnd(); righe.MoveNext(), ++plu) {
    const qsizetype inizio = 3888 + plu * 48;
    ASSERT_EQ(testo(inizio), righe.text(0)) << plu + 1;
    // A department of the archive is stored less one.
    ASSERT_EQ(byte(inizio + 25), righe.int64(1) - 1) << plu + 1;
    ASSERT_EQ(byte(inizio + 26), 0) << plu + 1;
    ASSERT_EQ(intero(inizio + 27), righe.int64(2)) << plu + 1;
    ASSERT_EQ(testo(inizio + 31), righe.text(3)) << plu + 1;
  }
  EXPECT_EQ(plu, 5000);
}

TEST(SorgenteDelModello, UnaRigaGiustaFaUnFile) {
  const Fatto fatto = costruisciRiga("reparto 3 descrizione = PANE");
  EXPECT_EQ(fatto.detto, QString());
  EXPECT_EQ(fatto.esito, 0);
  EXPECT_TRUE(fatto.scritto);
}

class RigaRifiutata : public testing::TestWithParam<Rifiutata> {};

TEST_P(RigaRifiutata, SiDiceDoveEPercheENonSiScriveNulla) {
  const Fatto fatto = costruisciRiga(GetParam().riga);
  EXPECT_EQ(fatto.esito, 1);
  EXPECT_EQ(fatto.detto, QString::fromUtf8(GetParam().detto));
  EXPECT_FALSE(fatto.scritto);
}

INSTANTIATE_TEST_SUITE_P(
    Righe, RigaRifiutata,
    testing::Values(
        Rifiutata{"reparto 1 descrizione = 1234567890123456789012345", ":2: 25 characters, at most 24 fit"},
        Rifiutata{"iva 1 descrizione = ESENTE ART1", ":2: 11 characters, at most 10 fit"},
        Rifiutata{"negozio provincia = ROM", ":2: 3 characters, at most 2 fit"},
        Rifiutata{"testata modello = 01", ":2: 2 characters, it takes 3"},
        Rifiutata{"reparto 1 nome = BAR", ":2: reparto has no field \"nome\""},
        Rifiutata{"opzioni riserva = 1", ":2: opzioni has no field \"riserva\""},
        Rifiutata{"opzioni tallon = BUONO", ":2: opzioni has no field \"tallon\""},
        Rifiutata{"opzioni tallon 9 = BUONO", ":2: opzioni has no field \"tallon 9\""},
        Rifiutata{"opzioni beep 1 = no", ":2: opzioni has no field \"beep 1\""},
        Rifiutata{"cassa 1 nome = BAR", ":2: no family \"cassa\""},
        Rifiutata{"reparto 81 descrizione = BAR", ":2: reparto has records 1 to 80"},
        Rifiutata{"reparto 0 descrizione = BAR", ":2: reparto has records 1 to 80"},
        Rifiutata{"reparto 5-4 descrizione = BAR", ":2: reparto has records 1 to 80"},
        Rifiutata{"reparto descrizione = BAR", ":2: reparto wants the number of a record"},
        Rifiutata{"opzioni 1 beep = no", ":2: opzioni has no records to count"},
        Rifiutata{"reparto 1 descrizione BAR", ":2: not of the form: family [record] field = value"},
        Rifiutata{"opzioni linee del corpo = 9", ":2: out of range, 10 to 99"},
        Rifiutata{"opzioni linee del corpo = 100", ":2: out of range, 10 to 99"},
        Rifiutata{"opzioni linee vuote = 31", ":2: out of range, 0 to 30"},
        Rifiutata{"opzioni reparti da shiftare = 21", ":2: out of range, 0 to 20"},
        Rifiutata{"opzioni velocità COM 1 = 4", ":2: out of range, 0 to 3"},
        Rifiutata{"opzioni printer AUX tavoli = 7", ":2: out of range, 5 to 6"},
        Rifiutata{"opzioni massimo importo in vendita = 100000,00", ":2: out of range, 0 to 9999999"},
        Rifiutata{"opzioni massimo importo in vendita = 10", ":2: \"10\" is not an amount as 12,50"},
        Rifiutata{"iva 1 aliquota = 100,00", ":2: out of range, 0 to 9999"},
        Rifiutata{"reparto 1 IVA = 0", ":2: out of range, 1 to 8"},
        Rifiutata{"reparto 1 tallon = 9", ":2: out of range, 1 to 8"},
        Rifiutata{"reparto 1 tipo = N", ":2: \"N\" is not S or M"},
        Rifiutata{"reparto 1 battuta singola = si", ":2: \"si\" is not S or N"},
        Rifiutata{"reparto 1 attributi = 1",
                  ":2: IVA, battuta singola, tipo and tallon are fields of their own"},
        Rifiutata{"opzioni beep = 1", ":2: \"1\" is not sì or no"},
        Rifiutata{"operatore 1 password = 12345", ":2: \"12345\" is not a password of six digits"},
        Rifiutata{"operatore 1 password = 12345a", ":2: \"12345a\" is not a password of six digits"},
        Rifiutata{"opzioni password apertura/chiusura cassa = 1",
                  ":2: \"1\" is not a password of six digits"},
        Rifiutata{"logo 1 data inizio = 30/02", ":2: \"30/02\" is not in the calendar or on the clock"},
        Rifiutata{"logo 1 data inizio = 1/2", ":2: \"1/2\" is not a day as 31/12"},
        Rifiutata{"opzioni data revisione = 29/02/26",
                  ":2: \"29/02/26\" is not in the calendar or on the clock"},
        Rifiutata{"opzioni tempo azzeramento = 24:00:00",
                  ":2: \"24:00:00\" is not in the calendar or on the clock"},
        Rifiutata{"negozio città = ŁÓDŹ", ":2: \"ŁÓDŹ\" holds characters that the till does not know"},
        Rifiutata{"testata versione = V03.00", ":2: testata versione is told twice"},
        Rifiutata{" reparto 1 IVA = 1", ":2: not of the form: family [record] field = value"}));

TEST(SorgenteDelModello, UnCampoDettoDueVolteAncheInUnIntervalloSiRifiuta) {
  EXPECT_EQ(costruisciRiga("reparto 1-80 sconto = 0,00\nreparto 7 sconto = 1,00").detto,
            QStringLiteral(":3: reparto 7 sconto is told twice"));
}

TEST(SorgenteDelModello, IlMinimoDiUnRepartoNonSuperaIlMassimo) {
  EXPECT_EQ(costruisciRiga("reparto 4 min valore = 0,01").detto,
            QStringLiteral(":0: reparto 4: the least value is above the greatest"));
}

TEST(SorgenteDelModello, SenzaLaVersioneDelFormatoSiRifiuta) {
  EXPECT_EQ(costruisci("").detto, QStringLiteral(":0: the version is not V03.00"));
  EXPECT_EQ(costruisci("testata versione = V02.00").detto, QStringLiteral(":0: the version is not V03.00"));
}

TEST(SorgenteDelModello, SenzaSorgenteOSenzaArgomentiNonSiFaNulla) {
  const TemporaryFolder cartella;
  const auto esito = [](const QStringList& argomenti) {
    return QProcess::execute(QStringLiteral(MAKE_CONFIGURATION), argomenti);
  };
  EXPECT_EQ(esito({cartella.file(QStringLiteral("manca")), cartella.file(QStringLiteral("t"))}), 1);
  EXPECT_FALSE(QFileInfo::exists(cartella.file(QStringLiteral("t"))));
  EXPECT_EQ(esito({}), 2);
}
