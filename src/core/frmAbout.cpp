#include "core/frmAbout.h"

#include "controls/stile.h"
#include "core/contesto.h"
#include "core/info_sistema.h"
#include "core/reazioni.h"
#include "platform/ui/utente_desktop.h"
#include "ui_frmAbout.h"

frmAbout::frmAbout(Contesto& contesto) : contesto_(contesto), ui_(std::make_unique<Ui::frmAbout>()) {
  ui_->setupUi(this);
  setWindowTitle(QStringLiteral("Informazioni su ") + kTitoloApplicazione);
  ui_->lblTitle->setText(kTitoloApplicazione);
  ui_->lblVersion->setText(QStringLiteral("Versione " GESTIONALE_VERSIONE));
  ui_->figura->carica(contesto_.cartella + QStringLiteral("/Immagini/About.jpg"));
  stile::primario(*ui_->cmdOK);
  connect(ui_->cmdOK, &QPushButton::clicked, this, &QWidget::close);
  connect(ui_->cmdSysInfo, &QPushButton::clicked, this, [this] {
    reazioni::protetta(contesto_.utente, QStringLiteral("cmdSysInfo_Click"), objectName(),
                       [this] { StartSysInfo(contesto_.utente); });
  });
}

frmAbout::~frmAbout() = default;
