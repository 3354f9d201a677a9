#include "graphics/Form_Grafica.h"

#include <QButtonGroup>
#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QKeyEvent>
#include <QScrollBar>
#include <algorithm>

#include "controls/steady_progress.h"
#include "controls/style.h"
#include "controls/wheel_guard.h"
#include "core/conversions.h"
#include "core/figures.h"
#include "core/menu.h"
#include "core/paths.h"
#include "core/screens.h"
#include "core/state.h"
#include "ecrlink/link_commands.h"
#include "ecrlink/models.h"
#include "ecrlink/session.h"
#include "ecrlink/till_step.h"
#include "graphics/bitmap_file.h"
#include "graphics/catalogue_grid.h"
#include "graphics/file_lists.h"
#include "graphics/picture_tile.h"
#include "platform/ui/busy_guard.h"
#include "platform/ui/user_port.h"
#include "ui_Form_Grafica.h"

namespace {

using Kind = OutcomeBar::Kind;

constexpr int kTesserePerRiga = 6;
/// Of a folder in its list, pixels at scale 1.
constexpr int kIcona = 16;
constexpr int kUltimaRiga = static_cast<int>(graphics::kImmagini);
const QString kInSu = QStringLiteral("..");

graphics::VoceGrafica& voce(int riga) {
  return graphics::modGra1().RecGrafica.at(static_cast<std::size_t>(riga - FlexGrid::kFirstRow));
}

/// The system's own where there is one, elsewhere what the desktop has for bitmaps.
void apriPerModifica(const QString& bitmap, Utente& utente) {
#ifdef Q_OS_WIN
  utente.StartProgram(QStringLiteral("mspaint.exe"), {bitmap});
#else
  utente.OpenWithDesktop(bitmap);
#endif
}

}  // namespace

Form_Grafica::Form_Grafica(Contesto& contesto, graphics::Convertitore convertitore)
    : Schermo(contesto), ui_(std::make_unique<Ui::Form_Grafica>()), convertitore_(std::move(convertitore)) {
  ui_->setupUi(this);
  vesti();
  carica();
}

Form_Grafica::~Form_Grafica() = default;

void Form_Grafica::vesti() {
  comandi_ = new ComandiLink(*ui_->pannello, *ui_->Cmd_Avvia, *ui_->Cmd_Esci, ui_->BarraEsito,
                             QStringLiteral("upload"));
  connect(ui_->pannello, &PannelloECR::connetti, this, &Form_Grafica::connetti);
  ui_->Cmd_Modifica->setIcon(style::icon(QStringLiteral("file-pen")));
  wheelNeedsFocus(*ui_->Drive1);
  ui_->Dir1->setIconSize(QSize(kIcona, kIcona));
  faiTessere();
  misura();
}

/// The body scrolls up and down only.
void Form_Grafica::misura() {
  ui_->rotolo->setMinimumWidth(ui_->corpo->minimumSizeHint().width() +
                               ui_->rotolo->verticalScrollBar()->sizeHint().width());
}

void Form_Grafica::faiTessere() {
  auto* const una = new QButtonGroup(this);
  for (int riga = FlexGrid::kFirstRow; riga <= kUltimaRiga; ++riga) {
    auto* const tessera = new TesseraGrafica(riga, ui_->schedaTessere);
    tessere_.at(static_cast<std::size_t>(riga - FlexGrid::kFirstRow)) = tessera;
    const int posto = riga - FlexGrid::kFirstRow;
    ui_->tessere->addWidget(tessera, posto / kTesserePerRiga, posto % kTesserePerRiga);
    una->addButton(tessera);
    connect(tessera, &QAbstractButton::clicked, this, [this, riga] {
      esegui("Tessera_Click", [&] {
        ui_->MSFlexGridGrafica->markRow(riga);
        scegliRiga(riga, SeManca::Riquadro);
      });
    });
    // Behind the drag: whoever let go of the file is not kept by what is told of it.
    connect(
        tessera, &TesseraGrafica::lasciata, this,
        [this, riga](const QString& percorso) { lasciata(riga, percorso); }, Qt::QueuedConnection);
  }
}

// The load

void Form_Grafica::carica() {
  graphics::modGra1().BitmapCorrente.clear();
  ui_->Drive1->addItems(graphics::unita());
  vaiIn(cartellaIniziale());
  caricaCatalogo();
  graphics::GestGridGrafica(*ui_->MSFlexGridGrafica);
  graphics::RiempiGridGrafica(*ui_->MSFlexGridGrafica, contesto().utente);
  ui_->MSFlexGridGrafica->markRow(FlexGrid::kFirstRow);
  ui_->Cmd_Modifica->setEnabled(false);
  comandi_->abilita(false, false);
  ecrlink::InitRete(*ui_->pannello, contesto());
  // The start alone waits for "Connetti".
  ui_->Cmd_Modifica->setEnabled(true);
  comandi_->abilita(false, true);
  comandi_->spiega();
  aggiornaTessere();
  ui_->pannello->setFocus();
}

QString Form_Grafica::percorsoCatalogo() const {
  return PercorsoNativo(contesto().cartella + u'/' + QLatin1String(graphics::kNomeCatalogo));
}

QString Form_Grafica::cartellaIniziale() const {
  return contesto().cartella + u'/' + QLatin1String(graphics::kCartellaImmagini);
}

void Form_Grafica::caricaCatalogo() {
  const bool esiste = FileEsiste(percorsoCatalogo());
  if (!esiste) contesto().utente.MsgBox(QStringLiteral("Sono stati ripristinati i valori di default!"));
  daNonSalvare_ = reazioni::conCodice(contesto().utente, "RiempiRecGrafica", "ModGra1",
                                      [&] { graphics::RiempiRecGrafica(esiste, percorsoCatalogo()); }) != 0;
}

// The folder on the screen

bool Form_Grafica::vaiIn(const QString& cartella) {
  const QFileInfo dove(cartella);
  const bool siGuarda = dove.isDir() && dove.isReadable();
  if (!siGuarda && !cartella_.isEmpty()) return false;
  cartella_ = QDir::cleanPath(dove.absoluteFilePath());
  ui_->Image1->mostra({});
  mostrata_.clear();
  riempiElenchi();
  return siGuarda;
}

void Form_Grafica::riempiElenchi() {
  ui_->LabelPercorso->setText(QDir::toNativeSeparators(cartella_));
  ui_->LabelPercorso->setToolTip(ui_->LabelPercorso->text());
  const QString unita = graphics::unitaDi(cartella_, graphics::unita());
  ui_->Drive1->setCurrentIndex(std::max(0, ui_->Drive1->findText(unita)));
  ui_->Dir1->clear();
  if (!QDir(cartella_).isRoot()) ui_->Dir1->addItem(kInSu);
  ui_->Dir1->addItems(graphics::cartelleIn(cartella_));
  for (int i = 0; i < ui_->Dir1->count(); ++i)
    ui_->Dir1->item(i)->setIcon(style::icon(QStringLiteral("folder")));
  ui_->File1->clear();
  ui_->File1->addItems(graphics::bitmapIn(cartella_));
  // A name that is cut short is read there.
  for (const QListWidget* elenco : {ui_->Dir1, ui_->File1})
    for (int i = 0; i < elenco->count(); ++i)
      elenco->item(i)->setToolTip(elenco->item(i)->text() + u'\n' + elenco->toolTip());
}

void Form_Grafica::on_Drive1_activated(int indice) {
  esegui("Drive1_Change", [&] {
    if (vaiIn(ui_->Drive1->itemText(indice))) return aggiornaTessere();
    contesto().utente.MsgBox(QStringLiteral("Drive error !"));
    ui_->Drive1->setCurrentIndex(
        std::max(0, ui_->Drive1->findText(graphics::unitaDi(cartella_, graphics::unita()))));
  });
}

void Form_Grafica::on_Dir1_itemActivated(QListWidgetItem* scelta) {
  // The list is filled anew, and its item goes, before the name is used for the last time.
  const QString nome = scelta->text();
  esegui("Dir1_Change", [&] {
    const QString dove = cartella_ + u'/' + nome;
    if (!vaiIn(dove)) {
      riempiElenchi();
      return racconta(Kind::Failed, QStringLiteral("La cartella %1 non si può aprire").arg(nome));
    }
    aggiornaTessere();
    raccontaCartella();
    ui_->Dir1->setCurrentRow(0);
  });
}

void Form_Grafica::rileggi() {
  esegui("Rileggi", [this] {
    riempiElenchi();
    aggiornaTessere();
    raccontaCartella();
  });
}

// The catalogue

void Form_Grafica::on_File1_itemClicked(QListWidgetItem* scelta) {
  const QString nome = scelta->text();
  esegui("File1_Click", [&] { scegliFile(nome); });
}

void Form_Grafica::on_File1_itemActivated(QListWidgetItem* scelta) {
  on_File1_itemClicked(scelta);
}

void Form_Grafica::scegliFile(const QString& nome) {
  const QString percorso = graphics::percorsoBitmap(cartella_, nome);
  graphics::modGra1().BitmapCorrente = percorso;
  if (!mostraImmagine(percorso)) return;
  const int riga = ui_->MSFlexGridGrafica->Row();
  if (riga < FlexGrid::kFirstRow)
    return racconta(Kind::Warning, QStringLiteral("Scegliere prima una riga del catalogo"));
  ui_->MSFlexGridGrafica->setTextMatrix(riga, graphics::kNomeFile, nome);
  voce(riga).file = nome;
  daNonSalvare_ = false;
  aggiornaTessera(riga);
  raccontaScelta(riga);
}

void Form_Grafica::raccontaScelta(int riga) {
  const graphics::VoceGrafica& scelta = voce(riga);
  const QString detto = QStringLiteral("%1: %2").arg(scelta.tipo, scelta.file);
  const QString& rifiuto = tessera(riga).esame().rifiuto;
  if (!graphics::nomeConservato(scelta.file))
    return racconta(Kind::Warning,
                    detto + QStringLiteral(". Il nome ha lettere che il catalogo non conserva: cambiarlo"));
  if (!rifiuto.isEmpty()) return racconta(Kind::Warning, detto + QStringLiteral(". ") + rifiuto);
  racconta(Kind::Done, detto);
}

void Form_Grafica::lasciata(int riga, const QString& percorso) {
  esegui("Tessera_Lasciata", [&] {
    ui_->MSFlexGridGrafica->markRow(riga);
    try {
      const QString nome = graphics::PortaNellaCartella(percorso, cartella_);
      riempiElenchi();
      scegliFile(nome);
    } catch (const Errore& errore) {
      racconta(Kind::Failed, errore.descrizione);
    }
  });
}

void Form_Grafica::on_MSFlexGridGrafica_cellClicked(int riga, int /*colonna*/) {
  esegui("MSFlexGridGrafica_Click", [&] { scegliRiga(riga, SeManca::Riquadro); });
}

/// The arrow keys: who only passes by is not stopped by a box.
void Form_Grafica::on_MSFlexGridGrafica_entered(int riga, int /*colonna*/) {
  if (riga < FlexGrid::kFirstRow || riga > kUltimaRiga || cartella_.isEmpty()) return;
  reazioni::protetta(contesto().utente, QStringLiteral("MSFlexGridGrafica_RowColChange"), objectName(), [&] {
    tessera(riga).setChecked(true);
    if (isVisible()) scegliRiga(riga, SeManca::Taci);
  });
}

void Form_Grafica::scegliRiga(int riga, SeManca seManca) {
  if (riga < FlexGrid::kFirstRow || riga > kUltimaRiga) return;
  voce(riga).tipo = ui_->MSFlexGridGrafica->TextMatrix(riga, graphics::kTipologia);
  const QString nome = ui_->MSFlexGridGrafica->TextMatrix(riga, graphics::kNomeFile);
  const QString percorso = graphics::percorsoBitmap(cartella_, nome);
  graphics::modGra1().BitmapCorrente = percorso;
  if (!graphics::bitmapEsiste(cartella_, nome)) {
    if (seManca == SeManca::Riquadro)
      contesto().utente.MsgBox(QStringLiteral("FILE NON ESISTE: PREGO CREARE IL FILE E RIPROVARE"));
    return;
  }
  voce(riga).file = nome;
  if (seManca == SeManca::Riquadro || !tessera(riga).esame().punti.isNull()) mostraImmagine(percorso);
}

bool Form_Grafica::mostraImmagine(const QString& percorso) {
  return reazioni::oppure(
      [&] {
        ui_->Image1->mostra(graphics::comeStampata(graphics::CaricaImmagine(percorso)));
        mostrata_ = percorso;
        return true;
      },
      [&](const Errore& errore) {
        contesto().utente.MsgBox(QStringLiteral("Error %1 (%2) Fallita operazione di caricamento immagine")
                                     .arg(QString::number(errore.numero), errore.descrizione));
        return false;
      });
}

TesseraGrafica& Form_Grafica::tessera(int riga) const {
  return *tessere_.at(static_cast<std::size_t>(riga - FlexGrid::kFirstRow));
}

void Form_Grafica::aggiornaTessera(int riga) {
  const graphics::VoceGrafica& quale = voce(riga);
  tessera(riga).mostra(quale.tipo, quale.file, graphics::esamina(cartella_, quale.file, larghezza_));
}

void Form_Grafica::aggiornaTessere() {
  for (int riga = FlexGrid::kFirstRow; riga <= kUltimaRiga; ++riga) aggiornaTessera(riga);
}

void Form_Grafica::raccontaCartella() {
  racconta(Kind::Plain, quanti(ui_->File1->count(), QStringLiteral("bitmap"), QStringLiteral("bitmap")) +
                            QStringLiteral(" in ") + ui_->LabelPercorso->text());
}

void Form_Grafica::racconta(Kind genere, const QString& testo) {
  ui_->BarraEsito->tell(genere, testo);
}

// The drawing program

void Form_Grafica::on_Cmd_Modifica_clicked() {
  esegui("Cmd_Modifica_Click", [this] {
    const QString bitmap = graphics::modGra1().BitmapCorrente;
    if (bitmap.isEmpty()) {
      contesto().utente.MsgBox(QStringLiteral("Attenzione selezionare prima una bitmap"));
      return;
    }
    try {
      apriPerModifica(bitmap, contesto().utente);
    } catch (const Errore&) {
      contesto().utente.MsgBox(
          QStringLiteral("Attenzione problema nel lancio del programma paint di windows"));
      return;
    }
    mostraImmagine(bitmap);
    racconta(Kind::Done, QStringLiteral("Aperta %1: salvata nel programma di disegno, si vede qui")
                             .arg(QFileInfo(bitmap).fileName()));
  });
}

/// Back from the drawing program: what it saved is looked at again.
void Form_Grafica::changeEvent(QEvent* evento) {
  Schermo::changeEvent(evento);
  if (evento->type() == QEvent::FontChange && comandi_ != nullptr) misura();
  if (evento->type() != QEvent::ActivationChange || !isActiveWindow() || BusyGuard::active() || chiusa_)
    return;
  reazioni::protetta(contesto().utente, QStringLiteral("Form_Activate"), objectName(), [this] {
    aggiornaTessere();
    if (mostrata_.isEmpty() || !QFileInfo::exists(mostrata_)) return;
    try {
      ui_->Image1->mostra(graphics::comeStampata(graphics::CaricaImmagine(mostrata_)));
    } catch (const Errore&) {
      // Saved as something else meanwhile: its tile tells why, and the preview keeps what it had.
    }
  });
}

// The till

void Form_Grafica::connetti() {
  esegui("CmdInviaModECR_Click",
         [this] { comandi_->connetti([this] { return perQuestaCassa(); }, contesto()); });
}

QString Form_Grafica::perQuestaCassa() {
  larghezza_ = ecrlink::larghezzaGrafica(commonForKora().ECR_INFO.InfoTipoBitmap)
                   .value_or(QStringLiteral("0"))
                   .toInt();
  aggiornaTessere();
  if (larghezza_ == 0)
    return QStringLiteral("Questa cassa non dice se la sua grafica è SMALL o LARGE: non la si può inviare");
  const auto rifiutate = std::count_if(tessere_.begin(), tessere_.end(), [](const TesseraGrafica* una) {
    return !una->esame().rifiuto.isEmpty();
  });
  if (rifiutate == 0) return {};
  return quanti(rifiutate, QStringLiteral("immagine non va"), QStringLiteral("immagini non vanno")) +
         QStringLiteral(" bene per questa cassa: la tessera dice perché");
}

void Form_Grafica::abilitaTutto(bool abilitati) {
  comandi_->abilita(abilitati, abilitati);
  ui_->pannello->abilitaConnetti(abilitati);
}

void Form_Grafica::on_Cmd_Avvia_clicked() {
  bool preparata = false;
  esegui("Cmd_Avvia_Click", [&] {
    const ecrlink::AlLavoro questa(*ui_->pannello);
    preparata = invia();
  });
  abilitaTutto(true);
  comandi_->ridaiEsci();
  if (!preparata) contesto().schermate.scarica(objectName());
}

bool Form_Grafica::invia() {
  abilitaTutto(false);
  std::optional<ecrlink::ScambioEsclusivo> scambio;
  if (prepara(scambio) != 0) return false;
  const QString file = QLatin1String(graphics::kFileBitmap);
  const qint64 byte = QFileInfo(file).size();
  const int esito = ecrlink::avviaECR(file, ecrlink::Modo::Invia, contesto());
  // Nobody has to wait for a box to be closed.
  scambio.reset();
  if (esito != 0) return true;
  racconta(Kind::Done,
           QStringLiteral("Inviate alla cassa %1 immagini, %2 byte").arg(kUltimaRiga).arg(cifra(byte)));
  contesto().utente.MsgBox(QStringLiteral("Operazione terminata con successo"));
  return true;
}

int Form_Grafica::prepara(std::optional<ecrlink::ScambioEsclusivo>& scambio) {
  beginProgress(*ui_->vkBar1, kUltimaRiga, QStringLiteral("%v / %m"));
  SteadyProgress barra(*ui_->vkBar1);
  const auto annuncia = [this](int numero, const QString& file) {
    racconta(Kind::Plain,
             QStringLiteral("Preparazione di %1, %2 di %3 …").arg(file).arg(numero).arg(kUltimaRiga));
    contesto().utente.DoEvents();
  };
  const int esito = graphics::ManageFileBMP(cartella_, {barra, annuncia}, convertitore_, scambio, contesto());
  ui_->BarraEsito->clear();
  return esito;
}

// The way out

void Form_Grafica::on_Cmd_Esci_clicked() {
  esegui("Cmd_Esci_Click", [this] { contesto().schermate.scarica(objectName()); });
}

void Form_Grafica::salva() {
  const FlexGrid& griglia = *ui_->MSFlexGridGrafica;
  if (griglia.Row() == FlexGrid::kFirstRow)
    voce(FlexGrid::kFirstRow) = {griglia.TextMatrix(FlexGrid::kFirstRow, graphics::kTipologia),
                                 griglia.TextMatrix(FlexGrid::kFirstRow, graphics::kNomeFile)};
  if (daNonSalvare_) return;
  reazioni::conCodice(contesto().utente, "SaveRecGrafica", "ModGra1",
                      [this] { graphics::SaveRecGrafica(percorsoCatalogo()); });
}

/// By whatever way: what was chosen is kept.
void Form_Grafica::closeEvent(QCloseEvent* evento) {
  if (!comandi_->siPuoUscire()) return evento->ignore();
  evento->accept();
  if (std::exchange(chiusa_, true)) return;
  esegui("Form_Unload", [this] {
    salva();
    MostraMenu(contesto());
  });
}

void Form_Grafica::keyPressEvent(QKeyEvent* evento) {
  if (comandi_->prende(*evento) || evento->isAutoRepeat()) return;
  if (evento->key() == Qt::Key_F5) return rileggi();
  if (evento->key() == Qt::Key_Escape && comandi_->siPuoUscire()) return ui_->Cmd_Esci->click();
  Schermo::keyPressEvent(evento);
}
