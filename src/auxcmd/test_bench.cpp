#include "auxcmd/test_bench.h"

#include <QButtonGroup>
#include <QKeyEvent>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QStyle>
#include <QStyleOptionButton>

#include "auxcmd/test_sequences.h"
#include "controls/command_key.h"
#include "controls/style.h"
#include "core/state.h"
#include "core/table_text.h"
#include "ui_test_bench.h"

namespace {

using Kind = OutcomeBar::Kind;

/// The longest line of a caption, pixels at scale 1: with what stands around it the screen is no wider than
/// 1024.
constexpr int kRigaMassima = 860;

/// An option whose caption goes on in a second line where it is too long for the screen.
class OpzioneProva : public QRadioButton {
 public:
  using QRadioButton::QRadioButton;

  QSize sizeHint() const override {
    ensurePolished();
    QStyleOptionButton opzione;
    initStyleOption(&opzione);
    const QSize scritta = fontMetrics().size(Qt::TextShowMnemonic, opzione.text);
    return style()->sizeFromContents(QStyle::CT_RadioButton, &opzione, scritta, this);
  }

 protected:
  void initStyleOption(QStyleOptionButton* opzione) const override {
    QRadioButton::initStyleOption(opzione);
    opzione->text = piegata();
  }

 private:
  QString piegata() const {
    QString intera = text();
    if (fontMetrics().horizontalAdvance(intera) <= kRigaMassima) return intera;
    qsizetype taglio = intera.lastIndexOf(u' ');
    while (taglio > 0 && fontMetrics().horizontalAdvance(intera.left(taglio)) > kRigaMassima)
      taglio = intera.lastIndexOf(u' ', taglio - 1);
    if (taglio > 0) intera[taglio] = u'\n';
    return intera;
  }
};

}  // namespace

BancoProva::BancoProva(Contesto& contesto, const auxcmd::BancoDiProva& banco)
    : Schermo(contesto),
      banco_(banco),
      ui_(std::make_unique<Ui::BancoProva>()),
      opzioni_(new QButtonGroup(this)) {
  ui_->setupUi(this);
  vista_ = std::make_unique<auxcmd::VistaBanco>(*ui_->vkCommandEsci, contesto);
  setObjectName(testo(banco.schermata));
  setWindowTitle(testo(banco.titolo));
  ui_->TitoloBanco->setText(testo(banco.titolo));
  creaOpzioni();
  // The card is the ground of what scrolls on it, upwards only.
  ui_->elenco->viewport()->setAutoFillBackground(false);
  ui_->opzioni->setAutoFillBackground(false);
  ui_->elenco->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  ui_->elenco->setMinimumWidth(ui_->opzioni->sizeHint().width() +
                               style()->pixelMetric(QStyle::PM_ScrollBarExtent));
  style::primary(*ui_->Cmd_Avvio, QStringLiteral("upload"));
  ui_->vkCommandEsci->setIcon(style::icon(QStringLiteral("arrow-left")));
  notByEnter(*ui_->vkCommandEsci);
}

BancoProva::~BancoProva() = default;

void BancoProva::creaOpzioni() {
  QWidget* prima = nullptr;
  for (const auxcmd::Prova& prova : banco_.prove) {
    auto* opzione = new OpzioneProva(testo(prova.didascalia), ui_->opzioni);
    opzione->setObjectName(QStringLiteral("vkOptionButtonTest_%1").arg(prova.numero));
    // What goes out can be read before it does.
    opzione->setToolTip(QStringLiteral("Invia  %1").arg(testo(prova.sequenza)));
    opzione->setAccessibleName(opzione->text().simplified());
    ui_->disposizioneOpzioni->addWidget(opzione);
    opzioni_->addButton(opzione, prova.numero);
    if (prima) {
      opzione->setFocusPolicy(Qt::ClickFocus);
      setTabOrder(prima, opzione);
    }
    prima = opzione;
  }
  ui_->disposizioneOpzioni->addStretch(1);
  setTabOrder(prima, ui_->Cmd_Avvio);
  setTabOrder(ui_->Cmd_Avvio, ui_->vkCommandEsci);
  opzioni_->buttons().front()->setFocus();
}

void BancoProva::on_Cmd_Avvio_clicked() {
  esegui("Cmd_Avvio_Click", [this] { invia(); });
}

void BancoProva::invia() {
  int porta = 0;
  if (!inCorso_ && !vista_->portaValida(porta)) return auxcmd::avvisaPorta(contesto());
  varGlobal().BufferRisposta.clear();
  const int scelta = opzioni_->checkedId();
  for (const auxcmd::Prova& prova : banco_.prove)
    if (prova.numero == scelta) coda_ << testo(prova.sequenza);
  svuotaCoda();
  if (banco_.toglieAttesa) vista_->togliAttesa();
}

void BancoProva::svuotaCoda() {
  // The sequence on the line ends first; whoever sends it sees to the rest.
  if (inCorso_) return;
  const QScopedValueRollback suo(inCorso_, true);
  while (!coda_.isEmpty() && !vista_->chiusa()) {
    const QString sequenza = coda_.takeFirst();
    int porta = 0;
    if (!vista_->portaValida(porta)) {
      coda_.clear();
      return auxcmd::avvisaPorta(contesto());
    }
    varGlobal().FlagRisposta = auxcmd::kInCorso;
    const int esito = auxcmd::inviaDalBanco(
        [&] { return auxcmd::InviaXonXoff(porta, *vista_, sequenza, contesto()); }, *vista_, contesto());
    if (vista_->chiusa()) return;
    if (esito != 0) coda_.clear();
    if (esito == 0) diciInviata(sequenza);
  }
}

void BancoProva::diciInviata(const QString& sequenza) {
  if (varGlobal().FlagRisposta == auxcmd::kErrorePorta)
    return ui_->BarraEsito->tell(Kind::Failed,
                                 QStringLiteral("La linea si è interrotta dopo la sequenza ") + sequenza);
  ui_->BarraEsito->tell(Kind::Done, QStringLiteral("Inviata la sequenza ") + sequenza);
}

void BancoProva::on_vkCommandEsci_clicked() {
  reject();
}

void BancoProva::reject() {
  vista_->chiudi();
  QDialog::reject();
}

void BancoProva::keyPressEvent(QKeyEvent* evento) {
  if (evento->key() == Qt::Key_F9 && !evento->isAutoRepeat()) return ui_->Cmd_Avvio->click();
  const bool invio = evento->key() == Qt::Key_Return || evento->key() == Qt::Key_Enter;
  if (invio && !evento->isAutoRepeat()) return ui_->Cmd_Avvio->click();
  Schermo::keyPressEvent(evento);
}
