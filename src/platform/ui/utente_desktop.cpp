#include "platform/ui/utente_desktop.h"

#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QFileInfo>
#include <QProcess>
#include <QUrl>
#include <cstdio>
#include <cstdlib>
#include <exception>

#include "platform/errore.h"
#include "platform/ui/finestra_file.h"
#include "platform/ui/occupato.h"
#include "platform/ui/riquadro.h"

namespace {

Errore assente(const QString& file) {
  return {errore::kFileAssente, QStringLiteral("File non trovato: ") + file};
}

}  // namespace

UtenteDesktop::UtenteDesktop(std::function<void()> chiudi) : chiudi_(std::move(chiudi)) {}

Risposta UtenteDesktop::MsgBox(const QString& testo, Icona icona, const QString& titolo, Pulsanti pulsanti) {
  const Occupato::Sospeso sospeso;
  return riquadro::mostra(testo, icona, titolo.isEmpty() ? kTitoloApplicazione : titolo, pulsanti);
}

std::optional<QString> UtenteDesktop::FinestraApri(const FinestraFile& finestra) {
  const Occupato::Sospeso sospeso;
  return finestra_file::apri(finestra);
}

std::optional<QString> UtenteDesktop::FinestraSalva(const FinestraFile& finestra) {
  const Occupato::Sospeso sospeso;
  return finestra_file::salva(finestra);
}

void UtenteDesktop::DoEvents() {
  QCoreApplication::processEvents();
}

void UtenteDesktop::DoEventsAlRecord() {
  if (ritmo_.tocca()) DoEvents();
}

void UtenteDesktop::CopiaNegliAppunti(const QString& testo) {
  QGuiApplication::clipboard()->setText(testo);
}

QString UtenteDesktop::TestoDegliAppunti() {
  return QGuiApplication::clipboard()->text();
}

void UtenteDesktop::AvviaProgramma(const QString& programma, const QStringList& argomenti) {
  if (!QProcess::startDetached(programma, argomenti)) throw assente(programma);
}

void UtenteDesktop::ApriConDesktop(const QString& file) {
  const QFileInfo voce(file);
  if (!voce.exists() || !QDesktopServices::openUrl(QUrl::fromLocalFile(voce.absoluteFilePath())))
    throw assente(file);
}

void UtenteDesktop::Termina() {
  try {
    if (chiudi_) chiudi_();
  } catch (const Errore& errore) {
    std::fprintf(stderr, "%d %s\n", errore.numero, qUtf8Printable(errore.descrizione));
  } catch (const std::exception& eccezione) {
    std::fprintf(stderr, "%s\n", eccezione.what());
  }
  std::fflush(nullptr);
  std::_Exit(EXIT_SUCCESS);
}
