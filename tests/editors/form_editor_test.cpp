// The kit of the editors of single fields, on a small screen of the test's own.
#include "editors/form_editor.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QFile>
#include <QFrame>
#include <QPushButton>
#include <QVBoxLayout>
#include <array>

#include "config/image.h"
#include "controls/contrast.h"
#include "controls/style.h"
#include "core/key_filters.h"
#include "core/state.h"
#include "editors/form_field.h"
#include "editors/guided_form.h"

namespace {

// The guard looks for an editor by the name that bears its flag.
const QString kSchermo = QStringLiteral("Form_OpzioniGen");
const QString kSalva = QStringLiteral("Cmd_Modifica");
const QString kAnnulla = QStringLiteral("Cmd_Reset");
const QString kSalvaTerza = QStringLiteral("SalvaTerza");
const QString kAnnullaTerza = QStringLiteral("AnnullaTerza");

// Of the options' record and of the calendar's first entry in the file.
constexpr qsizetype kParametri = 244566;
constexpr qsizetype kLogo = 244994;
constexpr qsizetype kFile = 245114;

const QColor kGiallo(255, 255, 0);

namespace tabella {

using namespace editors;
using config::Campo;
using config::Tipo;

config::Record parametri(std::size_t) {
  return config::immagineProgrammazione().record(config::kParametri, 0);
}
config::Record logo(std::size_t riga) {
  return config::immagineProgrammazione().record(config::kLogo, riga);
}
QString alMassimoTrenta(const QString& testo) {
  return testo.toInt() > 30 ? QStringLiteral("Al massimo trenta") : QString();
}
QString seiCaratteri(const QString& testo) {
  return testo.size() == 6 ? QString() : QStringLiteral("Sei caratteri");
}
QString mostrata() {
  return QStringLiteral("da vedere");
}

constexpr std::array kElementi{u"Zero", u"Uno", u"Due"};
constexpr std::array kDispositivi{u"Nessuno", u"Cinque", u"Sette"};
constexpr std::array<std::uint8_t, 3> kCodici{0, 5, 7};

constexpr std::array kSopra{
    Dato{.controllo = "coppia",
         .didascalia = u"Coppia ",
         .genere = Genere::SiNo,
         .campo = {"coppia", 0, 1, Tipo::Flag},
         .record = parametri,
         .si = u"Acceso",
         .no = u"Spento"},
    Dato{.controllo = "lista",
         .didascalia = u"Lista",
         .genere = Genere::Lista,
         .campo = {"lista", 16, 1, Tipo::Byte},
         .record = parametri,
         .elementi = kElementi,
         .vuota = u"niente di scelto"},
    Dato{.controllo = "codici",
         .didascalia = u"Codici",
         .genere = Genere::Codici,
         .campo = {"codici", 159, 1, Tipo::Byte},
         .record = parametri,
         .elementi = kDispositivi,
         .codici = kCodici},
    Dato{.controllo = "prima",
         .didascalia = u"Sempre la prima",
         .genere = Genere::Lista,
         .campo = {"prima", 139, 1, Tipo::Byte},
         .record = parametri,
         .elementi = kElementi,
         .sempreLaPrima = true},
};
constexpr std::array kSotto{
    Dato{.controllo = "testo",
         .didascalia = u"Testo",
         .genere = Genere::Testo,
         .campo = {"testo", 27, 25, Tipo::CampoTesto, 10},
         .record = parametri,
         .nota = u"spiegato sotto",
         .suggerimento = u"Fino a 10 caratteri"},
    Dato{.controllo = "rifilato",
         .didascalia = u"Rifilato",
         .genere = Genere::Testo,
         .campo = {"rifilato", 52, 25, Tipo::CampoTesto, 10},
         .record = parametri,
         .rifilato = true},
    Dato{.controllo = "segreto",
         .didascalia = u"Segreto",
         .genere = Genere::Testo,
         .campo = {"segreto", 127, 7, Tipo::CampoTesto, 6},
         .record = parametri,
         .mascherato = true},
    Dato{.controllo = "mostrato", .didascalia = u"Mostrato", .genere = Genere::Mostrato, .valore = mostrata},
};
constexpr std::array kNumeri{
    Dato{.controllo = "importo",
         .didascalia = u"Importo",
         .genere = Genere::Centesimi,
         .campo = {"importo", 1, 4, Tipo::Intero32},
         .record = parametri,
         .tasti = kRegolaImporto},
    Dato{.controllo = "numero",
         .didascalia = u"Numero",
         .genere = Genere::Numero,
         .campo = {"numero", 156, 1, Tipo::Byte},
         .record = parametri,
         .tasti = Cifre,
         .verifica = alMassimoTrenta,
         .predefinito = u"10"},
    Dato{.controllo = "ora",
         .didascalia = u"Ora",
         .genere = Genere::Ora,
         .campo = {"ora", 135, 4, Tipo::SenzaSegno32},
         .record = parametri,
         .tasti = Cifre},
    Dato{.controllo = "data",
         .didascalia = u"Data",
         .genere = Genere::Data,
         .campo = {"data", 22, 4, Tipo::SenzaSegno32},
         .record = parametri,
         .altre = {"mese", "anno"}},
    Dato{.controllo = "giorno",
         .didascalia = u"Giorno",
         .genere = Genere::Giorno,
         .campo = {"giorno", 1, 4, Tipo::SenzaSegno32},
         .record = logo,
         .altre = {"meseGiorno"}},
    Dato{.controllo = "perso",
         .didascalia = u"Perso",
         .genere = Genere::Perso,
         .campo = {"perso", 0, 9, Tipo::CampoTesto, 8}},
};
constexpr std::array kSerie{
    Dato{.controllo = "parola",
         .didascalia = u"Parola",
         .genere = Genere::Testo,
         .campo = {"parola", 162, 25, Tipo::CampoTesto, 14},
         .record = parametri,
         .passo = 25,
         .verifica = seiCaratteri},
    Dato{.controllo = "stampa",
         .didascalia = u"Stampa",
         .genere = Genere::SiNo,
         .campo = {"stampa", 0, 1, Tipo::Flag},
         .record = logo},
};
constexpr std::array kTesta{
    Dato{.controllo = "testa", .didascalia = u"Parola", .genere = Genere::Mostrato, .valore = mostrata}};
constexpr std::array kNomi{u"VOCE %1"};

constexpr std::array kPrima{
    Riquadro{.titolo = u"Sopra", .dati = kSopra, .affiancati = 2},
    Riquadro{.titolo = u"Sotto", .dati = kSotto, .secondaColonna = true, .nome = "CartaSotto"}};
constexpr std::array kSeconda{Riquadro{.titolo = u"Numeri", .dati = kNumeri, .affiancati = 2}};
constexpr std::array kTerza{Riquadro{.titolo = u"Voci",
                                     .dati = kSerie,
                                     .righe = 3,
                                     .nomi = kNomi,
                                     .primaRiga = kTesta,
                                     .nomePrimaRiga = u"VOCE 0"}};
constexpr std::array kPagine{
    Pagina{.titolo = u"Prima", .riquadri = kPrima},
    Pagina{.titolo = u"Seconda", .riquadri = kSeconda, .salva = nullptr},
    Pagina{.titolo = u"Terza", .riquadri = kTerza, .salva = "SalvaTerza", .annulla = "AnnullaTerza"}};

template <Segno segno>
constexpr Modulo kModulo{.schermata = "Form_OpzioniGen",
                         .titolo = u"Schermata di prova",
                         .riempimento = "RiempiProva",
                         .pagine = kPagine,
                         .modificato = &VarGestionePRG::ModificaOpzioni,
                         .segno = segno};

}  // namespace tabella

/// The screen as a class of its own would make it; `salvabili` and `controllate` count what it is asked.
template <editors::Segno segno = editors::Segno::Campo>
class Prova : public EditorModulo {
 public:
  explicit Prova(Contesto& contesto) : EditorModulo(contesto, tabella::kModulo<segno>) { ricarica(); }
  QStringList chieste;

 protected:
  bool controlla() override {
    chieste << t("controlla");
    return true;
  }
  bool salvabile() override {
    chieste << t("salvabile");
    return true;
  }
  void dopo(editors::CampoModulo& campo) override { chieste << t("dopo ") + t(campo.dato().controllo); }
};

class EditorDiCampi : public ConfigurationOpen {
 protected:
  explicit EditorDiCampi() {
    program.screens.registra(kSchermo, [](Contesto& c) { return new Prova<>(c); });
    put(kParametri + 162, QByteArray("aaaaaa"));
    put(kParametri + 187, QByteArray("bbbbbb"));
    put(kParametri + 212, QByteArray("cccccc"));
  }
  GuidedForm apri() { return GuidedForm(program, kSchermo); }
  /// The whole file with some bytes in another place.
  QByteArray colFile(qsizetype offset, const QByteArray& byte) const {
    return onDisk(0, kFile).replace(offset, byte.size(), byte);
  }
  static QStringList chieste(const GuidedForm& schermo) {
    return dynamic_cast<Prova<>&>(schermo.window()).chieste;
  }
  static QStringList giro(const GuidedForm& schermo, int passi) {
    QStringList fermate;
    for (int i = 0; i < passi; ++i) {
      fermate << schermo.focus();
      schermo.press(Qt::Key_Tab);
    }
    return fermate;
  }
};

}  // namespace

// Filling.

TEST_F(EditorDiCampi, OgniGenereMostraIlSuoCampo) {
  put(kParametri, QByteArray("\1"));
  put(kParametri + 16, QByteArray("\2"));
  put(kParametri + 159, QByteArray("\7"));
  put(kParametri + 139, QByteArray("\2"));
  put(kParametri + 27, QByteArray("dieci"));
  put(kParametri + 127, QByteArray("abc"));
  put(kParametri + 1, QByteArray::fromHex("e2040000"));  // 1250
  put(kParametri + 156, QByteArray("\x1E"));
  const std::uint32_t tempo = program.library.ecr_time_decode(12, 25, 34);
  const std::uint32_t data = program.library.ecr_date_decode(28, 2, 31);
  const std::uint32_t giorno = program.library.ecr_dates_decode(25, 12);
  const auto byte = [](std::uint32_t valore) {
    QByteArray quattro;
    for (int i = 0; i < 4; ++i) quattro += static_cast<char>(valore >> (8 * i));
    return quattro;
  };
  put(kParametri + 135, byte(tempo));
  put(kParametri + 22, byte(data));
  put(kLogo + 1, byte(giorno));
  const GuidedForm schermo = apri();
  EXPECT_TRUE(schermo.checked(t("coppia_SI")));
  EXPECT_FALSE(schermo.checked(t("coppia_NO")));
  const auto scelta = [&](const char* lista) { return schermo.control<QComboBox>(lista).currentText(); };
  EXPECT_EQ(scelta("lista"), t("Due"));
  EXPECT_EQ(scelta("codici"), t("Sette"));
  EXPECT_EQ(scelta("prima"), t("Zero"));
  EXPECT_EQ(schermo.text(t("testo")), t("dieci"));
  EXPECT_EQ(schermo.text(t("segreto")), t("abc"));
  EXPECT_EQ(schermo.line(t("segreto")).displayText(), QString(3, u'●'));
  EXPECT_EQ(schermo.text(t("importo")), t("12,50"));
  EXPECT_EQ(schermo.text(t("numero")), t("30"));
  EXPECT_EQ(schermo.text(t("ora")), t("122534"));
  EXPECT_EQ(scelta("data"), t("28"));
  EXPECT_EQ(scelta("mese"), t("02"));
  EXPECT_EQ(scelta("anno"), t("2031"));
  EXPECT_EQ(scelta("giorno"), t("25"));
  EXPECT_EQ(scelta("meseGiorno"), t("12"));
  EXPECT_EQ(schermo.text(t("mostrato")), t("da vedere"));
  EXPECT_EQ(schermo.text(t("perso")), QString());
  EXPECT_EQ(schermo.text(t("parola_2")), t("cccccc"));
  EXPECT_EQ(schermo.foot(), QString());
  EXPECT_EQ(varGestionePRG().ModificaOpzioni, kFalso);
  EXPECT_EQ(chieste(schermo), QStringList()) << "a fill is no change";
}

TEST_F(EditorDiCampi, UnByteFuoriListaNonMostraNullaERestaComE) {
  put(kParametri + 16, QByteArray("\x0A"));
  put(kParametri + 159, QByteArray("\x63"));
  const GuidedForm schermo = apri();
  EXPECT_EQ(schermo.control<QComboBox>("lista").currentIndex(), -1);
  EXPECT_EQ(schermo.control<QComboBox>("lista").placeholderText(), t("niente di scelto"));
  EXPECT_EQ(schermo.control<QComboBox>("codici").currentText(), t("Nessuno"))
      << "an unknown code is the first";
  schermo.type(t("testo"), t("x"));
  schermo.click(kSalva);
  EXPECT_EQ(onDisk(kParametri + 16, 1), QByteArray("\x0A"));
  EXPECT_EQ(onDisk(kParametri + 159, 1), QByteArray(1, '\0'));
}

TEST_F(EditorDiCampi, UnGiornoCheNonCENonMostraNullaERestaComE) {
  put(kParametri + 22, QByteArray("\xFF\xFF\xFF\xFF"));
  const GuidedForm schermo = apri();
  EXPECT_EQ(schermo.control<QComboBox>("data").currentIndex(), -1);
  EXPECT_EQ(schermo.control<QComboBox>("mese").currentIndex(), -1);
  schermo.type(t("testo"), t("x"));
  schermo.click(kSalva);
  EXPECT_EQ(onDisk(kParametri + 27, 1), QByteArray("x"));
  EXPECT_EQ(onDisk(kParametri + 22, 4), QByteArray("\xFF\xFF\xFF\xFF"));
}

// Saving.

TEST_F(EditorDiCampi, OgniGenereSalvaISuoiByteENessunAltro) {
  struct Modifica {
    int scheda;
    std::function<void(const GuidedForm&)> fai;
    qsizetype inizio;
    QByteArray byte;
  };
  const std::vector<Modifica> modifiche{
      {0, [](const GuidedForm& s) { s.click(t("coppia_SI")); }, kParametri, "\1"},
      {0, [](const GuidedForm& s) { s.pick(t("lista"), 1); }, kParametri + 16, "\1"},
      {0, [](const GuidedForm& s) { s.pick(t("codici"), 1); }, kParametri + 159, "\5"},
      {0, [](const GuidedForm& s) { s.pick(t("prima"), 2); }, kParametri + 139, "\2"},
      {0, [](const GuidedForm& s) { s.type(t("testo"), t(" x ")); }, kParametri + 27, QByteArray(" x \0", 4)},
      {0, [](const GuidedForm& s) { s.type(t("rifilato"), t(" x ")); }, kParametri + 52,
       QByteArray("x\0", 2)},
      {1, [](const GuidedForm& s) { s.type(t("importo"), t("99999,99")); }, kParametri + 1,
       QByteArray::fromHex("7f969800")},
      {1, [](const GuidedForm& s) { s.type(t("numero"), t("29")); }, kParametri + 156, "\x1D"},
      {2, [](const GuidedForm& s) { s.type(t("parola_1"), t("dddddd")); }, kParametri + 187, "dddddd"},
      {2, [](const GuidedForm& s) { s.click(t("stampa_SI_2")); }, kLogo + 20, "\1"}};
  for (std::size_t i = 0; i < modifiche.size(); ++i) {
    program.screens.scaricaTutte();
    // The list that opens at its first entry is saved so by the save behind its own.
    put(kParametri + 139, QByteArray(1, '\0'));
    const GuidedForm schermo = apri();
    const QByteArray attesi = colFile(modifiche[i].inizio, modifiche[i].byte);
    ASSERT_FALSE(attesi == onDisk(0, kFile)) << i;
    schermo.tab(modifiche[i].scheda);
    modifiche[i].fai(schermo);
    schermo.click(modifiche[i].scheda == 2 ? kSalvaTerza : kSalva);
    expectBoxes(program, {});
    const QByteArray letti = onDisk(0, kFile);
    for (qsizetype j = 0; j < kFile; ++j)
      if (letti[j] != attesi[j]) ADD_FAILURE() << "modification " << i << ", byte " << j;
  }
}

TEST_F(EditorDiCampi, OraEDateSonoNellaCodificaDellaCassa) {
  const GuidedForm schermo = apri();
  schermo.tab(1);
  schermo.type(t("ora"), t("235959"));
  schermo.pick(t("data"), 30);
  schermo.pick(t("mese"), 11);
  schermo.pick(t("anno"), 100);
  schermo.pick(t("giorno"), 13);
  schermo.pick(t("meseGiorno"), 1);
  schermo.click(kSalva);
  const auto letto = [&](qsizetype inizio) {
    const QByteArray byte = onDisk(inizio, 4);
    std::uint32_t valore = 0;
    for (int i = 3; i >= 0; --i) valore = valore << 8 | static_cast<std::uint8_t>(byte[i]);
    return QString::fromLatin1(program.library.ecr_oro_encode(valore));
  };
  EXPECT_EQ(letto(kParametri + 135).mid(9, 8), t("23:59:59"));
  EXPECT_EQ(letto(kParametri + 22).left(8), t("31/12/00")) << "two digits of the year 2100";
  EXPECT_EQ(letto(kLogo + 1).left(5), t("14/02"));
}

TEST_F(EditorDiCampi, PrimaDelSalvataggioChiedeAllaSchermataNellOrdine) {
  const GuidedForm schermo = apri();
  schermo.click(kSalva);
  EXPECT_EQ(chieste(schermo), QStringList{t("controlla")}) << "without a change it is not asked on";
  schermo.click(t("coppia_SI"));
  schermo.click(kSalva);
  EXPECT_EQ(chieste(schermo),
            QStringList({t("controlla"), t("dopo coppia"), t("controlla"), t("salvabile")}));
}

TEST_F(EditorDiCampi, ICampiSiScrivonoConISalvataggiSoltanto) {
  const GuidedForm schermo = apri();
  schermo.type(t("testo"), t("x"));
  EXPECT_EQ(inMemory(kParametri + 27, 1), QByteArray(1, '\0'));
  program.screens.scarica(kSchermo);
  EXPECT_EQ(inMemory(kParametri + 27, 1), QByteArray(1, '\0'));
  EXPECT_EQ(onDisk(kParametri + 27, 1), QByteArray(1, '\0'));
}

TEST_F(EditorDiCampi, MentreSalvaCELaSchermataDiAttesa) {
  countWaitScreens();
  const GuidedForm schermo = apri();
  schermo.click(kSalva);
  EXPECT_EQ(waitScreens, 0);
  schermo.click(t("coppia_SI"));
  schermo.click(kSalva);
  EXPECT_EQ(waitScreens, 1);
  EXPECT_EQ(program.screens.trova(t("Form_ATTESA")), nullptr);
}

// Commands and keys.

TEST_F(EditorDiCampi, UnaSchedaSenzaComandiTieneQuelliDiPrima) {
  const GuidedForm schermo = apri();
  const auto visibili = [&] {
    QStringList nomi;
    for (const QString& nome : {kSalva, kAnnulla, kSalvaTerza, kAnnullaTerza})
      if (schermo.control(nome).isVisible()) nomi << nome;
    return nomi;
  };
  EXPECT_EQ(visibili(), QStringList({kSalva, kAnnulla}));
  schermo.tab(1);
  EXPECT_EQ(visibili(), QStringList({kSalva, kAnnulla}));
  schermo.tab(2);
  EXPECT_EQ(visibili(), QStringList({kSalvaTerza, kAnnullaTerza}));
  for (const QString& nome : {kSalva, kSalvaTerza}) {
    EXPECT_EQ(schermo.text(nome), t("Salva Modifiche"));
    EXPECT_EQ(schermo.control(nome).toolTip(),
              t("Scrive le modifiche nel file della configurazione (Ctrl+S)"));
  }
  for (const QString& nome : {kAnnulla, kAnnullaTerza}) EXPECT_EQ(schermo.text(nome), t("Annulla Modifiche"));
}

TEST_F(EditorDiCampi, OgniCoppiaDiComandiSalvaEAnnullaTutteLeSchede) {
  const GuidedForm schermo = apri();
  schermo.type(t("testo"), t("x"));
  schermo.tab(2);
  schermo.click(kSalvaTerza);
  expectBoxes(program, {});
  EXPECT_EQ(onDisk(kParametri + 27, 2), QByteArray("x\0", 2));
  schermo.click(t("stampa_SI_0"));
  schermo.tab(0);
  schermo.type(t("testo"), t("y"));
  schermo.tab(2);
  schermo.click(kAnnullaTerza);
  EXPECT_EQ(schermo.text(t("testo")), t("x"));
  EXPECT_TRUE(schermo.checked(t("stampa_NO_0")));
  EXPECT_EQ(varGestionePRG().ModificaOpzioni, kFalso);
}

TEST_F(EditorDiCampi, CtrlSSalvaDaOgniSchedaChiedendo) {
  const GuidedForm schermo = apri();
  for (const int scheda : {0, 1, 2}) {
    schermo.tab(scheda);
    const char* const campi[] = {"testo", "importo", "parola_0"};
    schermo.type(t(campi[scheda]), scheda == 2 ? t("xxxxxx") : t("7"));
    program.user.answers(Answer::Yes);
    schermo.press(Qt::Key_S, Qt::ControlModifier);
    expectBoxes(program, {kSaveQuestion});
    EXPECT_EQ(varGestionePRG().ModificaOpzioni, kFalso) << scheda;
    EXPECT_EQ(schermo.footKind(), OutcomeBar::Kind::Done) << scheda;
  }
}

TEST_F(EditorDiCampi, CtrlSColFuocoSulTastoNonChiede) {
  const GuidedForm schermo = apri();
  schermo.type(t("testo"), t("x"));
  schermo.tab(2);
  schermo.control(kSalvaTerza).setFocus();
  schermo.press(Qt::Key_S, Qt::ControlModifier);
  expectBoxes(program, {});
  EXPECT_EQ(onDisk(kParametri + 27, 2), QByteArray("x\0", 2));
}

TEST_F(EditorDiCampi, CtrlSSenzaModificheNonChiedeNulla) {
  const GuidedForm schermo = apri();
  QFile::remove(varGestionePRG().PathConfigurazione);
  schermo.press(Qt::Key_S, Qt::ControlModifier);
  expectBoxes(program, {});
  EXPECT_EQ(schermo.foot(), t("Nessuna modifica da salvare"));
  EXPECT_FALSE(QFile::exists(varGestionePRG().PathConfigurazione));
}

TEST_F(EditorDiCampi, DentroUnaCorniceCtrlSFunzionaComeDaSolo) {
  QWidget cornice;
  auto* disposizione = new QVBoxLayout(&cornice);
  auto* editor = new Prova<>(program.contesto);
  disposizione->addWidget(new QLineEdit);
  disposizione->addWidget(editor);
  cornice.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&cornice));
  auto* casella = editor->findChild<QLineEdit*>(t("testo"));
  casella->setFocus();
  QTest::keyClicks(casella, t("x"));
  program.user.answers(Answer::Yes);
  QTest::keyClick(casella, Qt::Key_S, Qt::ControlModifier);
  expectBoxes(program, {kSaveQuestion});
  EXPECT_EQ(onDisk(kParametri + 27, 2), QByteArray("x\0", 2));
}

// Checks.

TEST_F(EditorDiCampi, UnCampoSbagliatoLasciatoTornaValidoColSuoMessaggioEIlFuoco) {
  const GuidedForm schermo = apri();
  schermo.tab(1);
  schermo.type(t("numero"), t("31"));
  schermo.press(Qt::Key_Tab);
  expectBoxes(program, {warning(t("Al massimo trenta"))});
  QCoreApplication::processEvents();
  EXPECT_EQ(schermo.text(t("numero")), t("10"));
  EXPECT_EQ(schermo.focus(), t("numero"));
  EXPECT_EQ(schermo.foot(), t("Al massimo trenta"));
  EXPECT_EQ(schermo.footKind(), OutcomeBar::Kind::Warning);
}

TEST_F(EditorDiCampi, UnValoreCaricatoFuoriLimiteNonFermaChiNonLoTocca) {
  put(kParametri + 156, QByteArray("\x63"));
  const GuidedForm schermo = apri();
  EXPECT_EQ(schermo.text(t("numero")), QString::number(0x63));
  schermo.type(t("testo"), t("x"));
  schermo.click(kSalva);
  expectBoxes(program, {});
  EXPECT_EQ(onDisk(kParametri + 156, 1), QByteArray("\x63"));
  EXPECT_EQ(onDisk(kParametri + 27, 1), QByteArray("x"));
}

TEST_F(EditorDiCampi, CtrlSNelCampoSbagliatoNonSalva) {
  const GuidedForm schermo = apri();
  schermo.tab(1);
  schermo.type(t("numero"), t("99"));
  schermo.press(Qt::Key_S, Qt::ControlModifier);
  expectBoxes(program, {warning(t("Al massimo trenta"))});
  EXPECT_EQ(schermo.text(t("numero")), t("10"));
  EXPECT_EQ(onDisk(kParametri + 156, 1), QByteArray(1, '\0'));
  EXPECT_EQ(varGestionePRG().ModificaOpzioni, kVero);
}

TEST_F(EditorDiCampi, IlSalvataggioPortaAlCampoSbagliatoSullAltraScheda) {
  put(kParametri + 162, QByteArray("corto\0", 6));
  const GuidedForm schermo = apri();
  // What a programme from elsewhere holds is told once it has been touched; the other tab covers it then.
  schermo.tab(2);
  schermo.click(t("stampa_SI_0"));
  schermo.line(t("parola_0")).setText(t("brevi"));
  schermo.tab(0);
  schermo.click(kSalva);
  expectBoxes(program, {warning(t("Sei caratteri"))});
  EXPECT_EQ(schermo.tabs().currentIndex(), 2);
  EXPECT_EQ(schermo.focus(), t("parola_0"));
  EXPECT_EQ(schermo.text(t("parola_0")), t("corto")) << "what was filled in, where there is no fallback";
  EXPECT_EQ(onDisk(kLogo, 1), QByteArray(1, '\0'));
}

TEST_F(EditorDiCampi, UnCampoSegnatoESbagliatoFermaAncheLaGuardia) {
  const GuidedForm schermo = apri();
  schermo.tab(1);
  schermo.type(t("numero"), t("31"));
  EXPECT_FALSE(editors::SalvaModificati(program.contesto).salvato);
  expectBoxes(program, {warning(t("Al massimo trenta"))});
  EXPECT_EQ(onDisk(kParametri + 156, 1), QByteArray(1, '\0'));
  EXPECT_EQ(varGestionePRG().ModificaOpzioni, kVero);
}

// Marks.

TEST_F(EditorDiCampi, OgniGenereSegnaSeStessoLaSuaSchedaEIlPiede) {
  struct Modifica {
    int scheda;
    const char* campo;
    const char* nome;
    std::function<void(const GuidedForm&)> fai;
  };
  const std::vector<Modifica> modifiche{
      {0, "coppia", "Coppia", [](const GuidedForm& s) { s.click(t("coppia_SI")); }},
      {0, "lista", "Lista", [](const GuidedForm& s) { s.pick(t("lista"), 2); }},
      {0, "codici", "Codici", [](const GuidedForm& s) { s.pick(t("codici"), 2); }},
      {0, "testo", "Testo", [](const GuidedForm& s) { s.type(t("testo"), t("x")); }},
      {1, "importo", "Importo", [](const GuidedForm& s) { s.type(t("importo"), t("1")); }},
      {1, "numero", "Numero", [](const GuidedForm& s) { s.type(t("numero"), t("1")); }},
      {1, "ora", "Ora", [](const GuidedForm& s) { s.type(t("ora"), t("1")); }},
      {1, "data", "Data", [](const GuidedForm& s) { s.pick(t("mese"), 3); }},
      {1, "giorno", "Giorno", [](const GuidedForm& s) { s.pick(t("meseGiorno"), 3); }},
      {1, "perso", "Perso", [](const GuidedForm& s) { s.type(t("perso"), t("x")); }},
      {2, "parola_1", "VOCE 2, Parola", [](const GuidedForm& s) { s.type(t("parola_1"), t("dddddd")); }},
      {2, "stampa_2", "VOCE 3, Stampa", [](const GuidedForm& s) { s.click(t("stampa_SI_2")); }}};
  const GuidedForm schermo = apri();
  for (const Modifica& una : modifiche) {
    schermo.tab(una.scheda);
    una.fai(schermo);
    EXPECT_EQ(varGestionePRG().ModificaOpzioni, kVero) << una.campo;
    EXPECT_TRUE(schermo.dotted(t(una.campo))) << una.campo;
    EXPECT_EQ(schermo.dottedTabs(), QList<int>{una.scheda}) << una.campo;
    EXPECT_EQ(schermo.foot(), t("Modifiche non salvate: ") + t(una.nome)) << una.campo;
    schermo.click(una.scheda == 2 ? kAnnullaTerza : kAnnulla);
    EXPECT_EQ(varGestionePRG().ModificaOpzioni, kFalso) << una.campo;
    EXPECT_FALSE(schermo.dotted(t(una.campo))) << una.campo;
    EXPECT_EQ(schermo.dottedTabs(), QList<int>()) << una.campo;
    EXPECT_EQ(schermo.foot(), t("Modifiche annullate: ") + t(una.nome)) << una.campo;
  }
}

TEST_F(EditorDiCampi, IlPiedeNominaAlMassimoTreCampi) {
  const GuidedForm schermo = apri();
  const auto piede = [&] { return schermo.foot(); };
  schermo.type(t("testo"), t("x"));
  EXPECT_EQ(piede(), t("Modifiche non salvate: Testo"));
  schermo.click(t("coppia_SI"));
  EXPECT_EQ(piede(), t("Modifiche non salvate: Coppia; Testo"));
  schermo.type(t("segreto"), t("x"));
  EXPECT_EQ(piede(), t("Modifiche non salvate: Coppia; Testo; Segreto"));
  schermo.type(t("rifilato"), t("x"));
  EXPECT_EQ(piede(), t("Modifiche non salvate: Coppia; Testo; Rifilato e un altro"));
  schermo.pick(t("lista"), 1);
  EXPECT_EQ(piede(), t("Modifiche non salvate: Coppia; Lista; Testo e altri 2"));
}

TEST_F(EditorDiCampi, UnaSchedaModificataLoDiceAncheAParole) {
  const GuidedForm schermo = apri();
  schermo.tab(1);
  schermo.type(t("importo"), t("1"));
  EXPECT_EQ(schermo.tabs().tabToolTip(1), t("Qui ci sono modifiche non salvate"));
  EXPECT_EQ(schermo.tabs().tabToolTip(0), QString());
  EXPECT_EQ(schermo.control<QLabel>("Punto_importo").toolTip(), t("Modificato, non ancora salvato"));
  EXPECT_EQ(schermo.control<QLabel>("Punto_importo").accessibleName(), t("modificato"));
}

TEST_F(EditorDiCampi, GuardareEPassareColTabulatoreNonModificaNulla) {
  const GuidedForm schermo = apri();
  for (const int scheda : {0, 1, 2}) {
    schermo.tab(scheda);
    giro(schermo, 25);
  }
  schermo.click(t("stampa_NO_0"));
  EXPECT_EQ(varGestionePRG().ModificaOpzioni, kFalso);
  EXPECT_EQ(schermo.dottedTabs(), QList<int>());
  expectBoxes(program, {});
}

TEST_F(EditorDiCampi, IlPuntoNonSpostaNulla) {
  const GuidedForm schermo = apri();
  const QRect prima = schermo.line(t("testo")).geometry();
  schermo.type(t("testo"), t("x"));
  QCoreApplication::processEvents();
  EXPECT_EQ(schermo.line(t("testo")).geometry(), prima);
}

TEST_F(EditorDiCampi, LaRotellaNonCambiaUnaListaSenzaFuoco) {
  const GuidedForm schermo = apri();
  schermo.pick(t("lista"), 1);
  schermo.click(kAnnulla);
  QWidget& lista = schermo.control("lista");
  const QPointF centro = lista.rect().center();
  QWheelEvent rotella(centro, lista.mapToGlobal(centro), {}, QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(&lista, &rotella);
  EXPECT_EQ(schermo.control<QComboBox>("lista").currentIndex(), 0);
  EXPECT_EQ(varGestionePRG().ModificaOpzioni, kFalso);
}

TEST_F(EditorDiCampi, LaRotellaNonCambiaNemmenoUnaData) {
  const GuidedForm schermo = apri();
  schermo.tab(1);
  for (const char* nome : {"data", "mese", "anno", "giorno", "meseGiorno"}) {
    auto& lista = schermo.control<QComboBox>(nome);
    const int prima = lista.currentIndex();
    const QPointF centro = lista.rect().center();
    QWheelEvent rotella(centro, lista.mapToGlobal(centro), {}, QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                        Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&lista, &rotella);
    EXPECT_EQ(lista.currentIndex(), prima) << nome;
  }
}

// Typing.

TEST_F(EditorDiCampi, ScrivendoInMezzoAlTestoIlCursoreRestaLi) {
  const GuidedForm schermo = apri();
  schermo.type(t("testo"), t("abef"));
  schermo.press(Qt::Key_Left);
  schermo.press(Qt::Key_Left);
  QTest::keyClicks(&schermo.line(t("testo")), t("cd"));
  EXPECT_EQ(schermo.text(t("testo")), t("abcdef"));
  EXPECT_EQ(schermo.line(t("testo")).cursorPosition(), 4);
  schermo.press(Qt::Key_Home);
  schermo.press(Qt::Key_Delete);
  QTest::keyClicks(&schermo.line(t("testo")), t("XY"));
  EXPECT_EQ(schermo.text(t("testo")), t("XYbcdef"));
}

TEST_F(EditorDiCampi, IlConteggioStaAccantoMentreSiScriveEPoiVaVia) {
  const GuidedForm schermo = apri();
  const auto& conta = schermo.control<QLabel>("Conta_testo");
  EXPECT_FALSE(conta.isVisible());
  schermo.type(t("testo"), t("abcde"));
  EXPECT_TRUE(conta.isVisible());
  EXPECT_EQ(conta.text(), t("5/10"));
  schermo.press(Qt::Key_Backspace);
  EXPECT_EQ(conta.text(), t("4/10"));
  schermo.type(t("rifilato"), t("a"));
  EXPECT_FALSE(conta.isVisible());
  schermo.tab(1);
  schermo.type(t("numero"), t("1"));
  EXPECT_FALSE(schermo.control<QLabel>("Conta_numero").isVisible());
}

TEST_F(EditorDiCampi, UnTestoPienoLoDiceSotto) {
  const GuidedForm schermo = apri();
  schermo.type(t("testo"), t("0123456789X"));
  EXPECT_EQ(schermo.text(t("testo")), t("0123456789"));
  EXPECT_EQ(schermo.hint(t("testo")), t("Al massimo 10 caratteri"));
}

TEST_F(EditorDiCampi, UnTestoPiuLungoDelLimiteNelFileSiLeggeTuttoESiSalvaTagliato) {
  put(kParametri + 27, QByteArray("quindici lettere\0zzzzzzzz", 25));
  const GuidedForm schermo = apri();
  EXPECT_EQ(schermo.text(t("testo")), t("quindici lettere"));
  schermo.click(t("coppia_SI"));
  schermo.click(kSalva);
  EXPECT_EQ(onDisk(kParametri + 27, 25), QByteArray("quindici l\0ttere\0zzzzzzzz", 25));
}

// Its library, and its way around.

namespace {

class EditorSenzaLibreria : public ConfigurationWithoutLibrary {
 protected:
  EditorSenzaLibreria() {
    program.screens.registra(kSchermo, [](Contesto& c) { return new Prova<>(c); });
    put(kParametri + 27, "dieci");
    put(kParametri + 135, "\1\2\3\4");
    put(kParametri + 162, "aaaaaa");
  }
};

}  // namespace

TEST_F(EditorSenzaLibreria, SiDiceUnaVoltaEGliAltriCampiSiRiempiono) {
  const GuidedForm schermo(program, kSchermo);
  expectFailure(program, 53, "RiempiProva", "Form_OpzioniGen");
  EXPECT_EQ(schermo.text(t("testo")), t("dieci"));
  EXPECT_EQ(schermo.text(t("parola_0")), t("aaaaaa"));
  EXPECT_EQ(schermo.text(t("ora")), QString());
  EXPECT_EQ(schermo.control<QComboBox>("data").currentIndex(), -1);
  EXPECT_EQ(schermo.control<QComboBox>("giorno").currentIndex(), -1);
  EXPECT_EQ(varGestionePRG().ModificaOpzioni, kFalso);
}

TEST_F(EditorSenzaLibreria, UnSalvataggioNonScriveOreInventate) {
  const QByteArray prima = program.folder.read(t("negozio.dat"));
  const GuidedForm schermo(program, kSchermo);
  program.takeBoxes();
  schermo.type(t("testo"), t("x"));
  schermo.click(kSalva);
  expectFailure(program, 53, "Cmd_Modifica_Click", "Form_OpzioniGen");
  EXPECT_TRUE(program.folder.read(t("negozio.dat")) == prima);
  EXPECT_EQ(varGestionePRG().ModificaOpzioni, kVero);
  EXPECT_TRUE(schermo.dotted(t("testo")));
  EXPECT_EQ(config::leggiTesto(config::immagineProgrammazione().record(config::kParametri, 0),
                               {"testo", 27, 25, config::Tipo::CampoTesto, 10}),
            t("dieci"));
}

TEST_F(EditorDiCampi, IlTabulatoreSegueLaTabellaESiFermaUnaVoltaPerCoppia) {
  const GuidedForm schermo = apri();
  schermo.control("coppia_NO").setFocus();
  EXPECT_EQ(giro(schermo, 9), QStringList({t("coppia_NO"), t("lista"), t("codici"), t("prima"), t("testo"),
                                           t("rifilato"), t("segreto"), kSalva, kAnnulla}));
}

TEST_F(EditorDiCampi, LaCoppiaSiCambiaConLeFrecceELaFermataLaSegue) {
  const GuidedForm schermo = apri();
  schermo.control("coppia_NO").setFocus();
  schermo.press(Qt::Key_Left);
  EXPECT_TRUE(schermo.checked(t("coppia_SI")));
  EXPECT_EQ(varGestionePRG().ModificaOpzioni, kVero);
  schermo.press(Qt::Key_Tab);
  EXPECT_EQ(schermo.focus(), t("lista"));
  schermo.press(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(schermo.focus(), t("coppia_SI"));
}

TEST_F(EditorDiCampi, NellaSerieSiVaRigaPerRiga) {
  const GuidedForm schermo = apri();
  schermo.tab(2);
  schermo.line(t("parola_0")).setFocus();
  EXPECT_EQ(giro(schermo, 8), QStringList({t("parola_0"), t("stampa_NO_0"), t("parola_1"), t("stampa_NO_1"),
                                           t("parola_2"), t("stampa_NO_2"), kSalvaTerza, kAnnullaTerza}));
}

TEST_F(EditorDiCampi, LaPrimaRigaDiUnaSerieSiVedeENonSiSalva) {
  const QByteArray prima = onDisk(0, kFile);
  const GuidedForm schermo = apri();
  schermo.tab(2);
  EXPECT_EQ(schermo.text(t("testa")), t("da vedere"));
  EXPECT_TRUE(schermo.line(t("testa")).isReadOnly());
  const QStringList scritte = schermo.labels();
  for (const char* una : {"Voci", "VOCE 0", "VOCE 1", "VOCE 2", "VOCE 3", "Parola", "Stampa"})
    EXPECT_EQ(scritte.count(t(una)), 1) << una;
  schermo.click(t("stampa_SI_0"));
  schermo.click(kSalvaTerza);
  EXPECT_EQ(onDisk(0, kFile), QByteArray(prima).replace(kLogo, 1, "\1"));
}

TEST_F(EditorDiCampi, OgniCampoHaDidascaliaNotaESuggerimento) {
  const GuidedForm schermo = apri();
  EXPECT_EQ(schermo.caption(t("testo")), t("Testo"));
  EXPECT_EQ(schermo.control<QLabel>("Etichetta_testo").buddy(), &schermo.line(t("testo")));
  EXPECT_EQ(schermo.text(t("Nota_testo")), t("spiegato sotto"));
  EXPECT_EQ(schermo.line(t("testo")).toolTip(), t("Fino a 10 caratteri"));
  EXPECT_EQ(schermo.line(t("testo")).accessibleName(), t("Testo"));
  EXPECT_EQ(schermo.line(t("testo")).accessibleDescription(), t("spiegato sotto"));
  EXPECT_EQ(schermo.text(t("coppia_SI")), t("Acceso"));
  EXPECT_EQ(schermo.control("coppia_NO").accessibleName(), t("Coppia, Spento"));
  EXPECT_EQ(schermo.control("mese").accessibleName(), t("Data, mese"));
  EXPECT_EQ(schermo.control("parola_1").accessibleName(), t("VOCE 2, Parola"));
  EXPECT_EQ(schermo.control("CartaSotto").property("card").toBool(), true);
}

// Its looks.

namespace {

/// The best contrast that is painted inside `dove` with the ground at its lower right corner.
double contrastoDipinto(QWidget& chi, const QRect& dove, const QColor& fondo) {
  const QImage dipinto = chi.grab().toImage();
  double migliore = 1;
  for (int y = dove.top(); y <= dove.bottom(); ++y)
    for (int x = dove.left(); x <= dove.right(); ++x)
      migliore = std::max(migliore, contrast::between(dipinto.pixelColor(x, y), fondo));
  return migliore;
}

class SegniDelModulo : public EditorDiCampi, public testing::WithParamInterface<bool> {
 protected:
  SegniDelModulo() {
    style::apply(*qApp, GetParam() ? style::Theme::Dark : style::Theme::Light);
    program.screens.registra(t("Cornici"), [](Contesto& c) { return new Prova<editors::Segno::Cornice>(c); });
  }
  ~SegniDelModulo() override {
    program.screens.scaricaTutte();
    qApp->setStyleSheet({});
    QApplication::setPalette(prima_);
  }
  QPalette prima_ = QApplication::palette();
};

}  // namespace

TEST_P(SegniDelModulo, IlTestoSulCampoSegnatoSiLegge) {
  const GuidedForm schermo = apri();
  const QColor prima = schermo.ground(t("testo"));
  schermo.type(t("testo"), t("MMMM"));
  schermo.press(Qt::Key_Tab);
  QLineEdit& casella = schermo.line(t("testo"));
  const QColor fondo = schermo.ground(t("testo"));
  EXPECT_NE(fondo, prima);
  if (!GetParam()) {
    EXPECT_EQ(fondo, kGiallo);
  }
  EXPECT_NEAR(fondo.hslHue(), 60, 3) << "the yellow that shops know, lighter or darker";
  EXPECT_GE(contrastoDipinto(casella, casella.rect().adjusted(3, 3, -3, -3), fondo), contrast::kReadable);
}

TEST_P(SegniDelModulo, LaDidascaliaEIBottoniSullaCorniceSegnataSiLeggono) {
  const GuidedForm schermo(program, t("Cornici"));
  schermo.click(t("coppia_SI"));
  schermo.click(kSalva);
  schermo.click(t("coppia_NO"));
  schermo.type(t("testo"), t("x"));
  for (const char* nome : {"Cornice_coppia", "Cornice_testo"}) {
    QWidget& cornice = schermo.control(nome);
    QCoreApplication::processEvents();
    const QImage dipinta = cornice.grab().toImage();
    const QColor fondo = dipinta.pixelColor(dipinta.width() / 2, 2);
    EXPECT_NEAR(fondo.hslHue(), 60, 3) << nome;
    for (QWidget* scritta : cornice.findChildren<QWidget*>()) {
      const auto* etichetta = qobject_cast<QLabel*>(scritta);
      const bool bottone = qobject_cast<QRadioButton*>(scritta) != nullptr;
      if (!scritta->isVisible() || !(etichetta || bottone)) continue;
      QRect dove(scritta->mapTo(&cornice, QPoint()), scritta->size());
      // The sign of a button has colours of its own.
      if (bottone) dove.adjust(scritta->height(), 0, 0, 0);
      EXPECT_GE(contrastoDipinto(cornice, dove.intersected(cornice.rect()), fondo), contrast::kReadable)
          << nome << " " << scritta->objectName().toStdString();
    }
  }
  const QColor casella = schermo.ground(t("testo"));
  EXPECT_FALSE(casella.hslSaturation() > 200 && std::abs(casella.hslHue() - 60) < 5)
      << "the line inside keeps its own ground";
}

TEST_P(SegniDelModulo, AncheIlCampoSbagliatoSiLegge) {
  const GuidedForm schermo = apri();
  schermo.type(t("testo"), t("MMMM"));
  auto* campo = schermo.window().findChild<editors::CampoModulo*>(t("Cornice_testo"));
  ASSERT_NE(campo, nullptr);
  campo->segnaSbagliato();
  schermo.press(Qt::Key_Tab);
  QLineEdit& casella = schermo.line(t("testo"));
  const QColor fondo = schermo.ground(t("testo"));
  EXPECT_NEAR(fondo.hslHue(), 60, 3);
  EXPECT_GE(contrastoDipinto(casella, casella.rect().adjusted(4, 4, -4, -4), fondo), contrast::kReadable);
  const QImage dipinta = casella.grab().toImage();
  EXPECT_EQ(dipinta.pixelColor(0, dipinta.height() / 2), QColor(0xFF, 0x80, 0x80));
}

TEST_P(SegniDelModulo, TuttoStaADodiciPuntiSu1024Per768) {
  expectTabsFitAtTwelvePoints(apri());
}

INSTANTIATE_TEST_SUITE_P(ChiaroEScuro, SegniDelModulo, testing::Bool(),
                         [](const auto& una) { return una.param ? "Scuro" : "Chiaro"; });

TEST_F(EditorDiCampi, UnComandoPrimarioSoloPerScheda) {
  const GuidedForm schermo = apri();
  for (const int scheda : {0, 1, 2}) {
    schermo.tab(scheda);
    QStringList primari;
    for (const QPushButton* tasto : schermo.window().findChildren<QPushButton*>())
      if (tasto->isVisible() && tasto->property("primary").toBool()) primari << tasto->objectName();
    EXPECT_EQ(primari, QStringList{scheda == 2 ? kSalvaTerza : kSalva});
  }
}

TEST_F(EditorDiCampi, LePagineScorronoEIlPiedeResta) {
  const GuidedForm schermo = apri();
  schermo.tab(2);
  schermo.window().resize(schermo.window().width(), 200);
  QCoreApplication::processEvents();
  const QRect piede(schermo.control("BarraEsito").mapTo(&schermo.window(), QPoint()),
                    schermo.control("BarraEsito").size());
  EXPECT_TRUE(schermo.window().rect().contains(piede));
  EXPECT_TRUE(schermo.control(kSalvaTerza).isVisible());
}
