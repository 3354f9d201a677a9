#include "auxcmd/Form_Dump_MF_DGFE.h"

#include <QFileInfo>
#include <QFont>
#include <QKeyEvent>

#include "auxcmd/dump_file.h"
#include "controls/command_key.h"
#include "controls/style.h"
#include "core/conversions.h"
#include "core/figures.h"
#include "platform/text/file_name.h"
#include "platform/text/whole_file.h"
#include "platform/text/windows1252.h"
#include "platform/ui/held_keys.h"
#include "ui_Form_Dump_MF_DGFE.h"

namespace {

using Kind = OutcomeBar::Kind;

/// Bytes of a dump that are shown: more than anybody reads, and no longer to lay out than a blink.
constexpr qsizetype kMostrati = qsizetype{2} * 1024 * 1024;
/// Where a line goes on in the next: one without an end would be laid out whole at each painting.
constexpr qsizetype kRigaMostrata = 1000;
constexpr QChar kNonStampabile(u'·');
constexpr QChar kCancella(0x7F);
constexpr QChar kPrimoStampabile(u' ');

QString titolo(auxcmd::Memoria memoria) {
  return memoria == auxcmd::Memoria::DGFE ? QStringLiteral(" GIORNALE DI FONDO ELETTRONICO (DGFE)")
                                          : QStringLiteral(" MEMORIA FISCALE (MF)");
}

/// What the till prints is in columns.
QFont fisso(const QFont& altro) {
  QFont carattere(QStringLiteral("monospace"), altro.pointSize());
  carattere.setStyleHint(QFont::Monospace);
  return carattere;
}

bool fineRiga(QChar carattere) {
  return carattere == u'\n' || carattere == u'\r';
}

/// As a box of texts can show it: CR LF, CR and LF end a line, what cannot be printed is a dot.
QString leggibile(const QString& crudo) {
  QString testo;
  testo.reserve(crudo.size() + crudo.size() / kRigaMostrata);
  qsizetype nellaRiga = 0;
  QChar prima;
  for (const QChar carattere : crudo) {
    const bool secondoDiDue = carattere == u'\n' && prima == u'\r';
    prima = carattere;
    if (secondoDiDue) continue;
    if (fineRiga(carattere) || nellaRiga == kRigaMostrata) {
      testo += u'\n';
      nellaRiga = 0;
    }
    if (fineRiga(carattere)) continue;
    const bool stampabile = carattere == u'\t' || (carattere >= kPrimoStampabile && carattere != kCancella);
    testo += stampabile ? carattere : kNonStampabile;
    ++nellaRiga;
  }
  return testo;
}

}  // namespace

Form_Dump_MF_DGFE::Form_Dump_MF_DGFE(Contesto& contesto)
    : Schermo(contesto), ui_(std::make_unique<Ui::Form_Dump_MF_DGFE>()) {
  ui_->setupUi(this);
  ui_->BarraEsito->keepTime(contesto.orologio);
  style::primary(*ui_->Cmd_Salva, QStringLiteral("save"));
  commandKey(*ui_->Cmd_Salva, QKeySequence::Save);
  ui_->Cmd_Esci->setIcon(style::icon(QStringLiteral("arrow-left")));
  connect(ui_->Cmd_Esci, &QPushButton::clicked, this, &QWidget::close);
  ui_->RichTextBox1->setFont(fisso(ui_->RichTextBox1->font()));
  ignoreHeldKeys(*this);
  reazioni::oppure([this] { carica(); },
                   [this](const Errore& errore) { ui_->BarraEsito->tell(Kind::Failed, errore.descrizione); });
}

Form_Dump_MF_DGFE::~Form_Dump_MF_DGFE() = default;

void Form_Dump_MF_DGFE::carica() {
  const QString file = auxcmd::fileTempDump(contesto());
  if (!FileEsiste(file)) return ui_->BarraEsito->tell(Kind::Plain, QStringLiteral("Nessun dump da mostrare"));
  const std::optional<auxcmd::Memoria> memoria = auxcmd::TipoDumpMemoria(file, contesto());
  if (!memoria)
    return ui_->BarraEsito->tell(
        Kind::Warning,
        QStringLiteral("Il file %1 non contiene un dump del DGFE o della MF").arg(FileName(file)));
  setWindowTitle(windowTitle() + titolo(*memoria));
  mostra(file);
}

void Form_Dump_MF_DGFE::mostra(const QString& file) {
  const QByteArray byte = ReadFileStart(file, kMostrati);
  ui_->RichTextBox1->setPlainText(leggibile(windows1252::toText(byte)));
  const qint64 tutti = QFileInfo(file).size();
  if (tutti <= byte.size()) return ui_->BarraEsito->tell(Kind::Plain, cifra(tutti) + QStringLiteral(" byte"));
  ui_->BarraEsito->tell(Kind::Warning,
                        QStringLiteral("Mostrati i primi %1 byte di %2: \"Salva\" copia il file intero")
                            .arg(cifra(byte.size()), cifra(tutti)));
}

void Form_Dump_MF_DGFE::on_Cmd_Salva_clicked() {
  esegui("Cmd_Salva_Click", [this] { salva(); });
}

void Form_Dump_MF_DGFE::salva() {
  const QString file = auxcmd::fileTempDump(contesto());
  if (!FileEsiste(file)) {
    contesto().utente.MsgBox(
        QStringLiteral("Attenzione il file temporaneo per il dump della memoria potrebbe essere assente !!!"),
        Icon::None, QStringLiteral("ATTENZIONE"));
    return;
  }
  const std::optional<QString> scelto = contesto().utente.AskSavePath(
      {QStringLiteral("Salva Dump Memoria"), QStringLiteral("dat (*.dat)|*.dat"), {}, true});
  if (!scelto || scelto->isEmpty()) return;
  auxcmd::CopiaDump(file, *scelto);
  ui_->BarraEsito->tell(
      Kind::Done,
      QStringLiteral("Salvati %1 byte in %2").arg(cifra(QFileInfo(*scelto).size()), FileName(*scelto)));
}

void Form_Dump_MF_DGFE::keyPressEvent(QKeyEvent* event) {
  // Who reads does not leave by Enter, unless the button has the focus.
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return;
  Schermo::keyPressEvent(event);
}
