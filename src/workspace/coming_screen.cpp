#include "workspace/coming_screen.h"

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "controls/stile.h"

namespace workspace {

namespace {
constexpr int kLarghezza = 480;
constexpr int kMargine = 24;
}  // namespace

void MostraInArrivo(const QString& titolo, QWidget* sopra) {
  QDialog finestra(sopra);
  finestra.setObjectName(QStringLiteral("Form_InArrivo"));
  finestra.setWindowTitle(titolo);
  finestra.setMinimumWidth(kLarghezza);
  auto* disposizione = new QVBoxLayout(&finestra);
  disposizione->setContentsMargins(kMargine, kMargine, kMargine, kMargine);
  disposizione->setSpacing(kMargine);
  auto* testo = new QLabel(QStringLiteral("Questa sezione non fa parte della versione installata."));
  testo->setWordWrap(true);
  auto* indietro = new QPushButton(stile::icona(QStringLiteral("arrow-left")), QStringLiteral("Indietro"));
  indietro->setObjectName(QStringLiteral("Cmd_Esci"));
  indietro->setDefault(true);
  QObject::connect(indietro, &QPushButton::clicked, &finestra, &QDialog::accept);
  disposizione->addWidget(testo);
  disposizione->addWidget(indietro, 0, Qt::AlignRight);
  finestra.exec();
}

}  // namespace workspace
