#include "auxcmd/Form_Test.h"

#include <QDir>
#include <QKeyEvent>
#include <QScopedValueRollback>

#include "auxcmd/script_file.h"
#include "controls/command_key.h"
#include "controls/disabled_reason.h"
#include "controls/style.h"
#include "core/conversions.h"
#include "platform/text/whole_file.h"
#include "platform/text/windows1252.h"
#include "platform/ui/user_port.h"
#include "ui_Form_Test.h"

namespace {

using Kind = OutcomeBar::Kind;

/// A script is read by eye: one beyond that is none.
constexpr qsizetype kByteMassimi = qsizetype{1} << 20;

}  // namespace

Form_Test::Form_Test(Contesto& contesto) : Schermo(contesto), ui_(std::make_unique<Ui::Form_Test>()) {
  ui_->setupUi(this);
  vista_ = std::make_unique<auxcmd::VistaBanco>(*ui_->Cmd_Esci, contesto);
  style::primary(*ui_->Cmd_Invia, QStringLiteral("upload"));
  ui_->Cmd_Salva->setIcon(style::icon(QStringLiteral("save")));
  ui_->Cmd_Esci->setIcon(style::icon(QStringLiteral("arrow-left")));
  commandKey(*ui_->Cmd_Salva, QKeySequence::Save);
  for (QPushButton* uno : {ui_->Cmd_Invia, ui_->Cmd_Salva, ui_->vkCommandReset}) uno->setAutoDefault(false);
  notByEnter(*ui_->Cmd_Esci);
  carica();
  connect(ui_->RichTextBoxTest, &QPlainTextEdit::textChanged, this,
          [this] { ui_->Cmd_Salva->setEnabled(true); });
  ui_->RichTextBoxTest->setFocus();
}

Form_Test::~Form_Test() = default;

void Form_Test::carica() {
  const QString file = auxcmd::fileScript(QLatin1String(auxcmd::kScriptInvio), contesto());
  if (!FileEsiste(file)) return;
  bool letto = false;
  reazioni::protetta(contesto().utente, QStringLiteral("Form_Load"), objectName(), [&] {
    QString testo = windows1252::toText(ReadWholeFile(file, kByteMassimi));
    ui_->RichTextBoxTest->setPlainText(testo.replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
    letto = true;
  });
  if (!letto) ferma();
}

/// An empty box over a script that could not be read would be saved in its place.
void Form_Test::ferma() {
  ui_->RichTextBoxTest->setReadOnly(true);
  for (QPushButton* uno : {ui_->Cmd_Invia, ui_->Cmd_Salva, ui_->vkCommandReset}) {
    uno->setEnabled(false);
    tellWhyDisabled(*uno, QStringLiteral("Il file test_invio.txt non si è potuto leggere: resta com'è"));
  }
}

bool Form_Test::presente() {
  const QString file = auxcmd::fileScript(QLatin1String(auxcmd::kScriptInvio), contesto());
  if (FileEsiste(file)) return true;
  contesto().utente.MsgBox(
      QStringLiteral("Attenzione controllare il percorso [ %1 ] potrebbe essere inesistente")
          .arg(QDir::toNativeSeparators(file)),
      Icon::Critical);
  return false;
}

void Form_Test::salva() {
  QString testo = ui_->RichTextBoxTest->toPlainText();
  testo.replace(QStringLiteral("\n"), QStringLiteral("\r\n"));
  WriteWholeFile(auxcmd::fileScript(QLatin1String(auxcmd::kScriptInvio), contesto()),
                 windows1252::toBytes(testo));
}

void Form_Test::on_Cmd_Salva_clicked() {
  esegui("Cmd_Salva_Click", [this] {
    if (!presente()) return;
    salva();
    ui_->Cmd_Invia->setEnabled(true);
    ui_->Cmd_Salva->setEnabled(false);
    ui_->BarraEsito->tell(Kind::Done, QStringLiteral("Salvato in test_invio.txt"));
  });
}

void Form_Test::on_Cmd_Invia_clicked() {
  // A second click while the lines go out would send them among each other.
  if (inCorso_) return;
  esegui("Cmd_Invia_Click", [this] { invia(); });
}

void Form_Test::invia() {
  if (!presente()) return;
  salva();
  int porta = 0;
  if (!vista_->portaValida(porta)) return auxcmd::avvisaPorta(contesto());
  const QScopedValueRollback suo(inCorso_, true);
  const int esito = auxcmd::inviaDalBanco(
      [&] {
        return auxcmd::InviaFileXonXoff(auxcmd::fileScript(QLatin1String(auxcmd::kScriptInvio), contesto()),
                                        *vista_, contesto());
      },
      *vista_, contesto());
  if (esito == 0 && !vista_->chiusa())
    ui_->BarraEsito->tell(Kind::Done, QStringLiteral("Inviato test_invio.txt"));
}

void Form_Test::on_vkCommandReset_clicked() {
  esegui("vkCommandReset_Click", [this] {
    ui_->RichTextBoxTest->clear();
    ui_->RichTextBoxTest->setFocus();
  });
}

void Form_Test::on_Cmd_Esci_clicked() {
  reject();
}

void Form_Test::reject() {
  vista_->chiudi();
  QDialog::reject();
}

void Form_Test::keyPressEvent(QKeyEvent* evento) {
  if (evento->key() == Qt::Key_F9 && !evento->isAutoRepeat()) return ui_->Cmd_Invia->click();
  Schermo::keyPressEvent(evento);
}
