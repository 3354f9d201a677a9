#include "link_scene.h"

#include <QVBoxLayout>
#include <ostream>

#include "core/reactions.h"

NetworkStartup ReteDiProva::start() {
  passi << QStringLiteral("avvia");
  return esitoAvvio;
}

int ReteDiProva::close() {
  passi << QStringLiteral("chiudi");
  return esitoChiusura;
}

QString ReteDiProva::computerName() {
  passi << QStringLiteral("nome");
  return nome;
}

QStringList ReteDiProva::localAddresses(const QString& delNome) {
  passi << QStringLiteral("indirizzi di ") + delNome;
  return indirizzi;
}

int ReteDiProva::echo(const QString& indirizzo, const QByteArray& dati, int millisecondi) {
  passi << QStringLiteral("eco %1 %2 %3").arg(indirizzo, QString::fromLatin1(dati)).arg(millisecondi);
  return esitoEco ? *esitoEco : systemNetwork().echo(indirizzo, dati, millisecondi);
}

SchermoLink::SchermoLink(Contesto& contesto) {
  auto* disposizione = new QVBoxLayout(this);
  auto* pannello = new PannelloECR(this);
  disposizione->addWidget(pannello);
  for (const char* nome : {"Cmd_Avvia", "Cmd_Esci"}) {
    auto* comando = new QPushButton(this);
    comando->setObjectName(QString::fromLatin1(nome));
    disposizione->addWidget(comando);
  }
  connect(pannello, &PannelloECR::connetti, this, [this, &contesto] {
    reazioni::protetta(contesto.utente, QStringLiteral("connetti"), QStringLiteral("SchermoLink"),
                       [&] { ecrlink::ConnettiECR(*this, contesto); });
  });
  ecrlink::InitRete(*this, contesto);
  show();
  EXPECT_TRUE(QTest::qWaitForWindowExposed(this));
}

QWidget& SchermoLink::controllo(const char* nome) {
  auto* trovato = findChild<QWidget*>(QString::fromLatin1(nome));
  if (!trovato) throw std::runtime_error(std::string("no control ") + nome);
  return *trovato;
}

QString SchermoLink::testo(const char* nome) {
  QWidget& questo = controllo(nome);
  if (const auto* righe = qobject_cast<QPlainTextEdit*>(&questo)) return righe->toPlainText();
  return questo.property("text").toString();
}

void SchermoLink::digita(const QString& indirizzo) {
  auto& casella = dynamic_cast<QLineEdit&>(controllo("vkTextBoxIP_ECR"));
  casella.setFocus();
  casella.selectAll();
  QTest::keyClicks(&casella, indirizzo);
  if (indirizzo.isEmpty()) QTest::keyClick(&casella, Qt::Key_Delete);
}

void SchermoLink::clicca(const char* nome) {
  QTest::mouseClick(&controllo(nome), Qt::LeftButton);
}

Scena::Scena(const QString& cartellaLibreria)
    : libreria(cartellaLibreria), contesto{utente, area,      libreria,
                                           rete,   schermate, QStringLiteral(GESTIONALE_APP)} {
  azzeraStato();
}

Box critico(const QString& testo) {
  return {testo, Icon::Critical, {}, Buttons::Ok};
}
Box semplice(const QString& testo) {
  return {testo, Icon::None, {}, Buttons::Ok};
}
Box erroreDiComunicazione(const QString& testo) {
  return critico(QStringLiteral("Errore nella comunicazione con ECR: ") + testo);
}

StatoLink statoDi(SchermoLink& schermo) {
  return {schermo.acceso("Cmd_Avvia"), schermo.acceso("CmdInviaModECR"), commonForKora().IP_ECR};
}

void PrintTo(const StatoLink& stato, std::ostream* uscita) {
  *uscita << "start " << stato.avvia << ", connect " << stato.connetti << ", address \""
          << stato.ip.toStdString() << "\"";
}

QStringList chiamateDi(TestTill& cassa) {
  QStringList chiamate;
  for (const ecrsim::Call& una : cassa->calls())
    chiamate << QStringLiteral("%1:%2").arg(una.mode).arg(QString::fromStdString(una.file));
  return chiamate;
}
