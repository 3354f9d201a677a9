#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <cstdio>
#include <exception>

#include "demo/qt_notices.h"
#include "demo/road.h"
#include "program.h"

namespace {

/// A loopback address of this process's own: two plays at a time do not meet.
QString ownAddress() {
  constexpr qint64 kNetworks = 250;
  return QStringLiteral("127.0.%1.21").arg(1 + QCoreApplication::applicationPid() % kNetworks);
}

/// Takes away what an earlier play left, and nothing else.
bool clean(QDir folder) {
  const QStringList ours{QStringLiteral("[0-9][0-9]-*.png"), QStringLiteral("articoli*.csv"),
                         QStringLiteral("articoli*.log"),    QStringLiteral("venduto*.csv"),
                         QStringLiteral("negozio.mdb*"),     QStringLiteral("*.bin"),
                         QStringLiteral("configurazione*")};
  bool done = true;
  for (const QString& name : folder.entryList(ours, QDir::Files)) done = folder.remove(name) && done;
  QDir till(folder.filePath(QStringLiteral("cassa")));
  const QStringList tills{QStringLiteral("*.bin"), QStringLiteral("giornale.txt"),
                          QStringLiteral("memoria_fiscale.txt"), QStringLiteral("contatori.txt")};
  for (const QString& name : till.entryList(tills, QDir::Files)) done = till.remove(name) && done;
  return done;
}

/// The folder with the article list in it, the current one from now on.
bool prepare(const QString& folder, const QString& application) {
  return QDir().mkpath(folder) && clean(QDir(folder)) &&
         QFile::copy(application + QStringLiteral("/articoli.csv"),
                     folder + QStringLiteral("/articoli.csv")) &&
         QDir::setCurrent(folder);
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" GESTIONALE_DISPLAY);
  silencePlatform();
  QApplication application(argc, argv);
  QCommandLineParser options;
  const QCommandLineOption folder(QStringLiteral("dir"), QStringLiteral("Where pictures and files are left"),
                                  QStringLiteral("folder"), QStringLiteral("demo"));
  const QCommandLineOption appFolder(QStringLiteral("applicazione"), QStringLiteral("The application folder"),
                                     QStringLiteral("folder"), QStringLiteral(GESTIONALE_APP));
  const QCommandLineOption address(QStringLiteral("address"),
                                   QStringLiteral("Loopback address of the simulated till"),
                                   QStringLiteral("address"), ownAddress());
  options.addOptions({folder, appFolder, address});
  options.addHelpOption();
  options.process(application);
  const QString here = QDir(options.value(folder)).absolutePath();
  const QString app = QDir(options.value(appFolder)).absolutePath();
  if (!prepare(here, app)) {
    std::fprintf(stderr, "cannot use the folder %s\n", qPrintable(here));
    return 1;
  }
  try {
    prepareApplication(application, app);
    Program program(app);
    program.showMenu();
    ExternalTill till(app + QStringLiteral("/ecrsim"), options.value(address),
                      here + QStringLiteral("/cassa"));
    return Road({app, here}, till).walk();
  } catch (const std::exception& exception) {
    std::fprintf(stderr, "ERRORE: %s\n", exception.what());
    return 1;
  }
}
