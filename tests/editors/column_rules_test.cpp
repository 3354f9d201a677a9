#include "editors/column_rules.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "config/configuration_file.h"
#include "controls/FlexGrid.h"
#include "editors/Form_IVA.h"
#include "editors/Form_PLU.h"
#include "editors/Form_Reparti.h"
#include "editors/Form_Valuta.h"
#include "editors/utf8_text.h"
#include "platform/error.h"
#include "sostegno/program_fixture.h"

using namespace editors;

namespace {

const QString kNonNumerico = QStringLiteral("Attenzione il valore immesso non è di tipo numerico !!!");
const QString kNonZero = QStringLiteral("Attenzione il valore non puo' essere 0");
const QString kFuoriReparto = QStringLiteral("Attenzione il reparto deve essere compreso tra 1 e 32!!!");

Esame passa(const char* testo) {
  return {QString::fromUtf8(testo)};
}
Esame torna(const char* valore, const QString& messaggio) {
  return {QString::fromUtf8(valore), messaggio};
}
}  // namespace

// The checks.

TEST(ControlliDelleColonne, UnImportoFinoA99999E99Passa) {
  for (const char* testo : {"0", "0,01", "12,5", "99999,99", "00012,50"})
    EXPECT_EQ(CheckImporto(t(testo)), passa(testo)) << testo;
}

TEST(ControlliDelleColonne, UnImportoOltreIlLimiteTornaA1) {
  const QString oltre = t("Attenzione il valore immesso > 99999,99!!!");
  EXPECT_EQ(CheckImporto(t("100000")), torna("1", oltre));
  EXPECT_EQ(CheckImporto(t("100000,00")), torna("1", oltre));
  EXPECT_EQ(CheckImporto(t("99999,999")), torna("1", oltre));
}

TEST(ControlliDelleColonne, UnNumeroDiCentinaiaDiCifreEOltreIlLimite) {
  EXPECT_EQ(CheckImporto(QString(400, u'9')), torna("1", t("Attenzione il valore immesso > 99999,99!!!")));
}

TEST(ControlliDelleColonne, PiuDiUnaVirgolaNonENumericoETornaA1) {
  EXPECT_EQ(CheckImporto(t("1,2,3")), torna("1", kNonNumerico));
  EXPECT_EQ(CheckPercentuale(t(",,")), torna("1", kNonNumerico));
  EXPECT_EQ(CheckUnoOtto(t("1,,")), torna("1", kNonNumerico));
}

TEST(ControlliDelleColonne, UnTestoVuotoValeZeroEPassaDoveLoZeroPassa) {
  EXPECT_EQ(CheckImporto({}), passa(""));
  EXPECT_EQ(CheckPercentuale({}), passa(""));
  EXPECT_EQ(CheckUnoOtto({}), passa(""));
}

TEST(ControlliDelleColonne, UnaPercentualeArrivaA99E99) {
  EXPECT_EQ(CheckPercentuale(t("99,99")), passa("99,99"));
  EXPECT_EQ(CheckPercentuale(t("100")), torna("1", t("Attenzione il valore immesso > 99,99!!!")));
}

TEST(ControlliDelleColonne, AliquotaETallonVannoDa1A8) {
  EXPECT_EQ(CheckUnoOtto(t("1")), passa("1"));
  EXPECT_EQ(CheckUnoOtto(t("8")), passa("8"));
  EXPECT_EQ(CheckUnoOtto(t("9")), torna("1", t("Attenzione il valore immesso > 8!!!")));
  EXPECT_EQ(CheckUnoOtto(t("0")), torna("1", kNonZero));
}

TEST(ControlliDelleColonne, IlRepartoVaDa1A32) {
  EXPECT_EQ(CheckReparto(t("1")), passa("1"));
  EXPECT_EQ(CheckReparto(t("32")), passa("32"));
  EXPECT_EQ(CheckReparto(t("33")), torna("1", kFuoriReparto));
  EXPECT_EQ(CheckReparto(t("00")), torna("1", kFuoriReparto));
  EXPECT_EQ(CheckReparto({}), torna("1", kFuoriReparto));
  EXPECT_EQ(CheckReparto(t("0")), torna("1", kNonZero));
}

TEST(ControlliDelleColonne, IlTipoEMOSeDiventaMaiuscolo) {
  const QString messaggio = t("Attenzione  deve essere  M o S !!!");
  EXPECT_EQ(CheckTipoMS(t("m")), passa("M"));
  EXPECT_EQ(CheckTipoMS(t("M")), passa("M"));
  EXPECT_EQ(CheckTipoMS(t("s")), passa("S"));
  for (const char* testo : {"", "N", "SM", "1", " "})
    EXPECT_EQ(CheckTipoMS(t(testo)), torna("S", messaggio)) << testo;
}

TEST(ControlliDelleColonne, SiONoESONEDiventaMaiuscolo) {
  const QString messaggio = t("Attenzione  deve essere  S o N !!!");
  EXPECT_EQ(CheckTipoSN(t("s")), passa("S"));
  EXPECT_EQ(CheckTipoSN(t("n")), passa("N"));
  for (const char* testo : {"", "M", "SS", "0"})
    EXPECT_EQ(CheckTipoSN(t(testo)), torna("N", messaggio)) << testo;
}

TEST(ControlliDelleColonne, SoloDoveSiContaDa1LoZeroNonSiSalva) {
  for (const char* testo : {"", "0", "00"}) EXPECT_FALSE(salvabile(t(testo), kUnoOtto)) << testo;
  EXPECT_TRUE(salvabile(t("8"), kUnoOtto));
  EXPECT_TRUE(salvabile({}, kImporto));
  EXPECT_TRUE(salvabile(t("0"), kReparto));
}

// The keys.

TEST(TastiDelleColonne, UnImportoPrendeCifreEUnaVirgolaSola) {
  EXPECT_TRUE(accettaImportoDecimale(t("12"), u','));
  EXPECT_FALSE(accettaImportoDecimale(t("1,5"), u','));
  EXPECT_FALSE(accettaImportoDecimale(t("12"), u'.'));
  EXPECT_FALSE(accettaImportoDecimale(t("12"), u'a'));
  EXPECT_TRUE(accettaImportoDecimale(t("1,5"), u'9'));
}

TEST(TastiDelleColonne, ConDueDecimaliUnaCifraNonEntraCancellareETagliareSi) {
  EXPECT_FALSE(accettaImportoDecimale(t("1,50"), u'9'));
  EXPECT_TRUE(accettaImportoDecimale(t("1,50"), kBackspaceKey));
  EXPECT_TRUE(accettaImportoDecimale(t("1,50"), kCutKey));
}

TEST(TastiDelleColonne, MESPrendonoSoloLeDueLettere) {
  for (const QChar tasto : {QChar(u'M'), QChar(u'm'), QChar(u'S'), QChar(u's'), kBackspaceKey, kCutKey})
    EXPECT_TRUE(accettaMS({}, tasto));
  for (const QChar tasto : {QChar(u'N'), QChar(u'1'), QChar(u' ')}) EXPECT_FALSE(accettaMS({}, tasto));
}

TEST(TastiDelleColonne, DiconoPercheUnTastoNonEntra) {
  EXPECT_EQ(motivoMS({}, u'x'), t("Solo M o S"));
  EXPECT_EQ(motivoImportoDecimale(t("1,5"), u','), t("La virgola c'è già"));
  EXPECT_EQ(motivoImportoDecimale(t("1,50"), u'9'),
            t("I due decimali ci sono già: cancellare con Backspace, poi scrivere"));
  EXPECT_EQ(motivoImportoDecimale(t("1,50"), u'a'), t("Solo cifre e virgola"));
  EXPECT_EQ(motivoImportoDecimale(t("1"), u'.'), t("Per i decimali si scrive la virgola"));
}

// The numbers of a byte.

TEST(NumeriDiUnByte, DaZeroA255) {
  EXPECT_EQ(TestoInUnByte(t("0")), 0);
  EXPECT_EQ(TestoInUnByte({}), 0);
  EXPECT_EQ(TestoInUnByte(t("255")), 255);
}

TEST(NumeriDiUnByte, OltreIlByteENegativiFallisconoConIlNumero6) {
  for (const char* testo : {"256", "300", "-1", "99999999999"}) {
    try {
      TestoInUnByte(t(testo));
      ADD_FAILURE() << testo;
    } catch (const Errore& errore) {
      EXPECT_EQ(errore.numero, 6) << testo;
    }
  }
}

// Fill and save of any table.

namespace {

QString falliscono(config::RecordLetto) {
  throw Errore{9, QStringLiteral("Indice non compreso nell'intervallo")};
}
void nonScrive(config::Record, const QString&) {}
void rifiuta(config::Record record, const QString& testo) {
  if (testo == QStringLiteral("guasto")) throw Errore{6, QStringLiteral("Overflow")};
  config::scriviTesto(record, config::iva::kDescrizione, testo);
}
QString descrizione(config::RecordLetto record) {
  return config::leggiTesto(record, config::iva::kDescrizione);
}

Tabella tabellaDi(std::span<const Colonna> colonne) {
  return {.schermata = "Form_Prova",
          .titolo = u"Prova",
          .griglia = "MSFlexGridProva",
          .riempimento = "RiempiGridProva",
          .famiglia = config::kIVA,
          .modificato = &VarGestionePRG::ModificaIVA,
          .colonne = colonne,
          .uno = u"riga",
          .molti = u"righe",
          .legenda = {}};
}

}  // namespace

TEST(TabelleDegliEditor, UnRiempimentoCheFallisceDiceNomeNumeroEDescrizione) {
  ProgramFixture programma;
  const std::array colonne{numero(u"N.", u"0"), parte(u"X", falliscono, nonScrive, kLibera)};
  FlexGrid griglia;
  const Tabella tabella = tabellaDi(colonne);
  DisponiGriglia(griglia, tabella);
  RiempiGriglia(griglia, tabella, programma.user);
  expectBoxes(programma, {criticalBox(t("RiempiGridProva 9 - Indice non compreso nell'intervallo"))});
}

namespace {

/// A laid-down table with a column that fails at the records whose first byte is '!'.
struct RiempimentoConGuasto {
  const Tabella& (*tabella)();
  const char* nome;
};
void PrintTo(const RiempimentoConGuasto& caso, std::ostream* uscita) {
  *uscita << caso.nome;
}
QString alPuntoEsclamativo(config::RecordLetto record) {
  if (record[0] == '!') throw Errore{13, QStringLiteral("Tipo non corrispondente")};
  return QStringLiteral("letto");
}

class RiempimentiConGuasto : public testing::TestWithParam<RiempimentoConGuasto> {
 protected:
  RiempimentiConGuasto() : tabella(GetParam().tabella()) {
    config::azzeraConfigurazione();
    scriviTesto(immagine.record(tabella.famiglia, 0), config::reparto::kDescrizione, t("PRIMO"));
    scriviTesto(immagine.record(tabella.famiglia, 1), config::reparto::kDescrizione, t("!"));
    scriviTesto(immagine.record(tabella.famiglia, 2), config::reparto::kDescrizione, t("TERZO"));
  }
  ~RiempimentiConGuasto() override { config::azzeraConfigurazione(); }

  ProgramFixture programma;
  config::ImmagineProgrammazione& immagine = config::immagineProgrammazione();
  Tabella tabella;
  FlexGrid griglia;
};

}  // namespace

TEST_P(RiempimentiConGuasto, DiconoIlLoroNomeIlNumeroELaDescrizioneEFinisconoLi) {
  std::vector<Colonna> colonne(tabella.colonne.begin(), tabella.colonne.end());
  colonne[2].leggi = alPuntoEsclamativo;
  tabella.colonne = colonne;
  DisponiGriglia(griglia, tabella);
  RiempiGriglia(griglia, tabella, programma.user);
  expectBoxes(programma, {criticalBox(QLatin1String(GetParam().nome) + t(" 13 - Tipo non corrispondente"))});
  EXPECT_EQ(griglia.TextMatrix(1, 1), t("PRIMO"));
  EXPECT_EQ(griglia.TextMatrix(1, 2), t("letto"));
  EXPECT_EQ(griglia.TextMatrix(2, 1), t("!"));
  EXPECT_EQ(griglia.TextMatrix(2, 2), QString());
  EXPECT_EQ(griglia.TextMatrix(3, 1), QString());
}

INSTANTIATE_TEST_SUITE_P(Editor, RiempimentiConGuasto,
                         testing::Values(RiempimentoConGuasto{TabellaReparti, "RiempiGridReparti"},
                                         RiempimentoConGuasto{TabellaPLU, "RiempiGridPLU"},
                                         RiempimentoConGuasto{TabellaIVA, "RiempiGridIVA"},
                                         RiempimentoConGuasto{TabellaValute, "RiempiGridVAL"}),
                         [](const auto& caso) { return std::string(caso.param.nome); });

TEST(TabelleDegliEditor, UnaRigaCheNonStaNelRecordLasciaTuttiIRecordComErano) {
  ProgramFixture programma;
  config::azzeraConfigurazione();
  const std::array colonne{numero(u"N.", u"0"), parte(u"X", descrizione, rifiuta, kLibera)};
  FlexGrid griglia;
  const Tabella tabella = tabellaDi(colonne);
  DisponiGriglia(griglia, tabella);
  RiempiGriglia(griglia, tabella, programma.user);
  griglia.setTextMatrix(1, 1, t("nuova"));
  griglia.setTextMatrix(2, 1, t("guasto"));
  EXPECT_THROW(SalvaGriglia(griglia, tabella), Errore);
  EXPECT_EQ(descrizione(config::immagineProgrammazione().record(config::kIVA, 0)), QString());
  griglia.setTextMatrix(2, 1, t("sana"));
  SalvaGriglia(griglia, tabella);
  EXPECT_EQ(descrizione(config::immagineProgrammazione().record(config::kIVA, 0)), t("nuova"));
  EXPECT_EQ(descrizione(config::immagineProgrammazione().record(config::kIVA, 1)), t("sana"));
  config::azzeraConfigurazione();
}
