#include <gtest/gtest.h>

#include <QComboBox>
#include <functional>
#include <map>

#include "core/state.h"
#include "editors/Form_Negozio.h"
#include "editors/Form_OPE.h"
#include "editors/Form_OpzioniGen.h"
#include "editors/guided_fields.h"
#include "editors/options_table.h"

// Every byte of the records that the forms edit, against a list written by hand: which control stands over
// which bytes of the file, and how it writes them.

namespace {

const QString kFile = QStringLiteral("negozio.dat");
constexpr qsizetype kByteFile = 245114;
constexpr qsizetype kInizioImmagine = 146;

// First byte of each family in the file.
constexpr qsizetype kNegozio = 9;
constexpr qsizetype kIntestazione = 146;
constexpr qsizetype kCortesia = 450;
constexpr qsizetype kOperatori = 244236;
constexpr qsizetype kOpzioni = 244566;
constexpr qsizetype kCalendario = 244994;

constexpr qsizetype kByteNegozio = 137;
constexpr qsizetype kByteIntestazione = 38;
constexpr qsizetype kByteCortesia = 39;
constexpr qsizetype kByteOperatore = 33;
constexpr qsizetype kByteOpzioni = 428;
constexpr qsizetype kByteVoce = 10;
constexpr int kRigheIntestazione = 8;
constexpr int kRigheCortesia = 2;
constexpr int kRigheOperatori = 10;
constexpr int kRigheCalendario = 12;

constexpr char kResto = '\xA5';

enum class Specie {
  SiNo,
  Lista,
  Stampante,
  Testo,
  Cifre,
  Sei,
  SeiCifre,
  Centesimi,
  Numero,
  Ora,
  Data,
  Giorno
};

/// One control over its bytes.
struct Voce {
  const char* controllo;
  qsizetype inizio;
  qsizetype byte;
  Specie specie;
  /// Longest text; entries of a list.
  int limite = 0;
  /// The lists of month and year behind one of days.
  QStringList altre = {};
  /// Row of a series from 0, else -1.
  int riga = -1;

  QString nome(const QString& coda = {}) const { return conRiga(QLatin1String(controllo) + coda); }
  QString conRiga(const QString& base) const { return riga < 0 ? base : base + u'_' + QString::number(riga); }
};
using Voci = std::vector<Voce>;

/// The same voices once for each row, `passo` bytes apart.
Voci serie(int righe, qsizetype passo, const Voci& una) {
  Voci tutte;
  for (int riga = 0; riga < righe; ++riga)
    for (Voce voce : una) {
      voce.inizio += riga * passo;
      voce.riga = riga;
      tutte.push_back(voce);
    }
  return tutte;
}

Voci unite(std::initializer_list<Voci> parti) {
  Voci tutte;
  for (const Voci& parte : parti) tutte.insert(tutte.end(), parte.begin(), parte.end());
  return tutte;
}

Voci periferiche() {
  using enum Specie;
  return {{"Combo_velocita_stampante", kOpzioni + 13, 1, Lista, 4},
          {"vkOptionButtonTagl", kOpzioni + 14, 1, SiNo},
          {"ComboCOM1", kOpzioni + 16, 1, Lista, 8},
          {"ComboVelCOM1", kOpzioni + 17, 1, Lista, 4},
          {"vkOptionButton_echoCOM1", kOpzioni + 18, 1, SiNo},
          {"ComboCOM2", kOpzioni + 19, 1, Lista, 8},
          {"ComboVelCOM2", kOpzioni + 20, 1, Lista, 4},
          {"vkOptionButton_echoCOM2", kOpzioni + 21, 1, SiNo},
          {"vkTextBox_nlinee_skip", kOpzioni + 142, 1, Numero},
          {"vkOptionButtonTM295_Intest_ESER", kOpzioni + 143, 1, SiNo},
          {"vkTextBox_nlinee_body", kOpzioni + 144, 1, Numero},
          {"vkOptionButtonTM295_Intest_CLIE", kOpzioni + 145, 1, SiNo},
          {"vkOptionButton_OpenCassetto", kOpzioni + 146, 1, SiNo},
          {"ComboPrinterAUXFatture", kOpzioni + 159, 1, Stampante, 4},
          {"ComboPrinterAuxTavoli", kOpzioni + 160, 1, Stampante, 3},
          {"vkOptionButtonCUTTER_PAVO", kOpzioni + 414, 1, SiNo},
          {"vkOptionButtonMARK_PAVO", kOpzioni + 415, 1, SiNo}};
}

Voci scontrino() {
  using enum Specie;
  return {{"vkOptionButtonSconto", kOpzioni, 1, SiNo},
          {"vkTextBox_repsconto", kOpzioni + 1, 4, Centesimi},
          {"vkOptionButtonObblOpe", kOpzioni + 6, 1, SiNo},
          {"vkOptionButtonObblSub", kOpzioni + 7, 1, SiNo},
          {"vkOptionButtonQtUnit", kOpzioni + 9, 1, SiNo},
          {"vkOptionButtonNumArt", kOpzioni + 10, 1, SiNo},
          {"vkOptionButtonCent", kOpzioni + 11, 1, SiNo},
          {"vkOptionButtonDatario", kOpzioni + 12, 1, SiNo},
          {"vkOptionButtonInfoGest", kOpzioni + 15, 1, SiNo},
          {"vkOptionButtonTxFooter", kOpzioni + 26, 1, SiNo},
          {"vkOptionButtonDoppiaCopia", kOpzioni + 141, 1, SiNo},
          {"vkOptionButtonScontoB", kOpzioni + 147, 1, SiNo},
          {"vkTextBox_repscontoB", kOpzioni + 148, 4, Centesimi},
          {"vkTextBoxMaxImporto", kOpzioni + 152, 4, Centesimi},
          {"vkOptionButtonOperatorePerScontrino", kOpzioni + 157, 1, SiNo},
          {"vkOptionButton_fatt_mens_sintetica", kOpzioni + 158, 1, SiNo},
          {"vkOptionButtonTestoAlternativoA", kOpzioni + 362, 1, SiNo},
          {"vkTextBoxDescrizioneTipoPercA", kOpzioni + 363, 25, Testo, 24},
          {"vkOptionButtonTestoAlternativoB", kOpzioni + 388, 1, SiNo},
          {"vkTextBoxDescrizioneTipoPercB", kOpzioni + 389, 25, Testo, 24},
          {"vkOptionButtonScoDiffAbil", kOpzioni + 416, 1, SiNo}};
}

Voci varie() {
  using enum Specie;
  return unite({{{"vkOptionButtonAzzGest", kOpzioni + 8, 1, SiNo},
                 {"Combo_GG_REV",
                  kOpzioni + 22,
                  4,
                  Data,
                  0,
                  {QStringLiteral("Combo_MM_REV"), QStringLiteral("Combo_AA_REV")}},
                 {"vkTextBox_Password", kOpzioni + 127, 7, Sei, 6},
                 {"ComboModAzz", kOpzioni + 134, 1, Lista, 3},
                 {"vkTextBoxTempoAzz", kOpzioni + 135, 4, Ora},
                 {"ComboTipoAzz", kOpzioni + 139, 1, Lista, 3},
                 {"vkOptionButtonBeep", kOpzioni + 140, 1, SiNo},
                 {"vkTextBoxNumdaShift", kOpzioni + 156, 1, Numero},
                 {"vkOptionButtonOraLegale", kOpzioni + 417, 1, SiNo}},
                serie(4, 25, {{"vkTextBox_Subtender", kOpzioni + 27, 25, Testo, 10}})});
}

Voci calendario() {
  using enum Specie;
  return serie(kRigheCalendario, kByteVoce,
               {{"vkOptionButton_Grafica", kCalendario, 1, SiNo},
                {"CmbGiorno", kCalendario + 1, 4, Giorno, 0, {QStringLiteral("CmbMese")}},
                {"CmbGiornoFine", kCalendario + 5, 4, Giorno, 0, {QStringLiteral("CmbMeseFine")}}});
}

Voci tallon() {
  using enum Specie;
  return unite({{{"vkOptionButton_TALLON", kOpzioni + 161, 1, SiNo}},
                serie(8, 25, {{"vkTextBox_Tallon", kOpzioni + 162, 25, Testo, 14}})});
}

Voci datiNegozio() {
  using enum Specie;
  return {{"vkTextBox_rag_sociale", kNegozio, 25, Testo, 24},
          {"vkTextBox_pIva", kNegozio + 25, 12, Testo, 11},
          {"vkTextBox_indirizzo", kNegozio + 37, 25, Testo, 24},
          {"vkTextBox_citta", kNegozio + 62, 15, Testo, 14},
          {"vkTextBox_cap", kNegozio + 77, 6, Testo, 5},
          {"vkTextBox_provincia", kNegozio + 83, 3, Testo, 2},
          {"vkTextBox_telefono", kNegozio + 86, 13, Cifre, 12},
          {"vkTextBox_fax", kNegozio + 99, 13, Cifre, 12},
          {"vkTextBox_email", kNegozio + 112, 25, Testo, 24},
          {"vkTextBox_num_cassa", kOpzioni + 5, 1, Numero}};
}

Voci righeIntestazione() {
  using enum Specie;
  return serie(
      kRigheIntestazione, kByteIntestazione,
      {{"vkOptionButtonINT", kIntestazione, 1, SiNo}, {"vkTextBox_INT", kIntestazione + 1, 37, Testo, 36}});
}

Voci righeCortesia() {
  using enum Specie;
  return serie(kRigheCortesia, kByteCortesia,
               {{"vkOptionButtonCOR", kCortesia, 1, SiNo},
                {"vkTextBox_COR", kCortesia + 1, 37, Testo, 36},
                {"vkOptionButtonAbilCOR", kCortesia + 38, 1, SiNo}});
}

Voci righeOperatori() {
  using enum Specie;
  return serie(kRigheOperatori, kByteOperatore,
               {{"vkTextBox_OPE", kOperatori, 25, Testo, 10},
                {"vkOptionButtonAbil_OPE", kOperatori + 25, 1, SiNo},
                {"vkTextBox_Password_OPE", kOperatori + 26, 7, SeiCifre, 6}});
}

Voci opzioni() {
  return unite({periferiche(), scontrino(), varie(), calendario(), tallon()});
}
Voci negozio() {
  return unite({datiNegozio(), righeIntestazione(), righeCortesia()});
}
Voci tutte() {
  return unite({opzioni(), negozio(), righeOperatori()});
}

Voce voce(const char* controllo) {
  for (const Voce& una : tutte())
    if (QLatin1String(una.controllo) == QLatin1String(controllo)) return una;
  throw std::runtime_error(controllo);
}

// What is written.

QByteArray intero(std::uint32_t valore) {
  QByteArray byte;
  for (int i = 0; i < 4; ++i) byte += static_cast<char>(valore >> (8 * i) & 0xFF);
  return byte;
}

constexpr std::uint32_t kSecondiAlGiorno = 86400;
/// The till's number of a day: thirteen months of thirty-two days a year, in seconds.
std::uint32_t momento(std::uint32_t giorno, std::uint32_t mese, std::uint32_t anno = 0) {
  return ((anno * 13 + mese) * 32 + giorno) * kSecondiAlGiorno;
}

/// A text, its NUL, and what stood behind it.
QByteArray scritto(const QByteArray& sopra, const QByteArray& testo) {
  QByteArray byte = sopra;
  return byte.replace(0, testo.size() + 1, testo + '\0');
}

bool fine(const Voce& una) {
  return QLatin1String(una.controllo) == QLatin1String("CmbGiornoFine");
}

/// What stands in the file before the change. The first kind of zeroing stands there always.
QByteArray prima(const Voce& una) {
  switch (una.specie) {
    case Specie::SiNo:
      return QByteArray(1, una.nome().contains(QStringLiteral("TestoAlternativo")) ? '\0' : '\1');
    case Specie::Lista:
      return QByteArray(1, una.nome() == QStringLiteral("ComboTipoAzz") ? '\0' : '\1');
    case Specie::Stampante:
      return QByteArray(1, '\5');
    case Specie::Testo:
      return scritto(QByteArray(una.byte, kResto), "Ab");
    case Specie::Cifre:
      return scritto(QByteArray(una.byte, kResto), "12");
    case Specie::Sei:
    case Specie::SeiCifre:
      return scritto(QByteArray(una.byte, kResto), "111111");
    case Specie::Centesimi:
      return intero(1234);
    case Specie::Numero:
      return QByteArray(1, '\x0C');
    case Specie::Ora:
      return intero(3723);
    case Specie::Data:
      return intero(momento(15, 6, 24));
    case Specie::Giorno:
      return intero(fine(una) ? momento(20, 9) : momento(5, 3));
  }
  return {};
}

/// A file in which every field of the forms has a value that may stand there, and all other bytes one
/// pattern.
QByteArray filePieno() {
  QByteArray file(kByteFile, kResto);
  file.replace(0, 9, "V03.00KAR");
  for (const Voce& una : tutte()) file.replace(una.inizio, una.byte, prima(una));
  return file;
}

/// "244706: 00 in place of 01", of the first few bytes that differ.
QString differenze(const QByteArray& c, const QByteArray& atteso) {
  constexpr int kMostrate = 12;
  QStringList quali;
  if (c.size() != atteso.size()) quali << QStringLiteral("%1 byte").arg(c.size());
  for (qsizetype i = 0; i < std::min(c.size(), atteso.size()) && quali.size() < kMostrate; ++i)
    if (c[i] != atteso[i])
      quali << QStringLiteral("%1: %2 in place of %3")
                   .arg(i)
                   .arg(static_cast<unsigned char>(c[i]), 2, 16, QLatin1Char('0'))
                   .arg(static_cast<unsigned char>(atteso[i]), 2, 16, QLatin1Char('0'));
  return quali.join(QStringLiteral(", "));
}

/// One change by hand, and what then stands in the field.
struct Mossa {
  QString controllo;
  std::function<void(const GuidedFields&)> fai;
  QByteArray dopo;
};

Mossa scritta(const Voce& una, const QString& tasti, const QByteArray& dopo) {
  return {una.nome(), [=](const GuidedFields& f) { f.write(una.nome(), tasti); }, dopo};
}
Mossa inGiu(const QString& lista, const QByteArray& dopo) {
  return {lista, [=](const GuidedFields& f) { f.stepDown(lista); }, dopo};
}
Mossa testo(const Voce& una, const char* tasti) {
  const QByteArray questi = QByteArray(tasti).left(una.limite);
  return scritta(una, QString::fromLatin1(questi), scritto(prima(una), questi));
}

std::vector<Mossa> mosseData(const Voce& una) {
  if (una.specie == Specie::Data)
    return {inGiu(una.nome(), intero(momento(16, 6, 24))), inGiu(una.altre[0], intero(momento(15, 7, 24))),
            inGiu(una.altre[1], intero(momento(15, 6, 25)))};
  const QString mese = una.conRiga(una.altre[0]);
  if (fine(una)) return {inGiu(una.nome(), intero(momento(21, 9))), inGiu(mese, intero(momento(20, 10)))};
  return {inGiu(una.nome(), intero(momento(6, 3))), inGiu(mese, intero(momento(5, 4)))};
}

std::vector<Mossa> mosse(const Voce& una) {
  switch (una.specie) {
    case Specie::SiNo: {
      const bool acceso = prima(una)[0] == '\1';
      const QString altra = una.nome(acceso ? QStringLiteral("_NO") : QStringLiteral("_SI"));
      return {{altra, [=](const GuidedFields& f) { f.clickOn(altra); }, QByteArray(1, acceso ? '\0' : '\1')}};
    }
    case Specie::Lista:
      return {inGiu(una.nome(), QByteArray(1, static_cast<char>(prima(una)[0] + 1)))};
    case Specie::Stampante:
      return {inGiu(una.nome(), QByteArray(1, '\6'))};
    case Specie::Testo:
      return {testo(una, "Xyz9")};
    case Specie::Cifre:
      return {testo(una, "7890")};
    case Specie::Sei:
      return {testo(una, "Qw3rt!")};
    case Specie::SeiCifre:
      return {testo(una, "234567")};
    case Specie::Centesimi:
      return {scritta(una, QStringLiteral("56,78"), intero(5678))};
    case Specie::Numero:
      return {scritta(una, QStringLiteral("15"), QByteArray(1, '\x0F'))};
    case Specie::Ora:
      return {scritta(una, QStringLiteral("225930"), intero(82770))};
    case Specie::Data:
    case Specie::Giorno:
      break;
  }
  return mosseData(una);
}

class FileDeiModuli : public ConfigurationOpen {
 protected:
  FileDeiModuli() {
    program.screens.registra<Form_OpzioniGen>();
    program.screens.registra<Form_Negozio>();
    program.screens.registra<Form_OPE>();
  }
  void carica(const QByteArray& file) {
    program.folder.write(kFile, file);
    ASSERT_EQ(config::CaricaConfigurazione(varGestionePRG().PathConfigurazione, program.user), 0);
  }
  QByteArray suDisco() const { return onDisk(0, kByteFile); }
};

/// A tab, or two, of a screen.
struct Parte {
  const char* nome;
  const char* schermata;
  Voci (*voci)();
  /// Controls that are changed by hand.
  std::size_t mosse;
};
void PrintTo(const Parte& parte, std::ostream* uscita) {
  *uscita << parte.nome;
}

class OgniControllo : public FileDeiModuli, public testing::WithParamInterface<Parte> {};

constexpr const char* kOpzioniGenerali = "Form_OpzioniGen";

/// The text of the tickets is fixed on the keyboard of the till.
bool bloccata(const Voce& una) {
  return una.nome() == QStringLiteral("vkTextBox_Subtender_0");
}

}  // namespace

TEST_P(OgniControllo, CambiaISuoiByteENessunAltro) {
  const QByteArray pieno = filePieno();
  carica(pieno);
  const GuidedFields schermo(program, QLatin1String(GetParam().schermata));
  std::size_t fatte = 0;
  for (const Voce& una : GetParam().voci()) {
    if (bloccata(una)) continue;
    for (const Mossa& mossa : mosse(una)) {
      SCOPED_TRACE(mossa.controllo.toStdString());
      QByteArray partenza = pieno;
      // Only a text of one's own is open to be typed.
      if (una.nome().startsWith(QStringLiteral("vkTextBoxDescrizioneTipoPerc")))
        partenza[una.inizio - 1] = '\1';
      carica(partenza);
      schermo.editor().ricarica();
      mossa.fai(schermo);
      schermo.save();
      expectBoxes(program, {});
      QByteArray atteso = partenza;
      atteso.replace(una.inizio, una.byte, mossa.dopo);
      EXPECT_NE(atteso, partenza);
      EXPECT_EQ(differenze(suDisco(), atteso), QString());
      EXPECT_EQ(schermo.footKind(), OutcomeBar::Kind::Done);
      ++fatte;
    }
  }
  EXPECT_EQ(fatte, GetParam().mosse);
}

INSTANTIATE_TEST_SUITE_P(Moduli, OgniControllo,
                         testing::Values(Parte{"Periferiche", kOpzioniGenerali, periferiche, 17},
                                         Parte{"Scontrino", kOpzioniGenerali, scontrino, 21},
                                         Parte{"Varie", kOpzioniGenerali, varie, 14},
                                         Parte{"Calendario", kOpzioniGenerali, calendario, 60},
                                         Parte{"Tallon", kOpzioniGenerali, tallon, 9},
                                         Parte{"Negozio", "Form_Negozio", datiNegozio, 10},
                                         Parte{"Intestazione", "Form_Negozio", righeIntestazione, 16},
                                         Parte{"Cortesia", "Form_Negozio", righeCortesia, 6},
                                         Parte{"Operatori", "Form_OPE", righeOperatori, 30}),
                         [](const auto& prova) { return std::string(prova.param.nome); });

TEST_F(FileDeiModuli, OgniCoppiaScriveAncheIlVersoOpposto) {
  QByteArray spento = filePieno();
  for (const Voce& una : tutte())
    if (una.specie == Specie::SiNo) spento[una.inizio] = '\0';
  int coppie = 0;
  for (const auto& [schermata, voci] : {std::pair{kOpzioniGenerali, opzioni()},
                                        {"Form_Negozio", negozio()},
                                        {"Form_OPE", righeOperatori()}}) {
    carica(spento);
    const GuidedFields schermo(program, QLatin1String(schermata));
    for (const Voce& una : voci) {
      if (una.specie != Specie::SiNo) continue;
      SCOPED_TRACE(una.nome().toStdString());
      carica(spento);
      schermo.editor().ricarica();
      EXPECT_TRUE(schermo.checked(una.nome(QStringLiteral("_NO"))));
      schermo.clickOn(una.nome(QStringLiteral("_SI")));
      EXPECT_FALSE(schermo.checked(una.nome(QStringLiteral("_NO"))));
      schermo.save();
      QByteArray atteso = spento;
      atteso[una.inizio] = '\1';
      EXPECT_EQ(differenze(suDisco(), atteso), QString());
      ++coppie;
    }
  }
  EXPECT_EQ(coppie, 8 + 16 + 3 + 12 + 1 + 8 + 4 + 10);
}

// The list itself.

namespace {

/// Bytes of a family that no control may touch.
bool riservato(qsizetype byte) {
  if (byte >= kOpzioni + 418 && byte < kOpzioni + kByteOpzioni) return true;
  return byte >= kCalendario && byte < kCalendario + kRigheCalendario * kByteVoce &&
         (byte - kCalendario) % kByteVoce == 9;
}

struct Tratto {
  qsizetype inizio;
  qsizetype byte;
};
const std::vector<Tratto> kTratti{{kNegozio, kByteNegozio},
                                  {kIntestazione, kRigheIntestazione* kByteIntestazione},
                                  {kCortesia, kRigheCortesia* kByteCortesia},
                                  {kOperatori, kRigheOperatori* kByteOperatore},
                                  {kOpzioni, kByteOpzioni},
                                  {kCalendario, kRigheCalendario* kByteVoce}};

const char* parola(editors::Genere genere) {
  using enum editors::Genere;
  switch (genere) {
    case SiNo:
      return "SiNo";
    case Lista:
      return "Lista";
    case Codici:
      return "Stampante";
    case Testo:
      return "Testo";
    case Centesimi:
      return "Centesimi";
    case Numero:
      return "Numero";
    case Ora:
      return "Ora";
    case Data:
      return "Data";
    case Giorno:
      return "Giorno";
    case Mostrato:
      return "Mostrato";
    case Perso:
      return "Perso";
  }
  return "";
}

const char* parola(Specie specie) {
  switch (specie) {
    case Specie::SiNo:
      return "SiNo";
    case Specie::Lista:
      return "Lista";
    case Specie::Stampante:
      return "Stampante";
    case Specie::Testo:
    case Specie::Cifre:
    case Specie::Sei:
    case Specie::SeiCifre:
      return "Testo";
    case Specie::Centesimi:
      return "Centesimi";
    case Specie::Numero:
      return "Numero";
    case Specie::Ora:
      return "Ora";
    case Specie::Data:
      return "Data";
    case Specie::Giorno:
      return "Giorno";
  }
  return "";
}

QString riga(const QString& nome, const QString& altre, const char* genere, qsizetype inizio, qsizetype byte,
             qsizetype limite) {
  return QStringLiteral("%1%2 %3 %4+%5 %6")
      .arg(nome, altre, QLatin1String(genere))
      .arg(inizio)
      .arg(byte)
      .arg(limite);
}

QStringList aMano(const Voci& voci) {
  QStringList righe;
  for (const Voce& una : voci) {
    QString altre;
    for (const QString& lista : una.altre) altre += u'+' + una.conRiga(lista);
    righe << riga(una.nome(), altre, parola(una.specie), una.inizio, una.byte, una.limite);
  }
  righe.sort();
  return righe;
}

/// Where a record stands in the file.
qsizetype postoNelFile(config::Record record) {
  const config::Record immagine = config::immagineProgrammazione().byte();
  if (record.data() >= immagine.data() && record.data() < immagine.data() + immagine.size())
    return kInizioImmagine + (record.data() - immagine.data());
  const config::Record negozio(config::bloccoNegozio());
  EXPECT_EQ(record.data(), negozio.data());
  return kNegozio;
}

/// What stands in no record, of a screen.
const std::map<QString, QStringList> kSenzaRecord{
    {QStringLiteral("Form_OpzioniGen"), {}},
    {QStringLiteral("Form_Negozio"),
     {QStringLiteral("vkTextBoxModello"), QStringLiteral("vkTextBoxNumTasti"),
      QStringLiteral("vkTextBoxStampanteFiscale_0"), QStringLiteral("vkTextBoxStampanteFiscale_1"),
      QStringLiteral("vkTextBoxStampanteFiscale_2"), QStringLiteral("vkTextBox_num_sms")}},
    {QStringLiteral("Form_OPE"),
     {QStringLiteral("vkTextBox_OPE_NESSUNO"), QStringLiteral("vkTextBox_Password_OPE_NESSUNO")}}};

struct Campi {
  QStringList nelRecord;
  QStringList altrove;
};

void raccogli(std::span<const editors::Dato> dati, const editors::Riquadro& riquadro, std::size_t quale,
              Campi& campi) {
  for (const editors::Dato& dato : dati) {
    if (dato.record == nullptr) {
      campi.altrove << QLatin1String(dato.controllo);
      continue;
    }
    const config::Campo campo = editors::campoDi(dato, quale);
    QString altre;
    for (const char* lista : {dato.altre.mese, dato.altre.anno})
      if (lista != nullptr) altre += u'+' + editors::nomeControllo(lista, riquadro, quale);
    const std::size_t limite = dato.elementi.empty() ? campo.limite : dato.elementi.size();
    campi.nelRecord << riga(
        editors::nomeControllo(dato.controllo, riquadro, quale), altre, parola(dato.genere),
        postoNelFile(editors::recordDi(dato, quale)) + static_cast<qsizetype>(campo.inizio),
        static_cast<qsizetype>(campo.larghezza), static_cast<qsizetype>(limite));
  }
}

Campi dellaTabella(const editors::Modulo& modulo) {
  Campi campi;
  for (const editors::Pagina& pagina : modulo.pagine)
    for (const editors::Riquadro& riquadro : pagina.riquadri) {
      raccogli(riquadro.primaRiga, riquadro, 0, campi);
      for (std::size_t quale = 0; quale < editors::volte(riquadro); ++quale)
        raccogli(riquadro.dati, riquadro, quale, campi);
    }
  campi.nelRecord.sort();
  campi.altrove.sort();
  return campi;
}

QStringList soloQui(const QStringList& qui, const QStringList& la) {
  QStringList soli;
  for (const QString& una : qui)
    if (!la.contains(una)) soli << una;
  return soli;
}

void expectGliStessi(const editors::Modulo& modulo, const Voci& voci) {
  const Campi campi = dellaTabella(modulo);
  const QStringList mano = aMano(voci);
  EXPECT_EQ(soloQui(campi.nelRecord, mano), QStringList()) << "not in the list above";
  EXPECT_EQ(soloQui(mano, campi.nelRecord), QStringList()) << "not on the screen";
  EXPECT_EQ(campi.nelRecord.size(), mano.size());
  EXPECT_EQ(campi.altrove, kSenzaRecord.at(QLatin1String(modulo.schermata)));
}

}  // namespace

TEST(ByteDeiModuli, OgnunoEDiUnControlloSoloORiservato) {
  std::vector<QStringList> padroni(kByteFile);
  for (const Voce& una : tutte())
    for (qsizetype i = 0; i < una.byte; ++i)
      padroni.at(static_cast<std::size_t>(una.inizio + i)) << una.nome();
  qsizetype quanti = 0;
  for (const Tratto& tratto : kTratti)
    for (qsizetype byte = tratto.inizio; byte < tratto.inizio + tratto.byte; ++byte) {
      const QStringList& suoi = padroni[static_cast<std::size_t>(byte)];
      EXPECT_EQ(suoi.size(), riservato(byte) ? 0 : 1)
          << "byte " << byte << ": " << suoi.join(u' ').toStdString();
      ++quanti;
    }
  EXPECT_EQ(quanti, 137 + 304 + 78 + 330 + 428 + 120);
  qsizetype fuori = 0;
  for (const QStringList& suoi : padroni) fuori += suoi.size();
  EXPECT_EQ(fuori, quanti - 10 - 12) << "a control outside these records";
}

TEST(ByteDeiModuli, LeOpzioniHannoGliStessiControlliDiQuiSugliStessiByte) {
  expectGliStessi(editors::ModuloOpzioni(), opzioni());
}

TEST(ByteDeiModuli, IlNegozioHaGliStessiControlliDiQuiSugliStessiByte) {
  expectGliStessi(editors::ModuloNegozio(), negozio());
}

TEST(ByteDeiModuli, GliOperatoriHannoGliStessiControlliDiQuiSugliStessiByte) {
  expectGliStessi(editors::ModuloOperatori(), righeOperatori());
}

// Whatever a till may hold.

namespace {

constexpr std::uint32_t kMomenti = 100U * 13 * 32 * kSecondiAlGiorno;

/// The parts of a day as the till reads them out of a number; a number beyond all moments is none.
struct Giornata {
  std::uint32_t giorno;
  std::uint32_t mese;
  std::uint32_t anno;

  bool mostrata() const { return giorno > 0 && mese > 0; }
  std::uint32_t giorniDelMese(bool bisestile) const {
    if (mese == 2) return bisestile ? 29 : 28;
    return mese == 4 || mese == 6 || mese == 9 || mese == 11 ? 30 : 31;
  }
};
Giornata giornata(std::uint32_t numero) {
  const std::uint32_t giorni = (numero < kMomenti ? numero : 0) / kSecondiAlGiorno;
  return {giorni % 32, giorni / 32 % 13, giorni / 32 / 13};
}

std::uint32_t ripetuto(int valore) {
  return static_cast<std::uint32_t>(valore) * 0x01010101U;
}

/// What a save makes of a field of which every byte is `valore`: what the till would not understand is put
/// into its form, all else stays.
QByteArray dopoIlSalvataggio(const Voce& una, int valore) {
  QByteArray byte(una.byte, static_cast<char>(valore));
  const Giornata letta = giornata(ripetuto(valore));
  switch (una.specie) {
    case Specie::SiNo:
      return QByteArray(1, valore == 0 ? '\0' : '\1');
    case Specie::Testo:
    case Specie::Cifre:
    case Specie::Sei:
    case Specie::SeiCifre:
      return valore == 0 ? byte : scritto(byte, byte.left(una.limite));
    case Specie::Lista:
      return una.nome() == QStringLiteral("ComboTipoAzz") ? QByteArray(1, '\0') : byte;
    case Specie::Stampante:
      return valore == 5 || valore == 6 || valore == 7 ? byte : QByteArray(1, '\0');
    case Specie::Centesimi:
    case Specie::Numero:
      return byte;
    case Specie::Ora:
      return intero((ripetuto(valore) < kMomenti ? ripetuto(valore) : 0) % kSecondiAlGiorno);
    case Specie::Data: {
      if (!letta.mostrata()) return byte;
      const bool esiste = letta.giorno <= letta.giorniDelMese(letta.anno % 4 == 0);
      return intero(esiste ? momento(letta.giorno, letta.mese, letta.anno) : 0);
    }
    case Specie::Giorno:
      break;
  }
  if (!letta.mostrata()) return byte;
  // A day that no year has was put right to the first of its month.
  const bool esiste = letta.giorno <= letta.giorniDelMese(false);
  return intero(momento(esiste ? letta.giorno : 1, letta.mese));
}

void expectMostra(const GuidedFields& schermo, const Voce& una, int valore) {
  switch (una.specie) {
    case Specie::SiNo:
      EXPECT_EQ(schermo.checked(una.nome(QStringLiteral("_SI"))), valore != 0);
      EXPECT_EQ(schermo.checked(una.nome(QStringLiteral("_NO"))), valore == 0);
      return;
    case Specie::Lista: {
      const int posizione = una.nome() == QStringLiteral("ComboTipoAzz") ? 0 : valore;
      EXPECT_EQ(schermo.list(una.nome()).currentIndex(), posizione < una.limite ? posizione : -1);
      return;
    }
    case Specie::Stampante: {
      const int posizione = valore >= 5 && valore <= 7 ? valore - 4 : 0;
      EXPECT_EQ(schermo.list(una.nome()).currentIndex(), posizione < una.limite ? posizione : -1);
      return;
    }
    case Specie::Testo:
    case Specie::Cifre:
    case Specie::Sei:
    case Specie::SeiCifre:
      EXPECT_EQ(schermo.line(una.nome()).text().size(), valore == 0 ? 0 : una.byte);
      return;
    case Specie::Numero:
      EXPECT_EQ(schermo.line(una.nome()).text(), QString::number(valore));
      return;
    case Specie::Centesimi: {
      // 0x7F7F7F7F hundredths are 21391437,43.
      const auto centesimi = static_cast<std::int64_t>(static_cast<std::int32_t>(ripetuto(valore)));
      const QString segno = centesimi < 0 ? QStringLiteral("-") : QString();
      const auto assoluto = std::abs(centesimi);
      EXPECT_EQ(schermo.line(una.nome()).text(),
                segno + QStringLiteral("%1,%2").arg(assoluto / 100).arg(assoluto % 100, 2, 10, QChar(u'0')));
      return;
    }
    case Specie::Ora:
      EXPECT_EQ(schermo.line(una.nome()).text().size(), 6);
      return;
    case Specie::Data:
    case Specie::Giorno:
      break;
  }
  const Giornata letta = giornata(ripetuto(valore));
  EXPECT_EQ(schermo.list(una.nome()).currentIndex(), static_cast<int>(letta.giorno) - 1);
  EXPECT_EQ(schermo.list(una.conRiga(una.altre[0])).currentIndex(), static_cast<int>(letta.mese) - 1);
  if (una.specie == Specie::Data) {
    EXPECT_EQ(schermo.list(una.altre[1]).currentIndex(), static_cast<int>(letta.anno));
  }
}

QByteArray fileDi(int valore) {
  QByteArray file = filePieno();
  file.replace(kOpzioni, kByteOpzioni, QByteArray(kByteOpzioni, static_cast<char>(valore)));
  const qsizetype tutto = kRigheCalendario * kByteVoce;
  return file.replace(kCalendario, tutto, QByteArray(tutto, static_cast<char>(valore)));
}

constexpr int kValoriPerProva = 32;

class CassaPienaDi : public FileDeiModuli, public testing::WithParamInterface<int> {
 protected:
  /// Days that stop a save.
  void rimediaAlCalendario(const GuidedFields& schermo, int valore) {
    const Giornata letta = giornata(ripetuto(valore));
    if (!letta.mostrata() || letta.giorno <= letta.giorniDelMese(false)) return;
    schermo.save();
    EXPECT_EQ(program.takeBoxes().back().text,
              QStringLiteral("Attenzione controllare le date colorate in rosso: non sono corrette !!!"));
    for (const Voce& una : calendario())
      if (una.specie == Specie::Giorno) {
        schermo.reveal(una.nome());
        schermo.pick(una.nome(), 0);
      }
    expectBoxes(program, {});
  }
};

}  // namespace

TEST_P(CassaPienaDi, SiApreSiMostraESiSalvaCambiandoSoloCioCheLeRegoleDicono) {
  carica(fileDi(GetParam()));
  const GuidedFields schermo(program, QLatin1String(kOpzioniGenerali));
  for (int valore = GetParam(); valore < GetParam() + kValoriPerProva; ++valore) {
    SCOPED_TRACE(valore);
    const QByteArray pieno = fileDi(valore);
    carica(pieno);
    // Filled once more from memory: a screen of its own for each of 256 tills would take most of the test.
    schermo.reset();
    expectBoxes(program, {});
    EXPECT_EQ(varGestionePRG().ModificaOpzioni, kFalso);
    for (const Voce& una : opzioni()) {
      SCOPED_TRACE(una.nome().toStdString());
      expectMostra(schermo, una, valore);
    }
    schermo.clickOn(valore == 0 ? QStringLiteral("vkOptionButtonBeep_SI")
                                : QStringLiteral("vkOptionButtonBeep_NO"));
    rimediaAlCalendario(schermo, valore);
    schermo.save();
    expectBoxes(program, {});
    QByteArray atteso = pieno;
    for (const Voce& una : opzioni()) atteso.replace(una.inizio, una.byte, dopoIlSalvataggio(una, valore));
    atteso[voce("vkOptionButtonBeep").inizio] = valore == 0 ? '\1' : '\0';
    EXPECT_EQ(differenze(suDisco(), atteso), QString());
    EXPECT_EQ(varGestionePRG().ModificaOpzioni, kFalso);
  }
}

INSTANTIATE_TEST_SUITE_P(Valori, CassaPienaDi, testing::Range(0, 256, kValoriPerProva),
                         testing::PrintToStringParamName());

TEST_F(FileDeiModuli, IByteRiservatiSopravvivonoAUnaModifica) {
  const QByteArray pieno = fileDi(0xA5);
  carica(pieno);
  const GuidedFields schermo(program, QLatin1String(kOpzioniGenerali));
  schermo.clickOn(QStringLiteral("vkOptionButton_Grafica_NO_3"));
  schermo.write(QStringLiteral("vkTextBox_Tallon_7"), QStringLiteral("Omaggio"));
  schermo.save();
  const QByteArray dopo = suDisco();
  EXPECT_EQ(dopo[kCalendario + 3 * kByteVoce], '\0');
  EXPECT_EQ(dopo.mid(kOpzioni + 162 + 7 * 25, 8), QByteArray("Omaggio\0", 8));
  EXPECT_EQ(dopo.mid(kOpzioni + 418, 10), QByteArray(10, kResto));
  for (int riga = 0; riga < kRigheCalendario; ++riga)
    EXPECT_EQ(dopo[kCalendario + riga * kByteVoce + 9], kResto) << riga;
}

TEST_F(FileDeiModuli, UnByteFuoriDallaSuaListaNonMostraNullaERestaFinoAUnaScelta) {
  carica(filePieno());
  const GuidedFields schermo(program, QLatin1String(kOpzioniGenerali));
  int liste = 0;
  for (const Voce& una : opzioni()) {
    if (una.specie != Specie::Lista || una.nome() == QStringLiteral("ComboTipoAzz")) continue;
    ++liste;
    for (const int valore : {una.limite, una.limite + 1, 200, 255}) {
      SCOPED_TRACE(una.nome().toStdString() + " " + std::to_string(valore));
      QByteArray file = filePieno();
      file[una.inizio] = static_cast<char>(valore);
      carica(file);
      schermo.reset();
      EXPECT_EQ(schermo.list(una.nome()).currentIndex(), -1);
      schermo.clickOn(QStringLiteral("vkOptionButtonBeep_NO"));
      schermo.save();
      file[voce("vkOptionButtonBeep").inizio] = '\0';
      EXPECT_EQ(differenze(suDisco(), file), QString());
      schermo.stepDown(una.nome());
      EXPECT_EQ(schermo.list(una.nome()).currentIndex(), 0);
      schermo.save();
      file[una.inizio] = '\0';
      EXPECT_EQ(differenze(suDisco(), file), QString());
      expectBoxes(program, {});
    }
  }
  EXPECT_EQ(liste, 6);
}

TEST_F(FileDeiModuli, IlTipoDiAzzeramentoSiApreESiSalvaSempreDalPrimo) {
  const Voce tipo = voce("ComboTipoAzz");
  for (const int valore : {1, 2, 3, 200, 255}) {
    SCOPED_TRACE(valore);
    QByteArray file = filePieno();
    file[tipo.inizio] = static_cast<char>(valore);
    carica(file);
    const GuidedFields schermo(program, QLatin1String(kOpzioniGenerali));
    EXPECT_EQ(schermo.list(tipo.nome()).currentText(), QStringLiteral("azz. fiscale"));
    schermo.clickOn(QStringLiteral("vkOptionButtonBeep_NO"));
    schermo.save();
    file[voce("vkOptionButtonBeep").inizio] = '\0';
    file[tipo.inizio] = '\0';
    EXPECT_EQ(differenze(suDisco(), file), QString());
    program.screens.scarica(QLatin1String(kOpzioniGenerali));
  }
}

TEST_F(FileDeiModuli, UnCodiceDiStampanteSconosciutoENessunaStampante) {
  for (const char* const lista : {"ComboPrinterAUXFatture", "ComboPrinterAuxTavoli"}) {
    const Voce una = voce(lista);
    for (const int valore : {1, 4, 8, 200, 255}) {
      SCOPED_TRACE(una.nome().toStdString() + " " + std::to_string(valore));
      QByteArray file = filePieno();
      file[una.inizio] = static_cast<char>(valore);
      carica(file);
      const GuidedFields schermo(program, QLatin1String(kOpzioniGenerali));
      EXPECT_EQ(schermo.list(una.nome()).currentText(), QStringLiteral("Nessuna"));
      schermo.clickOn(QStringLiteral("vkOptionButtonBeep_NO"));
      schermo.save();
      file[voce("vkOptionButtonBeep").inizio] = '\0';
      file[una.inizio] = '\0';
      EXPECT_EQ(differenze(suDisco(), file), QString());
      program.screens.scarica(QLatin1String(kOpzioniGenerali));
    }
  }
}

TEST_F(FileDeiModuli, LaStampanteDeiTavoliNonHaLaPAVOELaLascia) {
  const Voce tavoli = voce("ComboPrinterAuxTavoli");
  QByteArray file = filePieno();
  file[tavoli.inizio] = '\7';
  carica(file);
  const GuidedFields schermo(program, QLatin1String(kOpzioniGenerali));
  EXPECT_EQ(schermo.list(tavoli.nome()).currentIndex(), -1);
  schermo.clickOn(QStringLiteral("vkOptionButtonBeep_NO"));
  schermo.save();
  file[voce("vkOptionButtonBeep").inizio] = '\0';
  EXPECT_EQ(differenze(suDisco(), file), QString());
}

TEST_F(FileDeiModuli, IlTestoDelTicketESoloDaLeggere) {
  const Voce ticket = voce("vkTextBox_Subtender");
  carica(filePieno());
  const GuidedFields schermo(program, QLatin1String(kOpzioniGenerali));
  schermo.write(ticket.nome(), QStringLiteral("Xyz9"));
  EXPECT_TRUE(bloccata(ticket));
  EXPECT_EQ(schermo.line(ticket.nome()).text(), QStringLiteral("Ab"));
  EXPECT_EQ(varGestionePRG().ModificaOpzioni, kFalso);
}
