// SPDX-License-Identifier: GPL-3.0-or-later
// The line over the network, against servers of the test's own on this computer.

#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>
#include <memory>

#include "app/unit/unit_server.h"
#include "platform/qt/qt_line.h"
#include "tests/platform/qt/qt_environment.h"
#include "tests/support/link_rig.h"

namespace marlinset {
namespace {

using testing::HasSubstr;

QByteArray Text(const Bytes& bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size())};
}

/// A pump whose clock runs only once the far end has nothing more to say, and then fast: limits end soon, and
/// never before what they limit.
class HeldPump : public QtPump {
 public:
  HeldPump() {
    QObject::connect(&tick_, &QTimer::timeout, &tick_, [this] {
      if (!runs) return;
      now_ += 200;
      RunDueTimers();
    });
    tick_.start(5);
  }
  std::int64_t Now() const override { return now_; }
  bool runs = false;

 private:
  std::int64_t now_ = 0;
  QTimer tick_;
};

/// What a server does with a connection: it answers the first bytes of the tool with `first`, those behind
/// COM port control's first settings with `second`, and closes then if it `closes`. `says` comes before that.
struct Manners {
  QByteArray first, second = {}, says = {};
  bool closes = false;
  bool floods = false;
};

class ScriptedServer {
 public:
  ScriptedServer(HeldPump& pump, Manners manners) : pump_(pump), manners_(std::move(manners)) {
    server_.listen(QHostAddress::LocalHost);
    QObject::connect(&server_, &QTcpServer::newConnection, &listener_, [this] { Welcome(); });
  }
  std::string Address(const std::string& scheme) const {
    return scheme + "://127.0.0.1:" + std::to_string(server_.serverPort());
  }
  QTcpSocket* socket = nullptr;
  QByteArray heard;
  int connections = 0;

 private:
  void Welcome() {
    ++connections;
    socket = server_.nextPendingConnection();
    QObject::connect(socket, &QTcpSocket::readyRead, &listener_, [this] { Hear(); });
    QObject::connect(socket, &QTcpSocket::bytesWritten, &listener_, [this] {
      if (manners_.floods) socket->write(QByteArray(8192, '\xFF').replace(0, 4096, QByteArray(4096, 'x')));
    });
    socket->write(manners_.says);
    if (manners_.first.isEmpty()) End();
  }
  void Hear() {
    heard += socket->readAll();
    if (!manners_.first.isEmpty()) {
      socket->write(std::exchange(manners_.first, {}));
      if (manners_.second.isEmpty()) End();
    } else if (heard.contains("\xFF\xFA\x2C\x05\x0B") && !manners_.second.isEmpty()) {
      socket->write(std::exchange(manners_.second, {}));
      End();
    }
  }
  void End() {
    if (manners_.closes) socket->disconnectFromHost();
    pump_.runs = true;
  }

  HeldPump& pump_;
  Manners manners_;
  QTcpServer server_;
  QObject listener_;
};

struct NetworkLineTest : testing::Test {
  QtLine& Line(const std::string& device) {
    line.reset();
    ports.emplace(PortMap::Paths{device}, settings, [] { return std::vector<std::string>{}; });
    line.emplace(guard, *ports, pump);
    return *line;
  }
  /// Why a port cannot be opened, with the remedy; empty if it can.
  std::string Failure(const std::string& device) {
    try {
      Line(device).SetPortOpen(true);
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.Number(), kErrPort);
      EXPECT_NE(error.Remedy(), "");
      EXPECT_FALSE(line->PortOpen() || line->Opening());
      return error.Description();
    }
    return line->PortOpen() ? "" : "given up";
  }
  void WaitFor(const std::function<bool()>& holds) {
    QTimer limit;
    limit.setSingleShot(true);
    limit.start(20000);
    while (!holds() && limit.isActive()) pump.Pump();
    EXPECT_TRUE(holds());
  }

  FakeDialogs dialogs;
  Guard guard{dialogs};
  HeldPump pump;
  MemorySettings settings;
  std::optional<PortMap> ports;
  std::optional<QtLine> line;
  QObject opening_;
};

const Bytes kDo = {255, 253, 44};
const Bytes kConfirmed = {255, 250, 44,  112, 3,   255, 240, 255, 250, 44,  101, 0,   0,   225, 0,
                          255, 240, 255, 250, 44,  102, 8,   255, 240, 255, 250, 44,  103, 1,   255,
                          240, 255, 250, 44,  104, 1,   255, 240, 255, 250, 44,  105, 1,   255, 240};

TEST_F(NetworkLineTest, DistinguishesServersThatCannotServeIt) {
  const QByteArray agrees = Text(kDo);
  const QByteArray most = Text({kConfirmed.begin(), kConfirmed.end() - 7});
  const QByteArray slow = Text({255, 250, 44, 101, 0, 0, 37, 128, 255, 240});
  const struct {
    const char* what;
    Manners manners;
    const char* words;
    bool speaks = true;  // or may do so
  } kCases[] = {
      {"accepts and says nothing", {.first = ""}, "says nothing: it serves another program, or does not"},
      {"closes at once", {.first = "", .closes = true}, "closes the connection without offering control"},
      {"closes after its answers",
       {.first = "\xFF\xFD\x03", .closes = true},
       "closes the connection without"},
      {"closes when it has agreed", {.first = agrees, .closes = true}, "closes the connection while it sets"},
      {"closes before the last",
       {.first = agrees, .second = most, .closes = true},
       "closes the connection while it sets its serial port."},
      {"sets another speed",
       {.first = agrees, .second = slow},
       "does not set its serial port: it does not take \"57600 bits per second\" (its answer: 9600)."},
      {"sets another speed and closes",
       {.first = agrees, .second = slow, .closes = true},
       "(its answer: 9600)"},
      {"is busy", {.first = "Port already in use\r\n", .closes = true}, "saying \"Port already in use\""},
      {"is busy and refuses",
       {.first = "\xFF\xFE\x2C"
                 "In use\n",
        .closes = true},
       "saying \"In use\""},
      {"is busy and stays", {.first = "Port in use\r\n"}, "says \"Port in use\" and does not offer control"},
      {"confirms all but one", {.first = agrees, .second = most}, "it does not confirm \"no flow control\""},
      {"speaks HTTP",
       {.first = "HTTP/1.1 400 Bad Request\r\n", .closes = true},
       "a web server answers",
       false},
      {"floods", {.first = "x", .floods = true}, "it floods the connection", false},
      {"refuses", {.first = "\xFF\xFE\x2C"}, "it refuses to have its port controlled", false},
      {"refuses and closes", {.first = "\xFF\xFE\x2C", .closes = true}, "it refuses to have its", false},
      {"passes bytes on", {.first = "\x06"}, "what it sends is no Telnet", false},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.what);
    pump.runs = false;
    ScriptedServer server(pump, c.manners);
    const std::string failure = Failure(server.Address("rfc2217"));
    EXPECT_THAT(failure, testing::StartsWith("Port 1 cannot be opened: the server 127.0.0.1 on port "));
    EXPECT_THAT(failure, HasSubstr(c.words));
    EXPECT_EQ(failure.find(" does not speak RFC 2217: ") == std::string::npos, c.speaks);
    EXPECT_LT(pump.Now(), 100 * NetworkDevice::kConnectMs);
  }
  pump.runs = false;
  ScriptedServer busy(pump, {.first = "", .says = "\r\nPort already in use\r\n", .closes = true});
  EXPECT_THAT(Failure(busy.Address("tcp")),
              HasSubstr("closes the connection, saying \"Port already in use\"."));
  pump.runs = false;
  ScriptedServer agreeable(
      pump, {.first = Text({255, 254, 0, 255, 252, 0, 255, 254, 3}) + agrees, .second = Text(kConfirmed)});
  EXPECT_EQ(Failure(agreeable.Address("rfc2217")), "");
}

TEST_F(NetworkLineTest, SaysWhyThereIsNoConnection) {
  QTcpServer closed;
  closed.listen(QHostAddress::LocalHost);
  const std::string port = std::to_string(closed.serverPort());
  closed.close();
  EXPECT_THAT(Failure("tcp://127.0.0.1:" + port),
              HasSubstr("connection refused by 127.0.0.1 on port " + port));
  EXPECT_THAT(Failure("tcp://localhost:" + port), HasSubstr("connection refused by localhost"));
  pump.runs = true;  // where no name server can be reached, the look-up takes longer than the limit
  EXPECT_THAT(Failure("tcp://no-such-host.invalid:1"), HasSubstr("unknown host no-such-host.invalid"));
  settings.values = {{"Port1", "tcp://rack7"}};
  EXPECT_FALSE(Line("").PortOpen());
  EXPECT_TRUE(line->DeviceIsThere(1)) << "so that the menu offers it, and Open says what is wrong";
  try {
    line->SetPortOpen(true);
    ADD_FAILURE();
  } catch (const RuntimeError& error) {
    EXPECT_THAT(error.Description(),
                testing::StartsWith("Port 1 cannot be opened: the address names no port number."));
  }
}

TEST_F(NetworkLineTest, CarriesAllBytesBothWaysUntilTheConnectionBreaks) {
  Bytes all(256);
  for (std::size_t i = 0; i < all.size(); ++i) all[i] = static_cast<std::uint8_t>(i);
  all[0] = 0x04;  // a reply that is released at once
  for (const char* scheme : {"tcp", "rfc2217"}) {
    SCOPED_TRACE(scheme);
    pump.runs = false;
    const bool telnet = std::string(scheme) == "rfc2217";
    ScriptedServer server(pump, telnet ? Manners{.first = Text(kDo), .second = Text(kConfirmed)}
                                       : Manners{.first = "", .says = "\r\na greeting\r\n"});
    ASSERT_EQ(Failure(server.Address(scheme)), "");
    std::vector<int> events;
    line->OnComm([&] { events.push_back(line->CommEvent()); });
    WaitFor([&] { return server.socket && (!telnet || pump.runs); });
    server.heard.clear();
    const QByteArray onTheWire = Text(telnet ? Telnet::Escaped(all) : all);
    line->Output(all);
    EXPECT_EQ(line->OutBufferCount(), 0U);
    WaitFor([&] { return server.heard.size() >= onTheWire.size(); });
    EXPECT_EQ(server.heard, onTheWire);
    server.socket->write(onTheWire);
    WaitFor([&] { return !events.empty(); });
    Bytes back;
    WaitFor([&] {
      while (line->InBufferCount() > 0) back.push_back(line->Input());
      return back.size() >= all.size();
    });
    EXPECT_EQ(back, all);
    events.clear();
    server.socket->abort();
    WaitFor([&] { return !events.empty(); });
    EXPECT_EQ(events, std::vector<int>{kCommDeviceGone});
    EXPECT_TRUE(line->DeviceGone() && !line->PortOpen());
  }
}

TEST_F(NetworkLineTest, GivesUpOnAFarEndThatTakesNothing) {
  ScriptedServer server(pump, {.first = ""});
  ASSERT_EQ(Failure(server.Address("tcp")), "");
  WaitFor([&] { return server.socket; });
  pump.runs = false;
  server.socket->setReadBufferSize(1);
  bool gone = false;
  line->OnComm([&] { gone = line->CommEvent() == kCommDeviceGone; });
  const Bytes much(1 << 20, 0x55);
  for (int i = 0; i < 64 && line->OutBufferCount() == 0; ++i) line->Output(much);
  EXPECT_GT(line->OutBufferCount(), 0U);
  pump.runs = true;
  WaitFor([&] { return gone; });
  EXPECT_EQ(line->OutputDiscards(), 1);
}

TEST_F(NetworkLineTest, EndsItsWaitWhenTheOperatorClosesThePortOrTheProgram) {
  for (const bool ends : {false, true}) {
    ScriptedServer server(pump, {.first = "never"});
    QtLine& opening = Line(server.Address("rfc2217"));
    QTimer::singleShot(0, &opening_, [&] {
      EXPECT_TRUE(opening.Opening() && !opening.PortOpen());
      opening.SetPortOpen(true);  // a second time: nothing
      ends ? pump.End() : opening.SetPortOpen(false);
    });
    opening.SetPortOpen(true);
    EXPECT_FALSE(opening.PortOpen() || opening.Opening());
    EXPECT_LT(pump.Now(), NetworkDevice::kConnectMs);
  }
}

}  // namespace
}  // namespace marlinset
