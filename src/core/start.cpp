#include "core/start.h"

#include <QApplication>
#include <QCloseEvent>
#include <QPainter>
#include <QTimer>
#include <utility>

#include "controls/style.h"
#include "core/context.h"
#include "core/menu.h"
#include "core/reactions.h"
#include "core/screens.h"
#include "core/startup.h"
#include "core/state.h"
#include "platform/ui/display.h"
#include "ui_start.h"

namespace {
// The program's sign: its side, what its ground leaves around it, and how round the ground's corners are.
constexpr int kMarchio = 42;
constexpr int kIntorno = 7;
constexpr int kAngolo = 10;
/// The menu stands on the screen before its first picture is read, and the style sheet of the other screens.
constexpr int kPrimaImmagineMs = 30;
constexpr auto kModulo = "start";

QPixmap marchio(const QWidget& schermo) {
  const qreal scala = qApp->devicePixelRatio();
  const QRect tutto(0, 0, kMarchio, kMarchio);
  QPixmap segno(tutto.size() * scala);
  segno.setDevicePixelRatio(scala);
  segno.fill(Qt::transparent);
  QPainter pittore(&segno);
  pittore.setRenderHint(QPainter::Antialiasing);
  pittore.setPen(Qt::NoPen);
  pittore.setBrush(schermo.palette().highlight());
  pittore.drawRoundedRect(tutto, kAngolo, kAngolo);
  style::primaryIcon(QStringLiteral("receipt-euro"))
      .paint(&pittore, tutto.adjusted(kIntorno, kIntorno, -kIntorno, -kIntorno));
  return segno;
}

}  // namespace

/// An entry of the menu; empty texts where it has no picture, no screen or no name to leave behind.
struct start::Voce {
  const char* etichetta;
  const char* icona;
  const char* immagine;
  const char* schermata;
  const char* chiamante;
  bool nasconde;
};

const start::Voce start::kVoci[] = {
    {"Label1", "image", "4-1.jpg", "Form_Grafica", "Form_Grafica", true},
    {"Label2", "scan-barcode", "5-1.jpg", "Form_GestioneMMC", "", true},
    {"Label3", "sliders-horizontal", "GestioneProgrammazione.jpg", "MDIForm_PRG", "MDIForm_PRG", true},
    {"Label7", "users", "Clienti.jpg", "Form_GestioneClienti", "", true},
    {"Label_CMD_XONXOFF", "square-terminal", "", "Form_Comandi_XONXOFF", "", true},
    {"Label6", "info", "About.jpg", "frmAbout", "", false},
    {"Label4", "log-out", "", "", "", false},
};

start::start(Contesto& contesto, MisureSchermo misure)
    : contesto_(contesto), misure_(misure), ui_(std::make_unique<Ui::start>()) {
  misure_ = ControllaRisoluzione(misure, contesto_.utente, [this](float l, float a) { ChangeRes(l, a); });
  ui_->setupUi(this);
  vesti();
  for (const Voce& voce : kVoci) collega(voce);
  aggiungiTimer();
  carica();
}

start::~start() = default;

/// The menu does without the style sheet, so that it stands on the screen before the sheet is read.
void start::vesti() {
  ui_->Picture1->setPixmap(marchio(*this));
  QFont insegna;
  insegna.setWeight(QFont::DemiBold);
  ui_->insegna->setFont(insegna);
  for (QLabel* nota : {ui_->LabelVSW, ui_->LabelManuale, ui_->Label5})
    nota->setForegroundRole(QPalette::PlaceholderText);
}

void start::ChangeRes(float larghezza, float altezza) {
  display::changeMode(larghezza, altezza);
}

void start::aggiungiTimer() {
  auto* timer = new QTimer(this);
  timer->setObjectName(QStringLiteral("Timer1"));
  primaImmagine_ = new QTimer(this);
  primaImmagine_->setObjectName(QStringLiteral("primaImmagine"));
  primaImmagine_->setSingleShot(true);
  // A picture that is missing is told when the mouse comes to its entry, not at start.
  connect(primaImmagine_, &QTimer::timeout, this, [this] {
    style::whole();
    if (ui_->Image1->image().isNull()) ui_->Image1->load(percorsoImmagine(kVoci[0]));
  });
}

void start::carica() {
  PreparaAvvio(contesto_.cartella);
  ui_->Label1->setFocus();
  evidenzia(kVoci[0]);
}

void start::paintEvent(QPaintEvent* evento) {
  QWidget::paintEvent(evento);
  QPainter pittore(this);
  style::paintCard(pittore, ui_->vkFrame1->geometry());
  if (std::exchange(dipinto_, true)) return;
  primaImmagine_->start(kPrimaImmagineMs);
}

void start::collega(const Voce& voce) {
  MenuEntry& scritta = etichetta(voce);
  scritta.setIcon(style::icon(QLatin1String(voce.icona)));
  const QString nome = scritta.objectName();
  const auto passaSopra = [this, &voce, nome] {
    reazioni::protetta(contesto_.utente, nome + QStringLiteral("_MouseMove"), QLatin1String(kModulo), [&] {
      evidenzia(voce);
      illustra(voce);
    });
  };
  connect(&scritta, &MenuEntry::hovered, this, passaSopra);
  connect(&scritta, &MenuEntry::reached, this, passaSopra);
  connect(&scritta, &MenuEntry::clicked, this, [this, &voce, nome] {
    reazioni::protetta(contesto_.utente, nome + QStringLiteral("_Click"), QLatin1String(kModulo),
                       [&] { scegli(voce); });
  });
}

MenuEntry& start::etichetta(const Voce& voce) {
  return *findChild<MenuEntry*>(QLatin1String(voce.etichetta));
}

QString start::percorsoImmagine(const Voce& voce) const {
  return contesto_.cartella + QStringLiteral("/Immagini/") + QLatin1String(voce.immagine);
}

void start::evidenzia(const Voce& voce) {
  for (const Voce& altra : kVoci) etichetta(altra).setLook(&altra == &voce ? 1 : 0);
}

void start::illustra(const Voce& voce) {
  if (*voce.immagine == '\0') return;
  if (!ui_->Image1->load(percorsoImmagine(voce))) throw errors::fileMissing(percorsoImmagine(voce));
}

void start::scegli(const Voce& voce) {
  const QString schermata = QLatin1String(voce.schermata);
  if (schermata.isEmpty()) contesto_.utente.Terminate();
  // A click leaves the focus where it was: who comes back goes on from the entry that was chosen.
  etichetta(voce).setFocus(Qt::OtherFocusReason);
  evidenzia(voce);
  if (*voce.chiamante != '\0') varGlobal().FormChiamante = QLatin1String(voce.chiamante);
  contesto_.schermate.carica(schermata, contesto_);
  contesto_.schermate.mostra(schermata, contesto_);
  if (voce.nasconde) hide();
}

void start::closeEvent(QCloseEvent* evento) {
  evento->accept();
  contesto_.schermate.scaricaTutte();
}
