#include "editors/Form_OPE.h"

#include <gtest/gtest.h>

#include <QFile>

#include "config/image.h"
#include "core/state.h"
#include "editors/guided_form.h"

namespace {

const QString kSchermo = QStringLiteral("Form_OPE");
const QString kSalva = QStringLiteral("Cmd_Modifica");
const QString kAnnulla = QStringLiteral("Cmd_Reset");
const QString kPasswordCorte = QStringLiteral("Attenzione le password devono essere di 6 caratteri !!!");

// Of the first operator in the file, and 33 bytes a record.
constexpr qsizetype kPrimo = 244236;
constexpr qsizetype kByteRecord = 33;
constexpr qsizetype kAbilitazione = 25;
constexpr qsizetype kPassword = 26;
constexpr int kOperatori = 10;
constexpr qsizetype kFile = 245114;

const QColor kGiallo(255, 255, 0);
const QColor kBianco(255, 255, 255);

QString nome(int riga) {
  return QStringLiteral("vkTextBox_OPE_%1").arg(riga);
}
QString password(int riga) {
  return QStringLiteral("vkTextBox_Password_OPE_%1").arg(riga);
}
QString si(int riga) {
  return QStringLiteral("vkOptionButtonAbil_OPE_SI_%1").arg(riga);
}
QString no(int riga) {
  return QStringLiteral("vkOptionButtonAbil_OPE_NO_%1").arg(riga);
}

qsizetype inizio(int riga) {
  return kPrimo + riga * kByteRecord;
}

QByteArray byteOperatore(const char* descrizione, char abilitazione, const char* password) {
  QByteArray byte = QByteArray(descrizione).leftJustified(25, '\0') + abilitazione;
  return byte + QByteArray(password).leftJustified(7, '\0');
}

class Operatori : public ConfigurationOpen {
 protected:
  Operatori() {
    program.screens.registra<Form_OPE>();
    QByteArray tutti;
    for (int riga = 0; riga < kOperatori; ++riga)
      tutti += byteOperatore(QByteArray("CASSA " + QByteArray::number(riga)).constData(), 1, "111111");
    put(kPrimo, tutti);
  }
  GuidedForm apri() { return GuidedForm(program, kSchermo); }
  static editors::Editor& editor(const GuidedForm& schermo) {
    return dynamic_cast<editors::Editor&>(schermo.window());
  }
};

}  // namespace

TEST_F(Operatori, UnaRigaPerOperatoreSottoQuellaDiNessuno) {
  put(inizio(3), byteOperatore("MARIA", 0, "123456"));
  const GuidedForm schermo = apri();
  EXPECT_EQ(schermo.window().windowTitle(), t("Operatori"));
  const QStringList scritte = schermo.labels();
  for (const char* didascalia : {"Descrizione", "Password", "Abilitazione", "OPERATORE 0", "OPERATORE 1",
                                 "OPERATORE 2", "OPERATORE 3", "OPERATORE 4", "OPERATORE 5", "OPERATORE 6",
                                 "OPERATORE 7", "OPERATORE 8", "OPERATORE 9", "OPERATORE 10"})
    EXPECT_EQ(scritte.count(t(didascalia)), 1) << didascalia;
  EXPECT_FALSE(scritte.contains(t("OPERATORE 11")));
  EXPECT_EQ(schermo.text(nome(0)), t("CASSA 0"));
  EXPECT_EQ(schermo.text(password(0)), t("111111"));
  EXPECT_TRUE(schermo.checked(si(0)));
  EXPECT_FALSE(schermo.checked(no(0)));
  EXPECT_EQ(schermo.text(nome(3)), t("MARIA"));
  EXPECT_EQ(schermo.text(password(3)), t("123456"));
  EXPECT_FALSE(schermo.checked(si(3)));
  EXPECT_TRUE(schermo.checked(no(3)));
  EXPECT_EQ(schermo.text(nome(9)), t("CASSA 9"));
  EXPECT_EQ(schermo.text(kSalva), t("Salva Modifiche"));
  EXPECT_EQ(schermo.text(kAnnulla), t("Annulla modifiche"));
  EXPECT_EQ(varGestionePRG().ModificaOperatori, kFalso);
  EXPECT_EQ(schermo.ground(nome(0)), kBianco);
}

TEST_F(Operatori, IlFuocoCominciaDallaPrimaCasellaCheSiScrive) {
  const GuidedForm schermo = apri();
  schermo.window().setFocus();
  EXPECT_EQ(schermo.focus(), nome(0));
}

TEST_F(Operatori, LaRigaDiNessunoNonSiScriveENonSiSalva) {
  const QByteArray prima = onDisk(0, kFile);
  const GuidedForm schermo = apri();
  for (const QString& chiusa : {t("vkTextBox_OPE_NESSUNO"), t("vkTextBox_Password_OPE_NESSUNO")}) {
    EXPECT_EQ(schermo.text(chiusa), t("NESSUNO"));
    EXPECT_TRUE(schermo.line(chiusa).isReadOnly());
    schermo.type(chiusa, t("123"));
    EXPECT_EQ(schermo.text(chiusa), t("NESSUNO"));
  }
  EXPECT_EQ(varGestionePRG().ModificaOperatori, kFalso);
  schermo.type(nome(0), t("ANNA"));
  schermo.click(kSalva);
  expectBoxes(program, {});
  QByteArray attesi = prima;
  attesi.replace(kPrimo, 5, QByteArray("ANNA\0", 5));
  EXPECT_EQ(onDisk(0, kFile), attesi) << "the record of operator 1 alone";
}

TEST_F(Operatori, LaPasswordPrendeCifreSoltantoEAlMassimoSei) {
  const GuidedForm schermo = apri();
  schermo.type(password(2), t("1a2.3-4,5 6"));
  EXPECT_EQ(schermo.text(password(2)), t("123456"));
  schermo.type(password(2), t("x"));
  EXPECT_EQ(schermo.text(password(2)), QString());
  EXPECT_EQ(schermo.hint(password(2)), t("Solo cifre"));
  schermo.type(password(2), t("9876543"));
  EXPECT_EQ(schermo.text(password(2)), t("987654"));
  EXPECT_EQ(schermo.hint(password(2)), t("Al massimo 6 caratteri"));
  schermo.press(Qt::Key_Backspace);
  EXPECT_EQ(schermo.text(password(2)), t("98765"));
  schermo.line(password(2)).selectAll();
  schermo.press(Qt::Key_X, Qt::ControlModifier);
  EXPECT_EQ(schermo.text(password(2)), QString());
  schermo.paste(password(2), t("a1b2c3"));
  EXPECT_EQ(schermo.text(password(2)), t("123"));
}

TEST_F(Operatori, DiecimilaCaratteriIncollatiSiTagliano) {
  const GuidedForm schermo = apri();
  schermo.paste(nome(4), QString(10000, u'Z'));
  EXPECT_EQ(schermo.text(nome(4)), QString(10, u'Z'));
  schermo.paste(password(4), QString(10000, u'7'));
  EXPECT_EQ(schermo.text(password(4)), t("777777"));
  schermo.click(kSalva);
  EXPECT_EQ(onDisk(inizio(4), kByteRecord), byteOperatore("ZZZZZZZZZZ", 1, "777777"));
}

// "Salva Modifiche".

TEST_F(Operatori, IlSalvataggioScriveDescrizioneAbilitazioneEPassword) {
  put(inizio(6), QByteArray(kByteRecord, 'x').replace(26, 7, QByteArray("222222\0", 7)));
  const QByteArray prima = onDisk(0, kFile);
  const GuidedForm schermo = apri();
  schermo.type(nome(6), t("MARIO ROSSI E FIGLI"));
  EXPECT_EQ(schermo.text(nome(6)), t("MARIO ROSS"));
  schermo.type(password(6), t("654321"));
  schermo.click(no(6));
  schermo.click(kSalva);
  expectBoxes(program, {});
  QByteArray attesi = prima;
  attesi.replace(
      inizio(6), kByteRecord,
      QByteArray("MARIO ROSS\0", 11) + QByteArray(14, 'x') + QByteArray("\0", 1) + QByteArray("654321\0", 7));
  EXPECT_EQ(onDisk(0, kFile), attesi);
  EXPECT_EQ(varGestionePRG().ModificaOperatori, kFalso);
  EXPECT_EQ(schermo.foot(), t("Salvato: 1 operatore"));
  EXPECT_EQ(schermo.footKind(), OutcomeBar::Kind::Done);
}

TEST_F(Operatori, OgniRigaHaISuoiByte) {
  const GuidedForm schermo = apri();
  QByteArray attesi;
  for (int riga = 0; riga < kOperatori; ++riga) {
    schermo.type(nome(riga), t("OP%1").arg(riga));
    schermo.type(password(riga), t("90000%1").arg(riga));
    const bool abilitato = riga % 3 == 0;
    schermo.click(abilitato ? si(riga) : no(riga));
    // What was there stays behind the end of the shorter text: "CASSA 0" had seven letters.
    attesi += QByteArray("OP" + QByteArray::number(riga) + '\0' + "A " + QByteArray::number(riga))
                  .leftJustified(25, '\0') +
              char(abilitato ? 1 : 0) + "90000" + QByteArray::number(riga) + '\0';
  }
  schermo.click(kSalva);
  EXPECT_EQ(onDisk(kPrimo, kOperatori * kByteRecord).toHex(), attesi.toHex());
  EXPECT_EQ(schermo.foot(), t("Salvato: 10 operatori"));
  for (int riga = 0; riga < kOperatori; ++riga) EXPECT_EQ(schermo.text(nome(riga)), t("OP%1").arg(riga));
}

TEST_F(Operatori, ITestiVecchiDietroLoZeroRestano) {
  put(inizio(1), byteOperatore("VECCHIONE", 1, "111111"));
  const GuidedForm schermo = apri();
  schermo.type(nome(1), t("AB"));
  schermo.click(kSalva);
  EXPECT_EQ(onDisk(inizio(1), 11), QByteArray("AB\0CHIONE\0\0", 11));
}

TEST_F(Operatori, UnaPasswordDiCinqueCifreFermaIlSalvataggioAllaSuaRiga) {
  const QByteArray prima = onDisk(0, kFile);
  const GuidedForm schermo = apri();
  schermo.type(nome(0), t("ANNA"));
  schermo.type(password(7), t("12345"));
  schermo.click(kSalva);
  expectBoxes(program, {warning(kPasswordCorte)});
  EXPECT_EQ(schermo.focus(), password(7));
  EXPECT_EQ(schermo.ground(password(7)), kGiallo);
  EXPECT_TRUE(schermo.line(password(7)).styleSheet().contains(t("border: 2px solid #ff8080")));
  EXPECT_EQ(schermo.text(password(7)), t("12345"));
  EXPECT_EQ(onDisk(0, kFile), prima);
  EXPECT_EQ(varGestionePRG().ModificaOperatori, kVero);
  EXPECT_EQ(schermo.foot(), kPasswordCorte);
  EXPECT_EQ(schermo.footKind(), OutcomeBar::Kind::Warning);
  QTest::keyClick(&schermo.line(password(7)), Qt::Key_End);
  QTest::keyClicks(&schermo.line(password(7)), t("6"));
  EXPECT_FALSE(schermo.line(password(7)).styleSheet().contains(t("ff8080"))) << "it is looked at anew";
  schermo.click(kSalva);
  expectBoxes(program, {});
  EXPECT_EQ(onDisk(inizio(7) + kPassword, 7), QByteArray("123456\0", 7));
  EXPECT_EQ(onDisk(inizio(0), 5), QByteArray("ANNA\0", 5));
}

TEST_F(Operatori, IlBordoRossoSiVede) {
  const GuidedForm schermo = apri();
  schermo.type(password(0), t("1"));
  schermo.click(kSalva);
  program.takeBoxes();
  QCoreApplication::processEvents();
  const QImage dipinta = schermo.line(password(0)).grab().toImage();
  EXPECT_EQ(dipinta.pixelColor(0, dipinta.height() / 2), QColor(0xFF, 0x80, 0x80));
}

TEST_F(Operatori, FermaAncheSenzaModifiche) {
  put(inizio(5) + kPassword, QByteArray("12\0\0\0\0\0", 7));
  const GuidedForm schermo = apri();
  schermo.click(kSalva);
  expectBoxes(program, {warning(kPasswordCorte)});
  EXPECT_EQ(schermo.focus(), password(5));
  EXPECT_EQ(schermo.ground(password(5)), kGiallo);
  EXPECT_EQ(varGestionePRG().ModificaOperatori, kFalso) << "a look changes nothing";
}

TEST_F(Operatori, SiFermaAllaPrimaRigaSbagliataEDiceUnaVoltaSola) {
  put(inizio(8) + kPassword, QByteArray(7, '\0'));
  put(inizio(3) + kPassword, QByteArray("1\0\0\0\0\0\0", 7));
  const GuidedForm schermo = apri();
  schermo.click(kSalva);
  expectBoxes(program, {warning(kPasswordCorte)});
  EXPECT_EQ(schermo.focus(), password(3));
  EXPECT_EQ(schermo.ground(password(8)), kBianco);
  schermo.type(password(3), t("333333"));
  schermo.click(kSalva);
  expectBoxes(program, {warning(kPasswordCorte)});
  EXPECT_EQ(schermo.focus(), password(8));
  schermo.type(password(8), t("888888"));
  schermo.click(kSalva);
  expectBoxes(program, {});
  EXPECT_EQ(onDisk(inizio(3) + kPassword, 7), QByteArray("333333\0", 7));
  EXPECT_EQ(onDisk(inizio(8) + kPassword, 7), QByteArray("888888\0", 7));
}

TEST_F(Operatori, UnaPasswordDiSetteCaratteriNelFileFermaAnchEssa) {
  put(inizio(9) + kPassword, QByteArray("1234567", 7));
  const GuidedForm schermo = apri();
  EXPECT_EQ(schermo.text(password(9)), t("1234567"));
  schermo.click(kSalva);
  expectBoxes(program, {warning(kPasswordCorte)});
  EXPECT_EQ(schermo.focus(), password(9));
}

TEST_F(Operatori, SenzaModificheNonScriveNulla) {
  const GuidedForm schermo = apri();
  QFile::remove(varGestionePRG().PathConfigurazione);
  schermo.click(kSalva);
  expectBoxes(program, {});
  EXPECT_FALSE(QFile::exists(varGestionePRG().PathConfigurazione));
  EXPECT_EQ(schermo.foot(), t("Nessuna modifica da salvare"));
}

TEST_F(Operatori, ColFuocoAltroveChiedePrimaDiSalvare) {
  const GuidedForm schermo = apri();
  schermo.type(nome(0), t("ANNA"));
  program.user.answers(Answer::No);
  schermo.press(Qt::Key_S, Qt::ControlModifier);
  expectBoxes(program, {kSaveQuestion});
  EXPECT_EQ(onDisk(kPrimo, 8), QByteArray("CASSA 0\0", 8));
  EXPECT_EQ(varGestionePRG().ModificaOperatori, kVero);
  EXPECT_EQ(schermo.text(nome(0)), t("ANNA"));
  EXPECT_TRUE(schermo.dotted(nome(0)));
  program.user.answers(Answer::Yes);
  schermo.press(Qt::Key_S, Qt::ControlModifier);
  expectBoxes(program, {kSaveQuestion});
  EXPECT_EQ(onDisk(kPrimo, 5), QByteArray("ANNA\0", 5));
  EXPECT_EQ(varGestionePRG().ModificaOperatori, kFalso);
}

TEST_F(Operatori, UnaPasswordCortaFermaPrimaDellaDomanda) {
  const GuidedForm schermo = apri();
  schermo.type(password(0), t("1"));
  schermo.press(Qt::Key_S, Qt::ControlModifier);
  expectBoxes(program, {warning(kPasswordCorte)});
  EXPECT_EQ(schermo.focus(), password(0));
}

TEST_F(Operatori, UnSalvataggioFallitoLasciaTuttoDaSalvare) {
  const GuidedForm schermo = apri();
  const QString percorso = varGestionePRG().PathConfigurazione;
  varGestionePRG().PathConfigurazione = program.folder.file(t("sparita/negozio.dat"));
  schermo.type(nome(0), t("ANNA"));
  schermo.click(kSalva);
  expectBoxes(program, {plainBox(t("Error 76 (*"))});
  EXPECT_EQ(schermo.footKind(), OutcomeBar::Kind::Failed);
  EXPECT_EQ(inMemory(kPrimo, 8), QByteArray("CASSA 0\0", 8));
  EXPECT_EQ(varGestionePRG().ModificaOperatori, kVero);
  EXPECT_TRUE(schermo.dotted(nome(0)));
  varGestionePRG().PathConfigurazione = percorso;
  schermo.click(kSalva);
  EXPECT_EQ(onDisk(kPrimo, 5), QByteArray("ANNA\0", 5));
}

// Marks.

TEST_F(Operatori, OgniModificaAccendeLaBandieraESegnaIlSuoCampo) {
  struct Modifica {
    const char* campo;
    std::function<void(const GuidedForm&)> fai;
  };
  const std::vector<Modifica> modifiche{
      {"vkTextBox_OPE_0", [](const GuidedForm& s) { s.type(nome(0), t("A")); }},
      {"vkTextBox_Password_OPE_9", [](const GuidedForm& s) { s.type(password(9), t("222222")); }},
      {"vkOptionButtonAbil_OPE_4", [](const GuidedForm& s) { s.click(no(4)); }}};
  const GuidedForm schermo = apri();
  for (const Modifica& una : modifiche) {
    const QString campo = QLatin1String(una.campo);
    EXPECT_FALSE(schermo.dotted(campo)) << una.campo;
    una.fai(schermo);
    EXPECT_EQ(varGestionePRG().ModificaOperatori, kVero) << una.campo;
    EXPECT_TRUE(schermo.dotted(campo)) << una.campo;
    EXPECT_EQ(schermo.ground(t("Cornice_") + campo) == kGiallo || schermo.ground(campo) == kGiallo, true)
        << una.campo;
    schermo.click(kAnnulla);
    EXPECT_EQ(varGestionePRG().ModificaOperatori, kFalso) << una.campo;
    EXPECT_FALSE(schermo.dotted(campo)) << una.campo;
  }
}

TEST_F(Operatori, SalvatoIlGialloVaVia) {
  const GuidedForm schermo = apri();
  schermo.type(nome(0), t("ANNA"));
  EXPECT_EQ(schermo.ground(nome(0)), kGiallo);
  EXPECT_EQ(schermo.foot(), t("Modifiche non salvate: OPERATORE 1, Descrizione"));
  schermo.click(kSalva);
  EXPECT_EQ(schermo.ground(nome(0)), kBianco);
  EXPECT_FALSE(schermo.dotted(nome(0)));
}

// "Annulla modifiche" and the refill.

TEST_F(Operatori, AnnullaRiportaLeRigheESpegneIlSegnoDellErrore) {
  const GuidedForm schermo = apri();
  schermo.type(nome(0), t("ANNA"));
  schermo.type(password(2), t("12"));
  schermo.click(no(1));
  schermo.click(kSalva);
  program.takeBoxes();
  schermo.click(kAnnulla);
  expectBoxes(program, {});
  EXPECT_EQ(schermo.text(nome(0)), t("CASSA 0"));
  EXPECT_EQ(schermo.text(password(2)), t("111111"));
  EXPECT_TRUE(schermo.checked(si(1)));
  EXPECT_EQ(schermo.ground(password(2)), kBianco);
  EXPECT_FALSE(schermo.line(password(2)).styleSheet().contains(t("ff8080")));
  EXPECT_EQ(varGestionePRG().ModificaOperatori, kFalso);
  EXPECT_EQ(schermo.foot(), t("Modifiche annullate: OPERATORE 1, Descrizione; OPERATORE 2, Abilitazione; "
                              "OPERATORE 3, Password"));
}

TEST_F(Operatori, AnnullaSpegneAncheUnErroreSenzaModifiche) {
  put(inizio(5) + kPassword, QByteArray(7, '\0'));
  const GuidedForm schermo = apri();
  schermo.click(kSalva);
  program.takeBoxes();
  ASSERT_EQ(schermo.ground(password(5)), kGiallo);
  schermo.click(kAnnulla);
  EXPECT_EQ(schermo.ground(password(5)), kBianco);
}

TEST_F(Operatori, RicaricareRiempieDallaMemoria) {
  const GuidedForm schermo = apri();
  schermo.type(nome(0), t("ANNA"));
  config::scriviTesto(config::immagineProgrammazione().record(config::kOperatore, 1),
                      config::operatore::kDescrizione, t("LETTO"));
  editors::RicaricaEditor(program.contesto);
  EXPECT_EQ(schermo.text(nome(0)), t("CASSA 0"));
  EXPECT_EQ(schermo.text(nome(1)), t("LETTO"));
  EXPECT_FALSE(schermo.dotted(nome(0)));
  EXPECT_EQ(varGestionePRG().ModificaOperatori, kFalso);
}

TEST_F(Operatori, LaGuardiaSalvaLeRigheESiFermaAUnaPasswordCorta) {
  const GuidedForm schermo = apri();
  schermo.type(password(0), t("12"));
  EXPECT_FALSE(editors::SalvaModificati(program.contesto).salvato);
  expectBoxes(program, {warning(kPasswordCorte)});
  EXPECT_EQ(onDisk(kPrimo + kPassword, 7), QByteArray("111111\0", 7));
  EXPECT_EQ(varGestionePRG().ModificaOperatori, kVero);
  schermo.type(password(0), t("123456"));
  EXPECT_TRUE(editors::SalvaModificati(program.contesto).salvato);
  expectBoxes(program, {});
  EXPECT_EQ(onDisk(kPrimo + kPassword, 7), QByteArray("123456\0", 7));
  EXPECT_EQ(varGestionePRG().ModificaOperatori, kFalso);
}

TEST_F(Operatori, UnByteDiAbilitazioneCheNonEZeroNeUnoSiVedeSiESiSalvaUno) {
  put(inizio(0) + kAbilitazione, QByteArray("\x07"));
  const GuidedForm schermo = apri();
  EXPECT_TRUE(schermo.checked(si(0)));
  schermo.type(nome(1), t("ANNA"));
  schermo.click(kSalva);
  EXPECT_EQ(onDisk(inizio(0) + kAbilitazione, 1), QByteArray("\x01"));
}

TEST_F(Operatori, ADodiciPuntiSta) {
  expectTabsFitAtTwelvePoints(apri());
}
