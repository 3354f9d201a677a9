#include "editors/Form_OpzioniGen.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QFile>
#include <QFrame>
#include <QMap>
#include <functional>

#include "core/state.h"
#include "editors/changes.h"
#include "editors/guided_fields.h"

namespace {

const QString kSchermo = QStringLiteral("Form_OpzioniGen");
const QString kSalva = QStringLiteral("Cmd_Modifica");

// First bytes of the options and of the calendar in the file.
constexpr qsizetype kOpzioni = 244566;
constexpr qsizetype kCalendario = 244994;
constexpr qsizetype kByteVoce = 10;
constexpr qsizetype kByteFile = 245114;
constexpr qsizetype kRevisione = kOpzioni + 22;
constexpr qsizetype kPassword = kOpzioni + 127;
constexpr qsizetype kTempo = kOpzioni + 135;
constexpr qsizetype kBeep = kOpzioni + 140;
constexpr qsizetype kTavoli = kOpzioni + 160;
constexpr qsizetype kTallon = kOpzioni + 161;
constexpr qsizetype kAlternativoA = kOpzioni + 362;
constexpr qsizetype kAlternativoB = kOpzioni + 388;

enum Scheda { kPeriferiche, kScontrino, kVarie, kAltre, kGestioneTallon };

const QColor kGrigio(0xE0, 0xE0, 0xE0);
const QColor kRosso(0xFF, 0, 0);

const Box kSeiCaratteri = warning(t("Attenzione la password deve essere di 6 caratteri !!!"));
const Box kOreMassime =
    warning(t("L'ora immessa e' > 23. L'intervallo del tempo di azzeramento (000000-235959)"));
const Box kMinutiMassimi = warning(t("L'ora immessa e' > 59. Formato tempo per l'azzermento 235959"));
const Box kSecondiMassimi = warning(t("L'ora immessa e' > 59. Formato tempo per l'azzeremento 235959"));
const Box kNonNumerico = warning(t("Attenzione il valore immesso non è di tipo numerico !!!"));
const Box kInizioDopoLaFine = warning(t("Attenzione la Data di Inizio maggiore della Data di Fine !!!"));
const Box kDateRosse = warning(t("Attenzione controllare le date colorate in rosso: non sono corrette !!!"));
const Box kTrentaGiorni = criticalBox(t("ATTENZIONE Errore il mese inserito e' di 30 giorni "));
const Box kVentottoGiorni = criticalBox(t("ATTENZIONE Errore febbraio è di 28 giorni"));

QByteArray intero(std::uint32_t valore) {
  QByteArray byte;
  for (int i = 0; i < 4; ++i) byte += static_cast<char>(valore >> (8 * i) & 0xFF);
  return byte;
}

/// The till's number of a day: thirteen months of thirty-two days a year, in seconds.
QByteArray giorno(std::uint32_t quale, std::uint32_t mese, std::uint32_t anno = 0) {
  return intero(((anno * 13 + mese) * 32 + quale) * 86400U);
}

/// All zero but for a password, the lines of a body, texts of one's own and the TALLON, so that every field
/// is open and may be left.
class OpzioniGenerali : public ConfigurationOpen {
 protected:
  OpzioniGenerali() {
    program.screens.registra<Form_OpzioniGen>();
    put(kPassword, "111111");
    put(kOpzioni + 144, QByteArray(1, '\x0A'));
    put(kTallon, QByteArray(1, '\1'));
    put(kAlternativoA, QByteArray(1, '\1'));
    put(kAlternativoB, QByteArray(1, '\1'));
  }
  GuidedFields apri() { return GuidedFields(program, kSchermo); }
  QByteArray tutto() const { return onDisk(0, kByteFile); }
  static void accendiBeep(const GuidedFields& schermo) { schermo.clickOn(t("vkOptionButtonBeep_SI")); }
  static QString cornice(const GuidedFields& schermo, const QString& campo) {
    return schermo.control<QFrame>(QStringLiteral("Cornice_") + campo).styleSheet();
  }
  static QString nota(const GuidedFields& schermo, const char* campo) {
    return schermo.text(QStringLiteral("Nota_") + QLatin1String(campo));
  }
  static QColor sfondo(const GuidedFields& schermo, const QString& lista) {
    return schermo.list(lista).palette().color(QPalette::Button);
  }
  /// What is painted beside the text of a list.
  static QColor fondoDipinto(const GuidedFields& schermo, const QString& lista) {
    const QImage dipinta = schermo.list(lista).grab().toImage();
    return dipinta.pixelColor(dipinta.width() / 2, 5);
  }
  /// Grounds of a row's two pairs.
  static void expectSfondi(const GuidedFields& schermo, int riga, const QColor& inizio, const QColor& fine) {
    const QString coda = QStringLiteral("_%1").arg(riga);
    EXPECT_EQ(sfondo(schermo, t("CmbGiorno") + coda), inizio) << riga;
    EXPECT_EQ(sfondo(schermo, t("CmbMese") + coda), inizio) << riga;
    EXPECT_EQ(sfondo(schermo, t("CmbGiornoFine") + coda), fine) << riga;
    EXPECT_EQ(sfondo(schermo, t("CmbMeseFine") + coda), fine) << riga;
  }
  static void scegli(const GuidedFields& schermo, const QString& lista, int posizione) {
    if (schermo.list(lista).currentIndex() != posizione) schermo.choose(lista, posizione);
  }
  /// Day and month of one pair of the calendar, by their numbers.
  static void scegliGiorno(const GuidedFields& schermo, const char* quale, int riga, int giorno, int mese) {
    const QString coda = QLatin1String(quale) + QStringLiteral("_%1").arg(riga);
    scegli(schermo, t("CmbGiorno") + coda, giorno - 1);
    scegli(schermo, t("CmbMese") + coda, mese - 1);
  }
  static void inizio(const GuidedFields& schermo, int riga, int giorno, int mese) {
    scegliGiorno(schermo, "", riga, giorno, mese);
  }
  static void fine(const GuidedFields& schermo, int riga, int giorno, int mese) {
    scegliGiorno(schermo, "Fine", riga, giorno, mese);
  }
  void apriIlCalendario(const QByteArray& daQuando, const QByteArray& aQuando) {
    for (int riga = 0; riga < 12; ++riga) put(kCalendario + riga * kByteVoce + 1, daQuando + aQuando);
  }
};

}  // namespace

// What stands on it.

TEST_F(OpzioniGenerali, TitoloESchede) {
  const GuidedFields schermo = apri();
  EXPECT_EQ(schermo.window().windowTitle(), t("Opzioni Generali"));
  EXPECT_EQ(schermo.tabTitles(), QStringList({t("Periferiche"), t("Informazioni per Scontrino"), t("Varie"),
                                              t("Altre"), t("Gestione TALLON")}));
  EXPECT_EQ(schermo.foot(), QString());
  EXPECT_EQ(varGestionePRG().ModificaOpzioni, kFalso);
}

namespace {

struct Comandi {
  int scheda;
  const char* salva;
  const char* annulla;
};
const std::vector<Comandi> kComandi{{kPeriferiche, "vkCommand_SalvaPerif", "vkCommand_AnnullaPerf"},
                                    {kScontrino, "Cmd_Modifica", "Cmd_Reset"},
                                    {kVarie, "vkCommand_SalvaVarie", "vkCommand_AnnullaVarie"},
                                    {kAltre, "vkCommand1", "vkCommand2"},
                                    {kGestioneTallon, "vkCommand5", "vkCommand6"}};

}  // namespace

TEST_F(OpzioniGenerali, OgniSchedaHaISuoiDueComandi) {
  const GuidedFields schermo = apri();
  for (const Comandi& suoi : kComandi) {
    schermo.tab(suoi.scheda);
    EXPECT_EQ(schermo.seen(t("Salva Modifiche")).objectName(), QLatin1String(suoi.salva));
    EXPECT_EQ(schermo.seen(t("Annulla Modifiche")).objectName(), QLatin1String(suoi.annulla));
  }
}

TEST_F(OpzioniGenerali, IlSalvaDiOgniSchedaSalvaTutteLeSchede) {
  const GuidedFields schermo = apri();
  char valore = '\0';
  for (const Comandi& suoi : kComandi) {
    valore = valore == '\0' ? '\1' : '\0';
    schermo.clickOn(valore == '\1' ? t("vkOptionButtonBeep_SI") : t("vkOptionButtonBeep_NO"));
    schermo.tab(suoi.scheda);
    schermo.click(QLatin1String(suoi.salva));
    EXPECT_EQ(onDisk(kBeep, 1), QByteArray(1, valore)) << suoi.salva;
    EXPECT_EQ(varGestionePRG().ModificaOpzioni, kFalso) << suoi.salva;
    EXPECT_EQ(schermo.foot(), t("Salvato: opzioni generali")) << suoi.salva;
  }
  expectBoxes(program, {});
}

TEST_F(OpzioniGenerali, LAnnullaDiOgniSchedaRimetteTutteLeSchede) {
  const GuidedFields schermo = apri();
  for (const Comandi& suoi : kComandi) {
    accendiBeep(schermo);
    schermo.tab(suoi.scheda);
    schermo.click(QLatin1String(suoi.annulla));
    EXPECT_TRUE(schermo.checked(t("vkOptionButtonBeep_NO"))) << suoi.annulla;
    EXPECT_EQ(varGestionePRG().ModificaOpzioni, kFalso) << suoi.annulla;
    EXPECT_EQ(schermo.foot(), t("Modifiche annullate: Abilitazione Beep")) << suoi.annulla;
  }
}

TEST_F(OpzioniGenerali, LeDidascalieDelleCoppie) {
  const GuidedFields schermo = apri();
  const std::vector<std::tuple<const char*, const char*, int>> coppie{
      {"vkOptionButtonObblOpe", "Obbligo Operatore", kScontrino},
      {"vkOptionButtonObblSub", "Obbligo Subtotale", kScontrino},
      {"vkOptionButtonAzzGest", "Azzeramento gestionale", kVarie},
      {"vkOptionButtonQtUnit", "Quantita' Unitaria", kScontrino},
      {"vkOptionButtonNumArt", "Numero articoli", kScontrino},
      {"vkOptionButtonCent", "Vendita in Centesimi", kScontrino},
      {"vkOptionButtonDatario", "Datario", kScontrino},
      {"vkOptionButtonInfoGest", "Info gestionale", kScontrino},
      {"vkOptionButtonTxFooter", "Tx Footer", kScontrino},
      {"vkOptionButtonBeep", "Abilitazione Beep ", kVarie},
      {"vkOptionButtonDoppiaCopia", "Abilitazione Doppia Copia", kScontrino},
      {"vkOptionButton_OpenCassetto", "Apertura Cassetto", kPeriferiche},
      {"vkOptionButtonScoDiffAbil", "Stampa Differita Scontrino", kScontrino},
      {"vkOptionButtonOraLegale", "Abilitazione Ora Legale ", kVarie},
      {"vkOptionButtonOperatorePerScontrino", "Operatore per scontrino", kScontrino},
      {"vkOptionButton_fatt_mens_sintetica", "Fattura mensile sintetica", kScontrino},
      {"vkOptionButtonTagl", "Taglierina", kPeriferiche},
      {"vkOptionButton_echoCOM1", "echo", kPeriferiche},
      {"vkOptionButton_echoCOM2", "echo", kPeriferiche},
      {"vkOptionButtonTM295_Intest_ESER", "Stampa Intestazione esercente", kPeriferiche},
      {"vkOptionButtonTM295_Intest_CLIE", "Stampa Intestazione Cliente", kPeriferiche},
      {"vkOptionButtonMARK_PAVO", "Abilitazione MARK", kPeriferiche},
      {"vkOptionButtonCUTTER_PAVO", "Abilitazione CUTTER", kPeriferiche},
      {"vkOptionButton_TALLON", "Tallon", kGestioneTallon}};
  for (const auto& [controllo, didascalia, scheda] : coppie) {
    const QString nome = QLatin1String(controllo);
    EXPECT_EQ(schermo.caption(nome), t(didascalia));
    EXPECT_EQ(schermo.text(nome + t("_SI")), t("SI")) << controllo;
    EXPECT_EQ(schermo.text(nome + t("_NO")), t("NO")) << controllo;
    EXPECT_TRUE(schermo.tabs().widget(scheda)->isAncestorOf(&schermo.control(nome + t("_SI")))) << controllo;
  }
  for (const char* const tipo : {"vkOptionButtonSconto", "vkOptionButtonScontoB"}) {
    EXPECT_EQ(schermo.text(QLatin1String(tipo) + t("_SI")), t("Maggiorazione"));
    EXPECT_EQ(schermo.text(QLatin1String(tipo) + t("_NO")), t("Sconto"));
  }
}

TEST_F(OpzioniGenerali, LeDidascalieDeiCampiELeNoteAccanto) {
  const GuidedFields schermo = apri();
  for (const auto& [campo, didascalia] :
       std::vector<std::pair<const char*, const char*>>{{"vkTextBox_repsconto", "Percent. Sconto"},
                                                        {"vkTextBox_repscontoB", "Percent. Sconto"},
                                                        {"vkTextBoxDescrizioneTipoPercA", "Descrizione"},
                                                        {"vkTextBoxDescrizioneTipoPercB", "Descrizione"},
                                                        {"vkTextBoxMaxImporto", "Importo"},
                                                        {"vkTextBoxNumdaShift", "Valore"},
                                                        {"vkTextBox_nlinee_skip", "Linee vuote"},
                                                        {"vkTextBox_nlinee_body", "Num. linee"},
                                                        {"vkTextBox_Password", "Password"},
                                                        {"vkTextBoxTempoAzz", "Tempo Azzeramento"}})
    EXPECT_EQ(schermo.caption(QLatin1String(campo)), t(didascalia)) << campo;
  EXPECT_EQ(nota(schermo, "vkTextBoxNumdaShift"), t("valore compreso tra 0 e 40"));
  EXPECT_EQ(nota(schermo, "vkTextBox_nlinee_body"), t("intervallo [10....99]"));
  EXPECT_EQ(nota(schermo, "vkTextBox_Password"), t("deve essere di 6 caratteri"));
  EXPECT_EQ(nota(schermo, "vkTextBoxTempoAzz"), t("max 6 caratteri formato HHMMSS es. 122534"));
}

TEST_F(OpzioniGenerali, ITitoliDeiRiquadriELeRigheDelleSerie) {
  const GuidedFields schermo = apri();
  const std::vector<std::pair<int, QStringList>> attesi{
      {kPeriferiche, {t("COM 1"), t("COM 3")}},
      {kScontrino, {t("Max Importo in Vendita")}},
      {kVarie,
       {t("Num reparti da shiftare"), t("TICKET"), t("SUBTENDER 2"), t("SUBTENDER 3"), t("SUBTENDER 4")}},
      {kAltre,
       {t("Data Inizio"), t("Data Fine"), t("Logo intestazione"), t("Merceologico"), t("Natale"), t("Pasqua"),
        t("Festa della Mamma"), t("Festa del papà"), t("Festa della donna"), t("Vacanze"), t("Carnevale"),
        t("San Valentino"), t("1° Promozione"), t("2° Promozione")}},
      {kGestioneTallon,
       {t("TALLON 1"), t("TALLON 2"), t("TALLON 3"), t("TALLON 4"), t("TALLON 5"), t("TALLON 6"),
        t("TALLON 7"), t("TALLON 8")}}};
  for (const auto& [scheda, scritte] : attesi) {
    schermo.tab(scheda);
    const QStringList viste = schermo.labels();
    for (const QString& una : scritte) EXPECT_TRUE(viste.contains(una)) << una.toStdString();
  }
}

TEST_F(OpzioniGenerali, LeVociDelleListe) {
  const GuidedFields schermo = apri();
  const QStringList apparati{t("NESSUNO"),
                             t("XON/XOFF"),
                             t("LETTORE-CF"),
                             t("LETTORE-EAN"),
                             t("MODEM"),
                             t("STAMPANTE EPSON-TM295"),
                             t("STAMPANTE Qz-RX40T"),
                             t("STAMPANTE PAVO")};
  const QStringList velocita{t("4800"), t("9600"), t("19200"), t("38400")};
  const std::vector<std::pair<const char*, QStringList>> liste{
      {"ComboCOM1", apparati},
      {"ComboCOM2", apparati},
      {"ComboVelCOM1", velocita},
      {"ComboVelCOM2", velocita},
      {"ComboPrinterAUXFatture", {t("Nessuna"), t("EPSON-TM295"), t("LITE"), t("PAVO")}},
      {"ComboPrinterAuxTavoli", {t("Nessuna"), t("EPSON-TM295"), t("LITE")}},
      {"ComboModAzz", {t("Disabilitato"), t("Segnalazione"), t("Automatico")}},
      {"ComboTipoAzz", {t("azz. fiscale"), t("azz. gio+rep"), t("azz. gio+ iva")}}};
  const auto voci = [&](const QString& nome) {
    QStringList queste;
    for (int i = 0; i < schermo.list(nome).count(); ++i) queste << schermo.list(nome).itemText(i);
    return queste;
  };
  for (const auto& [lista, attese] : liste) EXPECT_EQ(voci(QLatin1String(lista)), attese) << lista;
  EXPECT_EQ(voci(t("Combo_velocita_stampante")).size(), 4);
  EXPECT_EQ(voci(t("Combo_GG_REV")).size(), 31);
  EXPECT_EQ(voci(t("Combo_MM_REV")).size(), 12);
  const QStringList anni = voci(t("Combo_AA_REV"));
  EXPECT_EQ(anni.size(), 101);
  EXPECT_EQ(anni.front(), t("2000"));
  EXPECT_EQ(anni.back(), t("2100"));
}

TEST_F(OpzioniGenerali, UnaListaSenzaVoceDiceChecosELei) {
  put(kOpzioni + 134, QByteArray(1, '\x09'));
  const GuidedFields schermo = apri();
  EXPECT_EQ(schermo.list(t("ComboModAzz")).currentIndex(), -1);
  EXPECT_EQ(schermo.list(t("ComboModAzz")).placeholderText(), t("mode azzeramento"));
  EXPECT_EQ(schermo.list(t("ComboTipoAzz")).placeholderText(), t("tipo azzeramento"));
}

TEST_F(OpzioniGenerali, LaPasswordNonSiVedeEITestiSiFermanoAlLoroLimite) {
  const GuidedFields schermo = apri();
  EXPECT_EQ(schermo.line(t("vkTextBox_Password")).echoMode(), QLineEdit::Password);
  EXPECT_EQ(schermo.line(t("vkTextBox_Password")).displayText().size(), 6);
  EXPECT_FALSE(schermo.line(t("vkTextBox_Password")).displayText().contains(u'1'));
  for (const auto& [campo, limite] :
       std::vector<std::pair<const char*, int>>{{"vkTextBoxDescrizioneTipoPercA", 24},
                                                {"vkTextBoxDescrizioneTipoPercB", 24},
                                                {"vkTextBox_Tallon_0", 14},
                                                {"vkTextBox_Tallon_7", 14},
                                                {"vkTextBox_Subtender_1", 10},
                                                {"vkTextBox_Subtender_3", 10}}) {
    schermo.write(QLatin1String(campo), QString(limite + 1, u'A'));
    EXPECT_EQ(schermo.line(QLatin1String(campo)).text(), QString(limite, u'A')) << campo;
    EXPECT_EQ(schermo.hint(QLatin1String(campo)), QStringLiteral("Al massimo %1 caratteri").arg(limite));
  }
  EXPECT_TRUE(schermo.line(t("vkTextBox_Subtender_0")).isReadOnly());
}

TEST_F(OpzioniGenerali, UnTempoSalvatoSiLeggeSenzaSegniTraLeOre) {
  put(kTempo, intero(3723));
  const GuidedFields schermo = apri();
  EXPECT_EQ(schermo.text(t("vkTextBoxTempoAzz")), t("010203"));
}

// Leaving a field.

namespace {

struct Uscita {
  const char* campo;
  const char* tasti;
  /// Empty for a text that may stay.
  const char* messaggio;
  /// What stands there afterwards.
  const char* resta;
};
void PrintTo(const Uscita& uscita, std::ostream* dove) {
  *dove << uscita.campo << " " << uscita.tasti;
}

constexpr const char* kNumerico = "Attenzione il valore immesso non è di tipo numerico !!!";
constexpr const char* kOltreA = "Attenzione il valore Perc. Conto immesso > 99.99!!!";
constexpr const char* kOltreB = "Attenzione il valore Perc. Conto B immesso > 99.99!!!";
constexpr const char* kOltreImporto = "Attenzione il valore Max Importo immesso > 99999.99!!!";
constexpr const char* kShift = "L'intervallo num shift di reparti (0-20)";
constexpr const char* kVuote = "L'intervallo ammesso per il numero di linee (0-30)";
constexpr const char* kCorpo = "L'intervallo ammesso per il numero di linee per il body (10-99)";
constexpr const char* kSei = "Attenzione la password deve essere di 6 caratteri !!!";

class UscendoDalCampo : public OpzioniGenerali, public testing::WithParamInterface<Uscita> {};

}  // namespace

TEST_P(UscendoDalCampo, IlTestoRestaOTornaAUnoValidoEIlFuocoConLui) {
  const auto& [nome, tasti, messaggio, resta] = GetParam();
  const QString campo = QLatin1String(nome);
  const GuidedFields schermo = apri();
  schermo.write(campo, t(tasti));
  EXPECT_EQ(schermo.text(campo), t(tasti));
  schermo.press(Qt::Key_Tab);
  QCoreApplication::processEvents();
  const bool rifiutato = *messaggio != '\0';
  expectBoxes(program, rifiutato ? std::vector{warning(t(messaggio))} : std::vector<Box>{});
  EXPECT_EQ(schermo.text(campo), t(resta));
  EXPECT_EQ(schermo.focus() == campo, rifiutato) << schermo.focus().toStdString();
  if (rifiutato) {
    EXPECT_EQ(schermo.foot(), t(messaggio));
    EXPECT_EQ(schermo.footKind(), OutcomeBar::Kind::Warning);
    schermo.press(Qt::Key_Tab);
    QCoreApplication::processEvents();
    expectBoxes(program, {});
    EXPECT_NE(schermo.focus(), campo) << "what it was set to may stay";
  }
}

INSTANTIATE_TEST_SUITE_P(
    Campi, UscendoDalCampo,
    testing::Values(
        Uscita{"vkTextBox_repsconto", "99,99", "", "99,99"}, Uscita{"vkTextBox_repsconto", "0", "", "0"},
        Uscita{"vkTextBox_repsconto", "100", kOltreA, "0,00"},
        Uscita{"vkTextBox_repsconto", "100,00", kOltreA, "0,00"},
        Uscita{"vkTextBox_repsconto", "1,,5", kNumerico, "0,00"},
        Uscita{"vkTextBox_repsconto", "200,,", kNumerico, "0,00"},
        Uscita{"vkTextBox_repscontoB", "99,99", "", "99,99"},
        Uscita{"vkTextBox_repscontoB", "100", kOltreB, "0,00"},
        Uscita{"vkTextBox_repscontoB", "1,,5", kNumerico, "0,00"},
        Uscita{"vkTextBoxMaxImporto", "99999,99", "", "99999,99"},
        Uscita{"vkTextBoxMaxImporto", "100000", kOltreImporto, "0,00"},
        Uscita{"vkTextBoxMaxImporto", "1,,5", kNumerico, "0,00"}, Uscita{"vkTextBoxNumdaShift", "0", "", "0"},
        Uscita{"vkTextBoxNumdaShift", "20", "", "20"}, Uscita{"vkTextBoxNumdaShift", "21", kShift, "0"},
        Uscita{"vkTextBoxNumdaShift", "30", kShift, "0"}, Uscita{"vkTextBoxNumdaShift", "40", kShift, "0"},
        Uscita{"vkTextBoxNumdaShift", "256", kShift, "0"}, Uscita{"vkTextBox_nlinee_skip", "0", "", "0"},
        Uscita{"vkTextBox_nlinee_skip", "30", "", "30"}, Uscita{"vkTextBox_nlinee_skip", "31", kVuote, "0"},
        Uscita{"vkTextBox_nlinee_skip", "99", kVuote, "0"}, Uscita{"vkTextBox_nlinee_body", "10", "", "10"},
        Uscita{"vkTextBox_nlinee_body", "99", "", "99"}, Uscita{"vkTextBox_nlinee_body", "9", kCorpo, "10"},
        Uscita{"vkTextBox_nlinee_body", "0", kCorpo, "10"}, Uscita{"vkTextBox_nlinee_body", "", kCorpo, "10"},
        Uscita{"vkTextBox_nlinee_body", "100", kCorpo, "10"},
        Uscita{"vkTextBox_Password", "123456", "", "123456"},
        Uscita{"vkTextBox_Password", "12345", kSei, "111111"},
        Uscita{"vkTextBox_Password", "", kSei, "111111"}, Uscita{"vkTextBoxTempoAzz", "12", "", "12"}));

TEST_F(OpzioniGenerali, ANumDaShiftTrentaSiRifiutaAncheSeLaNotaLoAmmette) {
  const GuidedFields schermo = apri();
  schermo.write(t("vkTextBoxNumdaShift"), t("30"));
  EXPECT_EQ(nota(schermo, "vkTextBoxNumdaShift"), t("valore compreso tra 0 e 40"));
  schermo.press(Qt::Key_Tab);
  expectBoxes(program, {warning(t("L'intervallo num shift di reparti (0-20)"))});
  EXPECT_EQ(schermo.text(t("vkTextBoxNumdaShift")), t("0"));
}

TEST_F(OpzioniGenerali, AncheUnClicAltroveRiportaNelCampoSbagliatoDicendoloUnaVoltaSola) {
  const GuidedFields schermo = apri();
  schermo.write(t("vkTextBoxNumdaShift"), t("21"));
  schermo.click(t("vkTextBox_Password"));
  QCoreApplication::processEvents();
  expectBoxes(program, {warning(t("L'intervallo num shift di reparti (0-20)"))});
  EXPECT_EQ(schermo.focus(), t("vkTextBoxNumdaShift"));
}

TEST_F(OpzioniGenerali, UnCampoSbagliatoLasciatoCambiandoSchedaFermaIlSalvataggioERitorna) {
  const GuidedFields schermo = apri();
  const QByteArray prima = tutto();
  schermo.write(t("vkTextBoxNumdaShift"), t("30"));
  schermo.tab(kPeriferiche);
  QCoreApplication::processEvents();
  schermo.save();
  QCoreApplication::processEvents();
  expectBoxes(program, {warning(t("L'intervallo num shift di reparti (0-20)"))});
  EXPECT_EQ(tutto(), prima);
  EXPECT_EQ(schermo.tabs().currentIndex(), kVarie);
  EXPECT_EQ(schermo.focus(), t("vkTextBoxNumdaShift"));
  EXPECT_EQ(schermo.text(t("vkTextBoxNumdaShift")), t("0"));
  EXPECT_EQ(schermo.foot(), t("L'intervallo num shift di reparti (0-20)"));
  EXPECT_EQ(varGestionePRG().ModificaOpzioni, kVero);
}

TEST_F(OpzioniGenerali, IValoriAlLimiteSiSalvano) {
  const GuidedFields schermo = apri();
  schermo.write(t("vkTextBox_repsconto"), t("99,99"));
  schermo.write(t("vkTextBox_repscontoB"), t("0,01"));
  schermo.write(t("vkTextBoxMaxImporto"), t("99999,99"));
  schermo.write(t("vkTextBoxNumdaShift"), t("20"));
  schermo.write(t("vkTextBox_nlinee_skip"), t("30"));
  schermo.write(t("vkTextBox_nlinee_body"), t("99"));
  schermo.save();
  expectBoxes(program, {});
  EXPECT_EQ(onDisk(kOpzioni + 1, 4).toHex(), "0f270000");
  EXPECT_EQ(onDisk(kOpzioni + 148, 4).toHex(), "01000000");
  EXPECT_EQ(onDisk(kOpzioni + 152, 4).toHex(), "7f969800");
  EXPECT_EQ(onDisk(kOpzioni + 156, 1).toHex(), "14");
  EXPECT_EQ(onDisk(kOpzioni + 142, 1).toHex(), "1e");
  EXPECT_EQ(onDisk(kOpzioni + 144, 1).toHex(), "63");
}

TEST_F(OpzioniGenerali, UnaLetteraInUnNumeroNonEntraESiDicePerche) {
  const GuidedFields schermo = apri();
  for (const char* const campo :
       {"vkTextBoxNumdaShift", "vkTextBox_nlinee_skip", "vkTextBox_nlinee_body", "vkTextBoxTempoAzz"}) {
    schermo.write(QLatin1String(campo), t("a1b"));
    EXPECT_EQ(schermo.text(QLatin1String(campo)), t("1")) << campo;
    EXPECT_EQ(schermo.hint(QLatin1String(campo)), t("Solo cifre")) << campo;
    schermo.write(QLatin1String(campo), t("12"));
    EXPECT_EQ(schermo.hint(QLatin1String(campo)), QString()) << campo;
  }
  for (const char* const campo : {"vkTextBox_repsconto", "vkTextBox_repscontoB", "vkTextBoxMaxImporto"}) {
    schermo.write(QLatin1String(campo), t("1x"));
    EXPECT_EQ(schermo.text(QLatin1String(campo)), t("1")) << campo;
    EXPECT_EQ(schermo.hint(QLatin1String(campo)), t("Solo cifre e virgola")) << campo;
  }
  expectBoxes(program, {});
}

TEST_F(OpzioniGenerali, ScrivendoSiContanoICaratteriEUscendoIlContoVaVia) {
  const GuidedFields schermo = apri();
  schermo.write(t("vkTextBoxDescrizioneTipoPercA"), t("Saldi"));
  const auto& conto = schermo.control<QLabel>("Conta_vkTextBoxDescrizioneTipoPercA");
  EXPECT_TRUE(conto.isVisible());
  EXPECT_EQ(conto.text(), t("5/24"));
  schermo.type(t("vkTextBoxDescrizioneTipoPercA"), t("Saldi!"));
  EXPECT_EQ(conto.text(), t("6/24"));
  schermo.press(Qt::Key_Tab);
  EXPECT_FALSE(conto.isVisible());
}

namespace {

struct Incolla {
  const char* campo;
  int caratteri;
  bool rifiutato;
};
const std::vector<Incolla> kIncolla{{"vkTextBox_repsconto", 12, true},
                                    {"vkTextBox_repscontoB", 12, true},
                                    {"vkTextBoxMaxImporto", 12, true},
                                    {"vkTextBoxNumdaShift", 12, true},
                                    {"vkTextBox_nlinee_skip", 12, true},
                                    {"vkTextBox_nlinee_body", 12, true},
                                    {"vkTextBox_Password", 6, false},
                                    {"vkTextBoxTempoAzz", 6, false},
                                    {"vkTextBox_Tallon_0", 14, false},
                                    {"vkTextBox_Subtender_1", 10, false},
                                    {"vkTextBoxDescrizioneTipoPercA", 24, false},
                                    {"vkTextBoxDescrizioneTipoPercB", 24, false}};

}  // namespace

TEST_F(OpzioniGenerali, DiDiecimilaCaratteriIncollatiRestaCioCheCiSta) {
  const GuidedFields schermo = apri();
  for (const Incolla& caso : kIncolla) {
    SCOPED_TRACE(caso.campo);
    const QString campo = QLatin1String(caso.campo);
    schermo.reveal(campo);
    schermo.paste(campo, QString(10000, u'7'));
    EXPECT_EQ(schermo.text(campo), QString(caso.caratteri, u'7'));
    schermo.press(Qt::Key_Tab);
    QCoreApplication::processEvents();
    EXPECT_EQ(program.takeBoxes().size(), caso.rifiutato ? 1U : 0U);
  }
  schermo.write(t("vkTextBoxTempoAzz"), t("120000"));
  schermo.save();
  expectBoxes(program, {});
  EXPECT_EQ(onDisk(kOpzioni + 162, 15), QByteArray(14, '7') + '\0');
  EXPECT_EQ(onDisk(kOpzioni + 363, 25), QByteArray(24, '7') + '\0');
}

// The zeroing time.

namespace {

struct Tempo {
  const char* tasti;
  const Box* messaggio;
};
void PrintTo(const Tempo& tempo, std::ostream* dove) {
  *dove << '"' << tempo.tasti << '"';
}

class TempoSbagliato : public OpzioniGenerali, public testing::WithParamInterface<Tempo> {};
class TempoGiusto : public OpzioniGenerali,
                    public testing::WithParamInterface<std::pair<const char*, std::uint32_t>> {};

}  // namespace

TEST_P(TempoSbagliato, FermaIlSalvataggioELascia210000) {
  const GuidedFields schermo = apri();
  const QByteArray prima = tutto();
  schermo.write(t("vkTextBoxTempoAzz"), t(GetParam().tasti));
  schermo.tab(kPeriferiche);
  schermo.save();
  expectBoxes(program, {*GetParam().messaggio});
  EXPECT_EQ(schermo.text(t("vkTextBoxTempoAzz")), t("210000"));
  EXPECT_EQ(schermo.focus(), t("vkTextBoxTempoAzz"));
  EXPECT_EQ(schermo.tabs().currentIndex(), kVarie);
  EXPECT_EQ(schermo.foot(), GetParam().messaggio->text);
  EXPECT_EQ(varGestionePRG().ModificaOpzioni, kVero);
  EXPECT_EQ(tutto(), prima);
  schermo.save();
  expectBoxes(program, {});
  EXPECT_EQ(onDisk(kTempo, 4), intero(75600)) << "210000 is a time";
}

// The length first, then hours, minutes and seconds.
INSTANTIATE_TEST_SUITE_P(Tempi, TempoSbagliato,
                         testing::Values(Tempo{"", &kSeiCaratteri}, Tempo{"12345", &kSeiCaratteri},
                                         Tempo{"99999", &kSeiCaratteri}, Tempo{"240000", &kOreMassime},
                                         Tempo{"246060", &kOreMassime}, Tempo{"236000", &kMinutiMassimi},
                                         Tempo{"236060", &kMinutiMassimi},
                                         Tempo{"235960", &kSecondiMassimi}));

TEST_P(TempoGiusto, SiSalva) {
  const auto& [tasti, secondi] = GetParam();
  put(kTempo, intero(1));
  const GuidedFields schermo = apri();
  schermo.write(t("vkTextBoxTempoAzz"), t(tasti));
  schermo.save();
  expectBoxes(program, {});
  EXPECT_EQ(onDisk(kTempo, 4), intero(secondi));
  EXPECT_EQ(schermo.text(t("vkTextBoxTempoAzz")), t(tasti));
  schermo.reset();
  EXPECT_EQ(schermo.text(t("vkTextBoxTempoAzz")), t(tasti)) << "read again";
}

INSTANTIATE_TEST_SUITE_P(Tempi, TempoGiusto,
                         testing::Values(std::pair{"210000", 75600U}, std::pair{"000000", 0U},
                                         std::pair{"235959", 86399U}, std::pair{"122534", 44734U}));

TEST_F(OpzioniGenerali, IlTempoSiGuardaAncheSenzaModificheDaSalvare) {
  const GuidedFields schermo = apri();
  schermo.write(t("vkTextBoxTempoAzz"), t("240000"));
  varGestionePRG().ModificaOpzioni = kFalso;
  schermo.save();
  expectBoxes(program, {kOreMassime});
  EXPECT_EQ(schermo.text(t("vkTextBoxTempoAzz")), t("210000"));
}

// The revision date.

namespace {

class AnnoDiRevisione : public OpzioniGenerali, public testing::WithParamInterface<int> {
 protected:
  /// 0 for a day that is there.
  static QString rifiuto(int giorno, int mese, bool bisestile) {
    if ((mese == 4 || mese == 6 || mese == 9 || mese == 11) && giorno == 31)
      return t("ATTENZIONE Errore il mese inserito deve essere di 30 giorni ");
    if (mese != 2) return {};
    if (!bisestile && giorno >= 29) return t("ATTENZIONE Errore febbraio deve essere di 28 giorni");
    if (bisestile && giorno >= 30) return t("ATTENZIONE Errore febbraio deve essere di 29 giorni");
    return {};
  }
  /// No day on the way is one that does not exist.
  static void scegliData(const GuidedFields& schermo, int giorno, int mese, int anno) {
    scegli(schermo, t("Combo_GG_REV"), 27);
    scegli(schermo, t("Combo_MM_REV"), mese - 1);
    scegli(schermo, t("Combo_AA_REV"), anno - 2000);
    scegli(schermo, t("Combo_GG_REV"), giorno - 1);
  }
  static QStringList mostrata(const GuidedFields& schermo) {
    return {schermo.list(t("Combo_GG_REV")).currentText(), schermo.list(t("Combo_MM_REV")).currentText(),
            schermo.list(t("Combo_AA_REV")).currentText()};
  }
};

}  // namespace

TEST_P(AnnoDiRevisione, UnGiornoCheIlMeseNonHaRiportaLeTreListeAllaPrimaVoce) {
  const int anno = GetParam();
  const bool bisestile = anno == 2024 || anno == 2000;
  const GuidedFields schermo = apri();
  int rifiutati = 0;
  for (int mese = 1; mese <= 12; ++mese)
    for (int giorno = 28; giorno <= 31; ++giorno) {
      SCOPED_TRACE(std::to_string(giorno) + "/" + std::to_string(mese));
      scegliData(schermo, giorno, mese, anno);
      const QString messaggio = rifiuto(giorno, mese, bisestile);
      if (messaggio.isEmpty()) {
        expectBoxes(program, {});
        EXPECT_EQ(mostrata(schermo),
                  QStringList({QString::number(giorno), QString::number(mese).rightJustified(2, u'0'),
                               QString::number(anno)}));
      } else {
        expectBoxes(program, {criticalBox(messaggio)});
        EXPECT_EQ(mostrata(schermo), QStringList({t("01"), t("01"), t("2000")}));
        ++rifiutati;
      }
    }
  EXPECT_EQ(rifiutati, bisestile ? 4 + 2 : 4 + 3);
}

INSTANTIATE_TEST_SUITE_P(Anni, AnnoDiRevisione, testing::Values(2000, 2023, 2024, 2100),
                         testing::PrintToStringParamName());

TEST_F(OpzioniGenerali, LaRevisioneSiSalvaESiRilegge) {
  const GuidedFields schermo = apri();
  EXPECT_EQ(schermo.list(t("Combo_GG_REV")).currentIndex(), -1) << "a till never set has no date";
  schermo.choose(t("Combo_AA_REV"), 24);
  schermo.choose(t("Combo_MM_REV"), 1);
  schermo.choose(t("Combo_GG_REV"), 28);
  expectBoxes(program, {});
  schermo.save();
  EXPECT_EQ(onDisk(kRevisione, 4), giorno(29, 2, 24));
  schermo.reset();
  EXPECT_EQ(schermo.list(t("Combo_GG_REV")).currentText(), t("29"));
  EXPECT_EQ(schermo.list(t("Combo_MM_REV")).currentText(), t("02"));
  EXPECT_EQ(schermo.list(t("Combo_AA_REV")).currentText(), t("2024"));
}

TEST_F(OpzioniGenerali, DelDuemilacentoRestanoLeDueUltimeCifre) {
  put(kRevisione, giorno(15, 6, 24));
  const GuidedFields schermo = apri();
  schermo.choose(t("Combo_AA_REV"), 100);
  schermo.save();
  EXPECT_EQ(onDisk(kRevisione, 4), giorno(15, 6, 0));
  schermo.reset();
  EXPECT_EQ(schermo.list(t("Combo_AA_REV")).currentText(), t("2000"));
}

TEST_F(OpzioniGenerali, UnaRevisioneRimessaEDaSalvare) {
  put(kRevisione, giorno(31, 5, 24));
  const GuidedFields schermo = apri();
  schermo.choose(t("Combo_MM_REV"), 3);
  expectBoxes(program, {criticalBox(t("ATTENZIONE Errore il mese inserito deve essere di 30 giorni "))});
  EXPECT_EQ(varGestionePRG().ModificaOpzioni, kVero);
  schermo.save();
  EXPECT_EQ(onDisk(kRevisione, 4), giorno(1, 1, 0));
}

// The calendar of the graphics.

namespace {

class CoppiaDelCalendario : public OpzioniGenerali, public testing::WithParamInterface<const char*> {
 protected:
  bool diFine() const { return *GetParam() != '\0'; }
  QString giornoDi(int riga) const {
    return t("CmbGiorno") + t(GetParam()) + QStringLiteral("_%1").arg(riga);
  }
  QString meseDi(int riga) const { return t("CmbMese") + t(GetParam()) + QStringLiteral("_%1").arg(riga); }
};

}  // namespace

TEST_P(CoppiaDelCalendario, UnGiornoCheIlMeseNonHaSiDiceEDiventaRosso) {
  apriIlCalendario(giorno(1, 1), giorno(31, 12));
  const GuidedFields schermo = apri();
  constexpr int kRiga = 4;
  int rifiutati = 0;
  for (int mese = 1; mese <= 12; ++mese) {
    scegli(schermo, giornoDi(kRiga), 27);
    scegli(schermo, meseDi(kRiga), mese - 1);
    for (int giorno = 28; giorno <= 31; ++giorno) {
      SCOPED_TRACE(std::to_string(giorno) + "/" + std::to_string(mese));
      scegli(schermo, giornoDi(kRiga), giorno - 1);
      const bool di30 = mese == 4 || mese == 6 || mese == 9 || mese == 11;
      const bool sbagliato = (di30 && giorno == 31) || (mese == 2 && giorno > 28);
      if (sbagliato)
        expectBoxes(program, {di30 ? kTrentaGiorni : kVentottoGiorni});
      else
        expectBoxes(program, {});
      const QColor questa = sbagliato ? kRosso : kGrigio;
      expectSfondi(schermo, kRiga, diFine() ? kGrigio : questa, diFine() ? questa : kGrigio);
      EXPECT_EQ(schermo.list(giornoDi(kRiga)).currentText(), QString::number(giorno));
      if (sbagliato) ++rifiutati;
    }
  }
  EXPECT_EQ(rifiutati, 4 + 3);
  EXPECT_EQ(varGestionePRG().ModificaOpzioni, kVero);
}

TEST_P(CoppiaDelCalendario, OgniRigaGuardaISuoiGiorni) {
  apriIlCalendario(giorno(1, 1), giorno(31, 12));
  const GuidedFields schermo = apri();
  for (int riga = 0; riga < 12; ++riga) {
    scegli(schermo, giornoDi(riga), 30);
    expectBoxes(program, {});
    scegli(schermo, meseDi(riga), 10);
    expectBoxes(program, {kTrentaGiorni});
    expectSfondi(schermo, riga, diFine() ? kGrigio : kRosso, diFine() ? kRosso : kGrigio);
  }
}

TEST_P(CoppiaDelCalendario, UnGiornoCheNonCERestaRossoMentreSiSceglieLAltro) {
  apriIlCalendario(giorno(1, 1), giorno(31, 12));
  const GuidedFields schermo = apri();
  scegli(schermo, giornoDi(7), 30);
  scegli(schermo, meseDi(7), 5);
  expectBoxes(program, {kTrentaGiorni});
  const QString altro = diFine() ? t("CmbGiorno_7") : t("CmbGiornoFine_7");
  scegli(schermo, altro, 14);
  expectBoxes(program, {});
  expectSfondi(schermo, 7, diFine() ? kGrigio : kRosso, diFine() ? kRosso : kGrigio);
  scegli(schermo, giornoDi(7), 29);
  expectSfondi(schermo, 7, kGrigio, kGrigio);
}

INSTANTIATE_TEST_SUITE_P(Coppie, CoppiaDelCalendario, testing::Values("", "Fine"),
                         [](const auto& prova) { return *prova.param == '\0' ? "Inizio" : "Fine"; });

TEST_F(OpzioniGenerali, UnInizioDopoLaFineSiDiceEDiventaRosso) {
  apriIlCalendario(giorno(10, 6), giorno(20, 6));
  const GuidedFields schermo = apri();
  inizio(schermo, 2, 20, 6);
  expectBoxes(program, {});
  inizio(schermo, 2, 21, 6);
  expectBoxes(program, {kInizioDopoLaFine});
  expectSfondi(schermo, 2, kRosso, kGrigio);
  // The style of the lists makes it lighter.
  EXPECT_EQ(fondoDipinto(schermo, t("CmbMese_2")).hslHue(), 0);
  EXPECT_GT(fondoDipinto(schermo, t("CmbMese_2")).hslSaturation(), 200);
  EXPECT_EQ(fondoDipinto(schermo, t("CmbMeseFine_2")).hslSaturation(), 0);
  EXPECT_EQ(schermo.foot(), kInizioDopoLaFine.text);
  inizio(schermo, 2, 19, 6);
  expectBoxes(program, {});
  expectSfondi(schermo, 2, kGrigio, kGrigio);
  fine(schermo, 2, 18, 6);
  expectBoxes(program, {kInizioDopoLaFine});
  expectSfondi(schermo, 2, kGrigio, kRosso);
  EXPECT_EQ(varGestionePRG().ModificaOpzioni, kVero);
}

TEST_F(OpzioniGenerali, UnOrdineSbagliatoGiaNelFileSegnaLeDueCoppieDellaRiga) {
  put(kCalendario + 2 * kByteVoce + 1, giorno(2, 5) + giorno(1, 5));
  const GuidedFields schermo = apri();
  accendiBeep(schermo);
  schermo.save();
  expectBoxes(program, {kInizioDopoLaFine, kInizioDopoLaFine, kDateRosse});
  expectSfondi(schermo, 2, kRosso, kRosso);
  for (const char* const lista : {"CmbGiorno_2", "CmbMeseFine_2"})
    EXPECT_GT(fondoDipinto(schermo, t(lista)).hslSaturation(), 200) << lista;
  for (const char* const coppia : {"CmbGiorno_2", "CmbGiornoFine_2"})
    EXPECT_TRUE(schermo.dotted(t(coppia))) << coppia;
  EXPECT_EQ(schermo.dottedTabs(), QList<int>({kVarie, kAltre}));
}

TEST_F(OpzioniGenerali, IlMeseContaPrimaDelGiornoEUnPeriodoNonPassaDallUltimoDellAnno) {
  apriIlCalendario(giorno(31, 1), giorno(1, 12));
  const GuidedFields schermo = apri();
  schermo.choose(t("CmbMese_0"), 9);
  expectBoxes(program, {});
  schermo.choose(t("CmbMeseFine_0"), 0);
  expectBoxes(program, {kInizioDopoLaFine});
}

TEST_F(OpzioniGenerali, UnaRigaDiCuiMancaUnGiornoNonSiConfronta) {
  const GuidedFields schermo = apri();
  inizio(schermo, 0, 25, 12);
  schermo.choose(t("CmbGiornoFine_0"), 0);
  expectBoxes(program, {});
  expectSfondi(schermo, 0, kGrigio, kGrigio);
  schermo.save();
  expectBoxes(program, {});
  EXPECT_EQ(onDisk(kCalendario + 1, 8), giorno(25, 12) + QByteArray(4, '\0'));
  schermo.reset();
  EXPECT_EQ(schermo.list(t("CmbGiornoFine_0")).currentIndex(), -1) << "half a day is not saved";
}

TEST_F(OpzioniGenerali, LeDateRosseFermanoIlSalvataggioFinoAUnaSceltaGiusta) {
  apriIlCalendario(giorno(1, 5), giorno(1, 5));
  const GuidedFields schermo = apri();
  const QByteArray prima = tutto();
  schermo.write(t("vkTextBox_Tallon_0"), t("Omaggio"));
  fine(schermo, 0, 31, 12);
  schermo.choose(t("CmbGiorno_0"), 30);
  schermo.choose(t("CmbMese_0"), 3);
  schermo.choose(t("CmbGiorno_5"), 1);
  expectBoxes(program, {kTrentaGiorni, kInizioDopoLaFine});
  schermo.save();
  expectBoxes(program, {kTrentaGiorni, kInizioDopoLaFine, kInizioDopoLaFine, kDateRosse});
  EXPECT_EQ(tutto(), prima);
  EXPECT_EQ(varGestionePRG().ModificaOpzioni, kVero);
  EXPECT_EQ(schermo.foot(), t("Non salvato: correggere le date di Logo intestazione, Festa del papà"));
  EXPECT_EQ(schermo.focus(), t("CmbGiorno_0"));
  for (int riga = 0; riga < 12; ++riga)
    expectSfondi(schermo, riga, riga == 0 || riga == 5 ? kRosso : kGrigio, riga == 5 ? kRosso : kGrigio);

  schermo.choose(t("CmbGiorno_0"), 29);
  expectSfondi(schermo, 0, kGrigio, kGrigio);
  schermo.save();
  expectBoxes(program, {kInizioDopoLaFine, kInizioDopoLaFine, kDateRosse});
  EXPECT_EQ(schermo.focus(), t("CmbGiorno_5"));
  EXPECT_EQ(tutto(), prima);

  schermo.choose(t("CmbGiorno_5"), 0);
  schermo.save();
  expectBoxes(program, {});
  EXPECT_EQ(onDisk(kCalendario + 1, 8), giorno(30, 4) + giorno(31, 12));
  EXPECT_EQ(onDisk(kOpzioni + 162, 8), QByteArray("Omaggio\0", 8));
  for (int riga = 0; riga < 12; ++riga) expectSfondi(schermo, riga, kGrigio, kGrigio);
  EXPECT_EQ(varGestionePRG().ModificaOpzioni, kFalso);
}

TEST_F(OpzioniGenerali, AncheUnaDataSbagliataGiaNelFileFermaIlSalvataggioEAnnullaToglieIlRosso) {
  put(kCalendario + 3 * kByteVoce + 1, giorno(31, 4) + giorno(31, 12));
  const GuidedFields schermo = apri();
  expectBoxes(program, {});
  expectSfondi(schermo, 3, kGrigio, kGrigio);
  accendiBeep(schermo);
  schermo.save();
  expectBoxes(program, {kTrentaGiorni, kDateRosse});
  expectSfondi(schermo, 3, kRosso, kGrigio);
  EXPECT_EQ(schermo.foot(), t("Non salvato: correggere le date di Pasqua"));
  EXPECT_TRUE(schermo.dotted(t("CmbGiorno_3"))) << "it counts as changed";
  EXPECT_EQ(schermo.dottedTabs(), QList<int>({kVarie, kAltre}));
  schermo.reset();
  expectSfondi(schermo, 3, kGrigio, kGrigio);
  EXPECT_EQ(varGestionePRG().ModificaOpzioni, kFalso);
  EXPECT_EQ(onDisk(kBeep, 1), QByteArray(1, '\0'));
}

// Controls that hang on one another.

namespace {

struct Scelta {
  const char* lista;
  int prima;
  int scelta;
  /// Position of the tables' printer afterwards.
  int tavoli;
};
void PrintTo(const Scelta& scelta, std::ostream* dove) {
  *dove << scelta.lista << " " << scelta.scelta;
}
class SceltaDiUnApparato : public OpzioniGenerali, public testing::WithParamInterface<Scelta> {};

}  // namespace

TEST_P(SceltaDiUnApparato, RimetteLaStampanteDeiTavoliSoloConLaSuaStampante) {
  const auto& [lista, prima, scelta, tavoli] = GetParam();
  put(kTavoli, QByteArray(1, '\6'));
  put(lista == std::string("ComboCOM1") ? kOpzioni + 16 : kOpzioni + 19,
      QByteArray(1, static_cast<char>(prima)));
  const GuidedFields schermo = apri();
  EXPECT_EQ(schermo.list(t("ComboPrinterAuxTavoli")).currentIndex(), 2) << "filling is no choice";
  schermo.choose(QLatin1String(lista), scelta);
  EXPECT_EQ(schermo.list(t("ComboPrinterAuxTavoli")).currentIndex(), tavoli);
  EXPECT_EQ(schermo.dotted(t("ComboPrinterAuxTavoli")), tavoli == 0);
  schermo.save();
  EXPECT_EQ(onDisk(kTavoli, 1), QByteArray(1, tavoli == 0 ? '\0' : '\6'));
}

INSTANTIATE_TEST_SUITE_P(Scelte, SceltaDiUnApparato,
                         testing::Values(Scelta{"ComboCOM1", 0, 5, 0}, Scelta{"ComboCOM1", 0, 6, 2},
                                         Scelta{"ComboCOM1", 5, 1, 2}, Scelta{"ComboCOM2", 0, 6, 0},
                                         Scelta{"ComboCOM2", 0, 5, 2}, Scelta{"ComboCOM2", 6, 7, 2}));

TEST_F(OpzioniGenerali, OgniSceltaGuardaTutteEDueLePorte) {
  put(kTavoli, QByteArray(1, '\5'));
  put(kOpzioni + 19, QByteArray(1, '\6'));
  const GuidedFields schermo = apri();
  EXPECT_EQ(schermo.list(t("ComboPrinterAuxTavoli")).currentIndex(), 1);
  schermo.choose(t("ComboCOM1"), 4);
  EXPECT_EQ(schermo.list(t("ComboPrinterAuxTavoli")).currentIndex(), 0);
}

TEST_F(OpzioniGenerali, SenzaTestoAlternativoLaDescrizioneENESSUNOEChiusa) {
  for (const auto& [lettera, byte] : {std::pair{"A", kAlternativoA}, std::pair{"B", kAlternativoB}}) {
    put(byte + 1, QByteArray("Saldi\0", 6));
    const QString coppia = t("vkOptionButtonTestoAlternativo") + t(lettera);
    const QString campo = t("vkTextBoxDescrizioneTipoPerc") + t(lettera);
    const GuidedFields schermo = apri();
    EXPECT_EQ(schermo.text(campo), t("Saldi"));
    EXPECT_FALSE(schermo.line(campo).isReadOnly());
    schermo.clickOn(coppia + t("_NO"));
    EXPECT_EQ(schermo.text(campo), t("NESSUNO"));
    EXPECT_TRUE(schermo.line(campo).isReadOnly());
    schermo.type(campo, t("X"));
    EXPECT_EQ(schermo.text(campo), t("NESSUNO"));
    EXPECT_TRUE(schermo.dotted(campo));
    schermo.save();
    EXPECT_EQ(onDisk(byte, 9), QByteArray("\0NESSUNO\0", 9));
    schermo.clickOn(coppia + t("_SI"));
    EXPECT_EQ(schermo.text(campo), t("NESSUNO"));
    EXPECT_FALSE(schermo.line(campo).isReadOnly());
    schermo.write(campo, t("Xy"));
    schermo.save();
    EXPECT_EQ(onDisk(byte, 9), QByteArray("\1Xy\0SUNO\0", 9));
    program.screens.scarica(kSchermo);
  }
}

TEST_F(OpzioniGenerali, AllAperturaUnTestoAlternativoSpentoEChiusoEResta) {
  put(kAlternativoA, QByteArray("\0Saldi\0", 7));
  const GuidedFields schermo = apri();
  EXPECT_EQ(schermo.text(t("vkTextBoxDescrizioneTipoPercA")), t("Saldi"));
  EXPECT_TRUE(schermo.line(t("vkTextBoxDescrizioneTipoPercA")).isReadOnly());
  EXPECT_FALSE(schermo.line(t("vkTextBoxDescrizioneTipoPercB")).isReadOnly());
  schermo.clickOn(t("vkOptionButtonTestoAlternativoA_SI"));
  schermo.reset();
  EXPECT_TRUE(schermo.line(t("vkTextBoxDescrizioneTipoPercA")).isReadOnly());
}

TEST_F(OpzioniGenerali, IlTallonAccendeESpegneGliOttoTesti) {
  put(kTallon, QByteArray("\0Omaggio\0", 9));
  const GuidedFields schermo = apri();
  const auto accesi = [&] {
    int quanti = 0;
    for (int i = 0; i < 8; ++i)
      quanti += schermo.enabled(QStringLiteral("vkTextBox_Tallon_%1").arg(i)) ? 1 : 0;
    return quanti;
  };
  auto& riquadro = schermo.control<QFrame>("vkFrameTallon");
  EXPECT_EQ(accesi(), 0);
  EXPECT_TRUE(riquadro.styleSheet().contains(t("#fbfbfb"))) << riquadro.styleSheet().toStdString();
  schermo.clickOn(t("vkOptionButton_TALLON_SI"));
  EXPECT_EQ(accesi(), 8);
  EXPECT_EQ(riquadro.styleSheet(), QString());
  schermo.write(t("vkTextBox_Tallon_7"), t("Buono"));
  schermo.clickOn(t("vkOptionButton_TALLON_NO"));
  EXPECT_EQ(accesi(), 0);
  EXPECT_TRUE(riquadro.styleSheet().contains(t("#fbfbfb")));
  schermo.save();
  EXPECT_EQ(onDisk(kTallon, 9), QByteArray("\0Omaggio\0", 9)) << "what cannot be typed is kept";
  EXPECT_EQ(onDisk(kTallon + 1 + 7 * 25, 6), QByteArray("Buono\0", 6));
}

// What was changed.

namespace {

struct Modifica {
  /// Whose dot and frame.
  const char* campo;
  int scheda;
  std::function<void(const GuidedFields&)> fai;
  const char* nome;
};

const std::vector<Modifica>& modifiche() {
  static const std::vector<Modifica> tutte{
      {"vkOptionButtonTagl", kPeriferiche,
       [](const GuidedFields& s) { s.clickOn(t("vkOptionButtonTagl_SI")); }, "Taglierina"},
      {"ComboVelCOM1", kPeriferiche, [](const GuidedFields& s) { s.stepDown(t("ComboVelCOM1")); },
       "COM 1, Velocità"},
      {"ComboVelCOM2", kPeriferiche, [](const GuidedFields& s) { s.stepDown(t("ComboVelCOM2")); },
       "COM 3, Velocità"},
      {"ComboPrinterAUXFatture", kPeriferiche,
       [](const GuidedFields& s) { s.stepDown(t("ComboPrinterAUXFatture")); }, "Stampante per le fatture"},
      {"vkTextBox_nlinee_body", kPeriferiche,
       [](const GuidedFields& s) { s.write(t("vkTextBox_nlinee_body"), t("12")); }, "Num. linee"},
      {"vkTextBox_repsconto", kScontrino,
       [](const GuidedFields& s) { s.write(t("vkTextBox_repsconto"), t("5")); },
       "Percentuale A, Percent. Sconto"},
      {"vkTextBoxDescrizioneTipoPercA", kScontrino,
       [](const GuidedFields& s) { s.write(t("vkTextBoxDescrizioneTipoPercA"), t("Saldi")); },
       "Percentuale A, Descrizione"},
      {"vkTextBoxTempoAzz", kVarie,
       [](const GuidedFields& s) { s.write(t("vkTextBoxTempoAzz"), t("120000")); }, "Tempo Azzeramento"},
      {"vkTextBox_Password", kVarie,
       [](const GuidedFields& s) { s.write(t("vkTextBox_Password"), t("654321")); }, "Password"},
      {"Combo_GG_REV", kVarie, [](const GuidedFields& s) { s.stepDown(t("Combo_MM_REV")); },
       "Prossima revisione"},
      {"vkTextBox_Subtender_2", kVarie,
       [](const GuidedFields& s) { s.write(t("vkTextBox_Subtender_2"), t("Buono")); }, "SUBTENDER 3"},
      {"vkOptionButton_Grafica_2", kAltre,
       [](const GuidedFields& s) { s.clickOn(t("vkOptionButton_Grafica_SI_2")); }, "Natale, Stampa"},
      {"CmbGiornoFine_3", kAltre, [](const GuidedFields& s) { s.stepDown(t("CmbMeseFine_3")); },
       "Pasqua, Data Fine"},
      {"vkTextBox_Tallon_4", kGestioneTallon,
       [](const GuidedFields& s) { s.write(t("vkTextBox_Tallon_4"), t("Buono")); }, "TALLON 5"}};
  return tutte;
}

}  // namespace

TEST_F(OpzioniGenerali, OgniGenereDiModificaAccendeLaBandieraEIlSuoSegno) {
  const GuidedFields schermo = apri();
  for (const Modifica& una : modifiche()) {
    SCOPED_TRACE(una.campo);
    const QString campo = QLatin1String(una.campo);
    EXPECT_EQ(varGestionePRG().ModificaOpzioni, kFalso);
    EXPECT_FALSE(schermo.dotted(campo));
    EXPECT_EQ(cornice(schermo, campo), QString());
    una.fai(schermo);
    EXPECT_EQ(varGestionePRG().ModificaOpzioni, kVero);
    EXPECT_TRUE(schermo.dotted(campo));
    EXPECT_TRUE(cornice(schermo, campo).contains(t("background: #ffff00")))
        << cornice(schermo, campo).toStdString();
    EXPECT_EQ(schermo.dottedTabs(), QList<int>{una.scheda});
    EXPECT_EQ(schermo.foot(), t("Modifiche non salvate: ") + t(una.nome));
    schermo.reset();
    EXPECT_FALSE(schermo.dotted(campo));
    EXPECT_EQ(cornice(schermo, campo), QString());
    EXPECT_EQ(schermo.dottedTabs(), QList<int>());
    EXPECT_EQ(schermo.foot(), t("Modifiche annullate: ") + t(una.nome));
  }
  expectBoxes(program, {});
}

TEST_F(OpzioniGenerali, NessunControlloSiLeggeComeUnAltro) {
  const GuidedFields schermo = apri();
  QMap<QString, QString> nomi;
  for (const QWidget* uno : schermo.tabs().findChildren<QWidget*>()) {
    if (!qobject_cast<const QLineEdit*>(uno) && !qobject_cast<const QComboBox*>(uno) &&
        !qobject_cast<const QRadioButton*>(uno))
      continue;
    EXPECT_FALSE(nomi.contains(uno->accessibleName()))
        << uno->accessibleName().toStdString() << ": " << uno->objectName().toStdString() << " e "
        << nomi.value(uno->accessibleName()).toStdString();
    nomi.insert(uno->accessibleName(), uno->objectName());
  }
  EXPECT_EQ(nomi.value(t("COM 1, Apparato")), t("ComboCOM1"));
  EXPECT_EQ(nomi.value(t("COM 3, Apparato")), t("ComboCOM2"));
  EXPECT_EQ(nomi.value(t("Percentuale B, Tipo, Maggiorazione")), t("vkOptionButtonScontoB_SI"));
  EXPECT_EQ(nomi.value(t("Num reparti da shiftare, Valore")), t("vkTextBoxNumdaShift"));
}

TEST_F(OpzioniGenerali, SalvareERiempireTolgonoISegniELaBandiera) {
  const GuidedFields schermo = apri();
  accendiBeep(schermo);
  schermo.clickOn(t("vkOptionButtonTagl_SI"));
  EXPECT_EQ(schermo.dottedTabs(), QList<int>({kPeriferiche, kVarie}));
  schermo.save();
  EXPECT_FALSE(schermo.dotted(t("vkOptionButtonBeep")));
  EXPECT_EQ(cornice(schermo, t("vkOptionButtonBeep")), QString());
  EXPECT_EQ(schermo.dottedTabs(), QList<int>());
  EXPECT_EQ(varGestionePRG().ModificaOpzioni, kFalso);
  schermo.clickOn(t("vkOptionButtonBeep_NO"));
  schermo.editor().ricarica();
  EXPECT_TRUE(schermo.checked(t("vkOptionButtonBeep_SI")));
  EXPECT_FALSE(schermo.dotted(t("vkOptionButtonBeep")));
  EXPECT_EQ(varGestionePRG().ModificaOpzioni, kFalso);
}

// "Salva Modifiche" and "Annulla Modifiche".

TEST_F(OpzioniGenerali, SenzaModificheNonSiScriveNulla) {
  const GuidedFields schermo = apri();
  QFile::remove(varGestionePRG().PathConfigurazione);
  schermo.save();
  EXPECT_FALSE(QFile::exists(varGestionePRG().PathConfigurazione));
  EXPECT_EQ(schermo.foot(), t("Nessuna modifica da salvare"));
  expectBoxes(program, {});
}

TEST_F(OpzioniGenerali, ColFuocoAltroveSiChiedeEColNoRestaTutto) {
  const GuidedFields schermo = apri();
  const QByteArray prima = tutto();
  accendiBeep(schermo);
  program.user.answers(Answer::No);
  schermo.press(Qt::Key_S, Qt::ControlModifier);
  expectBoxes(program, {kSaveQuestion});
  EXPECT_EQ(tutto(), prima);
  EXPECT_TRUE(schermo.checked(t("vkOptionButtonBeep_SI")));
  EXPECT_TRUE(schermo.dotted(t("vkOptionButtonBeep")));
  EXPECT_EQ(varGestionePRG().ModificaOpzioni, kVero);
  EXPECT_EQ(schermo.foot(), t("Modifiche non salvate: Abilitazione Beep"));
}

TEST_F(OpzioniGenerali, ColFuocoAltroveSiChiedeEColSiSalva) {
  const GuidedFields schermo = apri();
  accendiBeep(schermo);
  program.user.answers(Answer::Yes);
  schermo.press(Qt::Key_S, Qt::ControlModifier);
  expectBoxes(program, {kSaveQuestion});
  EXPECT_EQ(onDisk(kBeep, 1), QByteArray(1, '\1'));
  EXPECT_EQ(varGestionePRG().ModificaOpzioni, kFalso);
}

TEST_F(OpzioniGenerali, CtrlSColCampoSbagliatoSottoIlCursoreNonSalva) {
  const GuidedFields schermo = apri();
  const QByteArray prima = tutto();
  schermo.write(t("vkTextBoxNumdaShift"), t("21"));
  schermo.press(Qt::Key_S, Qt::ControlModifier);
  expectBoxes(program, {warning(t("L'intervallo num shift di reparti (0-20)"))});
  EXPECT_EQ(tutto(), prima);
  EXPECT_EQ(schermo.focus(), t("vkTextBoxNumdaShift"));
  EXPECT_EQ(schermo.text(t("vkTextBoxNumdaShift")), t("0"));
  EXPECT_EQ(varGestionePRG().ModificaOpzioni, kVero);
}

TEST_F(OpzioniGenerali, DopoUnSalvataggioUnaPasswordSbagliataTornaAQuellaSalvata) {
  const GuidedFields schermo = apri();
  schermo.write(t("vkTextBox_Password"), t("222222"));
  schermo.save();
  schermo.write(t("vkTextBox_Password"), t("33"));
  schermo.press(Qt::Key_Tab);
  expectBoxes(program, {kSeiCaratteri});
  EXPECT_EQ(schermo.text(t("vkTextBox_Password")), t("222222"));
}

TEST_F(OpzioniGenerali, DopoUnSalvataggioINumeriSiLeggonoComeSonoScritti) {
  const GuidedFields schermo = apri();
  schermo.write(t("vkTextBoxNumdaShift"), QString());
  schermo.write(t("vkTextBox_repsconto"), t("7"));
  schermo.save();
  EXPECT_EQ(schermo.text(t("vkTextBoxNumdaShift")), t("0"));
  EXPECT_EQ(schermo.text(t("vkTextBox_repsconto")), t("7,00"));
  EXPECT_EQ(varGestionePRG().ModificaOpzioni, kFalso);
}

TEST_F(OpzioniGenerali, DopoUnSalvataggioIlTipoDiAzzeramentoRestaQuelloScelto) {
  const GuidedFields schermo = apri();
  schermo.choose(t("ComboTipoAzz"), 2);
  schermo.save();
  EXPECT_EQ(schermo.list(t("ComboTipoAzz")).currentText(), t("azz. gio+ iva"));
  accendiBeep(schermo);
  schermo.save();
  EXPECT_EQ(onDisk(kOpzioni + 139, 2), QByteArray("\2\1", 2));
  schermo.reset();
  EXPECT_EQ(schermo.list(t("ComboTipoAzz")).currentText(), t("azz. fiscale"));
}

TEST_F(OpzioniGenerali, PrimaIlCampoPoiIlTempoPoiLaDomandaPoiLeDate) {
  apriIlCalendario(giorno(1, 5), giorno(1, 5));
  const GuidedFields schermo = apri();
  schermo.choose(t("CmbGiorno_1"), 1);
  schermo.choose(t("CmbGiorno_8"), 2);
  expectBoxes(program, {kInizioDopoLaFine, kInizioDopoLaFine});
  schermo.write(t("vkTextBoxTempoAzz"), t("240000"));
  schermo.write(t("vkTextBoxNumdaShift"), t("21"));
  const auto ctrlS = [&] { schermo.press(Qt::Key_S, Qt::ControlModifier); };
  ctrlS();
  expectBoxes(program, {warning(t("L'intervallo num shift di reparti (0-20)"))});
  ctrlS();
  expectBoxes(program, {kOreMassime});
  program.user.answers(Answer::No);
  ctrlS();
  expectBoxes(program, {kSaveQuestion});
  program.user.answers(Answer::Yes);
  ctrlS();
  expectBoxes(program, {kSaveQuestion, kInizioDopoLaFine, kInizioDopoLaFine, kInizioDopoLaFine,
                        kInizioDopoLaFine, kDateRosse});
  EXPECT_EQ(varGestionePRG().ModificaOpzioni, kVero);
}

TEST_F(OpzioniGenerali, AnnullaRimetteCampiListeEDate) {
  put(kRevisione, giorno(15, 6, 24));
  put(kCalendario + 1, giorno(5, 3) + giorno(20, 9));
  const GuidedFields schermo = apri();
  schermo.write(t("vkTextBox_Tallon_0"), t("Buono"));
  schermo.stepDown(t("ComboCOM1"));
  schermo.stepDown(t("Combo_AA_REV"));
  schermo.stepDown(t("CmbGiorno_0"));
  schermo.clickOn(t("vkOptionButtonAzzGest_SI"));
  schermo.reset();
  EXPECT_EQ(schermo.text(t("vkTextBox_Tallon_0")), QString());
  EXPECT_EQ(schermo.list(t("ComboCOM1")).currentIndex(), 0);
  EXPECT_EQ(schermo.list(t("Combo_AA_REV")).currentText(), t("2024"));
  EXPECT_EQ(schermo.list(t("CmbGiorno_0")).currentText(), t("05"));
  EXPECT_TRUE(schermo.checked(t("vkOptionButtonAzzGest_NO")));
  EXPECT_EQ(varGestionePRG().ModificaOpzioni, kFalso);
  EXPECT_EQ(schermo.dottedTabs(), QList<int>());
  expectBoxes(program, {});
}

TEST_F(OpzioniGenerali, LAreaSalvaLaSchermataAperta) {
  const GuidedFields schermo = apri();
  accendiBeep(schermo);
  EXPECT_TRUE(editors::SalvaModificati(program.contesto).salvato);
  EXPECT_EQ(onDisk(kBeep, 1), QByteArray(1, '\1'));
  EXPECT_EQ(varGestionePRG().ModificaOpzioni, kFalso);
  expectBoxes(program, {});
}

TEST_F(OpzioniGenerali, LAreaNonSalvaConUnTempoSbagliatoNeConUnaDataRossaNeConUnCampoRifiutato) {
  apriIlCalendario(giorno(1, 5), giorno(1, 5));
  const GuidedFields schermo = apri();
  const QByteArray prima = tutto();
  const auto nonSalva = [&](const std::vector<Box>& messaggi) {
    EXPECT_FALSE(editors::SalvaModificati(program.contesto).salvato);
    expectBoxes(program, messaggi);
    EXPECT_EQ(tutto(), prima);
    EXPECT_EQ(varGestionePRG().ModificaOpzioni, kVero);
    EXPECT_EQ(inMemory(kTempo, 4), QByteArray(4, '\0'));
  };
  schermo.write(t("vkTextBoxTempoAzz"), t("240000"));
  nonSalva({kOreMassime});
  EXPECT_EQ(schermo.focus(), t("vkTextBoxTempoAzz"));
  schermo.write(t("vkTextBoxNumdaShift"), t("21"));
  nonSalva({warning(t("L'intervallo num shift di reparti (0-20)"))});
  schermo.choose(t("CmbGiorno_1"), 1);
  program.takeBoxes();
  nonSalva({kInizioDopoLaFine, kInizioDopoLaFine, kDateRosse});
  EXPECT_EQ(schermo.focus(), t("CmbGiorno_1"));
}

TEST_F(OpzioniGenerali, LAreaRiempieLaSchermataDaCapo) {
  const GuidedFields schermo = apri();
  schermo.write(t("vkTextBox_Tallon_0"), t("Buono"));
  put(kOpzioni + 162, QByteArray("Letto\0", 6));
  editors::RicaricaEditor(program.contesto);
  EXPECT_EQ(schermo.text(t("vkTextBox_Tallon_0")), t("Letto"));
  EXPECT_EQ(schermo.dottedTabs(), QList<int>());
  EXPECT_EQ(varGestionePRG().ModificaOpzioni, kFalso);
}

TEST_F(OpzioniGenerali, InUnaCartellaDiSolaLetturaBandieraSegniEMemoriaRestano) {
  const GuidedFields schermo = apri();
  const QByteArray prima = tutto();
  accendiBeep(schermo);
  ASSERT_EQ(chmod(program.folder.path().toUtf8().constData(), 0755), 0);
  {
    const OtherUser altro;
    schermo.save();
  }
  expectBoxes(program, {plainBox(t("Error 75 (*"))});
  EXPECT_EQ(schermo.foot(), t("Non salvato nel file: togliere la causa e salvare di nuovo"));
  EXPECT_EQ(schermo.footKind(), OutcomeBar::Kind::Failed);
  EXPECT_EQ(tutto(), prima);
  EXPECT_EQ(inMemory(kBeep, 1), QByteArray(1, '\0'));
  EXPECT_EQ(varGestionePRG().ModificaOpzioni, kVero);
  EXPECT_TRUE(schermo.dotted(t("vkOptionButtonBeep")));
  EXPECT_TRUE(schermo.checked(t("vkOptionButtonBeep_SI")));
  schermo.save();
  EXPECT_EQ(onDisk(kBeep, 1), QByteArray(1, '\1'));
  EXPECT_EQ(varGestionePRG().ModificaOpzioni, kFalso);
}

TEST_F(OpzioniGenerali, ADodiciPuntiSta) {
  expectTabsFitAtTwelvePoints(apri());
}

// Without the till's library, which alone knows its dates.

namespace {

class SenzaLaLibreriaDellaCassa : public ConfigurationWithoutLibrary {
 protected:
  SenzaLaLibreriaDellaCassa() {
    program.screens.registra<Form_OpzioniGen>();
    put(kPassword, "111111");
    put(kRevisione, giorno(15, 6, 24));
    put(kTempo, intero(3723));
    put(kCalendario + 1, giorno(5, 3) + giorno(20, 9));
    put(kOpzioni + 162, "Omaggi");
  }
  void expectManca(const char* procedura) { expectFailure(program, 53, procedura, "Form_OpzioniGen"); }
};

}  // namespace

TEST_F(SenzaLaLibreriaDellaCassa, GliAltriCampiSiRiempionoESiDiceUnaVoltaSola) {
  const GuidedFields schermo(program, kSchermo);
  expectManca("RiempiOpzGen");
  EXPECT_EQ(schermo.text(t("vkTextBox_Password")), t("111111"));
  EXPECT_EQ(schermo.text(t("vkTextBox_Tallon_0")), t("Omaggi"));
  EXPECT_TRUE(schermo.checked(t("vkOptionButton_Grafica_NO_11")));
  EXPECT_EQ(schermo.text(t("vkTextBoxTempoAzz")), QString());
  EXPECT_EQ(schermo.list(t("Combo_GG_REV")).currentIndex(), -1);
  EXPECT_EQ(schermo.list(t("CmbGiorno_0")).currentIndex(), -1);
  EXPECT_EQ(varGestionePRG().ModificaOpzioni, kFalso);
  EXPECT_EQ(schermo.dottedTabs(), QList<int>());
}

TEST_F(SenzaLaLibreriaDellaCassa, NessunaDataSiPerdeConUnSalvataggio) {
  const QByteArray prima = program.folder.read(t("negozio.dat"));
  const GuidedFields schermo(program, kSchermo);
  program.takeBoxes();
  schermo.clickOn(t("vkOptionButtonBeep_SI"));
  schermo.save();
  expectBoxes(program, {kSeiCaratteri});
  schermo.save();
  expectManca("Cmd_Modifica_Click");
  EXPECT_EQ(program.folder.read(t("negozio.dat")), prima);
  EXPECT_EQ(varGestionePRG().ModificaOpzioni, kVero);
  const config::RecordLetto memoria = config::immagineProgrammazione().byte();
  EXPECT_EQ(QByteArray(reinterpret_cast<const char*>(memoria.data()), static_cast<qsizetype>(memoria.size())),
            prima.mid(146, static_cast<qsizetype>(memoria.size())));
}
