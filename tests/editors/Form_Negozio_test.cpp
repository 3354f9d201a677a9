#include "editors/Form_Negozio.h"

#include <gtest/gtest.h>

#include <QFile>

#include "config/image.h"
#include "core/state.h"
#include "editors/chosen_model.h"
#include "editors/guided_form.h"

namespace {

const QString kSchermo = QStringLiteral("Form_Negozio");
const QString kSalva = QStringLiteral("Cmd_Modifica");
const QString kAnnulla = QStringLiteral("Cmd_Reset");
const QString kRagione = QStringLiteral("vkTextBox_rag_sociale");
const QString kNumero = QStringLiteral("vkTextBox_num_cassa");
const QString kSMS = QStringLiteral("vkTextBox_num_sms");
const QString k36 = QStringLiteral("vkOptionButtonLarCar_0");
const QString k24 = QStringLiteral("vkOptionButtonLarCar_1");

enum Scheda { kNegozio, kIntestazione, kCortesia };

// Offsets into the file.
constexpr qsizetype kPrimaRiga = 146;
constexpr qsizetype kByteRiga = 38;
constexpr qsizetype kPrimaCortesia = 450;
constexpr qsizetype kByteCortesia = 39;
constexpr qsizetype kAbilitazione = 38;
constexpr qsizetype kNumeroCassa = 244571;
constexpr qsizetype kFile = 245114;
constexpr int kRighe = 8;
constexpr int kRigheCortesia = 2;

const QColor kGiallo(255, 255, 0);
const QColor kBianco(255, 255, 255);

/// One text of the shop's block: its control, its caption, where it stands and its longest text.
struct Voce {
  const char* controllo;
  const char* didascalia;
  qsizetype inizio;
  int limite;
  bool soloCifre;
};
constexpr Voce kVoci[] = {{"vkTextBox_rag_sociale", "Ragione Sociale", 9, 24, false},
                          {"vkTextBox_pIva", "Partita IVA", 34, 11, false},
                          {"vkTextBox_indirizzo", "Indirizzo", 46, 24, false},
                          {"vkTextBox_citta", "Città", 71, 14, false},
                          {"vkTextBox_cap", "CAP", 86, 5, false},
                          {"vkTextBox_provincia", "Provincia", 92, 2, false},
                          {"vkTextBox_telefono", "Telefono", 95, 12, true},
                          {"vkTextBox_fax", "Fax", 108, 12, true},
                          {"vkTextBox_email", "Email", 121, 24, false}};

QString riga(int quale) {
  return QStringLiteral("vkTextBox_INT_%1").arg(quale);
}
QString cortesia(int quale) {
  return QStringLiteral("vkTextBox_COR_%1").arg(quale);
}
qsizetype inizioRiga(int quale) {
  return kPrimaRiga + quale * kByteRiga;
}
qsizetype inizioCortesia(int quale) {
  return kPrimaCortesia + quale * kByteCortesia;
}

class DatiNegozio : public ConfigurationOpen {
 protected:
  DatiNegozio() { program.screens.registra<Form_Negozio>(); }
  ~DatiNegozio() override { editors::azzeraModelloScelto(); }
  GuidedForm apri() { return GuidedForm(program, kSchermo); }
  static std::string testi(const GuidedForm& schermo, const char* base, int quanti) {
    QStringList tutti;
    for (int i = 0; i < quanti; ++i) tutti << schermo.text(QStringLiteral("%1_%2").arg(t(base)).arg(i));
    return tutti.join(u'|').toStdString();
  }
};

}  // namespace

TEST_F(DatiNegozio, TreSchedeConLeLoroDidascalie) {
  const GuidedForm schermo = apri();
  EXPECT_EQ(schermo.window().windowTitle(), t("Configurazione Negozio"));
  EXPECT_EQ(schermo.tabTitles(),
            QStringList({t("Configurazione Negozio"), t("Intestazione"), t("Cortesia")}));
  for (const Voce& una : kVoci) EXPECT_EQ(schermo.caption(t(una.controllo)), t(una.didascalia));
  EXPECT_EQ(schermo.caption(kNumero), t("N.ro Cassa"));
  EXPECT_EQ(schermo.caption(kSMS), t("N.ro tel. SMS"));
  EXPECT_EQ(schermo.caption(t("vkTextBoxModello")), t("Modello"));
  EXPECT_EQ(schermo.caption(t("vkTextBoxNumTasti")), t("Num. Tasti"));
  EXPECT_EQ(schermo.caption(t("vkTextBoxStampanteFiscale_0")), t("Larghezza Carta"));
  schermo.tab(kIntestazione);
  QStringList scritte = schermo.labels();
  for (int i = 1; i <= kRighe; ++i) EXPECT_EQ(scritte.count(QStringLiteral("RIGA %1").arg(i)), 1) << i;
  EXPECT_FALSE(scritte.contains(t("RIGA 9")));
  for (const char* didascalia : {"Larghezza riga", "Doppia Altezza", "Larghezza Carta"})
    EXPECT_EQ(scritte.count(t(didascalia)), 1) << didascalia;
  EXPECT_EQ(schermo.text(k36), t("36 caratteri"));
  EXPECT_EQ(schermo.text(k24), t("24 caratteri"));
  schermo.tab(kCortesia);
  scritte = schermo.labels();
  for (const char* didascalia : {"RIGA 1", "RIGA 2", "Doppia Altezza", "Abilitazione", "Larghezza Carta"})
    EXPECT_EQ(scritte.count(t(didascalia)), 1) << didascalia;
  EXPECT_FALSE(scritte.contains(t("RIGA 3")));
}

TEST_F(DatiNegozio, OgniSchedaHaSalvaEAnnulla) {
  const GuidedForm schermo = apri();
  for (const Scheda scheda : {kNegozio, kIntestazione, kCortesia}) {
    schermo.tab(scheda);
    EXPECT_TRUE(schermo.control(kSalva).isVisible()) << scheda;
    EXPECT_TRUE(schermo.control(kAnnulla).isVisible()) << scheda;
  }
  EXPECT_EQ(schermo.text(kSalva), t("Salva Modifiche"));
  EXPECT_EQ(schermo.text(kAnnulla), t("Annulla Modifiche"));
}

TEST_F(DatiNegozio, SiRiempieDalFile) {
  put(9, QByteArray("Panificio Sole"));
  put(92, QByteArray("TO"));
  put(kNumeroCassa, QByteArray("\xFF"));
  put(inizioRiga(7), QByteArray("\1Grazie", 7));
  put(inizioCortesia(1), QByteArray("\1Arrivederci", 12));
  put(inizioCortesia(1) + kAbilitazione, QByteArray("\1"));
  const GuidedForm schermo = apri();
  EXPECT_EQ(schermo.text(kRagione), t("Panificio Sole"));
  EXPECT_EQ(schermo.text(t("vkTextBox_provincia")), t("TO"));
  EXPECT_EQ(schermo.text(kNumero), t("255"));
  EXPECT_EQ(testi(schermo, "vkTextBox_INT", kRighe), "|||||||Grazie");
  EXPECT_TRUE(schermo.checked(t("vkOptionButtonINT_SI_7")));
  EXPECT_TRUE(schermo.checked(t("vkOptionButtonINT_NO_6")));
  EXPECT_EQ(testi(schermo, "vkTextBox_COR", kRigheCortesia), "|Arrivederci");
  EXPECT_TRUE(schermo.checked(t("vkOptionButtonCOR_SI_1")));
  EXPECT_TRUE(schermo.checked(t("vkOptionButtonCOR_NO_0")));
  EXPECT_TRUE(schermo.checked(t("vkOptionButtonAbilCOR_SI_1")));
  EXPECT_TRUE(schermo.checked(t("vkOptionButtonAbilCOR_NO_0")));
  EXPECT_EQ(varGestionePRG().ModificaNegozio, kFalso);
  EXPECT_EQ(schermo.dottedTabs(), QList<int>());
}

// The shop's block.

TEST_F(DatiNegozio, OgniTestoPrendeFinoAlSuoLimiteEVaAlSuoPosto) {
  const GuidedForm schermo = apri();
  QByteArray attesi(137, '\0');
  char lettera = 'A';
  for (const Voce& una : kVoci) {
    const QChar tasto = una.soloCifre ? u'5' : QChar::fromLatin1(lettera++);
    schermo.type(t(una.controllo), QString(una.limite + 3, tasto));
    EXPECT_EQ(schermo.text(t(una.controllo)), QString(una.limite, tasto)) << una.controllo;
    attesi.replace(una.inizio - 9, una.limite, QByteArray(una.limite, tasto.toLatin1()));
  }
  schermo.click(kSalva);
  expectBoxes(program, {});
  EXPECT_EQ(onDisk(9, 137).toHex(), attesi.toHex());
  EXPECT_EQ(schermo.foot(), t("Salvato: dati del negozio"));
  EXPECT_EQ(schermo.footKind(), OutcomeBar::Kind::Done);
}

TEST_F(DatiNegozio, UnCampoNonToccaISuoiVicini) {
  put(9, QByteArray(137, 'x'));
  // Texts without an end would run on: each field gets one.
  for (const Voce& una : kVoci) put(una.inizio + una.limite, QByteArray(1, '\0'));
  const QByteArray prima = onDisk(0, kFile);
  for (const Voce& una : kVoci) {
    program.screens.scaricaTutte();
    put(0, prima);
    const GuidedForm schermo = apri();
    schermo.type(t(una.controllo), t("9"));
    schermo.click(kSalva);
    QByteArray attesi = prima;
    attesi.replace(una.inizio, 2, QByteArray("9\0", 2));
    EXPECT_EQ(onDisk(0, kFile), attesi) << una.controllo;
  }
}

TEST_F(DatiNegozio, TelefonoFaxNumeroESMSPrendonoCifreSoltanto) {
  const GuidedForm schermo = apri();
  for (const char* campo :
       {"vkTextBox_telefono", "vkTextBox_fax", "vkTextBox_num_cassa", "vkTextBox_num_sms"}) {
    schermo.type(t(campo), t("0a1+1 -2."));
    EXPECT_EQ(schermo.text(t(campo)), t("0112")) << campo;
    EXPECT_EQ(schermo.hint(t(campo)), t("Solo cifre")) << campo;
    schermo.paste(t(campo), t("+39 011"));
    EXPECT_EQ(schermo.text(t(campo)), t("39011")) << campo;
  }
  schermo.type(t("vkTextBox_pIva"), t("IT 12-a"));
  EXPECT_EQ(schermo.text(t("vkTextBox_pIva")), t("IT 12-a"));
}

TEST_F(DatiNegozio, MentreSiScriveSiContanoICaratteri) {
  const GuidedForm schermo = apri();
  schermo.type(t("vkTextBox_cap"), t("101"));
  auto& conta = schermo.control<QLabel>("Conta_vkTextBox_cap");
  EXPECT_TRUE(conta.isVisible());
  EXPECT_EQ(conta.text(), t("3/5"));
  schermo.press(Qt::Key_Tab);
  EXPECT_FALSE(conta.isVisible());
}

TEST_F(DatiNegozio, DiecimilaCaratteriIncollatiSiTagliano) {
  const GuidedForm schermo = apri();
  const QString tanti(10000, u'7');
  for (const Voce& una : kVoci) {
    schermo.paste(t(una.controllo), tanti);
    EXPECT_EQ(schermo.text(t(una.controllo)), QString(una.limite, u'7')) << una.controllo;
  }
  schermo.paste(kSMS, tanti);
  EXPECT_EQ(schermo.text(kSMS), QString(16, u'7'));
  schermo.tab(kIntestazione);
  schermo.paste(riga(0), tanti);
  EXPECT_EQ(schermo.text(riga(0)), QString(36, u'7'));
  schermo.click(kSalva);
  EXPECT_EQ(onDisk(9, 25), QByteArray(24, '7') + '\0');
  EXPECT_EQ(onDisk(inizioRiga(0), kByteRiga), '\0' + QByteArray(36, '7') + '\0');
  EXPECT_EQ(onDisk(inizioRiga(1), kByteRiga), QByteArray(kByteRiga, '\0'));
}

TEST_F(DatiNegozio, ITestiVecchiDietroLoZeroRestano) {
  put(9, QByteArray("Vecchia ragione sociale\0z", 25));
  put(inizioRiga(2), QByteArray("\0Vecchia riga", 13));
  put(inizioCortesia(0), QByteArray("\0Vecchia cortesia", 17));
  const GuidedForm schermo = apri();
  schermo.type(kRagione, t("Bar"));
  schermo.tab(kIntestazione);
  schermo.type(riga(2), t("Bar"));
  schermo.tab(kCortesia);
  schermo.type(cortesia(0), t("Bar"));
  schermo.click(kSalva);
  EXPECT_EQ(onDisk(9, 25), QByteArray("Bar\0hia ragione sociale\0z", 25));
  EXPECT_EQ(onDisk(inizioRiga(2), 13), QByteArray("\0Bar\0hia riga", 13));
  EXPECT_EQ(onDisk(inizioCortesia(0), 17), QByteArray("\0Bar\0hia cortesia", 17));
}

TEST_F(DatiNegozio, LeLettereAccentateSonoUnByteLUna) {
  const GuidedForm schermo = apri();
  schermo.paste(t("vkTextBox_citta"), t("Forlì È"));
  schermo.click(kSalva);
  EXPECT_EQ(onDisk(71, 8), QByteArray("Forl\xEC \xC8\0", 8));
  EXPECT_EQ(schermo.text(t("vkTextBox_citta")), t("Forlì È"));
}

// The number of the till.

TEST_F(DatiNegozio, DelNumeroDellaCassaSiSalvaIlByteBasso) {
  struct Caso {
    const char* scritto;
    int byte;
    const char* riletto;
  };
  // 123456789012 is 0x1CBE991A14.
  constexpr Caso kCasi[] = {{"7", 7, "7"},   {"0", 0, "0"},     {"255", 255, "255"},
                            {"256", 0, "0"}, {"300", 44, "44"}, {"65535", 255, "255"},
                            {"", 0, "0"},    {"007", 7, "7"},   {"123456789012", 0x14, "20"}};
  for (const Caso& uno : kCasi) {
    program.screens.scaricaTutte();
    put(kNumeroCassa, QByteArray("\x63"));
    const GuidedForm schermo = apri();
    EXPECT_EQ(schermo.text(kNumero), t("99"));
    schermo.type(kNumero, t(uno.scritto));
    EXPECT_EQ(schermo.text(kNumero), t(uno.scritto));
    schermo.click(kSalva);
    expectBoxes(program, {});
    EXPECT_EQ(onDisk(kNumeroCassa, 1).toHex().toInt(nullptr, 16), uno.byte) << uno.scritto;
    EXPECT_EQ(schermo.text(kNumero), t(uno.riletto)) << uno.scritto;
  }
}

TEST_F(DatiNegozio, UnNumeroDiVentiCifreNonFermaNulla) {
  const GuidedForm schermo = apri();
  schermo.type(kNumero, t("12345678901234567890"));
  EXPECT_EQ(schermo.text(kNumero), t("123456789012"));
  EXPECT_EQ(schermo.hint(kNumero), t("Al massimo 12 caratteri"));
  schermo.click(kSalva);
  expectBoxes(program, {});
  EXPECT_EQ(onDisk(kNumeroCassa, 1), QByteArray("\x14"));
}

TEST_F(DatiNegozio, IlNumeroDellaCassaCambiaUnByteSolo) {
  put(kNumeroCassa - 5, QByteArray(428, 'p'));
  const QByteArray prima = onDisk(0, kFile);
  const GuidedForm schermo = apri();
  schermo.type(kNumero, t("4"));
  schermo.click(kSalva);
  QByteArray attesi = prima;
  attesi[kNumeroCassa] = 4;
  EXPECT_EQ(onDisk(0, kFile), attesi);
}

// What is only shown.

TEST_F(DatiNegozio, IlNumeroPerGliSMSSiPerdeAlSalvataggioEAlRiempimento) {
  const QByteArray prima = onDisk(0, kFile);
  const GuidedForm schermo = apri();
  EXPECT_EQ(schermo.text(kSMS), QString());
  schermo.type(kSMS, t("34712345671234567"));
  EXPECT_EQ(schermo.text(kSMS), t("3471234567123456"));
  EXPECT_EQ(varGestionePRG().ModificaNegozio, kVero);
  schermo.click(kSalva);
  EXPECT_EQ(schermo.text(kSMS), QString());
  EXPECT_EQ(onDisk(0, kFile), prima);
  EXPECT_EQ(schermo.foot(), t("Salvato: nessuna differenza nel file"));
  schermo.type(kSMS, t("347"));
  schermo.click(kAnnulla);
  EXPECT_EQ(schermo.text(kSMS), QString());
}

TEST_F(DatiNegozio, IlModelloESempreKoraENonSiScrive) {
  const GuidedForm schermo = apri();
  EXPECT_EQ(schermo.text(t("vkTextBoxModello")), t("Kora"));
  for (const char* chiuso : {"vkTextBoxModello", "vkTextBoxNumTasti", "vkTextBoxStampanteFiscale_0"}) {
    EXPECT_TRUE(schermo.line(t(chiuso)).isReadOnly()) << chiuso;
    const QString prima = schermo.text(t(chiuso));
    schermo.type(t(chiuso), t("5"));
    EXPECT_EQ(schermo.text(t(chiuso)), prima) << chiuso;
  }
  EXPECT_EQ(varGestionePRG().ModificaNegozio, kFalso);
}

TEST_F(DatiNegozio, ITastiSonoQuelliDellaMacchinaScelta) {
  {
    const GuidedForm schermo = apri();
    EXPECT_EQ(schermo.text(t("vkTextBoxNumTasti")), QString());
  }
  struct Macchina {
    int indice;
    const char* tasti;
  };
  for (const Macchina& una : {Macchina{1, "42"}, Macchina{4, "N/A"}, Macchina{7, "60"}, Macchina{12, "30"}}) {
    program.screens.scaricaTutte();
    editors::scegliModello(una.indice);
    EXPECT_EQ(apri().text(t("vkTextBoxNumTasti")), t(una.tasti)) << una.indice;
  }
}

TEST_F(DatiNegozio, LaLarghezzaDellaCartaEQuellaDellaMacchinaNelleTreSchede) {
  struct Caso {
    int larghezza;
    const char* mostrata;
    bool trentasei;
    bool ventiquattro;
    int limite;
  };
  constexpr Caso kCasi[] = {{24, "24", false, true, 24},
                            {26, "26", false, false, 26},
                            {36, "36", true, false, 36},
                            {0, "36", true, false, 36}};
  for (const Caso& uno : kCasi) {
    program.screens.scaricaTutte();
    varGestionePRG().LarghezzaRiga = static_cast<std::int16_t>(uno.larghezza);
    const GuidedForm schermo = apri();
    for (int i = 0; i < 3; ++i)
      EXPECT_EQ(schermo.text(QStringLiteral("vkTextBoxStampanteFiscale_%1").arg(i)), t(uno.mostrata))
          << uno.larghezza;
    EXPECT_EQ(schermo.checked(k36), uno.trentasei) << uno.larghezza;
    EXPECT_EQ(schermo.checked(k24), uno.ventiquattro) << uno.larghezza;
    for (int i = 0; i < kRighe; ++i)
      EXPECT_EQ(schermo.line(riga(i)).maxLength(), uno.limite) << uno.larghezza << " " << i;
    for (int i = 0; i < kRigheCortesia; ++i)
      EXPECT_EQ(schermo.line(cortesia(i)).maxLength(), uno.limite) << uno.larghezza << " " << i;
  }
}

// Header and courtesy lines.

TEST_F(DatiNegozio, SceltaLaLarghezzaLeRighePrendonoTantiCaratteri) {
  const GuidedForm schermo = apri();
  schermo.tab(kIntestazione);
  schermo.click(k24);
  EXPECT_TRUE(schermo.checked(k24));
  EXPECT_FALSE(schermo.checked(k36));
  EXPECT_EQ(varGestionePRG().ModificaNegozio, kFalso) << "the width is stored nowhere";
  for (int i = 0; i < kRighe; ++i) {
    schermo.type(riga(i), QString(40, u'R'));
    EXPECT_EQ(schermo.text(riga(i)), QString(24, u'R')) << i;
  }
  schermo.tab(kCortesia);
  for (int i = 0; i < kRigheCortesia; ++i) {
    schermo.type(cortesia(i), QString(40, u'C'));
    EXPECT_EQ(schermo.text(cortesia(i)), QString(24, u'C')) << i;
  }
  schermo.tab(kIntestazione);
  schermo.click(k36);
  schermo.type(riga(7), QString(40, u'R'));
  EXPECT_EQ(schermo.text(riga(7)), QString(36, u'R'));
  schermo.tab(kCortesia);
  schermo.type(cortesia(1), QString(40, u'C'));
  EXPECT_EQ(schermo.text(cortesia(1)), QString(36, u'C'));
}

TEST_F(DatiNegozio, PassandoDa36A24ITestiScrittiNonSiTagliano) {
  const GuidedForm schermo = apri();
  const QString lungo = t("Trentasei caratteri scritti per bene");
  ASSERT_EQ(lungo.size(), 36);
  schermo.tab(kIntestazione);
  schermo.type(riga(0), lungo);
  schermo.tab(kCortesia);
  schermo.type(cortesia(0), lungo);
  schermo.tab(kIntestazione);
  schermo.click(k24);
  EXPECT_EQ(schermo.text(riga(0)), lungo);
  EXPECT_EQ(schermo.text(cortesia(0)), lungo);
  schermo.click(kSalva);
  expectBoxes(program, {});
  EXPECT_EQ(onDisk(inizioRiga(0) + 1, 37), lungo.toLatin1() + '\0');
  EXPECT_EQ(onDisk(inizioCortesia(0) + 1, 37), lungo.toLatin1() + '\0');
  EXPECT_EQ(schermo.text(riga(0)), lungo) << "filled anew from the file";
  schermo.type(riga(1), QString(40, u'R'));
  EXPECT_EQ(schermo.text(riga(1)), QString(24, u'R')) << "what is written now has the width that was picked";
}

TEST_F(DatiNegozio, UnTestoPiuLungoDellaLarghezzaSiAccorciaUnCarattereAllaVolta) {
  put(inizioRiga(0), '\0' + QByteArray(36, 'L'));
  varGestionePRG().LarghezzaRiga = 24;
  const GuidedForm schermo = apri();
  schermo.tab(kIntestazione);
  EXPECT_EQ(schermo.text(riga(0)), QString(36, u'L'));
  QTest::mouseClick(&schermo.line(riga(0)), Qt::LeftButton);
  schermo.press(Qt::Key_End);
  schermo.press(Qt::Key_Backspace);
  EXPECT_EQ(schermo.text(riga(0)), QString(35, u'L'));
  QTest::keyClicks(&schermo.line(riga(0)), t("XY"));
  EXPECT_EQ(schermo.text(riga(0)), QString(35, u'L')) << "it only gets shorter";
}

TEST_F(DatiNegozio, LIntestazionePerdeIBianchiAiCapiLaCortesiaNo) {
  const GuidedForm schermo = apri();
  schermo.tab(kIntestazione);
  schermo.type(riga(3), t("  Bar Sole   "));
  schermo.tab(kCortesia);
  schermo.type(cortesia(1), t("  Grazie  "));
  schermo.click(kSalva);
  EXPECT_EQ(onDisk(inizioRiga(3), 10), QByteArray("\0Bar Sole\0", 10));
  EXPECT_EQ(onDisk(inizioCortesia(1), 12), QByteArray("\0  Grazie  \0", 12));
  EXPECT_EQ(schermo.text(riga(3)), t("Bar Sole"));
  EXPECT_EQ(schermo.text(cortesia(1)), t("  Grazie  "));
  EXPECT_EQ(schermo.foot(), t("Salvato: 1 riga di intestazione, 1 riga di cortesia"));
}

TEST_F(DatiNegozio, TrentaseiBianchiEUnaLetteraFannoUnaRigaVuota) {
  const GuidedForm schermo = apri();
  schermo.tab(kIntestazione);
  schermo.type(riga(0), QString(36, u' ') + u'X');
  schermo.click(kSalva);
  EXPECT_EQ(onDisk(inizioRiga(0), 3), QByteArray(3, '\0'));
}

TEST_F(DatiNegozio, LeCoppieDellAltezzaEDellAbilitazioneSonoUnByteLUna) {
  const GuidedForm schermo = apri();
  schermo.tab(kIntestazione);
  for (const int quale : {0, 4, 7}) schermo.click(QStringLiteral("vkOptionButtonINT_SI_%1").arg(quale));
  schermo.tab(kCortesia);
  schermo.click(t("vkOptionButtonCOR_SI_0"));
  schermo.click(t("vkOptionButtonAbilCOR_SI_1"));
  schermo.click(kSalva);
  for (int i = 0; i < kRighe; ++i)
    EXPECT_EQ(onDisk(inizioRiga(i), kByteRiga),
              char(i == 0 || i == 4 || i == 7 ? 1 : 0) + QByteArray(37, '\0'))
        << i;
  EXPECT_EQ(onDisk(inizioCortesia(0), kByteCortesia), '\1' + QByteArray(38, '\0'));
  EXPECT_EQ(onDisk(inizioCortesia(1), kByteCortesia), QByteArray(38, '\0') + '\1');
  schermo.click(t("vkOptionButtonCOR_NO_0"));
  schermo.click(kSalva);
  EXPECT_EQ(onDisk(inizioCortesia(0), 1), QByteArray(1, '\0'));
}

// Marks.

TEST_F(DatiNegozio, OgniModificaAccendeLaBandieraEIlSegnoSuCampoEScheda) {
  struct Modifica {
    Scheda scheda;
    const char* campo;
    const char* controllo;
    const char* tasti;
  };
  constexpr Modifica kModifiche[] = {
      {kNegozio, "vkTextBox_email", "vkTextBox_email", "a@b.it"},
      {kNegozio, "vkTextBox_num_cassa", "vkTextBox_num_cassa", "3"},
      {kIntestazione, "vkTextBox_INT_5", "vkTextBox_INT_5", "X"},
      {kIntestazione, "vkOptionButtonINT_5", "vkOptionButtonINT_SI_5", nullptr},
      {kCortesia, "vkOptionButtonAbilCOR_0", "vkOptionButtonAbilCOR_SI_0", nullptr}};
  const GuidedForm schermo = apri();
  for (const Modifica& una : kModifiche) {
    schermo.tab(una.scheda);
    const QString campo = t(una.campo);
    if (una.tasti)
      schermo.type(campo, t(una.tasti));
    else
      schermo.click(t(una.controllo));
    EXPECT_EQ(varGestionePRG().ModificaNegozio, kVero) << una.campo;
    EXPECT_TRUE(schermo.dotted(campo)) << una.campo;
    EXPECT_EQ(schermo.dottedTabs(), QList<int>{una.scheda}) << una.campo;
    EXPECT_EQ(schermo.ground(una.tasti ? campo : t("Cornice_") + campo), kGiallo) << una.campo;
    schermo.click(kAnnulla);
    EXPECT_EQ(varGestionePRG().ModificaNegozio, kFalso) << una.campo;
    EXPECT_FALSE(schermo.dotted(campo)) << una.campo;
    EXPECT_EQ(schermo.dottedTabs(), QList<int>()) << una.campo;
    EXPECT_NE(schermo.ground(una.tasti ? campo : t("Cornice_") + campo), kGiallo) << una.campo;
  }
}

TEST_F(DatiNegozio, SalvatiISegniVannoVia) {
  const GuidedForm schermo = apri();
  schermo.type(kRagione, t("Bar"));
  schermo.tab(kCortesia);
  schermo.type(cortesia(0), t("Grazie"));
  EXPECT_EQ(schermo.dottedTabs(), QList<int>({kNegozio, kCortesia}));
  EXPECT_EQ(schermo.foot(), t("Modifiche non salvate: Ragione Sociale; RIGA 1, Testo"));
  schermo.click(kSalva);
  EXPECT_EQ(schermo.dottedTabs(), QList<int>());
  EXPECT_EQ(schermo.ground(cortesia(0)), kBianco);
  EXPECT_EQ(varGestionePRG().ModificaNegozio, kFalso);
  EXPECT_EQ(schermo.foot(), t("Salvato: dati del negozio, 1 riga di cortesia"));
}

// "Salva Modifiche", "Annulla Modifiche", the guard.

TEST_F(DatiNegozio, SenzaModificheNonScriveNulla) {
  const GuidedForm schermo = apri();
  QFile::remove(varGestionePRG().PathConfigurazione);
  schermo.click(kSalva);
  expectBoxes(program, {});
  EXPECT_FALSE(QFile::exists(varGestionePRG().PathConfigurazione));
  EXPECT_EQ(schermo.foot(), t("Nessuna modifica da salvare"));
}

TEST_F(DatiNegozio, ColFuocoAltroveChiedePrimaDiSalvare) {
  const GuidedForm schermo = apri();
  schermo.type(kRagione, t("Bar"));
  program.user.answers(Answer::No);
  schermo.press(Qt::Key_S, Qt::ControlModifier);
  expectBoxes(program, {kSaveQuestion});
  EXPECT_EQ(onDisk(9, 4), QByteArray(4, '\0'));
  EXPECT_EQ(varGestionePRG().ModificaNegozio, kVero);
  EXPECT_EQ(schermo.text(kRagione), t("Bar"));
  EXPECT_EQ(schermo.foot(), t("Modifiche non salvate: Ragione Sociale"));
  program.user.answers(Answer::Yes);
  schermo.press(Qt::Key_S, Qt::ControlModifier);
  expectBoxes(program, {kSaveQuestion});
  EXPECT_EQ(onDisk(9, 4), QByteArray("Bar\0", 4));
  EXPECT_EQ(varGestionePRG().ModificaNegozio, kFalso);
}

TEST_F(DatiNegozio, UnSalvataggioFallitoLasciaTuttoDaSalvare) {
  const GuidedForm schermo = apri();
  const QString percorso = varGestionePRG().PathConfigurazione;
  varGestionePRG().PathConfigurazione = program.folder.file(t("sparita/negozio.dat"));
  schermo.type(kRagione, t("Bar"));
  schermo.type(kNumero, t("9"));
  schermo.click(kSalva);
  expectBoxes(program, {plainBox(t("Error 76 (*"))});
  EXPECT_EQ(schermo.footKind(), OutcomeBar::Kind::Failed);
  EXPECT_EQ(schermo.foot(), t("Non salvato nel file: togliere la causa e salvare di nuovo"));
  EXPECT_EQ(config::leggiTesto(config::bloccoNegozio(), config::negozio::kRagioneSociale), QString())
      << "what the file does not hold must not travel";
  EXPECT_EQ(inMemory(kNumeroCassa, 1), QByteArray(1, '\0'));
  EXPECT_EQ(varGestionePRG().ModificaNegozio, kVero);
  EXPECT_EQ(schermo.text(kRagione), t("Bar"));
  EXPECT_TRUE(schermo.dotted(kRagione));
  varGestionePRG().PathConfigurazione = percorso;
  schermo.click(kSalva);
  EXPECT_EQ(schermo.footKind(), OutcomeBar::Kind::Done);
  EXPECT_EQ(onDisk(9, 4), QByteArray("Bar\0", 4));
  EXPECT_EQ(onDisk(kNumeroCassa, 1), QByteArray("\x09"));
}

TEST_F(DatiNegozio, AnnullaRiportaTutteLeSchede) {
  put(9, QByteArray("Panificio"));
  put(inizioCortesia(0), QByteArray("\0Ciao", 5));
  const GuidedForm schermo = apri();
  schermo.type(kRagione, t("Bar"));
  schermo.type(kNumero, t("9"));
  schermo.tab(kIntestazione);
  schermo.click(t("vkOptionButtonINT_SI_0"));
  schermo.tab(kCortesia);
  schermo.type(cortesia(0), t("Addio"));
  schermo.click(kAnnulla);
  expectBoxes(program, {});
  EXPECT_EQ(schermo.text(kRagione), t("Panificio"));
  EXPECT_EQ(schermo.text(kNumero), t("0"));
  EXPECT_TRUE(schermo.checked(t("vkOptionButtonINT_NO_0")));
  EXPECT_EQ(schermo.text(cortesia(0)), t("Ciao"));
  EXPECT_EQ(varGestionePRG().ModificaNegozio, kFalso);
  EXPECT_EQ(schermo.foot(),
            t("Modifiche annullate: Ragione Sociale; N.ro Cassa; RIGA 1, Doppia Altezza e un altro"));
}

TEST_F(DatiNegozio, RicaricareRiempieDallaMemoriaELasciaLaBandiera) {
  const GuidedForm schermo = apri();
  schermo.type(kRagione, t("Bar"));
  config::scriviTesto(config::immagineProgrammazione().record(config::kIntestazione, 6),
                      config::intestazione::kTesto, t("Letta"));
  editors::RicaricaEditor(program.contesto);
  EXPECT_EQ(schermo.text(kRagione), QString());
  EXPECT_EQ(schermo.text(riga(6)), t("Letta"));
  EXPECT_FALSE(schermo.dotted(kRagione));
  EXPECT_EQ(varGestionePRG().ModificaNegozio, kVero) << "the refill clears the flags of the others";
}

TEST_F(DatiNegozio, LaGuardiaSalvaNegozioIntestazioneECortesia) {
  const GuidedForm schermo = apri();
  schermo.type(kRagione, t("Bar"));
  schermo.tab(kIntestazione);
  schermo.type(riga(0), t("Bar Sole"));
  const editors::EsitoSalvataggio esito = editors::SalvaModificati(program.contesto);
  EXPECT_TRUE(esito.salvato);
  EXPECT_EQ(esito.racconto, t("Salvato: dati del negozio, 1 riga di intestazione"));
  EXPECT_EQ(onDisk(9, 4), QByteArray("Bar\0", 4));
  EXPECT_EQ(onDisk(inizioRiga(0), 10), QByteArray("\0Bar Sole\0", 10));
  EXPECT_EQ(varGestionePRG().ModificaNegozio, kFalso);
}

TEST_F(DatiNegozio, UnByteDiAltezzaCheNonEZeroNeUnoSiVedeSiESiSalvaUno) {
  put(inizioRiga(0), QByteArray("\xA5"));
  const GuidedForm schermo = apri();
  EXPECT_TRUE(schermo.checked(t("vkOptionButtonINT_SI_0")));
  schermo.type(kRagione, t("Bar"));
  schermo.click(kSalva);
  EXPECT_EQ(onDisk(inizioRiga(0), 1), QByteArray("\x01"));
}

TEST_F(DatiNegozio, IlTabulatorePassaDallaLarghezzaAlleRigheEPoiAiComandi) {
  const GuidedForm schermo(program, kSchermo);
  schermo.window().activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&schermo.window()));
  for (const Scheda scheda : {kIntestazione, kCortesia}) {
    schermo.tab(scheda);
    schermo.tabs().tabBar()->setFocus();
    QStringList fermate;
    const int quante = scheda == kIntestazione ? 1 + 2 * kRighe + 2 : 3 * kRigheCortesia + 2;
    for (int i = 0; i < quante; ++i) {
      schermo.press(Qt::Key_Tab);
      fermate << schermo.focus();
    }
    QStringList attese;
    if (scheda == kIntestazione) attese << k36;
    for (int riga = 0; scheda == kIntestazione && riga < kRighe; ++riga)
      attese << QStringLiteral("vkTextBox_INT_%1").arg(riga)
             << QStringLiteral("vkOptionButtonINT_NO_%1").arg(riga);
    for (int riga = 0; scheda == kCortesia && riga < kRigheCortesia; ++riga)
      attese << QStringLiteral("vkTextBox_COR_%1").arg(riga)
             << QStringLiteral("vkOptionButtonCOR_NO_%1").arg(riga)
             << QStringLiteral("vkOptionButtonAbilCOR_NO_%1").arg(riga);
    attese << kSalva << kAnnulla;
    EXPECT_EQ(fermate, attese);
  }
}

TEST_F(DatiNegozio, LaLarghezzaSiSceglieAncheConLeFrecce) {
  const GuidedForm schermo(program, kSchermo);
  schermo.window().activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&schermo.window()));
  schermo.tab(kIntestazione);
  schermo.control(k36).setFocus();
  schermo.press(Qt::Key_Right);
  EXPECT_EQ(schermo.focus(), k24);
  EXPECT_TRUE(schermo.checked(k24));
  EXPECT_EQ(schermo.line(QStringLiteral("vkTextBox_INT_7")).maxLength(), 24);
}

TEST_F(DatiNegozio, ADodiciPuntiSta) {
  expectTabsFitAtTwelvePoints(apri());
}
