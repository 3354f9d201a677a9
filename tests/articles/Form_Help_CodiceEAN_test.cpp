#include "articles/Form_Help_CodiceEAN.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTest>
#include <QTextBrowser>
#include <QTextTable>
#include <QTimer>

#include "articles/Form_ArchivioArticoli.h"
#include "articles/back_room.h"
#include "controls/rtf.h"
#include "platform/error.h"
#include "sostegno/guided_screen.h"

namespace {

const QString kSchermo = QStringLiteral("Form_Help_CodiceEAN");
const QString kFile = QStringLiteral("Help_CodiceEAN.rtf");

/// The digit that makes the sum, the last digit but one counting three times, a multiple of ten.
int cifraDiControllo(const QString& senza) {
  int somma = 0;
  for (qsizetype i = 0; i < senza.size(); ++i)
    somma += senza[i].digitValue() * ((senza.size() - i) % 2 == 1 ? 3 : 1);
  return (10 - somma % 10) % 10;
}

class HelpCodiceEAN : public testing::Test {
 protected:
  HelpCodiceEAN() {
    bottega_.screens.registra<Form_Help_CodiceEAN>();
    bottega_.contesto.cartella = bottega_.folder.path();
    EXPECT_TRUE(QFile::copy(QStringLiteral(GESTIONALE_APP "/") + kFile, bottega_.folder.file(kFile)));
  }
  QString testo() const {
    QTextDocument documento;
    QFile file(QStringLiteral(GESTIONALE_APP "/") + kFile);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    rtf::read(file.readAll(), documento);
    return documento.toPlainText();
  }

  BackRoom bottega_;
};

}  // namespace

TEST_F(HelpCodiceEAN, MostraIlTestoInSolaLettura) {
  const GuidedScreen schermo(bottega_, kSchermo);
  EXPECT_EQ(schermo.window().windowTitle(), QStringLiteral("Help Codice EAN"));
  auto& testo = schermo.control<QTextBrowser>(QStringLiteral("RichTextBox1"));
  EXPECT_TRUE(testo.isReadOnly());
  EXPECT_TRUE(testo.toPlainText().startsWith(QStringLiteral("Il codice EAN")));
  EXPECT_EQ(testo.document()->firstBlock().blockFormat().headingLevel(), 1);
  const QString prima = testo.toPlainText();
  QTest::keyClicks(&testo, QStringLiteral("x"));
  EXPECT_EQ(testo.toPlainText(), prima);
}

TEST_F(HelpCodiceEAN, SiScorreConITasti) {
  const GuidedScreen schermo(bottega_, kSchermo);
  schermo.window().resize(640, 400);
  auto& testo = schermo.control<QTextBrowser>(QStringLiteral("RichTextBox1"));
  EXPECT_TRUE(testo.hasFocus());
  const QScrollBar& barra = *testo.verticalScrollBar();
  ASSERT_GT(barra.maximum(), 0);
  EXPECT_EQ(barra.value(), 0);
  schermo.key(Qt::Key_Down);
  const int unaRiga = barra.value();
  EXPECT_GT(unaRiga, 0);
  schermo.key(Qt::Key_PageDown);
  EXPECT_GT(barra.value(), 2 * unaRiga);
  schermo.key(Qt::Key_End);
  EXPECT_EQ(barra.value(), barra.maximum());
  schermo.key(Qt::Key_Home);
  EXPECT_EQ(barra.value(), 0);
  EXPECT_EQ(testo.horizontalScrollBar()->maximum(), 0);
}

TEST_F(HelpCodiceEAN, EscEIlPulsanteChiudono) {
  const GuidedScreen coiTasti(bottega_, kSchermo);
  coiTasti.key(Qt::Key_Escape);
  EXPECT_FALSE(coiTasti.alive());
  const GuidedScreen colMouse(bottega_, kSchermo);
  EXPECT_EQ(colMouse.text(QStringLiteral("Cmd_Esci")), QStringLiteral("Esci"));
  colMouse.click(QStringLiteral("Cmd_Esci"));
  EXPECT_FALSE(colMouse.alive());
  EXPECT_EQ(bottega_.screens.trova(kSchermo), nullptr);
}

TEST_F(HelpCodiceEAN, InvioNonEsceSeIlFuocoNonESulPulsante) {
  const GuidedScreen schermo(bottega_, kSchermo);
  schermo.key(Qt::Key_Return);
  EXPECT_TRUE(schermo.alive());
  schermo.control("Cmd_Esci").setFocus();
  schermo.key(Qt::Key_Return);
  EXPECT_FALSE(schermo.alive());
}

TEST_F(HelpCodiceEAN, DaModaleTieneGliAltriSchermiFinoAllaChiusura) {
  bool visto = false;
  QTimer::singleShot(0, [&] {
    QWidget* schermo = bottega_.screens.trova(kSchermo);
    ASSERT_NE(schermo, nullptr);
    visto = schermo->isModal();
    QTest::keyClick(schermo, Qt::Key_Escape);
  });
  bottega_.screens.mostraModale(kSchermo, bottega_.contesto);
  EXPECT_TRUE(visto);
  EXPECT_EQ(bottega_.screens.trova(kSchermo), nullptr);
}

TEST_F(HelpCodiceEAN, SiApreDallArchivioEVaViaConEsc) {
  bottega_.contesto.cartella = QStringLiteral(GESTIONALE_APP);
  bottega_.screens.registra<Form_ArchivioArticoli>();
  bottega_.openArchive();
  const GuidedScreen archivio(bottega_, QStringLiteral("Form_ArchivioArticoli"));
  QString pagina;
  QTimer persona;
  QObject::connect(&persona, &QTimer::timeout, [&] {
    QWidget* help = QApplication::activeModalWidget();
    if (help == nullptr) return;
    EXPECT_EQ(help->objectName(), kSchermo);
    if (const auto* testo = help->findChild<QTextBrowser*>(QStringLiteral("RichTextBox1")))
      pagina = testo->toPlainText();
    QTest::keyClick(help, Qt::Key_Escape);
  });
  persona.start(0);
  archivio.click(QStringLiteral("vkCommandHELP"));
  EXPECT_EQ(pagina, testo());
  EXPECT_TRUE(archivio.alive());
}

TEST_F(HelpCodiceEAN, SenzaFileOConUnFileRottoDiceQualeErrore) {
  const auto numero = [&] {
    try {
      bottega_.screens.carica(kSchermo, bottega_.contesto);
    } catch (const Errore& errore) {
      EXPECT_FALSE(errore.descrizione.isEmpty());
      return errore.numero;
    }
    return 0;
  };
  QFile::remove(bottega_.folder.file(kFile));
  EXPECT_EQ(numero(), 53);
  bottega_.folder.write(kFile, "niente di buono");
  EXPECT_EQ(numero(), 321);
  EXPECT_EQ(bottega_.screens.trova(kSchermo), nullptr);
}

TEST_F(HelpCodiceEAN, OgniCodiceDelTestoHaLaSuaCifraDiControllo) {
  static const QRegularExpression codice(QStringLiteral("\\b(\\d{12}|\\d{7})(\\d)\\b"));
  QRegularExpressionMatchIterator trovati = codice.globalMatch(testo());
  int tredici = 0;
  int otto = 0;
  while (trovati.hasNext()) {
    const QRegularExpressionMatch uno = trovati.next();
    EXPECT_EQ(uno.captured(2).toInt(), cifraDiControllo(uno.captured(1))) << uno.captured().toStdString();
    ++(uno.captured(1).size() == 12 ? tredici : otto);
  }
  EXPECT_GE(tredici, 3);
  EXPECT_GE(otto, 2);
}

TEST_F(HelpCodiceEAN, IlContoDellEsempioTorna) {
  const QString pagina = testo();
  static const QRegularExpression dispari(
      QStringLiteral("dispari: (\\d) \\+ (\\d) \\+ (\\d) \\+ (\\d) \\+ (\\d) \\+ (\\d) = (\\d+);"));
  static const QRegularExpression pari(
      QStringLiteral("\\((\\d) \\+ (\\d) \\+ (\\d) \\+ (\\d) \\+ (\\d) \\+ (\\d)\\) × 3 = (\\d+);"));
  static const QRegularExpression fine(
      QStringLiteral("risultati: (\\d+) \\+ (\\d+) = (\\d+);[^:]*controllo: (\\d+) – (\\d+) = (\\d)\\."));
  const auto unoPerUno = [&](const QRegularExpression& forma) {
    const QRegularExpressionMatch trovato = forma.match(pagina);
    EXPECT_TRUE(trovato.hasMatch()) << forma.pattern().toStdString();
    QList<int> numeri;
    for (int i = 1; i <= trovato.lastCapturedIndex(); ++i) numeri << trovato.captured(i).toInt();
    return numeri;
  };
  const QList<int> d = unoPerUno(dispari);
  const QList<int> p = unoPerUno(pari);
  const QList<int> f = unoPerUno(fine);
  ASSERT_EQ(d.size(), 7);
  ASSERT_EQ(p.size(), 7);
  ASSERT_EQ(f.size(), 6);
  EXPECT_EQ(d[0] + d[1] + d[2] + d[3] + d[4] + d[5], d[6]);
  EXPECT_EQ(3 * (p[0] + p[1] + p[2] + p[3] + p[4] + p[5]), p[6]);
  EXPECT_EQ(f, (QList<int>{d[6], p[6], d[6] + p[6], f[3], d[6] + p[6], f[3] - d[6] - p[6]}));
  EXPECT_EQ(f[3] % 10, 0);
  QString codice;
  for (int i = 0; i < 6; ++i) codice += QString::number(d[i]) + QString::number(p[i]);
  EXPECT_EQ(f[5], cifraDiControllo(codice));
  EXPECT_TRUE(pagina.contains(QStringLiteral("per ") + codice));
  EXPECT_TRUE(pagina.contains(codice + QString::number(f[5])));
}

TEST_F(HelpCodiceEAN, HaTabelleDiDueColonneEUnElenco) {
  const GuidedScreen schermo(bottega_, kSchermo);
  const QTextDocument& documento = *schermo.control<QTextBrowser>(QStringLiteral("RichTextBox1")).document();
  int tabelle = 0;
  for (const QTextFrame* figlio : documento.rootFrame()->childFrames())
    if (const auto* tabella = qobject_cast<const QTextTable*>(figlio)) {
      EXPECT_EQ(tabella->columns(), 2);
      ++tabelle;
    }
  EXPECT_EQ(tabelle, 3);
  int voci = 0;
  for (QTextBlock blocco = documento.begin(); blocco.isValid(); blocco = blocco.next())
    if (blocco.textList() != nullptr) ++voci;
  EXPECT_EQ(voci, 7);
}
