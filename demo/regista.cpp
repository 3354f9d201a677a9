#include "demo/regista.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPixmap>
#include <QTableView>
#include <QTest>
#include <cstdio>
#include <stdexcept>

#include "platform/ui/occupato.h"

namespace {

constexpr int kBattitoMs = 4;
constexpr int kPazienzaMs = 30000;

QWidget* davanti(const char* classe) {
  QWidget* modale = QApplication::activeModalWidget();
  return modale != nullptr && modale->inherits(classe) && modale->isVisible() ? modale : nullptr;
}

/// The button that ends the file dialog in front. By the button and not by Enter, which may go to the list of
/// completions; it is enabled once the dialog has read the folder.
QAbstractButton* accettazione() {
  QWidget* dialogo = davanti("QFileDialog");
  auto* pulsanti = dialogo == nullptr ? nullptr : dialogo->findChild<QDialogButtonBox*>();
  if (pulsanti == nullptr) return nullptr;
  for (QAbstractButton* pulsante : pulsanti->buttons())
    if (pulsanti->buttonRole(pulsante) == QDialogButtonBox::AcceptRole) return pulsante;
  return nullptr;
}

}  // namespace

Regista::Regista() {
  orologio_.setInterval(kBattitoMs);
  connect(&orologio_, &QTimer::timeout, this, &Regista::battito);
}

void Regista::passo(const QString& nome, Quando quando, Azione azione) {
  passi_.push_back({nome, std::move(quando), std::move(azione)});
}

int Regista::esegui() {
  attesa_.start();
  orologio_.start();
  QApplication::exec();
  return esito_;
}

void Regista::fallisci(const QString& motivo) {
  std::fprintf(stderr, "ERRORE: %s\n", qPrintable(motivo));
  for (const QWidget* aperta : QApplication::topLevelWidgets())
    if (aperta->isVisible())
      std::fprintf(stderr, "  finestra: %s \"%s\"\n", qPrintable(aperta->objectName()),
                   qPrintable(aperta->windowTitle()));
  if (riquadro()) std::fprintf(stderr, "  riquadro: %s\n", qPrintable(testoRiquadro()));
  // What stood in front tells more than its name.
  if (QWidget* modale = QApplication::activeModalWidget())
    modale->grab().save(QStringLiteral("99-errore.png"));
  esito_ = 1;
  orologio_.stop();
  passi_.clear();
  std::fflush(nullptr);
  std::_Exit(esito_);  // modal loops may be open below: there is no way back through them
}

// A step is played from the event loop and not from here: a timer does not fire again inside its own handler,
// and the step may open a modal loop in which the next steps must go on.
void Regista::battito() {
  // In the middle of a command hands are of no use: what they do is eaten.
  if (inCorso_ || Occupato::attivo()) return;
  if (passi_.empty()) {
    orologio_.stop();
    QApplication::exit(esito_);
    return;
  }
  if (!passi_.front().quando()) {
    if (attesa_.elapsed() > kPazienzaMs) fallisci(QStringLiteral("non arriva: ") + passi_.front().nome);
    return;
  }
  const Passo passo = std::move(passi_.front());
  passi_.pop_front();
  attesa_.restart();
  inCorso_ = true;
  QTimer::singleShot(0, this, [this, passo] { recita(passo); });
}

void Regista::recita(const Passo& passo) {
  inCorso_ = false;
  try {
    passo.azione();
  } catch (const std::exception& eccezione) {
    fallisci(passo.nome + QStringLiteral(": ") + QString::fromLocal8Bit(eccezione.what()));
  }
}

QWidget* finestra(const QString& nome) {
  for (QWidget* aperta : QApplication::topLevelWidgets())
    if (aperta->objectName() == nome && aperta->isVisible()) return aperta;
  return nullptr;
}

QWidget& controllo(const QString& finestraNome, const QString& nome) {
  QWidget* sopra = finestra(finestraNome);
  QWidget* trovato = sopra == nullptr ? nullptr : sopra->findChild<QWidget*>(nome);
  if (trovato == nullptr)
    throw std::runtime_error(qPrintable(finestraNome + QStringLiteral(" senza ") + nome));
  return *trovato;
}

namespace {

QTableView& tabella(const QString& finestraNome, const QString& griglia) {
  auto* vista = qobject_cast<QTableView*>(&controllo(finestraNome, griglia));
  if (vista == nullptr) throw std::runtime_error(qPrintable(griglia + QStringLiteral(" is no grid")));
  return *vista;
}

}  // namespace

void clicca(const QString& finestraNome, const QString& nome) {
  QWidget& bersaglio = controllo(finestraNome, nome);
  if (!bersaglio.isEnabled()) throw std::runtime_error(qPrintable(nome + QStringLiteral(" disabilitato")));
  QTest::mouseClick(&bersaglio, Qt::LeftButton);
}

void passaSopra(const QString& finestraNome, const QString& nome) {
  QTest::mouseMove(&controllo(finestraNome, nome));
}

void digita(const QString& finestraNome, const QString& nome, const QString& testo) {
  QWidget& casella = controllo(finestraNome, nome);
  QTest::mouseClick(&casella, Qt::LeftButton);
  QTest::keyClick(&casella, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClicks(&casella, testo);
}

void ridigita(const QString& finestraNome, const QString& nome, const QString& testo) {
  QWidget& casella = controllo(finestraNome, nome);
  QTest::mouseClick(&casella, Qt::LeftButton);
  QTest::keyClick(&casella, Qt::Key_End);
  while (!casella.property("text").toString().isEmpty()) {
    const QString prima = casella.property("text").toString();
    QTest::keyClick(&casella, Qt::Key_Backspace);
    if (casella.property("text").toString() == prima)
      throw std::runtime_error(qPrintable(nome + QStringLiteral(" does not empty")));
  }
  QTest::keyClicks(&casella, testo);
}

QList<QStringList> celle(const QString& finestraNome, const QString& griglia) {
  const QAbstractItemModel* modello = tabella(finestraNome, griglia).model();
  QList<QStringList> righe;
  for (int riga = 0; riga < modello->rowCount(); ++riga) {
    QStringList testi;
    for (int colonna = 0; colonna < modello->columnCount(); ++colonna)
      testi.append(modello->index(riga, colonna).data().toString());
    righe.append(testi);
  }
  return righe;
}

void cliccaCella(const QString& finestraNome, const QString& griglia, int riga, int colonna) {
  QTableView& vista = tabella(finestraNome, griglia);
  const QModelIndex cella = vista.model()->index(riga, colonna);
  vista.scrollTo(cella);
  QTest::mouseClick(vista.viewport(), Qt::LeftButton, {}, vista.visualRect(cella).center());
}

void scegliVoce(const QString& finestraNome, const QString& menuNome, const QString& voceNome) {
  auto* sopra = qobject_cast<QMainWindow*>(finestra(finestraNome));
  auto* menu = sopra == nullptr ? nullptr : sopra->findChild<QMenu*>(menuNome);
  auto* voce = menu == nullptr ? nullptr : sopra->findChild<QAction*>(voceNome);
  if (voce == nullptr || !voce->isEnabled())
    throw std::runtime_error(qPrintable(voceNome + QStringLiteral(" manca")));
  QTest::mouseClick(sopra->menuBar(), Qt::LeftButton, {},
                    sopra->menuBar()->actionGeometry(menu->menuAction()).center());
  QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(voce).center());
}

bool dialogoFile() {
  return davanti("QFileDialog") != nullptr;
}

bool riquadro() {
  return davanti("QMessageBox") != nullptr;
}

QString testoRiquadro() {
  QWidget* davantiATutti = davanti("QMessageBox");
  return davantiATutti == nullptr ? QString() : davantiATutti->property("text").toString();
}

void digitaNomeFile(const QString& percorso) {
  QWidget* dialogo = davanti("QFileDialog");
  auto* nome = dialogo == nullptr ? nullptr : dialogo->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
  if (nome == nullptr) throw std::runtime_error("no file dialog");
  // Pasted whole: letter by letter the dialog would mark the folder that the first letters name.
  QGuiApplication::clipboard()->setText(percorso);
  nome->selectAll();
  QTest::keyClick(nome, Qt::Key_V, Qt::ControlModifier);
}

bool fileAccettabile() {
  return accettazione() != nullptr && accettazione()->isEnabled();
}

void accettaFile() {
  if (!fileAccettabile()) throw std::runtime_error("the file dialog takes no such name");
  QTest::mouseClick(accettazione(), Qt::LeftButton);
}

void chiudiRiquadro() {
  QWidget* box = davanti("QMessageBox");
  auto* pulsante = box == nullptr ? nullptr : box->findChild<QAbstractButton*>();
  if (pulsante == nullptr) throw std::runtime_error("no box");
  QTest::mouseClick(pulsante, Qt::LeftButton);
}
