// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/network_device.h"

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

#include <QByteArray>
#include <QNetworkProxy>
#include <algorithm>
#include <iterator>

#include "base/runtime_error.h"
#include "base/text.h"
#include "platform/qt/host_lookup.h"

namespace marlinset {
namespace {

/// How long a server that has refused something may take to change its mind.
constexpr int kSecondThoughtsMs = 500;
/// How long to wait for a greeting, beyond the time that the connection took: servers greet at once.
constexpr int kGreetingMs = 30;
constexpr std::size_t kGreetingKept = 80;
/// A far end that makes us answer this much without reading any of it is no device server.
constexpr qint64 kMostUnreadAnswers = 65536;
/// A server that floods waits; the tool goes on with what else there is to do.
constexpr qint64 kMostUnread = 65536;

// Where a network is unplugged, nothing comes back: ask after so many quiet seconds, then again at this
// interval.
constexpr int kQuietSeconds = 4;
constexpr int kProbeSeconds = 2;
constexpr int kProbes = 3;

const char* const kNoRfc2217 =
    "If the server passes the bare bytes on, write tcp:// in place of rfc2217://; otherwise switch RFC 2217 "
    "on in the settings of that port.";
const char* const kOneProgram =
    "Check the port number in the address, and that the device server serves that port. Many servers serve "
    "one program at a time: close the other one.";
// Short enough for the line below a device in the window that names them.
const char* const kSettings =
    "Close other programs that use it, and allow 57600 bit/s, 8 data bits, no parity, 1 stop bit and no flow "
    "control in its settings.";
const char* const kBusyOrPlain =
    "Check the port number, close other programs that use it, or write tcp:// in place of rfc2217:// if it "
    "passes the bare bytes on.";

std::string Where(const DeviceAddress& address) {
  return address.HostText() + " on port " + std::to_string(address.port);
}

RuntimeError NoAnswer(const DeviceAddress& address, const std::string& reason) {
  return {
      kErrPort, "no answer from " + Where(address) + reason + ".",
      "Check the address, that the device server is switched on, and the network in between; a firewall may "
      "be in the way."};
}

RuntimeError Refused(const DeviceAddress& address) {
  return {kErrPort, "connection refused by " + Where(address) + ".", kOneProgram};
}

RuntimeError UnknownHost(const DeviceAddress& address, bool unanswered) {
  return {kErrPort, "unknown host " + address.host + (unanswered ? ": no name server answers." : "."),
          "Check the spelling of the name, or write the address in numbers."};
}

/// The first line of what a server says before its port is open; empty unless it is plain text.
std::string FirstLine(const std::string& said) {
  std::string line = said.substr(std::min(said.find_first_not_of("\r\n"), said.size()));
  line.erase(std::min(line.find_first_of("\r\n"), line.size()));
  const bool plain = std::all_of(line.begin(), line.end(), [](char c) { return c >= ' ' && c <= '~'; });
  return plain ? line : std::string();
}

RuntimeError Fault(const DeviceAddress& address, const std::string& what, const std::string& remedy) {
  return {kErrPort, "the server " + Where(address) + " " + what + ".", remedy};
}

/// Servers that serve somebody else, or cannot open their port, close the connection; most say why.
RuntimeError Closes(const DeviceAddress& address, const std::string& line) {
  return Fault(address, "closes the connection" + (line.empty() ? " at once" : ", saying " + Quoted(line)),
               kOneProgram);
}

/// Why the port behind RFC 2217 is not open. Only a server that certainly does not speak it is called so: one
/// that is busy, or whose port cannot be set, needs another remedy.
RuntimeError NotReady(const DeviceAddress& address, const ComPortControl& control, bool closed) {
  using State = ComPortControl::State;
  const State state = control.Progress();
  const std::string line = FirstLine(control.Early());
  if (closed && !line.empty() && state != State::kHopeless) return Closes(address, line);
  if (closed && control.Agreed() && state != State::kDoubtful)
    return Fault(address, "closes the connection while it sets its serial port", kSettings);
  if (control.Agreed())
    return Fault(address, "does not set its serial port: " + control.Trouble(), kSettings);
  if (state == State::kPending) {
    if (closed)
      return Fault(address, "closes the connection without offering control of its port", kBusyOrPlain);
    if (!line.empty())
      return Fault(address, "says " + Quoted(line) + " and does not offer control of its port", kBusyOrPlain);
    if (control.Silent())
      return Fault(address, "says nothing: it serves another program, or does not speak RFC 2217",
                   kBusyOrPlain);
  }
  return Fault(address, "does not speak RFC 2217: " + control.Trouble(), kNoRfc2217);
}

/// Where nobody listens on one of this computer's own ports, the system may connect a socket to itself.
bool ToItself(const QTcpSocket& socket) {
  return socket.localPort() == socket.peerPort() && socket.localAddress() == socket.peerAddress();
}

}  // namespace

NetworkDevice::NetworkDevice(Guard& guard, EventPump& pump)
    : guard_(guard), pump_(pump), silence_(pump, guard, "silence", kSilenceMs) {
  socket_.setReadBufferSize(kMostUnread);
  socket_.setProxy(QNetworkProxy::NoProxy);  // the desktop's is for web pages
  silence_.OnTick([this] { GiveUpSilent(); });
  QObject::connect(&socket_, &QTcpSocket::readyRead, &listener_, [this] { TakeArrivals(); });
  QObject::connect(&socket_, &QTcpSocket::bytesWritten, &listener_, [this] {
    silence_.SetEnabled(false);
    if (socket_.bytesToWrite() > 0) silence_.SetEnabled(true);
  });
  // Only this: an error may also be a look for bytes that finds none.
  QObject::connect(&socket_, &QTcpSocket::disconnected, &listener_, [this] {
    gone_ = true;
    silence_.SetEnabled(false);
    if (open_) onLost();
  });
}

void NetworkDevice::Open(const std::string& name) {
  const DeviceAddress address = ParseAddress(name);
  control_.reset();
  greeting_.clear();
  givenUp_ = false;
  Deadline limit(pump_, guard_, "connecting", kConnectMs);
  try {
    Connect(address, limit);
    if (!GivenUp()) address.rfc2217 ? Negotiate(address, limit) : LetGreetingPass(address, limit);
  } catch (const RuntimeError&) {
    Drop();
    throw;
  }
  open_ = !GivenUp();
  if (!open_) Drop();
}

void NetworkDevice::Await(const Timer& limit, const std::function<bool()>& done) {
  while (!done() && limit.Enabled() && !GivenUp()) pump_.Pump();
}

void NetworkDevice::Connect(const DeviceAddress& address, const Timer& limit) {
  const std::vector<QHostAddress> hosts = LookUp(address, limit);
  bool refused = false;
  for (const QHostAddress& host : hosts) {
    if (TryHost(host, address.port, limit, kConnectMs / static_cast<int>(hosts.size())) || GivenUp()) return;
    refused = refused || socket_.error() == QAbstractSocket::ConnectionRefusedError;
  }
  if (refused) throw Refused(address);
  const bool explained = limit.Enabled() && socket_.error() != QAbstractSocket::UnknownSocketError;
  throw NoAnswer(address, explained ? " (" + socket_.errorString().toStdString() + ")" : "");
}

std::vector<QHostAddress> NetworkDevice::LookUp(const DeviceAddress& address, const Timer& limit) {
  const HostLookup lookup(address.host);
  Await(limit, [&lookup] { return lookup.Done(); });
  if (GivenUp()) return {QHostAddress()};
  if (!lookup.Done()) throw UnknownHost(address, true);
  if (lookup.Addresses().empty()) throw UnknownHost(address, lookup.Unanswered());
  return lookup.Addresses();
}

bool NetworkDevice::TryHost(const QHostAddress& host, int port, const Timer& limit, int mostMs) {
  socket_.abort();
  if (GivenUp()) return false;
  gone_ = false;
  const std::int64_t begin = pump_.Now();
  socket_.connectToHost(host, static_cast<quint16>(port));
  Deadline turn(pump_, guard_, "connecting", mostMs);
  Await(limit, [&] {
    const QAbstractSocket::SocketState state = socket_.state();
    return state == QAbstractSocket::ConnectedState || state == QAbstractSocket::UnconnectedState ||
           !turn.Enabled();
  });
  if (socket_.state() != QAbstractSocket::ConnectedState || ToItself(socket_)) return false;
  connectMs_ = pump_.Now() - begin;
  WatchConnection();
  return true;
}

/// Each frame leaves at once, and a network that is unplugged is noticed.
void NetworkDevice::WatchConnection() {
  const struct {
    int level, name, value;
  } kOptions[] = {{IPPROTO_TCP, TCP_NODELAY, 1},
                  {SOL_SOCKET, SO_KEEPALIVE, 1},
                  {IPPROTO_TCP, TCP_KEEPIDLE, kQuietSeconds},
                  {IPPROTO_TCP, TCP_KEEPINTVL, kProbeSeconds},
                  {IPPROTO_TCP, TCP_KEEPCNT, kProbes},
                  {IPPROTO_TCP, TCP_USER_TIMEOUT, kSilenceMs},
                  // Telnet's urgent byte is part of a command.
                  {SOL_SOCKET, SO_OOBINLINE, 1}};
  const auto descriptor = static_cast<int>(socket_.socketDescriptor());
  for (const auto& option : kOptions)
    setsockopt(descriptor, option.level, option.name, &option.value, sizeof option.value);
}

/// A greeting, or the reason of a server that closes at once, takes as long to come as the connection took.
void NetworkDevice::LetGreetingPass(const DeviceAddress& address, const Timer& limit) {
  Deadline greeting(pump_, guard_, "connecting", kGreetingMs + static_cast<int>(connectMs_));
  Await(limit, [&] { return !greeting.Enabled() || gone_; });
  if (!gone_ || GivenUp()) return;
  throw Closes(address, FirstLine(greeting_));
}

void NetworkDevice::Negotiate(const DeviceAddress& address, const Timer& limit) {
  control_.emplace();
  Send(control_->TakeOutput());
  Timer secondThoughts(pump_, guard_, "second thoughts", kSecondThoughtsMs);
  bool over = false;
  secondThoughts.OnTick([&over] { over = true; });
  using State = ComPortControl::State;
  Await(limit, [&] {
    const State state = control_->Progress();
    if (state == State::kDoubtful) secondThoughts.SetEnabled(true);
    return state == State::kReady || state == State::kHopeless || over || gone_;
  });
  const State state = control_->Progress();
  if (GivenUp() || (state == State::kReady && !gone_)) return;
  throw NotReady(address, *control_, gone_);
}

void NetworkDevice::TakeArrivals() {
  const QByteArray bytes = socket_.readAll();
  std::span<const std::uint8_t> data(reinterpret_cast<const std::uint8_t*>(bytes.data()),
                                     static_cast<std::size_t>(bytes.size()));
  std::vector<std::uint8_t> plain;
  if (control_) {
    plain = control_->Receive(data);
    data = plain;
    Send(control_->TakeOutput());
  }
  if (!open_) {
    if (greeting_.size() < kGreetingKept)
      greeting_ += bytes.left(static_cast<qsizetype>(kGreetingKept)).toStdString();
    return;
  }
  if (!data.empty()) {
    ++arrivals_;
    onInput(data);
  }
  if (control_ && socket_.bytesToWrite() > kMostUnreadAnswers) onLost();
}

void NetworkDevice::Write(std::span<const std::uint8_t> bytes) {
  Send(control_ ? Telnet::Escaped(bytes) : std::vector<std::uint8_t>(bytes.begin(), bytes.end()));
}

void NetworkDevice::Send(std::span<const std::uint8_t> bytes) {
  if (bytes.empty()) return;
  socket_.write(reinterpret_cast<const char*>(bytes.data()), static_cast<qint64>(bytes.size()));
  socket_.flush();
  if (socket_.bytesToWrite() > 0) silence_.SetEnabled(true);
}

std::size_t NetworkDevice::BytesToWrite() const {
  return static_cast<std::size_t>(socket_.bytesToWrite());
}

bool NetworkDevice::HoldsInput() const {
  return SystemHoldsInput(static_cast<int>(socket_.socketDescriptor()));
}

bool NetworkDevice::TakeInput() {
  const unsigned before = arrivals_;
  socket_.waitForReadyRead(0);
  return arrivals_ != before;
}

void NetworkDevice::GiveUpSilent() {
  ++discards_;
  socket_.abort();
}

void NetworkDevice::Close() {
  givenUp_ = true;
  open_ = false;
  if (socket_.bytesToWrite() > 0) ++discards_;
  Drop();
}

/// Bytes that nobody has read would make the system end the connection with a reset, and a server that gets
/// one forgets what it has not passed on yet.
void NetworkDevice::Drop() {
  silence_.SetEnabled(false);
  if (socket_.state() == QAbstractSocket::ConnectedState) {
    const auto descriptor = static_cast<int>(socket_.socketDescriptor());
    shutdown(descriptor, SHUT_WR);
    char unread[4096];
    for (int i = 0; i < 16 && recv(descriptor, unread, sizeof unread, MSG_DONTWAIT) > 0;) ++i;
  }
  socket_.abort();
}

}  // namespace marlinset
