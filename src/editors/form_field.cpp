#include "editors/form_field.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "controls/contrast.h"
#include "controls/sample_width.h"
#include "controls/wheel_guard.h"
#include "core/conversions.h"
#include "core/date_combos.h"
#include "core/table_text.h"
#include "platform/ecrcom/library.h"

namespace editors {

namespace {

// Colours that shops know.
const QColor kGiallo(255, 255, 0);
const QColor kBordoSbagliato(0xFF, 0x80, 0x80);
constexpr QChar kPunto = u'●';
constexpr int kPrimoAnno = 2000;
constexpr int kUltimoAnno = 2100;
constexpr int kAnniPerSecolo = 100;
/// Of a number, which has no limit of its own: what the longest stored one takes.
constexpr int kCaratteriNumero = 12;
/// Digits of a time.
constexpr int kCaratteriOra = 6;

// In pixels.
constexpr int kMargine = 6;
constexpr int kTraControlli = 6;
constexpr int kSopra = 4;
constexpr int kSopraInSerie = 1;

// Where the till's text has the parts of a moment, "gg/mm/aa hh:mm:ss".
constexpr int kPostoGiorno = 0;
constexpr int kPostoMese = 3;
constexpr int kPostoAnno = 6;
constexpr int kPostoOra = 9;
constexpr int kPostoMinuti = 12;
constexpr int kPostoSecondi = 15;
constexpr int kCifre = 2;

int parte(const QString& momento, int posto) {
  return QStringView(momento).mid(posto, kCifre).toInt();
}

QString momento(EcrLibrary& libreria, std::uint32_t valore) {
  return QString::fromLatin1(libreria.ecr_oro_encode(valore));
}

/// The low byte of the number that the digits write, however many there are.
std::uint8_t byteDi(const QString& cifre) {
  unsigned valore = 0;
  for (const QChar cifra : cifre) {
    const int questa = cifra.digitValue();
    if (questa < 0) break;
    valore = (valore * 10 + static_cast<unsigned>(questa)) % 256;
  }
  return static_cast<std::uint8_t>(valore);
}

struct Colori {
  QColor fondo;
  QColor lettere;
};

/// A ground among the colours of `chi`, and letters that can be read on it.
Colori coloriLeggibili(const QWidget& chi, const QColor& fondo) {
  const QColor lettere = chi.palette().color(QPalette::Active, QPalette::Text);
  const QColor sotto = contrast::ground(fondo, chi.palette().color(QPalette::Base), lettere);
  return {sotto, contrast::readable(lettere, sotto)};
}

/// A text, which has a longest length.
bool conLimite(const Dato& dato) {
  return dato.genere == Genere::Testo || dato.genere == Genere::Perso;
}

/// Nothing moves when it comes and goes.
void tieniIlPosto(QWidget& chi) {
  QSizePolicy fermo = chi.sizePolicy();
  fermo.setRetainSizeWhenHidden(true);
  chi.setSizePolicy(fermo);
}

/// A sample as wide as `caratteri` characters usually are.
QString campione(int caratteri) {
  return QString(caratteri, u'n');
}

/// Where a line that is typed is stored.
struct Riposto {
  const Dato& dato;
  std::size_t riga;
  EcrLibrary& libreria;

  // What is shown or dropped has no record.
  config::Record record() const { return recordDi(dato, riga); }
  config::Campo campo() const { return campoDi(dato, riga); }
};

QString leggiOra(const Riposto& dove) {
  const QString quando = momento(dove.libreria, config::leggiSenzaSegno(dove.record(), dove.campo()));
  return quando.mid(kPostoOra, kCifre) + quando.mid(kPostoMinuti, kCifre) + quando.mid(kPostoSecondi, kCifre);
}

void scriviOra(const Riposto& dove, const QString& scritto) {
  const std::uint32_t ora =
      dove.libreria.ecr_time_decode(parte(scritto, 0), parte(scritto, kCifre), parte(scritto, 2 * kCifre));
  config::scriviSenzaSegno(dove.record(), dove.campo(), ora);
}

/// The way of a line out of its record, and back into it.
struct Modo {
  QString (*leggi)(const Riposto& dove);
  void (*scrivi)(const Riposto& dove, const QString& scritto);
};

Modo modoDi(Genere genere) {
  const auto nessuno = [](const Riposto&, const QString&) {};
  switch (genere) {
    case Genere::Centesimi:
      return {
          [](const Riposto& dove) { return CentInTesto(config::leggiIntero(dove.record(), dove.campo())); },
          [](const Riposto& dove, const QString& scritto) {
            config::scriviIntero(dove.record(), dove.campo(), TestoInCent(scritto));
          }};
    case Genere::Numero:
      return {
          [](const Riposto& dove) { return QString::number(config::leggiByte(dove.record(), dove.campo())); },
          [](const Riposto& dove, const QString& scritto) {
            config::scriviByte(dove.record(), dove.campo(), byteDi(scritto));
          }};
    case Genere::Ora:
      return {leggiOra, scriviOra};
    case Genere::Mostrato:
      return {[](const Riposto& dove) { return dove.dato.valore(); }, nessuno};
    case Genere::Perso:
      return {[](const Riposto&) { return QString(); }, nessuno};
    case Genere::Testo:
    case Genere::SiNo:
    case Genere::Lista:
    case Genere::Codici:
    case Genere::Data:
    case Genere::Giorno:
      break;
  }
  return {[](const Riposto& dove) { return config::leggiTesto(dove.record(), dove.campo()); },
          [](const Riposto& dove, const QString& scritto) {
            config::scriviTesto(dove.record(), dove.campo(), scritto);
          }};
}

}  // namespace

CampoModulo::CampoModulo(const Dato& dato, Posto posto)
    : QFrame(posto.dove), dato_(dato), posto_(std::move(posto)), punto_(new QLabel(kPunto, this)) {
  const QString oggetto = nomeControllo(dato.controllo);
  setObjectName(QStringLiteral("Cornice_") + oggetto);
  punto_->setObjectName(QStringLiteral("Punto_") + oggetto);
  punto_->setAccessibleName(QStringLiteral("modificato"));
  punto_->setToolTip(QStringLiteral("Modificato, non ancora salvato"));
  tieniIlPosto(*punto_);
  punto_->hide();
}

CampoModulo::~CampoModulo() = default;

QString CampoModulo::nome() const {
  QString didascalia = testo(dato_.didascalia).simplified();
  if (posto_.riquadro.nominato) return testo(posto_.riquadro.titolo) + QStringLiteral(", ") + didascalia;
  if (posto_.nomeRiga.isEmpty() || didascalia == posto_.nomeRiga) return didascalia;
  return didascalia.isEmpty() ? posto_.nomeRiga : posto_.nomeRiga + QStringLiteral(", ") + didascalia;
}

void CampoModulo::vesti(QWidget& controllo, const QString& oggetto, const QString& parte) const {
  controllo.setObjectName(oggetto);
  controllo.setAccessibleName(parte.isEmpty() ? nome() : nome() + QStringLiteral(", ") + parte);
  controllo.setToolTip(testo(dato_.suggerimento));
}

void CampoModulo::disponi(const QList<QWidget*>& controlli, QLabel* conta) {
  auto* riga = new QHBoxLayout;
  riga->setSpacing(kTraControlli);
  const bool serie = posto_.riquadro.righe > 0;
  if (serie) riga->addWidget(punto_);
  for (QWidget* uno : controlli) riga->addWidget(uno);
  if (serie && conta) riga->addWidget(conta);
  auto* tutto = new QVBoxLayout(this);
  const int sopra = serie ? kSopraInSerie : kSopra;
  tutto->setContentsMargins(kMargine, sopra, kMargine, sopra);
  tutto->setSpacing(2);
  if (!serie) {
    auto* testa = new QHBoxLayout;
    testa->setSpacing(4);
    auto* etichetta = new QLabel(testo(dato_.didascalia), this);
    etichetta->setObjectName(QStringLiteral("Etichetta_") + nomeControllo(dato_.controllo));
    etichetta->setBuddy(&controllo());
    testa->addWidget(etichetta);
    testa->addWidget(punto_);
    testa->addStretch(1);
    if (conta) testa->addWidget(conta);
    tutto->addLayout(testa);
  }
  // A line takes the width that there is; the others stand at the left.
  if (!conLimite(dato_) || dato_.stretto) riga->addStretch(1);
  tutto->addLayout(riga);
  if (*dato_.nota != u'\0') {
    auto* nota = new QLabel(testo(dato_.nota), this);
    nota->setProperty("note", true);
    nota->setObjectName(QStringLiteral("Nota_") + nomeControllo(dato_.controllo));
    nota->setWordWrap(true);
    tutto->addWidget(nota);
    controllo().setAccessibleDescription(nota->text());
  }
}

int CampoModulo::margineInSerie(const QWidget& chi) {
  return kMargine + chi.fontMetrics().horizontalAdvance(kPunto) + kTraControlli;
}

void CampoModulo::mostra() {
  const QScopedValueRollback daProgramma(daProgramma_, true);
  segna(false);
  riempi();
}

void CampoModulo::cambiato() {
  if (daProgramma_) return;
  segna(true);
  posto_.cambiato();
}

void CampoModulo::segna(bool segnato) {
  if (segnato == segnato_ && !sbagliato_) return;
  segnato_ = segnato;
  sbagliato_ = false;
  punto_->setVisible(segnato);
  colora();
}

void CampoModulo::segnaSbagliato() {
  sbagliato_ = true;
  colora();
}

void CampoModulo::colora() {
  const bool casella = posto_.segno == Segno::Campo && qobject_cast<QLineEdit*>(&controllo()) != nullptr;
  QWidget& chi = casella ? controllo() : static_cast<QWidget&>(*this);
  if (!segnato_ && !sbagliato_) return chi.setStyleSheet({});
  const Colori colori = coloriLeggibili(chi, kGiallo);
  QString foglio =
      QStringLiteral("background: %1; color: %2;").arg(colori.fondo.name(), colori.lettere.name());
  if (sbagliato_) foglio += QStringLiteral(" border: 2px solid %1;").arg(kBordoSbagliato.name());
  if (casella) return chi.setStyleSheet(QStringLiteral("QLineEdit { %1 }").arg(foglio));
  // The lists and the lines inside keep what they have.
  chi.setStyleSheet(QStringLiteral("#%1 { %2 border-radius: 6px; } QLabel, QRadioButton { color: %3; }")
                        .arg(objectName(), foglio, colori.lettere.name()));
}

// A pair

CampoSiNo::CampoSiNo(const Dato& dato, Posto posto)
    : CampoModulo(dato, std::move(posto)),
      si_(new QRadioButton(testo(dato.si), this)),
      no_(new QRadioButton(testo(dato.no), this)) {
  const QByteArray base(dato.controllo);
  vesti(*si_, nomeControllo((base + "_SI").constData()), testo(dato.si));
  vesti(*no_, nomeControllo((base + "_NO").constData()), testo(dato.no));
  auto* coppia = new QButtonGroup(this);
  coppia->addButton(si_);
  coppia->addButton(no_);
  disponi({si_, no_});
  connect(si_, &QRadioButton::toggled, this, [this] {
    unaSolaFermata();
    cambiato();
  });
}

QWidget& CampoSiNo::controllo() const {
  return no_->isChecked() ? *no_ : *si_;
}

bool CampoSiNo::si() const {
  return si_->isChecked();
}

void CampoSiNo::riempi() {
  (config::leggiFlag(record(), campo()) ? si_ : no_)->setChecked(true);
  unaSolaFermata();
}

/// The Tab key stops at the button that is chosen; the toolkit sees to that from the first stop on.
void CampoSiNo::unaSolaFermata() {
  for (QRadioButton* uno : {si_, no_})
    uno->setFocusPolicy(uno->isChecked() ? Qt::StrongFocus : Qt::ClickFocus);
}

void CampoSiNo::scrivi() {
  config::scriviFlag(record(), campo(), si());
}

// A list

CampoLista::CampoLista(const Dato& dato, Posto posto)
    : CampoModulo(dato, std::move(posto)), lista_(new QComboBox(this)) {
  vesti(*lista_, nomeControllo(dato.controllo));
  for (const char16_t* const elemento : dato.elementi) lista_->addItem(testo(elemento));
  lista_->setPlaceholderText(testo(dato.vuota));
  lista_->setCurrentIndex(-1);
  wheelNeedsFocus(*lista_);
  disponi({lista_});
  connect(lista_, &QComboBox::currentIndexChanged, this, [this] { cambiato(); });
}

QWidget& CampoLista::controllo() const {
  return *lista_;
}

/// A byte that the list does not know shows no entry; a code that it does not know counts as its first.
void CampoLista::riempi() {
  int posizione = config::leggiByte(record(), campo());
  if (!dato().codici.empty()) {
    const auto codice = std::ranges::find(dato().codici, static_cast<std::uint8_t>(posizione));
    posizione = codice == dato().codici.end() ? 0 : static_cast<int>(codice - dato().codici.begin());
  }
  if (dato().sempreLaPrima) posizione = 0;
  lista_->setCurrentIndex(posizione < lista_->count() ? posizione : -1);
}

void CampoLista::scrivi() {
  const int posizione = lista_->currentIndex();
  if (posizione < 0) return;
  const std::uint8_t byte = dato().codici.empty() ? static_cast<std::uint8_t>(posizione)
                                                  : dato().codici[static_cast<std::size_t>(posizione)];
  config::scriviByte(record(), campo(), byte);
}

// A line

CampoScritto::CampoScritto(const Dato& dato, Posto posto)
    : CampoModulo(dato, std::move(posto)), casella_(new QLineEdit(this)), conta_(new QLabel(this)) {
  const bool testuale = conLimite(dato);
  const bool ora = dato.genere == Genere::Ora;
  vesti(*casella_, nomeControllo(dato.controllo));
  if (dato.genere == Genere::Mostrato) {
    casella_->setReadOnly(true);
    casella_->setFocusPolicy(Qt::ClickFocus);
  }
  if (dato.mascherato) casella_->setEchoMode(QLineEdit::Password);
  if (dato.genere == Genere::Centesimi || dato.genere == Genere::Numero)
    casella_->setAlignment(Qt::AlignRight);
  limite_ = testuale ? static_cast<int>(dato.campo.limite) : ora ? kCaratteriOra : kCaratteriNumero;
  const QString usuale = dato.campione ? testo(dato.campione) : campione(limite_);
  widthFromSample(*casella_, usuale, testuale && !dato.stretto ? FieldWidth::AtLeast : FieldWidth::Exact);
  conta_->setObjectName(QStringLiteral("Conta_") + casella_->objectName());
  conta_->setProperty("note", true);
  tieniIlPosto(*conta_);
  conta_->hide();
  disponi({casella_}, testuale ? conta_ : nullptr);
  const FieldCheck controllo =
      dato.verifica ? FieldCheck([this](const QString& scritto) { return rifiuto(scritto); }) : FieldCheck();
  new GuardedField(*casella_, dato.tasti, controllo,
                   [this](const QString& messaggio) { this->posto().avvisa(messaggio); });
  connect(casella_, &QLineEdit::textChanged, this, [this] {
    limita(limite_);
    conta();
    cambiato();
  });
  connect(casella_, &QLineEdit::editingFinished, conta_, &QLabel::hide);
}

QWidget& CampoScritto::controllo() const {
  return *casella_;
}

// A shorter limit must not cut what has been written by a longer one.
void CampoScritto::limita(int caratteri) {
  limite_ = caratteri;
  const int massimo = std::max(limite_, static_cast<int>(casella_->text().size()));
  if (massimo == casella_->maxLength()) return;
  // A new length puts the cursor at the end, in the middle of a word too.
  const int cursore = casella_->cursorPosition();
  casella_->setMaxLength(massimo);
  casella_->setCursorPosition(cursore);
}

void CampoScritto::conta() {
  // However many digits it has, nothing moves beside it.
  conta_->setMinimumWidth(conta_->fontMetrics().horizontalAdvance(QStringLiteral("%1/%1").arg(limite_)));
  const bool scrive = casella_->hasFocus() && conLimite(dato());
  conta_->setText(QStringLiteral("%1/%2").arg(casella_->text().size()).arg(limite_));
  conta_->setVisible(scrive);
}

QString CampoScritto::letto() const {
  return modoDi(dato().genere).leggi({dato(), riga(), posto().libreria});
}

void CampoScritto::riempi() {
  caricato_.clear();
  casella_->clear();
  caricato_ = letto();
  casella_->setMaxLength(std::max(limite_, static_cast<int>(caricato_.size())));
  casella_->setText(caricato_);
  casella_->setCursorPosition(0);
  conta();
  conta_->hide();
}

void CampoScritto::scrivi() {
  const QString scritto = dato().rifilato ? casella_->text().trimmed() : casella_->text();
  modoDi(dato().genere).scrivi({dato(), riga(), posto().libreria}, scritto);
}

std::optional<Rejection> CampoScritto::rifiuto(const QString& scritto) const {
  const QString messaggio = dato().verifica(scritto);
  if (messaggio.isEmpty()) return std::nullopt;
  // It would be replaced by itself, and nobody who passes over the field could leave it.
  if (!dato().predefinito && scritto == caricato_) return std::nullopt;
  return Rejection{messaggio, dato().predefinito ? testo(dato().predefinito) : caricato_};
}

bool CampoScritto::accettato() {
  const std::optional<Rejection> no = dato().verifica ? rifiuto(casella_->text()) : std::nullopt;
  if (!no) return true;
  casella_->setText(no->value);
  posto().avvisa(no->message);
  return false;
}

void CampoScritto::tieni() {
  caricato_ = casella_->text();
}

// A date

CampoData::CampoData(const Dato& dato, Posto posto)
    : CampoModulo(dato, std::move(posto)), giorno_(new QComboBox(this)), mese_(new QComboBox(this)) {
  vesti(*giorno_, nomeControllo(dato.controllo), QStringLiteral("giorno"));
  vesti(*mese_, nomeControllo(dato.altre.mese), QStringLiteral("mese"));
  QList<QWidget*> liste{giorno_, mese_};
  if (dato.altre.anno != nullptr) {
    anno_ = new QComboBox(this);
    vesti(*anno_, nomeControllo(dato.altre.anno), QStringLiteral("anno"));
    liste << anno_;
  }
  RiempiComboData({giorno_, mese_, anno_}, kPrimoAnno, kUltimoAnno);
  disponi(liste);
  for (QComboBox* lista : {giorno_, mese_, anno_})
    if (lista) connect(lista, &QComboBox::currentIndexChanged, this, [this] { cambiato(); });
}

QWidget& CampoData::controllo() const {
  return *giorno_;
}

bool CampoData::scelta() const {
  return giorno_->currentIndex() >= 0 && mese_->currentIndex() >= 0 && (!anno_ || anno_->currentIndex() >= 0);
}

QString CampoData::cifre() const {
  return giorno_->currentText() + mese_->currentText() + (anno_ ? anno_->currentText() : QString());
}

void CampoData::allInizio() {
  for (QComboBox* lista : {giorno_, mese_, anno_})
    if (lista) lista->setCurrentIndex(0);
}

void CampoData::sfondo(const QColor& colore) {
  const Colori colori = coloriLeggibili(*this, colore);
  QPalette tavolozza = palette();
  tavolozza.setColor(QPalette::Button, colori.fondo);
  tavolozza.setColor(QPalette::ButtonText, colori.lettere);
  for (QComboBox* lista : {giorno_, mese_, anno_})
    if (lista) lista->setPalette(tavolozza);
}

/// A day that no list has, as that of a programme never filled in, shows no entry.
void CampoData::riempi() {
  for (QComboBox* lista : {giorno_, mese_, anno_})
    if (lista) lista->setCurrentIndex(-1);
  const QString quando = momento(posto().libreria, config::leggiSenzaSegno(record(), campo()));
  giorno_->setCurrentIndex(parte(quando, kPostoGiorno) - 1);
  mese_->setCurrentIndex(parte(quando, kPostoMese) - 1);
  if (anno_) anno_->setCurrentIndex(parte(quando, kPostoAnno));
}

void CampoData::scrivi() {
  if (!scelta()) return;
  const int giorno = giorno_->currentIndex() + 1;
  const int mese = mese_->currentIndex() + 1;
  EcrLibrary& libreria = posto().libreria;
  config::scriviSenzaSegno(
      record(), campo(),
      anno_ ? libreria.ecr_date_decode(giorno, mese, anno_->currentIndex() % kAnniPerSecolo)
            : libreria.ecr_dates_decode(giorno, mese));
}

std::unique_ptr<CampoModulo> CreaCampo(const Dato& dato, Posto posto) {
  switch (dato.genere) {
    case Genere::SiNo:
      return std::make_unique<CampoSiNo>(dato, std::move(posto));
    case Genere::Lista:
    case Genere::Codici:
      return std::make_unique<CampoLista>(dato, std::move(posto));
    case Genere::Data:
    case Genere::Giorno:
      return std::make_unique<CampoData>(dato, std::move(posto));
    case Genere::Testo:
    case Genere::Centesimi:
    case Genere::Numero:
    case Genere::Ora:
    case Genere::Mostrato:
    case Genere::Perso:
      break;
  }
  return std::make_unique<CampoScritto>(dato, std::move(posto));
}

}  // namespace editors
