#include "editors/Form_GestioneCodiceTastiera.h"

#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QRadioButton>
#include <QRegularExpression>
#include <algorithm>

#include "controls/style.h"
#include "ecrlink/models.h"
#include "editors/chosen_model.h"
#include "platform/ui/user_port.h"
#include "ui_Form_GestioneCodiceTastiera.h"

namespace {

using Kind = OutcomeBar::Kind;

/// "Spica ------> 30 tasti" as it is said: "Spica, 30 tasti".
QString detta(const QString& didascalia) {
  static const QRegularExpression freccia(QStringLiteral("\\s*-+>\\s*"));
  return QString(didascalia).replace(freccia, QStringLiteral(", "));
}

QString righe(int indice) {
  return QStringLiteral("righe di %1 caratteri").arg(ecrlink::larghezzaRigaDelModello(indice));
}

QString modello() {
  const auto scelto = editors::modelloScelto();
  return scelto ? ecrlink::NomeModello(*scelto) : QString();
}

/// "Scelta VEGA: 42 tasti, righe di 24 caratteri".
QString racconto() {
  const auto scelto = editors::modelloScelto();
  if (!scelto) return QStringLiteral("Nessuna macchina scelta");
  const QString tasti = editors::numeroTasti();
  const bool detti = ecrlink::kModelli[static_cast<std::size_t>(*scelto)].tasti > 0;
  return QStringLiteral("Scelta %1: %2, %3")
      .arg(modello(), (detti ? QStringLiteral("%1 tasti") : QStringLiteral("tasti %1")).arg(tasti),
           righe(*scelto));
}

bool invio(const QEvent& evento) {
  if (evento.type() != QEvent::KeyPress) return false;
  const int tasto = static_cast<const QKeyEvent&>(evento).key();
  return tasto == Qt::Key_Return || tasto == Qt::Key_Enter;
}

bool doppioClic(const QEvent& evento) {
  return evento.type() == QEvent::MouseButtonDblClick &&
         static_cast<const QMouseEvent&>(evento).button() == Qt::LeftButton;
}

}  // namespace

Form_GestioneCodiceTastiera::Form_GestioneCodiceTastiera(Contesto& contesto)
    : Schermo(contesto), ui_(std::make_unique<Ui::Form_GestioneCodiceTastiera>()) {
  ui_->setupUi(this);
  // The card is the ground of what scrolls on it.
  ui_->elenco->viewport()->setAutoFillBackground(false);
  ui_->opzioni->setAutoFillBackground(false);
  creaOpzioni();
  style::primary(*ui_->Cmd_Conferma);
  ui_->BarraEsito->tell(Kind::Plain, racconto());
}

Form_GestioneCodiceTastiera::~Form_GestioneCodiceTastiera() = default;

void Form_GestioneCodiceTastiera::creaOpzioni() {
  QWidget* prima = nullptr;
  for (const ecrlink::Modello& uno : ecrlink::kModelli) {
    const int indice = static_cast<int>(opzioni_.size());
    auto* opzione = new QRadioButton(QString::fromLatin1(uno.didascalia), ui_->opzioni);
    opzione->setObjectName(QStringLiteral("vkOptionButtonTipoMacchina_%1").arg(indice));
    opzione->setAccessibleName(detta(opzione->text()));
    opzione->setAccessibleDescription(righe(indice));
    opzione->installEventFilter(this);
    connect(opzione, &QRadioButton::toggled, this, [this, opzione](bool messa) {
      if (messa) setFocusProxy(opzione);
    });
    auto* nota = new QLabel(righe(indice), ui_->opzioni);
    nota->setObjectName(QStringLiteral("LabelRighe_%1").arg(indice));
    nota->setProperty("note", true);
    ui_->disposizioneOpzioni->addWidget(opzione, indice, 0);
    ui_->disposizioneOpzioni->addWidget(nota, indice, 1);
    // One stop of Tab for all of them, before one is set as it is behind: the arrows go through them.
    if (prima) opzione->setFocusPolicy(Qt::ClickFocus);
    if (prima) setTabOrder(prima, opzione);
    prima = opzione;
    opzioni_.push_back(opzione);
  }
  setTabOrder(prima, ui_->Cmd_Conferma);
  setFocusProxy(opzioni_.front());
  if (const auto scelto = editors::modelloScelto())
    opzioni_[static_cast<std::size_t>(*scelto)]->setChecked(true);
}

std::optional<int> Form_GestioneCodiceTastiera::macchina() const {
  const auto prima = std::ranges::find_if(opzioni_, &QRadioButton::isChecked);
  if (prima == opzioni_.end()) return std::nullopt;
  return static_cast<int>(prima - opzioni_.begin());
}

bool Form_GestioneCodiceTastiera::eventFilter(QObject* opzione, QEvent* evento) {
  auto& questa = *static_cast<QRadioButton*>(opzione);
  if (evento->type() == QEvent::FocusIn) ui_->elenco->ensureWidgetVisible(&questa, 0, 0);
  if (!invio(*evento) && !doppioClic(*evento)) return false;
  // Held down, Enter would answer the question that it has brought up.
  if (invio(*evento) && static_cast<const QKeyEvent*>(evento)->isAutoRepeat()) return true;
  questa.setChecked(true);
  on_Cmd_Conferma_clicked();
  return true;
}

void Form_GestioneCodiceTastiera::on_Cmd_Conferma_clicked() {
  esegui("Cmd_Conferma_Click", [this] { conferma(); });
}

void Form_GestioneCodiceTastiera::conferma() {
  const auto scelta = macchina();
  // There is no choice yet that one could be sure of.
  if (!scelta) {
    opzioni_.front()->setFocus();
    return ui_->BarraEsito->tell(Kind::Warning,
                                 QStringLiteral("Scegliere prima una macchina dall'elenco, poi Conferma"));
  }
  if (contesto().utente.MsgBox(QStringLiteral("Si è sicuri della scelta effettuata ?"), Icon::Question,
                               QStringLiteral("Caricamento configurazione"), Buttons::YesNo) != Answer::Yes) {
    const QString prima = modello();
    return ui_->BarraEsito->tell(
        Kind::Plain, prima.isEmpty() ? QStringLiteral("Non confermata: nessuna macchina scelta")
                                     : QStringLiteral("Non confermata: la macchina resta ") + prima);
  }
  editors::scegliModello(*scelta);
  ui_->BarraEsito->tell(Kind::Done, racconto());
}
