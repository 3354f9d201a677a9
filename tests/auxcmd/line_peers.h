#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QObject>
#include <QString>
#include <QStringList>
#include <atomic>
#include <functional>
#include <initializer_list>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "ecrcom/socket.h"

class QSocketNotifier;

/// A list of texts as a test writes them.
QStringList texts(std::initializer_list<const char*> each);

/// What stands at the other end of a serial line: a pseudo-terminal, worked by the event loop. It keeps what
/// it was sent, and says what a test has it say.
class SerialPeer : public QObject {
 public:
  SerialPeer();
  ~SerialPeer() override;

  /// Path of the end that the program opens.
  QString path() const { return path_; }
  /// All that came in so far.
  const QByteArray& received() const { return received_; }
  /// Called behind each arrival.
  std::function<void()> onArrival;
  /// Answers with `stream` as soon as `command` has come in whole, each time that it does.
  void answers(const QByteArray& command, const QByteArray& stream);
  /// Goes out as fast as the other side takes it.
  void say(const QByteArray& bytes);
  /// The line is gone, and so is the device.
  void unplug();
  /// Speed in bits a second, and whether the line carries 8 bits without parity and with one stop bit.
  int speed() const;
  bool eightNoParityOneStop() const;

 private:
  void read();
  void write();

  int ours_ = -1;
  int theirs_ = -1;
  QString path_;
  QByteArray received_;
  QByteArray waiting_;
  std::unique_ptr<QSocketNotifier> reader_;
  std::unique_ptr<QSocketNotifier> writer_;
};

/// Steps of a test that come at a later event pass, from within a loop that waits. None comes once this is
/// gone.
class Steps {
 public:
  void later(std::function<void()> step);
  /// As soon as a condition holds, once.
  void when(std::function<bool()> holds, std::function<void()> step);

 private:
  QObject owner_;
};

/// What a till of the test's own does with one key sequence.
struct KeysAnswer {
  /// Code of the reply.
  int code = 0;
  /// What it prints to the line, block by block.
  QByteArrayList blocks{};
  /// The line is cut behind that.
  bool cut = false;
  /// Called before each block, in the till's thread, with its place among them.
  std::function<void(qsizetype)> before{};
};

/// A till on the network that takes key sequences and answers them as a test says: one that nobody sells.
class KeysTill {
 public:
  explicit KeysTill(std::function<KeysAnswer(const std::string&)> answers = {}, int openingCode = 0);
  ~KeysTill();
  KeysTill(const KeysTill&) = delete;
  KeysTill& operator=(const KeysTill&) = delete;

  QString address() const { return address_; }
  /// The sequences so far, in order.
  QStringList sequences() const;
  /// Connections for key sequences that were opened, and closed again by the PC.
  int opened() const;
  int closed() const;

 private:
  void serve();
  void talk(const ecrcom::Socket& connection);
  bool reply(const ecrcom::Socket& connection, const ecrcom::Header& command, int code,
             const std::string& text) const;
  bool keys(const ecrcom::Socket& connection, const ecrcom::Frame& frame);

  std::function<KeysAnswer(const std::string&)> answers_;
  int openingCode_;
  QString address_;
  ecrcom::Socket listener_;
  mutable std::mutex alone_;
  QStringList sequences_;
  int opened_ = 0;
  int closed_ = 0;
  std::atomic<bool> leaving_ = false;
  std::vector<std::thread> talks_;
  std::thread thread_;
};
