#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <cstdio>
#include <exception>

#include "demo/avvisi_qt.h"
#include "demo/strada.h"
#include "montaggio.h"

namespace {

/// A loopback address of this process's own: two plays at a time do not meet.
QString indirizzoProprio() {
  constexpr qint64 kReti = 250;
  return QStringLiteral("127.0.%1.21").arg(1 + QCoreApplication::applicationPid() % kReti);
}

/// Takes away what an earlier play left, and nothing else.
bool sgombra(QDir cartella) {
  const QStringList nostri{QStringLiteral("[0-9][0-9]-*.png"), QStringLiteral("articoli*.csv"),
                           QStringLiteral("articoli*.log"),    QStringLiteral("venduto*.csv"),
                           QStringLiteral("negozio.mdb*"),     QStringLiteral("*.bin")};
  bool fatto = true;
  for (const QString& nome : cartella.entryList(nostri, QDir::Files)) fatto = cartella.remove(nome) && fatto;
  QDir cassa(cartella.filePath(QStringLiteral("cassa")));
  for (const QString& nome : cassa.entryList({QStringLiteral("*.bin")}, QDir::Files))
    fatto = cassa.remove(nome) && fatto;
  return fatto;
}

/// The folder with the article list in it, the current one from now on.
bool prepara(const QString& cartella, const QString& applicazione) {
  return QDir().mkpath(cartella) && sgombra(QDir(cartella)) &&
         QFile::copy(applicazione + QStringLiteral("/articoli.csv"),
                     cartella + QStringLiteral("/articoli.csv")) &&
         QDir::setCurrent(cartella);
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" GESTIONALE_SCHERMO);
  zittisciPiattaforma();
  QApplication applicazione(argc, argv);
  QCommandLineParser opzioni;
  const QCommandLineOption cartella(QStringLiteral("cartella"),
                                    QStringLiteral("Where pictures and files are left"),
                                    QStringLiteral("folder"), QStringLiteral("demo"));
  const QCommandLineOption programma(QStringLiteral("applicazione"), QStringLiteral("The application folder"),
                                     QStringLiteral("folder"), QStringLiteral(GESTIONALE_APP));
  const QCommandLineOption indirizzo(QStringLiteral("indirizzo"),
                                     QStringLiteral("Loopback address of the simulated till"),
                                     QStringLiteral("address"), indirizzoProprio());
  opzioni.addOptions({cartella, programma, indirizzo});
  opzioni.addHelpOption();
  opzioni.process(applicazione);
  const QString qui = QDir(opzioni.value(cartella)).absolutePath();
  const QString app = QDir(opzioni.value(programma)).absolutePath();
  if (!prepara(qui, app)) {
    std::fprintf(stderr, "cannot use the folder %s\n", qPrintable(qui));
    return 1;
  }
  try {
    preparaApplicazione(applicazione, app);
    Montaggio montaggio(app);
    montaggio.mostraMenu();
    CassaEsterna cassa(app + QStringLiteral("/ecrsim"), opzioni.value(indirizzo),
                       qui + QStringLiteral("/cassa"));
    return Strada({app, qui}, cassa).percorri();
  } catch (const std::exception& eccezione) {
    std::fprintf(stderr, "ERRORE: %s\n", eccezione.what());
    return 1;
  }
}
