#include "core/frmAbout.h"

#include "controls/needed_height.h"
#include "controls/style.h"
#include "core/context.h"
#include "core/reactions.h"
#include "core/system_info.h"
#include "platform/ui/desktop_user.h"
#include "platform/ui/held_keys.h"
#include "ui_frmAbout.h"

frmAbout::frmAbout(Contesto& contesto) : contesto_(contesto), ui_(std::make_unique<Ui::frmAbout>()) {
  ui_->setupUi(this);
  keepNeededHeight(*this);
  setWindowTitle(QStringLiteral("Informazioni su ") + kApplicationTitle);
  ui_->lblTitle->setText(kApplicationTitle);
  ui_->lblVersion->setText(QStringLiteral("Versione " GESTIONALE_VERSIONE));
  ui_->figura->load(contesto_.cartella + QStringLiteral("/Immagini/About.jpg"));
  style::primary(*ui_->cmdOK);
  ignoreHeldKeys(*this);
  connect(ui_->cmdOK, &QPushButton::clicked, this, &QWidget::close);
  connect(ui_->cmdSysInfo, &QPushButton::clicked, this, [this] {
    reazioni::protetta(contesto_.utente, QStringLiteral("cmdSysInfo_Click"), objectName(),
                       [this] { StartSysInfo(contesto_.utente); });
  });
}

frmAbout::~frmAbout() = default;
