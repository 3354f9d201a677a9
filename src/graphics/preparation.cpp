#include "graphics/preparation.h"

#include <QEventLoop>
#include <QFileInfo>
#include <QTimer>
#include <array>

#include "controls/steady_progress.h"
#include "core/context.h"
#include "core/conversions.h"
#include "core/reactions.h"
#include "core/state.h"
#include "ecrlink/models.h"
#include "ecrlink/session.h"
#include "graphics/catalogue.h"
#include "platform/error.h"
#include "platform/text/temporary_file.h"
#include "platform/text/whole_file.h"
#include "platform/ui/user_port.h"

namespace graphics {

namespace {

constexpr int kFallito = 1;
constexpr const char* kModulo = "CommonForKora";
const QString kAbortita = QStringLiteral("\r\nPROCEDURA ABORTITA");
const QString kBitmap = QStringLiteral(".bmp");
const QString kConvertita = QStringLiteral(".bin");
/// Hundreds of times what a picture takes in any form: more than that is no picture.
constexpr qsizetype kByteMassimi = qsizetype{16} * 1024 * 1024;

struct TestoLancio {
  int esito;
  const char* testo;
};
constexpr std::array kTestiLancio{
    TestoLancio{0, "The file could not be run due to insufficient system memory or a corrupt program file"},
    TestoLancio{2, "File Not Found"},
    TestoLancio{3, "Invalid Path"},
    TestoLancio{5, "Sharing or protection error"},
    TestoLancio{6, "Separate data segments are required for each task "},
    TestoLancio{8, "Insufficient memory to run the program"},
    TestoLancio{10, "Incorrect Windows version"},
    TestoLancio{11, "Invalid Program File"},
    TestoLancio{12, "Program file requires a different operating System "},
    TestoLancio{13, "Program requires MS-DOS 4.0"},
    TestoLancio{14, "Unknown program file type"},
    TestoLancio{15, "Windows prgram does not support protected memory mode"},
    TestoLancio{16, "Invalid use of data segments when loading a second instance of a program"},
    TestoLancio{19, "Attempt to run a compressed program file"},
    TestoLancio{20, "Invalid dynamic link library"},
    TestoLancio{21, "Program requires Windows 32-bit extensions"},
    TestoLancio{31, "No application found for this file"},
};

/// Windows go on painting meanwhile; the command around keeps input away.
void attendi(std::chrono::milliseconds quanto) {
  if (quanto.count() <= 0) return;
  QEventLoop giro;
  QTimer::singleShot(quanto, Qt::PreciseTimer, &giro, [&giro] { giro.quit(); });
  giro.exec();
}

int abortita(const QString& testo, Contesto& contesto) {
  contesto.utente.MsgBox(testo + kAbortita);
  return kFallito;
}

/// What a converter that came late wrote for an earlier order would pass for its answer to this one.
void togliVecchia(const QString& bitmap) {
  const QFileInfo file(bitmap);
  RemoveFile(file.path() + u'/' + file.completeBaseName() + kConvertita);
}

/// What the converter wrote; empty where it wrote nothing.
QByteArray convertita(const QString& bitmap) {
  const QString percorso = percorsoConvertito(bitmap);
  // A path without ".bmp" is that of the bitmap itself, which nobody converted and nobody may delete.
  if (percorso == bitmap || !QFileInfo::exists(percorso)) return {};
  QByteArray byte = ReadWholeFile(percorso, kByteMassimi);
  if (!byte.isEmpty()) RemoveFile(percorso);
  return byte;
}

int aggiungi(const VoceGrafica& voce, const QString& cartella, const Convertitore& convertitore,
             TemporaryFile& insieme, Contesto& contesto) {
  const QString bitmap = percorsoBitmap(cartella, voce.file);
  if (!bitmapEsiste(cartella, voce.file))
    return abortita(QStringLiteral("ERRORE: Il file [") + bitmap + QStringLiteral("] non esiste"), contesto);
  togliVecchia(bitmap);
  if (InvertoFileBMP(bitmap, cartella, convertitore, contesto) != 0)
    return abortita(QStringLiteral("ERRORE durante preparazione bitmap [") + bitmap + u']', contesto);
  const QByteArray byte = convertita(bitmap);
  if (byte.isEmpty())
    return abortita(QStringLiteral("ERRORE: BITMAP NON CONGRUENTE CON IL TIPO DI CASSA [ ") + bitmap + u']',
                    contesto);
  insieme.write(byte);
  return 0;
}

int prepara(const QString& cartella, const Avanzamento& avanzamento, const Convertitore& convertitore,
            Contesto& contesto) {
  const QString nome = QLatin1String(kFileBitmap);
  RemoveFile(nome);
  TemporaryFile::Sweep(nome);
  TemporaryFile insieme(nome);
  int esito = 0;
  int fatte = 0;
  avanzamento.barra.to(0);
  for (const VoceGrafica& voce : modGra1().RecGrafica) {
    if (avanzamento.annuncia) avanzamento.annuncia(fatte + 1, voce.file);
    esito = aggiungi(voce, cartella, convertitore, insieme, contesto);
    if (esito != 0) break;
    avanzamento.barra.to(++fatte);
  }
  avanzamento.barra.rest();
  insieme.settle(TemporaryFile::Durability::Passing);
  return esito;
}

int senzaClasse(Contesto& contesto) {
  contesto.utente.MsgBox(QString::fromUtf16(ecrlink::kGraficaIncongruente), Icon::Critical,
                         QString::fromUtf16(ecrlink::kTitoloGraficaIncongruente));
  return kFallito;
}

int lancia(const QString& larghezza, const QString& bitmap, const QString& cartella,
           const Convertitore& convertitore, Contesto& contesto) {
  const QString programma = percorsoBitmap(cartella, QLatin1String(kConvertitore));
  if (ecrlink::ControllaFile(programma, true, contesto) != 0) return kFallito;
  // The quote is never closed: converters in the shops take the path from there to the end.
  const int esito = convertitore.lancia({programma, larghezza + QStringLiteral(" \"") + bitmap, cartella});
  if (esito < launch::kFailures) contesto.utente.MsgBox(testoDelLancio(esito), Icon::Critical);
  contesto.utente.DoEvents();
  attendi(convertitore.attesa);
  return esito < launch::kFailures ? kFallito : 0;
}

}  // namespace

int ManageFileBMP(const QString& cartella, Avanzamento avanzamento, const Convertitore& convertitore,
                  std::optional<ecrlink::ScambioEsclusivo>& scambio, Contesto& contesto) {
  int esito = kFallito;
  const int guasto = reazioni::conCodice(contesto.utente, "ManageFileBMP", kModulo, [&] {
    if (!scambio) scambio.emplace();
    esito = prepara(cartella, avanzamento, convertitore, contesto);
  });
  return guasto != 0 ? guasto : esito;
}

int InvertoFileBMP(const QString& bitmap, const QString& cartella, const Convertitore& convertitore,
                   Contesto& contesto) {
  int esito = kFallito;
  const int guasto = reazioni::conCodice(contesto.utente, "InvertoFileBMP", kModulo, [&] {
    const auto larghezza = ecrlink::larghezzaGrafica(commonForKora().ECR_INFO.InfoTipoBitmap);
    esito = larghezza ? lancia(*larghezza, bitmap, cartella, convertitore, contesto) : senzaClasse(contesto);
  });
  return guasto != 0 ? guasto : esito;
}

QString testoDelLancio(int esito) {
  for (const TestoLancio& riga : kTestiLancio)
    if (riga.esito == esito) return QString::fromLatin1(riga.testo);
  return {};
}

QString percorsoConvertito(const QString& bitmap) {
  QString percorso = bitmap;
  percorso.replace(kBitmap, kConvertita);
  // The name of a file in capitals is the same name to the shops' folders.
  if (percorso.endsWith(kBitmap, Qt::CaseInsensitive))
    percorso.replace(percorso.size() - kBitmap.size(), kBitmap.size(), kConvertita);
  return percorso;
}

}  // namespace graphics
