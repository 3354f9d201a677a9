#include "controls/guarded_field.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QTest>
#include <QVBoxLayout>

namespace {

bool cifreEVirgola(const QString&, QChar tasto) {
  return tasto.isDigit() || tasto == u',' || tasto == kBackspaceKey;
}
QString perche(const QString&, QChar tasto) {
  return QStringLiteral("Solo cifre e virgola, non ") + tasto;
}
bool indirizzo(const QString&, QChar tasto) {
  return tasto.isDigit() || tasto == u'.';
}
constexpr KeyRule kImporto{cifreEVirgola, perche};

std::optional<Rejection> menoDiCento(const QString& testo) {
  if (testo.toInt() < 100) return std::nullopt;
  return Rejection{QStringLiteral("Troppo: ") + testo, QStringLiteral("0")};
}

/// A field between two others, in a window.
class Custodito : public testing::Test {
 protected:
  Custodito() {
    campo_->setObjectName(QStringLiteral("prezzo"));
    campo_->setAccessibleDescription(QStringLiteral("Prezzo di vendita"));
    auto* disposizione = new QVBoxLayout(&finestra_);
    for (QWidget* uno : std::initializer_list<QWidget*>{campo_, altro_, comando_})
      disposizione->addWidget(uno);
    disposizione->addStretch();
  }

  void mostra(KeyRule regola, FieldCheck controllo = nullptr) {
    new GuardedField(*campo_, regola, std::move(controllo),
                     [this](const QString& detto) { detti_ << detto; });
    finestra_.resize(300, 300);
    finestra_.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&finestra_));
    campo_->setFocus();
  }
  void scrivi(const QString& tasti) { QTest::keyClicks(campo_, tasti); }
  /// What stands under the field, empty for nothing.
  QString avviso() const {
    const auto* etichetta = finestra_.findChild<QLabel*>(QStringLiteral("Avviso_prezzo"));
    return etichetta && etichetta->isVisible() ? etichetta->text() : QString();
  }

  QWidget finestra_;
  QLineEdit* campo_ = new QLineEdit;
  QLineEdit* altro_ = new QLineEdit;
  QPushButton* comando_ = new QPushButton(QStringLiteral("Vai"));
  QStringList detti_;
};

TEST_F(Custodito, UnTastoRifiutatoDiceIlPerchePocoSottoIlCampo) {
  mostra(kImporto);
  scrivi(QStringLiteral("1x"));
  EXPECT_EQ(campo_->text(), QStringLiteral("1"));
  EXPECT_EQ(avviso(), QStringLiteral("Solo cifre e virgola, non x"));
  const auto& etichetta = *finestra_.findChild<QLabel*>(QStringLiteral("Avviso_prezzo"));
  EXPECT_EQ(etichetta.x(), campo_->x());
  EXPECT_GE(etichetta.y(), campo_->geometry().bottom());
  EXPECT_LE(etichetta.y(), campo_->geometry().bottom() + 8);
  EXPECT_TRUE(finestra_.rect().contains(etichetta.geometry()));
  EXPECT_TRUE(detti_.isEmpty());
}

TEST_F(Custodito, IlTastoBuonoCheSegueToglieLAvvisoEILMaiuscoleNo) {
  mostra(kImporto);
  scrivi(QStringLiteral("x"));
  QTest::keyPress(campo_, Qt::Key_Shift);
  EXPECT_FALSE(avviso().isEmpty());
  scrivi(QStringLiteral("7"));
  EXPECT_EQ(avviso(), QString());
  scrivi(QStringLiteral("x"));
  QTest::keyClick(campo_, Qt::Key_Backspace);
  EXPECT_EQ(avviso(), QString());
  scrivi(QStringLiteral("x"));
  QTest::keyClick(campo_, Qt::Key_Left);
  EXPECT_EQ(avviso(), QString());
}

TEST_F(Custodito, LasciandoIlCampoLAvvisoSparisce) {
  mostra(kImporto);
  scrivi(QStringLiteral("x"));
  QTest::keyClick(campo_, Qt::Key_Tab);
  EXPECT_TRUE(altro_->hasFocus());
  EXPECT_EQ(avviso(), QString());
}

TEST_F(Custodito, UnValoreScrittoDalProgrammaToglieLAvviso) {
  mostra(kImporto);
  scrivi(QStringLiteral("x"));
  campo_->setText(QStringLiteral("12,50"));
  EXPECT_EQ(avviso(), QString());
}

TEST_F(Custodito, ChiAscoltaLoSchermoSenteLAvvisoComeDescrizioneDelCampo) {
  mostra(kImporto);
  scrivi(QStringLiteral("x"));
  EXPECT_EQ(campo_->accessibleDescription(), QStringLiteral("Solo cifre e virgola, non x"));
  scrivi(QStringLiteral("y"));
  scrivi(QStringLiteral("1"));
  EXPECT_EQ(campo_->accessibleDescription(), QStringLiteral("Prezzo di vendita"));
}

TEST_F(Custodito, InFondoAllaFinestraLAvvisoStaSopraEADestraNonEsce) {
  mostra(kImporto);
  finestra_.layout()->removeWidget(campo_);
  campo_->setGeometry(finestra_.width() - 50, finestra_.height() - 30, 50, 28);
  scrivi(QStringLiteral("x"));
  const auto& etichetta = *finestra_.findChild<QLabel*>(QStringLiteral("Avviso_prezzo"));
  EXPECT_LT(etichetta.geometry().bottom(), campo_->y());
  EXPECT_EQ(etichetta.geometry().right(), finestra_.width() - 1);
}

TEST_F(Custodito, InUnaParteCheScorreLAvvisoScorreColCampo) {
  auto* area = new QScrollArea(&finestra_);
  auto* dentro = new QWidget;
  finestra_.layout()->addWidget(area);
  campo_->setParent(dentro);
  campo_->setGeometry(10, 300, 100, 28);
  dentro->resize(200, 900);
  area->setWidget(dentro);
  mostra(kImporto);
  scrivi(QStringLiteral("x"));
  EXPECT_EQ(finestra_.findChild<QLabel*>(QStringLiteral("Avviso_prezzo"))->parentWidget(), dentro);
}

TEST_F(Custodito, IlTastoDecimaleDelTastierinoScriveLaVirgola) {
  mostra(kImporto);
  scrivi(QStringLiteral("12"));
  QTest::keyClick(campo_, Qt::Key_Period, Qt::KeypadModifier);
  scrivi(QStringLiteral("5"));
  EXPECT_EQ(campo_->text(), QStringLiteral("12,5"));
  EXPECT_EQ(avviso(), QString());
  QTest::keyClick(campo_, Qt::Key_Period);
  EXPECT_EQ(campo_->text(), QStringLiteral("12,5")) << "the point of the letters' block is none";
  EXPECT_EQ(avviso(), QStringLiteral("Solo cifre e virgola, non ."));
}

TEST_F(Custodito, LaVirgolaDelTastierinoRispettaLaLunghezzaEIlCursore) {
  campo_->setMaxLength(3);
  mostra(kImporto);
  scrivi(QStringLiteral("12"));
  campo_->setCursorPosition(1);
  QTest::keyClick(campo_, Qt::Key_Period, Qt::KeypadModifier);
  EXPECT_EQ(campo_->text(), QStringLiteral("1,2"));
  QTest::keyClick(campo_, Qt::Key_Period, Qt::KeypadModifier);
  EXPECT_EQ(campo_->text(), QStringLiteral("1,2"));
  EXPECT_EQ(avviso(), QStringLiteral("Al massimo 3 caratteri"));
}

TEST_F(Custodito, DoveSiScriveIlPuntoIlTastierinoScriveIlPunto) {
  mostra({indirizzo, perche});
  scrivi(QStringLiteral("127"));
  QTest::keyClick(campo_, Qt::Key_Period, Qt::KeypadModifier);
  EXPECT_EQ(campo_->text(), QStringLiteral("127."));
}

TEST_F(Custodito, UnCampoPienoLoDice) {
  campo_->setMaxLength(3);
  mostra({});
  scrivi(QStringLiteral("abcd"));
  EXPECT_EQ(campo_->text(), QStringLiteral("abc"));
  EXPECT_EQ(avviso(), QStringLiteral("Al massimo 3 caratteri"));
  QTest::keyClick(campo_, Qt::Key_Backspace);
  EXPECT_EQ(avviso(), QString());
}

TEST_F(Custodito, UnCampoDiUnaLetteraDiceComeCambiarla) {
  campo_->setMaxLength(1);
  mostra({});
  scrivi(QStringLiteral("SN"));
  EXPECT_EQ(campo_->text(), QStringLiteral("S"));
  EXPECT_EQ(avviso(), QStringLiteral("Un carattere solo: cancellare prima di scrivere"));
}

TEST_F(Custodito, SenzaRegolaEntraTuttoEAnnullareSiPuo) {
  mostra({});
  scrivi(QStringLiteral("a.,'"));
  EXPECT_EQ(campo_->text(), QStringLiteral("a.,'"));
  QTest::keyClick(campo_, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_NE(campo_->text(), QStringLiteral("a.,'"));
  EXPECT_EQ(avviso(), QString());
}

TEST_F(Custodito, DoveAnnullareNonSiPuoSiDiceComeFare) {
  mostra(kImporto);
  scrivi(QStringLiteral("7"));
  QTest::keyClick(campo_, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(campo_->text(), QStringLiteral("7"));
  EXPECT_EQ(avviso(), QStringLiteral("Qui non si annulla: riscrivere il valore"));
}

TEST_F(Custodito, DiCioCheSiIncollaSiDiceCheCosaNonEEntrato) {
  mostra(kImporto);
  QGuiApplication::clipboard()->setText(QStringLiteral("€ 1.234,50"));
  QTest::keyClick(campo_, Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(campo_->text(), QStringLiteral("1234,50"));
  EXPECT_EQ(avviso(), QStringLiteral("Solo cifre e virgola, non €"));
}

TEST_F(Custodito, DopoUnRifiutoIlFuocoETornatoNelCampoSelezionato) {
  mostra(kImporto, menoDiCento);
  scrivi(QStringLiteral("150"));
  QTest::keyClick(campo_, Qt::Key_Tab);
  EXPECT_EQ(detti_, QStringList{QStringLiteral("Troppo: 150")});
  EXPECT_TRUE(QTest::qWaitFor([&] { return campo_->hasFocus(); }));
  EXPECT_EQ(campo_->selectedText(), QStringLiteral("0"));
  QTest::keyClick(campo_, Qt::Key_Tab);
  EXPECT_TRUE(altro_->hasFocus());
  EXPECT_EQ(detti_.size(), 1) << "what it was set to may stay";
}

TEST_F(Custodito, UnCampoSpentoDalRifiutoNonRiprendeIlFuoco) {
  mostra(kImporto, menoDiCento);
  scrivi(QStringLiteral("150"));
  QTest::keyClick(campo_, Qt::Key_Tab);
  campo_->setEnabled(false);
  QApplication::processEvents();
  EXPECT_FALSE(campo_->hasFocus());
}

TEST_F(Custodito, UnComandoDatoColTastoControllaPrimaIlCampoColFuoco) {
  mostra(kImporto, menoDiCento);
  scrivi(QStringLiteral("99"));
  EXPECT_TRUE(GuardedField::settled(finestra_));
  scrivi(QStringLiteral("9"));
  EXPECT_FALSE(GuardedField::settled(finestra_));
  EXPECT_EQ(detti_, QStringList{QStringLiteral("Troppo: 999")});
  EXPECT_EQ(campo_->text(), QStringLiteral("0"));
  EXPECT_TRUE(campo_->hasFocus());
  altro_->setFocus();
  EXPECT_TRUE(GuardedField::settled(finestra_)) << "no guarded field has the focus";
}

TEST_F(Custodito, IlCampoSeNeVaColSuoAvviso) {
  mostra(kImporto);
  scrivi(QStringLiteral("x"));
  delete campo_;
  EXPECT_EQ(finestra_.findChild<QLabel*>(QStringLiteral("Avviso_prezzo")), nullptr);
}

}  // namespace
