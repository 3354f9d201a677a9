#include "platform/ui/finestra_file.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QFileInfo>
#include <QPointer>

namespace finestra_file {

namespace {

const QString kOgniFile = QStringLiteral("*");

/// The patterns between the last round brackets, parted by blanks.
QStringList modelli(const QString& filtro) {
  const qsizetype inizio = filtro.lastIndexOf(QLatin1Char('('));
  const qsizetype fine = filtro.lastIndexOf(QLatin1Char(')'));
  if (inizio < 0 || fine < inizio) return {};
  return filtro.sliced(inizio + 1, fine - inizio - 1).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

QString filtroDi(const QString& descrizione, const QString& modello) {
  QStringList parti = modello.split(QLatin1Char(';'), Qt::SkipEmptyParts);
  for (QString& parte : parti)
    if (parte == QStringLiteral("*.*")) parte = kOgniFile;
  const QString nome = descrizione.left(descrizione.lastIndexOf(QLatin1Char('('))).trimmed();
  return nome + QStringLiteral(" (") + parti.join(QLatin1Char(' ')) + QLatin1Char(')');
}

/// The kinds of files in Italian: the toolkit's translation lacks them.
class Fornitore : public QFileIconProvider {
 public:
  QString type(const QFileInfo& voce) const override {
    if (voce.isDir()) return QStringLiteral("Cartella");
    const QString estensione = voce.suffix();
    return estensione.isEmpty() ? QStringLiteral("File") : QStringLiteral("File ") + estensione;
  }
};

/// One for all and never deleted: the thread that reads a folder may outlive its dialog.
Fornitore* fornitore() {
  static auto* const unico = new Fornitore;
  return unico;
}

/// Where it starts is told each time: the toolkit would otherwise go on from the folder of the last dialog.
QFileDialog* finestra(const FinestraFile& richiesta, const QString& nome) {
  const QString cartella = richiesta.cartella.isEmpty() ? QDir::currentPath() : richiesta.cartella;
  auto* dialogo = new QFileDialog(QApplication::activeWindow(), richiesta.titolo, cartella);
  dialogo->setObjectName(nome);
  dialogo->setHistory({});
  dialogo->setIconProvider(fornitore());
  if (const QStringList scelte = filtri(richiesta.filtro); !scelte.isEmpty()) dialogo->setNameFilters(scelte);
  dialogo->setLabelText(QFileDialog::LookIn, QStringLiteral("Cerca in:"));
  dialogo->setLabelText(QFileDialog::FileName, QStringLiteral("Nome file:"));
  dialogo->setLabelText(QFileDialog::FileType, QStringLiteral("Tipo file:"));
  dialogo->setLabelText(QFileDialog::Reject, QStringLiteral("Annulla"));
  return dialogo;
}

/// Runs the dialog and deletes it. The window below may go meanwhile, and takes the dialog with it.
std::optional<QString> esegui(const QPointer<QFileDialog>& dialogo) {
  const bool scelto = dialogo->exec() == QDialog::Accepted;
  if (!dialogo) return std::nullopt;
  std::optional<QString> percorso;
  if (const QStringList scelti = dialogo->selectedFiles(); scelto && !scelti.isEmpty())
    percorso = scelti.front();
  if (percorso && dialogo->acceptMode() == QFileDialog::AcceptSave)
    percorso = conEstensione(*percorso, dialogo->selectedNameFilter());
  delete dialogo;
  if (percorso) percorso = QDir::toNativeSeparators(*percorso);
  return percorso;
}

}  // namespace

QStringList filtri(const QString& filtro) {
  const QStringList parti = filtro.split(QLatin1Char('|'));
  QStringList risultato;
  for (qsizetype i = 0; i + 1 < parti.size(); i += 2) risultato.append(filtroDi(parti[i], parti[i + 1]));
  return risultato;
}

QString conEstensione(const QString& percorso, const QString& filtroScelto) {
  if (QFileInfo(percorso).fileName().contains(QLatin1Char('.'))) return percorso;
  const QString modello = modelli(filtroScelto).value(0);
  const bool utile = modello.startsWith(QStringLiteral("*.")) && !modello.sliced(2).contains(kOgniFile);
  return utile ? percorso + modello.sliced(1) : percorso;
}

std::optional<QString> apri(const FinestraFile& richiesta) {
  QFileDialog* dialogo = finestra(richiesta, QStringLiteral("FinestraApri"));
  dialogo->setFileMode(QFileDialog::ExistingFile);
  dialogo->setLabelText(QFileDialog::Accept, QStringLiteral("Apri"));
  return esegui(dialogo);
}

std::optional<QString> salva(const FinestraFile& richiesta) {
  QFileDialog* dialogo = finestra(richiesta, QStringLiteral("FinestraSalva"));
  dialogo->setAcceptMode(QFileDialog::AcceptSave);
  dialogo->setFileMode(QFileDialog::AnyFile);
  dialogo->setOption(QFileDialog::DontConfirmOverwrite);
  dialogo->setLabelText(QFileDialog::Accept, QStringLiteral("Salva"));
  return esegui(dialogo);
}

}  // namespace finestra_file
