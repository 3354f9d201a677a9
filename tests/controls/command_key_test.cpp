#include "controls/command_key.h"

#include <gtest/gtest.h>

#include <QDialog>
#include <QKeySequence>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include "controls/guarded_field.h"
#include "controls/primary_command.h"

namespace {

std::optional<Rejection> mai(const QString& testo) {
  if (testo.isEmpty()) return std::nullopt;
  return Rejection{QStringLiteral("no"), {}};
}

class Tasti : public testing::Test {
 protected:
  Tasti() {
    auto* disposizione = new QVBoxLayout(&finestra_);
    for (QWidget* uno : std::initializer_list<QWidget*>{campo_, cerca_, salva_, esci_})
      disposizione->addWidget(uno);
    salva_->setToolTip(QStringLiteral("Salva i campi"));
  }
  void mostra() {
    finestra_.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&finestra_));
    campo_->setFocus();
  }
  void tasto(Qt::Key quale, Qt::KeyboardModifiers con = {}) {
    QTest::keyClick(finestra_.focusWidget(), quale, con);
  }

  QDialog finestra_;
  QLineEdit* campo_ = new QLineEdit;
  QPushButton* cerca_ = new QPushButton(QStringLiteral("Cerca"));
  QPushButton* salva_ = new QPushButton(QStringLiteral("Salva"));
  QPushButton* esci_ = new QPushButton(QStringLiteral("Esci"));
};

TEST_F(Tasti, IlTastoPremeIlComandoDaOgniPostoEStaNelSuggerimento) {
  commandKey(*salva_, QKeySequence::Save);
  mostra();
  const QSignalSpy premuto(salva_, &QPushButton::clicked);
  EXPECT_EQ(salva_->toolTip(), QStringLiteral("Salva i campi (Ctrl+S)"));
  tasto(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(premuto.size(), 1);
  esci_->setFocus();
  tasto(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(premuto.size(), 2);
  EXPECT_TRUE(campo_->text().isEmpty());
}

TEST_F(Tasti, UnComandoSpentoNonSiPreme) {
  commandKey(*salva_, Qt::Key_F5);
  mostra();
  const QSignalSpy premuto(salva_, &QPushButton::clicked);
  salva_->setEnabled(false);
  tasto(Qt::Key_F5);
  EXPECT_EQ(premuto.size(), 0);
}

TEST_F(Tasti, UnTastoCheIlCampoUsaPerIlCursoreEDelComando) {
  // Ctrl+E and Ctrl+F move the cursor on some desktops.
  commandKey(*salva_, Qt::CTRL | Qt::Key_E);
  mostra();
  const QSignalSpy premuto(salva_, &QPushButton::clicked);
  campo_->setText(QStringLiteral("abc"));
  campo_->setCursorPosition(0);
  tasto(Qt::Key_E, Qt::ControlModifier);
  EXPECT_EQ(premuto.size(), 1);
  EXPECT_EQ(campo_->cursorPosition(), 0);
}

TEST_F(Tasti, IlCampoColFuocoSiControllaComeSeLoSiLasciasse) {
  commandKey(*salva_, QKeySequence::Save);
  QStringList detti;
  new GuardedField(*campo_, {}, mai, [&](const QString& detto) { detti << detto; });
  mostra();
  const QSignalSpy premuto(salva_, &QPushButton::clicked);
  campo_->setText(QStringLiteral("x"));
  tasto(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(detti, QStringList{QStringLiteral("no")});
  EXPECT_EQ(premuto.size(), 0);
  tasto(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(premuto.size(), 1);
}

TEST_F(Tasti, IlTastoDiUnCampoViPortaEScegliTutto) {
  fieldKey(*campo_, QKeySequence::Find);
  mostra();
  campo_->setText(QStringLiteral("8001"));
  esci_->setFocus();
  tasto(Qt::Key_F, Qt::ControlModifier);
  EXPECT_TRUE(campo_->hasFocus());
  EXPECT_EQ(campo_->selectedText(), QStringLiteral("8001"));
  EXPECT_EQ(campo_->toolTip(), QStringLiteral("(Ctrl+F)"));
}

TEST_F(Tasti, InvioNonPremeIlComandoCheEsceELoSpazioSi) {
  notByEnter(*esci_);
  mostra();
  const QSignalSpy premuto(esci_, &QPushButton::clicked);
  esci_->setFocus();
  tasto(Qt::Key_Return);
  tasto(Qt::Key_Enter);
  EXPECT_EQ(premuto.size(), 0);
  tasto(Qt::Key_Space);
  EXPECT_EQ(premuto.size(), 1);
}

TEST_F(Tasti, IlComandoPrimarioSiSpostaEInvioLoSegue) {
  PrimaryCommand primario({{cerca_, QStringLiteral("search")}, {salva_, QStringLiteral("save")}});
  mostra();
  const QSignalSpy cercato(cerca_, &QPushButton::clicked);
  const QSignalSpy salvato(salva_, &QPushButton::clicked);
  EXPECT_TRUE(cerca_->property("primary").toBool());
  EXPECT_FALSE(salva_->property("primary").toBool());
  tasto(Qt::Key_Return);
  EXPECT_EQ(std::pair(cercato.size(), salvato.size()), std::pair(qsizetype{1}, qsizetype{0}));
  primario.moveTo(*salva_);
  EXPECT_FALSE(cerca_->property("primary").toBool());
  EXPECT_TRUE(salva_->property("primary").toBool());
  tasto(Qt::Key_Return);
  EXPECT_EQ(std::pair(cercato.size(), salvato.size()), std::pair(qsizetype{1}, qsizetype{1}));
  primario.moveTo(*cerca_);
  tasto(Qt::Key_Enter);
  EXPECT_EQ(std::pair(cercato.size(), salvato.size()), std::pair(qsizetype{2}, qsizetype{1}));
}

}  // namespace
