#include "articles/guided_screen.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QTest>
#include <array>

namespace {

void imbucaClic(QWidget& widget) {
  const QPointF centro = widget.rect().center();
  const QPointF sulloSchermo = widget.mapToGlobal(centro);
  for (const QEvent::Type tipo : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease})
    QCoreApplication::postEvent(
        &widget,
        new QMouseEvent(tipo, centro, sulloSchermo, Qt::LeftButton,
                        tipo == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier));
}

bool corrisponde(const Box& visto, const Box& atteso) {
  if (!atteso.text.endsWith(QLatin1Char('*'))) return visto == atteso;
  return visto.text.startsWith(atteso.text.chopped(1)) && visto.icon == atteso.icon &&
         visto.title == atteso.title && visto.buttons == atteso.buttons;
}

}  // namespace

SchermoGuidato::SchermoGuidato(Bottega& bottega, const QString& nome)
    : finestra_(&bottega.schermate.mostra(nome, bottega.contesto)) {
  EXPECT_TRUE(QTest::qWaitForWindowActive(finestra_));
}

bool SchermoGuidato::vivo() const {
  return finestra_ && finestra_->isVisible();
}

QString SchermoGuidato::testo(const QString& nome) const {
  return controllo(nome).property("text").toString();
}

void SchermoGuidato::clic(const QString& nome) const {
  QTest::mouseClick(&controllo(nome), Qt::LeftButton);
}

void SchermoGuidato::tasto(Qt::Key tasto) const {
  QWidget* dove = finestra_->focusWidget();
  QTest::keyClick(dove ? dove : finestra_.data(), tasto);
}

void SchermoGuidato::scriviIndirizzo(const QString& indirizzo) const {
  auto& casella = controllo<QLineEdit>(QStringLiteral("vkTextBoxIP_ECR"));
  casella.selectAll();
  QTest::keyClicks(&casella, indirizzo);
}

void SchermoGuidato::connetti(TestTill& cassa) const {
  scriviIndirizzo(cassa.address());
  clic(QStringLiteral("CmdInviaModECR"));
}

void SchermoGuidato::impazienza(const QString& comando) const {
  imbucaClic(controllo(comando));
  imbucaClic(controllo(QStringLiteral("Cmd_Esci")));
  QCoreApplication::postEvent(finestra_, new QKeyEvent(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier));
  QCoreApplication::postEvent(finestra_, new QCloseEvent);
}

void attendi(Bottega& bottega, const std::vector<Box>& attesi) {
  const std::vector<Box> visti = bottega.utente.takeBoxes();
  ASSERT_EQ(visti.size(), attesi.size()) << testing::PrintToString(visti);
  for (std::size_t i = 0; i < visti.size(); ++i)
    EXPECT_TRUE(corrisponde(visti[i], attesi[i]))
        << testing::PrintToString(visti[i]) << " in place of " << testing::PrintToString(attesi[i]);
}

Box riquadro(const QString& testo, Icon icona) {
  return {testo, icona, {}, Buttons::Ok};
}

std::string nomeGuasto(int modo, ecrsim::FaultKind cosa) {
  static constexpr std::array kNomi{"Codice",     "Silenzio",  "TaglioPrima", "TaglioDentro",
                                    "TaglioDopo", "FileCorto", "FileLungo",   "Spazzatura"};
  return "Modo" + std::to_string(modo) + kNomi.at(static_cast<std::size_t>(cosa));
}
