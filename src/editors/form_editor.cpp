#include "editors/form_editor.h"

#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScrollArea>
#include <algorithm>

#include "controls/command_key.h"
#include "controls/foldable_row.h"
#include "controls/guarded_field.h"
#include "controls/outcome_bar.h"
#include "controls/style.h"
#include "core/figures.h"
#include "core/reactions.h"
#include "core/table_text.h"
#include "editors/form_field.h"
#include "platform/ui/user_port.h"
#include "ui_form_editor.h"

namespace {

using Kind = OutcomeBar::Kind;

/// How many changed fields the foot names.
constexpr std::size_t kNominati = 3;
constexpr int kMargineRiquadro = 12;
/// At its sides, where each field has a margin of its own.
constexpr int kLatoRiquadro = 10;
constexpr int kTraRiquadri = 16;
constexpr int kSottoLeLinguette = 8;
/// Of the dot on a tab, in pixels.
constexpr int kLatoSegno = 16;
constexpr qreal kBordoSegno = 4;
/// Scale at which the dot is drawn, for displays up to that.
constexpr int kScalaSegno = 2;

QIcon segnoDi(const QColor& colore) {
  QPixmap figura(kLatoSegno * kScalaSegno, kLatoSegno * kScalaSegno);
  figura.setDevicePixelRatio(kScalaSegno);
  figura.fill(Qt::transparent);
  QPainter penna(&figura);
  penna.setRenderHint(QPainter::Antialiasing);
  penna.setPen(Qt::NoPen);
  penna.setBrush(colore);
  penna.drawEllipse(
      QRectF(0, 0, kLatoSegno, kLatoSegno).adjusted(kBordoSegno, kBordoSegno, -kBordoSegno, -kBordoSegno));
  return figura;
}

/// What stands before a row of a series.
QString nomeRiga(const editors::Riquadro& riquadro, std::size_t riga) {
  if (riquadro.nomi.empty()) return {};
  const QString nome = testo(riquadro.nomi[std::min(riga, riquadro.nomi.size() - 1)]);
  return nome.contains(QLatin1String("%1")) ? nome.arg(riga + 1) : nome;
}

QLabel* intestazione(const char16_t* parole, QWidget* in) {
  auto* etichetta = new QLabel(testo(parole), in);
  etichetta->setProperty("note", true);
  return etichetta;
}

}  // namespace

EditorModulo::EditorModulo(Contesto& contesto, const editors::Modulo& modulo)
    : Schermo(contesto), modulo_(modulo), ui_(std::make_unique<Ui::EditorModulo>()) {
  setObjectName(QLatin1String(modulo.schermata));
  ui_->setupUi(this);
  setWindowTitle(testo(modulo.titolo));
  ui_->TitoloEditor->setText(testo(modulo.titolo));
  ui_->schede->setObjectName(QStringLiteral("SSTab1"));
  ui_->schede->setAccessibleName(testo(modulo.titolo));
  segnoScheda_ = segnoDi(palette().color(QPalette::Highlight));
  costruisci();
  connect(ui_->schede, &QTabWidget::currentChanged, this, [this](int scheda) {
    ui_->comandi->setCurrentIndex(comandiDi_[static_cast<std::size_t>(scheda)]);
  });
  // What is only shown takes no focus.
  const auto primo = std::ranges::find_if(campi_, [](const editors::CampoModulo* campo) {
    return campo->dato().genere != editors::Genere::Mostrato;
  });
  if (modulo.pagine.size() > 1)
    setFocusProxy(ui_->schede);
  else if (primo != campi_.end())
    setFocusProxy(&(*primo)->controllo());
}

EditorModulo::~EditorModulo() = default;

void EditorModulo::costruisci() {
  // The Tab key goes through them as they are made: commands come behind the fields of every tab.
  // Each part is made inside the one that holds it: a style sheet polishes whatever changes its parent anew,
  // with all that it holds.
  for (const editors::Pagina& una : modulo_.pagine) {
    auto* rotolo = new QScrollArea(ui_->schede);
    ui_->schede->addTab(rotolo, testo(una.titolo));
    pagina(una, *rotolo);
  }
  for (const editors::Pagina& una : modulo_.pagine) {
    if (una.salva != nullptr) ui_->comandi->addWidget(comandi(una));
    comandiDi_.push_back(ui_->comandi->count() - 1);
  }
  // One key for all of them: they do the same.
  commandKey(*salva_.front(), QKeySequence::Save);
  for (QPushButton* altro : salva_) altro->setToolTip(salva_.front()->toolTip());
}

void EditorModulo::pagina(const editors::Pagina& pagina, QScrollArea& rotolo) {
  rotolo.setWidgetResizable(true);
  rotolo.setFrameShape(QFrame::NoFrame);
  rotolo.setFocusPolicy(Qt::NoFocus);
  auto* colonne = new FoldableRow(&rotolo);
  rotolo.setWidget(colonne);
  auto* fianco = new QHBoxLayout(colonne);
  fianco->setContentsMargins(0, modulo_.pagine.size() > 1 ? kSottoLeLinguette : 0, 0, 0);
  fianco->setSpacing(kTraRiquadri);
  QBoxLayout* colonna[2] = {};
  for (const editors::Riquadro& uno : pagina.riquadri) {
    QBoxLayout*& questa = colonna[uno.secondaColonna ? 1 : 0];
    if (!questa) {
      auto* parte = new QWidget(colonne);
      questa = new QVBoxLayout(parte);
      questa->setContentsMargins(0, 0, 0, 0);
      questa->setSpacing(kTraRiquadri);
      fianco->addWidget(parte, 1);
    }
    riquadro(uno, *questa);
  }
  for (QBoxLayout* questa : colonna)
    if (questa) questa->addStretch(1);
}

void EditorModulo::riquadro(const editors::Riquadro& riquadro, QBoxLayout& colonna) {
  auto* carta = new QFrame(colonna.parentWidget());
  colonna.addWidget(carta);
  carta->setProperty("card", true);
  carta->setObjectName(QLatin1String(riquadro.nome));
  auto* tutto = new QVBoxLayout(carta);
  tutto->setContentsMargins(kLatoRiquadro, kMargineRiquadro, kLatoRiquadro, kMargineRiquadro);
  tutto->setSpacing(4);
  auto* titolo = new QLabel(testo(riquadro.titolo), carta);
  QFont grassetto = titolo->font();
  grassetto.setBold(true);
  titolo->setFont(grassetto);
  titolo->setContentsMargins(6, 0, 0, 2);
  tutto->addWidget(titolo);
  auto* griglia = new QGridLayout;
  griglia->setHorizontalSpacing(8);
  griglia->setVerticalSpacing(riquadro.righe > 0 ? 0 : 4);
  tutto->addLayout(griglia);
  if (riquadro.righe > 0) {
    serie(riquadro, *griglia);
    return;
  }
  int posto = 0;
  for (const editors::Dato& dato : riquadro.dati) {
    editors::CampoModulo* campo =
        aggiungi(dato, {carta, riquadro, 0, contesto().libreria, modulo_.segno, {}, {}, {}});
    griglia->addWidget(campo, posto / riquadro.affiancati, posto % riquadro.affiancati, Qt::AlignTop);
    ++posto;
  }
  for (int una = 0; una < riquadro.affiancati; ++una) griglia->setColumnStretch(una, 1);
}

/// One row a record under the captions of its fields.
void EditorModulo::serie(const editors::Riquadro& riquadro, QGridLayout& griglia) {
  int colonna = 1;
  for (const editors::Dato& dato : riquadro.dati) {
    // A single column says by its rows what it holds.
    if (riquadro.dati.size() > 1 && *dato.didascalia != u'\0') {
      QLabel* testa = intestazione(dato.didascalia, griglia.parentWidget());
      testa->setContentsMargins(editors::CampoModulo::margineInSerie(*testa), 0, 0, 0);
      griglia.addWidget(testa, 0, colonna);
    }
    if (dato.genere == editors::Genere::Testo) griglia.setColumnStretch(colonna, 1);
    ++colonna;
  }
  griglia.setColumnStretch(colonna, 1);
  int suo = 1;
  if (!riquadro.primaRiga.empty()) {
    riga(testo(riquadro.nomePrimaRiga), riquadro.primaRiga, riquadro, 0, griglia, suo);
    ++suo;
  }
  for (std::size_t quale = 0; quale < riquadro.righe; ++quale, ++suo)
    riga(nomeRiga(riquadro, quale), riquadro.dati, riquadro, quale, griglia, suo);
}

void EditorModulo::riga(const QString& nome, std::span<const editors::Dato> dati,
                        const editors::Riquadro& riquadro, std::size_t quale, QGridLayout& griglia, int suo) {
  auto* etichetta = new QLabel(nome, griglia.parentWidget());
  etichetta->setContentsMargins(6, 0, 0, 0);
  griglia.addWidget(etichetta, suo, 0);
  int colonna = 1;
  for (const editors::Dato& dato : dati) {
    editors::CampoModulo* campo = aggiungi(
        dato, {griglia.parentWidget(), riquadro, quale, contesto().libreria, modulo_.segno, nome, {}, {}});
    if (colonna == 1) etichetta->setBuddy(&campo->controllo());
    griglia.addWidget(campo, suo, colonna);
    ++colonna;
  }
}

editors::CampoModulo* EditorModulo::aggiungi(const editors::Dato& dato, editors::Posto posto) {
  const std::size_t mio = campi_.size();
  posto.cambiato = [this, mio] { cambiato(*campi_[mio]); };
  posto.avvisa = [this](const QString& messaggio) { avvisa(messaggio); };
  editors::CampoModulo* campo = editors::CreaCampo(dato, std::move(posto)).release();
  campi_.push_back(campo);
  return campo;
}

QWidget* EditorModulo::comandi(const editors::Pagina& pagina) {
  auto* coppia = new QWidget(ui_->comandi);
  auto* fianco = new QHBoxLayout(coppia);
  fianco->setContentsMargins(0, 0, 0, 0);
  fianco->setSpacing(8);
  auto* salvare = new QPushButton(QStringLiteral("Salva Modifiche"), coppia);
  salvare->setObjectName(QLatin1String(pagina.salva));
  salvare->setToolTip(QStringLiteral("Scrive le modifiche nel file della configurazione"));
  style::primary(*salvare, QStringLiteral("save"));
  auto* annullare = new QPushButton(testo(modulo_.annulla), coppia);
  annullare->setObjectName(QLatin1String(pagina.annulla));
  annullare->setToolTip(QStringLiteral("Riporta i campi ai valori dell'ultimo salvataggio"));
  annullare->setIcon(style::icon(QStringLiteral("undo-2")));
  fianco->addWidget(salvare);
  fianco->addWidget(annullare);
  salva_.push_back(salvare);
  connect(salvare, &QPushButton::clicked, this,
          [this] { esegui("Cmd_Modifica_Click", [this] { salva(); }); });
  connect(annullare, &QPushButton::clicked, this,
          [this] { esegui("Cmd_Reset_Click", [this] { annulla(); }); });
  return coppia;
}

editors::CampoModulo& EditorModulo::trovato(const char* controllo, std::size_t riga) const {
  const auto campo = std::ranges::find_if(campi_, [&](const editors::CampoModulo* uno) {
    return uno->riga() == riga && QLatin1String(uno->dato().controllo) == QLatin1String(controllo);
  });
  Q_ASSERT(campo != campi_.end());
  return **campo;
}

QWidget& EditorModulo::carta(const char* nome) const {
  auto* questa = findChild<QFrame*>(QLatin1String(nome));
  Q_ASSERT(questa != nullptr);
  return *questa;
}

QString EditorModulo::riempimentoDi(const editors::CampoModulo& campo) const {
  for (int i = 0; i < ui_->schede->count(); ++i) {
    const char* suo = modulo_.pagine[static_cast<std::size_t>(i)].riempimento;
    if (suo != nullptr && ui_->schede->widget(i)->isAncestorOf(&campo)) return QLatin1String(suo);
  }
  return QLatin1String(modulo_.riempimento);
}

void EditorModulo::ricarica() {
  // Without the till's library its dates cannot be read, which is told once; the other fields are filled.
  std::optional<Errore> guasto;
  QString riempimento;
  for (editors::CampoModulo* campo : campi_) {
    try {
      campo->mostra();
    } catch (const Errore& errore) {
      if (!guasto) riempimento = riempimentoDi(*campo);
      if (!guasto) guasto = errore;
    }
  }
  if (guasto) reazioni::segnalaImprevisto(contesto().utente, *guasto, riempimento, objectName());
  ResetBackColorFrame();
}

void EditorModulo::salvaInMemoria() {
  for (editors::CampoModulo* campo : campi_) campo->scrivi();
}

bool EditorModulo::pronto() {
  return campiGiusti() && salvabile();
}

bool EditorModulo::campiGiusti() {
  return GuardedField::settled(*window()) && controllaSegnati() && controlla();
}

/// What was filled in stands up to no check: a programme saved elsewhere must stay editable.
bool EditorModulo::controllaSegnati() {
  for (editors::CampoModulo* campo : campi_)
    if (campo->segnato() && !campo->accettato()) {
      porta(*campo);
      return false;
    }
  return true;
}

void EditorModulo::salva() {
  if (!campiGiusti()) return;
  if (modificato() == kFalso)
    return ui_->BarraEsito->tell(Kind::Plain, QStringLiteral("Nessuna modifica da salvare"));
  if (!premuto() && !editors::chiediDiSalvare(contesto())) return mostraStato();
  if (!salvabile()) return;
  editors::SalvaEditorRaccontando(
      *this, modificato(), [this] { dopoIlSalvataggio(); }, *ui_->BarraEsito, contesto());
}

/// A press on the command itself is an answer already.
bool EditorModulo::premuto() const {
  return std::ranges::any_of(salva_,
                             [this](const QPushButton* uno) { return window()->focusWidget() == uno; });
}

void EditorModulo::annulla() {
  const QString perse = modificati();
  modificato() = kFalso;
  ricarica();
  if (!perse.isEmpty()) ui_->BarraEsito->tell(Kind::Done, QStringLiteral("Modifiche annullate: ") + perse);
}

void EditorModulo::segna(editors::CampoModulo& campo) {
  campo.segna(true);
  modificato() = kVero;
  mostraStato();
}

void EditorModulo::cambiato(editors::CampoModulo& campo) {
  segna(campo);
  dopo(campo);
}

void EditorModulo::mostraNumeri() {
  for (editors::CampoModulo* campo : campi_)
    if (campo->dato().genere == editors::Genere::Centesimi || campo->dato().genere == editors::Genere::Numero)
      campo->mostra();
}

void EditorModulo::ResetBackColorFrame() {
  for (editors::CampoModulo* campo : campi_) {
    campo->segna(false);
    campo->tieni();
  }
  mostraStato();
}

void EditorModulo::avvisa(const QString& messaggio) {
  contesto().utente.MsgBox(messaggio, Icon::Warning);
  racconta(messaggio);
}

void EditorModulo::racconta(const QString& avviso) {
  ui_->BarraEsito->tell(Kind::Warning, avviso);
}

void EditorModulo::porta(editors::CampoModulo& campo) {
  // The command that was pressed may go with its tab: on its way elsewhere the focus would come by a field,
  // which would be checked as if it were left.
  ui_->schede->setFocus(Qt::OtherFocusReason);
  for (int i = 0; i < ui_->schede->count(); ++i)
    if (ui_->schede->widget(i)->isAncestorOf(&campo)) {
      ui_->schede->setCurrentIndex(i);
      static_cast<QScrollArea*>(ui_->schede->widget(i))->ensureWidgetVisible(&campo);
    }
  campo.controllo().setFocus(Qt::OtherFocusReason);
}

/// "Password, N.ro Cassa e altri 3"; empty for none.
QString EditorModulo::modificati() const {
  QStringList nomi;
  for (const editors::CampoModulo* campo : campi_)
    if (campo->segnato()) nomi << campo->nome();
  if (nomi.isEmpty()) return {};
  const qsizetype altri = nomi.size() - static_cast<qsizetype>(kNominati);
  if (altri <= 0) return nomi.join(QStringLiteral("; "));
  return nomi.mid(0, kNominati).join(QStringLiteral("; ")) +
         (altri == 1 ? QStringLiteral(" e un altro") : QStringLiteral(" e altri %1").arg(altri));
}

void EditorModulo::mostraStato() {
  for (int i = 0; i < ui_->schede->count(); ++i) {
    const QWidget* pagina = ui_->schede->widget(i);
    const bool segnata = std::ranges::any_of(campi_, [&](const editors::CampoModulo* campo) {
      return campo->segnato() && pagina->isAncestorOf(campo);
    });
    ui_->schede->setTabIcon(i, segnata ? segnoScheda_ : QIcon());
    ui_->schede->setTabToolTip(i, segnata ? QStringLiteral("Qui ci sono modifiche non salvate") : QString());
  }
  const QString quali = modificati();
  if (quali.isEmpty()) return ui_->BarraEsito->clear();
  ui_->BarraEsito->tell(Kind::Plain, QString::fromUtf16(kNonSalvate) + quali);
}
