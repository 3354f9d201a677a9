#include "editors/frmTastiOpzione.h"

#include <QButtonGroup>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <algorithm>

#include "controls/command_key.h"
#include "controls/sample_width.h"
#include "controls/style.h"
#include "core/screens.h"
#include "editors/key_tables.h"
#include "editors/keyboard_caller.h"
#include "platform/error.h"
#include "platform/ui/held_keys.h"
#include "ui_frmTastiOpzione.h"

namespace {

const QString kSchermata = QStringLiteral("frmTastiOpzione");
const QString kArea = QStringLiteral("MDIForm_PRG");

/// The last index that a button of the choice may have.
constexpr int kUltimoIndice = 59;
constexpr int kReparti = 20;
constexpr int kPerColonna = 10;

/// Its own style sheet, as a marked key had it before.
constexpr auto kStilePrima = "stilePrimaDellaScelta";
/// Over the program's own: a button under it takes no colour from its palette.
const QString kStileSegnato = QStringLiteral(
    "QAbstractButton { background: palette(highlight); color: palette(highlighted-text);"
    " font-weight: 600; }");

/// A key that was left marked keeps the colour that it had before the first mark.
void segna(QAbstractButton& tasto) {
  if (tasto.property(kStilePrima).isValid()) return;
  tasto.setProperty(kStilePrima, tasto.styleSheet());
  tasto.setStyleSheet(kStileSegnato);
}

void smarca(QAbstractButton& tasto) {
  tasto.setStyleSheet(tasto.property(kStilePrima).toString());
  tasto.setProperty(kStilePrima, {});
}

bool tastieraIntera(const QString& chiamante) {
  return chiamante == QLatin1String("Form_30TastiStampante") || chiamante == QLatin1String("Form_42Tasti") ||
         chiamante == QLatin1String("Form_30Tasti");
}

}  // namespace

namespace editors {

void ScegliTasto(ChiamanteTasti& chiamante, int tasto, Contesto& contesto) {
  if (tasto < 0 || tasto >= static_cast<int>(kTasti)) throw errors::outOfRange();
  auto& scelta = dynamic_cast<frmTastiOpzione&>(contesto.schermate.carica(kSchermata, contesto));
  scelta.per(chiamante, tasto);
  contesto.schermate.mostraModale(kSchermata, contesto);
}

QString FunzioneTasto(int indice) {
  if (indice < 0 || indice > kUltimoIndice) throw errors::outOfRange();
  if (static_cast<std::size_t>(indice) >= kFunzioniTasto.size()) return {};
  return QString::fromUtf16(kFunzioniTasto[static_cast<std::size_t>(indice)]);
}

QPoint postoDellaScelta(const QString& chiamante, const QSize& scelta, const QRect& area,
                        const QRect& display) {
  QRect posto(QPoint(), scelta);
  posto.moveCenter(area.center());
  if (tastieraIntera(chiamante)) posto.moveBottom(area.bottom());
  posto.moveRight(std::min(posto.right(), display.right()));
  posto.moveBottom(std::min(posto.bottom(), display.bottom()));
  // A display too small for it shows its beginning.
  return {std::max(posto.left(), display.left()), std::max(posto.top(), display.top())};
}

}  // namespace editors

frmTastiOpzione::frmTastiOpzione(Contesto& contesto)
    : Schermo(contesto), ui_(std::make_unique<Ui::frmTastiOpzione>()) {
  ui_->setupUi(this);
  creaTasti();
  widthFromSample(*ui_->txtTastoOpzione, QStringLiteral("MOVIMENTI CONTABILI "), FieldWidth::AtLeast);
  ui_->cmdEsci->setIcon(style::icon(QStringLiteral("arrow-left")));
  notByEnter(*ui_->cmdEsci);
  // No command: the guard of one would swallow the closing that it comes to.
  connect(ui_->cmdEsci, &QPushButton::clicked, this, &frmTastiOpzione::reject);
  ignoreHeldKeys(*this);
}

frmTastiOpzione::~frmTastiOpzione() = default;

void frmTastiOpzione::creaTasti() {
  // The arrows go from a button to its neighbour.
  auto* vicini = new QButtonGroup(this);
  vicini->setExclusive(false);
  QWidget* prima = nullptr;
  for (int indice = 0; indice < static_cast<int>(editors::kFunzioniTasto.size()); ++indice) {
    const bool reparto = indice < kReparti;
    const int posto = reparto ? indice : indice - kReparti;
    auto* tasto =
        new QPushButton(editors::FunzioneTasto(indice), reparto ? ui_->schedaReparti : ui_->schedaFunzioni);
    tasto->setObjectName(QStringLiteral("cmdTastoOpzione_%1").arg(indice));
    (reparto ? ui_->disposizioneReparti : ui_->disposizioneFunzioni)
        ->addWidget(tasto, posto % kPerColonna, posto / kPerColonna);
    tasto->setAutoDefault(false);
    vicini->addButton(tasto, indice);
    if (prima) setTabOrder(prima, tasto);
    prima = tasto;
  }
  setTabOrder(prima, ui_->txtTastoOpzione);
  setTabOrder(ui_->txtTastoOpzione, ui_->cmdEsci);
  vicini->button(0)->setFocus();
  connect(vicini, &QButtonGroup::idClicked, this,
          [this](int indice) { esegui("cmdTastoOpzione_Click", [&] { scelto(indice); }); });
}

void frmTastiOpzione::per(ChiamanteTasti& chiamante, int tasto) {
  chiamante_ = &chiamante;
  tasto_ = tasto;
  inSospeso_ = true;
  segna(chiamante.cmdTasto(tasto));
  ui_->LabelTasto->setText(QStringLiteral("Funzione del tasto %1").arg(tasto));
  colloca();
}

void frmTastiOpzione::colloca() {
  const QWidget* area = contesto().schermate.trova(kArea);
  const QRect display = (area ? area->screen() : screen())->availableGeometry();
  const QSize cornice = area ? area->frameSize() - area->size() : QSize(0, 0);
  move(editors::postoDellaScelta(chiamante_->nome(), size() + cornice, area ? area->frameGeometry() : display,
                                 display));
}

void frmTastiOpzione::scelto(int indice) {
  const QString testo = editors::FunzioneTasto(indice);
  ui_->txtTastoOpzione->setText(testo);
  if (chiamante_) chiamante_->Text1().setText(testo);
  inSospeso_ = false;
}

void frmTastiOpzione::keyPressEvent(QKeyEvent* evento) {
  if (evento->key() != Qt::Key_Return && evento->key() != Qt::Key_Enter)
    return QDialog::keyPressEvent(evento);
  // The function that has the focus, and none where something else has it: no button here is the default one.
  if (auto* tasto = qobject_cast<QPushButton*>(focusWidget())) tasto->click();
}

void frmTastiOpzione::reject() {
  // Who chose nothing gets out all the same; the key then stays marked, so that it is seen to have been left
  // without its choice.
  if (chiamante_ && !inSospeso_)
    reazioni::protetta(contesto().utente, QStringLiteral("cmdEsci_Click"), objectName(),
                       [this] { smarca(chiamante_->cmdTasto(tasto_)); });
  // The closing comes back here.
  chiamante_ = nullptr;
  QDialog::reject();
}
