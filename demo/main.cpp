#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <QFileInfo>
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

/// Of the play's own application folder.
const QString kProgram = QStringLiteral("programma");

/// There, with the converter, which writes beside them.
const QString kPictures = QStringLiteral("Immagini GRAFICA");

/// Files in the play's own application folder that are no links.
bool leftBehind(const QString& name) {
  return name.startsWith(QStringLiteral("DGFE_")) || name.startsWith(QStringLiteral("MF_")) ||
         name.endsWith(QStringLiteral(".bin")) || name == QStringLiteral("SetupLOGO.dat");
}

bool cleanLinks(QDir folder) {
  bool done = true;
  for (const QFileInfo& one : folder.entryInfoList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot))
    if (one.isSymLink() || leftBehind(one.fileName())) done = folder.remove(one.fileName()) && done;
  return done;
}

/// Takes away what an earlier play left, and nothing else.
bool clean(QDir folder) {
  const QStringList ours{
      QStringLiteral("[0-9][0-9]-*.png"), QStringLiteral("articoli*.csv"), QStringLiteral("articoli*.log"),
      QStringLiteral("venduto*.csv"),     QStringLiteral("negozio.mdb*"),  QStringLiteral("*.bin"),
      QStringLiteral("configurazione*"),  QStringLiteral("clienti*.csv"),  QStringLiteral("clienti.mdb*"),
      QStringLiteral("fatture*.csv"),     QStringLiteral("DGFE_*.txt"),    QStringLiteral("MF_*.txt")};
  bool done = true;
  for (const QString& name : folder.entryList(ours, QDir::Files)) done = folder.remove(name) && done;
  QDir till(folder.filePath(QStringLiteral("cassa")));
  const QStringList tills{QStringLiteral("*.bin"), QStringLiteral("giornale.txt"),
                          QStringLiteral("memoria_fiscale.txt"), QStringLiteral("contatori.txt")};
  for (const QString& name : till.entryList(tills, QDir::Files)) done = till.remove(name) && done;
  QDir paper(till.filePath(QStringLiteral("grafica")));
  for (const QString& name : paper.entryList({QStringLiteral("*.pbm")}, QDir::Files))
    done = paper.remove(name) && done;
  const QDir links(folder.filePath(kProgram));
  return cleanLinks(links) && cleanLinks(QDir(links.filePath(kPictures))) && done;
}

/// Every entry of a folder but `left`, seen from another place.
bool linkFolder(const QString& folder, const QString& place, const QString& left = {}) {
  bool done = QDir().mkpath(place);
  for (const QString& name : QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot))
    if (name != left)
      done = QFile::link(folder + QLatin1Char('/') + name, place + QLatin1Char('/') + name) && done;
  return done;
}

/// The application folder seen from a place of this play's own: console, catalogue and converter leave their
/// files there, and another play may do so too.
bool linkApplication(const QString& application, const QString& place) {
  return linkFolder(application, place, kPictures) &&
         linkFolder(application + QLatin1Char('/') + kPictures, place + QLatin1Char('/') + kPictures);
}

/// The folder with the article list and the customers in it, the current one from now on.
bool prepare(const QString& folder, const QString& application) {
  return QDir().mkpath(folder) && clean(QDir(folder)) &&
         QFile::copy(application + QStringLiteral("/articoli.csv"),
                     folder + QStringLiteral("/articoli.csv")) &&
         QFile::copy(application + QStringLiteral("/clienti_esempio.mdb"),
                     folder + QStringLiteral("/clienti.mdb")) &&
         linkApplication(application, folder + QLatin1Char('/') + kProgram) && QDir::setCurrent(folder);
}

}  // namespace

int main(int argc, char** argv) {
  // The platform's own display of 800 by 800 is one that the program warns of before anything else.
  const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
  if (platform.isEmpty() || platform == "offscreen")
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
  const QCommandLineOption monday(
      QStringLiteral("settimana"), QStringLiteral("A Monday: the week of the play; the last whole one"),
      QStringLiteral("YYYY-MM-DD"), Road::lastMonday(QDate::currentDate()).toString(Qt::ISODate));
  const QCommandLineOption manual(QStringLiteral("manuale"),
                                  QStringLiteral("Where the manual's pictures go as well"),
                                  QStringLiteral("folder"));
  options.addOptions({folder, appFolder, address, monday, manual});
  options.addHelpOption();
  options.process(application);
  const QString here = QDir(options.value(folder)).absolutePath();
  const QString app = QDir(options.value(appFolder)).absolutePath();
  const QDate week = QDate::fromString(options.value(monday), Qt::ISODate);
  if (!week.isValid() || week.dayOfWeek() != Qt::Monday) {
    std::fprintf(stderr, "no Monday: %s\n", qPrintable(options.value(monday)));
    return 1;
  }
  const QString pictures = options.isSet(manual) ? QDir(options.value(manual)).absolutePath() : QString();
  if (!prepare(here, app)) {
    std::fprintf(stderr, "cannot use the folder %s\n", qPrintable(here));
    return 1;
  }
  try {
    const QString own = here + QLatin1Char('/') + kProgram;
    prepareApplication(application, own);
    PlayClock clock;
    Program program(own, clock);
    program.showMenu();
    ExternalTill till(app + QStringLiteral("/ecrsim"), options.value(address),
                      here + QStringLiteral("/cassa"));
    return Road({own, here, pictures}, week, clock, till).walk();
  } catch (const std::exception& exception) {
    std::fprintf(stderr, "ERRORE: %s\n", exception.what());
    return 1;
  }
}
