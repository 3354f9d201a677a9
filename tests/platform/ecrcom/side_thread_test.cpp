#include "platform/ecrcom/side_thread.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QMouseEvent>
#include <QTimer>
#include <QWidget>
#include <atomic>
#include <stdexcept>

#include "platform/error.h"
#include "platform/ui/busy_guard.h"

namespace {

/// A work that lasts until the windows' thread lets it go.
class Attesa {
 public:
  void operator()() { EXPECT_TRUE(via_.tryAcquire(1, kPazienza)); }
  void lascia() { via_.release(); }

 private:
  static constexpr int kPazienza = 10000;  // milliseconds
  QSemaphore via_;
};

/// A window that counts what the person does to it.
class FinestraContata : public QWidget {
 public:
  int pressioni = 0;
  int chiusure = 0;

 protected:
  void mousePressEvent(QMouseEvent*) override { ++pressioni; }
  void closeEvent(QCloseEvent* evento) override {
    ++chiusure;
    evento->accept();
  }
};

void postaPressione(QWidget& finestra) {
  QCoreApplication::postEvent(&finestra, new QMouseEvent(QEvent::MouseButtonPress, {1, 1}, {1, 1},
                                                         Qt::LeftButton, Qt::LeftButton, Qt::NoModifier));
}

}  // namespace

TEST(ThreadAccanto, IlLavoroGiraSempreNelloStessoThreadENonInQuelloDelleFinestre) {
  SideThread accanto;
  std::vector<QThread*> dove;
  for (int i = 0; i < 3; ++i) accanto.run([&] { dove.push_back(QThread::currentThread()); });
  ASSERT_EQ(dove.size(), 3U);
  EXPECT_NE(dove[0], QThread::currentThread());
  EXPECT_EQ(dove[1], dove[0]);
  EXPECT_EQ(dove[2], dove[0]);
}

TEST(ThreadAccanto, UnLavoroLungoLasciaPassareGliEventiEAspettaLaFine) {
  SideThread accanto;
  Attesa attesa;
  int giri = 0;
  std::atomic<bool> finito = false;
  QTimer orologio;
  QObject::connect(&orologio, &QTimer::timeout, [&] {
    // Once it has been let go the work may end before the loop does.
    if (giri < 5) {
      EXPECT_FALSE(finito);
    }
    EXPECT_TRUE(BusyGuard::active());
    if (++giri == 5) attesa.lascia();
  });
  orologio.start(1);
  accanto.run([&] {
    attesa();
    finito = true;
  });
  EXPECT_TRUE(finito);
  EXPECT_GE(giri, 5);
  EXPECT_FALSE(BusyGuard::active());
}

TEST(ThreadAccanto, CioCheIlLavoroLanciaArrivaAChiLoHaChiesto) {
  SideThread accanto;
  EXPECT_THROW(accanto.run([] { throw std::runtime_error("guasto"); }), std::runtime_error);
  EXPECT_THROW(accanto.run([] { throw 7; }), int);
  try {
    accanto.run([] { throw Errore{61, QStringLiteral("Disco pieno")}; });
    ADD_FAILURE() << "no failure";
  } catch (const Errore& errore) {
    EXPECT_EQ(errore.numero, 61);
    EXPECT_EQ(errore.descrizione, QStringLiteral("Disco pieno"));
  }
  // Behind an event loop too.
  Attesa attesa;
  QTimer::singleShot(0, qApp, [&] { attesa.lascia(); });
  EXPECT_THROW(accanto.run([&] {
    attesa();
    throw std::bad_alloc();
  }),
               std::bad_alloc);
  bool dopo = false;
  accanto.run([&] { dopo = true; });
  EXPECT_TRUE(dopo);
}

TEST(ThreadAccanto, UnSecondoLavoroDuranteIlPrimoSiRifiuta) {
  SideThread accanto;
  Attesa attesa;
  bool secondo = false;
  int numero = 0;
  QTimer::singleShot(0, qApp, [&] {
    try {
      accanto.run([&] { secondo = true; });
    } catch (const Errore& errore) {
      numero = errore.numero;
    }
    attesa.lascia();
  });
  accanto.run([&] { attesa(); });
  EXPECT_EQ(numero, 70);
  EXPECT_FALSE(secondo);
  accanto.run([&] { secondo = true; });
  EXPECT_TRUE(secondo);
}

TEST(ThreadAccanto, CioCheLaPersonaFaIntantoSiButta) {
  SideThread accanto;
  FinestraContata finestra;
  finestra.show();
  QCoreApplication::processEvents();
  Attesa attesa;
  bool chiusa = true;
  QTimer::singleShot(0, qApp, [&] {
    postaPressione(finestra);
    chiusa = finestra.close();
    QTimer::singleShot(0, qApp, [&] { attesa.lascia(); });
  });
  accanto.run([&] { attesa(); });
  QCoreApplication::processEvents();
  EXPECT_FALSE(chiusa);
  EXPECT_TRUE(finestra.isVisible());
  EXPECT_EQ(finestra.pressioni, 0);
  EXPECT_EQ(finestra.chiusure, 0);
  EXPECT_TRUE(finestra.close());
}
