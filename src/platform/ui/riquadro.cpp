#include "platform/ui/riquadro.h"

#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <memory>
#include <utility>
#include <vector>

namespace riquadro {

namespace {

struct Voce {
  Risposta risposta;
  const char16_t* testo;
  QMessageBox::ButtonRole ruolo;
  Qt::Key tasto;
};

constexpr Voce kOK{Risposta::OK, u"OK", QMessageBox::AcceptRole, Qt::Key_O};
constexpr Voce kAnnulla{Risposta::Annulla, u"Annulla", QMessageBox::RejectRole, Qt::Key_A};
constexpr Voce kSi{Risposta::Si, u"Sì", QMessageBox::YesRole, Qt::Key_S};
constexpr Voce kNo{Risposta::No, u"No", QMessageBox::NoRole, Qt::Key_N};

/// The first is the default, the last answers to Escape and to the frame.
std::vector<Voce> voci(Pulsanti pulsanti) {
  switch (pulsanti) {
    case Pulsanti::OK:
      return {kOK};
    case Pulsanti::OKAnnulla:
      return {kOK, kAnnulla};
    case Pulsanti::SiNo:
      return {kSi, kNo};
    case Pulsanti::SiNoAnnulla:
      return {kSi, kNo, kAnnulla};
  }
  return {kOK};
}

QMessageBox::Icon immagine(Icona icona) {
  switch (icona) {
    case Icona::Critica:
      return QMessageBox::Critical;
    case Icona::Domanda:
      return QMessageBox::Question;
    case Icona::Esclamazione:
      return QMessageBox::Warning;
    case Icona::Informazione:
      return QMessageBox::Information;
    case Icona::Nessuna:
      break;
  }
  return QMessageBox::NoIcon;
}

QPushButton* aggiungi(QMessageBox& riquadro, const Voce& voce) {
  QPushButton* pulsante = riquadro.addButton(QString::fromUtf16(voce.testo), voce.ruolo);
  pulsante->setShortcut(QKeySequence(Qt::ALT | voce.tasto));
  return pulsante;
}

}  // namespace

Risposta mostra(const QString& testo, Icona icona, const QString& titolo, Pulsanti pulsanti) {
  // The window below may go while the box is open, and takes the box with it.
  const QPointer<QMessageBox> riquadro(new QMessageBox(QApplication::activeWindow()));
  riquadro->setObjectName(QStringLiteral("MsgBox"));
  riquadro->setWindowTitle(titolo);
  riquadro->setIcon(immagine(icona));
  riquadro->setTextFormat(Qt::PlainText);
  riquadro->setText(testo);
  riquadro->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);

  std::vector<std::pair<QAbstractButton*, Risposta>> pulsantiMessi;
  for (const Voce& voce : voci(pulsanti))
    pulsantiMessi.emplace_back(aggiungi(*riquadro, voce), voce.risposta);
  riquadro->setDefaultButton(qobject_cast<QPushButton*>(pulsantiMessi.front().first));
  riquadro->setEscapeButton(pulsantiMessi.back().first);

  riquadro->exec();
  Risposta risposta = pulsantiMessi.back().second;
  if (!riquadro) return risposta;
  for (const auto& [pulsante, sua] : pulsantiMessi)
    if (riquadro->clickedButton() == pulsante) risposta = sua;
  delete riquadro;
  return risposta;
}

}  // namespace riquadro
