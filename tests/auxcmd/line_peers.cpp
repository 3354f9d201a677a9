#include "auxcmd/line_peers.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <sys/socket.h>
#include <termios.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <QTimer>
#include <array>
#include <utility>

#include "sostegno/test_till.h"

namespace {

constexpr int kTail = 8;
constexpr std::chrono::seconds kLimit{30};
constexpr std::chrono::milliseconds kBeat{20};

}  // namespace

QStringList texts(std::initializer_list<const char*> each) {
  QStringList all;
  for (const char* one : each) all << QString::fromUtf8(one);
  return all;
}

SerialPeer::SerialPeer() {
  std::array<char, 128> name{};
  EXPECT_EQ(::openpty(&ours_, &theirs_, name.data(), nullptr, nullptr), 0);
  termios mode{};
  ::tcgetattr(theirs_, &mode);
  ::cfmakeraw(&mode);
  ::tcsetattr(theirs_, TCSANOW, &mode);
  ::fcntl(ours_, F_SETFL, ::fcntl(ours_, F_GETFL) | O_NONBLOCK);
  path_ = QString::fromLatin1(name.data());
  reader_ = std::make_unique<QSocketNotifier>(ours_, QSocketNotifier::Read);
  writer_ = std::make_unique<QSocketNotifier>(ours_, QSocketNotifier::Write);
  writer_->setEnabled(false);
  connect(reader_.get(), &QSocketNotifier::activated, this, [this] { read(); });
  connect(writer_.get(), &QSocketNotifier::activated, this, [this] { write(); });
}

SerialPeer::~SerialPeer() {
  unplug();
  if (theirs_ >= 0) ::close(theirs_);
}

void SerialPeer::answers(const QByteArray& command, const QByteArray& stream) {
  onArrival = [this, command, stream, seen = qsizetype{0}]() mutable {
    const qsizetype place = received_.indexOf(command, seen);
    if (place < 0) return;
    seen = place + command.size();
    say(stream);
  };
}

void SerialPeer::say(const QByteArray& bytes) {
  waiting_ += bytes;
  write();
}

void SerialPeer::unplug() {
  // Not from within their own signal.
  for (auto* one : {&reader_, &writer_}) {
    if (!*one) continue;
    (*one)->setEnabled(false);
    one->release()->deleteLater();
  }
  // The device goes with our end; its number stays taken while the other is held, or the next test beside
  // this one would get a port of that name.
  if (ours_ >= 0) ::close(ours_);
  ours_ = -1;
}

int SerialPeer::speed() const {
  termios mode{};
  ::tcgetattr(theirs_, &mode);
  switch (::cfgetospeed(&mode)) {
    case B1200:
      return 1200;
    case B2400:
      return 2400;
    case B4800:
      return 4800;
    case B9600:
      return 9600;
    case B19200:
      return 19200;
    default:  // of the system's numbers, all that no screen offers
      return 0;
  }
}

bool SerialPeer::eightNoParityOneStop() const {
  termios mode{};
  ::tcgetattr(theirs_, &mode);
  return (mode.c_cflag & CSIZE) == CS8 && (mode.c_cflag & (PARENB | CSTOPB)) == 0;
}

void SerialPeer::read() {
  std::array<char, 4096> piece;
  const ssize_t count = ::read(ours_, piece.data(), piece.size());
  if (count <= 0) return;
  received_.append(piece.data(), count);
  if (onArrival) onArrival();
}

void SerialPeer::write() {
  if (ours_ < 0) return;
  const ssize_t count = ::write(ours_, waiting_.constData(), static_cast<std::size_t>(waiting_.size()));
  if (count > 0) waiting_.remove(0, count);
  writer_->setEnabled(!waiting_.isEmpty());
}

void Steps::later(std::function<void()> step) {
  QMetaObject::invokeMethod(&owner_, std::move(step), Qt::QueuedConnection);
}

void Steps::when(std::function<bool()> holds, std::function<void()> step) {
  auto* timer = new QTimer(&owner_);
  QObject::connect(timer, &QTimer::timeout, timer, [timer, holds = std::move(holds), step = std::move(step)] {
    if (!holds()) return;
    timer->stop();
    timer->deleteLater();
    step();
  });
  timer->start(1);
}

KeysTill::KeysTill(std::function<KeysAnswer(const std::string&)> answers, int openingCode)
    : answers_(std::move(answers)), openingCode_(openingCode), address_(ownAddress()) {
  listener_ = ecrcom::Socket(::socket(AF_INET, SOCK_STREAM, 0));
  const int yes = 1;
  ::setsockopt(listener_.descriptor(), SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
  sockaddr_in where{};
  where.sin_family = AF_INET;
  where.sin_port = htons(ecrcom::kPort);
  where.sin_addr = *ecrcom::address(address_.toStdString());
  EXPECT_EQ(::bind(listener_.descriptor(), reinterpret_cast<sockaddr*>(&where), sizeof where), 0);
  EXPECT_EQ(::listen(listener_.descriptor(), kTail), 0);
  thread_ = std::thread([this] { serve(); });
}

KeysTill::~KeysTill() {
  leaving_ = true;
  ::shutdown(listener_.descriptor(), SHUT_RDWR);
  thread_.join();
  for (std::thread& talk : talks_) talk.join();
}

QStringList KeysTill::sequences() const {
  const std::scoped_lock lock(alone_);
  return sequences_;
}

int KeysTill::opened() const {
  const std::scoped_lock lock(alone_);
  return opened_;
}

int KeysTill::closed() const {
  const std::scoped_lock lock(alone_);
  return closed_;
}

void KeysTill::serve() {
  while (ecrcom::awaitEvent(listener_, POLLIN, std::nullopt) == ecrcom::IoResult::Done) {
    const int descriptor = ::accept(listener_.descriptor(), nullptr, nullptr);
    if (descriptor < 0) return;
    talks_.emplace_back([this, descriptor] { talk(ecrcom::Socket(descriptor)); });
  }
}

void KeysTill::talk(const ecrcom::Socket& connection) {
  bool keysOpen = false;
  ecrcom::Frame frame;
  bool goesOn = true;
  while (goesOn && !leaving_) {
    if (ecrcom::awaitEvent(connection, POLLIN, ecrcom::within(kBeat)) == ecrcom::IoResult::Expired) continue;
    if (ecrcom::receiveFrame(connection, ecrcom::within(kLimit), frame) != ecrcom::IoResult::Done) break;
    if (frame.header.kind == ecrcom::FrameType::Keys) {
      goesOn = keys(connection, frame);
    } else if (frame.header.kind == ecrcom::FrameType::OpenKeys) {
      keysOpen = openingCode_ == 0;
      const std::scoped_lock lock(alone_);
      opened_ += keysOpen ? 1 : 0;
      goesOn = reply(connection, frame.header, openingCode_, {});
    } else {
      static constexpr const char* kInfo =
          "VSW=3.00,BMP=L,MMC=4,A=,B=,C=,D=,E=,F=,G=,STATO=I,MOD=KPR_80mm,H=,I=,L=,M=,FISC=0,N=,O=";
      goesOn = reply(connection, frame.header, 0, frame.header.mode == 0 ? kInfo : "OK");
    }
  }
  const std::scoped_lock lock(alone_);
  closed_ += keysOpen && goesOn && !leaving_ ? 1 : 0;
}

bool KeysTill::reply(const ecrcom::Socket& connection, const ecrcom::Header& command, int code,
                     const std::string& text) const {
  ecrcom::Header head;
  head.kind = ecrcom::FrameType::Reply;
  head.mode = command.kind == ecrcom::FrameType::Command ? command.mode : std::uint8_t{0};
  head.code = static_cast<std::int16_t>(code);
  return ecrcom::dispatch(connection, ecrcom::compose(head, ecrcom::byteOf(text)), ecrcom::within(kLimit)) ==
         ecrcom::IoResult::Done;
}

bool KeysTill::keys(const ecrcom::Socket& connection, const ecrcom::Frame& frame) {
  const std::string sequence(frame.data.begin(), frame.data.end());
  {
    const std::scoped_lock lock(alone_);
    sequences_ << QString::fromLatin1(sequence.data(), static_cast<qsizetype>(sequence.size()));
  }
  const KeysAnswer answer = answers_ ? answers_(sequence) : KeysAnswer{};
  if (!reply(connection, frame.header, answer.code, {})) return false;
  qsizetype place = 0;
  for (const QByteArray& block : answer.blocks) {
    if (answer.before) answer.before(place++);
    ecrcom::Header head;
    head.kind = ecrcom::FrameType::KeysReply;
    if (ecrcom::dispatch(connection,
                         ecrcom::compose(head, ecrcom::byteOf({block.constData(),
                                                               static_cast<std::size_t>(block.size())})),
                         ecrcom::within(kLimit)) != ecrcom::IoResult::Done)
      break;  // a PC that has gone: the next reading tells
  }
  return !answer.cut;
}
